import sys


def main(n):
    sum = 0
    i = 0
    while i < n:
        text = "%08X" % i
        number = int(text, 16)
        sum = number - sum
        i += 1
    print(sum, text)


main(int(sys.argv[1]))
