local n = tonumber(arg[1])
local fizz, buzz, both, other = 0, 0, 0, 0
local i = 1
while i <= n do
    if i % 3 == 0 and i % 5 == 0 then
        both = both + 1
    elseif i % 3 == 0 then
        fizz = fizz + 1
    elseif i % 5 == 0 then
        buzz = buzz + 1
    else
        other = other + 1
    end
    i = i + 1
end
print(fizz .. " " .. buzz .. " " .. both .. " " .. other)
