local band, bor, lshift, rshift = bit.band, bit.bor, bit.lshift, bit.rshift
local n = tonumber(arg[1])
local registers = {}
local i = 0
while i < 64 do
    registers[i] = i * 257
    i = i + 1
end
i = 0
while i < n do
    local address = band(i, 63)
    local value = registers[address]
    local field = band(rshift(value, 3), 31)
    field = band(field + i, 31)
    registers[address] = bor(band(value, 0xFF07), lshift(field, 3))
    i = i + 1
end
local sum = 0
i = 0
while i < 64 do
    sum = band(sum * 31 + registers[i], 0xFFFFFF)
    i = i + 1
end
print(sum)
