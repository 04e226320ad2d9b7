local n = tonumber(arg[1])
local sum = 0
local text
local i = 0
while i < n do
    text = string.format("%08X", i)
    local number = tonumber(text, 16)
    sum = number - sum
    i = i + 1
end
print(sum .. " " .. text)
