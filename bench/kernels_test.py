"""Tests of the kernels that bench/compare measures: each one gives its checksum, in the macro language and in Lua."""

import concurrent.futures
import os
import shutil
import subprocess
import unittest

from kernel_list import KERNELS, UNSEEN_KERNELS, Kernel

MACROCTL = os.environ["MACROCTL"]
LUA = shutil.which("lua5.4")


def output(command: list[str], **environment: str) -> str:
    done = subprocess.run(
        command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, encoding="utf-8",
        timeout=60, check=False, env={**os.environ, **environment})
    return done.stdout.strip()


def run_macro(kernel: Kernel) -> str:
    return output([MACROCTL, "run", "--board", str(kernel.source(".mac"))], SIZE=str(kernel.small_size))


def run_lua(kernel: Kernel) -> str:
    return output([LUA, str(kernel.source(".lua")), str(kernel.small_size)])


class Kernels(unittest.TestCase):
    maxDiff = None

    def assert_checksums(self, run) -> None:
        kernels = KERNELS + UNSEEN_KERNELS
        with concurrent.futures.ThreadPoolExecutor() as pool:
            actual = dict(zip((kernel.name for kernel in kernels), pool.map(run, kernels)))
        self.assertEqual(actual, {kernel.name: kernel.small_checksum for kernel in kernels})

    def test_macros_give_the_checksums(self) -> None:
        self.assert_checksums(run_macro)

    @unittest.skipUnless(LUA, "Lua is not installed")
    def test_lua_gives_the_same_checksums(self) -> None:
        self.assert_checksums(run_lua)

    def test_every_kernel_is_listed(self) -> None:
        for kernels in (KERNELS, UNSEEN_KERNELS):
            found = {path.stem for path in kernels[0].folder.glob("*.mac")}
            self.assertEqual(found, {kernel.name for kernel in kernels})


if __name__ == "__main__":
    unittest.main()
