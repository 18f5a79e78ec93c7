"""What the tests of the built program share: a folder with two drives, and ways to run the program there. Each of them
takes the program as its first argument."""
import os, pathlib, re, subprocess, sys, tempfile, time, unittest

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
