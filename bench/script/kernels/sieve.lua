local function main()
    local flags = {}
    local count = 0
    for i = 2, 1000000 do
        flags[i] = 1
    end
    for i = 2, 1000000 do
        if flags[i] == 1 then
            count = count + 1
            local k = i + i
            while k < 1000001 do
                flags[k] = 0
                k = k + i
            end
        end
    end
    print(count)
end
main()
