#!/usr/bin/python3
"""Draws or loads the same chart file with two programs that nobody here wrote; prints what they took.

usage: chart_peers.py CHARTFILE
"""
import os, resource, subprocess, sys, tempfile, time

HEADER_LINES = 20


def report(name, seconds):
    peak = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss / 1024
    print(f"{name:45} {seconds * 1000:10.0f} ms   largest child so far {peak:6.0f} MiB", flush=True)


def timed(name, command):
    begin = time.perf_counter()
    subprocess.run(command, check=True)
    report(name, time.perf_counter() - begin)


def draw_with_gnuplot(chart_file, first, last, target):
    script = (
        f"set terminal png size 1280,720; set output '{target}'; set datafile separator '#';"
        f"plot for [c=2:5] '{chart_file}' every ::{HEADER_LINES - 1 + first}::{HEADER_LINES - 1 + last}"
        " using 0:c with lines notitle"
    )
    timed(f"gnuplot, points {first} to {last}", ["gnuplot", "-e", script])


def load_with_pandas(chart_file):
    script = (
        "import pandas, sys; "
        "t = pandas.read_csv(sys.argv[1], sep='#', header=None, skiprows=20, names=list('tabcdef'), dtype={'t': str});"
        "assert len(t) > 0"
    )
    timed("pandas, the whole file", [sys.executable, "-c", script, chart_file])


def main():
    chart_file = sys.argv[1]
    with tempfile.TemporaryDirectory() as folder:
        picture = os.path.join(folder, "chart.png")
        draw_with_gnuplot(chart_file, 1, 25, picture)
        draw_with_gnuplot(chart_file, 19999976, 20000000, picture)
    load_with_pandas(chart_file)


main()
