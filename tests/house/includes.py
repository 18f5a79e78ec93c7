#!/usr/bin/env python3
"""Fails on an include that its folder may not use, and on platform code in the core.
Usage: includes.py SOURCE_FOLDER   (the folder that holds src/)"""
import pathlib, re, sys

# Folder -> folders it may use besides itself and what those name in turn. Every folder of src/ has its row; a row may
# name only rows above it, so that no arrow runs back up.
MAY_USE = {
    "texts": [],
    "platform": ["texts"],
    "forms": ["platform"],
    "common/values": ["platform"],
    "common/environment": ["common/values"],
    "common": ["common/environment", "forms"],
    "drive": ["common"],
    "recording/file": ["drive"],
    "recording/companion": ["recording/file"],
    "recording/journal": ["recording/companion"],
    "recording": ["recording/journal"],
    "acquire/run": ["recording", "forms"],
    "acquire/dialog": ["acquire/run"],
    "chart/file": ["recording"],
    "chart/plain": ["recording"],
    "chart/measure": ["chart/file"],
    "chart/picture/geometry": ["recording", "forms"],
    "chart/picture/series": ["chart/picture/geometry"],
    "chart/picture": ["chart/picture/series"],
    "chart/output": ["chart/file", "chart/plain", "chart/picture"],
    "chart/view": ["chart/output"],
    "chart/live": ["chart/view"],
    "chart/report": ["chart/measure", "chart/view"],
    "chart/window/control": ["chart/measure", "chart/view"],
    "chart/window/actions": ["common"],
    "chart/window/sections": ["chart/report", "chart/window/control", "chart/window/actions"],
    "chart/window": ["chart/window/sections"],
    "component": ["acquire/dialog", "chart/live", "chart/window"],
    "publish": ["chart/plain"],
    "backends/posix/files": ["platform"],
    "backends/posix": ["backends/posix/files"],
    "links": ["drive"],
    "links/serial": ["links", "backends/posix"],
    "backends/headless": ["forms"],
    "backends/spreadsheet": ["backends/posix"],
    "backends/curl": ["common/values"],
    "backends/qt": ["forms", "backends/posix"],
    "backends/qt/forms": ["backends/qt"],
    "backends/win32": ["platform"],
    "backends/win32/drawing": ["backends/win32", "forms"],
    "backends/win32/files": ["backends/win32"],
    "backends/win32/widgets": ["backends/win32/drawing"],
    "backends/win32/boxes": ["backends/win32/files", "backends/win32/widgets", "backends/headless"],
    "backends/win32/forms": ["backends/win32/boxes"],
    "backends/win32/com": ["backends/win32/forms"],
    "links/com": ["links", "backends/win32/com"],
    "component/com": ["component", "links/com"],
    "host/project": ["links"],
    "host/session": ["component", "links/serial", "backends/headless", "backends/spreadsheet", "backends/qt/forms"],
    "host/window": ["host/session", "host/project"],
    "host/manual": [],
    "host/arguments": ["host/window", "host/manual", "publish", "backends/curl"],
    "host/reports": ["host/arguments"],
    "host/commands": ["host/reports"],
    "host": ["host/commands"],
}
CORE = {"texts", "platform", "forms", "common", "drive", "recording", "acquire", "chart", "component", "publish"}
TOOLKITS = re.compile(r"#\s*include\s*<(windows|ole2?|oaidl|objbase|unistd|fcntl|sys/|glib|Q[A-Z]|q[a-z]+\.h)")
SWITCHES = re.compile(r"#\s*(el)?if(n?def)?\b.*\b(_WIN32|WIN32|_MSC_VER|__linux__|__unix__|__APPLE__|__MINGW32__|QT_\w+)\b")
OURS = re.compile(r'#\s*include\s*"([a-z0-9_/]+)/[^"/]+"')


def usable(folder):
    """All folders that a folder may use: its own, those that its row names, and theirs."""
    found = {folder}
    for other in MAY_USE[folder]:
        found |= usable(other)
    return found


def is_core(folder):
    """Back ends, links and the COM server know their platform; the ports and every floor do not."""
    return folder.split("/")[0] in CORE and folder != "component/com"


def faults_of_line(folder, line):
    if is_core(folder) and TOOLKITS.match(line):
        yield "toolkit or system header in the core"
    if is_core(folder) and SWITCHES.match(line):
        yield "platform switch in the core"
    include = OURS.match(line)
    if include and include[1] not in usable(folder):
        yield f"{folder} may not use {include[1]}"


def faults(root):
    sources = root / "src"
    for file in sorted(sources.rglob("*")):
        if file.suffix not in (".h", ".cpp"):
            continue
        folder = file.parent.relative_to(sources).as_posix()
        if folder not in MAY_USE:
            yield f"src/{folder}: the folder has no row in the table of includes"
            continue
        for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
            for fault in faults_of_line(folder, line.strip()):
                yield f"{file.relative_to(root)}:{number}: {fault}: {line.strip()}"


def check_the_check():
    """The table has no arrow back up, and a climbing include is seen in every kind of folder."""
    rows = list(MAY_USE)
    for row in rows:
        for other in MAY_USE[row]:
            if rows.index(other) >= rows.index(row):
                sys.exit(f"the row {row} names {other}, which does not stand above it")
    for folder in rows:
        above = [row for row in rows if row not in usable(folder)]
        for other in above:
            if not list(faults_of_line(folder, f'#include "{other}/x.h"')):
                sys.exit(f"not seen as a fault: {other} in {folder}")
        core = is_core(folder)
        for line in ("#include <unistd.h>", "#include <QString>", "#ifdef _WIN32"):
            if bool(list(faults_of_line(folder, line))) != core:
                sys.exit(f"not judged right: {line} in {folder}")


def main():
    check_the_check()
    found = list(faults(pathlib.Path(sys.argv[1])))
    print("\n".join(found) or "no include climbs")
    sys.exit(1 if found else 0)


main()
