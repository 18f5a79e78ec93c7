#!/usr/bin/env python3
"""Reads from a finished program (ELF) or library (PE) whether it was built with the protections of Hardening.cmake and
without the date of its building. Usage: marks.py FILE"""
import re, struct, subprocess, sys


def missing_in_elf(name):
    def readelf(*options):
        return subprocess.run(["readelf", "--wide", *options, name], capture_output=True, text=True, check=True).stdout
    segments, dynamic, notes, symbols = (readelf(o) for o in ("--segments", "--dynamic", "--notes", "--dyn-syms"))
    marks = {
        "position-independent": re.search(r"FLAGS_1.*\bPIE\b", dynamic),
        "all symbols bound at the start": re.search(r"FLAGS_1.*\bNOW\b", dynamic),
        "relocations read-only": "GNU_RELRO" in segments,
        "stack without code": re.search(r"GNU_STACK.*\bRW\s+0x", segments),
        "stack protector": "__stack_chk_fail" in symbols,
        "fortified calls": re.search(r"__\w+_chk@", symbols),
        "checked containers": "__glibcxx_assert_fail" in symbols,
        "control-flow protection": re.search("IBT.*SHSTK", notes) or "x86-64" not in readelf("--file-header"),
    }
    return [mark for mark, there in marks.items() if not there]


# Libraries that the system keeps ready for every program, or loads by the manifest. Any other one would be looked for
# beside the host first.
READY = {"advapi32", "comctl32", "gdi32", "gdiplus", "kernel32", "msvcrt", "ole32", "oleaut32", "shell32", "user32"}


def imported(name):
    headers = subprocess.run(["i686-w64-mingw32-objdump", "-p", name], capture_output=True, text=True, check=True).stdout
    return {library.lower().removesuffix(".dll") for library in re.findall(r"DLL Name: (\S+)", headers)}


def missing_in_pe(name, data):
    header = struct.unpack_from("<I", data, 0x3C)[0]
    date = struct.unpack_from("<I", data, header + 8)[0]
    flags = struct.unpack_from("<H", data, header + 24 + 70)[0]
    marks = {
        "no date": date == 0,
        "libraries of the system's folder only": imported(name) <= READY,
        "any address": flags & 0x40 and b".reloc\0" in data[header:header + 1024],
        "no code on stack and heap": flags & 0x100,
        "no handlers on the stack": flags & 0x400,
        "stack protector": b"stack smashing detected" in data,
        "checked containers": b"Assertion '%s' failed" in data,
    }
    return [mark for mark, there in marks.items() if not there]


with open(sys.argv[1], "rb") as file:
    contents = file.read()
missing = missing_in_pe(sys.argv[1], contents) if contents.startswith(b"MZ") else missing_in_elf(sys.argv[1])
print(f"{sys.argv[1]}: {'lacks ' + ', '.join(missing) if missing else 'has every mark'}")
sys.exit(1 if missing else 0)
