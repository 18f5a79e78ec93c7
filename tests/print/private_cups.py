#!/usr/bin/python3
"""Runs a command beside a private print server and keeps the document that its printer was sent.

usage: private_cups.py accepting|rejecting RECEIVED.pdf COMMAND...
The server listens on the loopback interface only; its one queue, the default printer, takes documents unchanged. Ends
with the command's exit code; with 90 when the server could not be set up.
"""
import os, shutil, socket, subprocess, sys, tempfile, time

DEADLINE = 30  # seconds for each step


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def wait_for(condition, what):
    end = time.monotonic() + DEADLINE
    while not condition():
        if time.monotonic() > end:
            print(f"private_cups: {what} did not happen", file=sys.stderr)
            sys.exit(90)
        time.sleep(0.02)


def write_configuration(root, port):
    for name in ("spool", "tmp", "state", "cache", "log"):
        os.makedirs(os.path.join(root, name))
        os.chmod(os.path.join(root, name), 0o777)
    with open(os.path.join(root, "cupsd.conf"), "w") as file:
        file.write(f"Listen 127.0.0.1:{port}\nBrowsing Off\nDefaultAuthType None\nLogLevel warn\n"
                   "WebInterface No\nPreserveJobFiles Yes\n"
                   "<Location />\n  Order allow,deny\n  Allow all\n</Location>\n"
                   "<Location /admin>\n  Order allow,deny\n  Allow all\n</Location>\n"
                   "<Policy default>\n  <Limit All>\n    Order allow,deny\n    Allow all\n  </Limit>\n</Policy>\n")
    with open(os.path.join(root, "cups-files.conf"), "w") as file:
        file.write(f"ServerRoot {root}\nRequestRoot {root}/spool\nTempDir {root}/tmp\nStateDir {root}/state\n"
                   f"CacheDir {root}/cache\nAccessLog {root}/log/access\nErrorLog {root}/log/error\n"
                   f"PageLog {root}/log/page\n")


def main():
    mode, target, command = sys.argv[1], sys.argv[2], sys.argv[3:]
    with tempfile.TemporaryDirectory() as root:
        os.chmod(root, 0o755)
        port = free_port()
        write_configuration(root, port)
        environment = dict(os.environ, CUPS_SERVER=f"127.0.0.1:{port}")

        def cups(*words):
            return subprocess.run(words, env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)

        server = subprocess.Popen(["/usr/sbin/cupsd", "-f", "-c", f"{root}/cupsd.conf", "-s", f"{root}/cups-files.conf"])
        try:
            wait_for(lambda: "is running" in cups("lpstat", "-r").stdout, "the print server's start")
            for words in (("-p", "TESTQ", "-E", "-v", "file:/dev/null"), ("-d", "TESTQ")):
                made = cups("/usr/sbin/lpadmin", *words)
                if made.returncode:
                    print("private_cups:", made.stdout, file=sys.stderr)
                    sys.exit(90)
            if mode == "rejecting":
                cups("/usr/sbin/cupsreject", "TESTQ")
            code = subprocess.run(command, env=environment).returncode
            if code == 0:
                wait_for(lambda: "TESTQ" in cups("lpstat", "-W", "completed", "-o").stdout, "the document's arrival")
                shutil.copy(f"{root}/spool/d00001-001", target)
            sys.exit(code)
        finally:
            server.terminate()
            server.wait()


main()
