import sys


def main(n):
    flags = []
    i = 0
    while i <= n:
        flags.append(1)
        i += 1
    count = 0
    i = 2
    while i <= n:
        if flags[i] == 1:
            count += 1
            multiple = i + i
            while multiple <= n:
                flags[multiple] = 0
                multiple += i
        i += 1
    print(count)


main(int(sys.argv[1]))
