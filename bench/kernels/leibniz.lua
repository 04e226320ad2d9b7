local n = tonumber(arg[1])
local sum = 0.0
local sign = 4.0
local divisor = 1.0
local i = 0
while i < n do
    sum = sum + sign / divisor
    sign = -sign
    divisor = divisor + 2.0
    i = i + 1
end
print(string.format("%.12f", sum))
