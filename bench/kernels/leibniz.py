import sys


def main(n):
    sum = 0.0
    sign = 4.0
    divisor = 1.0
    i = 0
    while i < n:
        sum += sign / divisor
        sign = -sign
        divisor += 2.0
        i += 1
    print("%.12f" % sum)


main(int(sys.argv[1]))
