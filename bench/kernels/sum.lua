local n = tonumber(arg[1])
local sum = 0
local i = 0
while i < n do
    sum = i * 3 - sum
    i = i + 1
end
print(sum)
