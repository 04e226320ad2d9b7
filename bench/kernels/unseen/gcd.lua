local n = tonumber(arg[1])
local total = 0
local i = 1
while i <= n do
    local j = 1
    while j <= n do
        local a, b = i, j
        while b ~= 0 do
            a, b = b, a % b
        end
        total = total + a
        j = j + 1
    end
    i = i + 1
end
print(total)
