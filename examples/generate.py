#!/usr/bin/env python3
"""Writes the example exports beside this file from the descriptions in models/.

    generate.py             write every export
    generate.py --check     write nothing; fail when an export differs from its description

Those in damaged/ are made of the bookshop's.

A description is plain UTF-8 text, one statement a line; `//` starts a comment line:

    model NAME [= PHYSICAL]                     target SYSTEM VERSION
    owner NAME                                  also SYSTEM VERSION : TYPE, TYPE ...    a system that is not the model's
    type NATIVE(LENGTH)                         default length of a native type
    domain NAME : NATIVE[(LENGTH[,SCALE])]      item NAME : DOMAIN[(LENGTH[,SCALE])]    a common item
    table NAME [= PHYSICAL] owner OWNER [synonym NAME]
    view NAME [= PHYSICAL] owner OWNER

and inside a table or view:

    # NAME [= PHYSICAL] : DOMAIN[(L[,S])]       mandatory column of the primary key
    * ...    o ...                              other mandatory column, optional column
    identifier NAME [COLUMN, COLUMN ...]        alternate identifier; a column may end in `desc`
    unique NAME [COLUMN, COLUMN ...]            other unique combination
    -> PARENT [COLUMN, ...] VERB / INVERSE [, OPTION ...]
                                                relationship with its foreign key, or without one when [] is empty;
                                                options: delete|update|insert WORD, optional, one, some, up to N
    hierarchy NAME                              the table is a supertype
    is PARENT [COLUMN, ...] by HIERARCHY        the table is a subtype
    > TEXT                                      a line of a view's statement

and below anything:

    | TEXT      a line of its description       ! TEXT   a line of a column's note
    ~ TEXT      a further text: one of a column, up to three of a domain

A name without a physical name gets one in capitals: "Order line" is ORDER_LINE.
"""
import itertools
import pathlib
import re
import sys
from dataclasses import dataclass, field

HERE = pathlib.Path(__file__).resolve().parent
TAB, CR, FS, STX, ETX = '\t', '\r', '\x1c', '\x02', '\x03'
LONGEST_RECORD = 16383
LONGEST_NAME = {'Oracle': 30, 'DB2 UDB': 18}       # of a database system; 128 for the others


# ---------------------------------------------------------------- what a description says

@dataclass
class Item:
    name: str
    physical: str = ''
    description: list = field(default_factory=list)
    texts: list = field(default_factory=list)
    note: list = field(default_factory=list)
    identifier: str = ''


@dataclass
class Domain(Item):
    native: str = ''
    length: int = 0
    scale: int = 0


@dataclass
class CommonItem(Item):
    domain: str = ''
    length: int = 0
    scale: int = 0


@dataclass
class Column(Item):
    domain: str = ''
    length: int = 0
    scale: int = 0
    optional: bool = False


@dataclass
class Key(Item):
    kind: str = 'IDC'
    number: str = ''
    columns: list = field(default_factory=list)             # of (column name, ascending)
    members: dict = field(default_factory=dict)             # column name -> identifier of the combination column


@dataclass
class Reference(Item):
    parent: str = ''
    columns: list = field(default_factory=list)
    verb: str = ''
    inverse: str = ''
    hierarchy: str = ''                                     # of a subtype
    actions: dict = field(default_factory=dict)             # delete, update, insert -> word
    optional: bool = False
    least: str = '0'
    most: str = 'N'


@dataclass
class Table(Item):
    owner: str = ''
    synonym: str = ''
    is_view: bool = False
    columns: dict = field(default_factory=dict)
    keys: list = field(default_factory=list)
    references: list = field(default_factory=list)
    hierarchies: dict = field(default_factory=dict)
    statement: list = field(default_factory=list)


@dataclass
class Model(Item):
    target: tuple = ()
    others: list = field(default_factory=list)              # of (system, version, native types)
    default_lengths: dict = field(default_factory=dict)
    owners: dict = field(default_factory=dict)
    domains: dict = field(default_factory=dict)
    items: list = field(default_factory=list)
    tables: dict = field(default_factory=dict)


# ---------------------------------------------------------------- reading a description

