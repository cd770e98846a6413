#!/usr/bin/env python3
"""Holds the includes against the levels of the house: nothing upward, nothing sideways, no toolkit
outside the shell. Prints every breach and exits with 1 when there is one."""

import pathlib
import re
import sys

LEVELS = {
    "platform": 1,
    "engine": 2,
    "data": 3,
    "reactors": 3,
    "residence": 3,
    "evaluation": 3,
    "simulations": 3,
    "diagrams": 4,
    "dialogs": 5,  # frm_* in any folder
    "shell": 6,
}
TOOLKIT = re.compile(r"^(Q[A-Z]\w*|qcustomplot\.h|Qt\w+/.*|ui_.*)$")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


def room(path):
    """The room of a file given by its path below the top: its folder, or the dialogs."""
    parts = pathlib.PurePosixPath(path).parts
    if parts[0] not in LEVELS:
        return None
    if parts[-1].startswith("frm_"):
        return "dialogs"
    return parts[0]


def breaches(top):
    for folder in sorted(set(LEVELS) - {"dialogs"}):
        for file in sorted((top / folder).rglob("*")):
            if file.suffix not in (".h", ".cpp"):
                continue
            name = file.relative_to(top).as_posix()
            here = room(name)
            for number, line in enumerate(file.read_text().splitlines(), 1):
                match = INCLUDE.match(line)
                if not match:
                    continue
                included = match.group(2)
                if TOOLKIT.match(included):
                    if not name.startswith("shell/"):
                        yield f"{name}:{number}: the toolkit ({included}) outside shell/"
                    elif not name.startswith(("shell/qt/", "shell/main.cpp")):
                        yield f"{name}:{number}: the toolkit ({included}) outside shell/qt/"
                    continue
                there = room(included)
                if there is None:
                    if match.group(1) == '"' and "/" not in included:
                        if not (file.parent / included).exists():
                            continue
                        yield f"{name}:{number}: include by the path from the top: {included}"
                    continue
                if there == here:
                    continue
                if LEVELS[there] >= LEVELS[here]:
                    yield f"{name}:{number}: {here} may not use {there} ({included})"


def main():
    top = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ".").resolve()
    found = list(breaches(top))
    for breach in found:
        print(breach)
    print(f"{len(found)} breach(es) of the levels")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
