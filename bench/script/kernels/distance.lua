local function distance(one, other)
  local d = {}
  for i = 0, 300 do d[i] = {[0] = i} end
  for i = 0, 300 do d[0][i] = i end
  for i = 1, 300 do
    for j = 1, 300 do
      local cost = 1
      if one:sub(i, i) == other:sub(j, j) then cost = 0 end
      local least = d[i - 1][j] + 1
      if d[i][j - 1] + 1 < least then least = d[i][j - 1] + 1 end
      if d[i - 1][j - 1] + cost < least then least = d[i - 1][j - 1] + cost end
      d[i][j] = least
    end
  end
  return d[300][300]
end
local one, other = "", ""
for i = 1, 300 do
  one = one .. string.char(97 + i * 7 % 26)
  other = other .. string.char(97 + i * 11 % 26)
end
print(distance(one, other))
