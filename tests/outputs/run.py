#!/usr/bin/env python3
"""Has what is written of models read by those it is written for, and compares what they find with the model.

    run.py VORN [--quick] [-k PATTERN]...       --quick: without servers and without Node; -k: tests whose names fit
"""
import functools
import json
import random
import re
import subprocess
import sys
import tempfile
import unittest
from collections import Counter, defaultdict
from pathlib import Path
from xml.etree import ElementTree

QUICK = "--quick" in sys.argv
import hostile  # noqa: E402
import mariadb  # noqa: E402
import nasty  # noqa: E402
import postgresql  # noqa: E402
import sqlite  # noqa: E402
from model import Column, Index, Key, SavedModel, name_of, one_line, plain, same_name, unchanged  # noqa: E402
from support import VORN, acceptance_exports, exports, limit_exports, parse, random_exports, saved, saved_schema  # noqa: E402

sys.argv[1:] = [argument for argument in sys.argv[2:] if argument != "--quick"]


class Comparison(unittest.TestCase):
    @staticmethod
    def settled_names(model, longest=10_000, relations="^$", **_):
        """By schema the names that tables, keys and indexes must have: those that nothing else there could want."""
        places = [defaultdict(list) for _ in range(3)]
        for schema, name in model.relation_names:
            for place in places:
                place[schema].append(name)
        for schema, name, kind in model.key_names:
            places[1][schema].append(name)
            if kind == "CandidateKey":
                places[2][schema].append(name)
        for table in model.tables:
            places[2][table.schema] += [index.name for index in table.indexes]
        return [defaultdict(set, {schema: unchanged(names, longest, relations) for schema, names in place.items()}) for place in places]

    @staticmethod
    def settled_columns(table, longest=10_000, columns="^$", **_):
        return unchanged([column.name for column in table.columns], longest, columns)


