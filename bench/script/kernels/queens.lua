local found = 0
local function place(row, column, size)
  if column > size then
    found = found + 1
  else
    for r = 1, size do
      local free = 1
      for c = 1, column - 1 do
        if row[c] == r or row[c] - r == column - c or r - row[c] == column - c then free = 0 end
      end
      if free == 1 then
        row[column] = r
        place(row, column + 1, size)
      end
    end
  end
end
place({}, 1, 9)
print(found)
