#!/usr/bin/python3
"""Holds pixora-cli.exe under Wine against the native program: the same bytes from both.

    scripts/check_cli_windows.py WINE build/windows/bin/pixora-cli.exe build/native/bin/pixora-cli

The Wine prefix is the one of the environment. Ends with "N passed, M failed".
"""

import pathlib
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
LISTINGS = (
    ["info"], ["info", "--format", "json"], ["info", "--format", "csv", "--valid-bits", "8"], ["stats"],
    ["stats", "--format", "json"], ["stats", "--format", "csv", "--region", "3,5,90,77"],
    ["stats", "--format", "json", "--valid-bits", "10"],
)  # fmt: skip
WRITERS = (
    ["histogram", "--out", "out.csv", "--channel", "G"], ["histogram", "--out", "out.csv", "--region", "1,2,30,40"],
    ["profile", "--row", "7", "--out", "out.csv"], ["profile", "--column", "9", "--out", "out.csv", "--channel", "R"],
    ["convert", "--display", "out.bmp"], ["convert", "--display", "out.bmp", "--data", "out.bin"],
    ["save-region", "--region", "1,2,50,60", "--out", "out.TIF"],
    ["save-region", "--region", "1,2,50,60", "--out", "out.bmp"],
)  # fmt: skip
OTHERS = (
    [], ["bogus"], ["--version"], ["stats", "--help"], ["info", "missing.tif"], ["info", "/help"],
    ["stats", "--region", "0,0,1000,1", "--", "日本 語.tif"], ["info", "日本 語.tif", "--format", "json"],
    ["info", "--", "-dash.tif"], ["histogram", "日本 語.tif", "--out", "結果.csv"], ["info", "[a].tif"],
    ["histogram", "日本 語.tif", "--out", "missing/a.csv"], ["histogram", "日本 語.tif", "--out", "日本 語.tif"],
    ["convert", "日本 語.tif", "--display", "same", "--data", "./same"],
)  # fmt: skip


class Side:
    """One of the two programs in a folder of its own, with the same files in both."""

    def __init__(self, folder, words, samples):
        self.folder, self.words = folder, words
        folder.mkdir()
        shutil.copytree(ROOT / "samples", folder / "samples")
        for name in ("日本 語.tif", "-dash.tif", "[a].tif"):
            shutil.copy(samples[0], folder / name)

    def run(self, arguments):
        # Into files: a pipe stays open as long as any process that Wine starts on the way lives.
        with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as error:
            status = subprocess.run([*self.words, *arguments], cwd=self.folder, stdin=subprocess.DEVNULL, stdout=out,
                                    stderr=error, timeout=120).returncode  # fmt: skip
            out.seek(0)
            error.seek(0)
            results, messages = out.read(), error.read().decode("utf-8", "replace")
        new = [p for p in self.folder.iterdir() if p.is_file() and p.name.startswith(("out", "結"))]
        made = {p.name: p.read_bytes() for p in new}
        for name in made:
            (self.folder / name).unlink()
        # Wine speaks on standard error too.
        said = [line for line in messages.splitlines() if ":fixme:" not in line]
        return status, results, said, made


def compare(wine, sides, samples):
    """How many calls did the same on both sides, and a text about each other one."""
    names = [f"samples/{p.name}" for p in samples]
    calls = [[*words[:1], *names, "samples/README", *words[1:]] for words in LISTINGS]
    calls += [[words[0], name, *words[1:]] for words in WRITERS for name in names[::3]]
    calls += [list(words) for words in OTHERS]
    passed, failures = 0, []
    # As long as one program waits, Wine need not start anew for each of the others.
    waiting = subprocess.Popen([wine, "cmd", "/c", "set /p line="], stdin=subprocess.PIPE,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)  # fmt: skip
    for call in calls:
        ours, theirs = (side.run(call) for side in sides)
        if ours == theirs:
            passed += 1
        else:
            failures.append(f"{' '.join(call)}\n    native: {ours}\n    Windows: {theirs}"[:1500])
    tiffs = sorted(name for name in names if name.endswith(".tif"))
    for pattern, fitting in (("samples/*.tif", tiffs), ("samples/*", sorted(names)), ("-d?sh.*", ["-dash.tif"])):
        wild, listed = sides[1].run(["stats", "--", pattern]), sides[0].run(["stats", "--", *fitting])
        if wild == listed and listed[0] == 0:
            passed += 1
        else:
            failures.append(f"wildcards {pattern}: {wild[:1]} {wild[2]}")
    waiting.communicate(b"\n", timeout=60)
    return passed, failures


def main():
    if len(sys.argv) != 4:
        print(__doc__)
        return 2
    wine, windows, native = sys.argv[1], pathlib.Path(sys.argv[2]).resolve(), pathlib.Path(sys.argv[3]).resolve()
    samples = sorted(p for p in (ROOT / "samples").iterdir() if p.suffix in (".bmp", ".tif"))
    with tempfile.TemporaryDirectory(prefix="pixora-check-") as folder:
        work = pathlib.Path(folder)
        sides = [Side(work / "native", [native], samples), Side(work / "windows", [wine, windows], samples)]
        passed, failures = compare(wine, sides, samples)
    for failure in failures:
        print(f"FAILED: {failure}")
    print(f"{passed} passed, {len(failures)} failed")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
