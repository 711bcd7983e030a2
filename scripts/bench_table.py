#!/usr/bin/env python3
"""One table of all benchmarks: figure, this program, raw baseline, ratio, goal, met or not.

Reads what the benchmark programs have written with --benchmark_out (JSON). Ends with status 1 when a goal is missed
and with status 2 when a figure with a goal is not there, unless --partial says that only a part was run. With
--document it puts the table between the marks of docs/performance.md, with the date and the class of the machine.
"""

import argparse
import collections
import datetime
import json
import os
import pathlib
import sys

BEGIN, END = "<!-- the table begins -->", "<!-- the table ends -->"

# A figure: which benchmark it comes from, its words, the counter of this program and that of the baseline (None
# where there is none), the counter that the goal is about, the goal as the most that it may be (None: there for
# information), and the unit: of program and baseline where they are not milliseconds, or of what the goal is about.
Figure = collections.namedtuple("Figure", "benchmark words program baseline judged goal unit")


def against(benchmark, words, goal):
    """The usual figure: medians of both, and their ratio."""
    return Figure(benchmark, words, "program_ms", "baseline_ms", "ratio", goal, "")


def alone(benchmark, words, counter, goal, unit):
    """A figure without a baseline."""
    return Figure(benchmark, words, None, None, counter, goal, unit)


FIGURES = (
    against("store_bench:ScanStoreWork/0", "Store work of a scan, empty tables", 1.3),
    against("store_bench:ScanStoreWork/25000", "… 25,000 receipts", 1.3),
    against("store_bench:ScanStoreWork/250000", "… 250,000 receipts", 1.3),
    against("grid_bench:GridFill/1000", "Entry grid filled, 1,000 rows", 1.5),
    against("grid_bench:GridFill/25000", "… 25,000 rows", 1.5),
    against("grid_bench:GridFill/100000", "… 100,000 rows", 1.5),
    against("grid_bench:WaitWindow", "Wait window shown and closed", 1.5),
    against("grid_bench:UpdateRows/1000", "1,000 changed rows stored", 1.5),
    alone("grid_bench:CellChange/100000", "One cell changed, 100,000 rows", "median_us", None, "µs"),
    against("stock_bench:PatternSearch/5000", "Stock search *, 5,000 goods", 1.5),
    against("stock_bench:PatternSearch/20000", "… 20,000 goods", 1.5),
    against("stock_bench:DetailView", "Stock with its details, 100,000 movements", 2),
    against("stock_bench:HeadingSort", "Stock sorted, 20,000 rows", 2),
    against("list_bench:DetailFill/25000", "Movement list, 25,000 rows", 1.6),
    against("list_bench:DetailFill/100000", "… 100,000 rows", 1.6),
    against("list_bench:SummedFill/25000", "Movement list summed, 25,000 rows", 1.3),
    against("list_bench:SummedFill/100000", "… 100,000 rows", 1.3),
    against("list_bench:HeadingSort/25000", "Movement list sorted, 25,000 rows", 3),
    against("list_bench:HeadingSort/100000", "… 100,000 rows", 3),
    alone("list_bench:SlipWrite/25000", "Slip file of 25,000 rows", "MB_per_s", None, "MB/s"),
    against("report_bench:ReportPages/stock", "Stock list to PDF", 2),
    against("report_bench:ReportPages/receipts", "Receipt list to PDF", 2),
    alone("report_bench:ReportPages/stock", "… memory grown with the pages", "grown_MB", None, "MB"),
    against("label_bench:LabelsIntoPdf", "Labels to PDF, sheets of 44", 2),
    alone("label_bench:LabelsIntoPdf", "… labels a second", "labels_per_s", None, ""),
    Figure("history_bench:SaveAndLoad/25000", "History saved, 25,000 movements", "save_ms", None, "save_ratio", 2, ""),
    Figure("history_bench:SaveAndLoad/25000", "History loaded, 25,000 movements", "load_ms", None, "load_ratio", 1.5, ""),
    Figure("history_bench:SaveAndLoad/100000", "History saved, 100,000 movements", "save_ms", None, "save_ratio", 2, ""),
    Figure("history_bench:SaveAndLoad/100000", "History loaded, 100,000 movements", "load_ms", None, "load_ratio", 1.5,
           ""),
    alone("history_bench:SaveAndLoad/100000", "… longest gap between two event rounds", "event_gap_ms", 50, "ms"),
    against("history_bench:CarryForward/100000", "Carry-forward, 100,000 movements", 1.5),
    alone("reader_bench:FrameToDispatch", "Serial frame to dispatch, median", "median_ms", None, "ms"),
    alone("reader_bench:FrameToDispatch", "… 99th percentile", "p99_ms", None, "ms"),
    against("program_bench:ScanToRow", "Scan to row in the database, median", 1.5),
    alone("program_bench:ScanToRow", "… 99th percentile", "p99_ms", None, "ms"),
    alone("soak_bench:MixedDay", "2,000 operations of a day, memory grown by", "memory_growth", 0.05, ""),
    alone("soak_bench:MixedDay", "… files more open", "files_more", None, ""),
    against("program_bench:StartToWindow", "Start to window, 25,000 receipts", 1.8),
    Figure("program_bench:IdleProgram", "Idle program, share of a core", "percent_of_core", "bare_percent_of_core",
           "ratio", 1.3, "%"),
    alone("program_bench:IdleDialog", "… with a dialog open, looking 1,000 times a second", "percent_of_core", None,
          "%"),
)


