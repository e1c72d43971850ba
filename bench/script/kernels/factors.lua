local total = 0
for number = 2, 30000 do
  local rest, d = number, 2
  while d * d <= rest do
    if rest % d == 0 then
      total = total + d
      rest = math.floor(rest / d)
    else
      d = d + 1
    end
  end
  total = total + rest
end
print(total)
