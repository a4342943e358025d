"""A PostgreSQL server for as long as the tests run, and what its catalogue says of a database."""
import json
import os
import re
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

from model import Column, ForeignKey, Index, Key, Table, View

PROGRAMS = Path("/usr/lib/postgresql/15/bin")
ACTIONS = {"a": "NO ACTION", "r": "RESTRICT", "c": "CASCADE", "n": "SET NULL", "d": "SET DEFAULT"}

# What the server calls a column of the host's type; L and S are its length and scale, left out where they are 0.
TYPES = {
    "CHAR": "character(L)", "NCHAR": "character(L)", "VARCHAR": "character varying(L)", "NVARCHAR": "character varying(L)",
    "CLOB": "text", "NCLOB": "text", "BLOB": "bytea", "VARBINARY": "bytea", "BOOLEAN": "boolean", "BIT VARYING": "bit varying(L)",
    "TINYINT": "smallint", "SMALLINT": "smallint", "INTEGER": "integer", "SERIAL": "integer", "BIGINT": "bigint",
    "DECIMAL": "numeric(L,S)", "NUMERIC": "numeric(L,S)", "MONEY": "numeric(19,4)", "REAL": "real", "UUID": "uuid", "XML": "xml",
    "DOUBLE PRECISION": "double precision", "DATE": "date", "SMALLDATETIME": "timestamp(0) without time zone",
    "INTERVAL DAY TO SECOND": "interval day to second", "ARRAY": "text[]", "OBJECT": "jsonb",
}



def type_of(host_type, length, scale):
    """Nothing where the test does not say, or the sizes are none that a type can have."""
    pattern = TYPES.get(host_type)
    if pattern is None or not 0 <= scale <= length <= 1000:
        return None
    if length == 0:
        return {"character(L)": "character(1)"}.get(pattern, re.sub(r"\(L.*\)", "", pattern))
    return re.sub("[LS]", lambda letter: str(length if letter[0] == "L" else scale), pattern)


TABLES = """
select c.oid::int, c.relname as name, n.nspname as schema, c.relkind as kind, coalesce(obj_description(c.oid, 'pg_class'), '') as comment,
  (select coalesce(json_agg(json_build_array(attname, format_type(atttypid, atttypmod), attnotnull,
                                             coalesce(col_description(c.oid, attnum), '')) order by attnum), '[]')
   from pg_attribute where attrelid = c.oid and attnum > 0) as columns,
  (select coalesce(json_agg(json_build_object('name', conname, 'kind', contype, 'columns', conkey, 'parent', confrelid::int,
                                              'referenced', confkey, 'delete', confdeltype, 'update', confupdtype) order by oid), '[]')
   from pg_constraint where conrelid = c.oid) as constraints,
  (select coalesce(json_agg(json_build_object('name', x.relname, 'columns', i.indkey::int[], 'options', i.indoption::int[],
                                              'unique', i.indisunique) order by x.oid), '[]')
   from pg_index i join pg_class x on x.oid = i.indexrelid
   where i.indrelid = c.oid and not exists (select from pg_constraint where conindid = x.oid and conrelid = c.oid)) as indexes
from pg_class c join pg_namespace n on n.oid = c.relnamespace
where c.relkind in ('r', 'v') and c.oid >= 16384 order by c.oid"""  # below are the system's own


class Server:
    def __init__(self):
        self.folder = Path(tempfile.mkdtemp(prefix="vorn-postgresql-"))
        # It refuses to be run by the superuser. It ends with the tests, however they end.
        self.unprivileged = []
        if os.geteuid() == 0:
            shutil.chown(self.folder, "postgres", "postgres")
            self.unprivileged = ["setpriv", "--reuid=postgres", "--regid=postgres", "--clear-groups"]
        self.run([*self.unprivileged, PROGRAMS / "initdb", "-D", "data", "-U", "postgres", "-A", "trust", "-E", "UTF8",
                  "--locale=C", "--no-sync"])
        self.process = subprocess.Popen(
            [*self.unprivileged, "setpriv", "--pdeathsig=INT", PROGRAMS / "postgres", "-D", "data", "-k", self.folder, "-c", "fsync=off",
             "-c", "listen_addresses="], cwd=self.folder, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        for _ in range(300):
            if not subprocess.run([PROGRAMS / "pg_isready", "-q", "-h", self.folder]).returncode:
                return
            time.sleep(0.1)
        raise RuntimeError("the server does not start")

    def stop(self):
        self.process.terminate()
        self.process.wait()
        shutil.rmtree(self.folder)

    def run(self, command, **options):
        done = subprocess.run(list(map(str, command)), capture_output=True, cwd=self.folder, **options)
        if done.returncode:
            raise RuntimeError(done.stderr.decode()[:2000])
        return done.stdout.decode()

    def psql(self, database, *arguments, **options):
        return self.run([PROGRAMS / "psql", "-X", "-q", "-At", "-v", "ON_ERROR_STOP=1", "-h", self.folder, "-U", "postgres", database,
                         *arguments], **options)

    def load(self, database, script):
        """Makes a database of the script; its tables and views in the order in which they were made."""
        self.psql("postgres", "-c", f'create database "{database}"')
        with script.open("rb") as content:
            self.psql(database, stdin=content)
        rows = json.loads(self.psql(database, "-c", f"select json_agg(t) from ({TABLES}) t") or "[]") or []
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
