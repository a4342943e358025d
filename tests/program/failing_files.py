"""Files that fail: reads, writes and whatever else the system is asked for, signals, and outputs that are other files."""
import os
import resource
import signal
import subprocess
import threading

from support import BOOKSHOP, EMPTY_EXPORT, VORN, Program, vorn

FAILING_CALLS = VORN.parent.parent / "tests" / "failing-calls.so"
LONG = b"\x1c" * 64 + b"\tx\r" * 30000 + b"\x1c" * 4  # more than is read at once
NAMED = "open 1 95,"  # no files without names: Operation not supported


def run(faults, *arguments, faulty="VORN_FAULTS", **more):
    return subprocess.run([VORN, *arguments], stderr=subprocess.PIPE, check=False, timeout=60, **more,
                          env={**os.environ, "LD_PRELOAD": str(FAILING_CALLS), faulty: faults})


class FailingFiles(Program):
    @classmethod
    def setUpClass(cls):  # whoever runs the tests may ignore hanging up, and programs keep to that
        cls.addClassCleanup(signal.signal, signal.SIGHUP, signal.signal(signal.SIGHUP, signal.SIG_DFL))

    def contents(self):
        return {path.name: path.read_bytes() if path.is_file() else None for path in self.folder.rglob("*")}

    def test_a_call_that_fails_leaves_what_was_there_and_says_why(self):
        long = self.export(LONG)
        written = rf"Cannot write '{self.out}': "
        cases = [
            ("read 2 5", 3, r"VORN_F0023 Cannot read '.*/export.txt': Input/output error \(at byte 65536\)"),
            # The look at the file takes three reads.
            ("read 4 5", 3, r"VORN_F0023 Cannot read '.*/export.txt': Input/output error \(at byte 0, section 1 of 68\)"),
            ("read 5 5", 3, r"VORN_F0023 Cannot read .* \(at byte 65536, section 65 of 68 \(users\), record 21825\)"),
            ("read 5 0", 3, r"KVB_SRRDM_F0003 .*: the file ends at byte 65536, section 66 of 68\)"),
            ("write 1 28", 5, written + "No space left on device"),
            ("close 1 5", 5, written + "Input/output error"),
            ("linkat 1 1", 5, written + "Operation not permitted"),
            ("rename 1 30", 5, written + "Read-only file system"),
            (NAMED + "write 1 122", 5, written + "Disk quota exceeded"),
            (NAMED + "rename 1 2", 5, written + "No such file or directory"),
        ]
        cases += [(f"{named}{call} 1 {-number}", -number, "^$") for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP)
                  for named, call in [("", "write"), ("", "rename"), (NAMED, "write"), (NAMED, "rename")]]
        cases += [("write 1 -9", -9, "^$")]  # which leaves a file only where it needs a name
        for was_there in (False, True):
            if was_there:
                self.out.write_text("precious")
            before = self.contents()
            for faults, status, pattern in cases:
                with self.subTest(faults, was_there=was_there):
                    export = long if "read" in faults else BOOKSHOP
                    done = run(faults, "import", export, "-o", self.out, "-q", "--report", self.folder / "report.md")
                    self.assertEqual(done.returncode, status, done.stderr)
                    self.assertRegex(done.stderr.decode(), pattern)
                    self.assertEqual(self.contents(), before)

    def test_nothing_but_a_hidden_file_is_left_of_a_kill_where_files_need_names(self):
        self.assertEqual(run(NAMED + "write 1 -9", "import", BOOKSHOP, "-o", self.out, "-q").returncode, -9)
        self.assertRegex(" ".join(self.contents()), r"^\.vorn\.\w{6}$")

    def test_workers_of_a_batch_fail_one_by_one_and_are_ended_even_when_they_stand_still(self):
        for faults, status in [("rename 1 28", 5), ("write 1 28", 7), (NAMED + "write 1 -15", 128 + 15), (NAMED + "write 1 4", 124),
                               (f"write 1 {-signal.SIGSTOP}", 124), ("read 1 5", 3)]:
            with self.subTest(faults):
                done = run(faults, "import", BOOKSHOP, "-O", self.folder / "models", "--timeout", "2",
                           faulty="VORN_WORKER_FAULTS", stdout=subprocess.PIPE)
                self.assertRegex(done.stdout.decode(), rf"failed \({status}\)\n$")
                self.assertLessEqual(set(self.contents()), {"models", "summary.json"})

    def test_a_file_size_that_is_limited(self):
        done = run("", "import", BOOKSHOP, "-o", self.out, "-q",
                   preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (5000, 5000)))
        self.assertEqual((done.returncode, self.contents()), (5, {}))
        self.assertIn(b": File too large", done.stderr)

    def test_pipes_can_be_the_export_and_the_output(self):
        pipe = self.folder / "pipe"
        os.mkfifo(pipe)
        for command in (["import", pipe, "-o", self.out], ["info", pipe]):
            writer = threading.Thread(target=pipe.write_bytes, args=(BOOKSHOP.read_bytes(),))
            writer.start()
            done = run("", *command, stdout=subprocess.PIPE)
            writer.join()
            self.assertEqual(done.returncode, 0)
        self.assertIn(b"/pipe, a pipe\n", done.stdout)
        done = run("", "import", BOOKSHOP, "-o", "/dev/stdout", "-t", "json", stdout=subprocess.PIPE)
        self.assertEqual(done.stdout, vorn("import", BOOKSHOP).stdout)

    def test_an_output_that_nobody_reads_any_more_ends_the_import(self):
        end, output = os.pipe()
        os.close(end)
        done = run(NAMED, "import", BOOKSHOP, "-q", "--report", self.folder / "report.md", stdout=output)
        os.close(output)
        self.assertEqual((done.returncode, done.stderr, self.contents()), (-signal.SIGPIPE, b"", {}))

    def test_a_standard_stream_that_is_closed_is_no_file_of_the_import(self):
        script = ('"$0" import "$1" -q --report "$2" >&-; test $? = 5 && test ! -e "$2" && '
                  '"$0" import "$1" -o "$2" 0<&- >&- 2>&-')
        model = vorn("import", BOOKSHOP).stdout
        done = subprocess.run(["sh", "-c", script, VORN, BOOKSHOP, self.out], stderr=subprocess.DEVNULL, check=False)
        self.assertEqual(done.returncode, 0)
        self.assertEqual(self.contents(), {"model.json": model})

    def test_no_output_is_the_export_or_another_output_by_whatever_name(self):
        export, summary = self.export(EMPTY_EXPORT), self.folder / "summary.json"
        summary.write_bytes(EMPTY_EXPORT)
        symbolic, hard, dangling = (self.folder / name for name in ("symbolic.json", "hard.json", "dangling.json"))
        symbolic.symlink_to(export)
        hard.hardlink_to(export)
        dangling.symlink_to("model.json")
        before = sorted(self.folder.iterdir())
        for arguments, pattern in [(["-o", symbolic], "is the export itself"), (["-o", hard], "is the export itself"),
                                   (["-o", self.out, "--report", symbolic], "is the export itself"),
                                   (["-o", self.out, "--report", dangling], "would be written twice"),
                                   (["-o", self.out, "-o", self.folder / ".." / self.folder.name / "model.json"],
                                    "would be written twice"),
                                   ([summary, "-O", self.folder, "-t", "sql"], "is the export itself")]:
            with self.subTest(arguments):
                self.fails(["import", export, *arguments], 2, f"^vorn: .*{pattern}")
        with open(export, "r+b") as itself:
            done = subprocess.run([VORN, "import", export], stdout=itself, stderr=subprocess.DEVNULL, check=False)
        self.assertEqual(done.returncode, 2)
        self.assertEqual((export.read_bytes(), summary.read_bytes()), (EMPTY_EXPORT, EMPTY_EXPORT))
        self.assertEqual(sorted(self.folder.iterdir()), before)

    def test_no_output_is_a_standard_stream_that_something_else_goes_to(self):
        link = self.folder / "link.json"
        link.hardlink_to(self.export(b"something else"))
        same = self.folder / "export.txt"
        for redirection, arguments, status in [
                (">", ["-o", "-", "--report", same], 2), (">", ["-o", link, "-o", "-"], 2), (">", ["-o", link, "--report", same], 2),
                ("2>", ["-o", link], 2), ("2>", ["--report", same], 2), ("2>&1 >", [], 0), (">", ["-O", self.folder, "-t", "sql"], 0),
                ("2>&1 >>", ["-O", self.folder / "models"], 0), (">", ["-o", self.out], 0), ("2>/dev/null >", ["-o", "/dev/stdout", "-t", "json"], 0),
                (">", ["-o", "/dev/stdout", "-o", "-", "-t", "json"], 2), (">all 2>", ["-o", "-"], 0)]:
            with self.subTest(redirection, arguments=arguments):
                command = f'"$0" import "{BOOKSHOP}" "$@" {redirection} "{same}"'
                done = subprocess.run(["sh", "-c", command, VORN, *arguments], stderr=subprocess.PIPE, cwd=self.folder, check=False)
                self.assertEqual(done.returncode, status)
                self.assertTrue(link.exists() and same.exists())
        both = subprocess.run(["sh", "-c", '"$0" import "$1" >both 2>&1', VORN, BOOKSHOP], cwd=self.folder, check=False)
        self.assertEqual(both.returncode, 2, "messages within the model")
        self.assertIn("as the messages and as a model", (self.folder / "both").read_text())
        both = subprocess.run(["sh", "-c", '"$0" import "$1" -O models >both 2>&1', VORN, BOOKSHOP], cwd=self.folder, check=False)
        self.assertEqual(both.returncode, 0, "a log of the table and the messages")

    def test_standard_output_on_a_full_disk(self):
        for command in (["import", BOOKSHOP, "-q"], ["import", BOOKSHOP, "-O", self.folder], ["--help"], ["--version"], ["info", "--help"],
                        ["formats"], ["dialects", "--json"], ["encodings"], ["schema"], ["man"], ["completion", "bash"],
                        ["info", BOOKSHOP], ["bridge", "options"], ["bridge", "specification"]):
            with self.subTest(command), open("/dev/full", "w") as full:
                done = subprocess.run([VORN, *command], stdout=full, stderr=subprocess.PIPE)
                self.assertEqual(done.returncode, 5)
                self.assertRegex(done.stderr, b"(?m)^FATAL VORN_F0002 Cannot write 'standard output': No space left on device$")

    def test_what_the_old_output_was_allowed_to_do_as_a_program_is_not_taken_over(self):
        self.out.write_text("old")
        self.out.chmod(0o7755)
        self.assertEqual(vorn("import", BOOKSHOP, "-o", self.out).returncode, 0)
        self.assertEqual(self.out.stat().st_mode & 0o7777, 0o755)

    def test_a_program_that_does_not_know_its_place_loads_nothing_from_the_current_folder(self):
        done = run("readlink 1 13", "import", BOOKSHOP, "-o", self.out, cwd=VORN.parent)
        self.assertEqual(done.returncode, 6, done.stderr)
        self.assertRegex(done.stderr, b"^FATAL VORN_F0005 Cannot load the bridge .*Permission denied.*--bridge")
