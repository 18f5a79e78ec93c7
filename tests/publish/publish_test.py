#!/usr/bin/env python3
"""Publishes recordings to real databases, through outages and crashes, and to servers that misbehave.
Usage: publish_test.py PROGRAM [--long] [unittest arguments]   --long: minutes of recording, and figures of them"""
import collections, concurrent.futures, datetime, json, os, pathlib, re, signal, subprocess, sys, time, unittest

sys.path[:0] = [os.path.dirname(os.path.abspath(__file__)),
                str(pathlib.Path(__file__).resolve().parent.parent / "host")]
from databases import Influx, Rogue, VictoriaMetrics
from program_case import ENVIRONMENT, PROGRAM, ProgramCase


class PublishCase(ProgramCase):
    def database(self, kind, name="db"):
        database = kind(self.folder / name)
        self.addCleanup(database.kill)
        database.start()
        return database

    def rogue(self, answer, tls=None):
        rogue = Rogue(answer, tls)
        self.addCleanup(rogue.stop)
        return rogue

    def publish(self, *arguments, expected=0):
        done = self.run_program("publish", *arguments, clock="real")
        self.assertEqual(done.returncode, expected, (arguments, done.stdout, done.stderr))
        return done

    def record_live(self, file, points, *more):
        command = self.command("acquire", "--address", 1, "--parameters", "3,5", "--points", points, "--every", "200ms",
                               "--file", file, "--json", *more, clock="real", link="sim")
        child = subprocess.Popen(command, cwd=self.folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                                 stdin=subprocess.DEVNULL, env={**ENVIRONMENT, "LC_ALL": "C"})
        self.addCleanup(lambda: (child.poll() is None and child.kill(), child.communicate()))
        return child

    def fields_of(self, file):
        """{field: [(milliseconds, value)]} as `export --plain` has them."""
        lines = self.run_program("export", file, "--plain", "--format", "jsonl", "--output", "-", expected=0).stdout
        fields = collections.defaultdict(list)
        for line in lines.splitlines():
            point = json.loads(line)
            moment = round(datetime.datetime.fromisoformat(point.pop("time")).timestamp() * 1000)
            for head, value in point.items():
                if value is not None:
                    fields[head.split()[0]].append((moment, value))
        return dict(fields)

    def assert_published(self, file, found):
        expected = self.fields_of(file)
        # A machine that was too busy: such a recording is sent by the times of its rows while it runs.
        info = json.loads(self.run_program("info", file, "--json").stdout)
        if info["interval"] and info["interval"]["slipped"]:
            def values(fields):
                return {name: [value for _, value in points] for name, points in fields.items()}
            expected, found = values(expected), values(found)
        self.assertEqual(found, expected)

    def of(self, database, file):
        stem = pathlib.Path(file).stem.removesuffix(".recovered")
        all_points = database.points()
        names = [name for name in all_points if name.rpartition("-")[0] == stem]
        self.assertEqual(len(names), 1, (file, list(all_points)))
        return all_points[names[0]]


