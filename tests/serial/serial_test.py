#!/usr/bin/env python3
"""Runs the built program on real terminals: a scripted line that misbehaves, and drives by pymodbus.
Usage: serial_test.py PROGRAM SLAVE [unittest arguments]   SLAVE: modbus_slave of this folder"""
import os, pathlib, signal, socket, subprocess, sys, tempfile, time, unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import slaves

PROGRAM = os.path.abspath(sys.argv.pop(1))
SLAVE = os.path.abspath(sys.argv.pop(1))
ENVIRONMENT = {**os.environ, "LC_ALL": "C"}
SPEED = "baud=38400&parity=none"  # a pseudo-terminal keeps no parity


class SerialCase(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        holder = tempfile.TemporaryDirectory(prefix="chartproject-")
        self.addCleanup(holder.cleanup)
        self.folder = pathlib.Path(holder.name)
        self.port = self.folder / "line"

    def line(self, values, plan=None):
        line = slaves.Line(self.port, values, plan)
        self.addCleanup(line.stop)
        return line

    def command(self, *arguments, keys="", link=None):
        chosen = link or f"modbus:{self.port}?{SPEED}{keys}"
        return [PROGRAM, "--profile", "profile", "--quiet", "--link", chosen, *map(str, arguments)]

    def run_program(self, *arguments, expected=0, **options):
        done = subprocess.run(self.command(*arguments, **options), cwd=self.folder, capture_output=True, text=True,
                              stdin=subprocess.DEVNULL, timeout=60, check=False, env=ENVIRONMENT)
        self.assertEqual(done.returncode, expected, (arguments, done.stdout, done.stderr))
        return done.stdout if expected == 0 else done.stdout + done.stderr

    def add_drives(self, *addresses):
        for address in addresses:
            self.run_program("drives", "add", address, "KRA-09")

    def values(self, name, column=1):
        rows = (self.folder / name).read_text("latin-1").partition("[TIME/CONTENT]")[2].split()
        return [row.split("#")[column] for row in rows]


class ScriptedLine(SerialCase):
    def test_each_failure_has_its_reason_and_the_next_reading_is_right(self):
        good = slaves.with_checksum([1, 3, 2, 0, 99])
        deeds = {10: [good[:-1] + b"\x00"], 11: [good[:4]], 12: [slaves.with_checksum([2, 3, 2, 0, 99])], 14: [],
                 15: [slaves.with_checksum([1, 4, 2, 0, 99])], 16: [slaves.with_checksum([1, 3, 4, 0, 99, 0, 98])]}
        line = self.line({(1, 5): 123, (1, 13 + 1000): 0}, lambda _, register, __: deeds.get(register))
        self.add_drives(1)
        numbers = [number for bad in (10, 11, 12, 13, 14, 15, 16) for number in (bad, 5)]
        output = self.run_program("read", 1, *numbers, "--trace", "trace", keys="&timeout=60&retries=0", expected=1)
        other = "no answer (another answer came, which was not asked for)"
        reasons = ["bad checksum", "incomplete answer", other, "refused by the drive (there is no such parameter)",
                   "no answer", other, other]
        self.assertEqual(output.splitlines(), [text for bad, reason in zip((10, 11, 12, 13, 14, 15, 16), reasons)
                                               for text in (f"P{bad:03} {reason}", "P005 12.3")])
        self.assertEqual([request[2] for request in line.requests], [3] * len(numbers))  # nothing but reading
        gaps = [after[0] - before[0] for before, after in zip(line.requests, line.requests[1:])]
        self.assertGreater(min(gaps[at] for at in (0, 2, 4, 8, 10, 12)), 0.055)  # silence after what was no answer
        trace = [row[13:] for row in (self.folder / "trace").read_text().splitlines()]
        self.assertEqual(trace[1:7], [f"! open: modbus:{self.port}?{SPEED}&timeout=60&retries=0",
                                      "> 01 03 00 0A 00 01 A4 08", "! an answer with a bad checksum",
                                      "> 01 03 00 05 00 01 94 0B", "< 01 03 02 00 7B F8 67", "> 01 03 00 0B 00 01 F5 C8"])

    def test_late_answers_are_never_taken_for_others(self):
        late = [0.2, slaves.with_checksum([1, 3, 2, 0x33, 0x33])]
        line = self.line({(1, 3): 30, (1, 5): 50}, lambda _, __, count: late if count % 3 == 1 else None)
        self.add_drives(1)
        output = self.run_program("read", 1, *([3, 5] * 8), keys="&timeout=150").splitlines()
        self.assertEqual(output, ["P003 3.0", "P005 5.0"] * 8)
        self.assertEqual(len(line.requests), 24)

    def test_a_converter_that_is_pulled_out_comes_back(self):
        line = self.line({(1, 3): 30}, lambda *_: None)
        self.add_drives(1)
        child = subprocess.Popen(self.command("acquire", "--address", 1, "--parameters", 3, "--points", 12, "--every",
                                              "200ms", "--file", "run.cht", keys="&timeout=50"), cwd=self.folder,
                                 env=ENVIRONMENT, stdout=subprocess.DEVNULL)
        self.wait_for(lambda: len(line.requests) >= 3)
        busy = self.run_program("read", 1, 3, expected=1)
        self.assertIn(f"{self.port} is in use by another program.", busy)
        line.pull_out()
        time.sleep(0.5)
        before = len(line.requests)
        line.plug_in()
        self.assertEqual(child.wait(60), 0)
        self.assertGreater(len(line.requests), before)
        values = self.values("run.cht")
        self.assertEqual((len(values), set(values), values[0], values[-1]), (12, {"3.0", "0"}, "3.0", "3.0"))

    def wait_for(self, condition):
        until = time.monotonic() + 20
        while not condition():
            self.assertLess(time.monotonic(), until)
            time.sleep(0.005)

    def test_ctrl_c_ends_a_recording_of_a_drive_that_is_dead(self):
        line = self.line({(1, 3): 30}, lambda *_: [])
        self.add_drives(1)
        child = subprocess.Popen(self.command("acquire", "--address", 1, "--parameters", 3, "--points", 5, "--file",
                                              "run.cht", keys="&timeout=60000"), cwd=self.folder, env=ENVIRONMENT,
                                 stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.wait_for(lambda: line.requests)
        child.send_signal(signal.SIGINT)
        self.assertIn(child.wait(20), (1, 3))

    def test_scan_finds_drives_and_their_names(self):
        self.line({(2, 5): 0, (4, 5): 0, (4, "name"): "KRA-09 V2.40"})
        self.assertEqual(self.run_program("scan", "--to", 5, keys="&timeout=40"),
                         '02  38400 8N1\n04  38400 8N1  KRA-09  "KRA-09 V2.40"\n')
        self.assertEqual(self.run_program("scan", "--from", 5, "--to", 6, keys="&timeout=40", expected=1),
                         "No drive answers. With --try other speeds and parities are tried; A and B may be exchanged "
                         "(docs/real-drives.md).\n")
        link = f"modbus:{self.port}?baud=9600&parity=none&timeout=40"
        self.assertEqual(self.run_program("scan", "--try", "--from", 4, "--to", 4, link=link),
                         '04  9600 8N1  KRA-09  "KRA-09 V2.40"\n')

    def test_drives_are_tested_and_watched_and_a_plan_is_timed(self):
        self.line({(1, 1): 1, (1, 5): 123})
        self.add_drives(1, 2)
        report = self.run_program("drives", "test", keys="&timeout=40", expected=1)
        self.assertRegex(report, r"\A01  KRA-09  answers in \d+ ms\n02  KRA-09  no answer \(P001\)\n\Z")
        watched = self.run_program("read", 1, 5, 6, "--watch", "--times", 1, expected=1).splitlines()
        self.assertEqual(watched, ["P005 12.3, 0 s old, 0 failures", "P006 no value yet, 1 failures: refused by the drive "
                                   "(there is no such parameter)"])
        self.assertRegex(self.run_program("acquire", "--address", 1, "--parameters", "5", "--every", "200ms", "--test"),
                         r"\AA point takes \d+ of your 200 ms\.\n\Z")


class BadInput(SerialCase):
    def test_one_sentence_each_and_nothing_changed(self):
        (self.folder / "file").write_text("x")
        self.line({(1, 5): 1})
        self.add_drives(1)
        before = self.run_program("drives", link="sim")
        at = str(self.folder)
        read, port = ["read", "1", "5"], f"modbus:{self.port}"
        cases = [(1, f"modbus:{at}/none", read, f"{at}/none cannot be opened: No such file or directory."),
                 (1, f"modbus:{at}", read, f"{at} is not a serial port."),
                 (1, f"modbus:{at}/file", read, f"{at}/file is not a serial port."),
                 (1, "modbus:/dev/null", read, "/dev/null is not a serial port."),
                 (1, "modbus-tcp:host.invalid", read, "There is no host with the name host.invalid."),
                 (1, "modbus-tcp:127.0.0.1:1", read, "127.0.0.1:1 cannot be opened: Connection refused."),
                 (2, "sim", ["scan"], "simulated drives need no search"),
                 (1, port, ["--trace", "file", *read], f"{at}/file is there and is not a trace of a line")]
        for code, link, arguments, sentence in cases:
            with self.subTest(sentence):
                self.assertIn(sentence, self.run_program(*arguments, link=link, expected=code))
        self.assertEqual(self.run_program("drives", link="sim"), before)
        self.assertEqual((self.folder / "file").read_text(), "x")


class OtherPeoplesDrives(SerialCase):
    def end(self, process):
        process.terminate()
        process.wait()

    def six_steps(self, link, scan_line, first=1, last=3):
        self.assertEqual(self.run_program("scan", "--from", first, "--to", last, link=link), scan_line)
        self.run_program("drives", "add", 2, "KRA-09", link=link)
        self.run_program("acquire", "--address", 2, "--parameters", "3,5", "--points", 3, "--every", "200ms", "--file",
                         "run.cht", link=link)
        self.assertEqual((self.values("run.cht"), self.values("run.cht", 2)), (["200.3"] * 3, ["200.5"] * 3))

    def test_on_a_serial_line(self):
        self.addCleanup(self.end, slaves.start_pair(self.port, self.folder / "drives"))
        self.addCleanup(self.end, slaves.start_server("serial", self.folder / "drives", 2))
        link = f"modbus:{self.port}?{SPEED}&timeout=500"
        self.until_it_answers(link)
        self.six_steps(link, '02  38400 8N1  "Pymodbus"\n')

    def test_of_the_server_of_libmodbus_with_a_second_master(self):
        self.addCleanup(self.end, slaves.start_pair(self.port, self.folder / "drives"))
        self.addCleanup(self.end, subprocess.Popen([SLAVE, self.folder / "drives", "2"]))
        link = f"modbus:{self.port}?{SPEED}&timeout=500"
        self.until_it_answers(link)
        # This server takes what follows a request to another drive for that drive's answer.
        self.six_steps(link, '02  38400 8N1  "LMB3.1.6"\n', 2, 2)
        other = subprocess.run(["mbpoll", "-m", "rtu", "-a", "2", "-b", "38400", "-P", "none", "-0", "-r", "3", "-c", "3",
                                "-1", str(self.port)], capture_output=True, text=True, check=False).stdout
        self.assertEqual([line.split()[-1] for line in other.splitlines() if line.startswith("[")],
                         ["2003", "2004", "2005"])
        self.assertIn("refused by the drive (there is no such parameter)",
                      self.run_program("read", 2, 3, link=link + "&offset=997", expected=1))

    def test_over_a_network(self):
        with socket.socket() as free:
            free.bind(("127.0.0.1", 0))
            number = free.getsockname()[1]
        self.addCleanup(self.end, slaves.start_server("tcp", number, 2))
        link = f"modbus-tcp:127.0.0.1:{number}?timeout=500"
        self.until_it_answers(link)
        self.six_steps(link, '02  "Pymodbus"\n')

    def until_it_answers(self, link):
        until = time.monotonic() + 30
        while subprocess.run(self.command("scan", "--from", 2, "--to", 2, link=link), cwd=self.folder, env=ENVIRONMENT,
                             capture_output=True, check=False).returncode != 0:
            self.assertLess(time.monotonic(), until)


unittest.main(verbosity=1)
