local rounds = tonumber(arg[1])
local total = 0
local round = 0
while round < rounds do
    local text = "0"
    local i = 1
    while i < 2000 do
        text = text .. "," .. i
        i = i + 1
    end
    local pieces = {}
    for piece in string.gmatch(text, "[^,]+") do
        pieces[#pieces + 1] = piece
    end
    local count = #pieces
    local number = tonumber(pieces[count])
    total = total + count + number
    round = round + 1
end
print(total)
