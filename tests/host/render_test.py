#!/usr/bin/env python3
"""Draws charts with the built program, without a display. Usage: render_test.py PROGRAM"""
import os, pathlib, subprocess, sys, tempfile, unittest

PROGRAM = os.path.abspath(sys.argv.pop(1))


class RenderTest(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory(prefix="chartproject-")
        self.addCleanup(holder.cleanup)
        self.folder = pathlib.Path(holder.name)
        self.chart("one.cht", range(1, 61))

    def chart(self, name, values):
        rows = "".join(f"08:00:00#{v % 17}#####\r\n" if v >= 0 else "rubbish\r\n" for v in values)
        (self.folder / name).write_text("[INFO]\r\nNumber of Parameters=1\r\nNumber of Points=60\r\n[TIME/CONTENT]\r\n" +
                                        rows, newline="")

    def render(self, name, *options):
        environment = {k: v for k, v in os.environ.items() if k not in ("DISPLAY", "QT_QPA_PLATFORM")}
        done = subprocess.run([PROGRAM, "--profile", "profile", "render", name, "--output", "out.png", *options],
                              cwd=self.folder, env=environment, capture_output=True, text=True, timeout=60)
        picture = self.folder / "out.png"
        return done, picture.read_bytes() if done.returncode == 0 else b""

    def test_draws_what_the_options_choose(self):
        pictures = {options: self.render("one.cht", *options)[1] for options in [
            *(("--type", str(kind)) for kind in range(8)), ("--grid", "on"), ("--markers", "on"), ("--lines", "off"),
            ("--scale", "2"), ("--first", "2"), ("--points-per-division", "2"), ("--size", "640x480")]}
        for options, picture in pictures.items():
            size = (640, 480) if options[0] == "--size" else (1280, 720)
            self.assertEqual((picture[:8], int.from_bytes(picture[16:20], "big"), int.from_bytes(picture[20:24], "big")),
                             (b"\x89PNG\r\n\x1a\n", *size), options)
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
        os.link(self.folder / "one.cht", self.folder / "out.png")
        self.assertEqual((self.render("one.cht")[0].returncode, (self.folder / "one.cht").read_bytes()), (2, before))


unittest.main()
