"""Exports that were damaged on their way, and files that are none: what is refused, what is repaired, and which encoding is taken."""
import gzip
import io
import json
import os
import random
import re
import threading
import zipfile
from contextlib import closing

from manual import Terminal
from support import BOOKSHOP, EMPTY_EXPORT, EXAMPLES, VORN, Program, vorn

SOUND = BOOKSHOP.read_bytes()
TEXT = SOUND.decode("cp1252")
NOISE = random.Random(1).randbytes(100_000)


def zipped():
    archive = io.BytesIO()
    with zipfile.ZipFile(archive, "w") as file:
        file.writestr("bookshop.txt", SOUND)
    return archive.getvalue()


def with_model_name(name):
    return b"\x1c" * 50 + b"\t" + name + b"\x1c" * 18


# Contents by what they are, with what the refusal says of them.
REPAIRABLE = {
    "LF": (SOUND.replace(b"\r", b"\n"), "^FATAL VORN_F0030 Records in '{0}' end with LF instead of CR, .*To repair it: vorn repair {0} -o fixed.txt$"),
    "UTF-16 with a mark": (TEXT.encode("utf-16"), r"is UTF-16 \(little-endian\) text.* vorn repair"),
    "UTF-16 without": (TEXT.encode("utf-16-be"), r"is UTF-16 \(big-endian\) text.* vorn repair"),
    "UTF-32": (TEXT.encode("utf-32-be"), r"is UTF-32 \(big-endian\) text.* vorn repair"),
}
OTHER = {
    "gzip": (gzip.compress(SOUND), "is a gzip archive. Unpack it"),
    "zip": (zipped(), "is a zip archive. Unpack it"),
    "XML": (b'\xef\xbb\xbf<?xml version="1.0"?><a/>', "is an XML or HTML document. Export the model as TXT"),
    "JSON": (b'\n{"name": "x"}', "is JSON"),
    "SQL": (b"-- from a tool\n/* of old */ Create\ttable a (b int);\n", "is an SQL script"),
    "noise": (NOISE, "is a binary file: 9 % of it are control characters"),
    "noise after a text": (b"1\tx\x1c" * 2000 + NOISE, "is a binary file: "),
}
SPOILED = {
    "LF": (SOUND.replace(b"\r", b"\n"), [r"Turned \d\d\d line ends from LF into CR"]),
    "CR LF": (SOUND.replace(b"\r", b"\r\n"), [r"Turned \d\d\d line ends from CR LF into CR"]),
    "UTF-16, little-endian": (TEXT.encode("utf-16"), [r"Converted 19818 characters from UTF-16 \(little-endian\)"]),
    "UTF-16, big-endian": (b"\xfe\xff" + TEXT.encode("utf-16-be"), [r"Converted .* from UTF-16 \(big-endian\)"]),
    "UTF-16 without a mark": (TEXT.encode("utf-16-le"), [r"Converted .* from UTF-16 \(little-endian\)"]),
    "UTF-32": (TEXT.encode("utf-32"), [r"Converted .* from UTF-32"]),
    "a byte order mark": (TEXT.encode("utf-8-sig"), ["Removed 1 byte order mark"]),
    "two exports": (SOUND + SOUND, ["Cut off 19818 bytes after section 68, which are another export"]),
    "a line end at the end": (SOUND + b"\r\n", [r"Cut off 2 bytes after section 68\."]),
    "all of it": (TEXT.replace("\r", "\n").encode("utf-16") + b"\r\0\n\0", ["Converted", "Cut off 2 bytes", "Turned"]),
}


def without_line_breaks(model):
    return re.sub(r"(\\r\\n|\\r|\\n)+", r"\\n", re.sub(r'"sourcePath": "[^"]*"', "", model.decode()))