SIZE = r'(?:\((?P<length>\d+)(?:,(?P<scale>\d+))?\))?'
NAME = r'(?P<name>[^=:\[\]]+?)(?: = (?P<physical>\S+))?'
STATEMENTS = {kind: re.compile(pattern + '$') for kind, pattern in {
    'model': rf'model {NAME}',
    'target': r'target (?P<system>.+) (?P<version>\S+)',
    'also': r'also (?P<system>.+) (?P<version>\S+) : (?P<types>.+)',
    'owner': r'owner (?P<name>.+)',
    'type': rf'type (?P<native>.+?){SIZE}',
    'domain': rf'domain {NAME} *: (?P<native>.+?){SIZE}',
    'item': rf'item {NAME} *: (?P<domain>.+?){SIZE}',
    'table': rf'(?P<kind>table|view) {NAME} owner (?P<owner>\S+)(?: synonym (?P<synonym>.+))?',
    'column': rf'(?P<mark>[#*o]) {NAME} *: (?P<domain>.+?){SIZE}',
    'key': r'(?P<kind>identifier|unique) (?P<name>.+?) \[(?P<columns>.+)\]',
    'subtype': r'is (?P<parent>.+?) \[(?P<columns>.+)\] by (?P<hierarchy>.+)',
    'reference': r'-> (?P<parent>.+?) \[(?P<columns>.*)\] (?P<verb>[^/]+) / (?P<inverse>[^,]+)(?:, (?P<options>.+))?',
    'hierarchy': rf'hierarchy {NAME}',
    'statement': r'> ?(?P<text>.*)',
    'description': r'\| ?(?P<text>.*)',
    'note': r'! ?(?P<text>.*)',
    'text': r'~ (?P<text>.*)',
}.items()}


def physical_name(name):
    return re.sub(r'[^A-Z0-9]+', '_', name.upper()).strip('_')


def names(listed):
    return [name.strip() for name in listed.split(',')] if listed.strip() else []


class Reader:
    """Turns the lines of a description into a Model; one method a kind of statement."""

    def __init__(self):
        self.model = self.table = self.last = None

    def read(self, path):
        for number, line in enumerate(path.read_text(encoding='utf-8').splitlines(), 1):
            line = line.strip()
            if not line or line.startswith('//'):
                continue
            for kind, pattern in STATEMENTS.items():
                match = pattern.match(line)
                if match:
                    getattr(self, 'read_' + kind)(**match.groupdict())
                    break
            else:
                raise SystemExit(f'{path.name}:{number}: not a statement: {line}')
        return self.model

    @staticmethod
    def add(items, item):
        if item.name in items:
            raise SystemExit(f'{item.name!r} is described twice')
        items[item.name] = item
        return item

    def described(self, **values):
        """The values a common set of statements carries, with sizes as numbers and the physical name filled in."""
        values['physical'] = values.get('physical') or physical_name(values['name'])
        for size in values.keys() & {'length', 'scale'}:
            values[size] = int(values[size] or 0)
        return values

    def read_model(self, name, physical):
        self.model = self.last = Model(name, physical or physical_name(name))

    def read_target(self, system, version):
        self.model.target = (system, version)

    def read_also(self, system, version, types):
        self.model.others.append((system, version, names(types)))

    def read_owner(self, name):
        self.last = self.add(self.model.owners, Item(name))

    def read_type(self, native, length, scale):
        self.model.default_lengths[native] = length

    def read_domain(self, **values):
        self.last = self.add(self.model.domains, Domain(**self.described(**values)))

    def read_item(self, **values):
        self.last = CommonItem(**self.described(**values))
        self.model.items.append(self.last)

    def read_table(self, kind, name, physical, owner, synonym):
        self.table = self.last = self.add(self.model.tables, Table(
            name, physical or physical_name(name), owner=owner, synonym=synonym or '', is_view=kind == 'view'))

    def read_column(self, mark, **values):
        self.last = self.add(self.table.columns, Column(optional=mark == 'o', **self.described(**values)))
        if mark == '#':
            if not self.table.keys:
                self.table.keys.append(Key(f'{self.table.name} key', f'{self.table.physical}_PK', number='0'))
            self.table.keys[0].columns.append((self.last.name, True))

    def read_key(self, kind, name, columns):
        number = len(self.table.keys)
        self.last = Key(name, f'{self.table.physical}_AK{number}', columns=[
            (column.removesuffix(' desc'), not column.endswith(' desc')) for column in names(columns)])
        if kind == 'identifier':
            self.last.number = str(number)
        else:
            self.last.kind = 'OTC'
        self.table.keys.append(self.last)

    def read_reference(self, parent, columns, verb, inverse, options):
        reference = self.last = Reference(
            f'{parent} {verb} {self.table.name}', parent=parent, columns=names(columns), verb=verb, inverse=inverse)
        for option in names(options or ''):
            word, _, rest = option.partition(' ')
            if word in ('delete', 'update', 'insert'):
                reference.actions[word] = rest
            elif option == 'optional':
                reference.optional = True
            elif option == 'one':
                reference.most = '1'
            elif option == 'some':
                reference.least = '1'
            elif option.startswith('up to '):
                reference.most = option.removeprefix('up to ')
            else:
                raise SystemExit(f'{reference.name!r}: unknown option {option!r}')
        reference.optional |= any(self.table.columns[name].optional for name in reference.columns)
        self.table.references.append(reference)

    def read_subtype(self, parent, columns, hierarchy):
        self.last = Reference(f'{self.table.name} is {parent}', parent=parent, columns=names(columns),
                              verb='may be', inverse='is', hierarchy=hierarchy, most='1')
        self.table.references.append(self.last)

    def read_hierarchy(self, name, physical):
        self.last = self.add(self.table.hierarchies, Item(name, physical or physical_name(name)))

    def read_statement(self, text):
        self.table.statement.append(text)

    def read_description(self, text):
        self.last.description.append(text)

    def read_note(self, text):
        self.last.note.append(text)

    def read_text(self, text):
        self.last.texts.append(text)