class Database(Comparison):
    """What a database's catalogue says against what the model asks for."""

    NAMED = True  # whether the catalogue has the names of keys, and comments
    HAS_VIEW_COMMENTS = True

    def check(self, name):
        model = SavedModel(saved(name, ".json"), self.DIALECT)
        for options in [["--quote"], []]:
            script = saved(name, ".sql", "--dialect", self.DIALECT, *options)
            tables, views = self.load(name + "".join(options), script)
            self.compare(model, tables, script)
        self.compare_views(model, views)

    def compare(self, model, tables, script):
        self.assertEqual(len(model.tables), len(tables))
        self.adapt(model, tables)
        self.changes = script.read_bytes().decode().partition("-- Names that had to be changed:")[2]
        relations, keys, indexes = self.settled_names(model, **self.RULES)
        keys = keys if self.NAMED else defaultdict(set)
        schemas = unchanged(dict.fromkeys(table.schema for table in model.tables), 63, "^pg_")
        for number, (wanted, found) in enumerate(zip(model.tables, tables)):
            with self.subTest(table=wanted.name, number=number):
                self.same([wanted], [found], lambda table: (len(table.columns), plain(table.comment) if self.NAMED else ""), relations[wanted.schema])
                self.assertTrue(wanted.schema not in schemas or same_name(wanted.schema, found.schema), (wanted.schema, found.schema))
                self.changes_are_told([wanted, *wanted.columns], [found, *found.columns])
                self.same_columns(wanted, found)
                self.same(wanted.keys, found.keys, lambda key: (key.primary, *key.columns), keys[wanted.schema])
                self.same(wanted.foreign_keys, found.foreign_keys, self.shape_of_foreign_key, keys[wanted.schema])
                self.same(wanted.indexes, found.indexes, lambda index: (index.unique, *index.members), indexes[wanted.schema])

    def check_dropping(self):
        """A script that first drops what it makes can run again."""
        for name in ("bookshop", "nasty"):
            with self.subTest(model=name):
                script = saved(name, ".sql", "--dialect", self.DIALECT, "--drop", "--transaction")
                tables, _ = self.load(f"{name} again", script, times=2)
                self.compare(SavedModel(saved(name, ".json"), self.DIALECT), tables, script)

    def check_others(self, exports):
        """Models of which the test does not know what a database refuses: the script itself must say it."""
        for name in exports:
            with self.subTest(model=name):
                script = saved(name, ".sql", "--dialect", self.DIALECT, "--quote")
                tables, _ = self.load(name, script)
                self.compare_as_told(SavedModel(saved(name, ".json"), self.DIALECT), tables, script.read_bytes().decode())

    def adapt(self, model, tables):
        """Has the model say things as the catalogue does."""

    def compare_as_told(self, model, tables, script):
        """What is missing is left out with a comment, and nothing is there that the model does not have."""
        told = Counter(re.findall(r"^-- Left out: (table|key|foreign key|index|.*ON (?:DELETE|UPDATE)) ", script, re.MULTILINE))
        acts = not any("ON" in what for what in told)
        self.assertEqual(model.table_count - told["table"], len(tables))
        if len(model.tables) > len(tables):
            return
        self.adapt(model, tables)
        missing = Counter()
        for wanted, found in zip(model.tables, tables):
            self.assertEqual([column.required for column in wanted.columns], [column.required for column in found.columns], wanted.name)
            for kind, shape in {"keys": lambda key: (key.primary, *key.columns), "indexes": lambda index: (index.unique, *index.members),
                                "foreign_keys": lambda key: self.shape_of_foreign_key(key) if acts else (key.parent, *sorted(zip(key.columns, key.referenced)))}.items():
                asked, got = (Counter(map(shape, getattr(table, kind))) for table in (wanted, found))
                self.assertFalse(got - asked, (wanted.name, kind))
                missing["foreign key" if kind == "foreign_keys" else "other"] += (asked - got).total()
        self.assertLessEqual(missing["foreign key"], told["foreign key"], missing)
        self.assertLessEqual(missing["other"], told["key"] + told["index"], missing)

    def same(self, wanted, found, shape, settled):
        """The same by `shape`, in any order, and those whose names are settled by their names, too."""
        self.assertEqual(Counter(map(shape, wanted)), Counter(map(shape, found)))
        for item in wanted:
            if item.name in settled:
                self.assertTrue(any(same_name(item.name, other.name) and shape(item) == shape(other) for other in found),
                                f"{item.name!r} is not among {[other.name for other in found]}")

    def changes_are_told(self, wanted, found):
        for item, other in zip(wanted, found):
            if not same_name(item.name, other.name):
                self.assertRegex(self.changes, rf"{re.escape(other.name)} (was: |had no name)")

    def same_columns(self, wanted, found):
        settled = self.settled_columns(wanted, **self.RULES)
        for column, other in zip(wanted.columns, found.columns):
            self.assertEqual((column.required, self.type_of(*column.type) or other.type, plain(column.comment) if self.NAMED else ""),
                             (other.required, other.type, plain(other.comment)), column)
            self.assertTrue(column.name not in settled or same_name(column.name, other.name), (column.name, other.name))

    def compare_views(self, model, views):
        """Those that the database can run are there, with their columns and comments; there are none but the model's."""
        good = [view for view in model.views if view.name in nasty.GOOD_VIEWS] or model.views
        good = filter(self.is_portable, good)
        for view in good:
            with self.subTest(view=view.name):
                wanted = (plain(view.comment) if self.NAMED and self.HAS_VIEW_COMMENTS else "", *map(str.lower, view.columns))
                self.assertIn(wanted, [(plain(other.comment), *map(str.lower, other.columns)) for other in views if same_name(view.name, other.name)])
        for other in views:
            self.assertTrue(any(same_name(view.name, other.name) for view in model.views), other.name)

    @staticmethod
    def shape_of_foreign_key(key):
        return (key.parent, key.on_delete, key.on_update, *sorted(zip(key.columns, key.referenced)))


class SQLite(Database):
    DIALECT = "sqlite"
    RULES = {"longest": 128, "relations": "^sqlite_"}
    NAMED = False
    type_of = staticmethod(sqlite.type_of)

    def load(self, _, script, times=1):
        return sqlite.load(script, times)

    def is_portable(self, view):
        return f"{view.schema}." not in view.statement


