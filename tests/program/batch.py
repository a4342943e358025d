"""Many exports in one go, and several outputs of one."""
import json
import os
import signal
import subprocess
import time
from pathlib import Path

from support import BOOKSHOP, EXAMPLES, VORN, Program, vorn


class Batch(Program):
    GOOD = ["bookshop.json", "harbour.json", "lost column.json"]

    def test_several_outputs_are_of_one_import(self):
        second = self.folder / "second.json"
        done = vorn("import", BOOKSHOP, "-o", self.out, "-o", second)
        self.assertEqual(self.out.read_bytes(), second.read_bytes())
        self.assertEqual(done.stderr.count(b"Creating the main package"), 1)

    def setUp(self):
        super().setUp()
        self.models = self.folder / "models"

    def contents(self):
        files = {path.name: path.read_bytes() for path in self.models.iterdir()}
        summary = json.loads(files.pop("summary.json"))
        for entry in summary["exports"]:
            self.assertLess(entry.pop("seconds"), 30)
        return files, summary

    def awkward_exports(self):
        """One that hangs, one that is none, and good ones around them."""
        hanging, lost_column = self.folder / "hanging.txt", self.folder / "lost column.txt"
        os.mkfifo(hanging)
        lost_column.write_bytes(b"\x1c" * 6 + b"\t1\tnowhere\tc\x1c" + b"\x1c" * 61)
        return [hanging, BOOKSHOP, self.export(b"no export"), lost_column, EXAMPLES / "harbour.txt"]

    def test_a_bad_or_hanging_export_never_stops_the_rest(self):
        exports = self.awkward_exports()
        results = []
        for jobs in (1, 4):
            done = vorn("import", *exports, "-O", self.models, "-j", jobs, "--timeout", 1)
            self.assertEqual(done.returncode, 4, done.stderr)
            results.append(self.contents())
        self.assertEqual(results[0], results[1])
        files, summary = results[0]
        self.assertEqual(sorted(files), self.GOOD)
        self.assertEqual(files["bookshop.json"], vorn("import", BOOKSHOP).stdout)
        self.assertEqual([summary["done"], summary["failed"]], [3, 2])
        self.assertEqual([entry["file"] for entry in summary["exports"]], list(map(str, exports)))
        self.assertEqual([entry["status"] for entry in summary["exports"]], [124, 0, 3, 0, 0])
        self.assertEqual(list(summary["exports"][1].values())[2:], [11, 59, 0, 0, "done"])
        self.assertIn("KVB_SRRDM_F0003 Invalid input file format (", summary["exports"][2]["text"])
        self.assertRegex(done.stderr.decode(), rf"(?ms)^{BOOKSHOP}: 11 tables, .*; no warnings; \d.*^{exports[0]}: stopped after 1 s$")
        self.assertRegex(done.stdout.decode(), rf"(?m)^file +tables +columns +warnings +time +status\n{exports[0]} .* failed \(124\)\n"
                                               rf"{BOOKSHOP} +11 +59 +0 +\d\.\d\d s  done\n")

    def test_quiet_tells_what_to_look_at_and_warnings_can_be_a_no(self):
        lost_column = self.awkward_exports()[3]
        done = vorn("import", BOOKSHOP, lost_column, "-O", self.models, "--fail-on-warning", "-q")
        self.assertRegex(done.stderr.decode(), f"^{lost_column}: .* 1 warning; .*\n$")
        self.assertEqual((done.returncode, done.stdout), (1, b""))
        self.assertEqual([entry["status"] for entry in self.contents()[1]["exports"]], [0, 1])

    def start(self):
        """A batch that hangs, once its first model is there."""
        hanging = self.folder / "hanging.txt"
        os.mkfifo(hanging)
        batch = subprocess.Popen([VORN, "import", hanging, BOOKSHOP, "-O", self.models, "-j", "2"],
                                 stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
        batch.stderr.readline()
        child, = Path(f"/proc/{batch.pid}/task/{batch.pid}/children").read_text().split()
        return batch, int(child)

    def test_a_signal_stops_everything_and_leaves_whole_files(self):
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGKILL):
            with self.subTest(number):
                batch, child = self.start()
                batch.send_signal(number)
                self.assertEqual(batch.wait(10), -number)
                batch.stderr.close()
                time.sleep(0.5)
                self.assertFalse(os.path.exists(f"/proc/{child}/fd/0"), "the worker lives on")
                self.assertEqual([path.name for path in self.models.iterdir()], ["bookshop.json"])
            (self.folder / "hanging.txt").unlink()

    def test_a_worker_that_is_killed_fails_alone(self):
        batch, child = self.start()
        os.kill(child, signal.SIGABRT)
        self.assertEqual(batch.wait(10), 4)
        batch.stderr.close()
        self.assertEqual([entry["status"] for entry in self.contents()[1]["exports"]], [128 + signal.SIGABRT, 0])

    def test_names_that_clash_are_refused_before_anything_runs(self):
        summary, twin = self.folder / "summary.txt", self.folder / "bookshop.txt"
        for arguments, pattern in [([BOOKSHOP, twin], f"bookshop.json' would be made twice: as a model of '{BOOKSHOP}' and as a model of '{twin}'"),
                                   ([summary], "as the summary and as a model of"), ([BOOKSHOP, "-t", "json", "-t", "json"], "made twice"),
                                   ([BOOKSHOP, "-o", self.out], "excludes"), ([BOOKSHOP, "-j", 0], "--jobs")]:
            with self.subTest(pattern):
                self.fails(["import", *arguments, "-O", self.models], 2, f"^vorn: .*{pattern}")
        self.fails(["import", BOOKSHOP, twin], 2, "^vorn: several exports need a folder")

    def test_the_documented_line_for_gnu_parallel(self):
        document = (EXAMPLES.parent / "docs" / "scale-out.md").read_text()
        line = next(line for line in document.splitlines() if line.startswith("parallel "))
        (self.folder / "exports").mkdir()
        for export in self.awkward_exports()[1:]:
            (self.folder / "exports" / export.name).symlink_to(export)
        done = subprocess.run(["bash", "-c", line], cwd=self.folder, capture_output=True,
                              env={**os.environ, "PATH": f"{VORN.parent}:{os.environ['PATH']}"})
        self.assertEqual(done.returncode, 1, done.stderr)  # the number of failures
        self.assertEqual(sorted(path.name for path in self.models.iterdir()), self.GOOD)
        log = [row.split("\t") for row in (self.folder / "batch.log").read_text().splitlines()[1:]]
        self.assertEqual(sorted(row[6] for row in log), ["0", "0", "0", "3"])