class DatabaseTest(PublishCase):
    def test_finished_recordings_point_by_point_and_twice(self):
        self.acquire(3000, expected=0)  # the second parameter fails from the fifth point on
        self.acquire(10, file="other.cht", expected=0)
        for kind in (VictoriaMetrics, Influx):
            database = self.database(kind, kind.__name__)
            to = ("run.cht", "other.cht", "--to", database.url, "--host", "bench", *kind.options)
            with self.subTest(database=kind.__name__):
                self.assertEqual(self.publish(*to).stdout,
                                 f"{self.folder}/run.cht: 3000 points in {database.url}/write\n"
                                 f"{self.folder}/other.cht: 10 points in {database.url}/write\n")
                for again in ((), ("--again",)):
                    self.assertEqual(len(self.of(database, "run.cht")["P003"]), 3000)
                    self.assertEqual(len(self.of(database, "run.cht")["P005"]), 4)
                    self.assert_published("run.cht", self.of(database, "run.cht"))
                    self.assert_published("other.cht", self.of(database, "other.cht"))
                    report = json.loads(self.publish(*to, "--json", *again).stdout)
                    self.assertEqual([entry["acknowledged"] for entry in report], [3000, 10])
            if kind is VictoriaMetrics:
                tags = database.tags()
                self.assertRegex(tags.pop("recording"), "^(run|other)-[0-9a-f]{8}$")
                self.assertEqual(tags, {"drive": "01", "model": "KRA-09", "host": "bench", "P003_name": "Motor current",
                                        "P005_name": "Motor frequency"})

    def test_server_dies_and_returns_and_a_recorder_dies_meanwhile(self):
        databases = [self.database(kind, kind.__name__) for kind in (VictoriaMetrics, Influx)]
        whole, killed = {}, {}
        for database in databases:
            name = type(database).__name__
            to = ("--publish", database.url, *database.options)
            whole[database] = self.record_live(f"{name}-whole.cht", 40, *to)
            killed[database] = self.record_live(f"{name}-killed.cht", 1000, *to)
        time.sleep(3)
        for database in databases:
            database.kill()
        time.sleep(1.5)
        for child in killed.values():
            child.kill()
        time.sleep(0.5)
        for database in databases:
            database.start()
        for database, child in whole.items():
            out, err = child.communicate(timeout=60)
            name = type(database).__name__
            with self.subTest(database=name, err=err):
                self.assertEqual(child.returncode, 0)
                published = json.loads(out)["published"]
                self.assertTrue(published["complete"])
                self.assertEqual(published["acknowledged"], 40)
                self.assertIn(f"{database.url}/write cannot be reached: ", err)
                self.assertIn(f"{database.url}/write takes points again.", err)
                self.assert_published(f"{name}-whole.cht", self.of(database, f"{name}-whole.cht"))
                file = f"{name}-killed.cht"
                refused = self.publish(file, "--to", database.url, *database.options, expected=1)
                self.assertIn("is an interrupted recording", refused.stderr)
                self.run_program("recover", file, expected=0)
                self.publish(file, "--to", database.url, *database.options)
                self.assert_published(file, self.of(database, file))


