local n = tonumber(arg[1])
local values = {}
local seed = 42
local i = 1
while i <= n do
    seed = (seed * 3877 + 29573) % 139968
    values[i] = seed
    i = i + 1
end
local last = n
while last > 1 do
    local j = 1
    while j < last do
        local k = j + 1
        if values[j] > values[k] then
            values[j], values[k] = values[k], values[j]
        end
        j = k
    end
    last = last - 1
end
local sum = 0
i = 1
while i <= n do
    sum = (sum * 31 + values[i]) % 65521
    i = i + 1
end
print(values[1] .. " " .. sum)
