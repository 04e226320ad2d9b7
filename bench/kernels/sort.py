import sys


def main(n):
    values = []
    seed = 42
    i = 0
    while i < n:
        seed = (seed * 3877 + 29573) % 139968
        values.append(seed)
        i += 1
    last = n - 1
    while last > 0:
        j = 0
        while j < last:
            k = j + 1
            if values[j] > values[k]:
                values[j], values[k] = values[k], values[j]
            j = k
        last -= 1
    sum = 0
    i = 0
    while i < n:
        sum = (sum * 31 + values[i]) % 65521
        i += 1
    print(values[0], sum)


main(int(sys.argv[1]))