class RogueTest(PublishCase):
    """Each server has one fault; the sentence that names it, and how often it was asked."""

    def setUp(self):
        super().setUp()
        self.acquire(12, expected=0)

    def test_refusals_are_one_sentence_and_keep_the_place(self):
        def body(size):
            def answer(handler, _):
                handler.send_response(200)
                handler.end_headers()
                for _ in range(size // 65536):
                    handler.wfile.write(b"x" * 65536)
            return answer

        def close(handler, _):
            handler.wfile.write(b"HTTP/1.1 204 No Con")
            handler.close_connection = True

        def redirect(to, status=307):
            return lambda handler, _: handler.say(status, "", Location=to)

        cases = (
            (lambda h, _: h.say(401, "unknown\ntoken\x1b[31m"), "refuses the token (answer 401): unknown token\\x1B[31m", 1),
            (lambda h, _: h.say(404, '{"error":"database not found"}'),
             'refuses the points (answer 404): {"error":"database not found"}', 1),
            (lambda h, _: h.say(400, "x" * 100000), "refuses the points (answer 400): " + "x" * 300, 1),
            (lambda h, _: h.say(200, "<html>"), "does not answer as a database that takes points does (answer 200): <html>",
             1),
            (body(10_000_000_000), "does not answer as a database that takes points does (answer 200): " + "x" * 300, 1),
            (redirect("/write"), "redirects too often, or to an address that is not followed: Maximum (3) redirects "
             "followed", 4),
            (redirect("file:///etc/passwd"), "redirects too often, or to an address that is not followed: Protocol \"file\"",
             1),
            (lambda h, _: h.say(413, "too much"), "does not take even a single point at a time (answer 413): too much", 4),
        )
        for answer, sentence, asked in cases:
            with self.subTest(sentence=sentence):
                rogue = self.rogue(answer)
                done = self.publish("run.cht", "--to", rogue.url, expected=1)
                first, second = done.stderr.splitlines()
                self.assertTrue(first.startswith(f"{self.folder}/run.cht: {rogue.url}/write {sentence}"), first)
                self.assertEqual(second, f"{self.folder}/run.cht: 0 points are acknowledged; the same command goes on "
                                 "from there.")
                self.assertEqual(len(rogue.requests), asked)
        rogue = self.rogue(close)
        done = self.publish("run.cht", "--to", rogue.url, "--wait", "1", expected=1)
        self.assertIn(f"{rogue.url}/write cannot be reached: ", done.stderr)

    def test_a_busy_server_and_one_of_small_batches_get_everything_once_it_is_ready(self):
        busy = iter((503, 429, 507))

        def answer(handler, body):
            lines = body.count(b"\n")
            status = next(busy, 204) if lines <= 5 else 413
            handler.say(status, "disk full" if status != 204 else "")
            if status == 204:
                taken.extend(body.decode().splitlines())
        taken = []
        done = self.publish("run.cht", "--to", self.rogue(answer).url + "/api/v2/write?bucket=b%20c")
        self.assertIn("takes no points now (answer 503): disk full", done.stderr)
        self.assertEqual(done.stderr.count("takes points again."), 1)
        self.assertEqual(len(taken), 12)
        self.assertEqual(len(set(taken)), 12)

    def test_token_stays_secret_and_goes_to_its_server_only(self):
        other = self.rogue(lambda handler, _: handler.say(204))
        first = self.rogue(lambda handler, _: handler.say(307, "", Location=other.url + "/write"))
        self.put("token", "Basic us:s3cret\n")
        done = self.publish("run.cht", "--to", first.url, "--token-file", "token")
        self.assertEqual(first.requests[0][1]["Authorization"], "Basic dXM6czNjcmV0")
        self.assertNotIn("Authorization", other.requests[0][1])
        self.put("token", "abc\n")
        self.publish("run.cht", "--to", other.url, "--token-file", "token", "--again")
        self.assertEqual(other.requests[-1][1]["Authorization"], "Token abc")
        self.assertNotIn("cret", done.stdout + done.stderr + (self.folder / "run.cht.published").read_text())
        for token in ("", "a\nHost: b\n", "x" * 5000):
            self.put("token", token)
            done = self.publish("run.cht", "--to", other.url, "--token-file", "token", expected=2)
            self.assertIn("token: the file does not hold a token of one line", done.stderr)

    def test_certificates(self):
        subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-subj", "/CN=127.0.0.1", "-addext",
                        "subjectAltName=IP:127.0.0.1", "-keyout", "key.pem", "-out", "cert.pem"], cwd=self.folder,
                       check=True, capture_output=True)
        rogue = self.rogue(lambda handler, _: handler.say(204), (self.folder / "cert.pem", self.folder / "key.pem"))
        done = self.publish("run.cht", "--to", rogue.url, expected=1)
        self.assertIn(f"The certificate of {rogue.url}/write does not hold: ", done.stderr)
        self.assertEqual(rogue.requests, [])
        self.publish("run.cht", "--to", rogue.url, "--ca-file", "cert.pem")
        self.assertEqual(rogue.requests[0][0], "/write?precision=ms")


