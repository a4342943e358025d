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


def load(script, times=1):
    """Runs the script in a new database, as often as told; its tables and views in the order in which they were made."""
    with sqlite3.connect(":memory:") as database:
        for _ in range(times):
            database.execute("PRAGMA foreign_keys = ON")
            database.executescript(script.read_bytes().decode())
        objects = database.execute("SELECT type, name FROM sqlite_schema WHERE name NOT LIKE 'sqlite~_%' ESCAPE '~' ORDER BY rowid").fetchall()
        names = [name for kind, name in objects if kind == "table"]
        tables = [read_table(database, name) for name in names]
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


def read_table(database, name):
    """Its foreign keys have their parents, and the columns there, by their names."""
    def ask(pragma, subject=name):
        return database.execute(f"PRAGMA {pragma}({quoted(subject)})").fetchall()

    columns = ask("table_xinfo")
    table = Table(name, "", "", [], [], [], [])
    table.columns = [Column(column, affinity(kind), bool(required)) for _, column, kind, required, *_ in columns]
    primary = [place for number, place in sorted((row[5], row[0]) for row in columns) if number]
    if primary:
        table.keys.append(Key("", primary, True))
    for _, index, unique, origin, _ in reversed(ask("index_list")):
        members = [(place, bool(descending)) for _, place, _, descending, _, is_key in ask("index_xinfo", index) if is_key]
        if origin == "c":
            table.indexes.append(Index(index, members, bool(unique)))
        elif origin == "u":
            table.keys.append(Key("", [place for place, _ in members], False))
    places = {column.name: place for place, column in enumerate(table.columns)}
    keys = {}
    for number, _, parent, column, referenced, on_update, on_delete, _ in ask("foreign_key_list"):
        key = keys.setdefault(number, ForeignKey("", [], parent, [], on_delete, on_update))
        key.columns.append(places[column])
        key.referenced.append(referenced)
    table.foreign_keys = list(keys.values())
    return table


def affinity(declared):
    return next(name for pattern, name in AFFINITIES if re.search(pattern, declared.upper()))
