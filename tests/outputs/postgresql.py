"""A PostgreSQL server for as long as the tests run, and what its catalogue says of a database."""
import json
import re
import subprocess
from pathlib import Path

from model import TYPES, Column, ForeignKey, Index, Key, Table, View
from server import Server

PROGRAMS = Path("/usr/lib/postgresql/15/bin")
ACTIONS = {"a": "NO ACTION", "r": "RESTRICT", "c": "CASCADE", "n": "SET NULL", "d": "SET DEFAULT"}


def type_of(host_type, length, scale):
    """What the server calls it. Nothing where the test does not say, or the sizes are none that a type can have."""
    pattern = TYPES.get(host_type, {}).get("PostgreSQL's name")  # with L and S for length and scale
    if not pattern or not 0 <= scale <= length <= 1000:
        return None
    if length == 0:
        return {"character(L)": "character(1)"}.get(pattern, re.sub(r"\(L.*\)", "", pattern))
    return re.sub("[LS]", lambda letter: str(length if letter[0] == "L" else scale), pattern)


TABLES = Path(__file__).with_name("catalogue.sql").read_text()


class PostgreSQL(Server):
    USER = "postgres"

    def install(self):
        self.run([*self.unprivileged, PROGRAMS / "initdb", "-D", "data", "-U", "postgres", "-A", "trust", "-E", "UTF8",
                  "--locale=C", "--no-sync"])

    def command(self):
        return [PROGRAMS / "postgres", "-D", "data", "-k", self.folder, "-c", "fsync=off", "-c", "listen_addresses="]

    def is_ready(self):
        return not subprocess.run([PROGRAMS / "pg_isready", "-q", "-h", self.folder]).returncode

    def psql(self, database, *arguments, **options):
        return self.run([PROGRAMS / "psql", "-X", "-q", "-At", "-h", self.folder, "-U", "postgres", database,
                         *arguments], **options)

    def load(self, database, script, times=1):
        """Makes a database of the script; its tables and views in the order in which they were made."""
        self.psql("postgres", "-c", f'create database "{database}"')
        for _ in range(times):
            with script.open("rb") as content:
                self.psql(database, stdin=content)
        rows = json.loads(self.psql(database, "-c", f"select json_agg(t) from ({TABLES}) t").strip() or "[]")
        tables = [row for row in rows if row["kind"] == "r"]
        numbers = {row["oid"]: number for number, row in enumerate(tables)}
        views = [View(row["name"], row["schema"], row["comment"], [column[0] for column in row["columns"]])
                 for row in rows if row["kind"] == "v"]
        return [to_table(row, numbers) for row in tables], views


def to_table(row, numbers):
    def places(columns):
        return [column - 1 for column in columns]

    table = Table(row["name"], row["schema"], row["comment"], [Column(*column) for column in row["columns"]], [], [], [])
    for constraint in row["constraints"]:
        columns = places(constraint["columns"])
        if constraint["kind"] == "f":
            table.foreign_keys.append(ForeignKey(
                constraint["name"], columns, numbers[constraint["parent"]], places(constraint["referenced"]),
                ACTIONS[constraint["delete"]], ACTIONS[constraint["update"]]))
        else:
            table.keys.append(Key(constraint["name"], columns, constraint["kind"] == "p"))
    table.indexes = [Index(index["name"], [(place, bool(option & 1)) for place, option in zip(places(index["columns"]), index["options"])],
                           index["unique"]) for index in row["indexes"]]
    return table
