#!/usr/bin/python3
"""Checks the text of every file of the project; prints what is wrong, a line each.

What the code says must hold for somebody who has only the code: no paths of one machine, no notes to do something
later. Files stay short enough to be read in one go.
"""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
SKIPPED = {"build", ".git", "__pycache__"}
BINARY = {".bmp", ".ico", ".png", ".tif", ".bin"}
SOURCES = {".cpp", ".h", ".py", ".sh", ".cmake"}
LONGEST_FILE = 400
LONGEST_LINE = 120

FORBIDDEN = (
    (re.compile(r"""(?<![\w.$}/:-])/(?:root|tmp|work)/"""), "a path of one machine"),
    (re.compile(r"\b(TODO|FIXME|XXX|HACK)\b"), "a note to do something later"),
    (re.compile(r"\t"), "a tabulator"),
    (re.compile(r"[ ]$"), "a blank at the end"),
    (re.compile(r"\r$"), "a carriage return"),
)
PAGES = re.compile(r"https?://([\w.-]+)")
KNOWN_PAGES = {"www.zelka.example", "schemas.microsoft.com", "www.w3.org"}


def files():
    """What git knows or would add; everything but build results when this is no clone."""
    listing = subprocess.run(
        ["git", "-C", ROOT, "ls-files", "-z", "--cached", "--others", "--exclude-standard"], capture_output=True
    )
    if listing.returncode == 0 and listing.stdout:
        names = listing.stdout.decode().split("\0")[:-1]
        return sorted({ROOT / name for name in names if (ROOT / name).is_file()})
    return sorted(
        path for path in ROOT.rglob("*") if path.is_file() and not SKIPPED & set(path.relative_to(ROOT).parts)
    )


def check(path, complain):
    try:
        text = path.read_bytes().decode("utf-8")
    except UnicodeDecodeError:
        complain(path, 0, "is not UTF-8")
        return
    if text and not text.endswith("\n"):
        complain(path, 0, "has no line end after its last line")
    lines = text.split("\n")
    own_patterns = path.name == pathlib.Path(__file__).name
    for number, line in enumerate(lines, 1):
        for pattern, what in () if own_patterns else FORBIDDEN:
            if pattern.search(line):
                complain(path, number, f"{what}: {line.strip()[:90]}")
        for page in PAGES.findall(line):
            if page not in KNOWN_PAGES and "." in page:
                complain(path, number, f"a page that the project does not know: {page}")
    if path.suffix in SOURCES:
        if len(lines) - 1 > LONGEST_FILE:
            complain(path, 0, f"has {len(lines) - 1} lines, more than {LONGEST_FILE}")
        for number, line in enumerate(lines, 1):
            if len(line) > LONGEST_LINE:
                complain(path, number, f"has {len(line)} columns, more than {LONGEST_LINE}")


def main():
    problems = []
    checked = 0
    for path in files():
        if path.suffix in BINARY:
            continue
        checked += 1
        name = path.relative_to(ROOT)
        check(path, lambda _, line, what: problems.append(f"{name}:{line}: {what}" if line else f"{name} {what}"))
    for problem in problems:
        print(problem)
    if not checked:
        print("no file was found")
    return 1 if problems or not checked else 0


if __name__ == "__main__":
    sys.exit(main())
