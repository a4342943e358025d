#!/usr/bin/env python3
"""Views whose statements try to do more than make a view, and the proof that none does.

    hostile.py VORN [ROUNDS [SEED]]      many more than the tests of the outputs try, with servers

Statements are soups of what opens, closes and escapes in some dialect, of the words of clients and of line breaks; many look
like queries that a person could have written. The scripts are run by real clients beside canaries, and read for every dialect by
clients.py.
"""
import json
import random
import re
import sqlite3
import subprocess
import sys
import tempfile
from pathlib import Path

import clients
import mariadb
import postgresql
from nasty import Builder
from support import VORN

# The dialect that a script is written in without a word is that of the model's system.
SYSTEMS = {"oracle": ("Oracle", "10.0"), "sqlserver": ("SQL Server", "10.0"), "db2": ("DB2 UDB", "8.0")}
DIALECTS = ("ansi", "postgresql", "sqlite", "mysql", "sqlserver", "oracle", "db2")

QUERIES = [
    "SELECT id FROM parent", "SELECT p.id, p.name AS n FROM parent p WHERE p.id > 5", "SELECT COUNT(*) AS n FROM parent GROUP BY name",
    "SELECT 'a' AS t, id FROM parent", "SELECT a.id FROM parent a\rINNER JOIN child b ON a.id = b.parent\rWHERE b.note = 'x'",
    "WITH w AS (SELECT id FROM parent) SELECT id FROM w", "SELECT id -- the number\rFROM parent", "SELECT /* all */ id FROM parent",
    "SELECT \"id\" FROM parent", "SELECT id FROM parent\rUNION ALL\rSELECT id FROM child", "SELECT id FROM (SELECT id FROM parent) x"]
ACTS = ["\\! touch PWNED", "DROP TABLE canary", "DROP TABLE canary;", "; DROP TABLE canary;", ";DELETE FROM canary;--", "\\gexec", ".shell touch PWNED",
        ".read x", "system touch PWNED", "source x", "GO", "go 2", "/", ".", "EXIT", "QUIT", ":r x", "!!touch PWNED", "!touch PWNED", "#HOST touch PWNED",
        "HOST touch PWNED", "@x", "@@x", "--#SET TERMINATOR @", "delimiter $$", "DELIMITER ;;", "TERMINATE", "\\q", "\\c x", "\\copy canary from program 'touch PWNED'"]
MARKS = ["'", "''", "'''", "\"", "\"\"", "`", "[", "]", "$$", "$x$", "$", "$(PATH)", "&x", ":x", ":'x'", "::", "@", "#", "\\", "\\'", "\\\\", ";", "; ", "-", "--",
         "-- ", "/*", "*/", "/* ", " */", "/*!", "/*+", "/*M!", "E'", "e'", "N'", "n'", "U&'", "u&\"", "X'", "B'", "_utf8'", "q'[", "]'", "Q'('", ")'", "nq'{", "}'", "q''",
         "(", ")", ",", ".", "%", "|", "||", "!", "=", "<", ">", "+", "*", "?", "{", "}", "{oj ", "\r", "\r", "\r\r", "\n", " ", "\x0b", "\x0c", "\u2028", "\u0085",
         "\u00a0", "\u3000", "\u2019", "\uff07", "\uff1b", "\u00e9", "\u00df", "\ufeff", " x ", "x", "1", "1e5", "0x41", "AS", " AND ", " NULL ", " text ", "DROP TABLE canary"]
# Where it is safe: letters and what means nothing in a literal or comment.
CALM = ["all", " ", " of ", "it", ", ", "5", "b.c", " - ", "*", "(x)", "\u00e9", "%", "=", " select ", " drop table canary "]


def literal(text):
    return "'" + text.replace("'", "''") + "'"


def soup(rng, *lists, most=6):
    return "".join(rng.choice(rng.choice(lists)) for _ in range(rng.randint(1, most)))


def statement(rng):
    query = rng.choice(QUERIES)
    kind = rng.randrange(6)
    if kind == 0:  # anything, anywhere
        for _ in range(rng.randint(1, 3)):
            place = rng.randint(0, len(query))
            query = query[:place] + soup(rng, MARKS, MARKS, ACTS, most=3) + query[place:]
    elif kind == 1:  # a literal that might end early, or with it what follows
        open_, close = rng.choice([("'", "'"), ("$$", "$$"), ("E'", "'"), ("N'", "'"), ("q'[", "]'"), ("q'-", "-'"), ("U&'", "'"), ("'", "' ")])
        query = f"SELECT {open_}{soup(rng, MARKS, CALM, ACTS)}{close} AS t, id FROM parent"
    elif kind == 2:  # the same, whole by the standard
        query = f"SELECT {literal(soup(rng, MARKS, CALM, CALM, ACTS, most=4))} AS t, id FROM parent"
    elif kind == 3:  # comments
        inside = soup(rng, MARKS, CALM, CALM, CALM, ACTS, most=4)
        comment = rng.choice([f"/* {inside} */", f"/*{inside}*/", f"-- {inside}\r", f"--{inside}\r", f"# {inside}\r"])
        query = query.replace(" ", " " + comment + " ", 1)
    elif kind == 4:  # a quote that one reader opens and another does not, around an act on lines of its own
        quote = rng.choice(["'", "\"", "`", "$$'$$", "q'-'-'", "E'\\' '", "p#'", "N'", "/*", "$x$'$x$", "\\'"])
        query = f"SELECT id, {quote}\r{rng.choice(ACTS)}\r{rng.choice(['--', '#', '', '/*'])}{quote[-1]}\rFROM parent"
    else:  # a line between others
        lines = query.replace(" FROM", "\rFROM").split("\r")
        lines.insert(rng.randint(0, len(lines)), rng.choice(ACTS) if rng.random() < 0.5 else soup(rng, CALM, MARKS, most=2))
        query = "\r".join(lines)
    return query


