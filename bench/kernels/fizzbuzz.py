import sys


def main(n):
    fizz = buzz = both = other = 0
    i = 1
    while i <= n:
        if i % 3 == 0 and i % 5 == 0:
            both += 1
        elif i % 3 == 0:
            fizz += 1
        elif i % 5 == 0:
            buzz += 1
        else:
            other += 1
        i += 1
    print(fizz, buzz, both, other)


main(int(sys.argv[1]))
