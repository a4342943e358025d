"""A database of SQLite made of a script, and what its catalogue says of it."""
import re
import sqlite3

from model import TYPES, Column, ForeignKey, Index, Key, Table, View

# What a type's name makes of values, by SQLite's own rules: the first that fits.
AFFINITIES = [("INT", "INTEGER"), ("CHAR|CLOB|TEXT", "TEXT"), ("BLOB|^$", "BLOB"), ("REAL|FLOA|DOUB", "REAL"), ("", "NUMERIC")]


def type_of(host_type, *_):
    return TYPES.get(host_type, {}).get("SQLite's affinity")


def quoted(name):
    return '"' + name.replace('"', '""') + '"'


def load(script):
    """Runs the script in a new database; its tables and views in the order in which they were made."""
    with sqlite3.connect(":memory:") as database:
        database.execute("PRAGMA foreign_keys = ON")
        database.executescript(script.read_bytes().decode())
        objects = database.execute("SELECT type, name FROM sqlite_schema WHERE name NOT LIKE 'sqlite~_%' ESCAPE '~' ORDER BY rowid").fetchall()
        names = [name for kind, name in objects if kind == "table"]
        tables = [Reader(database, name).table for name in names]
        numbers = {name.lower(): number for number, name in enumerate(names)}
        for table in tables:
            database.execute(f"DELETE FROM {quoted(table.name)}")  # fails where a foreign key does not fit what it refers to
            for key in table.foreign_keys:
                key.parent = numbers[key.parent.lower()]
                places = [column.name for column in tables[key.parent].columns]
                key.referenced = [places.index(name) for name in key.referenced]
        assert not database.execute("PRAGMA foreign_key_check").fetchall()
        views = [View(name, "", "", [row[0] for row in database.execute(f"SELECT * FROM {quoted(name)}").description])
                 for kind, name in objects if kind == "view"]
    return tables, views


class Reader:
    def __init__(self, database, name):
        self.database, self.name = database, name
        columns = self.ask("table_xinfo", name)
        self.table = Table(name, "", "", [Column(column, affinity(declared), bool(required)) for _, column, declared, required, *_ in columns], [], [], [])
        self.places = {column.name: place for place, column in enumerate(self.table.columns)}
        primary = [place for number, place in sorted((row[5], row[0]) for row in columns) if number]
        if primary:
            self.table.keys.append(Key("", primary, True))
        for _, index, unique, origin, _ in reversed(self.ask("index_list", name)):
            members = [(place, bool(descending)) for _, place, _, descending, _, is_key in self.ask("index_xinfo", index) if is_key]
            if origin == "c":
                self.table.indexes.append(Index(index, members, bool(unique)))
            elif origin == "u":
                self.table.keys.append(Key("", [place for place, _ in members], False))
        self.read_foreign_keys()

    def ask(self, pragma, name):
        return self.database.execute(f"PRAGMA {pragma}({quoted(name)})").fetchall()

    def read_foreign_keys(self):
        keys = {}
        for number, _, parent, column, referenced, on_update, on_delete, _ in self.ask("foreign_key_list", self.name):
            key = keys.setdefault(number, ForeignKey("", [], parent, [], on_delete, on_update))
            key.columns.append(self.places[column])
            key.referenced.append(referenced)
        self.table.foreign_keys = list(keys.values())


def affinity(declared):
    return next(name for pattern, name in AFFINITIES if re.search(pattern, declared.upper()))
