import sys


def main(n):
    i = 0
    while i < n:
        i += 1
    print(i)


main(int(sys.argv[1]))
