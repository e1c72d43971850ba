local floor = math.floor
local function digits(number)
  local rest, sum = number, 0
  while rest > 0 do
    sum = sum + rest % 10
    rest = floor(rest / 10)
  end
  return sum
end
local total = 0
for number = 1, 400000 do total = total + digits(number) end
print(total)