class Unsound(Program):
    def test_what_is_no_sound_export_is_refused_and_the_output_left_alone(self):
        for name, (content, pattern) in (REPAIRABLE | OTHER).items():
            with self.subTest(name):
                export = self.export(content)
                self.out.write_text("precious")
                for command in (["import", export, "-o", self.out, "--report", self.folder / "report"], ["info", export]):
                    lines = self.fails(command, 3, pattern.format(export))
                    self.assertEqual(len(lines), 1 + (command[0] == "import"), lines)
                self.assertEqual(self.out.read_text(), "precious")
                self.out.unlink()
                batch = vorn("import", export, BOOKSHOP, "-O", self.folder / "models", "-q")
                self.assertEqual(batch.returncode, 4)
                self.assertRegex(batch.stderr.decode(), re.escape(str(export)) + ": VORN_F0030 ")
                self.assertFalse((self.folder / "models" / "export.json").exists())
                self.assertNotIn(b"VORN_F0030", vorn("import", export, "-o", self.out, "--force").stderr)
        quoted = self.folder / "it's.txt"
        quoted.write_bytes(SOUND.replace(b"\r", b"\n"))
        self.fails(["info", quoted], 3, re.escape("vorn repair '" + str(quoted).replace("'", "'\\''") + "' -o fixed.txt"))
        self.assertEqual(vorn("import", quoted, "-o", self.out, "--force").returncode, 0)

    def test_what_is_sound_or_a_pipe_is_not_refused(self):
        cases = [EMPTY_EXPORT, b"\x1c" * 66 + b"x", SOUND.replace(b"\r", b"\r\n"), b"\xef\xbb\xbf" + SOUND,
                 b"{}" + EMPTY_EXPORT, b"<a>" + EMPTY_EXPORT, b"SELECT 1" + EMPTY_EXPORT, b"\0\x01" * 10 + EMPTY_EXPORT,
                 EMPTY_EXPORT + b"\n" * 5,
                 # A line break inside a text, also one that a section which is passed over ends.
                 b"\x1c" * 50 + b"\t\x02a\nb\x03" + b"\x1c" * 18, b"\x02a\nb\x1c" + b"\x1c" * 67]
        for content in cases:
            with self.subTest(content[:40]):
                self.assertEqual(vorn("import", self.export(content), "-o", self.out).returncode, 0)
        pipe = self.folder / "pipe"
        os.mkfifo(pipe)
        for command in (["import", pipe, "-o", self.out], ["info", pipe]):
            writer = threading.Thread(target=pipe.write_bytes, args=(SOUND.replace(b"\r", b"\n"),))
            writer.start()
            self.assertEqual(vorn(*command).returncode, 0)
            writer.join()

    def test_each_repair_gives_the_model_of_the_sound_export(self):
        model = without_line_breaks(vorn("import", BOOKSHOP).stdout)
        fixed, again = self.folder / "fixed.txt", self.folder / "again.txt"
        for name, (content, steps) in SPOILED.items():
            with self.subTest(name):
                done = vorn("repair", self.export(content), "-o", fixed)
                self.assertEqual((done.returncode, done.stdout), (0, b""), done.stderr)
                told = done.stderr.decode().splitlines()
                self.assertEqual(len(told), len(steps), told)
                for line, step in zip(told, steps):
                    self.assertRegex(line, f"^{step}")
                self.assertEqual(without_line_breaks(vorn("import", fixed).stdout), model)
                self.assertIn(b"is sound and needs no repair", vorn("repair", fixed, "-o", again).stderr)
                self.assertEqual(again.read_bytes(), fixed.read_bytes())
        self.assertEqual(fixed.read_bytes().count(b"\r"), 227)

    def test_a_sound_export_is_copied(self):
        for export in EXAMPLES.glob("*.txt"):
            with self.subTest(export.name):
                done = vorn("repair", export, "-o", self.out)
                self.assertEqual(done.stderr.decode(), f"'{export}' is sound and needs no repair; '{self.out}' is a copy of it.\n")
                self.assertEqual(self.out.read_bytes(), export.read_bytes())
        self.assertEqual(vorn("repair", BOOKSHOP, "-o", "-", "-q").stdout, SOUND)

    def test_repaired_texts_are_utf_8(self):
        harbour = EXAMPLES / "harbour.txt"
        model = without_line_breaks(vorn("import", harbour).stdout)
        for encoding in ("utf-16", "utf-8-sig"):
            done = vorn("repair", self.export(harbour.read_bytes().decode("cp1252").encode(encoding)), "-o", self.folder / "fixed.txt")
            self.assertIn(f"vorn import {self.folder / 'fixed.txt'} --encoding utf-8\n", done.stderr.decode())
            for choice in ("utf-8", "auto"):
                self.assertEqual(without_line_breaks(vorn("import", self.folder / "fixed.txt", "--encoding", choice).stdout), model)

    def test_what_cannot_be_repaired_is_left_alone(self):
        cases = {name: content for name, (content, _) in OTHER.items() if name != "noise after a text"}  # which is cut off
        cases |= {"cut": SOUND[: len(SOUND) // 2], "nothing": b"", "half a character": TEXT.encode("utf-16") + b"x",
                  "a lone surrogate": TEXT.encode("utf-16") + b"\0\xd8", "converted twice": TEXT.encode("utf-16-le").decode("latin-1").encode("utf-16")}
        for name, content in cases.items():
            with self.subTest(name):
                self.fails(["repair", self.export(content), "-o", self.out], 3, r"^FATAL VORN_F0030 '.*/export.txt' .*It cannot be repaired\.$")
        self.fails(["repair", self.folder / "none", "-o", self.out], 3, "^FATAL KVB_SRRDM_F0002 .*No such file")
        self.fails(["repair", BOOKSHOP, "-o", "/dev/full"], 5, "^FATAL VORN_F0002 .*No space left")
        self.fails(["repair", BOOKSHOP], 2, "--output")

    def test_a_repair_never_writes_over_its_input(self):
        export = self.export(SOUND.replace(b"\r", b"\n"))
        symbolic, hard = self.folder / "symbolic", self.folder / "hard"
        symbolic.symlink_to(export)
        hard.hardlink_to(export)
        for output in (export, symbolic, hard):
            self.fails(["repair", export, "-o", output], 2, "^vorn: the output '.*' is the export itself")
        self.assertEqual(export.read_bytes(), SOUND.replace(b"\r", b"\n"))


class Encodings(Program):
    def read(self, name, encoding, expected):
        done = vorn("import", self.export(with_model_name(name)), "-o", self.out, "--encoding", encoding)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(json.loads(self.out.read_bytes())["name"], expected)
        return done.stderr.decode()

    def test_auto_takes_what_the_bytes_say_and_tells_why(self):
        russian = "Заказ товара со склада"
        cases = [("Ünïcödé".encode(), "Ünïcödé", r"'Unicode \(UTF-8\)'\. All 4 non-ASCII characters are valid UTF-8\."),
                 ("Café".encode(), "Café", r"'Unicode \(UTF-8\)'\. There are few non-ASCII characters \(1\)"),
                 ("Café".encode("cp1252"), "Café", r"'.*1252\)'\. That is the default: there are too few non-ASCII bytes to decide \(1\)"),
                 (b"Cafe", "Cafe", r"'.*1252\)'\. That is the default: all bytes are ASCII"),
                 (russian.encode("cp1251"), russian, r"'Cyrillic \(Windows-1251\)'\. The detector's confidence is \d+ of 100")]
        for name, expected, pattern in cases:
            with self.subTest(pattern):
                lines = re.findall(r"(?m)^STATUS VORN_S0031 Texts are read as (.*)$", self.read(name, "auto", expected))
                self.assertEqual(len(lines), 1)
                self.assertRegex(lines[0], "^" + pattern)
        pipe = self.folder / "pipe"
        os.mkfifo(pipe)
        writer = threading.Thread(target=pipe.write_bytes, args=(SOUND,))
        writer.start()
        self.assertIn(b"the export can be read only once", vorn("import", pipe, "-o", self.out, "--encoding", "auto").stderr)
        writer.join()
        vorn("import", self.export(with_model_name("Ünïcödé".encode())), "-O", self.folder, "--encoding", "auto", "-q")
        self.assertEqual(json.loads((self.folder / "export.json").read_bytes())["name"], "Ünïcödé")

    def test_a_choice_that_the_bytes_contradict_is_a_warning(self):
        utf8, windows = "WARNING VORN_W0032 ", "WARNING VORN_W0033 "
        cases = [("äöü".encode(), "windows-1252", utf8), ("äöü".encode(), "cp850", utf8), ("äö".encode(), "windows-1252", None),
                 ("äöü".encode() + b"\xe9", "windows-1252", None), ("äöü".encode(), "utf-8", None), ("äöü".encode(), "gbk", None),
                 ("äöü".encode(), "unknown", None), (b"\xe4 \xf6 \xfc", "utf-8", windows), (b"\xe4 \xf6", "utf-8", None),
                 (b"\xe4 \xf6 \xfc" + "ä".encode(), "utf-8", None), (b"\xe4 \xf6 \xfc", "windows-1252", None)]
        for name, encoding, warning in cases:
            with self.subTest((name, encoding)):
                done = vorn("import", self.export(with_model_name(name)), "-o", self.out, "--encoding", encoding)
                found = re.findall(r"(?m)^WARNING VORN_W003\d ", done.stderr.decode())
                self.assertEqual(found, [warning] if warning else [])

    def test_info_does_not_guess_from_few_bytes(self):
        for name, text, likely in [(b"caf\xe9", "undecided: too few non-ASCII bytes (1)", {"name": None, "confidence": 0, "letters": 1}),
                                   ("äöü".encode(), "Unicode (UTF-8): all 3 non-ASCII characters", {"name": "Unicode (UTF-8)", "confidence": 100, "letters": 3}),
                                   (b"cafe", "any: all bytes are ASCII", None)]:
            export = self.export(with_model_name(name))
            self.assertIn(f"Likely encoding  {text}", vorn("info", export).stdout.decode())
            self.assertEqual(json.loads(vorn("info", export, "--json").stdout)["likelyEncoding"], likely)
        self.assertIn("Model            äöü\n", vorn("info", self.export(with_model_name("äöü".encode())), "--encoding", "auto").stdout.decode())

    def test_names_in_messages_and_reports_are_in_the_imports_encoding(self):
        export = self.export(b"\x1c" * 6 + b"S\t1\tnowh\x82re\tCaf\x82\x1c" + b"\x1c" * 45 + b"\tS\t\t\tT" + b"\x1c" * 11 +
                             b"\tT\tOrakl\x82\t8\x1c" + b"\x1c" * 4)
        done = vorn("import", export, "-o", self.out, "--encoding", "cp850", "-v", "--report", self.folder / "report.jsonl")
        for wanted in ("name 'Café'", "found 'nowhére'", "WARNING KVB_SRRDM_W0019 ", "Oraklé"):
            self.assertIn(wanted, done.stderr.decode())
        events = [json.loads(line) for line in (self.folder / "report.jsonl").read_text().splitlines()]
        self.assertIn(("Café", "nowhére"), [(event.get("name"), event.get("value")) for event in events])
        vorn("import", export, "-o", self.out, "--encoding", "cp850", "--report", self.folder / "report.txt")
        self.assertIn("name 'Café'", (self.folder / "report.txt").read_text())


class TargetSystems(Program):
    def export_of(self, name, version):
        return self.export(b"\x1c" * 52 + b"\tS\t\t\tT" + b"\x1c" * 11 + b"\tT\t" + name + b"\t" + version + b"\x1c" + b"\x1c" * 4)

    def test_the_bridge_lists_the_systems_it_accepts(self):
        systems = json.loads(vorn("bridge", "systems", "--json").stdout)
        self.assertEqual(len(systems), 85)
        self.assertIn({"name": "Oracle", "version": "8.1", "dataStore": "ORACLE", "dataStoreVersion": "8.1.0", "hostName": "ORACLE 8.x"}, systems)
        lines = vorn("bridge", "systems").stdout.decode().splitlines()
        self.assertEqual(len(lines), 85)
        self.assertIn("Informix Universal Server  9.2   INFORMIX 9.x", lines)

    def test_an_unknown_system_is_followed_by_the_nearest_on_a_terminal_and_in_info(self):
        cases = [(b"Oracle", b"12.0", "'Oracle' 11.0, 'Oracle' 10.0, 'Oracle' 9.0"), (b"ORAKLE", b"8.0", "'Oracle' 8.0, 'Oracle' 8.1, 'Oracle' 7.0"),
                 (b"Microsoft SQL Server", b"2008", "'SQL Server' 10.0, 'SQL Server' 9.0, 'SQL Server' 8.0"), (b"Sybase ASE", b"12.5", "'Sybase' 12.5, 'Sybase' 12.0, 'Sybase' 11.9"), (b"zzzzzz", b"1", None)]
        for name, version, nearest in cases:
            with self.subTest(name):
                export = self.export_of(name, version)
                piped = vorn("import", export, "-o", self.out).stderr.decode()
                self.assertRegex(piped, "(?m)^WARNING KVB_SRRDM_W0019 .*" + name.decode())
                self.assertNotIn("VORN_S0034", piped)
                with closing(Terminal(VORN, "import", export, "-o", self.out)) as terminal:
                    self.assertTrue(terminal.wait_for(r"W0019 [^\n]*\n[^\n]*VORN_S0034 [^\n]*Nearest supported target systems: " + re.escape(nearest or "none")), terminal.seen)
                self.assertIn(f"Unknown system   '{name.decode()}' {version.decode()}; " +
                              (f"near it: {nearest}\n" if nearest else "`vorn bridge systems` lists"), vorn("info", export).stdout.decode())
        told = json.loads(vorn("info", self.export_of(b"Oracle", b"12.0"), "--json").stdout)["unknownTargetSystem"]
        self.assertEqual((told["name"], told["version"], told["nearest"][0]), ("Oracle", "12.0", {"name": "Oracle", "version": "11.0"}))
        self.assertIsNone(json.loads(vorn("info", BOOKSHOP, "--json").stdout)["unknownTargetSystem"])
