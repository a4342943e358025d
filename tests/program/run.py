#!/usr/bin/env python3
"""Runs the program as a user does and holds what it answers, writes and leaves alone against what it promises.

    run.py VORN
"""
import json
import os
import subprocess
import sys
import unittest
from pathlib import Path

from batch import Batch  # noqa: F401
from failing_files import FailingFiles  # noqa: F401
from manual import Completion, ManPage, Progress, Warnings  # noqa: F401
from unsound import Encodings, TargetSystems, Unsound  # noqa: F401
from support import BOOKSHOP, EMPTY_EXPORT, EXAMPLES, VORN, Program, vorn
from types_table import Types  # noqa: F401

del sys.argv[1]


class Import(Program):
    def test_saves_the_model_and_says_what_is_in_it(self):
        done = vorn("import", BOOKSHOP, "-o", self.out)
        self.assertEqual((done.returncode, done.stdout), (0, b""), done.stderr)
        model = json.loads(self.out.read_bytes())
        self.assertEqual(model["name"], "Bookshop")
        origin = model["metadataOrigins"][0]
        self.assertEqual((origin["sourcePath"], origin["identifier"]), (str(BOOKSHOP), "SilverrunRdm262Import"))
        self.assertRegex(origin["buildVersion"], r"^11\.0\.0 - 20")
        lines = done.stderr.decode().splitlines()
        self.assertEqual(lines[0], "STATUS KVB_SRRDM_S0005 Creating the main package and diagram...")
        self.assertRegex(lines[-1], r"^11 tables, 1 view, 59 columns, 10 associations; no warnings; \d+\.\d\d s$")

    def test_quiet_and_verbose(self):
        self.assertEqual(vorn("import", BOOKSHOP, "-o", self.out, "-q").stderr, b"")
        self.assertIn(b", section 7 of 68 (columns), record ",
                      vorn("-v", "import", BOOKSHOP, "-o", self.out).stderr)

    def test_fail_on_warning_turns_warnings_into_a_no(self):
        lost_column = self.export(b"\x1c" * 6 + b"\t1\tnowhere\tc\x1c" + b"\x1c" * 61)
        self.assertEqual(vorn("import", lost_column, "-o", self.out).returncode, 0)
        done = vorn("import", lost_column, "-o", self.out, "--fail-on-warning")
        self.assertEqual(done.returncode, 1)
        self.assertIn(b"WARNING KVB_SRRDM_W0015 Cannot connect the attribute to its entity\n", done.stderr)
        self.assertRegex(done.stderr.decode(), r"; 1 warning; ")

    def test_takes_options_by_choice_word_or_short_name(self):
        accepted = [
            ["--role-names", "origin"],
            ["--role-names", "Destination"],
            ["--open-mode", "text"],
            ["--tool-version", "2.8.5"],
            ["--tool-version", "2.8.4/2.8.5"],
            ["--encoding", "cp850"],
            ["--encoding", "Western European (Windows-1252)"],
            ["--encoding", "unknown"],
            ["--option", "Role Name Location=Link Destination (UML Modeling Style)", "--option", "Encoding=utf-8"],
        ]
        for arguments in accepted:
            with self.subTest(arguments):
                done = vorn("import", self.export(EMPTY_EXPORT), "-o", self.out, *arguments)
                self.assertEqual(done.returncode, 0, done.stderr)

    def test_knows_other_names_of_formats_and_dialects(self):
        for wanted, arguments in [("markdown", ["-t", "MD"]), ("dot", ["-t", "gv"]), ("sql --dialect sqlserver", ["-t", "SQL", "--dialect", "mssql"]),
                                  ("sql --dialect postgresql", ["-t", "sql", "--dialect", "pg"])]:
            self.assertEqual(vorn("import", BOOKSHOP, *arguments).stdout, vorn("import", BOOKSHOP, "-t", *wanted.split()).stdout, arguments)
        for name, wanted in [("m.markdown", "markdown"), ("m.GV", "dot"), ("m.Json", "json"), ("m.mermaid", "mermaid")]:
            self.assertEqual(vorn("import", BOOKSHOP, "-o", self.folder / name).returncode, 0)
            self.assertEqual((self.folder / name).read_bytes(), vorn("import", BOOKSHOP, "-t", wanted).stdout, name)

    def test_reads_standard_input(self):
        def piped(content, *arguments):
            return subprocess.run([VORN, *map(str, arguments)], input=content, capture_output=True)

        done = piped(BOOKSHOP.read_bytes(), "import", "-", "-o", self.out)
        model = json.loads(self.out.read_bytes())
        self.assertEqual((done.returncode, model["name"], model["metadataOrigins"][0]["sourcePath"]), (0, "Bookshop", "-"))
        self.assertIn(b"(standard input: the file ends at byte 4, section 2 of 68)", piped(b"Dear", "import", "-").stderr)
        self.assertRegex(piped(BOOKSHOP.read_bytes(), "info", "-").stdout, b"^File +standard input, a pipe\nModel +Bookshop\n")
        with open(BOOKSHOP, "rb") as file:
            subprocess.run([VORN, "import", "-", "-o", self.folder / "again.json"], stdin=file, stderr=subprocess.DEVNULL, check=True)
        self.assertEqual((self.folder / "again.json").read_bytes(), self.out.read_bytes())

    def test_the_encoding_decides_how_bytes_are_read(self):
        export = self.export(b"\x1c" * 50 + b"\tCaf\x82\x1c" + b"\x1c" * 17)
        for encoding, name in (("cp850", "Café"), ("windows-1252", "Caf‚")):
            vorn("import", export, "-o", self.out, "--encoding", encoding)
            self.assertEqual(json.loads(self.out.read_bytes())["name"], name)

    def test_counts_the_texts_that_are_not_utf8_over_all_parts_of_a_model(self):
        tables = b"\r".join(b"\t%d\t\tt\xe9%d" % (number, number) for number in range(1000))
        export = self.export(b"\x1c" * 59 + tables + b"\x1c" * 9)
        done = vorn("import", export, "-q", "--encoding", "unknown", "-o", self.out)
        self.assertRegex(done.stderr, rb"VORN_W0008 [^\n]+: 1000\n")

    def test_a_terminal_gets_no_character_that_turns_the_direction_of_writing(self):
        name = "a\u202eb\u2066c\u200b"
        bad = self.folder / name
        bad.write_bytes(b"no export")
        for arguments in (["import", bad, "-o", self.out], ["import", bad], ["info", bad], [name], ["info", bad, name], [f"--{name}"],
                          ["import", bad, "-o", self.out, "--encoding", name], ["import", BOOKSHOP, bad, "-O", self.folder / name]):
            with self.subTest(arguments):
                done = vorn(*arguments)
                self.assertRegex(done.stderr + done.stdout, b"a b ?c")
                self.assertNotRegex((done.stderr + done.stdout).decode(), "[\u200b\u202e\u2066]")
        good = self.folder / f"{name}.txt"
        good.write_bytes(BOOKSHOP.read_bytes())
        self.assertIn(b"a b c ", vorn("info", good).stdout)
        printed = vorn("info", good, "--json").stdout
        self.assertIn(rb"a\u202Eb\u2066c\u200B.txt", printed)
        self.assertEqual(json.loads(printed)["file"], str(good))

    def test_takes_each_encoding_that_it_lists_by_name_and_by_short_name(self):
        encodings = json.loads(vorn("encodings", "--json").stdout)
        names = vorn("encodings").stdout.decode()
        self.assertGreaterEqual(len(encodings), 40)
        self.assertIn("Western European (Windows-1252)       windows-1252 (default)\n", names)
        for encoding in encodings:
            self.assertIn(encoding["name"], names)
        for name in (encodings[0]["name"], *encodings[-1].values(), *encodings[20].values()):
            self.assertEqual(vorn("import", BOOKSHOP, "-o", self.out, "--encoding", name).returncode, 0, name)

    def test_generates_the_foreign_keys_that_an_export_declares_where_columns_have_the_same_names(self):
        def foreign_keys(export):
            """Of each role that a foreign key is tied to: the key it references, its columns and their maps."""
            elements = json.loads(vorn("import", export).stdout)["designPackages"][0]["elements"]
            return {key["associationRole"]: (key["candidateKey"], key["attributes"], key["roleNameMaps"])
                    for element in elements for key in element.get("keys", []) if key.get("associationRole")}

        declared = foreign_keys(BOOKSHOP)
        sections = BOOKSHOP.read_bytes().split(b"\x1c")
        sections[10] = b"\r".join(key for key in sections[10].split(b"\r") if b"\tFKEY\t" not in key)
        generated = foreign_keys(self.export(b"\x1c".join(sections)))
        of_same_names = {role: key for role, key in declared.items() if not key[2]}
        self.assertGreaterEqual(len(of_same_names), 5)
        self.assertEqual({role: generated.get(role) for role in of_same_names}, of_same_names)

    def test_quotes_all_names_and_writes_every_view_where_that_is_asked_for(self):
        view = b"\t1\t\tV" + b"\t" * 57 + b"AS SELECT 1 FROM nowhere\t\t\t\tY"
        export = self.export(b"\x1c" * 59 + view + b"\x1c" * 9)
        for options, wanted in (([], "-- Left out: view V:"), (["--views", "always"], "CREATE VIEW V AS"),
                                (["--views", "always", "--quote"], 'CREATE VIEW "V" AS')):
            done = vorn("import", export, "-t", "sql", *options)
            self.assertIn(wanted, done.stdout.decode())
            self.assertNotIn(b"vorn info", done.stderr, "which knows nothing of what was written")

    def test_follows_a_link_to_what_it_makes_or_replaces_with_its_permissions(self):
        real = self.folder / "real.json"
        real.write_text("old")
        real.chmod(0o604)
        self.out.symlink_to(real)
        self.assertEqual(vorn("import", BOOKSHOP, "-o", self.out).returncode, 0)
        self.assertTrue(self.out.is_symlink())
        self.assertEqual(real.stat().st_mode & 0o777, 0o604)
        self.assertEqual(json.loads(real.read_bytes())["name"], "Bookshop")
        self.out.unlink()
        self.out.symlink_to("new.json")
        subprocess.run(["sh", "-c", 'umask 027; "$0" import "$1" -q -o "$2"', VORN, BOOKSHOP, self.out], check=True)
        self.assertEqual((self.folder / "new.json").stat().st_mode & 0o777, 0o640)

    def test_reports_what_is_dropped_or_changed_and_what_is_in_an_export(self):
        behind = b"\t" * 28
        lost_columns = self.export(b"\x1c" * 6 + b"\t1\tnowhere\tc\xe9" + behind + b"\r\t2\tnowhere\td" + behind + b"\x1c" * 62)
        report = self.folder / "report.jsonl"
        self.assertEqual(vorn("import", lost_columns, "-o", self.out, "-q", "--report", report).returncode, 0)
        events = [json.loads(line) for line in report.read_text().splitlines()]
        self.assertEqual(events[0] | {"wanted": 0, "done": 0}, {
            "event": "irregularity", "kind": "column-without-entity", "warning": "KVB_SRRDM_W0015", "section": 7,
            "sectionName": "columns", "record": 1, "offset": 6, "identifier": "1", "name": "cé", "wanted": 0,
            "value": "nowhere", "done": 0, "dropped": True})
        self.assertIn({"event": "records", "section": 7, "sectionName": "columns", "read": 2, "kept": 0, "dropped": 2}, events)
        self.assertIn(b"--report FILE lists every dropped or changed record\n", vorn("import", lost_columns, "-o", self.out).stderr)
        report = self.folder / "report.md"
        done = vorn("import", lost_columns, "-o", self.out, "--report", report)
        self.assertNotIn(b"--report", done.stderr)
        self.assertRegex(report.read_text(),
                         r"(?s)^# .*\n## columns \(section 7\)\n\n- column-without-entity: columns \(section 7\), record 1 .*\n\n## Records\n.*\n"
                         r"\| 7 \| columns \| 2 \| 0 \| 2 \|\n")
        info = json.loads(vorn("info", lost_columns, "--json").stdout)
        self.assertEqual((info["irregularities"], info["warnings"]), ({"column-without-entity": 2}, 2))
        self.assertEqual(info["firstIrregularities"], {"column-without-entity": "columns (section 7), record 1 at byte 6"})
        after = self.export(EMPTY_EXPORT + b"\x1a")
        self.assertIn("  further-bytes                               1  first: section 68 at byte 68\n", vorn("info", after).stdout.decode())
        vorn("import", after, "-o", self.out, "-q", "--report", self.folder / "report.md")
        self.assertIn("- further-bytes: section 68 at byte 68: ", (self.folder / "report.md").read_text())
        self.assertRegex(vorn("info", EXAMPLES / "harbour.txt").stdout.decode(),
                         r"(?s)Windows-1252\), \d+ of 100 .* columns +398 +398 +0\n")
        self.assertIn("undecided: too few non-ASCII bytes (2)", vorn("info", EXAMPLES / "museum-keys.txt").stdout.decode())
        self.fails(["import", lost_columns, "-o", self.out, "--report", self.folder / "none" / "report"], 5, "Cannot write")
        owned = self.export(b"\x1c" * 59 + b"\t1\tU\tOrders" + b"\x1c" * 5 + b"\tU\tVertrieb S\xfcd" + b"\x1c" * 4)
        self.assertEqual(json.loads(vorn("info", owned, "--json").stdout)["schemas"], ["Vertrieb Süd"])
        hostile = self.export(b"\x1c" * 6 + b"\t1\tnowhere\t<img src=x> *a* www.x.example b@x.example http://x.example\x1c" + b"\x1c" * 61)
        for extension, name in [(".md", r"\<img src=x> \*a\* www<!-- -->.x.example b<!-- -->@x.example http<!-- -->://x.example"),
                                (".txt", "<img src=x> *a* www.x.example b@x.example http://x.example")]:
            report = self.folder / f"report{extension}"
            vorn("import", hostile, "-o", self.out, "--report", report)
            self.assertIn(f"name '{name}'", report.read_text())


