local floor = math.floor
local solved, tries = 0, 0
local function solve(grid, place)
  if place == 81 then
    solved = solved + 1
  elseif grid[place] > 0 then
    solve(grid, place + 1)
  else
    local row, column = floor(place / 9), place % 9
    local box = floor(row / 3) * 27 + floor(column / 3) * 3
    for digit = 1, 9 do
      local free = 1
      for i = 0, 8 do
        if grid[row * 9 + i] == digit then free = 0 end
        if grid[i * 9 + column] == digit then free = 0 end
      end
      for y = box, box + 18, 9 do
        for x = y, y + 2 do
          if grid[x] == digit then free = 0 end
        end
      end
      if free == 1 then
        tries = tries + 1
        grid[place] = digit
        solve(grid, place + 1)
        grid[place] = 0
      end
    end
  end
end
local puzzle = "030070000600195000098000060800060003400803001700020006060000280000419005000080079"
local grid = {}
for i = 0, 80 do grid[i] = tonumber(puzzle:sub(i + 1, i + 1)) end
solve(grid, 0)
print(solved .. " " .. tries)
