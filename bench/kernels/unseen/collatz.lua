local n = tonumber(arg[1])
local short, middle, long, longest = 0, 0, 0, 0
local i = 1
while i <= n do
    local value = i
    local steps = 0
    while value ~= 1 do
        if value % 2 == 0 then
            value = value // 2
        else
            value = value * 3 + 1
        end
        steps = steps + 1
    end
    if steps < 20 then
        short = short + 1
    elseif steps < 60 then
        middle = middle + 1
    elseif steps <= longest then
        long = long + 1
    else
        long = long + 1
        longest = steps
    end
    i = i + 1
end
print(short .. " " .. middle .. " " .. long .. " " .. longest)
