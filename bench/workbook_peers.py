#!/usr/bin/python3
"""Writes the points of a chart file with the program and with others that nobody here wrote, one after the other; prints
what each took: wall clock, processor time, peak memory of the process.

usage: workbook_peers.py CHARTFILE [PROGRAM]     PROGRAM: a built chartproject; without it the other programs alone
"""
import csv, datetime, os, sys, tempfile, time

XLSX_CHART_POINTS = 30_000


def points(chart_file):
    rows = False
    for line in open(chart_file, encoding="cp1252"):
        if rows:
            fields = line.rstrip().split("#")
            yield [fields[0]] + [float(f) if f else "" for f in fields[1:5]]
        rows = rows or "[TIME/CONTENT]" in line


def measured(name, count, action):
    """Runs the action in a process of its own."""
    begin = time.monotonic()
    child = os.fork()
    if child == 0:
        try:
            action()
        except BaseException as error:
            print(f"{name}: {error!r}", file=sys.stderr)
            os._exit(1)
        os._exit(0)
    _, status, used = os.wait4(child, 0)
    wall = time.monotonic() - begin
    if status != 0:
        sys.exit(f"{name} failed")
    print(f"{name:34} {count:9} points {wall:7.2f} s wall {used.ru_utime + used.ru_stime:7.2f} s processor "
          f"{used.ru_maxrss // 1024:6} MiB peak", flush=True)


def run(*command):
    """In the place of the measured process, so that its memory and time are the program's."""
    def action():
        null = os.open(os.devnull, os.O_WRONLY)
        for stream in (1, 2):
            os.dup2(null, stream)
        os.execvp(command[0], command)
    return action


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


def write_with_xlsxwriter(chart_file, target, count):
    """The workbook of the program's export: a sheet with the charts of a thinned copy, and dated points in a sheet with a
    frozen, filtered head row. The thinned copy is every n-th point, which is less work than the program's extremes."""
    import xlsxwriter
    book = xlsxwriter.Workbook(target, {"constant_memory": True})
    charts, data, copy = (book.add_worksheet(name) for name in ("Charts", "Data", "Copy"))
    dated = book.add_format({"num_format": "yyyy-mm-dd hh:mm:ss.000"})
    heads = ["time", "P002", "P003", "P004", "P005"]
    data.set_column(0, 0, 24)
    data.set_column(1, 4, 14)
    data.write_row(0, 0, heads)
    data.freeze_panes(1, 0)
    data.autofilter(0, 0, count, 4)
    start, every, shown = datetime.datetime(2026, 2, 1, 0, 0, 1), -(-count // XLSX_CHART_POINTS), 0
    for i, row in enumerate(points(chart_file)):
        if i == count:
            break
        moment = start + datetime.timedelta(seconds=i)
        data.write_datetime(i + 1, 0, moment, dated)
        data.write_row(i + 1, 1, row[1:])
        if i % every == 0:
            copy.write_datetime(shown, 0, moment, dated)
            copy.write_row(shown, 1, row[1:])
            shown += 1
    for series in range(1, 5):
        chart = book.add_chart({"type": "scatter", "subtype": "straight"})
        chart.add_series({"name": heads[series], "categories": ["Copy", 0, 0, shown - 1, 0],
                          "values": ["Copy", 0, series, shown - 1, series]})
        charts.insert_chart(15 * (series - 1), 0, chart)
    book.close()


def write_with_libreoffice(chart_file, folder, count):
    """One sheet holds 65,536 rows in this format, so longer files go through one conversion a sheet. Making its input is
    not measured."""
    parts, writer, file = [], None, None
    for i, row in enumerate(points(chart_file)):
        if i % 65534 == 0:
            parts.append(os.path.join(folder, f"part{len(parts)}.csv"))
            file = open(parts[-1], "w", newline="")
            writer = csv.writer(file)
        writer.writerow(row)
    file.close()
    measured("LibreOffice, .xls from text", count,
             run("soffice", f"-env:UserInstallation=file://{folder}/profile", "--headless", "--convert-to", "xls",
                 "--outdir", folder, *parts))
    if not all(os.path.exists(part[:-4] + ".xls") for part in parts):
        sys.exit("LibreOffice wrote no workbook")


def write_with_pandas(table, target, count):
    """The program's own table, read and written again; the writing alone is in the second line."""
    def action():
        import pandas
        frame = pandas.read_csv(table)
        begin, used = time.monotonic(), time.process_time()
        frame.to_csv(target, index=False)
        print(f"{'  of that, pandas to_csv alone':34} {count:9} points {time.monotonic() - begin:7.2f} s wall "
              f"{time.process_time() - used:7.2f} s processor", flush=True)
    measured("pandas, .csv read and written", count, action)
    import pandas
    written, read = pandas.read_csv(target), pandas.read_csv(table)
    if len(read) != count or not written.equals(read):
        sys.exit("pandas and the program disagree")


def main():
    chart_file, program = sys.argv[1], os.path.abspath(sys.argv[2]) if len(sys.argv) > 2 else None
    count = sum(1 for _ in points(chart_file))
    sheet = min(count, 1_000_000)
    with tempfile.TemporaryDirectory() as folder:
        def file(name):
            return os.path.join(folder, name)
        if program:
            ours = [program, "--profile", file("profile"), "--answer", "yes", "--quiet", "export", chart_file]
            table = file("ours.csv")
            measured("chartproject --plain, .csv", count, run(*ours, "--plain", "--output", table))
            write_with_pandas(table, file("pandas.csv"), count)
            for name in (table, file("pandas.csv")):
                os.remove(name)
            measured("chartproject, .xlsx with charts", sheet,
                     run(*ours, "--output", file("ours.xlsx"), "--first", "1", "--points", str(sheet)))
        measured("xlsxwriter for Python, .xlsx", sheet,
                 lambda: write_with_xlsxwriter(chart_file, file("peer.xlsx"), sheet))
        if count > 1_000_000:
            return  # the legacy format: minutes of the other programs
        if program:
            measured("chartproject, .xls", count, run(*ours, "--output", file("ours.xls")))
        measured("python3-xlwt, .xls", count, lambda: write_with_xlwt(chart_file, file("xlwt.xls")))
        write_with_libreoffice(chart_file, folder, count)


main()
