#!/usr/bin/env python3
"""Holds the includes against the levels of the house: nothing upward, nothing sideways, no forms
below the dialogs, no toolkit outside the shell. Prints every breach and exits with 1 when there is
one."""

import pathlib
import re
import sys

# What a folder may use beside itself: everything on the levels above. Folders of one level do not
# see each other.
LEVELS = [
    ["platform"],
    ["engine"],
    ["data", "reactors", "residence", "evaluation", "simulations"],
    ["diagrams"],
    ["dialogs/common"],
    ["dialogs/diagram"],
    [
        "dialogs/course",
        "dialogs/data",
        "dialogs/reactors",
        "dialogs/residence",
        "dialogs/evaluation",
        "dialogs/simulations",
    ],
    ["shell"],
]
LEVEL_OF = {folder: level for level, folders in enumerate(LEVELS) for folder in folders}
FIRST_WITH_FORMS = LEVEL_OF["dialogs/common"]
TOOLKIT = re.compile(r"^(Q[A-Z]\w*|qcustomplot\.h|Qt\w+/.*|ui_.*)$")
CONTROLS = "platform/controls.h"
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


def room(path):
    """The room of a file given by its path below the top; None when it is in none."""
    for depth in (2, 1):
        folder = "/".join(pathlib.PurePosixPath(path).parts[:depth])
        if folder in LEVEL_OF and folder != path:
            return folder
    return None


def breaches_of(name, number, quote, included, folder):
    here = room(name)
    if here is None:
        yield f"{name}: stands in no room"
        return
    if TOOLKIT.match(included):
        if not name.startswith(("shell/qt/", "shell/main.cpp")):
            yield f"{name}:{number}: the toolkit ({included}) outside shell/qt/"
        return
    there = room(included)
    if there is None:
        if quote == '"' and "/" not in included and (folder / included).exists():
            yield f"{name}:{number}: include by the path from the top: {included}"
        return
    if there != here and LEVEL_OF[there] >= LEVEL_OF[here]:
        yield f"{name}:{number}: {here} may not use {there} ({included})"
    if included == CONTROLS and here != "platform" and LEVEL_OF[here] < FIRST_WITH_FORMS:
        yield f"{name}:{number}: {here} knows no forms ({included})"


def breaches(top):
    for folder in sorted({folder.split("/")[0] for folder in LEVEL_OF}):
        for file in sorted((top / folder).rglob("*")):
            if file.suffix not in (".h", ".cpp"):
                continue
            name = file.relative_to(top).as_posix()
            for number, line in enumerate(file.read_text().splitlines(), 1):
                if match := INCLUDE.match(line):
                    yield from breaches_of(name, number, match[1], match[2], file.parent)


def main():
    top = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ".").resolve()
    found = list(breaches(top))
    for breach in found:
        print(breach)
    print(f"{len(found)} breach(es) of the levels")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
