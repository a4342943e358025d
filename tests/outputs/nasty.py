"""Exports that no careful person would make: names, comments, keys and views that break what is written carelessly.

    nasty.py FILE       the nasty model, as an export in UTF-8
"""
import csv
import json
import sys
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "examples"))

import generate  # noqa: E402
from generate import Column, Domain, Item, Key, Model, Table  # noqa: E402

WRITTEN = json.loads(Path(__file__).with_name("nasty.json").read_bytes())
# Each is the name of a table, a column, keys, an index, a role and a relationship, and a comment on all of them.
WORDS = WRITTEN["words"] + ["x" * 63, "x" * 64, "x" * 199 + "y", "x" * 200, "\u00fc" * 200, "\u540d" * 199 + "a", "\u540d" * 199 + "b",
                            "\U0001f600" * 60]
ACTIONS = ["", "NONE", "CASCADE", "RESTRICT", "SET NULL", "SET DEFAULT", "PROPAGATE", "EXPLODE"]

# Views by name: what a database can run whatever it is, and what it cannot or had better not.
GOOD_VIEWS = {**WRITTEN["good views"], "long_view": f"SELECT id FROM parent WHERE id IN ({', '.join(map(str, range(2700)))})"}
BAD_VIEWS = {**WRITTEN["bad views"], "long": "SELECT '" + "*/;--\r" * 2600}


@dataclass
class Reference(generate.Reference):
    key: object = 0  # which of the parent's keys; None for none


def text(value):
    """Like the generator's, but of any characters that can stand in a field."""
    joined = "\r".join(value) if isinstance(value, list) else value
    return generate.STX + joined + generate.ETX if joined else ""


generate.text = text


class Writer(generate.Writer):
    def add(self, position, fields):
        if position == 28 and fields[4].strip("\x02\x03") in ACTIONS:  # a role that is called like an action has it
            fields = {**fields, 21: fields[4], 23: fields[4]}
        super().add(position, fields)

    def write_foreign_key(self, table, key, reference, parent_role):
        """Columns may be of other tables ("TABLE/COLUMN"), and the key may be any or missing."""
        keys = self.model.tables[reference.parent].keys
        key = Key("") if reference.key is None else keys[reference.key]
        identifier = self.new_identifier()
        self.add(11, {1: self.schema, 2: identifier, 4: text(reference.name), 5: "FKEY", 7: key.identifier,
                      10: parent_role, 12: text(reference.physical), 14: text(reference.description)})
        referenced = [key.members[name] for name, _ in key.columns] + [""] * len(reference.columns)
        for sequence, (name, member) in enumerate(zip(reference.columns, referenced), 1):
            owner, _, name = name.rpartition("/")
            column = (self.model.tables[owner] if owner else table).columns[name]
            self.write_key_column(self.new_identifier(), column, identifier, sequence, sequence % 2 == 1, member)


class Builder:
    def __init__(self, name, system, version):
        self.model = Model(name, name, [name], target=(system, version))
        self.add_owner("app")

    def add_owner(self, name):
        self.model.owners.setdefault(name, Item(name, description=[name]))

    def domain(self, name, native, length=0, scale=0):
        self.model.domains[name] = Domain(name, name, [name], native=native, length=length, scale=scale)

    def table(self, key, columns="", name=None, owner="app", primary="id", **values):
        """Columns: `name:domain`, with a ! behind it where a value is required."""
        name = key if name is None else name
        self.add_owner(owner)
        table = self.model.tables[key] = Table(name, values.pop("physical", name), owner=owner, **values)
        for column in columns.split():
            column, _, domain = column.rstrip("!").partition(":")
            table.columns[column] = Column(column, column, domain=domain or "number", optional=f"{column}:{domain}!" not in columns)
        if primary and columns:
            self.key(key, primary, name + "_pk", number="0")
        return table

    def key(self, table, columns, name, kind="IDC", number="1", description=""):
        members = [(column.rstrip("-"), not column.endswith("-")) for column in columns.split()]
        self.model.tables[table].keys.append(Key(name, name, [description], kind=kind, number=number, columns=members))

    def link(self, table, columns, parent, name, key=0, description="", inverse="", hierarchy="", **actions):
        self.model.tables[table].references.append(Reference(
            name, name, [description], parent=parent, columns=columns.split(), verb=name, inverse=inverse, key=key,
            hierarchy=hierarchy, actions=actions))

    def view(self, name, statement):
        self.table(name, "id:number", is_view=True, primary="", statement=[statement])

    def write(self, path):
        path.write_bytes(Writer(self.model).export().encode("utf-8"))


