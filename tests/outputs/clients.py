"""Reads a script as the usual client of its dialect and then the database do, and says what happens: a reader apart from the program's own.

A client looks at lines first. What it takes for itself wherever it is, it takes here even where a cleverer one would not.
"""
import re

STRING = r"'(?:[^']|'')*'"
NAME = r'"(?:[^"]|"")*"'
LINE_COMMENT = r"--[^\n]*"
WORD = r"[^\W\d](?:[\w$#])*"
ESCAPED = r"(?:[^{0}\\]|{0}{0}|\\.)*{0}"
TOKENS = {  # the first that fits is taken; comments between /* and */ are read by hand
    "postgresql": [LINE_COMMENT, r"[eE]'" + ESCAPED.format("'"), r"(?:[uU]&|[nNbBxX])?" + STRING, r"(?:[uU]&)?" + NAME,
                   r"\$((?:[^\W\d]\w*)?)\$.*?\$\1\$", r"[^\W\d][\w$]*"],
    "sqlite": [LINE_COMMENT, STRING, NAME, r"`(?:[^`]|``)*`", r"\[[^\]]*\]", r"[^\W\d][\w$]*"],
    "mysql": [r"--(?=[\s\x00-\x1f]|$)[^\n]*", r"#[^\n]*", "'" + ESCAPED.format("'"), '"' + ESCAPED.format('"'), r"`(?:[^`]|``)*`", r"[^\W\d][\w$]*"],
    "sqlserver": [LINE_COMMENT, STRING, NAME, r"\[(?:[^\]]|\]\])*\]", r"[^\W\d][\w$#@]*"],
    "oracle": [LINE_COMMENT, r"[nN]?[qQ]'(?:\[.*?\]|\{.*?\}|<.*?>|\(.*?\)|([^\s\[{<(]).*?\1)'", STRING, NAME, WORD],
    "db2": [LINE_COMMENT, STRING, NAME, WORD],
}
TOKENS = {dialect: re.compile("|".join([*patterns, r"\s+", r"\d+", "."]), re.DOTALL) for dialect, patterns in TOKENS.items()}
NESTING = ("postgresql", "sqlserver", "db2")

# What a line must not be, wherever it is; psql and mysql know whether they are in a literal.
COMMANDS = {
    "postgresql": r"$.", "sqlite": r"\s*(go|/)\s*$|\.", "mysql": r"$.",
    "sqlserver": r"\s*(:|!!|(ED|EXIT|QUIT|RESET)\b|GO\s+\S)", "oracle": r"\s*([#.@!]|/(?!\*( |$))|(HOST|EXIT|QUIT|RUN)\b)|.{2400}", "db2": r"\s*(!|--#)",
}
# Of these clients a line's end ends or continues something, whatever the line is.
ENDINGS = {"oracle": (";", "-"), "db2": (";",)}
BEGINNINGS = re.compile(r"(CREATE (SCHEMA|TABLE|UNIQUE INDEX|INDEX|SYNONYM|ALIAS|VIEW)|ALTER TABLE|COMMENT ON|EXEC sp_addextendedproperty|SET NAMES utf8mb4$|"
                        r"SET client_encoding = 'UTF8'$|SET QUOTED_IDENTIFIER ON$|SET standard_conforming_strings = on$|SET search_path TO app, public$|SET SCHEMA app$|USE app$|ALTER SESSION SET CURRENT_SCHEMA = app$)")
VIEW = re.compile(r"CREATE VIEW (?:app\.)?(\w+) AS\n(.*)", re.DOTALL)


def read(script, dialect):
    """The names of the views that the script makes; fails where it does more than make what scripts make."""
    assert not re.search("[\x00-\x09\x0b-\x1f\x7f\u0085\u2028\u2029]", script)
    if dialect == "ansi":  # whoever reads it
        views = read("SET DEFINE OFF\n" + script, "oracle")
        assert views == read(script, "db2")
        return views
    if dialect == "oracle":
        assert script.startswith("SET DEFINE OFF\n"), "variables are replaced in comments, too"
        script = script.removeprefix("SET DEFINE OFF\n")
    assert dialect != "sqlserver" or "$(" not in script
    return [name for piece in cut_lines(script, dialect) for statement in cut_statements(piece, dialect) for name in run(statement, dialect)]


def cut_lines(script, dialect):
    """Pieces of whole statements, as far as lines tell."""
    piece = []
    for line in script.split("\n"):
        text = line.strip(" ")
        if not piece and text.startswith("--"):
            assert text == "--" or text.startswith("-- ") and not text.endswith(ENDINGS.get(dialect, "\0")), line
            continue
        assert not re.match(COMMANDS[dialect], line, re.IGNORECASE), line
        if not text:
            assert dialect != "oracle" or not piece, piece
            continue
        if dialect == "sqlserver" and text.upper() == "GO":
            yield "\n".join(piece)
            piece = []
            continue
        piece.append(line)
        if text.endswith(ENDINGS.get(dialect, "\0")):
            assert text.endswith(";"), line
            yield "\n".join(piece)
            piece = []
    yield "\n".join(piece)


def cut_statements(piece, dialect):
    """The statements of a piece as lists of tokens, each with whether it is code."""
    place, statement, depth = 0, [], 0
    while place < len(piece):
        if piece.startswith("/*", place):
            end = end_of_comment(piece, place, dialect in NESTING)
            assert dialect != "mysql" or not re.match(r"/\*M?!", piece[place:])
            statement.append((" ", False))
        else:
            token = TOKENS[dialect].match(piece, place)
            text, end = token[0], token.end()
            assert text not in list("'\"`[\\") or (dialect not in ("mysql", "sqlite", "sqlserver") and text in "`["), piece[place:place + 99]
            is_comment = text.startswith("--") or (dialect == "mysql" and text.startswith("#"))
            depth += (text == "(") - (text == ")")
            assert depth >= 0, piece
            if text == ";":
                assert depth == 0, piece
                yield statement
                statement = []
            else:
                statement.append(("\n" if is_comment else text, not is_comment))
        place = end
    assert not "".join(text for text, _ in statement).strip(), f"no statement, or one without an end: {piece}"


def end_of_comment(piece, place, nests):
    depth = 0
    for mark in re.finditer(r"/\*|\*/", piece[place:]):
        depth = depth - 1 if mark[0] == "*/" else depth + 1 if nests else 1
        if depth == 0:
            return place + mark.end()
    raise AssertionError(f"a comment without an end: {piece[place:]}")


def run(statement, dialect):
    text = "".join(text for text, _ in statement).strip()
    assert BEGINNINGS.match(text), text
    code = "".join(text for text, is_code in statement if is_code and text[0] not in "'\"`[")
    assert dialect != "postgresql" or not re.search(r"(?<!:):(?!:)", code), text
    assert dialect != "mysql" or not re.search(r"delimiter\s", code, re.IGNORECASE), text
    if text.startswith("CREATE VIEW"):
        view = VIEW.match(text)
        assert view and re.match(r"\s*(SELECT|WITH)\b", view[2], re.IGNORECASE), text
        yield view[1]
