import sys


def main(n):
    registers = []
    i = 0
    while i < 64:
        registers.append(i * 257)
        i += 1
    i = 0
    while i < n:
        address = i & 63
        value = registers[address]
        field = (value >> 3) & 31
        field = (field + i) & 31
        registers[address] = (value & 0xFF07) | (field << 3)
        i += 1
    sum = 0
    i = 0
    while i < 64:
        sum = (sum * 31 + registers[i]) & 0xFFFFFF
        i += 1
    print(sum)


main(int(sys.argv[1]))
