#!/usr/bin/env python3
"""Changes single tokens of the module, one at a time, and reports which changes no test notices.

Works on copies in build/mutants/; each worker has its own, with a clean build to go back to.
"""

import argparse
import concurrent.futures
import dataclasses
import pathlib
import queue
import random
import re
import resource
import shutil
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
HOME = ROOT / "build" / "mutants"
FOLDERS = ("module/wire", "module/containers", "module/framework", "module/decoders")
# Quick ones first: a change that one notices is not tried on the next. The long load and unload is left out.
# These load the module, so that only it is built anew; the tests of its parts are linked with them.
MODULE_TESTS = ("module_tests", "load_tests", "model_tests", "reliability_tests")
PARTS_TESTS = ("parts_tests",)
PROGRAMS = PARTS_TESTS + MODULE_TESTS
ARGUMENTS = {"load_tests": ("--gtest_filter=-Load.Unload*",)}
# Changes that alter nothing that shows, as a report names them but for the line's number, each under its reason.
EXPLAINED = ROOT / "scripts" / "mutants_explained.txt"
AIM = 90  # percent
TIME_LIMIT = 100  # seconds a program
MEMORY_LIMIT = 4 << 30

SWAPS = {
    "==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">", "&&": "||", "||": "&&",
    "+": "-", "-": "+", "+=": "-=", "-=": "+=", "*": "/", "/": "*", "!": "", "true": "false", "false": "true",
}
# Binary operators stand between blanks, which tells them from template brackets, signs and references.
TOKEN = re.compile(
    r"""(?P<skip> //[^\n]* | /\*.*?\*/ | ^\s*\#[^\n]* | "(?:\\.|[^"\\\n])*" | \bstatic_assert\b.*?; | ^consteval\b.*?^}
                | \b\d[\d']*\.\d*\w* )
      | (?P<number> \b(?:0x[0-9a-fA-F]+|\d[\d']*)(?=[uUlL]*\b) )
      | (?P<letter> '[0-8A-Ya-y]' )
      | (?P<quoted> '(?:\\.|[^'\\\n])+' )
      | (?P<word> \b(?:true|false)\b | (?<=[\s(])!(?=[\w(]) )
      | (?P<operator> (?<=\s)(?:[=!<>+-]=|&&|\|\||[<>+*/-])(?=\s) )""",
    re.VERBOSE | re.MULTILINE | re.DOTALL,
)


@dataclasses.dataclass(frozen=True)
class Mutant:
    file: str
    line: int
    start: int
    end: int
    was: str
    becomes: str
    text: str

    def __str__(self):
        return f"{self.file}:{self.line}: {self.change()}"

    def change(self):
        return f'"{self.was}" -> "{self.becomes}"   {self.text}'


def replacement(match):
    was = match.group()
    if match.lastgroup == "number":
        if was == "1" and match.string[: match.start()].endswith("return "):
            return "0"
        return str(int(was.replace("'", ""), 0) + 1)
    if match.lastgroup == "letter":
        return f"'{chr(ord(was[1]) + 1)}'"
    if match.lastgroup in ("word", "operator"):
        return SWAPS[was]
    return None


def mutants_of(path):
    source = path.read_text()
    lines = source.split("\n")
    for match in TOKEN.finditer(source):
        becomes = replacement(match)
        if becomes is not None:
            line = source.count("\n", 0, match.start())
            yield Mutant(str(path.relative_to(ROOT)), line + 1, match.start(), match.end(), match.group(), becomes,
                         lines[line].strip())


def all_mutants():
    paths = sorted(p for folder in FOLDERS for p in (ROOT / folder).rglob("*") if p.suffix in (".cpp", ".h"))
    return [mutant for path in paths for mutant in mutants_of(path)]


def limit_memory():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY_LIMIT, MEMORY_LIMIT))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


