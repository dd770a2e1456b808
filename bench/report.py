#!/usr/bin/env python3
"""Runs the benchmarks and prints one table: what the module, the competent form, the plain form and sending alone take,
and for each of the two forms its ratio to the module and the aim of it. A row without the forms has the module alone.

    bench/report.py [--record] PROGRAMS-FOLDER WORKSPACE CAPTURE

The column "before" is what the module took when it was last recorded. With --record the table, and the growth behind
it, go to docs/performance.md with the machine's processor and the compiler's flags; the plot beside it is drawn by
gnuplot, and every figure is added to docs/performance_history.csv with its date and revision.
"""

import argparse
import csv
import datetime
import json
import pathlib
import platform
import re
import subprocess
import sys

COMPARED = ["codecs", "tick_list", "tick_batches", "order_book", "price_panel", "board_trade", "fan_out"]
ALONE = ["closed_candle", "rejecting_monitors", "order_fill", "mixed_session"]  # no other form plays them
FORMS = ["module", "competent", "plain", "floor"]  # the floor is sending alone
DOCS = pathlib.Path("docs")
HISTORY = DOCS / "performance_history.csv"
BEGIN, END = "<!-- measured: begin -->", "<!-- measured: end -->"


def run(program, *arguments):
    """The benchmarks of one program, as its JSON report tells them."""
    result = subprocess.run([program, "--benchmark_format=json", *arguments], capture_output=True, text=True)
    if result.returncode != 0:
        sys.exit(f"{program} failed: {result.stderr.strip()}")
    return json.loads(result.stdout)["benchmarks"]


def nanoseconds(benchmark):
    return 1e9 / benchmark["items_per_second"]


def compared(folder, session):
    """Rows of (what, medians of the repetitions by form, with the aims)."""
    rows = []
    for name in COMPARED + ALONE:
        print(f"{name} ...", file=sys.stderr)
        medians = {}
        for benchmark in run(folder / f"bench_{name}", *(session if name == "mixed_session" else [])):
            if benchmark.get("aggregate_name") == "median":
                what, form = benchmark["run_name"].rsplit("/", 1)
                aims = {key: benchmark[key] for key in ("plain aim", "competent aim")}
                medians.setdefault(what, aims)[form] = nanoseconds(benchmark)
        rows += sorted(medians.items())
    return rows


def by_size(program, *arguments):
    """By question: a list of (size, ns). The size stands behind the question's name."""
    curves = {}
    for benchmark in run(program, *arguments):
        what, size = re.match(r"(.*?)/(\d+)", benchmark["run_name"]).groups()
        curves.setdefault(what, []).append((int(size), nanoseconds(benchmark)))
    return curves


def memory(folder, workspace):
    """Rows of (map, bytes of heap)."""
    text = subprocess.run([folder / "bench_memory", workspace], capture_output=True, text=True, check=True).stdout
    return [line.split() for line in text.splitlines()]


def last_recorded():
    """What the module took, by question."""
    with HISTORY.open(encoding="utf-8") as lines:
        return {row["what"]: float(row["ns"]) for row in csv.DictReader(lines) if row["form"] == "module"}


def add_to_history(rows):
    revision = subprocess.run(["git", "rev-parse", "--short", "HEAD"], capture_output=True, text=True, check=True).stdout
    today = datetime.date.today().isoformat()
    with HISTORY.open("a", encoding="utf-8", newline="") as lines:
        writer = csv.writer(lines, lineterminator="\n")
        for what, ns in rows:
            for form in FORMS:
                if form in ns:
                    writer.writerow([today, revision.strip(), what, form, f"{ns[form]:.1f}"])


def table(head, rows):
    rule = "|---|" + "---:|" * (len(head) - 1)
    lines = ["| " + " | ".join(head) + " |", rule]
    return lines + ["| " + " | ".join(row) + " |" for row in rows]


def comparison_table(rows):
    def figure(value):
        return f"{value:.1f}" if value else ""

    before = last_recorded()
    lines = []
    for what, ns in rows:
        line = [what, figure(before.get(what)), *(figure(ns.get(form)) for form in FORMS)]
        for form in ("plain", "competent"):
            aim = ns[f"{form} aim"]
            line += [figure(ns.get(form, 0) / ns["module"]), f"{aim:g}" if aim else ""]
        lines.append(line)
    return table(["what", "before", "module ns", "competent ns", "plain ns", "sending alone ns",
                  "plain / module", "aim", "competent / module", "aim"], lines)


def size_tables(curves, unit, nanoseconds_of_unit):
    lines = []
    for what, points in curves.items():
        lines += ["", *table([what] + [f"{size:,}" for size, _ in points],
                             [[unit] + [f"{ns / nanoseconds_of_unit:.1f}" for _, ns in points]])]
    return lines


def plot(curves):
    titles = ", ".join(f"'-' title '{what}' with linespoints" for what in curves)
    blocks = "\n".join("\n".join(f"{size} {ns}" for size, ns in points) + "\ne" for points in curves.values())
    script = f"""set terminal svg size 800,480 font 'sans,11'
set output '{DOCS / "growth.svg"}'
set logscale xy
set xlabel 'size'
set ylabel 'ns a packet'
set key left top
set rmargin 5
plot {titles}
{blocks}
"""
    subprocess.run(["gnuplot"], input=script, text=True, check=True)


def machine():
    model = platform.processor()
    info = pathlib.Path("/proc/cpuinfo")
    if info.exists():
        model = re.search(r"model name\s*: (.*)", info.read_text()).group(1)
    compiler = subprocess.run(["c++", "--version"], capture_output=True, text=True).stdout.splitlines()[0]
    commands = json.loads(pathlib.Path("build/release/compile_commands.json").read_text())
    flags = next(c["command"] for c in commands if c["file"].endswith("module/wire/codecs.cpp"))
    kept = [flag for flag in flags.split() if re.match(r"-(O|m|f|std|DNDEBUG)", flag)]
    return f"{model}; {compiler}; {' '.join(kept)}"


def record(lines):
    page = DOCS / "performance.md"
    before, rest = page.read_text().split(BEGIN)
    page.write_text(before + BEGIN + "\n" + "\n".join(lines) + "\n" + END + rest.split(END)[1])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--record", action="store_true")
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("session", nargs=2)
    arguments = parser.parse_args()
    rows = compared(arguments.folder, arguments.session)
    lines = comparison_table(rows)
    print("\n".join(lines))
    if arguments.record:
        add_to_history(rows)
        curves = by_size(arguments.folder / "bench_growth", "--benchmark_min_time=0.05")
        opening = by_size(arguments.folder / "bench_open_close")
        plot(curves)
        record([f"`./run bench --record` on {machine()}", "", *lines, "", "### Growth", "",
                "![growth](growth.svg)", *size_tables(curves, "ns a packet", 1), "",
                "### Opening and closing", *size_tables(opening, "us", 1000), "", "### Memory", "",
                *table(["map", "bytes registered", "bytes after Init"], memory(arguments.folder, arguments.session[0]))])


if __name__ == "__main__":
    main()
