#!/usr/bin/python3
"""Prints pages with the built program and reads them back: as PDF files, and as a printer receives them.
Usage: print_test.py PROGRAM [unittest arguments]"""
import json, os, pathlib, subprocess, sys, tempfile, unittest

PROGRAM = os.path.abspath(sys.argv.pop(1))
CUPS = [sys.executable, str(pathlib.Path(__file__).parent / "private_cups.py")]

LABELS = ["Chart File:", "Drive Address:", "Parameters:", "Grid:", "Marker:", "Line:", "Chart Type:",
          "Time among Points:", "Number of Points:"]


class PrintTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.holder = tempfile.TemporaryDirectory(prefix="chartproject-print-")
        cls.folder = pathlib.Path(cls.holder.name)
        cls.program("init", "project", check=True)
        cls.program("--clock", "virtual", "--start", "2026-01-31 08:00:00", "acquire", "--address", "1", "--parameters",
                    "3,5,2,6", "--points", "25", "--every", "200ms", "--file", "page.cht", check=True)

    @classmethod
    def tearDownClass(cls):
        cls.holder.cleanup()

    @classmethod
    def program(cls, *arguments, check=False, before=()):
        return subprocess.run([*before, PROGRAM, "--profile", "profile", *arguments], cwd=cls.folder, check=check,
                              capture_output=True, text=True, timeout=120, stdin=subprocess.DEVNULL,
                              env={**os.environ, "LC_ALL": "C.UTF-8"})

    def tool(self, *command):
        return subprocess.run(command, cwd=self.folder, check=True, capture_output=True, text=True).stdout.splitlines()

    def check_page(self, name):
        lines = [line.strip() for line in self.tool("pdftotext", "-layout", name, "-") if line.strip()]
        self.assertEqual(lines[0], "Kestrel v5.60")
        self.assertTrue(lines[1].endswith("page.cht"), lines[1])
        self.assertEqual([label for line in lines[2:] for label in LABELS if line.startswith(label)], LABELS)
        text = "\n".join(lines)
        for part in ("P003", "P005", "P002", "P006", "200 ms"):
            self.assertIn(part, text)
        self.assertTrue(any(line.endswith(" 25") for line in lines), lines)

    def test_report_in_three_languages_on_two_papers(self):
        words = {"Portuguese": ("Gravação", "Intervalo real:", "Estatísticas", "Página 2 de 2"),
                 "Spanish": ("Grabación", "Intervalo real:", "Estadísticas", "Página 2 de 2"),
                 "English": ("Recording", "Real interval:", "Statistics", "Page 2 of 2")}
        measured = json.loads(self.program("info", "page.cht", "--json", "--first", "1").stdout)["range"]["series"]
        for language, texts in words.items():
            self.program("settings", "MyConf.strLanguage", language, check=True)
            for paper in ("A4", "Letter"):
                for name, more in (("plain.pdf", ()), ("report.pdf", ("--report", "--title", "Pump 3", "--cursors", "3,9",
                                                                      "--remark", "Läuft.\n" + "word " * 300))):
                    done = self.program("print", "page.cht", "--output", name, "--paper", paper, *more)
                    self.assertEqual(done.returncode, 0, done.stderr)
                plain = [" ".join(line.split()) for line in self.tool("pdftotext", "-layout", "plain.pdf", "-")]
                pages = [self.tool("pdftotext", "-layout", "-f", number, "-l", number, "report.pdf", "-") for number in "12"]
                first = [" ".join(line.split()) for line in pages[0]]
                self.assertEqual([line for line in plain[2:] if line not in first], [], "the page is as ever")
                text = "\n".join(sum(pages, []))
                for part in (*texts, "Pump 3", "Läuft.", "P003", *(f"{series['rms']:.10g}" for series in measured)):
                    self.assertIn(part, text, (language, paper))
                fonts = self.tool("pdffonts", "report.pdf")[2:]
                self.assertTrue(fonts and all(row.split()[-5] == "yes" for row in fonts), ("embedded", fonts))
                images = self.tool("pdfimages", "-list", "report.pdf")[2:]
                self.assertEqual({row.split()[0] for row in images}, {"1"}, "the report's chart is drawn as lines")

    def test_paper(self):
        for arguments, locale, size in (((), "en_US.UTF-8", "612 x 792"), ((), "de_DE.UTF-8", "595"),
                                        (("--paper", "letter"), "C.UTF-8", "612 x 792"),
                                        (("--paper", "A5"), "en_US.UTF-8", "420")):
            done = subprocess.run([PROGRAM, "--profile", "profile", "print", "page.cht", "--output", "paper.pdf", *arguments],
                                  cwd=self.folder, capture_output=True, text=True, env={**os.environ, "LC_ALL": locale})
            self.assertEqual(done.returncode, 0, done.stderr)
            sizes = [row for row in self.tool("pdfinfo", "paper.pdf") if row.startswith("Page size:")]
            self.assertIn(size, sizes[0], (arguments, locale))
        self.assertEqual(self.program("print", "page.cht", "--paper", "B7").returncode, 2)

    def test_printer_receives_the_page(self):
        self.program("settings", "MyConf.strLanguage", "English", check=True)
        done = self.program("print", "page.cht", before=[*CUPS, "accepting", "received.pdf"])
        self.assertEqual(done.returncode, 0, done.stderr)
        self.check_page("received.pdf")

    def test_a_printer_that_takes_nothing_is_an_error(self):
        done = self.program("print", "page.cht", before=[*CUPS, "rejecting", "never.pdf"])
        self.assertEqual(done.returncode, 1, done.stderr)
        self.assertRegex(done.stderr, "TESTQ(.|\n)*not accepting|not accepting(.|\n)*TESTQ")
        self.assertFalse((self.folder / "never.pdf").exists())

    def test_files_that_cannot_be_written_or_read(self):
        (self.folder / "copy.cht").write_bytes((self.folder / "page.cht").read_bytes())
        for code, arguments in ((1, ("print", "page.cht", "--output", "no/such/folder.pdf")), (1, ("print", "missing.cht")),
                                (2, ("print", "page.cht", "--output", "/dev/null")),
                                (2, ("print", "page.cht", "--output", "copy.cht"))):
            done = self.program(*arguments)
            self.assertEqual(done.returncode, code, arguments)
            self.assertTrue(done.stderr.strip(), arguments)
        limit = ["bash", "-c", "trap '' XFSZ; ulimit -f 8; exec \"$@\"", "limited"]  # as a full disk
        done = self.program("print", "page.cht", "--output", "cut.pdf", before=limit)
        self.assertEqual(done.returncode, 1, done.stderr)
        self.assertEqual(list(self.folder.glob("cut.pdf*")), [])
        for more in (("--first", "26", "--output", "x.pdf"), ("--output", "page.cht"), ("--title", "T", "--output", "x.pdf"),
                     ("--report", "--cursors", "3,26", "--output", "x.pdf"), ("--report", "--first", "26", "--output", "x.pdf")):
            self.assertEqual(self.program("print", "page.cht", *more).returncode, 2)
        self.assertEqual(self.program("info", "page.cht").returncode, 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)
