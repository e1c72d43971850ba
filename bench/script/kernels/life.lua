local now, later = {}, {}
for x = 0, 65 do
  now[x], later[x] = {}, {}
  for y = 0, 65 do now[x][y] = 0 later[x][y] = 0 end
end
for y = 1, 64 do
  for x = 1, 64 do now[x][y] = (x * 7 + y * 13 + x * y) % 7 % 2 end
end
for turn = 1, 60 do
  for y = 1, 64 do
    for x = 1, 64 do
      local n = now[x - 1][y - 1] + now[x][y - 1] + now[x + 1][y - 1] + now[x - 1][y] + now[x + 1][y]
        + now[x - 1][y + 1] + now[x][y + 1] + now[x + 1][y + 1]
      later[x][y] = 0
      if n == 3 then later[x][y] = 1 end
      if n == 2 then later[x][y] = now[x][y] end
    end
  end
  for y = 1, 64 do
    for x = 1, 64 do now[x][y] = later[x][y] end
  end
end
local count = 0
for y = 1, 64 do
  for x = 1, 64 do count = count + now[x][y] end
end
print(count)
