local a, b, c = {}, {}, {}
for i = 0, 119 do
  a[i], b[i], c[i] = {}, {}, {}
  for j = 0, 119 do a[i][j] = i + j b[i][j] = i - j end
end
for i = 0, 119 do
  for j = 0, 119 do
    local sum = 0
    for k = 0, 119 do sum = sum + a[i][k] * b[k][j] * 0.5 end
    c[i][j] = sum
  end
end
print(string.format("%.15g", c[7][9] + c[100][3]))