def name_references(model):
    """Foreign keys are called CHILD_PARENT_FK, a second one on the same parent CHILD_PARENT_FK2."""
    for table in model.tables.values():
        taken = {}
        for reference in table.references:
            if reference.parent not in model.tables:
                raise SystemExit(f'{reference.name!r} has an unknown parent')
            parent = model.tables[reference.parent].physical
            taken[parent] = taken.get(parent, 0) + 1
            number = taken[parent] if taken[parent] > 1 else ''
            reference.physical = f'{table.physical}_{parent}_FK{number}'


def type_of(model, column):
    """What two columns must agree in to refer to each other; a generated number is referred to by a plain one."""
    domain = model.domains[column.domain]
    return domain.native.removesuffix(' identity'), column.length or domain.length, column.scale or domain.scale


def check(model):
    """A mistake in a description shows here, not as a warning of an import."""
    problems = []

    def expect(condition, *what):
        if not condition:
            problems.append(' '.join(what))

    longest = LONGEST_NAME.get(model.target[0], 128)
    used = {}
    for table in model.tables.values():
        expect(table.owner in model.owners, table.name, 'has an unknown owner', table.owner)
        expect(table.is_view == bool(table.statement), table.name, 'is neither a table nor a view with a statement')
        expect(table.is_view or table.keys, table.name, 'has no key')
        for item in [table, *table.hierarchies.values(), *table.references]:
            expect(used.setdefault(item.name, item) is item, 'the name', item.name, 'is used twice')
        for item in [table, *table.columns.values(), *table.keys, *table.references]:
            expect(len(item.physical) <= longest, item.physical, 'is too long a name')
        for column in table.columns.values():
            expect(column.domain in model.domains, table.name, column.name, 'has an unknown domain', column.domain)
        for key in table.keys:
            for name, _ in key.columns:
                expect(name in table.columns, key.name, 'has an unknown column', name)
        for reference in table.references:
            parent = model.tables[reference.parent]
            expect(not reference.hierarchy or reference.hierarchy in parent.hierarchies,
                   reference.name, 'has an unknown hierarchy', reference.hierarchy)
            if not reference.columns:
                continue
            referenced = [parent.columns[name] for name, _ in parent.keys[0].columns]
            own = [table.columns[name] for name in reference.columns]
            expect([type_of(model, column) for column in own] == [type_of(model, column) for column in referenced],
                   reference.name, 'does not fit the key of its parent')
            expect(len({c.optional for c in own}) == 1, reference.name, 'mixes optional and mandatory columns')
    if problems:
        raise SystemExit('\n'.join(problems))


# ---------------------------------------------------------------- writing an export

def text(value):
    """A text as it stands in a field: between STX and ETX, its lines ended by CR; nothing at all when empty."""
    joined = CR.join(value) if isinstance(value, list) else value
    if re.search('[\t\n\x1c\x02\x03]', joined):
        raise SystemExit(f'a control character in {joined!r}')
    return STX + joined + ETX if joined else ''


