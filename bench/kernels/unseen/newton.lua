local n = tonumber(arg[1])
local sum = 0.0
local steps = 0
local i = 1
while i <= n do
    local square = 1.0 * i
    local root = square
    local change = 1.0
    while change > 0.000000001 do
        local better = (root + square / root) * 0.5
        change = root - better
        root = better
        steps = steps + 1
    end
    sum = sum + root
    i = i + 1
end
print(steps .. " " .. string.format("%.6f", sum))
