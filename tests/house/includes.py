#!/usr/bin/env python3
"""Fails on an include that climbs from a floor to one above it, and on platform code in the core.
Usage: includes.py SOURCE_FOLDER   (the folder that holds src/)"""
import pathlib, re, sys

FLOORS = ["platform", "forms", "common", "drive", "acquire", "chart", "component"]
TOOLKITS = re.compile(r"#\s*include\s*<(windows|ole2?|oaidl|objbase|unistd|fcntl|sys/|glib|Q[A-Z]|q[a-z]+\.h)")
SWITCHES = re.compile(r"#\s*(el)?if(n?def)?\b.*\b(_WIN32|WIN32|_MSC_VER|__linux__|__unix__|__APPLE__|__MINGW32__|QT_\w+)\b")
OURS = re.compile(r'#\s*include\s*"([a-z_]+)/([^"]*)"')


def is_core(path):
    """Back ends and the COM server know their platform; the ports and every floor do not."""
    floor = path.parts[0]
    if floor == "platform":
        return len(path.parts) == 2
    return floor in FLOORS and path.parts[:2] != ("component", "com")


def faults_of_line(path, line):
    if TOOLKITS.match(line):
        yield "toolkit or system header in the core"
    if SWITCHES.match(line):
        yield "platform switch in the core"
    include = OURS.match(line)
    if include:
        floor, rest = include.groups()
        if floor == "platform" and "/" in rest:
            yield "back end included by the core"
        elif floor not in FLOORS or FLOORS.index(floor) > FLOORS.index(path.parts[0]):
            yield "include climbs"


def faults(root):
    sources = root / "src"
    for file in sorted(sources.rglob("*")):
        path = file.relative_to(sources)
        if file.suffix not in (".h", ".cpp") or not is_core(path):
            continue
        for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
            for fault in faults_of_line(path, line.strip()):
                yield f"src/{path}:{number}: {fault}: {line.strip()}"


def main():
    # The check itself must see faults.
    sample = pathlib.PurePath("drive/x.h")
    for line in ('#include "acquire/run.h"', '#include "platform/qt/x.h"', "#include <unistd.h>", "#ifdef _WIN32",
                 '#include "host/x.h"'):
        if not list(faults_of_line(sample, line)):
            sys.exit(f"not seen as a fault: {line}")
    found = list(faults(pathlib.Path(sys.argv[1])))
    print("\n".join(found) or "no include climbs")
    sys.exit(1 if found else 0)


main()