class Writer:
    """Collects the records of the sections that carry something, by position, then writes all 68 sections."""

    SECTION_COUNT = 68
    FIELD_COUNTS = {4: 14, 7: 43, 11: 17, 12: 13, 14: 14, 17: 12, 24: 12, 28: 36, 29: 34, 51: 10, 53: 19, 60: 65,
                    64: 8, 65: 6}

    def __init__(self, model):
        self.model = model
        self.sections = {position: [] for position in self.FIELD_COUNTS}
        self.numbers = itertools.count(1)
        self.schema = self.new_identifier()
        self.data_types = {}

    def new_identifier(self):
        return f'{next(self.numbers):08}'

    def add(self, position, fields):
        record = TAB.join(str(fields.get(number, '')) for number in range(1, self.FIELD_COUNTS[position] + 1))
        if len(record) > LONGEST_RECORD:
            raise SystemExit(f'a record of section {position} is too long: {record[:80]!r}')
        self.sections[position].append(record)

    def export(self):
        model = self.model
        self.add(51, {2: text(model.name), 4: text(model.physical), 5: text(model.description)})
        self.write_systems_and_types()
        self.write_owners()
        self.write_domains()
        for table in model.tables.values():
            table.identifier = self.new_identifier()
            self.write_columns(table)
            self.write_keys(table)
        for table in model.tables.values():
            self.write_entity(table)
            self.write_hierarchies(table)
        for table in model.tables.values():
            for reference in table.references:
                self.write_reference(table, reference)
        return ''.join(CR.join(self.records(position)) + FS for position in range(1, self.SECTION_COUNT + 1))

    def records(self, position):
        """The tool's own settings fill the sections that nothing of the model is in; some of them are empty."""
        if position in self.sections:
            return self.sections[position]
        return [TAB.join(map(str, (position, row, text(f'Setting {position}.{row}'), 'N', '', row * position)))
                for row in range(1, position % 4 + 1)]

    def write_systems_and_types(self):
        for system, version, types in self.model.others:
            identifier = self.new_identifier()
            self.add(64, {2: identifier, 3: system, 4: version})
            for native in types:
                self.add(24, {2: self.new_identifier(), 3: identifier, 4: native})
        self.target = self.new_identifier()
        system, version = self.model.target
        self.add(64, {2: self.target, 3: system, 4: version})
        self.add(53, {2: self.schema, 5: self.target})
        for native in dict.fromkeys(domain.native for domain in self.model.domains.values()):
            self.data_types[native] = self.new_identifier()
            self.add(24, {2: self.data_types[native], 3: self.target, 4: native,
                          10: self.model.default_lengths.get(native, '')})

    def write_owners(self):
        for owner in self.model.owners.values():
            owner.identifier = self.new_identifier()
            self.add(65, {2: owner.identifier, 3: text(owner.name), 6: text(owner.description)})

    def write_domains(self):
        for domain in self.model.domains.values():
            domain.identifier = self.new_identifier()
            first, second, third = (domain.texts + ['', '', ''])[:3]
            self.add(29, {2: domain.identifier, 3: self.target, 4: text(domain.name), 6: self.data_types[domain.native],
                          11: text(domain.physical), 12: text(domain.description), 15: text(first), 23: domain.length,
                          25: text(third), 27: text(second), 29: domain.scale})
        for item in self.model.items:
            self.add(14, {2: self.new_identifier(), 3: text(item.name), 4: self.model.domains[item.domain].identifier,
                          6: text(item.physical), 7: text(item.description), 12: item.length, 13: item.scale})

    def write_columns(self, table):
        for sequence, column in enumerate(table.columns.values(), 1):
            column.identifier = self.new_identifier()
            self.add(7, {1: self.schema, 2: column.identifier, 3: table.identifier, 4: text(column.name), 5: sequence,
                         9: self.model.domains[column.domain].identifier, 17: text(column.physical),
                         19: text(column.description), 22: text(column.texts), 23: text(column.note),
                         29: column.length, 31: 'Y' if column.optional else 'N', 32: column.scale})

    def write_keys(self, table):
        for key in table.keys:
            key.identifier = self.new_identifier()
            self.add(11, {1: self.schema, 2: key.identifier, 3: table.identifier, 4: text(key.name), 5: key.kind,
                          6: key.number, 12: text(key.physical), 14: text(key.description)})
            for sequence, (name, ascending) in enumerate(key.columns, 1):
                key.members[name] = self.new_identifier()
                self.write_key_column(key.members[name], table.columns[name], key.identifier, sequence, ascending)

    def write_key_column(self, identifier, column, combination, sequence, ascending=True, referenced=''):
        self.add(12, {1: self.schema, 2: identifier, 3: column.identifier, 4: combination, 6: sequence, 7: referenced,
                      10: 'A-Z' if ascending else 'Z-A'})

    def write_entity(self, table):
        self.add(60, {1: self.schema, 2: table.identifier, 3: self.model.owners[table.owner].identifier,
                      4: text(table.name), 9: text(table.synonym), 15: text(table.physical),
                      16: text(table.description), 61: text('AS ' + CR.join(table.statement)) if table.is_view else '',
                      65: 'Y' if table.is_view else 'N'})

    def write_hierarchies(self, table):
        for hierarchy in table.hierarchies.values():
            hierarchy.identifier = self.new_identifier()
            self.add(4, {1: self.schema, 2: hierarchy.identifier, 3: table.identifier, 4: text(hierarchy.name),
                         6: text(hierarchy.physical), 7: text(hierarchy.description), 11: 'Y'})

    def write_reference(self, table, reference):
        """A relationship, its two roles, and the foreign key when there are columns for it."""
        parent = self.model.tables[reference.parent]
        reference.identifier = self.new_identifier()
        self.add(17, {1: self.schema, 2: reference.identifier, 3: text(reference.name), 6: text(reference.physical),
                      7: text(reference.description)})
        hierarchy = parent.hierarchies[reference.hierarchy].identifier if reference.hierarchy else ''
        first, second = self.new_identifier(), self.new_identifier()
        # The first role of a hierarchy is the subtype's: both carry the hierarchy, and the first one tells the subtype.
        parent_role, child_role = (second, first) if hierarchy else (first, second)
        roles = {
            parent_role: {4: text(reference.verb), 8: parent.identifier, 9: child_role, 15: 'Y',
                          21: reference.actions.get('delete', ''), 23: reference.actions.get('update', ''),
                          25: '1', 27: '0' if reference.optional else '1', 33: reference.actions.get('insert', '')},
            child_role: {4: text(reference.inverse), 8: table.identifier, 9: parent_role, 15: 'N',
                         25: reference.most, 27: reference.least},
        }
        for identifier in (first, second):
            self.add(28, {1: self.schema, 2: identifier, 5: reference.identifier, 10: hierarchy, **roles[identifier]})
        if reference.columns:
            self.write_foreign_key(table, parent.keys[0], reference, parent_role)

    def write_foreign_key(self, table, key, reference, parent_role):
        identifier = self.new_identifier()
        self.add(11, {1: self.schema, 2: identifier, 4: text(reference.name), 5: 'FKEY', 7: key.identifier,
                      10: parent_role, 12: text(reference.physical)})
        for sequence, (name, (referenced, _)) in enumerate(zip(reference.columns, key.columns), 1):
            self.write_key_column(self.new_identifier(), table.columns[name], identifier, sequence,
                                  referenced=key.members[referenced])


