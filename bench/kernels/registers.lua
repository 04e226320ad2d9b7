local n = tonumber(arg[1])
local registers = {}
local i = 0
while i < 64 do
    registers[i] = i * 257
    i = i + 1
end
i = 0
while i < n do
    local address = i & 63
    local value = registers[address]
    local field = (value >> 3) & 31
    field = (field + i) & 31
    registers[address] = (value & 0xFF07) | (field << 3)
    i = i + 1
end
local sum = 0
i = 0
while i < 64 do
    sum = (sum * 31 + registers[i]) & 0xFFFFFF
    i = i + 1
end
print(sum)
