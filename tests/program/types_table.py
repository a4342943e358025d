"""The table of types that is printed, and a user's own in front of it."""
from support import EXAMPLES, Program, vorn

HARBOUR = EXAMPLES / "harbour.txt"


class Types(Program):
    def rules(self, *lines):
        path = self.folder / "types.tsv"
        path.write_bytes("\n".join(lines).encode())
        return path

    def script(self, *options):
        done = vorn("import", HARBOUR, "-q", "-t", "sql", *options)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout.decode()

    def test_what_is_printed_can_be_given_back(self):
        table = vorn("types").stdout.decode()
        for dialect in ("postgresql", "sqlserver"):
            printed = vorn("types", "--dialect", dialect).stdout.decode().splitlines()
            self.assertTrue(set(printed) < set(table.splitlines()))
            self.assertEqual({line.split("\t")[3] for line in printed[1:]}, {dialect})
            for lines in (printed, table.splitlines()):
                given = self.script("--dialect", dialect, "--types", self.rules(*lines))
                self.assertEqual(given, self.script("--dialect", dialect))

    def test_own_rules_go_first_and_the_first_that_fits_counts(self):
        plain = self.script("--dialect", "postgresql")
        self.assertRegex(plain, r"CHAR\(\d+\)")
        rules = self.rules("# ours", "", "VARCHAR\t1-30\t\tpostgresql\tOURS({length})", "VARCHAR\t\t\t\tcitext",
                           "ORACLE:NUMERIC\t\t0\tpostgresql\tNUM({precision},{scale})\tall", "NUMERIC\t\t\t\tWRONG")
        written = self.script("--dialect", "postgresql", "--types", rules)
        self.assertRegex(written, r" OURS\(30\)| OURS\(\d\d?\)")
        self.assertIn(" citext", written)
        self.assertLess(written.count("VARCHAR("), plain.count("VARCHAR("))  # what is left are national ones

    def test_mistakes_are_reported_with_their_lines(self):
        rules = self.rules("source type\tlengths\tscales\tdialect\ttarget type\tloses", "VARCHAR\t1", "NO TYPE\t\t\t\tX", "NO_STORE:DATE\t\t\t\tX",
                           "DATE\t5-1\t\t\tX", "DATE\tx\t\t\tX", "DATE\t-1\t\t\tX", "DATE\t\t1-x\t\tX", "DATE\t\t\tpostgres95\tX", "DATE\t\t\t\t",
                           "DATE\t\t\t\tX; DROP TABLE t", "DATE\t\t\t\tX)", "TIME\t\t\t\tX", "TIME\t\t\t\tY")
        lines = self.fails(["import", HARBOUR, "-t", "sql", "--types", rules], 2, r"types.tsv, line 2: it has 2 columns, not 5 or 6")
        found = [int(line.partition(", line ")[2].partition(":")[0]) for line in lines if ", line " in line]
        self.assertEqual(sorted(set(found)), list(range(2, 13)) + [14])
        self.assertRegex("\n".join(lines), r"line 3: there is no type 'NO TYPE'")
        self.assertRegex("\n".join(lines), r"line 14: line 13 has the same type, sizes and dialect")
        self.fails(["import", HARBOUR, "--types", self.folder / "none.tsv"], 2, r"Cannot read '.*none.tsv': No such file or directory")
        self.fails(["types", "--dialect", "nosuch"], 2, r"there is no dialect 'nosuch'")

    def test_decimals_may_be_kept(self):
        bookshop = ["import", EXAMPLES / "bookshop.txt", "-q", "-t", "sql", "--dialect", "postgresql"]
        integers, decimals = (vorn(*bookshop, *options).stdout.decode() for options in ([], ["--decimals", "keep"]))
        self.assertRegex(integers, r" (SMALLINT|INTEGER|BIGINT)\b")
        self.assertNotRegex(decimals, r" (SMALLINT|INTEGER|BIGINT)\b")
        self.assertRegex(decimals, r" NUMERIC\(\d+,0\)")