class RecorderTest(PublishCase):
    def test_recorder_beside_a_server_that_refuses_or_hangs(self):
        """Reported once; the recording is whole; a signal ends it within moments, and the command for the rest works."""
        taken = []
        def open_later(handler, body):
            if not ready:
                handler.say(401, "no")
            else:
                taken.extend(body.splitlines())
                handler.say(204)
        ready = []
        refusing = self.rogue(open_later)
        hanging = self.rogue(lambda handler, _: time.sleep(60))
        first = self.record_live("refused.cht", 15, "--publish", refusing.url, "--wait", "2")
        second = self.record_live("hung.cht", 1000, "--publish", hanging.url)
        out, err = first.communicate(timeout=60)
        self.assertEqual(first.returncode, 0)
        self.assertEqual(json.loads(out)["rows"], 15)
        self.assertFalse(json.loads(out)["published"]["complete"])
        self.assertEqual(err.count("refuses the token (answer 401): no"), 1, err)
        command = f"chartproject publish '{self.folder}/refused.cht' --to '{refusing.url}'"
        self.assertIn(f"15 of 15 points are not sent; this command sends them: {command}\n", err)
        begun = time.monotonic()
        second.send_signal(signal.SIGTERM)
        out, err = second.communicate(timeout=60)
        self.assertLess(time.monotonic() - begun, 15)
        self.assertEqual(second.returncode, 3)
        self.assertEqual(json.loads(out)["rows"], json.loads(out)["points"])
        ready.append(True)
        self.publish("refused.cht", "--to", refusing.url)
        self.assertEqual(len(taken), 15)

    def test_following_another_recorder_and_two_publishers(self):
        taken = []
        def answer(handler, body):
            taken.extend(body.decode().splitlines())
            handler.say(204)
        rogue = self.rogue(answer)
        recorder = self.record_live("followed.cht", 20)
        self.until(lambda: (self.folder / "followed.cht.recording").exists())
        follower = subprocess.Popen(self.command("publish", "followed.cht", "--to", rogue.url, clock="real"),
                                    cwd=self.folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.until(lambda: taken)
        done = self.publish("followed.cht", "--to", rogue.url, expected=1)
        self.assertIn("followed.cht is being published by another program", done.stderr)
        recorder.communicate(timeout=60)
        out, err = follower.communicate(timeout=60)
        self.assertEqual((follower.returncode, out, err),
                         (0, f"{self.folder}/followed.cht: 20 points in {rogue.url}/write\n", ""))
        self.assertEqual(len({line.rpartition(" ")[2] for line in taken}), 20)

    def until(self, condition):
        limit = time.monotonic() + 30
        while not condition():
            self.assertLess(time.monotonic(), limit)
            time.sleep(0.01)


class LongRuns(PublishCase):
    """What takes minutes; run by hand, prints its figures. See docs/fleet.md."""

    def cpu_of(self, pid):
        ticks = pathlib.Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()[11:13]
        return sum(map(int, ticks)) / os.sysconf("SC_CLK_TCK")

    def memory_of(self, pid):
        status = pathlib.Path(f"/proc/{pid}/status").read_text()
        return int(re.search(r"VmHWM:\s+(\d+)", status)[1]) / 1024

    def test_outage_of_a_minute_in_three(self):
        databases = [self.database(kind, kind.__name__) for kind in (VictoriaMetrics, Influx)]
        whole, killed = {}, {}
        for database in databases:
            to = ("--publish", database.url, *database.options)
            whole[database] = self.record_live(f"{type(database).__name__}-whole.cht", 900, *to)
            killed[database] = self.record_live(f"{type(database).__name__}-killed.cht", 900, *to)
        time.sleep(60)
        for database in databases:
            database.kill()
        time.sleep(30)
        for child in killed.values():
            child.kill()
        time.sleep(30)
        for database in databases:
            database.start()
        for database in databases:
            name = type(database).__name__
            out, err = whole[database].communicate(timeout=300)
            print(f"{name}, whole: {json.loads(out)['published']}\n{err}")
            self.assert_published(f"{name}-whole.cht", self.of(database, f"{name}-whole.cht"))
            self.run_program("recover", f"{name}-killed.cht", expected=0)
            print(self.publish(f"{name}-killed.cht", "--to", database.url, *database.options, "--json").stdout)
            self.assert_published(f"{name}-killed.cht", self.of(database, f"{name}-killed.cht"))

    def test_a_hundred_recorders(self):
        """Of five minutes each; the server dies after two and returns 20 s later."""
        database = self.database(VictoriaMetrics)
        children = [self.record_live(f"r{number:03}.cht", 1500, "--publish", database.url, "--wait", "120")
                    for number in range(100)]
        time.sleep(120)
        database.kill()
        time.sleep(20)
        database.start()
        time.sleep(130)
        cpu = sum(self.cpu_of(child.pid) for child in children)
        memory = max(self.memory_of(child.pid) for child in children)
        print(f"server since its return: {self.cpu_of(database.process.pid):.1f} s of processor, "
              f"{self.memory_of(database.process.pid):.0f} MiB; recorders after 270 s: {cpu:.1f} s together, "
              f"at most {memory:.0f} MiB each")
        again = 0
        for child in children:
            out, err = child.communicate(timeout=300)
            published = json.loads(out)["published"]
            self.assertTrue(published["complete"], (out, err))
            again += published["lines"] - 1500
        found = {name.rpartition("-")[0]: fields for name, fields in database.points().items()}
        self.assertEqual(len(found), 100)
        for number in range(100):
            self.assert_published(f"r{number:03}.cht", found[f"r{number:03}"])
        size = sum(file.stat().st_size for file in (database.folder / "data").rglob("*") if file.is_file())
        print(f"150000 points, 300000 values: each once; {again} lines were sent twice; {size / 300000:.2f} bytes a value")

    def test_points_are_as_punctual_with_a_server_as_without(self):
        """Three recorders at a time, so that they meet the same machine: without, with a server, with one that hangs."""
        database = self.database(VictoriaMetrics)
        hanging = self.rogue(lambda handler, _: time.sleep(600))
        for turn in range(3):
            children = {"without": self.record_live(f"a{turn}.cht", 300),
                        "with": self.record_live(f"b{turn}.cht", 300, "--publish", database.url),
                        "hanging": self.record_live(f"c{turn}.cht", 300, "--publish", hanging.url, "--wait", "1")}
            for name, child in children.items():
                print(turn, name, json.loads(child.communicate(timeout=300)[0])["interval"])

    def test_backfill(self):
        """A million points in four series."""
        header = ("[INFO]\r\nDrive Address=01\r\nNumber of Parameters=4\r\nPXXX1=002\r\nPXXX2=003\r\nPXXX3=005\r\n"
                  "PXXX4=006\r\nScan Time=200\r\nUnit=ms\r\nNumber of Points=1000000\r\nStart Date=01/31/26\r\n"
                  "Start Time=08:00:00\r\n[TIME/CONTENT]\r\n")
        rows = (f"{at // 3600 % 24:02}:{at // 60 % 60:02}:{at % 60:02}#{1750 + point % 97 / 10}#{point % 5003 / 100}#"
                f"{point % 601 / 10}#{point % 7}##\r\n" for point in range(1000000) for at in (28800 + point // 5,))
        self.put("big.cht", header + "".join(rows))
        for kind in (VictoriaMetrics, Influx):
            database = self.database(kind, kind.__name__)
            for turn in range(3):
                begun = time.monotonic()
                report = json.loads(self.publish("big.cht", "--to", database.url, *kind.options, "--json", "--host",
                                                 f"turn{turn}").stdout)[0]
                seconds = time.monotonic() - begun
                print(f"{kind.__name__}: {report['values']} values in {seconds:.1f} s, "
                      f"{report['values'] / seconds:,.0f} a second, server {self.cpu_of(database.process.pid):.1f} s")
                (self.folder / "big.cht.published").unlink()


def run_side_by_side():
    """Each test in a process of its own, some at once: they wait for servers and for points most of their time."""
    suites = unittest.defaultTestLoader.loadTestsFromModule(sys.modules["__main__"])
    names = [test.id().removeprefix("__main__.") for suite in suites for test in suite]

    def run(name):
        done = subprocess.run([sys.executable, __file__, PROGRAM, name], capture_output=True, text=True, check=False)
        return done.returncode, f"{name}\n{done.stdout}{done.stderr}"
    with concurrent.futures.ThreadPoolExecutor(AT_ONCE) as pool:
        results = list(pool.map(run, names))
    for code, text in results:
        print(text)
    return not results or any(code != 0 for code, _ in results)


AT_ONCE = 5

if __name__ == "__main__":
    if "--long" in sys.argv:
        sys.argv.remove("--long")
        del DatabaseTest, RogueTest, RecorderTest
        unittest.main()
    del LongRuns
    if len(sys.argv) > 1:
        unittest.main()
    sys.exit(run_side_by_side())
