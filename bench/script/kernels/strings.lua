local function main()
    local total = 0
    for turn = 1, 20000 do
        local text = ""
        for i = 1, 100 do
            text = text .. "x"
        end
        total = total + #text
    end
    print(total)
end
main()