@unittest.skipIf(QUICK, "without servers")
class PostgreSQL(Database):
    DIALECT = "postgresql"
    RULES = {"longest": 63, "columns": "^(tableoid|[cx]m(in|ax)|ctid)$"}
    type_of = staticmethod(postgresql.type_of)

    @classmethod
    def setUpClass(cls):
        server = postgresql.PostgreSQL()
        cls.load = staticmethod(server.load)
        cls.addClassCleanup(server.stop)

    def is_portable(self, view):
        return "[" not in view.statement


@unittest.skipIf(QUICK, "without servers")
class MariaDB(Database):
    DIALECT = "mysql"
    RULES = {"longest": 64, "relations": "[\U00010000-\U0010FFFF]", "columns": "[\U00010000-\U0010FFFF]"}
    HAS_VIEW_COMMENTS = False
    type_of = staticmethod(mariadb.type_of)

    @classmethod
    def setUpClass(cls):
        server = mariadb.MariaDB()
        cls.load = staticmethod(server.load)
        cls.addClassCleanup(server.stop)

    def is_portable(self, view):
        return not re.search(r"\[|/\*", view.statement)

    def adapt(self, model, tables):
        """A UNIQUE constraint is an index here. A foreign key that no index begins with gets one of its name."""
        for table, found in zip(model.tables, tables):
            for item in (table, *table.columns):
                item.comment = re.sub("[\U00010000-\U0010FFFF]", "?", item.comment)  # as which it keeps them
            table.indexes += [Index(key.name, [(column, False) for column in key.columns], True) for key in table.keys if not key.primary]
            table.keys = [Key("", key.columns, True) for key in table.keys if key.primary]  # which has no name
            asked = [sorted(index.members) for index in table.indexes]
            made = [[(column, False) for column in key.columns] for key in found.foreign_keys]
            found.indexes = [index for index in found.indexes if sorted(index.members) in asked and index.members not in made or index.unique or index.members in
                             [other.members for other in table.indexes] or index.members not in made]

    @staticmethod
    def shape_of_foreign_key(key):
        """To refuse at the end of a statement is to refuse at once. There are no defaults to set."""
        return tuple("RESTRICT" if part in ("NO ACTION", "SET DEFAULT") else part for part in Database.shape_of_foreign_key(key))


class Graphviz(Comparison):
    def check(self, name):
        """A box for each table and view with all its names in it, and an edge for each relationship and each source of a view."""
        model = SavedModel(saved(name, ".json"))
        done = subprocess.run(["dot", "-Tsvg", saved(name, ".dot")], capture_output=True)
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        groups = defaultdict(list)
        for group in ElementTree.fromstring(done.stdout).findall(".//{*}g"):
            groups[group.get("class")].append((group.find("{*}title").text, {one_line(text.text) for text in group.findall(".//{*}text")}))
        relations, *_ = self.settled_names(model, longest=128)
        self.assertEqual(len(groups["node"]), len(model.tables) + len(model.views))
        boxes = dict(groups["node"])
        for number, table in enumerate(model.tables, 1):
            settled = {table.name} & relations[table.schema] | self.settled_columns(table, longest=128)
            self.assertLessEqual(set(map(one_line, settled)), boxes[f"t{number}"])
        self.assertEqual(len(groups["edge"]), model.relationships + sum(len(item["sourceElements"]) for item in model.view_items))


