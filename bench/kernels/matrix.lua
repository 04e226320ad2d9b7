local n = tonumber(arg[1])
local a, b, c = {}, {}, {}
local i = 1
while i <= n do
    a[i], b[i], c[i] = {}, {}, {}
    local j = 1
    while j <= n do
        a[i][j] = i + j - 2
        b[i][j] = i * 2 - j - 1
        j = j + 1
    end
    i = i + 1
end
i = 1
while i <= n do
    local j = 1
    while j <= n do
        local sum = 0
        local k = 1
        while k <= n do
            sum = sum + a[i][k] * b[k][j]
            k = k + 1
        end
        c[i][j] = sum
        j = j + 1
    end
    i = i + 1
end
local trace = 0
i = 1
while i <= n do
    trace = trace + c[i][i]
    i = i + 1
end
print(trace .. " " .. c[1][n] .. " " .. c[n][1])
