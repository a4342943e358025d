"""A MariaDB server for as long as the tests run, and what its catalogue says of a database."""
import json
import re
import subprocess
from pathlib import Path

from model import TYPES, Column, ForeignKey, Index, Key, Table, View
from server import Server

CATALOGUE = Path(__file__).with_name("mariadb.sql").read_text()
NAME = r"(?:`((?:[^`]|``)+)`|(\w+))"


def type_of(host_type, length, scale):
    """What the server calls it. Nothing where the test does not say, or the sizes are none that a type can have."""
    pattern = TYPES.get(host_type, {}).get("MariaDB's name")  # with L and S for length and scale
    if not pattern or "L" in pattern and not 0 < length <= 60 or not 0 <= scale <= min(length, 30):
        return None
    return re.sub("[LS]", lambda letter: str(length if letter[0] == "L" else scale), pattern)


class MariaDB(Server):
    USER = "mysql"
    HOME = "app_home"  # the database of what has no schema

    def install(self):
        self.run([*self.unprivileged, "mariadb-install-db", "--no-defaults", f"--datadir={self.folder}/data", "--auth-root-authentication-method=normal",
                  "--skip-test-db", "--skip-name-resolve"])

    def command(self):
        return ["mariadbd", "--no-defaults", f"--datadir={self.folder}/data", f"--socket={self.folder}/socket",
                f"--pid-file={self.folder}/pid", "--skip-networking", "--skip-log-bin", "--debug-no-sync", "--innodb-flush-method=nosync",
                "--innodb-flush-log-at-trx-commit=0", "--innodb-file-per-table=0", "--character-set-server=utf8mb4"]

    def is_ready(self):
        return not subprocess.run(["mariadb-admin", *self.options(), "ping"], capture_output=True).returncode

    def options(self):
        return ["--no-defaults", f"--socket={self.folder}/socket", "--user=root"]

    def client(self, *arguments, **options):
        return self.run(["mariadb", *self.options(), "--default-character-set=utf8mb4", "--skip-column-names", "--raw", *arguments], **options)

    def ask(self, query):
        return [json.loads(line) for line in self.client("-e", query).splitlines()]

    def load(self, _, script, times=1):
        """Runs the script in an empty server; its tables, in the order in which they are made, and views."""
        databases = "select json_quote(schema_name) from information_schema.schemata where schema_name not in " \
            "('mysql', 'sys', 'information_schema', 'performance_schema')"
        drops = "".join("drop database `{}`;".format(name.replace("`", "``")) for name in self.ask(databases))
        self.client("-e", f"set foreign_key_checks = 0; {drops} create database {self.HOME}")
        for _ in range(times):
            with script.open("rb") as content:
                self.client("--force", self.HOME, stdin=content)
        # The catalogue does not say in which order tables were made.
        names = [tuple((quoted.replace("``", "`") or plain) for quoted, plain in [name[:2], name[2:]]) for name in
                 re.findall(rf"^CREATE TABLE (?:{NAME}\.)?{NAME} \(", script.read_bytes().decode(), re.MULTILINE)]
        return read([(schema or self.HOME, name) for schema, name in names], self.ask(CATALOGUE))


def read(order, rows):
    """The tables, in the order of their names, and the views that the rows describe. A UNIQUE constraint is an index, as the
    server sees it; indexes that the server makes for foreign keys are there, too."""
    places = {name: place for place, name in enumerate(order)}
    tables, views = [None] * len(order), []
    by_name, keys, indexes = {}, {}, {}
    for kind, schema, name, *facts in rows:
        table = by_name.get((schema, name))
        if kind == "table":
            is_table = facts[0] == "BASE TABLE"
            by_name[schema, name] = Table(name, schema, facts[1], [], [], [], [])
            if is_table:
                tables[places[schema, name]] = by_name[schema, name]
            else:
                views.append(by_name[schema, name])
        elif kind == "column":
            column, declared, required, comment = facts
            table.columns.append(Column(column, declared, bool(required), comment))
        elif kind == "index":
            index, unique, column, descending = facts
            indexes.setdefault((schema, name, index), Index(index, [], bool(unique))).members.append((place_of(column, table), bool(descending)))
        else:
            key, column, parent_schema, parent, referenced, on_delete, on_update = facts
            key = keys.setdefault((schema, name, key), ForeignKey(key, [], places[parent_schema, parent], [], on_delete, on_update))
            key.columns.append(place_of(column, table))
            key.referenced.append(place_of(referenced, tables[key.parent]))
    for (schema, name, _), key in keys.items():
        by_name[schema, name].foreign_keys.append(key)
    for (schema, name, index_name), index in indexes.items():
        table = by_name[schema, name]
        columns = [column for column, _ in index.members]
        if index_name == "PRIMARY":
            table.keys.append(Key("", columns, True))
        else:
            table.indexes.append(index)
    return tables, [View(view.name, view.schema, "", [column.name for column in view.columns]) for view in views]


def place_of(column, table):
    return [other.name for other in table.columns].index(column)