class Worker:
    """A copy of the tree, its build, and a second copy of the build as it was before any change."""

    def __init__(self, number):
        self.home = HOME / str(number)
        self.tree = self.home / "tree"
        self.build = self.home / "build"
        self.clean = self.home / "clean"

    def prepare(self):
        shutil.rmtree(self.home, ignore_errors=True)
        tracked = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=ROOT,
                                 check=True, capture_output=True, text=True)
        for name in filter(None, tracked.stdout.split("\0")):
            if (ROOT / name).is_file() and not name.startswith("fuzz/corpus/"):
                target = self.tree / name
                target.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy2(ROOT / name, target)
        subprocess.run(["cmake", "-G", "Ninja", "-S", self.tree, "-B", self.build, "-DCMAKE_BUILD_TYPE=None",
                        "-DCMAKE_CXX_FLAGS=-O1", "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON"],
                       check=True, stdout=subprocess.DEVNULL)
        if not self.make(PROGRAMS) or (failed := self.first_to_fail(PROGRAMS)):
            raise SystemExit(f"{sys.argv[0]}: without any change {failed or 'the build'} fails in {self.home}")
        shutil.copytree(self.build, self.clean, symlinks=True)

    def make(self, programs):
        command = ["ninja", "-C", self.build, "-j1", *programs]
        result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
        (self.home / "build.log").write_bytes(result.stdout)
        return result.returncode == 0

    def first_to_fail(self, programs):
        for program in programs:
            command = [self.build / "bin" / program, "--gtest_fail_fast", "--gtest_brief=1",
                       *ARGUMENTS.get(program, ())]
            try:
                with open(self.home / "test.log", "wb") as log:
                    result = subprocess.run(command, cwd=self.home, stdout=log, stderr=log, timeout=TIME_LIMIT,
                                            preexec_fn=limit_memory, check=False)
            except subprocess.TimeoutExpired:
                return f"{program} (hangs)"
            if result.returncode != 0:
                return program
        return None

    def judge(self, mutant):
        """Who noticed it; None if nobody; "" if it does not compile."""
        path = self.tree / mutant.file
        original = path.read_text()
        times = path.stat()
        path.write_text(original[: mutant.start] + mutant.becomes + original[mutant.end :])
        try:
            if not self.make(("tickmux",)):
                return ""
            return self.first_to_fail(MODULE_TESTS) or (
                "build" if not self.make(PARTS_TESTS) else self.first_to_fail(PARTS_TESTS))
        finally:
            shutil.copy2(ROOT / mutant.file, path)
            assert path.stat().st_mtime_ns == times.st_mtime_ns, "the source was edited meanwhile"
            shutil.rmtree(self.build)
            shutil.copytree(self.clean, self.build, symlinks=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("count", nargs="?", type=int, default=60, help="how many changes to try (60)")
    parser.add_argument("--seed", type=int, default=1, help="which ones (1)")
    parser.add_argument("--workers", type=int, default=2, help="how many at once (2)")
    parser.add_argument("--minutes", type=float, default=1e9, help="begin none after so long")
    options = parser.parse_args()

    explained = set(EXPLAINED.read_text().splitlines())
    sites = all_mutants()
    sample = random.Random(options.seed).sample(sites, min(options.count, len(sites)))
    print(f"{len(sample)} of {len(sites)} changes", flush=True)
    free = queue.Queue()
    with concurrent.futures.ThreadPoolExecutor(options.workers) as pool:
        workers = [Worker(i) for i in range(options.workers)]
        list(pool.map(Worker.prepare, workers))
        for worker in workers:
            free.put(worker)
        end = time.monotonic() + options.minutes * 60
        noticed, survivors, uncompiled, harmless = 0, [], 0, 0

        def judge(mutant):
            if time.monotonic() > end:
                return mutant, ""
            worker = free.get()
            try:
                return mutant, worker.judge(mutant)
            finally:
                free.put(worker)

        judging = [pool.submit(judge, mutant) for mutant in sample]
        for done, future in enumerate(concurrent.futures.as_completed(judging), 1):
            mutant, by = future.result()
            if done % 20 == 0:
                print(f"{done} tried", flush=True)
            if by == "":
                uncompiled += 1
            elif by is None and f"{mutant.file}: {mutant.change()}" in explained:
                harmless += 1
            elif by is None:
                survivors.append(mutant)
                print(f"not noticed: {mutant}", flush=True)
            else:
                noticed += 1
    judged = noticed + len(survivors)
    share = 100 * noticed / judged if judged else 0
    print(f"{noticed} of {judged} noticed, {share:.1f} % (aim {AIM} %)")
    print(f"{harmless} more are explained in {EXPLAINED.name}, {uncompiled} do not compile")
    return 0 if share >= AIM else 1


if __name__ == "__main__":
    sys.exit(main())
