local function fib(n)
    local result
    if n < 2 then
        result = n
    else
        result = fib(n - 1) + fib(n - 2)
    end
    return result
end
print(fib(30))
