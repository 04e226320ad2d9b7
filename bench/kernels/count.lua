local n = tonumber(arg[1])
local i = 0
while i < n do
    i = i + 1
end
print(i)
