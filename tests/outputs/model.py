"""What a saved model asks of a database: the model's JSON as tables, columns, keys and indexes that are compared with what
a database's catalogue says. Tables, and columns of a table, are known by their place, so that a name may differ."""
import csv
import json
import re
import unicodedata
from collections import Counter
from dataclasses import make_dataclass
from pathlib import Path

ACTIONS = {"unspecified": "NO ACTION", "none": "NO ACTION", "cascade": "CASCADE", "restrict": "RESTRICT", "setNull": "SET NULL",
           "setDefault": "SET DEFAULT"}


# Some types of the host, and what databases make of them.
with Path(__file__).with_name("types.tsv").open(newline="") as table:
    TYPES = {row["host type"]: row for row in csv.DictReader(table, delimiter="\t")}

# Columns of a table are given by their places in it; a parent is the place of a table in the model.
Column = make_dataclass("Column", ["name", "type", "required", ("comment", str, "")])  # type: of a model (host's type, length, scale)
Key = make_dataclass("Key", ["name", "columns", "primary"])
ForeignKey = make_dataclass("ForeignKey", ["name", "columns", "parent", "referenced", "on_delete", "on_update"])
Index = make_dataclass("Index", ["name", "members", "unique"])  # members: of (column, whether descending)
Table = make_dataclass("Table", ["name", "schema", "comment", "columns", "keys", "foreign_keys", "indexes"])
View = make_dataclass("View", ["name", "schema", "comment", "columns", ("statement", str, "")])  # columns: names


UNPRINTABLE = ("Cc", "Cf", "Zl", "Zp")


def plain(comment):
    """A comment's words and lines: line ends, control characters and blanks at ends may be written otherwise."""
    lines = re.sub(r"\r\n?|[\u0085\u2028\u2029]", "\n", comment).split("\n")
    words = ("".join(" " if unicodedata.category(letter) in UNPRINTABLE else letter for letter in line).split() for line in lines)
    return "\n".join(map(" ".join, words)).strip()


def one_line(name):
    return " ".join(plain(name).split())


def name_of(item):
    return item["physicalName"] or item["name"]


def unchanged(names, longest=10_000, forbidden="^$"):
    """Those of the names in one place that a writer has no reason to change: `longest` in bytes, `forbidden` a pattern."""
    counts = Counter(name.casefold() for name in names)
    return {name for name in names if counts[name.casefold()] == 1 and name and name == name.strip() and len(name.encode()) <= longest
            and not re.search(forbidden, name.casefold()) and not any(unicodedata.category(letter) in UNPRINTABLE for letter in name)}


def same_name(wanted, found):
    """Regular names may stand unquoted, and then the database folds their letters."""
    return wanted == found or re.fullmatch(r"[A-Za-z]\w*", wanted, re.ASCII) and wanted.lower() == found


