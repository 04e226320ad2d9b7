import sys


def main(n):
    sum = 0
    i = 0
    while i < n:
        sum = i * 3 - sum
        i += 1
    print(sum)


main(int(sys.argv[1]))
