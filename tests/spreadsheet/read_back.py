#!/usr/bin/python3
"""Compares a workbook, read by programs that nobody here wrote, with the chart file that it was exported from.

usage: read_back.py CHARTFILE WORKBOOK   (exit 0: every cell of every reader is right)
"""
import csv, glob, itertools, math, os, subprocess, sys, tempfile

import xlrd

LABELS = ["Drive Address", "Number of Parameters", "PXXX1", "PXXX2", "PXXX3", "PXXX4", "Scan Time", "Unit",
          "Number of Points", "Trigger Mode", "Event", "PXXX", "Content", "Start Date", "Start Time", "End Date",
          "End Time"]


def number_or_text(text):
    try:
        return float(text)
    except ValueError:
        return text


def expected_sheets(chart_file):
    """The sheets as rows of cells, by the layout that users know."""
    lines = open(chart_file, encoding="cp1252", newline="").read().split("\r\n")
    header = dict(line.split("=", 1) for line in lines if "=" in line)
    first = [["[INFO]"]] + [[label, header.get(label, "")] for label in LABELS] + [[], ["[TIME/CONTENT]"]]
    first.append(["Time"] + [f"PXXX{s}.Content" for s in (1, 2, 3, 4)])
    points = []
    for line in lines[lines.index("[TIME/CONTENT]") + 1:]:
        fields = line.split("#")
        if len(fields) == 7:
            points.append([fields[0]] + [number_or_text(value) for value in fields[1:5]])
    sheets = [first + points[:65513]]
    sheets += [points[i:i + 65534] for i in range(65513, len(points), 65534)]
    return [[strip(row) for row in sheet] for sheet in sheets]


def strip(row):
    while row and row[-1] == "":
        row = row[:-1]
    return row


def by_xlrd(workbook, _folder):
    book = xlrd.open_workbook(workbook)
    return [[strip(sheet.row_values(r)) for r in range(sheet.nrows)] for sheet in book.sheets()], book.sheet_names()


def read_csv(names):
    return [[strip(row) for row in csv.reader(open(name, encoding="utf-8", newline=""))] for name in names]


def by_gnumeric(workbook, folder):
    subprocess.run(["ssconvert", "-S", workbook, os.path.join(folder, "g-%n.csv")], check=True,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    names = sorted(glob.glob(os.path.join(folder, "g-*.csv")), key=lambda n: int(n.split("-")[-1][:-4]))
    return read_csv(names), None


def by_libreoffice(workbook, folder):
    options = "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,false,false,false,-1"
    subprocess.run(["soffice", f"-env:UserInstallation=file://{folder}/profile", "--headless", "--convert-to", options,
                    "--outdir", folder, workbook], check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    names = sorted(glob.glob(os.path.join(folder, "*-Chart*.csv")),
                   key=lambda n: int(n[n.rindex("-Chart") + 6:-4]))  # it answers 0 also when it wrote nothing
    return read_csv(names), [os.path.basename(n)[:-4].rsplit("-", 1)[1] for n in names]


def same(wanted, found):
    if isinstance(wanted, str):
        return found == wanted
    # One reader's own parsing of modern workbooks is off by the last bit here and there.
    return isinstance(number_or_text(found), float) and math.isclose(float(found), wanted, rel_tol=3e-16)


def problems(wanted, found, names):
    if names is not None and names != [f"Chart{i + 1}" for i in range(len(wanted))]:
        yield f"sheet names {names}"
    for s, sheets in enumerate(itertools.zip_longest(wanted, found, fillvalue=[]), 1):
        for r, (want, have) in enumerate(itertools.zip_longest(*sheets, fillvalue=[]), 1):
            if len(want) != len(have) or not all(map(same, want, have)):
                yield f"sheet {s} row {r}: {have}, wanted {want}"


def main():
    chart_file, workbook = sys.argv[1:]
    wanted = expected_sheets(chart_file)
    right = True
    readers = (by_xlrd, by_gnumeric, by_libreoffice)
    if workbook.endswith(".csv"):  # one text without sheets
        # An apostrophe keeps a formula a text there.
        readers = (lambda name, _folder: ([[[cell.removeprefix("'") for cell in row] for row in sheet]
                                           for sheet in read_csv([name])], None),)
        wanted = [sum(wanted, [])]
    for reader in readers:
        with tempfile.TemporaryDirectory() as folder:
            found, names = reader(workbook, folder)
        wrong = list(problems(wanted, found, names))
        print(f"{reader.__name__}: {len(found)} sheets, {len(wrong)} problems", *wrong[:5], sep="\n  ")
        right = right and not wrong
    sys.exit(0 if right else 1)


main()
