"""What the program tells on a terminal, to shells and to readers."""
import os
import pty
import re
import select
import subprocess
import time
from contextlib import closing

from support import BOOKSHOP, EXAMPLES, VORN, Program, vorn


class Terminal:
    def __init__(self, *command, **environment):
        self.process, self.end = pty.fork()
        if self.process == 0:
            os.execvpe(command[0], list(map(str, command)), {**os.environ, "TERM": "xterm", **environment})
        self.seen = ""

    def close(self):
        os.close(self.end)
        os.waitpid(self.process, 0)

    def type(self, keys):
        self.seen = ""
        os.write(self.end, keys.encode())

    def wait_for(self, pattern, seconds=10):
        """Whether that comes to be seen before the time is over or the process ends."""
        until = time.monotonic() + seconds
        while not re.search(pattern, self.seen) and select.select([self.end], [], [], max(0, until - time.monotonic()))[0]:
            try:
                self.seen += os.read(self.end, 65536).decode()
            except OSError:
                break
        return re.search(pattern, self.seen) is not None


class Progress(Program):
    def large_export(self, columns):
        sections = (EXAMPLES / "harbour.txt").read_bytes().split(b"\x1c")
        records = sections[6].split(b"\r")
        sections[6] = b"\r".join(records * (columns // len(records)))
        return self.export(b"\x1c".join(sections))

    def test_a_bar_on_a_terminal_that_leaves_no_trace(self):
        export = self.large_export(100_000)
        with closing(Terminal(VORN, "import", export, "-o", self.out)) as terminal:
            terminal.wait_for(r" s\r\n", 60)
        self.assertNotIn("STATUS", terminal.seen)
        self.assertRegex(terminal.seen, r"\r\x1b\[K(assembling +\[#+-+\] \d+ %  \d+ of 15|saving [\d.]+M)")
        left = [re.split(r"\r\x1b\[K", line)[-1].rstrip("\r") for line in terminal.seen.split("\n")]
        self.assertEqual([line for line in left if not re.match(r"WARNING |\d+ tables, .* s$|$", line)], [])
        for command in ('"$@" -q', '"$@" 2>&1 | cat'):
            with closing(Terminal("sh", "-c", command + "; echo end", "-", VORN, "import", export, "-o", self.out)) as terminal:
                self.assertTrue(terminal.wait_for("end\r\n", 60))
            self.assertNotIn("\x1b", terminal.seen)

    def test_the_bar_tells_what_is_read_of_the_file(self):
        with closing(Terminal(VORN, "import", self.large_export(400_000), "-o", self.out)) as terminal:
            self.assertTrue(terminal.wait_for(r"\r\x1b\[Kreading +\[#*-+\] \d+ %  [\d.]+M of \d\d\.\dM"), terminal.seen)
            self.assertTrue(terminal.wait_for(r"\r\x1b\[K\d+ tables, .* s\r\n", 60), terminal.seen)
        with closing(Terminal(VORN, "import", BOOKSHOP, "-v", "-o", self.out)) as terminal:
            self.assertTrue(terminal.wait_for("STATUS KVB_SRRDM_S0012 "), terminal.seen)


class Warnings(Program):
    def test_equal_ones_are_one_line_on_a_terminal_and_stand_by_themselves_in_a_pipe(self):
        records = [b"\t1\tnowhere\tc\xe9", *[b"\t%d\tnowhere" % n for n in range(2, 15)]]
        bound = b"\x1c" * 27 + b"\t7\t\t\t\t\t\t\tnone"
        lost = b"\x1c" * 6 + b"\r".join(records) + bound[6:] + b"\x1c" * 41
        line = "WARNING KVB_SRRDM_W0015 Cannot connect the attribute to its entity"
        other = "WARNING KVB_SRRDM_W0013 Cannot connect the association to its parent/child entity"
        for export, status, last in ((lost, 0, r"0 tables, .*; 15 warnings; .* s"), (lost[:-5], 3, "FATAL KVB_SRRDM_F0003 .*")):
            arguments = ["import", self.export(export), "-o", self.out]
            with closing(Terminal(VORN, *arguments)) as terminal:
                terminal.wait_for("\0")
            lines = [line for line in terminal.seen.splitlines() if not line.startswith("STATUS")]
            if status == 0:
                self.assertEqual(lines[:2], [line + " (14 times, first for 'cé')", other + " (for '7')"])
            self.assertRegex(lines[2 if status == 0 else 0], f"^{last}$")
            done = vorn(*arguments)
            self.assertEqual((done.returncode, done.stderr.decode().count(line + "\n")), (status, 0 if status else 14))
            with closing(Terminal(VORN, "-v", *arguments)) as terminal:
                terminal.wait_for("\0")
            self.assertEqual(terminal.seen.count(line + "\r\n"), 0 if status else 14)


class ManPage(Program):
    def test_renders_without_a_complaint_and_has_every_option(self):
        page = self.folder / "vorn.1"
        page.write_bytes(vorn("man").stdout)
        done = subprocess.run(["man", "--warnings", "-E", "UTF-8", "-l", "-P", "cat", page], capture_output=True,
                              env={**os.environ, "MANWIDTH": "80", "LC_ALL": "C.UTF-8", "MAN_KEEP_FORMATTING": ""})
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        text = re.sub(".\b", "", done.stdout.decode())
        for word in ["--output-folder", "origin|destination", "vorn bridge data-stores", "vorn import bookshop.txt -o bookshop.json", "DESCRIPTION\n",
                     "FILES\n", "SEE ALSO\n", "BUGS\n", "EXAMPLES\n", "VORN_BRIDGE\n"]:
            self.assertIn(word, text)
        self.assertRegex(text, r"\nvorn \d+\.\d+\.\d+ +20\d\d-\d\d-\d\d +VORN\(1\)\n$")


class Completion(Program):
    CASES = [("vorn bri", "bridge"), ("vorn -v bridge da", "data-stores"), ("vorn import --output-f", "--output-folder"),
             ("vorn import x --role-names ori", "origin"), ("vorn bridge passes --verb", "--verbose"),
             ("vorn import --dialect=post", "--dialect=postgresql"), ("vorn info x --encoding gb1", "gb18030"),
             ("vorn import x --tool-version 2.7", "2.7.2"), ("vorn help dia", "dialects"), (f"vorn import {BOOKSHOP}"[:-2], str(BOOKSHOP)),
             (f"vorn import x --report {BOOKSHOP}"[:-2], str(BOOKSHOP)), (f"vorn import x -j {BOOKSHOP}"[:-2], str(BOOKSHOP)[:-2]),
             (f"vorn import x -O {BOOKSHOP.parent}"[:-2], f"{BOOKSHOP.parent}/"), (f"vorn formats {BOOKSHOP}"[:-2], str(BOOKSHOP)[:-2])]

    def test_in_the_shells(self):
        path = f"{VORN.parent}:{os.environ['PATH']}"
        for shell, start in [(["bash", "--norc"], "source <(vorn completion bash)"),
                             (["zsh", "-f"], "autoload -U compinit; compinit -D -u; source <(vorn completion zsh)")]:
            with closing(Terminal(*shell, "-i", PATH=path)) as terminal:
                terminal.type(f"unset zle_bracketed_paste; PS1=; {start}; echo re''ady\n")
                self.assertTrue(terminal.wait_for("ready\r\n"), terminal.seen)
                for line, word in self.CASES:
                    terminal.type(line + "\t\x01echo '<\x05>'\n")
                    self.assertTrue(terminal.wait_for(rf"<{line.rpartition(' ')[0]} {word.rstrip('/')}/? ?>\r\n"), (shell, line, terminal.seen))
                terminal.type("exit\n")

    def test_in_fish(self):
        for line, word in self.CASES:
            done = subprocess.run(["fish", "--no-config", "-c", f"vorn completion fish | source; complete -C '{line}'"], capture_output=True,
                                  text=True, env={**os.environ, "PATH": f"{VORN.parent}:{os.environ['PATH']}", "HOME": str(self.folder)})
            offered = [row.partition("\t")[0] for row in done.stdout.splitlines()]
            self.assertEqual((offered, done.stderr), ([word] if word != line.rpartition(" ")[2] else [], ""), line)
