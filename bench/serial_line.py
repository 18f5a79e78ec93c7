#!/usr/bin/python3
"""Figures of real lines, on pseudo-terminals: docs/benchmarks.md has what was seen.

usage: serial_line.py PROGRAM speed|paced|drives|silent|noise [MINUTES]

speed   four parameters at 38400 from python3-pymodbus: as fast as it goes, and every 200 ms
paced   the same from a script that answers after the time that the bytes need at 9600 8E1
drives  30 drives on one line: a search, and a test of each
silent  a drive that stops answering in the middle of a recording, and comes back
noise   records for MINUTES (default: 60) while 5 % of the answers are damaged and 5 % late. Each answer has a number of
        its own, so that a value from any other answer than the one that was asked for is seen
"""
import json, os, pathlib, random, subprocess, sys, tempfile, time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests" / "serial"))
import slaves

PROGRAM = os.path.abspath(sys.argv[1])
COLUMNS = (3, 4, 5, 7)
BIT = 1 / 9600
FRAMES = 8 + 7  # bytes of a request and its answer


class Bench:
    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.port = self.folder / "line"

    def command(self, *arguments, keys=""):
        return [PROGRAM, "--profile", "profile", "--quiet", "--link",
                f"modbus:{self.port}?baud=38400&parity=none{keys}", *map(str, arguments)]

    def run(self, *arguments, keys=""):
        return subprocess.run(self.command(*arguments, keys=keys), cwd=self.folder, capture_output=True, text=True,
                              check=False).stdout

    def show_rate(self, what, points, keys=""):
        """By the difference of a long and a short reading, which leaves out the program's start."""
        seconds = []
        for count in (1, points + 1):
            begin = time.monotonic()
            assert len(self.run("read", 1, *COLUMNS * count, keys=keys).splitlines()) == count * len(COLUMNS)
            seconds.append(time.monotonic() - begin)
        taken = (seconds[1] - seconds[0]) / points
        print(f"{what}, as fast as it goes: {1000 * taken:.1f} ms a point, {1 / taken:.1f} points a second", flush=True)

    def record(self, every, points, keys=""):
        text = self.run("acquire", "--address", 1, "--parameters", ",".join(map(str, COLUMNS)), "--every", every,
                        "--points", points, "--file", "run.cht", "--json", keys=keys)
        return json.loads(text)

    def show_pace(self, what, every, points, keys=""):
        report = self.record(every, points, keys)
        pace = report["interval"]
        print(f"{what}, every {every}: {report['rows']} rows, {pace['shortest']} to {pace['longest']} ms, mean {pace['mean']} "
              f"ms, latest {pace['latest']} ms", flush=True)

    def rows(self):
        rows = (self.folder / "run.cht").read_text("latin-1").partition("[TIME/CONTENT]")[2].split()
        return [row.split("#")[1:1 + len(COLUMNS)] for row in rows]


def speed(bench):
    pair = slaves.start_pair(bench.port, bench.folder / "drives")
    server = slaves.start_server("serial", bench.folder / "drives", 1)
    time.sleep(2)
    for keys in ("&gap=5", "&gap=0"):
        bench.show_rate(f"38400 {keys[1:]}", 200, keys)
        bench.show_pace(f"38400 {keys[1:]}", "200ms", 100, keys)
    server.terminate(), pair.terminate()


def paced(bench):
    line = slaves.Line(bench.port, {(1, register): register for register in range(300)})
    line.plan = lambda drive, register, _: [FRAMES * 11 * BIT, line.answer(drive, 3, register)]
    bench.show_rate("9600 8E1", 100)
    bench.show_pace("9600 8E1", "200ms", 100)
    line.stop()


def drives(bench):
    slaves.Line(bench.port, {(drive, register): 0 for drive in range(1, 31) for register in range(10)})
    for drive in range(2, 31):
        bench.run("drives", "add", drive, "KRA-09")
    for what in (("scan",), ("drives", "test")):
        begin = time.monotonic()
        lines = bench.run(*what).splitlines()
        print(f"{' '.join(what)}: {len(lines)} lines in {time.monotonic() - begin:.2f} s")


def silent(bench):
    begin = time.monotonic()
    line = slaves.Line(bench.port, {(1, register): register for register in range(300)})
    line.plan = lambda *_: [] if 5 < time.monotonic() - begin < 8 else None
    bench.show_pace("a drive silent for 3 s", "200ms", 75)
    print(bench.run("info", "run.cht"))
    line.stop()


def noise(bench):
    minutes = float(sys.argv[3]) if len(sys.argv) > 3 else 60
    chance = random.Random(15)
    good, counts = set(), {"damaged": 0, "late": 0}

    def plan(_, register, count):
        if register not in COLUMNS:
            return None
        value = register * 4000 + count % 4000
        frame = slaves.with_checksum([1, 3, 2, value >> 8, value & 0xFF])
        what = chance.random()
        if what < 0.05:
            counts["damaged"] += 1
            bad = bytearray(frame)
            bad[chance.randrange(len(bad))] ^= 1 << chance.randrange(8)
            return [chance.choice([bytes(bad), frame[:chance.randrange(1, len(frame))], b"\xff" + frame])]
        if what < 0.10:
            counts["late"] += 1
            return [chance.uniform(0.31, 0.58), frame]
        good.add((register, value))
        return [frame]

    line = slaves.Line(bench.port, {(1, register): 0 for register in range(300)}, plan)
    child = subprocess.Popen(bench.command("acquire", "--address", 1, "--parameters", ",".join(map(str, COLUMNS)), "--every",
                                           "500ms", "--points", 1000000, "--file", "run.cht", "--json"), cwd=bench.folder,
                             stdout=subprocess.PIPE, text=True)
    time.sleep(minutes * 60)
    child.terminate()
    report = json.loads(child.communicate()[0])
    line.stop()
    failed = {entry["column"]: entry["failed"] for entry in report["failedReadings"]}
    values = zeros = foreign = 0
    for row in bench.rows():
        for register, text in zip(COLUMNS, row):
            values += 1
            if text == "0":
                zeros += 1
            elif (register, int(text.replace(".", ""))) not in good:
                foreign += 1
    print(f"{minutes:.0f} minutes: {len(line.requests)} requests, {counts['damaged']} answers damaged, {counts['late']} late; "
          f"{values} readings, {sum(failed.values())} failed ({zeros} zeros), {foreign} foreign values; interval "
          f"{report['interval']}")
    return 1 if foreign or zeros != sum(failed.values()) else 0


with tempfile.TemporaryDirectory(prefix="chartproject-") as place:
    the_bench = Bench(place)
    the_bench.run("drives", "add", 1, "KRA-09")
    sys.exit({"speed": speed, "paced": paced, "drives": drives, "silent": silent, "noise": noise}[sys.argv[2]](the_bench))
