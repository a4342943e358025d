"""What the tests of the program share: the program, exports, and a folder for each test."""
import os
import signal
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

VORN = Path(sys.argv[1]).resolve()
EXAMPLES = Path(__file__).resolve().parents[2] / "examples"
BOOKSHOP = EXAMPLES / "bookshop.txt"
EMPTY_EXPORT = b"\x1c" * 68

# What runs in the background is begun with these ignored, and programs keep to that.
for number in (signal.SIGINT, signal.SIGQUIT):
    if signal.getsignal(number) == signal.SIG_IGN:
        signal.signal(number, signal.SIG_DFL)

# To the superuser every file is readable, unless these rights are given up.
UNPRIVILEGED = ["setpriv", "--bounding-set=-dac_override,-dac_read_search"] if os.geteuid() == 0 else []


def vorn(*arguments, **environment):
    return subprocess.run([*UNPRIVILEGED, VORN, *map(str, arguments)], capture_output=True,
                          env={**os.environ, **environment})


class Program(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.out = self.folder / "model.json"

    def export(self, content):
        path = self.folder / "export.txt"
        path.write_bytes(content)
        return path

    def fails(self, arguments, status, pattern, **environment):
        """One clear line on standard error, the status, nothing on standard output, no new file."""
        before = sorted(self.folder.rglob("*"))
        done = vorn(*arguments, **environment)
        lines = [line for line in done.stderr.decode().splitlines() if not line.startswith("STATUS")]
        self.assertEqual((done.returncode, done.stdout), (status, b""), done.stderr)
        self.assertRegex(lines[0], pattern)
        self.assertEqual(sorted(self.folder.rglob("*")), before)
        return lines
