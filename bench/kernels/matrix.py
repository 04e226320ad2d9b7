import sys


def main(n):
    a = []
    b = []
    i = 0
    while i < n:
        a.append([])
        b.append([])
        j = 0
        while j < n:
            a[i].append(i + j)
            b[i].append(i * 2 - j)
            j += 1
        i += 1
    c = []
    i = 0
    while i < n:
        c.append([])
        j = 0
        while j < n:
            sum = 0
            k = 0
            while k < n:
                sum += a[i][k] * b[k][j]
                k += 1
            c[i].append(sum)
            j += 1
        i += 1
    trace = 0
    i = 0
    while i < n:
        trace += c[i][i]
        i += 1
    print(trace, c[0][n - 1], c[n - 1][0])


main(int(sys.argv[1]))