def results(folder):
    """Counters of every benchmark by "program:Name/Argument"; how often it repeats is not part of the name."""
    found = {}
    for file in sorted(pathlib.Path(folder).glob("*.json")):
        text = file.read_text(encoding="utf-8")
        # A program in which a filter has matched nothing leaves an empty file.
        for run in json.loads(text)["benchmarks"] if text else []:
            if run.get("run_type", "iteration") != "iteration" or run.get("error_occurred"):
                continue
            parts = [part for part in run["name"].split("/") if not part.startswith("iterations:")]
            found[f"{file.stem}:{'/'.join(parts)}"] = run
    return found


def number(value):
    """Three figures that mean something."""
    if value is None:
        return ""
    return f"{value:,.0f}" if abs(value) >= 100 else f"{value:.3g}"


def row(figure, run):
    """The cells of a figure, and whether its goal is met: None where it has none, or where nothing was measured."""
    if run is None or figure.judged not in run:
        return [figure.words, "", "", "", limit(figure), "not measured"], None
    judged = run[figure.judged]
    is_ratio = figure.program is not None
    program = run.get(figure.program) if is_ratio else judged
    baseline = run.get(figure.baseline)
    if is_ratio and baseline is None and judged:
        baseline = program / judged
    met = None if figure.goal is None else judged <= figure.goal
    verdict = {None: "", True: "yes", False: "NO"}[met]
    unit = f" {figure.unit}".rstrip() or (" ms" if is_ratio else "")
    return [figure.words, number(program) + unit, number(baseline) + unit if baseline is not None else "",
            f"{judged:.2f}" if is_ratio else "", limit(figure), verdict], met


def limit(figure):
    if figure.goal is None:
        return ""
    return f"≤ {figure.goal:g}" + ("" if figure.program is not None else f" {figure.unit}".rstrip())


def table(rows):
    heads = ["Figure", "This program", "Raw baseline", "Ratio", "Goal", "Met"]
    widths = [max(len(line[i]) for line in [heads, *rows]) for i in range(len(heads))]
    lines = [heads, ["-" * wide for wide in widths], *rows]
    return "\n".join("| " + " | ".join(cell.ljust(wide) for cell, wide in zip(line, widths)) + " |" for line in lines)


def machine():
    model = "unknown processor"
    for line in pathlib.Path("/proc/cpuinfo").read_text(encoding="utf-8").splitlines():
        if line.startswith("model name"):
            model = line.split(":", 1)[1].strip()
            break
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / 2**30
    return f"{model}, {os.cpu_count()} processors, {memory:.0f} GB"


def put_into(document, text):
    whole = document.read_text(encoding="utf-8")
    before, rest = whole.split(BEGIN)
    after = rest.split(END)[1]
    document.write_text(f"{before}{BEGIN}\n{text}\n{END}{after}", encoding="utf-8")


def main():
    options = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    options.add_argument("results", type=pathlib.Path, help="folder of the JSON files, one for each program")
    options.add_argument("--document", type=pathlib.Path, help="document that takes the table")
    options.add_argument("--partial", action="store_true", help="show what was measured, and miss nothing")
    chosen = options.parse_args()

    found = results(chosen.results)
    rows, missed, absent = [], 0, 0
    for figure in FIGURES:
        run = found.get(figure.benchmark)
        if chosen.partial and run is None:
            continue
        cells, met = row(figure, run)
        rows.append(cells)
        missed += met is False
        absent += cells[-1] == "not measured"
    text = table(rows)
    print(text)
    print(f"\n{len(rows)} figures, {missed} over their goal, {absent} not measured")
    if chosen.document:
        put_into(chosen.document, f"{datetime.date.today().isoformat()}, {machine()}\n\n{text}")
    sys.exit(2 if absent else 1 if missed else 0)


if __name__ == "__main__":
    main()
