local n = tonumber(arg[1])
local names = {}
local seed = 7
local i = 1
while i <= n do
    seed = (seed * 3877 + 29573) % 139968
    names[i] = string.format("net%06d", seed)
    i = i + 1
end
i = 1
while i <= n do
    local least = i
    local j = i + 1
    while j <= n do
        if names[j] < names[least] then
            least = j
        end
        j = j + 1
    end
    names[i], names[least] = names[least], names[i]
    i = i + 1
end
print(names[1] .. " " .. names[n // 2 + 1] .. " " .. names[n])