@unittest.skipIf(QUICK, "without Node")
class Parsers(Comparison):
    """What the parsers of other programs find in a file against what the model has."""

    # By parser: the file's extension and the options of its import.
    FILES = {
        "json": [".json"], "dbml10": [".dbml"], "dbml3": [".dbml"], "mermaid": [".mmd"], "marked": [".md"],
        "mysql": [".sql", "--dialect", "mysql"], "mssql": [".sql", "--dialect", "sqlserver"], "oracle": [".sql", "--dialect", "oracle"],
    }
    # Which names a dialect does not take.
    RULES = {"mysql": {"longest": 64, "relations": "[\U00010000-\U0010FFFF]", "columns": "[\U00010000-\U0010FFFF]"},
             "mssql": {"longest": 128}, "oracle": {"longest": 128, "relations": '"', "columns": '"|^rowid$'}}

    @classmethod
    def setUpClass(cls):
        jobs = [(name, parser) for name in exports() for parser in cls.FILES]
        files = [(parser, saved(name, *cls.FILES[parser])) for name, parser in jobs]
        cls.found = defaultdict(dict)
        for (name, parser), result in zip(jobs, parse(files)):
            cls.found[name][parser] = result

    def check(self, name):
        for parser, found in self.found[name].items():
            with self.subTest(parser=parser):
                self.assertNotIn("error", found)
                language = re.sub("[0-9]", "", parser)
                dialect = self.FILES[language][-1] if language in self.RULES else ""
                getattr(self, f"compare_{language}", self.compare_sql)(SavedModel(saved(name, ".json"), dialect), found, language)

    def compare_json(self, *_):
        """Its schema says all."""

    def compare_sql(self, model, found, language):
        self.compare_tables(model, found["tables"], **self.RULES[language])
        self.assertEqual(found["references"], sum(len(table.foreign_keys) for table in model.tables))

    def compare_dbml(self, model, found, _):
        for table in model.tables:
            table.columns = table.columns or [Column("no columns", (), False)]  # DBML wants one
        self.compare_tables(model, found["tables"], longest=128)
        # No two references may have the same ends, and none the same at both.
        ends = {frozenset([(number, *sorted(key.columns)), (key.parent, *sorted(key.referenced))])
                for number, table in enumerate(model.tables) for key in table.foreign_keys}
        self.assertEqual(found["references"], sum(len(both) == 2 for both in ends))

    def compare_mermaid(self, model, found, _):
        # It knows column names by their letters, and takes some for keys.
        qualified = len({table.schema for table in model.tables}) > 1
        self.compare_tables(model, found["tables"], qualified=qualified, longest=128, columns=r"[^a-z0-9_]|^[^a-z]|^[pfu]k")
        self.assertEqual(found["references"], model.relationships)

    def compare_marked(self, model, found, _):
        """In the order of the schemas, but all names as they are, and nothing that a text has made."""
        self.assertEqual(found["strange"], [])
        wanted = Counter((one_line(name_of(item)) or "(no name)", *((one_line(name_of(column)), one_line(column["name"] or name_of(column)))
                                                                 for column in item["attributes"])) for item in model.classes + model.view_items)
        self.assertEqual(wanted, Counter((one_line(table["name"]) or "(no name)", *(tuple(map(one_line, names)) for names in table["columns"])) for table in found["tables"]))

    def compare_tables(self, model, tables, qualified=None, **rules):
        """All tables and columns in their order; `qualified`: whether a table's name has that of its schema in it; None: both are told."""
        self.assertEqual(len(tables), len(model.tables))
        relations, *_ = self.settled_names(model, **rules)
        schemas = unchanged(dict.fromkeys(table.schema for table in model.tables))
        for number, (wanted, found) in enumerate(zip(model.tables, tables)):
            with self.subTest(table=wanted.name, number=number):
                if wanted.name in relations[wanted.schema] and wanted.schema in schemas:
                    names = {None: (wanted.schema, wanted.name), True: ("", f"{wanted.schema}.{wanted.name}"), False: ("", wanted.name)}[qualified]
                    self.assertEqual((found["schema"], found["name"]), names)
                settled = self.settled_columns(wanted, **rules)
                self.assertEqual([name if column.name in settled else None for column, name in zip(wanted.columns, found["columns"], strict=True)],
                                 [column.name if column.name in settled else None for column in wanted.columns])


