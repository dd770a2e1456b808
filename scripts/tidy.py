#!/usr/bin/env python3
"""clang-tidy over what has changed since it was last found clean.

    scripts/tidy.py BUILD...     the sources that these build folders have compiled

What is clean is noted in build/tidy/clean.json: a source with its headers, its compile command, the settings and
the version of clang-tidy. Most of the time goes into the headers of the standard library, so that sources with one
command are checked in batches, each as one text that includes them; sources that cannot stand in one text, because
they have a name in common, are parted. The analyzer looks at a main file alone, so that it runs source by source,
where the settings ask for it.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys

HERE = pathlib.Path.cwd()
FOLDER = HERE / "build" / "tidy"
CLEAN = FOLDER / "clean.json"
BATCH = 16
CHEAPEST = "misc-unused-alias-decls"  # parses, and looks for hardly anything
SETTINGS = sorted(path for path in HERE.glob("**/.clang-tidy") if not path.is_relative_to(FOLDER))
ANALYZER = "clang-analyzer-*"
# Parts of the analyzer that the settings leave out.
LEFT_OUT = re.findall(r"-clang-analyzer-\w[\w.]*", pathlib.Path(HERE, ".clang-tidy").read_text(encoding="utf-8"))
# The analyzer's paths do not run through the standard library's own functions.
OWN_CODE = ["-Xclang", "-analyzer-config", "-Xclang", "c++-stdlib-inlining=false"]
# What each program begins with; in one text each has a name of its own.
ENTRIES = ("main", "LLVMFuzzerTestOneInput")
USING = re.compile(r"^\s*using [\w:]+;", re.MULTILINE)
# Compiler options that clang does not know, and the launcher in front.
UNKNOWN = {"-fno-gnu-unique", "-fprofile-update=atomic"}
NOISE = re.compile(r"^\d+ warnings? (and \d+ errors? )?generated|^Suppressed|^Use -header|^$")


class Source:
    def __init__(self, path, command, headers):
        self.path = path
        self.command = command
        self.headers = headers

    def state(self, common):
        text = hashlib.sha256(common)
        text.update(" ".join(self.command).encode())
        for path in [self.path, *self.headers]:
            text.update(path.encode())
            text.update(pathlib.Path(path).read_bytes())
        return text.hexdigest()


def options_of(entry):
    words = [word for word in shlex.split(entry["command"]) if word not in UNKNOWN]
    if "ccache" in words[0]:
        words = words[1:]
    options = []
    skip = False
    for word in words[1:]:
        if skip:
            skip = False
        elif word in ("-o", "-MT", "-MF", "-c"):
            skip = word != "-c"
        elif word not in ("-MD", entry["file"]):
            options.append(word)
    return options


def headers_by_object(build):
    """What ninja has noted of each object: the files of ours that it was made from."""
    listing = subprocess.run(["ninja", "-C", build, "-t", "deps"], check=True, capture_output=True, text=True).stdout
    headers = {}
    current = None
    for line in listing.splitlines():
        if line.startswith("    "):
            path = os.path.relpath(os.path.join(HERE, build, line.strip()), HERE)
            if not path.startswith(".."):
                headers[current].append(path)
        elif ":" in line:
            current = line.split(":")[0]
            headers[current] = []
    return headers


def sources_of(build):
    headers = headers_by_object(build)
    found = {}
    for entry in json.loads(pathlib.Path(build, "compile_commands.json").read_text(encoding="utf-8")):
        path = os.path.relpath(entry["file"], HERE)
        if path.startswith((".." , "build/")) or not path.endswith(".cpp"):
            continue
        made = shlex.split(entry["command"])
        target = entry.get("output") or made[made.index("-o") + 1]
        found[path] = Source(path, options_of(entry), sorted(set(headers.get(target, []))))
    return list(found.values())


def run_tidy(file, command, *options):
    done = subprocess.run(["clang-tidy", "--quiet", *options, str(file), "--", *command], capture_output=True, text=True)
    return done.returncode == 0, "\n".join(
        line for line in (done.stdout + done.stderr).splitlines() if not NOISE.match(line))


def in_one_text(batch, *options):
    name = hashlib.sha256(" ".join(source.path for source in batch).encode()).hexdigest()[:16]
    unity = FOLDER / os.path.dirname(batch[0].path) / f"{name}.cpp"
    unity.parent.mkdir(parents=True, exist_ok=True)
    lines = []
    for place, source in enumerate(batch):
        lines += [line for entry in ENTRIES for line in (f"#undef {entry}", f"#define {entry} {entry}_{place}")]
        lines += [f'#include "{HERE}/{source.path}"  // NOLINT(bugprone-suspicious-include)']
    unity.write_text("\n".join(lines) + "\n", encoding="utf-8")
    try:
        return run_tidy(unity, batch[0].command, "--header-filter=.*", *options)
    finally:
        unity.unlink()


def parted(batch):
    """The batch as ones that can each stand in one text: who has another's name goes on to the next, and if that is
    told of a header, half of them."""
    while batch:
        later = []
        while len(batch) > 1:
            _, told = in_one_text(batch, f"--checks=-*,{CHEAPEST},clang-diagnostic-*")
            clash = {source for source in batch[1:] if re.search(
                rf"{re.escape(source.path)}:\d+:\d+: error: .*clang-diagnostic-", told)}
            if not clash and "clang-diagnostic-" in told:
                clash = set(batch[len(batch) // 2:])
            if not clash:
                break
            later += [source for source in batch if source in clash]
            batch = [source for source in batch if source not in clash]
        yield batch
        batch = later


def check(batch):
    """Whether all is clean but for the analyzer, and what was found."""
    if len(batch) == 1:
        return run_tidy(batch[0].path, batch[0].command, "--header-filter=.*", f"--checks=-{ANALYZER}")
    clean, told = in_one_text(batch, f"--checks=-{ANALYZER}")
    # One check looks at the main file alone.
    for source in batch:
        if USING.search(pathlib.Path(source.path).read_text(encoding="utf-8")):
            own, more = run_tidy(source.path, source.command, "--checks=-*,misc-unused-using-decls")
            clean, told = clean and own, told + more
    return clean, told


def check_all(sources):
    return [(batch, *check(batch)) for batch in parted(sources)]


def analyze(source):
    command = [*source.command, *OWN_CODE]
    return [([source], *run_tidy(source.path, command, f"--checks=-*,{ANALYZER},{','.join(LEFT_OUT)}"))]


def analyzed(sources):
    plain = tuple(str(path.parent.relative_to(HERE)) + "/" for path in SETTINGS
                  if path.parent != HERE and "-" + ANALYZER in path.read_text(encoding="utf-8"))
    return [source for source in sources if not source.path.startswith(plain)]


def batches_of(sources):
    groups = {}
    for source in sources:
        groups.setdefault((os.path.dirname(source.path), tuple(source.command)), []).append(source)
    for group in groups.values():
        for start in range(0, len(group), BATCH):
            yield group[start:start + BATCH]


def copy_settings():
    """A batch lies in a folder of its own sources' name, with that folder's settings; the rest it inherits. That an
    exception may not leave main goes for the names that it has there."""
    FOLDER.mkdir(parents=True, exist_ok=True)
    mains = ",".join(f"main_{place}" for place in range(BATCH))
    (FOLDER / ".clang-tidy").write_text(
        "InheritParentConfig: true\nCheckOptions:\n"
        f"  - key: bugprone-exception-escape.FunctionsThatShouldNotThrow\n    value: '{mains}'\n", encoding="utf-8")
    for path in SETTINGS:
        folder = FOLDER / path.parent.relative_to(HERE)
        folder.mkdir(parents=True, exist_ok=True)
        if path.parent != HERE:
            shutil.copyfile(path, folder / path.name)


def main():
    copy_settings()
    version = subprocess.run(["clang-tidy", "--version"], check=True, capture_output=True).stdout
    common = version + b"".join(path.read_bytes() for path in [pathlib.Path(__file__), *SETTINGS])
    noted = set(json.loads(CLEAN.read_text(encoding="utf-8"))) if CLEAN.exists() else set()
    sources = {source.path: source for build in sys.argv[1:] for source in sources_of(build)}
    states = {source.path: source.state(common) for source in sources.values()}
    due = [source for source in sources.values() if states[source.path] not in noted]
    print(f"  {len(due)} of {len(sources)} sources")
    kept = noted & set(states.values())
    unclean = set()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as workers:
        jobs = [workers.submit(analyze, source) for source in analyzed(due)]
        jobs += [workers.submit(check_all, batch) for batch in batches_of(due)]
        for job in concurrent.futures.as_completed(jobs):
            for batch, clean, told in job.result():
                if not clean:
                    unclean.update(source.path for source in batch)
                    print(told, file=sys.stderr)
    kept.update(states[source.path] for source in due if source.path not in unclean)
    CLEAN.write_text(json.dumps(sorted(kept)), encoding="utf-8")
    return 1 if unclean else 0


if __name__ == "__main__":
    sys.exit(main())
