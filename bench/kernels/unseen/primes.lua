local n = tonumber(arg[1])
local count = 0
local i = 2
while i <= n do
    local prime = 1
    local divisor = 2
    while divisor * divisor <= i and prime == 1 do
        if i % divisor == 0 then
            prime = 0
        end
        divisor = divisor + 1
    end
    count = count + prime
    i = i + 1
end
print(count)