class HostileViews(unittest.TestCase):
    def test_do_nothing_but_make_views(self):
        servers = {} if QUICK else {"postgresql": postgresql.PostgreSQL(), "mysql": mariadb.MariaDB()}
        for server in servers.values():
            self.addCleanup(server.stop)
        tried, live = hostile.check_round(random.Random(0), servers, 80 if QUICK else 400)
        for dialect, count in live.items():
            self.assertGreater(count, tried[dialect] / 10, dialect)


class Limits(unittest.TestCase):
    """What outgrows a format."""

    def write(self, model, extension):
        with tempfile.TemporaryDirectory() as folder:
            export, out = Path(folder) / "export.txt", Path(folder) / f"model{extension}"
            model.write(export)
            done = subprocess.run([VORN, "import", export, "-q", "-o", out], check=True, capture_output=True, text=True)
            return out.read_text(encoding="utf-8"), done.stderr

    def test_mermaid_draws_500_edges(self):
        for edges, said in [(500, ""), (501, "left out: 1 of the relationships")]:
            model = nasty.Builder("edges", "Oracle", "10.0")
            model.domain("number", "NUMBER", 9)
            model.table("parent", "id")
            model.table("child", "id")
            for number in range(edges):
                model.link("child", "id", "parent", f"r{number}")
            text, log = self.write(model, ".mmd")
            self.assertEqual(len(re.findall(r'" \S\S(--|\.\.)\S\S "', text)), 500)
            self.assertEqual(said in log and bool(log), bool(said), log)

    def test_mermaid_leaves_out_comments_then_columns_of_no_key(self):
        model = nasty.Builder("letters", "Oracle", "10.0")
        model.domain("number", "NUMBER", 9)
        table = model.table("t", "id " + " ".join(f"{number:x<120}" for number in range(400)))
        table.columns["id"].description = ["A number"]
        text, log = self.write(model, ".mmd")
        self.assertRegex(text, r'"t" \{\n +\S+ id PK\n +\}')
        self.assertIn("left out: comments, columns of no key\n", log)


class Models(unittest.TestCase):
    def test_are_written_in_every_format_and_dialect(self):
        formats, dialects = (json.loads(subprocess.run([VORN, command, "--json"], capture_output=True).stdout) for command in ("formats", "dialects"))
        for name in exports():
            for written in formats:
                self.assertGreater(saved(name, written["extension"]).stat().st_size, 0)
            for dialect in dialects:
                self.assertGreater(saved(name, ".sql", "--dialect", dialect["name"], "--names", "logical", "--views", "always").stat().st_size, 0)

    def test_are_indented_and_escaped_as_json_is_by_others(self):
        for name in exports():
            text = saved(name, ".json").read_text(encoding="utf-8")
            written = re.sub(r"\\u00[01]\w", lambda escape: escape[0].lower(), text)
            self.assertEqual(written, json.dumps(json.loads(text), indent=2, ensure_ascii=False) + "\n")

    def test_have_every_type_of_the_schema(self):
        found = {kind["dataType"] for name in exports() for kind in json.loads(saved(name, ".json").read_bytes())["types"] if "dataType" in kind}
        self.assertEqual(found, set(json.loads(saved_schema().read_bytes())["$defs"]["dataType"]["enum"]))


CASES = (SQLite, PostgreSQL, MariaDB, Graphviz, Parsers)


def load_tests(_, tests, __):
    """A test of each kind for every model."""
    for case in CASES:
        for name in exports():
            setattr(case, f"test_{name}", functools.partialmethod(case.check, name))
        if issubclass(case, Database):
            case.test_dropping = case.check_dropping
            for others in (limit_exports, random_exports, acceptance_exports):
                setattr(case, f"test_{others.__name__}", lambda test, others=others: test.check_others(others()))
    return unittest.TestSuite([tests, *map(unittest.defaultTestLoader.loadTestsFromTestCase, CASES)])


if __name__ == "__main__":
    result = unittest.main(verbosity=0, exit=False).result
    # Several parts of a test may fail.
    bad = len({getattr(test, "test_case", test).id() for test, _ in result.failures + result.errors})
    print(f"{max(0, result.testsRun - len(result.skipped) - bad)} passed, {bad} failed")
    sys.exit(bad != 0)
