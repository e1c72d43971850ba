local function main()
    local inside = 0
    for py = 0, 149 do
        for px = 0, 149 do
            local cr = px / 75 - 1.5
            local ci = py / 75 - 1
            local zr = 0
            local zi = 0
            local n = 0
            while n < 200 and zr * zr + zi * zi < 4 do
                local t = zr * zr - zi * zi + cr
                zi = 2 * zr * zi + ci
                zr = t
                n = n + 1
            end
            if n == 200 then
                inside = inside + 1
            end
        end
    end
    print(inside)
end
main()
