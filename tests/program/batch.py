"""Many exports in one go, and several outputs of one."""
import json
import os
import signal
import subprocess
import time
from pathlib import Path
from urllib.parse import unquote_to_bytes

from support import BOOKSHOP, EMPTY_EXPORT, EXAMPLES, VORN, Program, vorn


class Batch(Program):
    GOOD = ["bookshop.json", "harbour.json", "lost column.json"]

    def test_several_outputs_are_of_one_import(self):
        others = [self.folder / "second.json", self.folder / "third.json"]
        done = vorn("import", BOOKSHOP, "-o", self.out, "-o", others[0], "-o", others[1])
        for other in others:
            self.assertEqual(self.out.read_bytes(), other.read_bytes())
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
        self.assertEqual(list(summary["exports"][1].values())[4:], [11, 1, 59, 10, 0, {}, {"other-target-system": 5, "subtype-link": 6, "unused-type": 2}, 0, "done"])
        self.assertEqual([summary["exports"][3][key] for key in ("warnings", "warningsByCode", "droppedByKind")],
                         [1, {"KVB_SRRDM_W0015": 1}, {"column-without-entity": 1}])
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
        for options, status in (([], 0), (["--fail-on-warning"], 1)):
            again = vorn("import", BOOKSHOP, lost_column, "-O", self.models, "--resume", "-q", *options)
            self.assertEqual((again.returncode, again.stderr), (status, b""))

    def test_few_descriptors_make_it_slower_and_lose_nothing(self):
        for number in range(49):
            (self.folder / f"{number}.txt").symlink_to(BOOKSHOP)
        done = subprocess.run(["sh", "-c", 'ulimit -n 40 && "$0" import "$@" -j 64', VORN, *self.folder.glob("*.txt"), "-O", self.models],
                              capture_output=True, check=False)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(self.contents()[1]["done"], 49)
        done = subprocess.run(["sh", "-c", 'ulimit -n 6 && "$0" import "$1" -O "$2"', VORN, BOOKSHOP, self.models], capture_output=True, check=False)
        self.assertEqual(done.returncode, 7)
        self.assertIn(b"more open files (ulimit -n)", done.stderr)

    def test_as_many_workers_as_were_asked_for_each_with_files_of_its_own(self):
        hanging = [self.folder / f"{number}.txt" for number in range(4)]
        for pipe in hanging:
            os.mkfifo(pipe)
        with subprocess.Popen([VORN, "import", *hanging, "-O", self.models, "-j", "3"], stderr=subprocess.DEVNULL) as batch:
            self.wait_for(lambda: len(self.workers(batch)) >= 3)
            time.sleep(0.3)
            workers = self.workers(batch)
            pipes = [sum(os.readlink(file).startswith("pipe:") for file in Path(f"/proc/{worker}/fd").iterdir()) for worker in workers]
            batch.kill()
        self.assertEqual((len(workers), pipes), (3, [pipes[0]] * 3))

    def wait_for(self, condition):
        end = time.monotonic() + 10
        while not condition():
            self.assertLess(time.monotonic(), end, "it does not come to that")
            time.sleep(0.02)

    @staticmethod
    def workers(batch):
        return list(map(int, Path(f"/proc/{batch.pid}/task/{batch.pid}/children").read_text().split()))

    def start(self, *more):
        """A batch that hangs, once its first model is there."""
        hanging = self.folder / "hanging.txt"
        os.mkfifo(hanging)
        batch = subprocess.Popen([VORN, "import", hanging, BOOKSHOP, "-O", self.models, "-j", "2", *more], start_new_session=True,
                                 stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        batch.stderr.readline()
        child, = self.workers(batch)
        return batch, child

    def test_a_signal_stops_everything_and_leaves_whole_files_and_what_was_not_done(self):
        self.models.mkdir()
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP, signal.SIGKILL):
            with self.subTest(number):
                (self.models / "summary.json").write_text("of another batch")
                (self.models / "hanging.json").write_text("of another batch")
                batch, child = self.start()
                if number == signal.SIGINT:
                    os.killpg(batch.pid, number)  # as a terminal does
                else:
                    batch.send_signal(number)
                self.assertEqual(batch.wait(10), -number)
                told = batch.stderr.read().decode()
                table = batch.stdout.read().decode()
                batch.stderr.close()
                batch.stdout.close()
                self.wait_for(lambda: not os.path.exists(f"/proc/{child}/fd/0"))
                files, summary = self.contents()
                self.assertEqual(sorted(files), ["bookshop.json", "hanging.json"])
                hanging = summary["exports"][0]
                self.assertIsNone(hanging["status"])
                self.assertEqual(hanging["ofEarlierImport"], [str(self.models / "hanging.json")])
                if number != signal.SIGKILL:
                    self.assertEqual([summary[key] for key in ("done", "failed", "notDone")], [1, 0, 1])
                    self.assertRegex(table, r"not done: interrupted; from an earlier import: \S*hanging.json\n.*bookshop.txt.* done\n$")
                    self.assertIn("1 done, 0 failed, 1 not done; ", told)
            (self.folder / "hanging.txt").unlink()

    def test_exports_that_wait_are_not_begun_after_a_signal(self):
        exports = self.awkward_exports()
        with subprocess.Popen([VORN, "import", *exports, "-O", self.models, "-j", "1"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as batch:
            self.wait_for(lambda: self.workers(batch))
            batch.terminate()
        files, summary = self.contents()
        self.assertEqual((files, summary["notDone"]), ({}, 5))

    def test_resuming_does_what_failed_or_was_not_done_or_has_changed(self):
        good, changing, bad = (self.folder / f"{name}.txt" for name in ("good", "changing", "bad"))
        good.write_bytes(BOOKSHOP.read_bytes())
        changing.write_bytes(BOOKSHOP.read_bytes())
        bad.write_bytes(b"no export")
        exports = [good, changing, bad]
        model = self.models / "good.json"

        def resume(*more, status=4):
            done = vorn("import", *exports, "-O", self.models, "--resume", *more)
            self.assertEqual(done.returncode, status, done.stderr)
            return [entry["file"] for entry in self.contents()[1]["exports"] if not entry.get("earlierBatch")], done

        everything = [str(export) for export in exports]
        self.assertEqual(resume()[0], everything)
        kept = model.stat()
        again, done = resume()
        self.assertEqual((again, model.stat()), ([str(bad)], kept))
        self.assertRegex(done.stdout.decode(), rf"(?m)^{good} +11 +59 .* done in an earlier batch$")
        self.assertIn(b"2 done (2 in an earlier batch), 1 failed", done.stderr)
        for nanoseconds in (10**9, 10**9 + 1):
            os.utime(changing, ns=(0, nanoseconds))
            self.assertEqual(resume()[0], everything[1:])
        bad.write_bytes(EMPTY_EXPORT)
        self.assertEqual(resume(status=0)[0], [str(bad)])
        model.unlink()
        self.assertEqual(resume(status=0)[0], [str(good)])
        good.write_bytes(EMPTY_EXPORT)
        self.assertEqual(resume("--role-names", "destination", status=0)[0], everything, "other options")
        self.assertEqual(resume("--role-names", "destination", "-j", "1", status=0)[0], [])
        self.assertEqual(resume("--role-names", "destination", "--report", self.models, status=0)[0], everything)
        self.assertEqual(vorn("import", *exports, "-O", self.models).returncode, 0)
        self.assertNotIn("earlierBatch", (self.models / "summary.json").read_text())
        for summary in ("{", "[]", "{}", '{"options": {}, "exports": 1}'):
            (self.models / "summary.json").write_text(summary)
            self.fails(["import", good, "-O", self.models, "--resume"], 2, "^vorn: '.*summary.json' is not the summary of a batch")
        (self.models / "summary.json").write_text('{"options": {}, "exports": [1, {}, {"file": "%s", "status": 0}]}' % good)
        self.assertEqual(vorn("import", good, "-O", self.models, "--resume").returncode, 0)
        self.assertNotIn("earlierBatch", (self.models / "summary.json").read_text())

    def test_folders_mean_the_exports_below_and_models_lie_as_they_do(self):
        for name in ("2023/a.txt", "2023/deep/a.TXT", "2024/a.txt", "2024/b.txt.bak", "2024/no.csv"):
            (self.folder / "in" / name).parent.mkdir(parents=True, exist_ok=True)
            (self.folder / "in" / name).write_bytes(EMPTY_EXPORT)
        (self.folder / "in" / "2024" / "circle").symlink_to("..")
        os.mkfifo(self.folder / "in" / "pipe.txt")
        for sources, models in [(["in"], ["2023/a", "2023/deep/a", "2024/a"]), (["in/2023/"], ["a", "deep/a"]),
                                (["in/2024", "in/2023/deep"], ["2024/a", "2023/deep/a"]), (["in/2024", BOOKSHOP], ["a", "bookshop"])]:
            with self.subTest(sources):
                done = vorn("import", *[self.folder / source for source in sources], "-O", self.models, "--report", self.models / "why")
                self.assertEqual(done.returncode, 0, done.stderr)
                entries = json.loads((self.models / "summary.json").read_text())["exports"]
                self.assertEqual([entry["outputs"] for entry in entries], [[f"{self.models}/{model}.json"] for model in models])
                self.assertEqual([entry["report"] for entry in entries], [f"{self.models}/why/{model}.jsonl" for model in models])
                for model in models:
                    self.assertTrue((self.models / f"{model}.json").exists() and (self.models / "why" / f"{model}.jsonl").exists())
        self.fails(["import", self.folder / "in", self.folder / "in" / "2023", "-O", self.models], 2, "written twice")
        self.fails(["import", self.models, "-O", self.models], 2, r"^vorn: there is no \*.txt in or below the folder")
        (self.folder / "in" / "2023").chmod(0)
        self.fails(["import", self.folder / "in", "-O", self.models], 2, "^vorn: cannot read the folder .*: Permission denied")
        (self.folder / "in" / "2023").chmod(0o700)

    def test_the_summary_has_each_name_exactly(self):
        names = [b"plain.txt", b"line\nend.txt", "café %.txt".encode(), b"caf\xe9 %.txt"]
        folder = os.fsencode(self.folder)
        exports = [os.path.join(folder, name) for name in names]
        for export in exports:
            os.symlink(BOOKSHOP, export)
        done = subprocess.run([VORN, "import", *exports, "-O", self.models], capture_output=True, check=False)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(len(done.stdout.splitlines()), 1 + len(names), "a line for each")
        entries = self.contents()[1]["exports"]
        exact = [unquote_to_bytes(entry["filePercentEncoded"]) if "filePercentEncoded" in entry else os.fsencode(entry["file"])
                 for entry in entries]
        self.assertEqual(exact, exports)
        self.assertTrue(entries[3]["file"].endswith("café %.txt"))
        self.assertEqual(["filePercentEncoded" in entry for entry in entries], [False, False, False, True])
        self.assertTrue(entries[3]["outputsPercentEncoded"][0].endswith("/caf%E9%20%25.json"))
        self.assertGreater(min(entry["seconds"] for entry in json.loads((self.models / "summary.json").read_bytes())["exports"]), 0)
        done = subprocess.run([VORN, "import", *exports, "-O", self.models, "--resume"], capture_output=True, check=False)
        self.assertIn(b"4 done (4 in an earlier batch), 0 failed", done.stderr)

    def test_messages_carry_the_name_and_failures_tell_of_old_models(self):
        bad = self.export(b"no export")
        self.models.mkdir()
        old = self.models / "export.json"
        old.write_text("old")
        done = vorn("import", bad, BOOKSHOP, "-O", self.models, "-v")
        for line in done.stderr.decode().splitlines()[:-1]:
            self.assertRegex(line, rf"^({bad}|{BOOKSHOP}): ")
        self.assertRegex(done.stderr.decode(), rf"(?m)^{bad}: KVB_SRRDM_F0003 .*; from an earlier import: {old}$")
        self.assertEqual(self.contents()[1]["exports"][0]["ofEarlierImport"], [str(old)])
        done = vorn("import", bad, "-o", old)
        self.assertIn(f"\n{old} is unchanged, from an earlier import\n", done.stderr.decode())
        self.assertEqual(old.read_text(), "old")

    def test_what_is_there_already_is_left_where_that_is_asked_for(self):
        self.models.mkdir()
        old = self.models / "bookshop.json"
        old.write_text("old")
        done = vorn("import", BOOKSHOP, EXAMPLES / "harbour.txt", "-O", self.models, "--no-clobber")
        self.assertEqual(done.returncode, 4)
        self.assertEqual([entry["status"] for entry in self.contents()[1]["exports"]], [5, 0])
        report = self.folder / "report.md"
        report.write_text("old")
        for arguments in (["-o", old], ["-o", self.out, "--report", report]):
            self.fails(["import", BOOKSHOP, *arguments, "--no-clobber"], 5, "^FATAL VORN_F0002 Cannot write '.*': File exists$")
        self.assertEqual((old.read_text(), report.read_text()), ("old", "old"))
        self.assertEqual(vorn("import", BOOKSHOP, "-o", self.out, "-o", "/dev/null", "-t", "json", "--no-clobber").returncode, 0)

    def test_no_limit_to_the_time(self):
        batch, child = self.start("--timeout", "0")
        time.sleep(1.2)
        self.assertEqual(self.workers(batch), [child])
        (self.folder / "hanging.txt").write_bytes(EMPTY_EXPORT)
        self.assertEqual(batch.wait(10), 0)
        batch.stderr.close()
        batch.stdout.close()

    def test_a_worker_that_is_killed_fails_alone(self):
        batch, child = self.start()
        os.kill(child, signal.SIGABRT)
        self.assertEqual(batch.wait(10), 4)
        batch.stderr.close()
        batch.stdout.close()
        self.assertEqual([entry["status"] for entry in self.contents()[1]["exports"]], [128 + signal.SIGABRT, 0])

    def test_names_that_clash_are_refused_before_anything_runs(self):
        summary, twin = self.folder / "summary.txt", self.folder / "bookshop.txt"
        for arguments, pattern in [([BOOKSHOP, twin], f"bookshop.json' would be written twice: as a model of '{BOOKSHOP}' and as a model of '{twin}'"),
                                   ([summary], "as the summary and as a model of"), ([BOOKSHOP, "-t", "json", "-t", "json"], "written twice"),
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