def add_words(model):
    """A table of each word that refers to the one before, and a table with all of them as columns and keys."""
    everything = model.table("all words", primary="")
    for number, word in enumerate(WORDS):
        key = f"word {number}"
        table = model.table(key, "id:number! other:number more:text", name=word, physical=word if number % 2 else "",
                            owner=["app", "pg_x", 'a"b', "twin", "", "public"][number % 6], description=[word], synonym=word)
        table.columns["id"].description = [word]
        table.columns["more"].name = table.columns["more"].physical = word
        table.columns["more"].description = table.columns["more"].note = [word]
        model.key(key, "other more", word, kind="OTC", description=word)
        model.link(key, "other", f"word {max(number - 1, 0)}", word, description=word, inverse=word)
        everything.columns[f"w{number}"] = Column(word, word if number % 2 else "", [word], domain="number")
        model.key("all words", f"w{number}", word)
    model.key("all words", " ".join(everything.columns), "too_wide",
              description="cannot be in postgresql, mysql, sqlserver, oracle")


def add_keys(model):
    model.table("parent", "id:number! code:text name:text big:lob other:number", description=["The parent"])
    model.key("parent", "name code", "parent_ak")  # not the columns' order
    model.key("parent", "code- name", "parent_unique", kind="OTC")
    model.key("parent", "code", "parent_code", kind="OTC")
    model.key("parent", "code", "parent_code_again", kind="OTC")
    model.key("parent", "id", "parent_like_primary")
    model.key("parent", "big", "lob_key", kind="OTC", description="cannot be in oracle, mysql")
    model.table("child", "c:number! name:text code:text a:number b:number! id:number!", primary="id c")
    model.link("child", "a", "parent", "child_parent", description="to the primary key")
    model.link("child", "a", "parent", "child_parent_again", description="cannot be in oracle, db2")
    model.link("child", "name code", "parent", "child_alternate", key=1, description="cannot be in sqlserver, db2")
    model.link("child", "code", "parent", "child_code", key=3, description="cannot be in sqlserver, db2")
    model.link("child", "name", "parent", "other_type", description="cannot be in postgresql, mysql, sqlserver, oracle")
    model.link("child", "a", "parent", "no_key", key=None, description="cannot be")
    model.link("child", "grandchild/z", "parent", "foreign_column", description="cannot be")
    model.link("child", "a b", "child", "child_child", delete="RESTRICT")
    model.table("grandchild", "id:number! x:number y:number z:number")
    model.link("grandchild", "x y", "child", "grandchild_child")
    model.link("grandchild", "z", "grandchild", "grandchild_self", delete="CASCADE", update="CASCADE")
    for count, refusing in {16: "", 17: "mysql, sqlserver", 32: "mysql, sqlserver", 33: "postgresql, mysql, sqlserver, oracle"}.items():
        # Keys of just the most columns, and of one more.
        columns = [f"k{number}" for number in range(count)]
        description = refusing and f"cannot be in {refusing}"
        model.table(f"wide_{count}", "id:number! " + " ".join(f"{column}:number!" for column in columns))
        model.key(f"wide_{count}", " ".join(columns), f"wide_key_{count}", kind="OTC", description=description)
        if count == 16:
            model.link(f"wide_{count}", " ".join(reversed(columns)), f"wide_{count}", f"wide_link_{count}", key=1, description=description)
    for number, action in enumerate(ACTIONS):
        name = f"acting_{number}"
        model.table(name, "id:number! p:number q:number")
        model.link(name, "p", "parent", f"{name}_p", delete=action, update=ACTIONS[number - 1])
        model.link(name, "q", "parent", f"{name}_q", inverse=action)
    model.table("super", "id:number! name:text")
    model.model.tables["super"].hierarchies = {kind: Item(kind, kind, [kind]) for kind in ("kind", "'kind'")}
    for number, kind in enumerate(["kind", "kind", "'kind'"]):
        model.table(f"sub_{number}", "id:number! more:text")
        model.link(f"sub_{number}", "id", "super", f"sub_{number}_super", hierarchy=kind)
    for owner in ("app", "pg_x", "twin"):
        model.table(f"same {owner}", "id:number!", name="same", owner=owner)
        model.table(f"empty {owner}", name="empty", owner=owner)


def nasty():
    model = Builder("nasty", "Oracle", "10.0")
    for domain in ("number NUMBER 9", "text VARCHAR2 40", "lob CLOB 0"):
        name, native, length = domain.split()
        model.domain(name, native, int(length))
    add_words(model)
    add_keys(model)
    for name, statement in {**BAD_VIEWS, **GOOD_VIEWS}.items():
        model.view(name, statement)
    return model


