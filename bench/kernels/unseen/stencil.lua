local n = tonumber(arg[1])
local plate, next = {}, {}
local i = 1
while i <= 40 do
    plate[i], next[i] = {}, {}
    local j = 1
    while j <= 40 do
        plate[i][j], next[i][j] = 0.0, 0.0
        j = j + 1
    end
    plate[i][1], next[i][1] = 100.0, 100.0
    i = i + 1
end
local step = 0
while step < n do
    i = 2
    while i < 40 do
        local j = 2
        while j < 40 do
            local sum = plate[i - 1][j] + plate[i + 1][j] + plate[i][j - 1] + plate[i][j + 1]
            next[i][j] = sum * 0.25
            j = j + 1
        end
        i = i + 1
    end
    -- The borders are the same in both, so that they can change places.
    plate, next = next, plate
    step = step + 1
end
print(string.format("%.9f", plate[21][6]))