class SavedModel:
    """What the JSON file at `path` says of a database of the dialect."""

    def __init__(self, path, dialect=""):
        self.dialect = dialect
        self.document = json.loads(path.read_bytes())
        self.objects = {}
        self.collect(self.document)
        elements = [element for package in self.document["designPackages"] for element in package["elements"]]
        by_kind = {kind: [element for element in elements if element["elementType"] == kind]
                   for kind in ("Class", "SQLViewEntity", "Association", "Generalization")}
        self.classes, self.view_items, associations, generalizations = by_kind.values()
        self.relationships = len(associations) + sum(len(item["roles"]) - 1 for item in generalizations)
        self.table_count = len(self.classes)
        if dialect not in ("", "postgresql"):
            self.classes = [table for table in self.classes if table["attributes"]]  # the others need columns
        self.schemas = {}
        if dialect != "sqlite":  # which knows none
            self.schemas = {element: name_of(schema) for schema in self.document["dataPackages"] for element in schema["importedElements"]}
        self.opposite = {role["id"]: other for association in associations
                         for role, other in zip(association["roles"], reversed(association["roles"]))}
        self.places = {column["id"]: place for table in self.classes for place, column in enumerate(table["attributes"])}
        self.owners = {item["id"]: number for number, table in enumerate(self.classes) for item in table["attributes"] + table["keys"]}
        self.relation_names = [(self.schemas.get(item["id"], ""), name) for item in self.classes + self.view_items
                               for name in [name_of(item), *(synonym["name"] for synonym in item.get("synonyms", []))]]
        self.key_names = [(self.schemas.get(table["id"], ""), name_of(key), key["elementType"]) for table in self.classes for key in table["keys"]]
        self.tables = [self.table(number, item) for number, item in enumerate(self.classes)]
        self.views = [View(name_of(item), self.schemas.get(item["id"], ""), item["description"],
                           [name_of(column) for column in item["attributes"]], item["viewStatement"])
                      for item in self.view_items]

    def collect(self, item):
        for part in item.values() if isinstance(item, dict) else item:
            if isinstance(part, (dict, list)):
                self.collect(part)
        if isinstance(item, dict) and "id" in item:
            self.objects[item["id"]] = item

    def table(self, number, item):
        table = Table(name_of(item), self.schemas.get(item["id"], ""), item["description"], [], [], [], [])
        primary = self.objects.get(item["primaryKey"], {"attributes": []})
        for column in item["attributes"]:
            kind = self.objects[column["type"]]
            table.columns.append(Column(
                name_of(column), self.type_of(kind),
                self.is_required(column["id"]), column["description"]))
        implied = []  # the indexes that come with a key, or cannot be either
        for key in item["keys"]:
            is_possible = not self.is_impossible(key)
            if key["elementType"] == "ForeignKey":
                table.foreign_keys += [self.foreign_key(key)] if is_possible else []
            else:
                columns = self.columns(key)
                places = [self.places[column] for column in columns]
                if is_possible and (self.dialect == "mysql" or key is primary or places not in [other.columns for other in table.keys]):
                    # Most databases take only one of such, the primary key first.
                    table.keys = [other for other in table.keys if self.dialect == "mysql" or other.columns != places]
                    table.keys.append(Key(name_of(key), places, key is primary))
                implied.append((key["index"], [(column, "ascending") for column in columns]))
        if self.dialect == "mysql":
            table.keys = sorted(table.keys, key=lambda key: not key.primary)[:64]  # which has no more
        for index in item["indexes"]:
            members = [(member["attribute"], member["sortOrder"]) for member in index["members"]]
            if (index["id"], members) not in implied and all(self.owners[column] == number for column, _ in members):
                members = [(self.places[column], order == "descending") for column, order in members]
                table.indexes.append(Index(name_of(index), members, index["unique"]))
        return table

    def is_impossible(self, key):
        """A key that a database refuses says so in its description: cannot be [in DIALECT, DIALECT ...]. MySQL looks for a
        parent without a schema in that of the child."""
        if key["elementType"] == "ForeignKey":
            candidate = self.objects.get(key["candidateKey"])
            if not candidate or len(key["attributes"]) != len(candidate["attributes"]):
                return True
        if key["elementType"] == "ForeignKey" and self.dialect == "mysql":
            parent = self.classes[self.owners[key["candidateKey"]]]
            if not self.schemas.get(parent["id"]) and self.schemas.get(self.classes[self.owners[key["id"]]]["id"]):
                return True
        says = re.fullmatch(r"cannot be(?: in (.*))?", key["description"])
        return bool(says) and (not says[1] or self.dialect in says[1].split(", "))

    def columns(self, key):
        """In the order of the key's index, where that has the same columns."""
        members = [member["attribute"] for member in self.objects.get(key["index"], {"members": []})["members"]]
        return members if sorted(members) == sorted(key["attributes"]) else key["attributes"]

    def type_of(self, kind):
        """Oracle has a time of day in its dates and no integers."""
        host_type, length, scale = kind.get("dataType", "undefined"), kind.get("length", 0), kind.get("scale", 0)
        if (self.document.get("dataStore") or {}).get("name") == "ORACLE" and self.dialect:
            if host_type == "DATE":
                return "SMALLDATETIME", 0, 0
            if host_type in ("DECIMAL", "NUMERIC") and scale == 0 and 1 <= length <= 18:
                return "SMALLINT" if length <= 4 else "INTEGER" if length <= 9 else "BIGINT", 0, 0
        return host_type, length, scale

    def is_required(self, column):
        table = self.classes[self.owners[column]]
        primary = self.objects.get(table["primaryKey"], {"attributes": []})
        return not self.objects[column]["optional"] or column in primary["attributes"]

    def foreign_key(self, key):
        columns, candidate = self.columns(key), self.objects[key["candidateKey"]]
        pairs = {mapped["destinationAttribute"]: mapped["sourceAttribute"] for mapped in key["roleNameMaps"]}
        left = [source for source in self.columns(candidate) if source not in pairs.values()]
        for column in columns:
            same = [source for source in left if self.objects[source]["name"] == self.objects[column]["name"]]
            if column not in pairs and same:
                pairs[column] = same[0]
                left.remove(same[0])
        referenced = [pairs.get(column) or left.pop(0) for column in columns]
        own = self.objects[key["associationRole"]] if key["associationRole"] else {}
        other = self.opposite.get(own.get("id"), {})
        actions = []
        for name in ("referentialAction1", "referentialAction2"):
            said = other.get(name, "unspecified")
            action = ACTIONS[own.get(name, said) if said == "unspecified" else said]
            clears = action in ("SET NULL", "SET DEFAULT") and any(self.is_required(column) for column in columns)
            actions.append("NO ACTION" if clears else action)
        return ForeignKey(name_of(key), [self.places[column] for column in columns], self.owners[candidate["id"]],
                          [self.places[column] for column in referenced], *actions)