def export(path, rng, dialect, count):
    model = Builder("hostile", *SYSTEMS.get(dialect, ("ANSI SQL92", "1.0")))
    for name, native in (("number", "INTEGER"), ("text", "CHARACTER VARYING")):
        model.domain(name, native, 9)
    texts = [soup(rng, MARKS, ACTS) for _ in range(5)]  # the other texts of a script are nobody's either
    model.table("parent", "id:number! name:text", description=[texts[0]])
    model.table("child", "id:number! parent:number note:text", description=[texts[1]])
    odd = model.table("odd", "id:number!", name=texts[2], synonym=texts[3], owner="app")
    odd.columns["id"].description = [texts[4]]
    for number in range(count):
        model.view(f"v{number}", statement(rng))
    model.write(path)


def run(command, script, folder, **options):
    """Runs a client to the end of the script; what it says does not matter."""
    with script.open("rb") as content:
        subprocess.run(list(map(str, command)), stdin=content, cwd=folder, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=300, **options)


class Rooms:
    """Places with canaries, in each of which a client runs a script; then what is there is compared."""
    CANARY = "CREATE TABLE canary (sings INTEGER); INSERT INTO canary VALUES (1)"

    def __init__(self, servers):
        self.servers = servers

    def sqlite(self, script, folder):
        path = folder / "database"
        with sqlite3.connect(path) as database:
            database.executescript(self.CANARY)
        run(["sqlite3", path], script, folder)
        with sqlite3.connect(path) as database:
            assert database.execute("SELECT sings FROM canary").fetchall() == [(1,)]
            path.unlink()
            return [(kind, name) for kind, name in database.execute("SELECT type, name FROM sqlite_schema WHERE type IN ('table', 'view', 'trigger')")]

    def postgresql(self, script, folder):
        server = self.servers["postgresql"]
        server.psql("postgres", "-c", "DROP DATABASE IF EXISTS hostile", "-c", "CREATE DATABASE hostile")
        server.psql("hostile", "-c", self.CANARY)
        run([postgresql.PROGRAMS / "psql", "-X", "-q", "-h", server.folder, "-U", "postgres", "hostile"], script, folder)
        assert server.psql("hostile", "-c", "SELECT sings FROM canary").strip() == "1"
        names = server.psql("hostile", "-c", "SELECT json_agg(json_build_array(relkind, relname)) FROM pg_class c JOIN pg_namespace n ON n.oid = relnamespace "
                            "WHERE relkind IN ('r', 'v', 'm', 'S', 'p', 'f') AND nspname NOT LIKE 'pg~_c%' ESCAPE '~' AND nspname NOT LIKE 'pg~_t%' ESCAPE '~' "
                            "AND nspname <> 'information_schema'")
        return [({"r": "table", "v": "view"}.get(kind, kind), name) for kind, name in json.loads(names)]

    def mysql(self, script, folder):
        server = self.servers["mysql"]
        server.client("-e", "DROP DATABASE IF EXISTS app; CREATE DATABASE app; USE app; " + self.CANARY)
        run(["mariadb", *server.options(), "--default-character-set=utf8mb4", "--force", "app"], script, folder)
        assert server.client("-e", "SELECT sings FROM app.canary").strip() == "1"
        rows = server.ask("SELECT JSON_ARRAY(table_type, table_name) FROM information_schema.tables WHERE table_schema = 'app'")
        return [({"BASE TABLE": "table", "VIEW": "view"}.get(kind, kind), name) for kind, name in rows]


def check_round(rng, servers, count):
    """One export per dialect, written with all views and with those that are portable; how many statements were tried, how many written."""
    rooms = Rooms(servers)
    tried, live = dict.fromkeys(DIALECTS, 0), dict.fromkeys(DIALECTS, 0)
    with tempfile.TemporaryDirectory(prefix="vorn-hostile-") as name:
        for dialect in DIALECTS:
            path = Path(name) / f"{dialect}.txt"
            export(path, rng, dialect, count)
            for choice in ("always", "safe"):
                script = path.with_name(f"{dialect}-{choice}.sql")
                subprocess.run([VORN, "import", path, "-q", "--encoding", "utf-8", "--dialect", dialect, "--views", choice, "-o", script], check=True,
                               capture_output=True)
                views = clients.read(script.read_bytes().decode(), dialect)
                tried[dialect] += count
                live[dialect] += len(views)
                if dialect in servers or dialect == "sqlite":
                    check_room(getattr(rooms, dialect), script, Path(name) / "room", views)
    return tried, live


def check_room(load, script, folder, views):
    folder.mkdir()
    folder.chmod(0o777)
    found = load(script, folder)
    assert list(folder.iterdir()) == [], f"{script}: a file was made"
    folder.rmdir()
    kinds = {kind for kind, _ in found}
    assert kinds <= {"table", "view"}, kinds
    assert len([name for kind, name in found if kind == "table"]) == 4, [name for kind, name in found if kind == "table"]
    made = {name for kind, name in found if kind == "view"}
    assert made <= set(views), made - set(views)


if __name__ == "__main__":
    rounds, seed = (list(map(int, sys.argv[2:])) + [20, 0][len(sys.argv) - 2:])[:2]
    servers = {"postgresql": postgresql.PostgreSQL(), "mysql": mariadb.MariaDB()}
    try:
        for number in range(rounds):
            tried, live = check_round(random.Random(f"{seed} {number}"), servers, 500)
            print(number, " ".join(f"{dialect} {live[dialect]}/{tried[dialect]}" for dialect in DIALECTS), flush=True)
    finally:
        for server in servers.values():
            server.stop()