def edges():
    """Rows, keys and texts of just the most that servers take, and of one more; actions that could never happen."""
    model = Builder("edges", "Oracle", "10.0")
    for domain in ("number NUMBER 9", "text VARCHAR2 40", "c255 CHAR 255", "c2000 CHAR 2000", "lob CLOB 0", "v768 VARCHAR2 768", "v769 VARCHAR2 769",
                   "v764 VARCHAR2 764", "v4000 VARCHAR2 4000", "v4001 VARCHAR2 4001", "v16000 NVARCHAR2 2000"):
        name, native, length = domain.split()
        model.domain(name, native, int(length))
    for count in (4, 5, 30):
        model.table(f"row {count}", "id:number! " + " ".join(f"c{number}:v4000" for number in range(count)))
        model.table(f"blank {count}", "id:number! " + " ".join(f"c{number}:c2000!" for number in range(count)))
    for count in (190, 193, 198, 199, 250):
        model.table(f"wide {count}", "id:number! " + " ".join(f"c{number}:v4000" for number in range(count)))
    for count in (1016, 1017):
        model.table(f"many {count}", " ".join(f"c{number}:number" for number in range(count)), primary="")
    for name, columns in {"768": "a:v768!", "769": "a:v769!", "764 and 9": "a:v764! b:number!", "two": "a:v4000! b:v4000!", "4001": "a:v4001!",
                          "lob": "a:lob!", "fixed": "a:c2000!", **{str(count): " ".join(f"k{n}:number!" for n in range(count)) for count in (16, 17, 32, 33)}}.items():
        keys = " ".join(column.split(":")[0] for column in columns.split())
        model.table(f"key {name}", "id:number! " + columns)
        model.key(f"key {name}", keys, f"key_{name}", kind="OTC")
        model.table(f"to {name}", "id:number! " + columns)
        model.link(f"to {name}", keys, f"key {name}", f"to_{name}", key=1)
        model.link(f"to {name}", " ".join(reversed(keys.split())), f"key {name}", f"back_to_{name}", key=1, delete="CASCADE")
    model.table("alone", "id:number! p:number", owner="")
    model.table("required", "id:number! p:number! q:number")
    for action in ("SET NULL", "SET DEFAULT", "CASCADE"):
        model.link("required", "p", "alone", f"p {action}", delete=action, update=action)
        model.link("required", "q", "required", f"q {action}", delete=action, update=action)
        model.link("required", "id", "required", f"id {action}", delete=action)
    # A name of an index that a foreign key makes, and of one of another table.
    for number in range(3):
        model.table(f"named {number}", "id:number! a:number b:number")
        model.key(f"named {number}", "b", "seek", kind="OTC")
        model.link(f"named {number}", "a", "alone", "seek")
        model.link(f"named {number}", "a", "alone", "PRIMARY")
    return model


def pairs(system):
    """A key of each type of a target system, and a foreign key of each type to each."""
    model = Builder("pairs of " + system[0], *system)
    with (ROOT / "src/host/datatypes/native_types.tsv").open(newline="") as table:
        natives = {row[4]: row[1] for row in csv.reader(table, delimiter="\t") if row[0] == SYSTEMS[system]}
    for number, native in enumerate(natives.values()):
        model.domain(f"d{number}", native, 9, 2 * (number % 2))
    columns = " ".join(f"c{number}:d{number}" for number in range(len(natives)))
    model.table("child", columns, primary="")
    for number in range(len(natives)):
        model.table(f"parent {number}", f"k:d{number}!", primary="k")
        for other in range(len(natives)):
            model.link("child", f"c{other}", f"parent {number}", f"f_{other}_{number}", delete=ACTIONS[(other + number) % 6], update=ACTIONS[number % 6])
    return model


# Together these know every type of the host.
SYSTEMS = {("SQL Server", "10.0"): "MICROSOFT_SQL_SERVER", ("Oracle", "11.0"): "ORACLE", ("Teradata", "6.0"): "TERADATA",
           ("ANSI SQL92", "1.0"): "ANSI_SQL"}
SIZES = [(0, 0), (1, 0), (9, 2), (2, 9), (60, 40), (70000, 0), (-1, -1), (2**31 - 1, 2**31 - 1)]


def types(system):
    """A table for each type name of a target system, with columns of all sizes."""
    model = Builder("types of " + system[0], *system)
    with (ROOT / "src/host/datatypes/native_types.tsv").open(newline="") as table:
        natives = [row[1] for row in csv.reader(table, delimiter="\t") if row[0] == SYSTEMS[system]]
    for number, native in enumerate(dict.fromkeys([*natives, "NO SUCH TYPE"])):
        table = model.table(f"t{number}", description=[native])
        for size in SIZES:
            model.domain(f"d{number} {size}", native, *size)
            table.columns[str(size)] = Column(f"c{len(table.columns)}", "", domain=f"d{number} {size}", optional=True)
    return model


if __name__ == "__main__":
    nasty().write(Path(sys.argv[1]))
