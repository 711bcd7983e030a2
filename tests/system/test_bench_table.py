"""The table of the benchmarks: goals met and missed, figures that are not there, and its place in the document."""

import contextlib
import io
import json
import pathlib
import re
import sys
import tempfile
import unittest

import bench_table

SOURCES = pathlib.Path(sys.argv.pop(1)).resolve()


class BenchTable(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="suisui-bench-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def measured(self, **judged):
        """Writes results in which every figure is half its goal, except those named by their benchmark."""
        programs = {}
        for figure in bench_table.FIGURES:
            program, name = figure.benchmark.split(":", 1)
            runs = programs.setdefault(program, {})
            run = runs.setdefault(name, {"name": f"{name}/iterations:5", "run_type": "iteration"})
            run[figure.judged] = judged.get(name.split("/")[0], (figure.goal or 2) / 2)
            for counter in (figure.program, figure.baseline):
                if counter:
                    run[counter] = 12.5
        for program, runs in programs.items():
            (self.folder / f"{program}.json").write_text(json.dumps({"benchmarks": list(runs.values())}))

    def table(self, *options):
        said, sys.argv = io.StringIO(), ["bench_table.py", str(self.folder), *options]
        with contextlib.redirect_stdout(said), self.assertRaises(SystemExit) as end:
            bench_table.main()
        return end.exception.code, said.getvalue()

    def test_all_goals_met_is_a_good_end_with_a_line_for_each_figure(self):
        self.measured()
        status, said = self.table()
        self.assertEqual(0, status, said)
        self.assertEqual(len(bench_table.FIGURES) + 2, said.count("\n|") + 1)
        self.assertNotIn("NO", said)

    def test_a_figure_over_its_goal_is_named_and_ends_badly(self):
        self.measured(CarryForward=1.51)
        status, said = self.table()
        self.assertEqual(1, status)
        line, = (line for line in said.splitlines() if "| NO" in line)
        self.assertRegex(line, r"Carry-forward.*\| 12.5 ms +\| 12.5 ms +\| 1.51 +\| ≤ 1.5 +\| NO")

    def test_a_ratio_of_other_than_times_has_its_unit_the_goal_none(self):
        self.measured(IdleProgram=1.31)
        status, said = self.table()
        self.assertEqual(1, status)
        line, = (line for line in said.splitlines() if "| NO" in line)
        self.assertRegex(line, r"Idle program.*\| 12.5 % +\| 12.5 % +\| 1.31 +\| ≤ 1.3 +\| NO")

    def test_a_goal_just_reached_is_met(self):
        self.measured(CarryForward=1.5)
        self.assertEqual(0, self.table()[0])

    def test_a_missing_figure_is_not_a_success_unless_a_part_was_run(self):
        self.measured()
        (self.folder / "label_bench.json").write_text("")
        status, said = self.table()
        self.assertEqual(2, status)
        self.assertIn("not measured", said)
        self.assertEqual(0, self.table("--partial")[0])

    def test_a_benchmark_that_failed_does_not_count(self):
        self.measured()
        file = self.folder / "stock_bench.json"
        runs = json.loads(file.read_text())
        for run in runs["benchmarks"]:
            run["error_occurred"] = True
        file.write_text(json.dumps(runs))
        self.assertEqual(2, self.table()[0])

    def test_the_document_takes_the_newest_table_with_its_machine(self):
        document = self.folder / "performance.md"
        document.write_text((SOURCES / "docs" / "performance.md").read_text(encoding="utf-8"), encoding="utf-8")
        self.measured()
        for _ in range(2):
            self.table("--document", str(document))
        text = document.read_text(encoding="utf-8")
        self.assertEqual(1, text.count("| Figure"))
        self.assertRegex(text, r"\n\d{4}-\d\d-\d\d, .+, \d+ processors, \d+ GB\n")
        self.assertTrue(text.startswith("# Performance\n"))

    def test_every_figure_comes_from_a_benchmark_with_its_counters(self):
        for figure in bench_table.FIGURES:
            program, name = figure.benchmark.split(":", 1)
            source = (SOURCES / "benchmarks" / f"{program}.cpp").read_text(encoding="utf-8")
            self.assertRegex(source, rf"BENCHMARK(_CAPTURE)?\({name.split('/')[0]}\b")
            for counter in {figure.judged, figure.program, figure.baseline} - {None}:
                by_report = counter in ("program_ms", "baseline_ms", "ratio") and re.search(r"\breport\(state", source)
                self.assertTrue(by_report or f'counters["{counter}"]' in source, f"{counter} of {figure.benchmark}")


if __name__ == "__main__":
    unittest.main()
