#!/usr/bin/env python3
"""Tables, streams and workbooks as other programs read them. Usage: tables_test.py PROGRAM [unittest arguments]"""
import io, json, subprocess, unittest, xml.etree.ElementTree as xml, zipfile

from program_case import ProgramCase

HEADS = ["time", "P003 Motor current", "P005 Motor frequency"]


class TablesTest(ProgramCase):
    def setUp(self):
        super().setUp()
        self.put("plant.txt", "at 0 01 P003 1.50\nat 0 01 P005 50.25\nat 3000 01 P005 -\nat 5000 01 P005 7\n")
        self.acquire(10, expected=0)

    def export(self, *options, code=0):
        return self.run_program("--answer", "yes", "export", "run.cht", *options, expected=code)

    def test_readers_of_tables_take_them_unchanged(self):
        import pandas
        text = self.export("--plain", "--output", "-").stdout
        table = pandas.read_csv(io.StringIO(text), parse_dates=["time"])
        self.assertEqual((list(table.columns), len(table)), (HEADS, 10))
        self.assertEqual(str(table.time[0]), "2026-01-31 08:00:01+00:00")
        self.assertEqual(list(table[HEADS[2]].isna()), [False] * 2 + [True] * 2 + [False] * 6)
        self.assertEqual(table[HEADS[1]].dtype, float)
        self.export("--plain", "--output", "run.tsv")
        frame = pandas.read_csv(self.folder / "run.tsv", sep="\t", parse_dates=["time"])
        self.assertTrue(frame.equals(table))
        lines = [json.loads(line) for line in self.export("--plain", "--format", "jsonl", "--output", "-").stdout.split("\n")[:-1]]
        self.assertEqual([list(lines[0]), lines[2][HEADS[2]], lines[9][HEADS[2]]], [HEADS, None, 7.0])
        self.put("run.csv", text)
        count = subprocess.run(["sqlite3", ":memory:", ".import --csv run.csv t",
                                f'select count(*), max("{HEADS[1]}" + 0) from t'], cwd=self.folder, capture_output=True, text=True)
        self.assertEqual(count.stdout.strip(), "10|1.5", count.stderr)
        stats = subprocess.run(["gnuplot", "-e", "set datafile separator ','; stats 'run.csv' skip 1 using 3 nooutput; "
                                "print STATS_records, STATS_max"], cwd=self.folder, capture_output=True, text=True)
        self.assertEqual(stats.stderr.split(), ["8", "50.25"])

    def test_a_file_of_an_unknown_drive_keeps_its_texts_and_no_recording_is_replaced(self):
        self.put("run.cht", "[INFO]\r\nNumber of Parameters=1\r\nPXXX1=002\r\n[TIME/CONTENT]\r\n"
                 "08:00:00#10-20#####\r\n08:00:01#--#####\r\n")
        self.assertEqual(self.export("--plain", "--output", "-").stdout, "time,P002\n08:00:00,10-20\n08:00:01,\n")
        self.export("--output", "run.XLSX")
        with zipfile.ZipFile(self.folder / "run.XLSX") as book:
            self.assertIn(b"<t>10-20</t>", book.read("xl/worksheets/sheet2.xml"))
        self.put("other.cht", "[INFO]\r\n")
        self.assertIn("is a recording", self.export("--plain", "--format", "csv", "--output", "other.cht", code=2).stderr)

    def test_a_workbook_with_charts_header_and_dated_points(self):
        self.acquire(40000, expected=0)
        self.export("--output", "run.xlsx", "--first", 2)
        with zipfile.ZipFile(self.folder / "run.xlsx") as book:
            sheets = [sheet.get("name") for sheet in xml.fromstring(book.read("xl/workbook.xml")).iter() if sheet.tag.endswith("}sheet")]
            self.assertEqual(sheets, ["Charts", "Recording", "Points", "Chart data"])
            self.assertEqual(sum(name.startswith("xl/charts/") for name in book.namelist()), 2)
            rows = {number: [row for row in xml.fromstring(book.read(f"xl/worksheets/sheet{number}.xml")).iter()
                             if row.tag.endswith("}row")] for number in (3, 4)}
        first = [cell[0].text for cell in rows[3][1]]
        self.assertEqual([float(text) for text in first], [46053 + 8 / 24 + 2 / 86400, 1.5, 50.25])
        self.assertEqual((len(rows[3]), len(rows[3][2])), (40000, 2), "a gap is an empty cell")
        self.assertTrue(20000 <= len(rows[4]) <= 30001, len(rows[4]))
        self.export("--output", "few.xlsx", "--first", 2, "--points", 3)
        with zipfile.ZipFile(self.folder / "few.xlsx") as book:
            self.assertEqual(book.read("xl/worksheets/sheet4.xml").count(b"<row "), 4, "each of few points is drawn")


if __name__ == "__main__":
    unittest.main(verbosity=2)
