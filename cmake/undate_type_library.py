#!/usr/bin/env python3
"""Takes the date of the compilation out of a type library, so that the same interfaces give the same bytes.
Usage: undate_type_library.py FILE"""
import pathlib, re, sys

file = pathlib.Path(sys.argv[1])
library = file.read_bytes()
# A text such as "Created by ... at Sat Jan 31 08:00:00 2026\n", its padding, and the same date as a number (type 0x13).
dated = re.compile(rb"( at )\w{3} \w{3} [ \d]\d \d\d:\d\d:\d\d \d{4}(\n\0?W*\x13\0).{4}", re.DOTALL)
library, count = dated.subn(rb"\1Thu Jan  1 00:00:00 1970\2" + bytes(4), library)
if count != 1:
    sys.exit(f"{file}: {count} dates where one was expected")
file.write_bytes(library)
