#!/usr/bin/python3
"""Writes the rows of a chart file as a legacy workbook with two programs that nobody here wrote; prints what they took.

usage: workbook_peers.py CHARTFILE
"""
import csv, os, resource, subprocess, sys, tempfile, time


def points(chart_file):
    rows = False
    for line in open(chart_file, encoding="cp1252"):
        if rows:
            fields = line.rstrip().split("#")
            yield [fields[0]] + [float(f) if f else "" for f in fields[1:5]]
        rows = rows or "[TIME/CONTENT]" in line


def write_with_xlwt(chart_file, target):
    import xlwt
    book, sheet, number = xlwt.Workbook(), None, 0
    for i, row in enumerate(points(chart_file)):
        if i % 65534 == 0:
            number += 1
            sheet = book.add_sheet(f"Chart{number}")
        for column, value in enumerate(row):
            sheet.write(i % 65534, column, value)
        if i % 1000 == 999:
            sheet.flush_row_data()
    book.save(target)


def write_with_libreoffice(chart_file, folder):
    """One sheet holds 65,536 rows in this format, so longer files go through one conversion a sheet."""
    parts, writer, file = [], None, None
    for i, row in enumerate(points(chart_file)):
        if i % 65534 == 0:
            parts.append(os.path.join(folder, f"part{len(parts)}.csv"))
            file = open(parts[-1], "w", newline="")
            writer = csv.writer(file)
        writer.writerow(row)
    file.close()
    begin = time.monotonic()
    subprocess.run(["soffice", f"-env:UserInstallation=file://{folder}/profile", "--headless", "--convert-to", "xls",
                    "--outdir", folder] + parts, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    if not all(os.path.exists(part[:-4] + ".xls") for part in parts):
        sys.exit("LibreOffice wrote no workbook")
    return time.monotonic() - begin


def report(name, count, seconds, kilobytes):
    print(f"{name:28} {count:9} points {seconds:8.2f} s {kilobytes // 1024:7} MiB peak", flush=True)


def main():
    chart_file = sys.argv[1]
    count = sum(1 for _ in points(chart_file))
    with tempfile.TemporaryDirectory() as folder:
        if os.fork() == 0:
            begin = time.monotonic()
            write_with_xlwt(chart_file, os.path.join(folder, "xlwt.xls"))
            report("python3-xlwt", count, time.monotonic() - begin, resource.getrusage(resource.RUSAGE_SELF).ru_maxrss)
            os._exit(0)
        if os.wait()[1] != 0:
            sys.exit("python3-xlwt failed")
        seconds = write_with_libreoffice(chart_file, folder)
        report("LibreOffice from text", count, seconds, resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss)


main()
