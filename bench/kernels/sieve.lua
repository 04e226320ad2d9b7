local n = tonumber(arg[1])
local flags = {}
local i = 1
while i <= n do
    flags[i] = 1
    i = i + 1
end
local count = 0
i = 2
while i <= n do
    if flags[i] == 1 then
        count = count + 1
        local multiple = i + i
        while multiple <= n do
            flags[multiple] = 0
            multiple = multiple + i
        end
    end
    i = i + 1
end
print(count)
