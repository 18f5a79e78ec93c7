#!/usr/bin/python3
"""Reads pages back that the Windows component printed: texts, places in centimetres, colours, picture.
Usage: printed_page.py PAGE.ps...   (each becomes PAGE.pdf, too)"""
import collections
import re
import subprocess
import sys
import unittest

PAGES = sys.argv[1:]
POINT = 2.54 / 72  # centimetres
DOTS = 192 / 72  # the picture's own, to the point
TEXTS = [r"Kestrel v5\.60", r"\d\d/\d\d/20\d\d +\d+:\d\d:\d\d [AP]M +show\.cht", r".+: +P:\\run\\show\.cht", ".+: +01",
         r".+: +P002, .+, .+ 1\.\.\.32767: 1", r"P003, .+, .+ 1\.\.\.32767: 1", ".+: +(Yes|S.+)",
         ".+: +N.+", ".+: +(Yes|S.+)", ".+: +.*2D.*", ".+: +1 ?s", ".+: +300"]
RED, GREEN, WHITE, BACKDROP = b"\xff\0\0", b"\0\xff\0", b"\xff\xff\xff", b"\xff\xff\xe6"


def run(*command):
    return subprocess.run(command, check=True, capture_output=True).stdout


def colours(pdf, left, top, width, height):
    """How many pixels have which colour. All in dots."""
    pixels = run("pdftoppm", "-r", "192", "-aa", "no", "-aaVector", "no", "-x", str(left), "-y", str(top),
                 "-W", str(width), "-H", str(height), pdf).split(b"\n255\n", 1)[1]
    return collections.Counter(pixels[at:at + 3] for at in range(0, len(pixels), 3))


class PrintedPage(unittest.TestCase):
    def test_pages(self):
        for page in PAGES:
            with self.subTest(page):
                pdf = page.replace(".ps", ".pdf")
                run("gs", "-q", "-dBATCH", "-dNOPAUSE", "-dSAFER", "-sDEVICE=pdfwrite", "-o", pdf, page)
                self.check_texts(pdf)
                self.check_picture(pdf)

    def check_texts(self, pdf):
        self.assertIn(b"Pages:           1\n", run("pdfinfo", pdf))
        lines = [line.strip() for line in run("pdftotext", "-layout", pdf, "-").decode().split("\n") if line.strip()]
        self.assertEqual([bool(re.fullmatch(*pair)) for pair in zip(TEXTS, lines)], [True] * len(TEXTS), lines)
        self.assertEqual(len(lines), len(TEXTS))
        places = {word: (float(x) * POINT, float(y)) for x, y, word in re.findall(
            r'xMin="(\S+)" yMin="(\S+)" .*>(.+)</word>', run("pdftotext", "-bbox", pdf, "-").decode())}
        labels = [line.split()[0] for line in lines if ": " in line and not line.startswith("P003")]
        columns = {"Kestrel": 4, r"P:\run\show.cht": 7, "P002,": 7, "300": 7, **{label: 2.5 for label in labels}}
        for word, x in columns.items():
            self.assertAlmostEqual(places[word][0], x, delta=0.02, msg=word)
        for word, colour in (("P002,", RED), ("P003,", GREEN)):
            found = colours(pdf, round(7 / POINT * DOTS), round(places[word][1] * DOTS), 600, 25)
            self.assertEqual(set(found), {colour, WHITE}, word)

    def check_picture(self, pdf):
        """Whole and in proportion below ten lines of 13.8 points, which begin 3.4 cm from the edge; nothing beside it."""
        images = run("pdfimages", "-list", pdf).decode().splitlines()[2:]
        self.assertEqual(len(images), 2, "icon and chart")
        fields = images[1].split()
        width, height, x_ppi, y_ppi = map(int, fields[3:5] + fields[12:14])
        self.assertAlmostEqual(x_ppi, y_ppi, delta=2)
        width, height = (round(size * DOTS * 72 / ppi) for size, ppi in ((width, x_ppi), (height, y_ppi)))
        left, top = round(2.5 / POINT * DOTS), round((3.4 / POINT + 138) * DOTS)
        inside = colours(pdf, left + 2, top + 2, width - 6, height - 6)  # the resolution is a rounded one
        self.assertEqual(inside[WHITE], 0)
        self.assertGreater(inside[BACKDROP], width * height / 20)
        self.assertGreater(inside[RED], 2000, "the first series")
        right, bottom = left + width + 4, top + height + 4
        for around in ((0, top, left - 2, height), (right, top, 900, height), (0, bottom, 1600, 900)):
            self.assertEqual(set(colours(pdf, *around)), {WHITE}, around)


unittest.main(argv=sys.argv[:1])
