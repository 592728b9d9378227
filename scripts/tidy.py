#!/usr/bin/python3
"""Runs clang-tidy over every source file of the product that has not passed since it or a header of it was changed.

    scripts/tidy.py [FILE...]      # the named files, tests too

Portable files are looked at with the commands of build/native, the windows with those of build/windows. A file that
passed leaves a stamp named after its text, the text of the project's headers that it sees and the settings of
clang-tidy, so that the next run, in this clone or another, skips it.
"""

import concurrent.futures
import contextlib
import functools
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
TIDY = "clang-tidy-14"
MINGW = "x86_64-w64-mingw32"
STAMP_DAYS = 30
NOT_PRODUCT = {"tests", "bench", "fuzz"}
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.M)


@functools.cache
def stamps():
    """The folder of the stamps: in the user's cache, for all clones, or in this clone for a user who has none."""
    for folder in (pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache"), ROOT / "build"):
        try:
            (folder / "pixora-tidy").mkdir(parents=True, exist_ok=True)
        except OSError:
            continue
        if os.access(folder / "pixora-tidy", os.W_OK):
            return folder / "pixora-tidy"
    sys.exit(f"neither the user's cache nor {ROOT / 'build'} can be written")


def drop_old_stamps():
    """A stamp is touched whenever it spares a run; one that nothing asked for in a long time is of an old text."""
    for mark in stamps().iterdir():
        with contextlib.suppress(FileNotFoundError):  # another run tidies up as well
            if mark.stat().st_mtime < time.time() - STAMP_DAYS * 86400:
                mark.unlink()


@functools.cache
def text(path):
    return path.read_bytes()


@functools.cache
def seen(path):
    """The file and every header of the project that it includes, directly or not."""
    found, open_ends = set(), [path]
    while open_ends:
        file = open_ends.pop()
        if file in found:
            continue
        found.add(file)
        for name in INCLUDE.findall(text(file).decode("utf-8", "replace")):
            for folder in (ROOT, file.parent):
                if (folder / name).is_file():
                    open_ends.append((folder / name).resolve())
                    break
    return sorted(found)


def windows_arguments():
    """What clang needs to stand in for the cross compiler."""
    include = subprocess.run(
        [f"{MINGW}-g++-posix", "-print-file-name=include/c++"], capture_output=True, text=True, check=True
    ).stdout.strip()
    folders = [include, f"{include}/{MINGW}", f"{include}/backward", f"/usr/{MINGW}/include"]
    arguments = [f"--target={MINGW}"]
    for folder in folders:
        arguments += ["-isystem", folder]
    return [f"--extra-arg-before={argument}" for argument in arguments]


def commands():
    """File -> (folder of the compile commands, further arguments); the native build is asked first."""
    result = {}
    for preset in ("native", "windows"):
        folder = ROOT / "build" / preset
        entries = json.loads((folder / "compile_commands.json").read_text())
        further = windows_arguments() if preset == "windows" else []
        for entry in entries:
            file = pathlib.Path(entry["file"]).resolve()
            if file.suffix == ".cpp" and file.is_relative_to(ROOT) and not file.is_relative_to(ROOT / "build"):
                result.setdefault(file, (folder, further))
    return result


def stamp(file, further, version):
    key = hashlib.sha256()
    for part in (version, (ROOT / ".clang-tidy").read_bytes(), " ".join(further).encode()):
        key.update(part + b"\0")
    for path in seen(file):
        key.update(str(path.relative_to(ROOT)).encode() + b"\0" + text(path) + b"\0")
    return stamps() / key.hexdigest()


def tidy(file, folder, further):
    """What clang-tidy has to say; nothing when the file is fine."""
    done = subprocess.run([TIDY, "--quiet", "-p", folder, *further, file], capture_output=True, text=True)
    # Settings that cannot be read do not change the exit status.
    if "Error parsing" in done.stderr or (done.returncode and not done.stdout.strip()):
        return done.stderr
    return done.stdout.strip() if done.returncode or "warning:" in done.stdout else ""


def main():
    all_commands = commands()
    named = [pathlib.Path(name).resolve() for name in sys.argv[1:]]
    chosen = named or sorted(file for file in all_commands if file.relative_to(ROOT).parts[0] not in NOT_PRODUCT)
    unknown = [file for file in chosen if file not in all_commands]
    for file in unknown:
        print(f"{file}: no build compiles it")
    version = subprocess.run([TIDY, "--version"], capture_output=True, check=True).stdout
    waiting = []
    for file in chosen:
        if file in all_commands:
            folder, further = all_commands[file]
            mark = stamp(file, further, version)
            if mark.exists():
                mark.touch()
            else:
                waiting.append((file, folder, further, mark))
    failed = len(unknown)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = pool.map(lambda work: tidy(*work[:3]), waiting)
        for (file, _, _, mark), words in zip(waiting, results):
            if words:
                failed += 1
                print(f"{file.relative_to(ROOT)}:\n{words}\n")
            else:
                mark.touch()
    drop_old_stamps()
    print(f"{len(chosen)} files, {len(waiting)} of them looked at, {failed} with something to say")
    return 1 if failed or not chosen else 0


if __name__ == "__main__":
    sys.exit(main())
