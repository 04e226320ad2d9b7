import sys


def main(rounds):
    total = 0
    round = 0
    while round < rounds:
        text = "0"
        i = 1
        while i < 2000:
            text += "," + str(i)
            i += 1
        pieces = text.split(",")
        count = len(pieces)
        number = int(pieces[count - 1])
        total += count + number
        round += 1
    print(total)


main(int(sys.argv[1]))
