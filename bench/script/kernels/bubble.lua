local function sort(list, last)
  for i = last, 1, -1 do
    for j = 0, i - 1 do
      if list[j] > list[j + 1] then list[j], list[j + 1] = list[j + 1], list[j] end
    end
  end
end
local list, seed = {}, 7
for i = 0, 1200 do
  seed = (seed * 171 + 11) % 30269
  list[i] = seed
end
sort(list, 1200)
print(list[0] .. " " .. list[600] .. " " .. list[1200])
