"""Databases of Debian's packages as ordinary programs on loopback ports of the test's own, and a server that misbehaves."""
import http.server, json, os, pathlib, signal, socket, ssl, subprocess, threading, time, urllib.error, urllib.parse, urllib.request


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


class Database:
    """A program that is started, killed, and started again on the same data."""
    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.folder.mkdir(parents=True)
        self.port = free_port()
        self.url = f"http://127.0.0.1:{self.port}"
        self.process = None

    def ask(self, path, data=None, timeout=60):
        with urllib.request.urlopen(self.url + path, data, timeout) as answer:
            return answer.read().decode()

    def start(self):
        self.process = subprocess.Popen(self.command(), cwd=self.folder, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        until = time.monotonic() + 30
        while True:
            try:
                return self.ask(self.ready)
            except (OSError, urllib.error.URLError):
                if self.process.poll() is not None or time.monotonic() > until:
                    raise
                time.sleep(0.02)

    def kill(self):
        if self.process and self.process.poll() is None:
            self.process.kill()
            self.process.wait()


class VictoriaMetrics(Database):
    ready = "/health"
    options = ()

    def command(self):
        return ["/usr/bin/victoria-metrics", f"-storageDataPath={self.folder}/data",
                f"-httpListenAddr=127.0.0.1:{self.port}", "-retentionPeriod=100y", "-dedup.minScrapeInterval=1ms",
                "-memory.allowedPercent=10"]

    def points(self):
        """{recording: {field: [(milliseconds, value)]}}"""
        self.ask("/internal/force_flush")
        found = {}
        for line in self.ask("/api/v1/export?match[]=" + urllib.parse.quote('{__name__=~"chart_.*"}')).splitlines():
            series = json.loads(line)
            label = series["metric"]
            field = label["__name__"].removeprefix("chart_")
            points = found.setdefault(label["recording"], {}).setdefault(field, [])
            points.extend(zip(series["timestamps"], series["values"]))
        for fields in found.values():
            for points in fields.values():
                points.sort()
        return found

    def tags(self):
        line = self.ask("/api/v1/export?match[]=" + urllib.parse.quote('{__name__=~"chart_.*"}')).splitlines()[0]
        return {key: value for key, value in json.loads(line)["metric"].items() if key not in ("__name__", "db")}


class Influx(Database):
    ready = "/ping"
    options = ("--database", "plant")

    def command(self):
        config = self.folder / "influx.conf"
        config.write_text(f"""reporting-disabled = true
bind-address = "127.0.0.1:{self.rpc}"
[meta]
  dir = "{self.folder}/meta"
[data]
  dir = "{self.folder}/data"
  wal-dir = "{self.folder}/wal"
  max-series-per-database = 0
[http]
  bind-address = "127.0.0.1:{self.port}"
  log-enabled = false
[monitor]
  store-enabled = false
""")
        return ["/usr/bin/influxd", "run", "-config", str(config)]

    def start(self):
        self.rpc = free_port()
        super().start()
        self.ask("/query", b"q=CREATE DATABASE plant")

    def points(self):
        asked = urllib.parse.urlencode({"db": "plant", "epoch": "ms", "q": "SELECT * FROM chart GROUP BY recording"})
        found = {}
        for series in json.loads(self.ask("/query?" + asked))["results"][0].get("series", []):
            fields = found.setdefault(series["tags"]["recording"], {})
            for at, column in enumerate(series["columns"]):
                if at == 0 or not (column[0] == "P" and column[1:4].isdigit() and "_name" not in column
                                   and "_unit" not in column):
                    continue
                fields[column] = [(row[0], row[at]) for row in series["values"] if row[at] is not None]
        return found


class Rogue:
    """Answers every request as `answer(handler, body)` does; counts them."""
    def __init__(self, answer, tls=None):
        rogue = self
        rogue.requests = []

        class Handler(http.server.BaseHTTPRequestHandler):
            protocol_version = "HTTP/1.1"

            def do_POST(self):
                body = self.rfile.read(int(self.headers.get("Content-Length", 0)))
                rogue.requests.append((self.path, dict(self.headers), body))
                try:
                    answer(self, body)
                except OSError:
                    self.close_connection = True

            def say(self, status, text="", **headers):
                self.send_response(status)
                self.send_header("Content-Length", str(len(text.encode())))
                for name, value in headers.items():
                    self.send_header(name, value)
                self.end_headers()
                self.wfile.write(text.encode())

            def log_message(self, *_):
                pass

        class Server(http.server.ThreadingHTTPServer):
            daemon_threads = True

            def handle_error(self, *_):
                pass

        self.server = Server(("127.0.0.1", 0), Handler)
        if tls:
            context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
            context.load_cert_chain(*tls)
            self.server.socket = context.wrap_socket(self.server.socket, server_side=True)
        self.url = f"{'https' if tls else 'http'}://127.0.0.1:{self.server.server_address[1]}"
        threading.Thread(target=self.server.serve_forever, args=(0.02,), daemon=True).start()

    def stop(self):
        self.server.shutdown()
        self.server.server_close()
