#!/usr/bin/env python3
"""Runs the examples of README.md, docs/ and examples/ on a terminal and compares what they print with the page.

    run.py VORN

An example is a code block whose first line begins with `$ `. It runs in a folder with the project's examples; what one
example of a page saves, the next ones find. A line `...` stands for any lines. Times and dates are not compared.
"""
import difflib
import fcntl
import os
import pty
import re
import struct
import subprocess
import sys
import tempfile
import termios
from pathlib import Path

VORN = Path(sys.argv[1]).resolve()
PROJECT = Path(__file__).resolve().parents[2]
PAGES = [PROJECT / "README.md", PROJECT / "examples" / "README.md", *sorted((PROJECT / "docs").glob("*.md"))]
WIDTH = 100
VARYING = [(r"\b\d+\.\d\d s\b", "0.00 s"), (r"\d{4}-\d\d-\d\d \d\d:\d\d:\d\d", "2000-01-01 00:00:00")]


def examples(page):
    """The commands of a page, each with the lines that it prints and the number of its own line."""
    found = []
    inside = False
    for number, line in enumerate(page.read_text().splitlines(), 1):
        if line.startswith("```"):
            inside = not inside
            is_example = None
        elif inside:
            is_example = line.startswith("$ ") if is_example is None else is_example
            if is_example and line.startswith("$ "):
                found.append((number, line[2:], []))
            elif is_example:
                found[-1][2].append(line)
    return found


def run(command, folder):
    """What a terminal shows in the end, line by line."""
    master, slave = pty.openpty()
    fcntl.ioctl(slave, termios.TIOCSWINSZ, struct.pack("HHHH", 40, WIDTH, 0, 0))
    environment = {**os.environ, "PATH": f"{VORN.parent}:{os.environ['PATH']}", "TERM": "xterm", "LC_ALL": "C.UTF-8"}
    process = subprocess.Popen(["bash", "-c", command], cwd=folder, stdin=slave, stdout=slave, stderr=slave, env=environment)
    os.close(slave)
    output = b""
    while True:
        try:
            output += os.read(master, 65536)
        except OSError:  # all who write have ended
            break
    process.wait()
    os.close(master)
    lines = output.decode().replace("\r\n", "\n").split("\n")
    return [line.rpartition("\x1b[K")[2] for line in lines[: -1 if lines[-1] == "" else None]]


def comparable(lines):
    text = "\n".join(lines)
    for pattern, same in VARYING:
        text = re.sub(pattern, same, text)
    return text.rstrip("\n")


def is_as_shown(shown, printed):
    pattern = re.escape("\n" + comparable(shown)).replace(re.escape("\n...") , r"(\n.*)*")
    return re.fullmatch(pattern, "\n" + comparable(printed)) is not None


def make_folder(path):
    """A clone's folder as the examples need it; `scripts/import` imports, but neither installs nor builds."""
    (path / "examples").symlink_to(PROJECT / "examples")
    (path / "build").mkdir()
    (path / "scripts").mkdir()
    script = path / "scripts" / "import"
    script.write_text('#!/bin/sh\nexec vorn import "$@"\n')
    script.chmod(0o755)


def main():
    passed = failed = 0
    for page in PAGES:
        with tempfile.TemporaryDirectory() as folder:
            make_folder(Path(folder))
            for number, command, shown in examples(page):
                printed = run(command, folder)
                if is_as_shown(shown, printed):
                    passed += 1
                    continue
                failed += 1
                print(f"{page.relative_to(PROJECT)}:{number}: {command}")
                print("\n".join(difflib.unified_diff(shown, printed, "shown", "printed", lineterm="")))
    print(f"{passed} passed, {failed} failed")
    sys.exit(failed != 0)


main()