class BadInput(Program):
    def test_an_export_that_cannot_be_opened(self):
        unreadable = self.export(EMPTY_EXPORT)
        unreadable.chmod(0)
        cases = [(self.folder / "none.txt", "No such file or directory"), (self.folder, "Is a directory"),
                 (unreadable, "Permission denied")]
        for path, reason in cases:
            with self.subTest(reason):
                lines = self.fails(["import", path, "-o", self.out], 3,
                                   rf"^FATAL KVB_SRRDM_F0002 Unable to open input file : '{path}' \({reason}\)$")
                self.assertEqual(len(lines), 1)

    def test_a_file_that_is_no_export_or_only_a_part_of_one(self):
        whole = BOOKSHOP.read_bytes()
        cases = {
            "empty": (b"", "the file ends at byte 0, section 1 of 68"),
            "text": (b"Dear Sir,\r\nplease find enclosed\r\n", "the file ends at byte 33, section 2 of 68"),
            "truncated": (whole[: len(whole) // 2], r"the file ends at byte \d+, section \d+ of 68"),
            "an open text": (b"\x1c" * 59 + b"\t1\r\t\x02x" + b"\x1c" * 9,
                             r"the file ends at byte 74, section 61 of 68 inside the text that begins at byte 63, section 60, record 2"),
            "two model records": (b"\x1c" * 50 + b"\tA\r\tB" + b"\x1c" * 18, r"at byte 53, section 51 of 68 \(model\), record 1: unexpected second record"),
        }
        for name, (content, place) in cases.items():
            with self.subTest(name):
                export = self.export(content)
                self.fails(["import", export, "-o", self.out], 3,
                           rf"^FATAL KVB_SRRDM_F0003 Invalid input file format \({export}: {place}\)$")


class BadOutput(Program):
    def test_an_output_that_cannot_be_written(self):
        closed = self.folder / "closed"
        closed.mkdir(mode=0o500)
        cases = [(self.folder / "none" / "model.json", "No such file or directory"), (closed / "model.json", "Permission denied"),
                 (self.folder, "Is a directory"), (Path("/dev/full"), "No space left on device")]
        for path, reason in cases:
            with self.subTest(reason):
                arguments = ["import", BOOKSHOP, "-o", path, "-t", "json"]
                self.fails(arguments, 5, rf"^FATAL VORN_F0002 Cannot write '{path}': {reason}$")
                begins = b"STATUS" in vorn(*arguments).stderr
                self.assertEqual(begins, path == Path("/dev/full"), "what can be seen is seen before the import")

    def test_what_is_no_regular_file_is_written_and_not_replaced(self):
        os.mkfifo(self.out)  # and no device of the machine, which a fault would replace
        with subprocess.Popen(["cat", self.out], stdout=subprocess.PIPE) as reader:
            self.assertEqual(vorn("import", BOOKSHOP, "-o", self.out).returncode, 0)
            self.assertTrue(self.out.is_fifo())
            self.assertEqual(reader.stdout.read(), vorn("import", BOOKSHOP).stdout)


class Usage(Program):
    def test_arguments_that_make_no_sense(self):
        export = self.export(EMPTY_EXPORT)
        cases = [
            (["-q"], "'vorn' needs a command: import, .*see vorn --help"),
            (["import"], r"EXPORT is required \(see vorn import --help\)"),
            (["import", ""], "the name of an export is empty"),
            (["import", "-", export, "-O", self.folder / "models"], "standard input can only be imported alone"),
            (["--json", "info", export], "'--json' must follow 'vorn info'"),
            (["help", "brigde"], "did you mean 'bridge'"),
            (["help", "bridge", "passs"], r"did you mean 'passes'.*see vorn bridge --help"),
            (["import", export, "-o", self.folder / "model.svg"], r"as .svg; .* dot -Tsvg model.dot -o model.svg$"),
            (["import", export, "-o", self.folder / "model.HTML"], r"as .html; save a .md file"),
            (["import", export, "-o", self.folder / "model.abml"], "did you mean 'dbml'"),
            (["import", export, "-o", self.folder / "model.sgl"], "did you mean 'sql'"),
            (["import", export, "-o", self.folder / "model.xls2"], "name one with -t$"),
            (["imprt", export], "unknown command 'imprt'; did you mean 'import'?"),
            (["bridge", "passs"], "did you mean 'passes'?"),
            (["bridge", "imprt"], r"unknown command 'imprt' \(see vorn bridge --help\)"),
            (["info", export, export], f"unexpected argument '{export}' "),
            (["import", export, "--verbos"], "unknown option '--verbos'; did you mean '--verbose'?"),
            (["import", export, "--colour=red"], "unknown option '--colour' "),
            (["import", export, "-t", "jsno"], "did you mean 'json'?"),
            (["import", export, "--encoding", "windws1252"], "did you mean 'Windows-1252'?"),
            (["import", export, "--tool-version", "2.8.55"], "did you mean '2.8.5'?"),
            (["import", export, "--option", "encodng=utf-8"], "did you mean 'Encoding'?"),
            (["import", export, "-o", self.folder / "model.xyz"], "Unknown output format for '.*model.xyz'"),
            (["import", export, "-t", "xml"], "there is no format 'xml': `vorn formats` "),
            (["import", export, "-o", export, "-t", "json"], "is the export itself"),
            (["import", export, "--encoding", "klingon"], "invalid value 'klingon' for --encoding: `vorn encodings`"),
            (["import", export, "--encoding", "european"], "invalid value 'european'"),  # several have the word
            (["import", export, "--role-names", "both"], "invalid value 'both' for --role-names: choose origin or destination"),
            (["import", export, "--option", "Colour=red"], "no option 'Colour'"),
            (["import", export, "--option", "Encoding"], "NAME=VALUE"),
            (["import", export, "--option", "Encoding=a=b"], "invalid value 'a=b'"),
            (["import", export, "-t", "j"], "lists them$"),  # too little to tell what was meant
            (["import", export, "-t", "xyzdot"], "lists them$"),
            (["import", export, "-o", self.out, "--report", export], "is the export itself"),
            (["import", export, "-o", self.out, "--report", self.out], "as a model of .* and as the report of"),
        ]
        for arguments, pattern in cases:
            with self.subTest(arguments):
                self.fails(arguments, 2, f"^vorn: .*{pattern}")
        self.assertEqual(export.read_bytes(), EMPTY_EXPORT)

    def test_help_teaches_by_example(self):
        for command in ([], ["import"], ["info"], ["bridge"], ["bridge", "sections"], ["formats"], ["schema"],
                        ["completion", "zsh"], ["man"]):
            done = vorn(*command, "--help")
            self.assertEqual(done.returncode, 0)
            self.assertIn("Example: vorn " + " ".join(command), done.stdout.decode())
            self.assertEqual(vorn("help", *command).stdout, done.stdout)
            self.assertNotRegex(done.stdout.decode(), "REQUIRED|Excludes|TEXT|.{101}")
        self.assertEqual(vorn().stdout, vorn("--help").stdout)
        version = vorn("--version").stdout.decode()
        self.assertRegex(version, r"^vorn \d+\.\d+\.\d+\nimport bridge 11\.0\.0 - 20.*\n$")
        self.assertEqual(vorn("-V").stdout.decode(), version)
        self.assertIn("cannot be loaded", vorn("-V", VORN_BRIDGE="none.so").stdout.decode())


class Bridge(Program):
    def test_a_plugin_that_cannot_be_loaded(self):
        nothing = self.folder / "none.so"
        other = next((VORN.parent.parent / "lib" / "vorn").glob("libvorn-host.so*"))
        no_library = self.export(b"text")
        for path, reason in [(nothing, "no such file"), (no_library, "export.txt"), (other, "does not export")]:
            with self.subTest(reason):
                self.fails(["import", BOOKSHOP, "--bridge", path], 6,
                           rf"^FATAL VORN_F0005 Cannot load the bridge '{path}': .*{reason}")
        self.fails(["bridge", "options"], 6, "no such file", VORN_BRIDGE=str(nothing))

    def test_tells_its_options(self):
        options = json.loads(vorn("bridge", "options", "--json").stdout)
        self.assertEqual([option["name"] for option in options],
                         ["File", "Role Name Location", "Open Mode", "Encoding", "Version"])
        encoding = options[3]
        self.assertEqual(encoding["default"], "Western European (Windows-1252)")
        self.assertGreaterEqual(len(encoding["choices"]), 40)
        self.assertIn("  * 2.8.4/2.8.5 (default)", vorn("bridge", "options").stdout.decode())

    def test_tells_what_it_is_and_the_data_stores_it_knows(self):
        specification = json.loads(vorn("bridge", "specification", "--json").stdout)
        self.assertEqual((specification["tool"], specification["mapping"]), ("Silverrun RDM", "VornSilverrunRdmImport"))
        self.assertIn("REQUIREMENTS\nn/a\n", specification["description"])
        self.assertRegex(vorn("bridge", "specification").stdout.decode(), r"Build +11\.0\.0 - ")
        stores = json.loads(vorn("bridge", "data-stores", "--json").stdout)
        self.assertEqual((stores[57]["dataStore"], stores[57]["version"]), ("ORACLE", "8.1.0"))
        self.assertIn("VARCHAR2", stores[57]["types"])
        self.assertTrue(all(store["types"] and store["toolVersions"] == "2.4.4 to 2.7.2" for store in stores))
        lines = vorn("bridge", "data-stores").stdout.decode().splitlines()
        self.assertRegex(lines[57], rf"^ORACLE +8\.1\.0 +{len(stores[57]['types'])} types, tool 2\.4\.4 to 2\.7\.2$")
        self.assertEqual(len(lines), 85)

    def test_tells_its_sections_and_passes(self):
        for list_name in ("sections", "passes"):
            with self.subTest(list_name):
                golden = Path(__file__).with_name(f"{list_name}.txt").read_text()
                self.assertEqual(vorn("bridge", list_name).stdout.decode(), golden)
        sections = json.loads(vorn("bridge", "sections", "--json").stdout)
        self.assertEqual([section["position"] for section in sections], list(range(1, 69)))


if __name__ == "__main__":
    result = unittest.main(verbosity=0, exit=False).result
    bad = len(result.failures) + len(result.errors)
    print(f"{result.testsRun - bad} passed, {bad} failed")
    sys.exit(bad != 0)
