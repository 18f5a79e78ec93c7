#!/usr/bin/env python3
"""Runs the built program as its users do: recordings to the last byte, exit codes, signals, crashes, full disks; and
charts drawn without a display. Usage: program_test.py PROGRAM [ProgramTest|RenderTest] [unittest arguments]"""
import json, os, pathlib, random, re, resource, signal, struct, subprocess, sys, tempfile, time, unittest, wave

from program_case import ENVIRONMENT, NOBODY, PROGRAM, ProgramCase


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

    def test_a_signal_ends_a_recording_as_esc_does(self):
        for number, reason in ((signal.SIGINT, "Ctrl-C"), (signal.SIGTERM, "SIGTERM")):
            child, progress = self.start("acquire", "--parameters", "3,5", "--points", 100, "--every", "200ms", "--file",
                                         "run.cht", clock="real")
            next(points for points in progress if points == 3)
            child.send_signal(number)
            taken = max([3, *progress])
            self.assertEqual(child.wait(10), 3, reason)
            rows = self.rows()
            self.assertEqual(len(rows), 100)
            self.assertTrue(all(re.fullmatch(rb"\d\d:\d\d:\d\d#1\.50#50\.25####", row) for row in rows[:taken]))
            self.assertEqual((taken < 20, set(rows[taken:])), (True, {b"######"}))

    def test_a_recording_outlives_its_readers_and_what_was_ignored_at_its_start(self):
        def pipeline(clock):
            return self.command("acquire", "--parameters", "3,5", "--points", 4, "--every", "200ms", "--file",
                                "run.cht", clock=clock)
        for clock, closed in (("virtual", "err"), ("real", "err"), ("virtual", "all")):
            child = subprocess.Popen(pipeline(clock=clock), cwd=self.folder, stderr=subprocess.PIPE,
                                     stdout=subprocess.PIPE if closed == "all" else subprocess.DEVNULL)
            if closed == "all":
                child.stdout.close()
            elif clock == "real":
                self.until_the_recording_has_its_name(child)
            child.stderr.close()
            self.assertEqual((child.wait(30), len(self.rows())), (0, 4), (clock, closed))
        for number in (signal.SIGHUP, signal.SIGINT):  # nohup; a background job of a script
            child = subprocess.Popen(pipeline(clock="real"), cwd=self.folder, stderr=subprocess.PIPE, text=True,
                                     stdout=subprocess.DEVNULL, preexec_fn=lambda: signal.signal(number, signal.SIG_IGN))
            self.until_the_recording_has_its_name(child)
            child.send_signal(number)
            child.stderr.read()
            child.stderr.close()
            self.assertEqual((child.wait(30), len(self.rows())), (0, 4), number)
        with open("/dev/full", "wb") as full:
            self.assertEqual(subprocess.run(pipeline(clock="virtual"), cwd=self.folder, stdout=full, stderr=full,
                                            check=False).returncode, 0)

    def test_a_signal_before_the_first_point_ends_the_program_too(self):
        for wait in range(0, 120, 10):
            child, progress = self.start("acquire", "--parameters", 3, "--points", 1000, "--file", "run.cht",
                                         clock="real")
            time.sleep(wait / 1000)
            child.terminate()
            list(progress)
            self.assertIn(child.wait(5), (-signal.SIGTERM, 3), wait)

    # Refusals and errors. ------------------------------------------------------------------------------------------

    def test_an_export_onto_its_own_chart_file_is_refused_under_each_of_its_names(self):
        self.put("own.cht", "[INFO]\r\nScan Time=1\r\n[TIME/CONTENT]\r\n")
        os.link(self.folder / "own.cht", self.folder / "hard.cht")
        os.symlink("own.cht", self.folder / "soft.cht")
        for chart, output in (("own.cht", "hard.cht"), ("soft.cht", "own.cht")):
            done = self.run_program("export", chart, "--output", output, "--answer", "yes", expected=2)
            self.assertIn("is the chart file itself", done.stderr)
        self.assertIn("none of the endings .xls, .xlsx, .csv",
                      self.run_program("export", "own.cht", "--output", "own.ods", expected=2).stderr)
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

    # A new user's way. -------------------------------------------------------------------------------------------

    def test_a_made_project_has_sounds_and_pictures_and_is_never_written_over(self):
        (self.folder / "profile/Kestrel v5.60.ini").unlink()
        self.run_program("init", "made", link="sim", expected=0)
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
        settings = self.run_program("settings").stdout
        first = next(line for line in settings.splitlines() if "strDriveFile01" in line).partition("=")[2]
        drive = pathlib.Path(first.replace("\\", "/"))
        drive.write_text("Type=TSR-05\n")
        self.assertIn(str(drive), self.run_program("init", "made", link="sim").stdout)
        self.assertEqual(drive.read_text(), "Type=TSR-05\n")

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
        for _ in range(5):
            child, progress = self.start("acquire", "--parameters", "3,5", "--points", 100000000, "--file", "run.cht",
                                         clock="virtual")
            delay = time.monotonic() + random.uniform(0.1, 0.6)
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
        rows = "".join(f"08:00:00#{value % 17}#####\r\n" for value in range(1, 61))
        self.put("one.cht", "[INFO]\r\nNumber of Parameters=1\r\nNumber of Points=60\r\nScan Time=1\r\nUnit=s\r\n"
                 "Start Time=23:59:30\r\n[TIME/CONTENT]\r\n" + rows)

    def render(self, name, *options):
        done = self.run_program("render", name, "--output", "out.png", *options)
        return done, (self.folder / "out.png").read_bytes() if done.returncode == 0 else b""

    def test_draws_what_the_options_choose(self):
        pictures = {options: self.render("one.cht", *options)[1] for options in [
            *(("--type", str(kind)) for kind in range(8)), ("--grid", "on"), ("--markers", "on"), ("--lines", "off"),
            ("--scale", "2"), ("--first", "2"), ("--points-per-division", "2"), ("--axis", "elapsed"),
            ("--axis", "time"), ("--fit",), ("--lanes",), ("--legend",), ("--hide", "1"), ("--size", "640x480")]}
        for options, picture in pictures.items():
            size = (640, 480) if options[0] == "--size" else (1280, 720)
            self.assertEqual(picture[:8], b"\x89PNG\r\n\x1a\n", options)
            self.assertEqual(struct.unpack_from(">2I", picture, 16), size, options)
        self.assertEqual(len(set(pictures.values())), len(pictures))
        self.assertEqual(pictures["--type", "3"], self.render("one.cht")[1])

    def test_never_draws_over_a_recording(self):
        before = (self.folder / "one.cht").read_bytes()
        (self.folder / "out.png").write_bytes(before)
        self.assertIn("is a recording", self.render("one.cht")[0].stderr)
        (self.folder / "out.png").unlink()
        os.link(self.folder / "one.cht", self.folder / "out.png")
        self.assertEqual((self.render("one.cht")[0].returncode, (self.folder / "one.cht").read_bytes()), (2, before))


if __name__ == "__main__":
    unittest.main(verbosity=2)
