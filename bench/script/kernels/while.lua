local function main()
    local x = 0.0
    local sum = 0.0
    while x < 6000000 do
        sum = sum + x * 0.5 - sum / 3
        x = x + 1
    end
    print(string.format("%.15g", sum))
end
main()
