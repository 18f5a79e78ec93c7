#!/usr/bin/env python3
"""Runs the built program as its users do: recordings to the last byte, exit codes, signals, crashes, full disks; and
charts drawn without a display. Usage: program_test.py PROGRAM [ProgramTest|RenderTest] [unittest arguments]"""
import json, os, pathlib, random, re, resource, signal, struct, subprocess, sys, tempfile, time, unittest, wave

PROGRAM = os.path.abspath(sys.argv.pop(1))
NOBODY = 65534
ENVIRONMENT = {key: value for key, value in os.environ.items() if key not in ("DISPLAY", "QT_QPA_PLATFORM")}


class ProgramCase(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory(prefix="chartproject-")
        self.addCleanup(holder.cleanup)
        self.folder = pathlib.Path(holder.name)
        os.chmod(self.folder, 0o755)
        # A drive KRA-09 at address 1 and a soft starter at address 2, with three parameters each.
        self.put("drive01.txt", "Type=KRA-09\r\nFirmware Version=2.40\r\n")
        self.put("drive02.txt", "Type=TSR-05\r\nFirmware Version=1.0\r\n")
        driver = "".join(f"#P{line}#No#######\r\n" for line in ("003#Motor current####CURRENTF1",
                         "005#Motor frequency####FREQUENCYF1", "012#Inputs####DI1DI8"))
        for name in ("KRA09V240", "TSR05V10"):
            for language in "EPS":
                self.put(f"{name}{language}.wcd", driver)
        self.put("plant.txt", "at 0 01 P003 1.50\nat 0 01 P005 50.25 # Hz\nat 5000 01 P005 -\nat 0 01 P006 0\n"
                 "at 0 01 P012 AIAIAIAI\nat 0 02 P003 9\n")
        at = str(self.folder)
        self.put("profile/Kestrel v5.60.ini",
                 f"[MyProject]\nintSelectedDrive=1\nstrMainFile=x\nstrFolder={at}\nstrDriveFile01={at}/drive01.txt\n"
                 f"strDriveFile02={at}\\\\drive02.txt\n[MyKestrel]\nstrDrivers={at}\nstrBin={at}\n")

    def put(self, name, text):
        path = self.folder / name
        path.parent.mkdir(exist_ok=True)
        path.write_bytes(text.encode())

    def command(self, *arguments, clock="virtual", link="scenario:plant.txt"):
        start = ["--start", "2026-01-31 08:00:00"] if clock == "virtual" else []
        return [PROGRAM, "--profile", "profile", "--link", link, "--clock", clock, *start, *map(str, arguments)]

    def run_program(self, *arguments, limits=None, expected=None, **options):
        done = subprocess.run(self.command(*arguments, **options), cwd=self.folder, capture_output=True, text=True,
                              stdin=subprocess.DEVNULL, timeout=120, preexec_fn=limits, check=False,
                              env={**ENVIRONMENT, "LC_ALL": "C"})
        if expected is not None:
            self.assertEqual(done.returncode, expected, (arguments, done.stderr))
        return done

    def acquire(self, points, *more, file="run.cht", **options):
        return self.run_program("acquire", "--address", 1, "--parameters", "3,5", "--points", points, "--every", "1s",
                                "--file", file, *more, **options)

    def start(self, *arguments, clock):
        terminal, end = os.openpty()
        self.addCleanup(os.close, terminal)
        child = subprocess.Popen(self.command(*arguments, clock=clock), cwd=self.folder, stderr=end,
                                 stdout=subprocess.DEVNULL)
        os.close(end)
        return child, self.progress(terminal)

    def until_the_recording_has_its_name(self, child):
        until = time.monotonic() + 20
        while not (self.folder / "run.cht.lock").exists():
            self.assertTrue(child.poll() is None and time.monotonic() < until)
            time.sleep(0.005)

    def progress(self, terminal):
        """Yields the number of points shown on the child's terminal, until the child ends."""
        text = b""
        while True:
            try:
                text = text[-80:] + os.read(terminal, 4096)
            except OSError:
                return
            yield int((re.findall(rb"\] (\d+)/", text) or [0])[-1])


class ProgramTest(ProgramCase):
    def rows(self, name="run.cht"):
        head, _, rows = (self.folder / name).read_bytes().partition(b"[TIME/CONTENT]\r\n")
        self.assertTrue(head)
        return rows.split(b"\r\n")[:-1]

    # The main job, to the last byte. -------------------------------------------------------------------------------

    def expected_file(self, points):
        def clock(second):
            return "%02d:%02d:%02d" % (8 + second // 3600, second // 60 % 60, second % 60)
        header = ["[INFO]", "Drive Address=01", "Number of Parameters=2", "PXXX1=003", "PXXX2=005", "PXXX3=", "PXXX4=",
                  "Scan Time=1", "Unit=s", f"Number of Points={points}", "Trigger Mode=Manual",
                  "Event=PXXX=Content", "PXXX=003", "Content=0", "Start Date=01/31/2026", "Start Time=08:00:01",
                  "End Date=01/31/2026", "End Time=" + clock(points), "", "[TIME/CONTENT]"]
        rows = [f"{clock(n)}#1.50#{'50.25' if n < 5 else '-'}####" for n in range(1, points + 1)]
        return "".join(line + "\r\n" for line in header + rows).encode()

    def test_recordings_in_memory_and_in_a_spool_file_are_right_to_the_last_byte(self):
        for points in (1, 2500, 2501):
            done = self.acquire(points)
            self.assertEqual((done.returncode, done.stdout), (0, f"{points} points in {self.folder}/run.cht\n"))
            self.assertEqual((self.folder / "run.cht").read_bytes(), self.expected_file(points))
            self.assertEqual(sorted(p.name for p in self.folder.glob("run.cht*")), ["run.cht"])

    def test_readings_that_failed_and_points_that_came_late_are_reported_and_kept_beside_the_chart_file(self):
        self.put("ill.txt", "at 0 01 P003 1\nat 0 01 P005 2\nat 2500 01 fails 4 illegal address\n"
                 "at 4500 01 answers\nat 6500 01 late 3000\n")
        done = self.acquire(8, link="scenario:ill.txt", expected=0)
        sentence = "readings failed, last: refused by the drive (illegal address) (points 3 to 4)"
        self.assertEqual(done.stdout, f"8 points in {self.folder}/run.cht\nP003: 2 of 8 {sentence}\n"
                         f"P005: 2 of 8 {sentence}\n"
                         "Real time between points: 1.29 s instead of 1.00 s (from 1.00 s to 3.00 s)\n")
        self.assertEqual(sorted(p.name for p in self.folder.glob("run.cht*")), ["run.cht", "run.cht.readings"])
        info = self.run_program("info", "run.cht", expected=0).stdout
        self.assertTrue(info.endswith("Rows: 8\n" + done.stdout.partition("\n")[2]), info)
        told = json.loads(self.acquire(8, "--json", link="scenario:ill.txt", expected=0).stdout)
        failed = told["failedReadings"][1]
        self.assertEqual((told["points"], told["end"], told["inFile"]), (8, "complete", True))
        self.assertEqual((failed["parameter"], failed["failed"], failed["readings"], failed["ranges"]), ("P005", 2, 8, [
            {"first": 3, "last": 4, "failed": 2, "reason": "refused", "detail": "illegal address"}]))
        self.assertEqual(told["interval"], {"asked": 1000, "shortest": 1000, "mean": 1286, "longest": 3000,
                                            "latest": 2000, "slipped": True})
        info = json.loads(self.run_program("info", "run.cht", "--json").stdout)
        self.assertEqual([info[key] for key in ("failedReadings", "interval")],
                         [told[key] for key in ("failedReadings", "interval")])
        self.assertEqual(self.acquire(8, expected=0).stdout, f"8 points in {self.folder}/run.cht\n")
        self.assertFalse((self.folder / "run.cht.readings").exists())

    def test_a_signal_ends_a_recording_as_esc_does(self):
        for number, reason in ((signal.SIGINT, "Ctrl-C"), (signal.SIGTERM, "SIGTERM")):
            child, progress = self.start("acquire", "--parameters", "3,5", "--points", 100, "--every", "300ms", "--file",
                                         "run.cht", clock="real")
            next(points for points in progress if points == 10)
            child.send_signal(number)
            list(progress)
            self.assertEqual(child.wait(10), 3, reason)
            rows = self.rows()
            self.assertEqual(len(rows), 100)
            self.assertTrue(all(re.fullmatch(rb"\d\d:\d\d:\d\d#1\.50#(50\.25|-)####", row) for row in rows[:10]))
            self.assertEqual(set(rows[10:]), {b"######"})

    def test_a_recording_outlives_its_readers_and_what_was_ignored_at_its_start(self):
        def pipeline(clock):
            return self.command("acquire", "--parameters", "3,5", "--points", 10, "--every", "200ms", "--file",
                                "run.cht", clock=clock)
        for clock, closed in (("virtual", "err"), ("real", "err"), ("virtual", "all")):
            child = subprocess.Popen(pipeline(clock=clock), cwd=self.folder, stderr=subprocess.PIPE,
                                     stdout=subprocess.PIPE if closed == "all" else subprocess.DEVNULL)
            if closed == "all":
                child.stdout.close()
            elif clock == "real":
                self.until_the_recording_has_its_name(child)
            child.stderr.close()
            self.assertEqual((child.wait(30), len(self.rows())), (0, 10), (clock, closed))
        for number in (signal.SIGHUP, signal.SIGINT):  # nohup; a background job of a script
            child = subprocess.Popen(pipeline(clock="real"), cwd=self.folder, stderr=subprocess.PIPE, text=True,
                                     stdout=subprocess.DEVNULL, preexec_fn=lambda: signal.signal(number, signal.SIG_IGN))
            self.until_the_recording_has_its_name(child)
            child.send_signal(number)
            child.stderr.read()
            child.stderr.close()
            self.assertEqual((child.wait(30), len(self.rows())), (0, 10), number)
        with open("/dev/full", "wb") as full:
            self.assertEqual(subprocess.run(pipeline(clock="virtual"), cwd=self.folder, stdout=full, stderr=full,
                                            check=False).returncode, 0)
            self.assertEqual(subprocess.run(self.command("settings"), cwd=self.folder, stdout=full, check=False,
                                            stderr=subprocess.DEVNULL).returncode, 1)

    def test_a_signal_before_the_first_point_ends_the_program_too(self):
        for wait in range(0, 120, 10):
            child, progress = self.start("acquire", "--parameters", 3, "--points", 1000, "--file", "run.cht",
                                         clock="real")
            time.sleep(wait / 1000)
            child.terminate()
            list(progress)
            self.assertIn(child.wait(5), (-signal.SIGTERM, 3), wait)

    def test_a_trigger_starts_the_recording_at_the_event(self):
        self.put("plant.txt", "at 0 01 P003 1\nat 0 01 P005 1,5\nat 7300 01 P005 50\n")
        done = self.acquire(3, "--trigger", "PXXX>=Content", "--compare", 5, "--content", 50, expected=0)
        self.assertEqual(self.rows(), [b"08:00:%02d#1#50####" % second for second in (9, 10, 11)])
        self.assertIn("waiting for PXXX>=Content", done.stderr)

    # Refusals and errors. ------------------------------------------------------------------------------------------

    def test_what_the_dialog_refuses_is_told_and_ends_with_2(self):
        self.put("own.cht", "[INFO]\r\nScan Time=1\r\n[TIME/CONTENT]\r\n")
        os.link(self.folder / "own.cht", self.folder / "hard.cht")
        os.symlink("own.cht", self.folder / "soft.cht")
        file = ["--file", "run.cht"]
        record = ["acquire", "--parameters", "3", *file]
        range_text = "[Kestrel v5.60] Value out of range !"
        cases = [
            *(([*record, *more], range_text) for more in (("--points", 0), ("--points", 2000000001), ("--every", "66s"),
                                                          ("--every", "150ms"), ("--every", "24:00:00"))),
            ([*record, "--points", "12.6"], '--points: "12.6" is not accepted'),
            ([*record, "--every", "5"], '--every: "5" is not a valid time'),
            ([*record, "--address", 3], "there is no drive 03"),
            ([*record, "--address", 99], "not a whole number from 0 to 30"),
            ([*record, "--address", 2, "--trigger", "RUN"], "[Kestrel v5.60] Event not available"),
            ([*record, "--trigger", "STOP"], 'there is no event "STOP"'),
            ([*record, "--trigger", "PXXX=Content", "--content", 1], "needs --compare"),
            ([*record, "--trigger", "PXXX=Content", "--compare", "5"], "Enter the content"),
            ([*record, "--compare", 3], "--compare and --content go with"),
            (["acquire", *file, "--parameters", "3,77"], "drive 01 has no parameter P077"),
            (["acquire", *file, "--parameters", "3,3,3,3,3"], "one to four parameters"),
            (["acquire", *file, "--parameters", "P999"], "999 marks a column that is not in use"),
            (["export", "own.cht", "--output", "own.ods"], "none of the endings .xls, .xlsx, .csv"),
            (["acquire", "--parameters", 3, "--file", "none/run.cht"], "none/run.cht does not exist."),
            (["acquire", "--parameters", 3, "--file", "profile"], "is a folder."),
            (["acquire", *file], "give both --file and --parameters"), (["acquire", "--points", 9], "in the dialog"),
            (["settings", "MyConf.none"], 'no setting "MyConf.none"'),
            *((["settings", f"MyConf.{key}", value], f'MyConf.{key}: "{value}" is no')
              for key, value in (("intTrials", "1.5"), ("strLanguage", "english"), ("strGrid", "yes"))),
            (["settings", "MyConf.intTrials", "99999"], "Overflow: setting MyConf.intTrials"),
            *((["export", chart, "--output", output, "--answer", "yes"], "is the chart file itself")
              for chart, output in (("own.cht", "hard.cht"), ("soft.cht", "own.cht"))),
            (["read", 9, 3], "no drive at address 09"), (["fly"], "fly")]
        for arguments, text in cases:
            self.assertIn(text, self.run_program(*arguments, expected=2).stderr, arguments)
            self.assertFalse((self.folder / "run.cht").exists())
        self.assertEqual((self.folder / "hard.cht").stat().st_nlink, 2)

    def test_names_that_are_no_files_are_refused_and_left_alone(self):
        os.mkfifo(self.folder / "pipe.csv")
        os.symlink("pipe.csv", self.folder / "link.xls")
        os.symlink("/dev/null", self.folder / "null.xlsx")
        self.acquire(3, file="own.cht", expected=0)
        file = ["--parameters", 3, "--file"]
        for name in ("pipe.csv", "link.xls", "null.xlsx"):
            for arguments in (["acquire", *file, name], ["info", name], ["export", name],
                              ["export", "own.cht", "--answer", "yes", "--output", name]):
                self.assertIn("not a regular file", self.run_program(*arguments, expected=2).stderr, arguments)
        self.assertIn("not a regular file", self.run_program("drives", link="scenario:pipe.csv").stderr
                      + self.run_program("read", 1, 3, link="scenario:pipe.csv", expected=2).stderr)
        piped = subprocess.run(self.command("info", "/dev/stdin"), input=(self.folder / "own.cht").read_bytes(),
                               cwd=self.folder, capture_output=True, check=False)
        self.assertEqual((piped.returncode, piped.stdout), (2, b""))
        for other in ("drive02.txt", "KRA09V240E.wcd", "profile/Kestrel v5.60.ini"):
            (self.folder / other).unlink()
            os.mkfifo(self.folder / other)
            self.assertIn("not a regular file", self.run_program("acquire", *file, "run.cht", expected=2).stderr, other)
        self.assertTrue((self.folder / "pipe.csv").is_fifo())

    def test_files_of_the_user_and_links_outlive_a_recording(self):
        for name in ("run.cht.new", "run.cht.lock", "run.cht.xls.part", "real/old"):
            self.put(name, "the user's")
        os.symlink("real/run.cht", self.folder / "run.cht")
        for points in (3, 3000):
            self.acquire(points, expected=0)
            os.chmod(self.folder / "real/run.cht", 0o600)
            self.assertEqual(len(self.rows("real/run.cht")), points)
        self.run_program("export", "run.cht", "--answer", "yes", expected=0)
        for name in ("run.cht.new", "run.cht.lock", "run.cht.xls.part"):
            self.assertEqual((self.folder / name).read_text(), "the user's")
        self.assertEqual(os.readlink(self.folder / "run.cht"), "real/run.cht")
        self.assertEqual((self.folder / "real/run.cht").stat().st_mode & 0o777, 0o600)
        self.assertEqual(sorted(os.listdir(self.folder / "real")), ["old", "run.cht"])

    def test_a_project_from_elsewhere_leads_to_no_write_outside_of_it(self):
        self.put("victim/.profile", "mine")
        (self.folder / "made").mkdir()
        os.symlink("../victim", self.folder / "made/programs")
        self.assertIn("made/programs is a symbolic link", self.run_program("init", "made", expected=2).stderr)
        self.assertEqual(os.listdir(self.folder / "victim"), [".profile"])
        os.symlink("victim/.profile", self.folder / "Kestrel.log")
        self.put("KRA09V240E.wcd", "touch /tmp/hurt\r\n")
        self.run_program("read", 9, 3)
        self.acquire(3)
        self.assertEqual((self.folder / "victim/.profile").read_text(), "mine")

    def test_faults_of_driver_files_stop_only_the_drives_that_need_them(self):
        (self.folder / "KRA09V240E.wcd").unlink()
        with (self.folder / "TSR05V10E.wcd").open("a") as driver:
            driver.write("no line\r\n")
        self.assertIn("drive 01: there is no driver file", self.acquire(3, expected=1).stderr)
        done = self.run_program("acquire", "--address", 2, "--parameters", 3, "--file", "run.cht", expected=0)
        self.assertIn("Error in line 4", done.stderr)

    def test_run_time_errors_name_their_file_and_end_with_1(self):
        self.put("bad.txt", "at 0 01 P003 1\nat soon 01 P005 2\n")
        self.put("rubbish.cht", "\x00\x01\n" * 100)
        (self.folder / "run.cht.tcf0").mkdir()
        cases = [
            (["acquire", "--parameters", 3, "--file", "run.cht"], {"link": "scenario:none.txt"}, "none.txt"),
            (["acquire", "--parameters", 3, "--file", "run.cht"], {"link": "scenario:bad.txt"}, "at soon 01 P005 2"),
            (["info", "none.cht"], {}, "none.cht"),
            (["info", "rubbish.cht"], {}, "Not a chart file"),
            (["export", "rubbish.cht"], {}, "Not a chart file"),
            (["acquire", "--parameters", 3, "--points", 3000, "--file", "run.cht"], {}, "run.cht.tcf0: Is a directory"),
            (["info", "."], {}, "directory"),
        ]
        for arguments, options, text in cases:
            self.assertIn(text, self.run_program(*arguments, expected=1, **options).stderr, arguments)
        self.assertFalse((self.folder / "run.cht").exists())

    def test_a_setting_that_is_no_number_is_named_and_can_be_put_right(self):
        self.put("profile/Kestrel v5.60.ini", "[MyConf]\nintTrials=many\n")
        self.assertIn("intTrials", self.run_program("drives", expected=1).stderr)
        self.run_program("settings", "MyConf.intTrials", "7", expected=0)
        self.assertEqual(self.run_program("settings", "MyConf.intTrials").stdout, "7\n")
        self.run_program("drives", expected=0)

    # A new user's way. -------------------------------------------------------------------------------------------

    def test_a_made_project_records_from_its_simulated_drives_and_is_never_written_over(self):
        (self.folder / "profile/Kestrel v5.60.ini").unlink()
        self.run_program("init", "made", link="sim", expected=0)
        listed = self.run_program("drives", link="sim").stdout
        for model in ("KRA-09  2.40", "KRA-08", "LMX-01", "KRD-04", "TSR-05", "PVE-05"):
            self.assertIn(model, listed)
        for sound in ("NIMClick", "Complete", "ir_end"):
            with wave.open(str(self.folder / f"made/media/{sound}.wav")) as file:
                data = file.readframes(file.getnframes())
                self.assertEqual((len(data), any(data)), (file.getnframes() * file.getsampwidth(), True), sound)
        for picture, kind in (("Cursor/Select.cur", (2, 5)), ("Icon/General/Kestrel.ico", (1, 1)),
                              ("Icon/General/Orlin.ico", (1, 1))):  # a cursor points with its sixth column
            data = (self.folder / "made/graphics" / picture).read_bytes()
            end = 6 + 16 * data[4]
            for entry in range(6, end, 16):
                width, height, *_, x, _, size, start = struct.unpack_from("<4B2H2I", data, entry)
                self.assertEqual((data[2], x, width in (16, 32)), (*kind, True), picture)
                header = struct.unpack_from("<3I", data, start)
                self.assertEqual((start, *header), (end, 40, width, 2 * height), picture)
                end += size
            self.assertEqual(end, len(data), picture)
        for language in ("English", "Portuguese", "Spanish"):
            self.run_program("settings", "MyConf.strLanguage", language)
            self.acquire(20, link="sim", expected=0)
            self.assertEqual(len(self.rows()), 20)
        settings = self.run_program("settings").stdout
        first = next(line for line in settings.splitlines() if "strDriveFile01" in line).partition("=")[2]
        drive = pathlib.Path(first.replace("\\", "/"))
        drive.write_text("Type=TSR-05\n")
        self.assertIn(str(drive), self.run_program("init", "made", link="sim").stdout)
        self.assertEqual(drive.read_text(), "Type=TSR-05\n")

    # Reading. ------------------------------------------------------------------------------------------------------

    def test_reads_and_lists(self):
        self.assertEqual(self.run_program("read", 1, 3, 5, 77, expected=1).stdout,
                         "P003 1.50\nP005 50.25\nP077 no answer\n")
        self.assertIn("02       TSR-05  1.0", self.run_program("drives").stdout)
        self.put("drive02.txt", "Type=KRA-08\r\nFirmware Version=1.0\r\n")
        self.put("KRA08V10E.wcd", "")
        self.put("power.txt", "at 0 02 P005 50\nat 0 02 P208 30\n")
        self.assertEqual(self.run_program("read", 2, 2, link="scenario:power.txt").stdout, "P002 1500.00\n")
        self.acquire(3)
        told = json.loads(self.run_program("info", "run.cht", "--json").stdout)
        self.assertEqual((told["rows"], told["malformedLines"], told["header"]["PXXX2"]), (3, 0, "005"))
        self.put("cut.cht", "[INFO]\r\nDrive Address=01\r\n[TIME/CONTENT]\r\n1#2#3####\r\n\r\n  ' 1#2#3####\r\n08:0")
        self.assertIn("Rows: 1\nMalformed lines: 1\n", self.run_program("info", "cut.cht").stdout)

    def test_what_is_not_a_command_is_a_chart_file_or_refused(self):
        for arguments, code, words in (
                (["--version"], 0, "ChartProject "),
                (["inof"], 2, '"inof" is neither a command nor a file; '),
                (["gone.cht"], 1, "There is no display to show windows on."),
                (["info", "one.cht", "two.cht"], 2, "The following argument was not expected: two.cht"),
                (["describe", "addresses"], 0, "1\tKRA-09 \n2\tTSR-05 \n"),
                (["describe", "parameters"], 0, "3\tMotor current\n5\tMotor frequency\n12\tInputs\n"),
                (["describe", "man"], 0, "\n.SS read \\fIADDRESS\\fR \\fIPARAMETER\\fR...\n"),
                (["describe", "bash"], 0, "acquire:--address) _chartproject_listed addresses; return ;;\n")):
            done = self.run_program(*arguments, expected=code)
            self.assertIn(words, done.stdout + done.stderr)

    def test_drives_without_numbers_without_model_and_without_file(self):
        self.put("drive01.txt", "Type=KRA-02\r\n")
        self.put("KRA02E.wcd", "\r\n#1#x#\r\n#P1000" + 13 * "#")
        done = self.run_program("read", 1, "P003", expected=1)
        self.assertIn("KRA02E.wcd, line 3: ", done.stderr)
        self.put("KRA02E.wcd", "#P003#Current" + 12 * "#")
        self.assertEqual(self.run_program("read", 1, "P003", expected=0).stdout, "P003 no value shown\n")
        self.assertIn("The model KRA-02 shows no numbers, except in P006.", 
                      self.run_program("acquire", "--parameters", 3, "--file", "run.cht", "--points", 1).stderr)
        self.put("drive02.txt", "Tag=none\r\n")
        done = self.run_program("drives", "--json", expected=1)
        self.assertEqual([drive["type"] for drive in json.loads(done.stdout)], ["KRA-02"])
        self.assertIn("drive02.txt: the file names no model", done.stderr)
        (self.folder / "drive01.txt").unlink()
        self.assertIn("drive01.txt: there is no such file", self.run_program("drives", expected=1).stderr)

    def test_a_stranger_s_names_and_values_do_not_steer_the_terminal(self):
        self.put("own/h.cht", "[INFO]\r\nTrigger Mode=\x1b]0;t\x07\r\n[TIME/CONTENT]\r\n")
        self.assertIn("Trigger Mode: \\x1B]0;t\\x07\n", self.run_program("info", "own/h.cht", expected=0).stdout)
        self.assertIn("/no\\x0Afile\\x1B: No such", self.run_program("info", "no\nfile\x1b", expected=1).stderr)
        os.symlink("own", self.folder / "other")
        self.acquire(1, file="other/../above.cht", expected=0)
        (self.folder / "own/deep").mkdir()
        os.symlink("own/deep", self.folder / "link")
        self.assertIn("own/a.cht", self.acquire(1, file="link/.././a.cht", expected=0).stdout)
        self.assertTrue((self.folder / "above.cht").exists() and (self.folder / "own/a.cht").exists())

    # Crashes and disks. --------------------------------------------------------------------------------------------

    def test_rows_reported_as_taken_survive_a_kill(self):
        for _ in range(8):
            child, progress = self.start("acquire", "--parameters", "3,5", "--points", 100000000, "--file", "run.cht",
                                         clock="virtual")
            delay = time.monotonic() + random.uniform(0.2, 0.9)
            reported = next(points for points in progress if points > 0 and time.monotonic() > delay)
            child.kill()
            child.wait(10)
            spooled = (self.folder / "run.cht.tcf0").read_bytes()
            self.assertGreater(reported, 0)
            self.assertGreaterEqual(spooled.count(b"\r\n"), reported)
            self.assertTrue(spooled.endswith(b"####\r\n"), "the last row is whole")
            self.assertFalse((self.folder / "run.cht").exists())

    def test_an_interrupted_recording_is_named_and_comes_back_once(self):
        name = str(self.folder / "run.cht")
        for points in (2500, 100000000):
            child, progress = self.start("acquire", "--parameters", "3,5", "--points", points, "--file", "run.cht",
                                         "--every", "200ms", clock="real")
            reported = next(count for count in progress if count >= 3)
            running = self.run_program("recover", "run.cht", expected=1)
            self.assertEqual(running.stderr, f"{name} is being recorded; it is left alone\nnothing to recover\n")
            child.kill()
            child.wait(10)
            for left in ("run.cht", "run.cht.recording"):
                info = json.loads(self.run_program("info", left, "--json", expected=0).stdout)["interrupted"]
                self.assertGreaterEqual(info["points"], reported)
                self.assertEqual((info["command"], info["running"]), (f'chartproject recover "{name}"', False))
                for command, output in (("export", "out.csv"), ("print", "out.pdf")):
                    self.assertIn(f"{name} is an interrupted recording of {info['points']} points",
                                  self.run_program(command, left, "--output", output, expected=1).stderr)
            listed = json.loads(self.run_program("recover", "--list", "--json", expected=0).stdout)
            self.assertEqual([(one["file"], one["plannedPoints"]) for one in listed], [(name, str(points))])
            back = self.run_program("recover", expected=0).stdout
            self.assertEqual(back, f"{info['points']} point(s) of the interrupted recording are in {name}.\n")
            shown = self.run_program("info", "run.cht", expected=0).stdout
            self.assertIn(f"Rows: {info['points']}\nRecovered after an interruption: the real times between points are "
                          "not known\n", shown)
            self.assertEqual(self.run_program("recover", expected=1).stderr, "nothing to recover\n")
            (self.folder / "run.cht").unlink()

    def test_recover_refuses_what_would_replace_or_guess(self):
        self.put("old.cht.tcf0", "08:00:00#1#2####\r\n08:00:01#1#2####\r\n08:00:02#1")
        self.put("there.cht", "[INFO]\r\nDrive Address=07\r\n\r\n[TIME/CONTENT]\r\n")
        self.run_program("recover", "--discard", expected=2)
        self.run_program("recover", "old.cht", "--output", "there.cht", expected=2)
        back = self.run_program("recover", "old.cht.tcf0", "--like", "there.cht", "--output", "new.cht", expected=0)
        self.assertTrue(back.stdout.startswith("2 point(s)") and "1 line(s) are not points." in back.stdout)
        self.assertIn("Drive Address: 07\n", self.run_program("info", "new.cht", expected=0).stdout)
        self.assertFalse((self.folder / "old.cht.tcf0").exists())
        self.put("old.cht.tcf0", "08:00:00#1#2####\r\n")
        self.assertIn("old.cht: 1 points deleted", self.run_program("recover", "old.cht", "--discard").stdout)

    def test_a_killed_export_leaves_nothing(self):
        self.acquire(20000, expected=0)
        before = sorted(os.listdir(self.folder))
        for name in ("run.xls", "run.xlsx", "run.csv"):
            child, progress = self.start("export", "run.cht", "--output", name, "--answer", "yes", clock="virtual")
            next(progress)
            child.kill()
            child.wait(10)
            self.assertEqual(sorted(os.listdir(self.folder)), before, name)

    def test_a_full_disk_ends_a_recording_and_keeps_its_rows(self):
        done = self.acquire(5000, limits=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (50000, 50000)))
        self.assertIn("File too large", done.stderr)
        self.assertIn("run.cht.tcf0", done.stderr)
        self.assertNotEqual(done.returncode, 0)
        spooled = (self.folder / "run.cht.tcf0").read_bytes()
        self.assertTrue(49950 < len(spooled) <= 50000, len(spooled))
        self.assertTrue(spooled.endswith(b"####\r\n"))

    def test_a_folder_that_cannot_be_written_is_refused_before_the_first_point(self):
        os.chmod(self.folder / "profile", 0o777)
        os.chmod(self.folder / "profile/Kestrel v5.60.ini", 0o666)
        os.chmod(self.folder, 0o555)

        def step_down():
            if os.geteuid() == 0:  # root may write anywhere
                os.setgid(NOBODY)
                os.setuid(NOBODY)
        done = self.acquire(3, limits=step_down, expected=2)
        os.chmod(self.folder, 0o755)
        self.assertIn("You have no right to write", done.stderr)
        self.assertNotIn("point ", done.stderr)
        self.assertEqual(list(self.folder.glob("run.cht*")), [])


class RenderTest(ProgramCase):
    def setUp(self):
        super().setUp()
        self.chart("one.cht", range(1, 61))

    def chart(self, name, values):
        rows = "".join(f"08:00:00#{v % 17}#####\r\n" if v >= 0 else "rubbish\r\n" for v in values)
        self.put(name, "[INFO]\r\nNumber of Parameters=1\r\nNumber of Points=60\r\n[TIME/CONTENT]\r\n" + rows)

    def render(self, name, *options):
        done = self.run_program("render", name, "--output", "out.png", *options)
        return done, (self.folder / "out.png").read_bytes() if done.returncode == 0 else b""

    def test_draws_what_the_options_choose(self):
        pictures = {options: self.render("one.cht", *options)[1] for options in [
            *(("--type", str(kind)) for kind in range(8)), ("--grid", "on"), ("--markers", "on"), ("--lines", "off"),
            ("--scale", "2"), ("--first", "2"), ("--points-per-division", "2"), ("--size", "640x480")]}
        for options, picture in pictures.items():
            size = (640, 480) if options[0] == "--size" else (1280, 720)
            self.assertEqual(picture[:8], b"\x89PNG\r\n\x1a\n", options)
            self.assertEqual(struct.unpack_from(">2I", picture, 16), size, options)
        self.assertEqual(len(set(pictures.values())), len(pictures))
        self.assertEqual(pictures["--type", "3"], self.render("one.cht")[1])

    def test_refuses_what_it_cannot_draw(self):
        self.chart("bad.cht", [1, 2, -1])
        for name, options, code, text in [
                ("one.cht", ("--type", "8"), 2, "--type"), ("one.cht", ("--size", "10x10"), 2, "--size"),
                ("one.cht", ("--first", "0"), 2, "--first"), ("one.cht", ("--first", "61"), 2, "60 points"),
                ("one.cht", ("--points-per-division", "1311"), 2, "--points-per-division"),
                ("one.cht", ("--scale", "1,x"), 2, "--scale"), ("one.cht", ("--grid", "yes"), 2, "--grid"),
                ("none.cht", (), 1, "none.cht"), ("bad.cht", (), 1, "rubbish")]:
            done, _ = self.render(name, *options)
            self.assertEqual((done.returncode, text in done.stderr), (code, True), (options, done.stderr))
        before = (self.folder / "one.cht").read_bytes()
        (self.folder / "out.png").write_bytes(before)
        self.assertIn("is a recording", self.render("one.cht")[0].stderr)
        (self.folder / "out.png").unlink()
        os.link(self.folder / "one.cht", self.folder / "out.png")
        self.assertEqual((self.render("one.cht")[0].returncode, (self.folder / "one.cht").read_bytes()), (2, before))


if __name__ == "__main__":
    unittest.main(verbosity=2)
