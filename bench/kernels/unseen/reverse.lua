local n = tonumber(arg[1])
local words = "power on,reset,clock,bias,gain,offset,trim,sweep,sample,store,mute,power off"
local i = 0
while i < n do
    local pieces = {}
    for piece in string.gmatch(words, "[^,]+") do
        pieces[#pieces + 1] = piece
    end
    local j = #pieces
    words = pieces[j]
    while j > 1 do
        j = j - 1
        words = words .. "," .. pieces[j]
    end
    i = i + 1
end
print(words)
