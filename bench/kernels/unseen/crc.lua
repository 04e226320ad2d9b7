local n = tonumber(arg[1])
local crc = 0xFFFF
local i = 0
while i < n do
    crc = crc ~ ((i & 255) << 8)
    local bit = 0
    while bit < 8 do
        local top = crc & 0x8000
        crc = (crc << 1) & 0xFFFF
        if top ~= 0 then
            crc = crc ~ 0x1021
        end
        bit = bit + 1
    end
    i = i + 1
end
print(crc)