# ---------------------------------------------------------------- damaged exports

TABLES = 60  # the section's number


def without_table(content, name):
    """The export without a table that others refer to."""
    sections = content.split(FS.encode())
    sections[TABLES - 1] = CR.encode().join(
        record for record in sections[TABLES - 1].split(CR.encode()) if f'{STX}{name}{ETX}'.encode() not in record)
    return FS.encode().join(sections)


def damaged():
    """The files of damaged/ by name."""
    bookshop = (HERE / 'bookshop.txt').read_bytes()
    return {
        'lost-table.txt': without_table(bookshop, 'Subject'),
        'line-feeds.txt': bookshop.replace(b'\r', b'\n'),
        'letter.txt': b'Dear Sir,\r\nplease find enclosed\r\n',
    }


def write_or_compare(files, arguments):
    """Writes the files, or with --check returns the names of those that are different."""
    different = []
    for path, content in files.items():
        if not arguments:
            path.write_bytes(content)
        elif not path.exists() or path.read_bytes() != content:
            different.append(path.name)
    return different


def main(arguments):
    if arguments not in ([], ['--check']):
        raise SystemExit(__doc__)
    exports = {}
    for path in sorted((HERE / 'models').glob('*.model')):
        model = Reader().read(path)
        name_references(model)
        check(model)
        exports[HERE / (path.stem + '.txt')] = Writer(model).export().encode('windows-1252')
    different = write_or_compare(exports, arguments) + write_or_compare(
        {HERE / 'damaged' / name: content for name, content in damaged().items()}, arguments)
    if different:
        raise SystemExit('not as described: ' + ', '.join(different))


if __name__ == '__main__':
    main(sys.argv[1:])
