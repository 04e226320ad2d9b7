"""The kernels that engine and peers are compared with. Each stands in kernels/ once for every language."""

import dataclasses
import pathlib

FOLDER = pathlib.Path(__file__).resolve().parent / "kernels"


@dataclasses.dataclass(frozen=True)
class Kernel:
    """A small program that gets a size and prints a checksum.

    A macro reads the size from the system variable SIZE, the peers' programs from their first argument.
    """

    name: str
    title: str
    size: int  # Lua 5.4 takes 0.3 to 0.6 s for it on the machine of docs/performance.md
    small_size: int  # takes no time; the checksum is then
    small_checksum: str
    reach: float | None = None  # our time over Lua's: the most that is good enough
    aim: float | None = None  # and what is wanted
    folder: pathlib.Path = FOLDER

    def source(self, *suffixes: str) -> pathlib.Path:
        """The first of the files with these suffixes that exists."""
        paths = [self.folder / (self.name + suffix) for suffix in suffixes]
        return next((path for path in paths if path.exists()), paths[-1])


KERNELS = [
    Kernel("count", "empty counting loop", 36_000_000, 20_000, "20000", 0.9, 0.65),
    Kernel("sum", "integer sum, two operations a step", 20_000_000, 10_000, "15000", 0.9, 0.65),
    Kernel("leibniz", "floating series (Leibniz)", 17_000_000, 5_000, "3.141392653592", 1.1, 0.75),
    Kernel("sieve", "sieve in an array", 3_500_000, 10_000, "1229", 0.75, 0.45),
    Kernel("sort", "bubble sort", 4_000, 100, "734 21712", 0.8, 0.6),
    Kernel("matrix", "matrix product, nested arrays", 210, 20, "85500 1330 12160", 0.7, 0.35),
    Kernel("text", "text built by appends, then split", 250, 2, "7998", 0.25, 0.15),
    Kernel("fizzbuzz", "if/elseif chain (fizzbuzz)", 9_000_000, 5_000, "1333 667 333 2667", 0.9, 0.65),
    Kernel("commands", "command calls (hexadecimal text and back)", 850_000, 500, "250 000001F3", 0.55, 0.35),
    Kernel("registers", "register file, read-modify-write", 10_000_000, 3_000, "4193536", 1.0, 0.8),
]

# What the geometric mean over all kernels must reach, and the one to aim at.
MEAN_REACH, MEAN_AIM = 0.73, 0.49

# Of the same kinds, and held back: nobody looks at them while making the engine faster. They stand there for macroctl
# and Lua alone.
UNSEEN_KERNELS = [
    Kernel(name, title, size, small_size, small_checksum, folder=FOLDER / "unseen")
    for name, title, size, small_size, small_checksum in [
        ("gcd", "greatest common divisors", 1_700, 60, "10160"),
        ("reverse", "list of words turned around", 90_000, 51,
         "power off,mute,store,sample,sweep,trim,offset,gain,bias,clock,reset,power on"),
        ("stencil", "stencil over floating values, nested arrays", 2_500, 20, "11.727520596"),
        ("collatz", "Collatz sequences, if/elseif chain", 110_000, 300, "86 126 88 127"),
        ("primes", "primes by trial division, nested loops", 300_000, 2_000, "303"),
        ("selection", "selection sort of texts", 4_500, 60, "net000142 net062843 net135485"),
        ("crc", "cyclic redundancy check with shifts", 1_500_000, 400, "44385"),
        ("newton", "square roots by Newton's method", 900_000, 500, "4401 7464.534242"),
    ]
]
