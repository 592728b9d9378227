"""How pixora-cli behaves around its figures: wrong usage, refusals, batches, names, outputs, Ctrl+C."""

import contextlib
import json
import os
import pty
import re
import resource
import shutil
import signal
import struct
import subprocess
import time

import numpy as np

from cli_images import bmp, tiff

GREY = np.arange(12).reshape(3, 4)
WARNING = "warning: the strip table is too large; pixels are read from the start of the file"


def check_usage(checks, image):
    out = checks.folder / "never.out"
    region = ["--region", "0,0,1,1"]
    wrong = [
        [], ["bogus"], ["--bogus"], ["info"], ["info", "--format", "xml", image], ["info", "--bogus", image],
        ["info", image, "--valid-bits", "9"], ["info", image, "--valid-bits", ""], ["info", image, "--format"],
        ["info", image, *region], ["info", ""], ["stats", image, "--region", "0,0,1"],
        ["stats", image, "--region", "0,0,1,1,1"], ["stats", image, "--region", "0, 0,1,1"],
        ["stats", image, "--region", "a,0,1,1"], ["stats", image, "--region", "-1,0,1,1"],
        ["stats", image, "--region", "2,0,1,1"], ["stats", image, "--region", "0,0,99999999999999999999,1"],
        ["stats", image, "--region", "0,0,4,2"], ["stats", image, "--region", "0,0,3,3"],
        ["stats", image, *region, *region], ["stats", image, "--out", out], ["histogram", image],
        ["histogram", image, image, "--out", out], ["histogram", image, "--out", out, "--channel", "rgb"],
        ["histogram", image, "--out", out, "--region", "0,0,4,0"], ["profile", image, "--out", out],
        ["profile", image, "--out", out, "--row", "0", "--column", "0"],
        ["profile", image, "--out", out, "--row", "3"], ["profile", image, "--out", out, "--row", "-1"],
        ["profile", image, "--out", out, "--column", "4"], ["profile", image, "--out", out, "--column", "1.5"],
        ["profile", image, "--out", out, "--row", "0", "--region", "0,0,4,0"], ["profile", image, "--row", "0"],
        ["save-region", image, "--out", out], ["save-region", image, *region],
        ["save-region", image, "--out", out, "--region", "0,0,3,3"],
        ["save-region", image, "--out", out, *region, "--valid-bits", "8"], ["convert", image],
        ["convert", image, "--display", out, "--data", out], ["convert", image, "--display", out, "--bogus"],
    ]  # fmt: skip
    for words in wrong:
        done = subprocess.run([checks.program, *map(str, words)], capture_output=True, text=True, timeout=60)
        what = f"wrong usage {' '.join(map(str, words[:1] + words[2:]))}: {done.returncode} {done.stderr.strip()}"
        known = done.stderr.startswith(("pixora-cli: ", f"{image}: ", f"{out}: "))
        checks.that(what, done.returncode == 2 and not done.stdout and known and not out.exists())
    commands = ("info", "stats", "histogram", "profile", "save-region", "convert")
    for words in (["--help"], ["--version"], *([command, "--help"] for command in commands)):
        done = checks.run(*words)
        checks.that(f"{words}", done.returncode == 0 and "pixora-cli" in done.stdout and not done.stderr)
        checks.that(f"example of {words}", "version" in words[0] or "Example: pixora-cli" in done.stdout)


def with_tag(data, tag, value):
    at = data.index(struct.pack("<H", tag), 8)
    return data[: at + 8] + struct.pack("<I", value) + data[at + 12 :]


def refused_files():
    """Name, bytes, message and code of every kind of refusal."""
    mono = tiff(GREY, 8)
    head = bmp(np.zeros((2, 2, 3)), 24)

    def field(data, offset, form, value):
        return data[:offset] + struct.pack(form, value) + data[offset + struct.calcsize(form) :]

    unknown, invalid = "This is an unsupported or invalid image file.", "This image file is invalid."
    compressed, other = "Compressed files are not supported.", "This file is not supported."
    corrupt = "This file is invalid or corrupt."
    depth = "This TIFF file is 10-bit. Only 8, 12, and 16-bit formats are supported."
    return [
        ("text", b"text", unknown, 15), ("empty", b"", unknown, 15), ("short.bmp", head[:40], invalid, 1),
        ("zero.bmp", field(head, 18, "<I", 0), invalid, 1), ("wide.bmp", field(head, 18, "<I", 65536), other, 15),
        ("rle.bmp", field(field(head, 28, "<H", 8), 30, "<I", 1), compressed, 2),
        ("one.bmp", field(head, 28, "<H", 1), "1-Bit BMP file is not supported.", 4),
        ("four.bmp", field(field(head, 28, "<H", 4), 30, "<I", 2), "4-Bit BMP file is not supported.", 5),
        ("sixteen.bmp", field(head, 28, "<H", 16), other, 15), ("none.bmp", head[:54], invalid, 1),
        ("lzw.tif", with_tag(mono, 259, 5), compressed, 2), ("white.tif", with_tag(mono, 262, 0), other, 15),
        ("cmyk.tif", with_tag(mono, 262, 5), '"CMYK" foramt files are not supported.', 3),
        ("ten.tif", with_tag(mono, 258, 10), depth, 15), ("cut.tif", mono[:30], invalid, 1),
        ("lzw16.tif", with_tag(tiff(GREY, 16), 259, 5), corrupt, 1), ("none16.tif", tiff(GREY, 16)[:-24], corrupt, 1),
    ]  # fmt: skip


def check_refusals(checks, image):
    folder = checks.folder / "refused"
    folder.mkdir()
    files = [(folder / "missing.tif", "Failed to Open Image File", 1), (folder, "Failed to Open Image File", 1)]
    for name, data, message, code in refused_files():
        (folder / name).write_bytes(data)
        files.append((folder / name, message, code))
    os.mkfifo(folder / "pipe")  # must not be waited for
    files.append((folder / "pipe", "Failed to Open Image File", 1))
    out = checks.folder / "never.out"
    for path, message, code in files:
        expected = {"file": str(path), "error": message, "code": code}
        for command in ("info", "stats"):
            done = checks.run(command, path, "--format", "json")
            good = done.returncode == 1 and done.stderr == f"{path}: {message}\n"
            good = good and json.loads(done.stdout) == expected
            checks.that(f"{command} of {path.name}: {done.stdout}{done.stderr}", good)
        for words in (["histogram", path, "--out", out], ["convert", path, "--display", out, "--data", f"{out}2"],
                      ["profile", path, "--row", "0", "--out", out],
                      ["save-region", path, "--region", "0,0,0,0", "--out", out]):  # fmt: skip
            done = checks.run(*words)
            good = done.returncode == 1 and done.stderr == f"{path}: {message}\n" and not done.stdout
            checks.that(f"{words[0]} of {path.name}: {done.stderr}", good and not list(checks.folder.glob("*.out*")))
    mixed = [image, *(path for path, _, _ in files), image]
    for form, lines in (("json", len(mixed)), ("csv", 3), ("text", 4)):
        done = checks.run("stats", *mixed, "--format", form)
        good = done.returncode == 1 and len(done.stdout.splitlines()) == lines
        checks.that(f"refused files amid a batch, {form}", good and len(done.stderr.splitlines()) == len(files))
    done = checks.run("stats", image, files[0][0], "--region", "0,0,50,0")
    checks.that("wrong usage weighs more than a refused file", done.returncode == 2)


def check_names(checks, image):
    data = image.read_bytes()
    folder = checks.folder / "names"
    folder.mkdir()
    for name in ("with blanks.tif", "日本語.tif", "-dash.tif", "[list].tif", "[a,b]", "a,b.tif", 'quote".tif', "stats",
                 "line\nend.tif", "--format"):  # fmt: skip
        (folder / name).write_bytes(data)
        done = subprocess.run([checks.program, "info", "--format", "json", "--", name], cwd=folder, capture_output=True)
        good = done.returncode == 0 and json.loads(done.stdout)["file"] == name
        checks.that(f"the name {name!r}: {done.stderr}", good)
    done = subprocess.run([checks.program, "stats", "a,b.tif", 'quote".tif', "--format", "csv"], cwd=folder,
                          capture_output=True, text=True)  # fmt: skip
    fields = [line.split(",mono,")[0] for line in done.stdout.splitlines()]
    checks.that(f"quotes in CSV: {fields}", fields == ["file,channel,min,max,mean,std", '"a,b.tif"', '"quote"".tif"'])
    done = subprocess.run([checks.program, "info", "stats", "stats"], cwd=folder, capture_output=True, text=True)
    checks.that("a file that is named like a command", done.returncode == 0 and done.stdout.count("stats\n") == 2)
    odd = os.fsencode(folder) + b"/\xff.tif"
    with open(odd, "wb") as file:
        file.write(data)
    done = subprocess.run([checks.program, "info", "--format", "json", odd], capture_output=True)
    good = done.returncode == 0 and json.loads(done.stdout)["file"].endswith("/\ufffd.tif")
    checks.that("a name that is no UTF-8", good)


def check_outputs(checks, image):
    folder = checks.folder / "outputs"
    folder.mkdir()
    protected, before = folder / "protected", image.read_bytes()
    protected.write_bytes(b"old")
    protected.chmod(0o444)
    (folder / "folder").mkdir()
    os.mkfifo(folder / "pipe")
    link, behind = folder / "link", folder / "behind"
    link.symlink_to("behind")
    for words in (["histogram", image, "--out"], ["profile", image, "--row", "0", "--out"],
                  ["save-region", image, "--region", "0,0,1,1", "--out"], ["convert", image, "--display"]):  # fmt: skip
        for out, message in (("missing/a", "the folder does not exist"), ("folder", "a folder has this name"),
                             ("protected", "the file cannot be written"),
                             ("pipe", "the file cannot be written")):  # fmt: skip
            done = checks.run(*words, folder / out)
            good = done.returncode == 1 and done.stderr == f"{folder / out}: {message}\n" and not done.stdout
            good = good and protected.read_bytes() == b"old" and (folder / "pipe").is_fifo()
            checks.that(f"{words[0]} to {out}: {done.stderr}", good)
        done = checks.run(*words, image)
        checks.that(f"{words[0]} over its image: {done.stderr}", done.returncode == 2 and image.read_bytes() == before)
        target = folder / "new"
        target.write_bytes(b"old")
        done = checks.run(*words, target)
        checks.that(f"{words[0]} over a file", done.returncode == 0 and target.read_bytes() != b"old")
        behind.write_bytes(b"old")
        behind.chmod(0o600)
        done = checks.run(*words, link)
        good = done.returncode == 0 and link.is_symlink() and behind.read_bytes() == target.read_bytes()
        checks.that(f"{words[0]} through a link", good and behind.stat().st_mode & 0o777 == 0o600)
    done = checks.run("convert", image, "--display", folder / "new2", "--data", folder / "new3")
    good = done.returncode == 2 and done.stderr == f"{image}: only 16-bit TIFF files have a data copy\n"
    checks.that(f"data copy of 8 bits: {done.stderr}", good and not list(folder.glob("new?")))
    deep = checks.fresh("deep.tif")
    deep.write_bytes(tiff(GREY * 4001 + 3, 16))
    done = checks.run("save-region", deep, "--region", "0,0,1,1", "--out", folder / "grey.bmp")
    good = done.returncode == 1 and "can be saved as TIFF only" in done.stderr and not (folder / "grey.bmp").exists()
    checks.that(f"16 grey bits as BMP: {done.stderr}", good)
    left = {"protected", "folder", "new", "pipe", "link", "behind"}
    checks.that("nothing half-written", {p.name for p in folder.iterdir()} == left)
    with open("/dev/full", "wb") as full:
        done = subprocess.run([checks.program, "stats", image], stdout=full, stderr=subprocess.PIPE, timeout=60)
    good = done.returncode == 1 and b"cannot be written" in done.stderr
    checks.that(f"a full disk under the results: {done.stderr}", good)


def check_rights(checks, image):
    """What the system forbids, as a user who may not do everything."""
    folder = checks.folder / "rights"
    folder.mkdir()
    program, allowed, locked = folder / "pixora-cli", folder / "image.tif", folder / "locked.tif"
    shutil.copy(checks.program, program)
    for file in (allowed, locked):
        shutil.copy(image, file)
    locked.chmod(0)
    (folder / "closed").mkdir()
    (folder / "closed").chmod(0o555)
    checks.folder.chmod(0o755)
    other = {"user": 65534, "group": 65534, "extra_groups": []} if os.geteuid() == 0 else {}

    def run(*words):
        return subprocess.run([program, *words], cwd=folder, capture_output=True, text=True, timeout=60, **other)

    done = run("stats", allowed.name, locked.name, allowed.name, "--format", "csv")
    good = done.returncode == 1 and done.stdout.count(f"{allowed.name},mono,") == 2
    checks.that(f"an unreadable file amid a batch: {done.stderr}",
                good and done.stderr == "locked.tif: Failed to Open Image File\n")  # fmt: skip
    for words in (["histogram", "--out"], ["profile", "--row", "0", "--out"],
                  ["save-region", "--region", "0,0,1,1", "--out"], ["convert", "--display"]):  # fmt: skip
        done = run(words[0], allowed.name, *words[1:], "closed/new")
        good = done.returncode == 1 and done.stderr == "closed/new: the file cannot be written\n"
        checks.that(f"{words[0]} to a read-only folder: {done.stderr}", good and not list(folder.glob("closed/*")))


def check_channel_of_grey(checks, image):
    for words in (["histogram"], ["profile", "--row", "1"]):
        found = []
        for choice in ([], ["--channel", "G"], ["--channel", "RGB"]):
            out = checks.fresh("channel.csv")
            done = checks.run(words[0], image, *words[1:], "--out", out, *choice)
            found.append(out.read_bytes() if done.returncode == 0 else done.stderr)
        checks.that(f"the channel of a grey image: {found}", found[0] and found[1:] == found[:1] * 2)


def check_strip_table(checks):
    path = checks.fresh("strips.tif")
    data = with_tag(tiff(GREY, 8), 273, 0)
    at = data.index(struct.pack("<HH", 273, 4))
    path.write_bytes(data[: at + 4] + struct.pack("<I", 3000) + data[at + 8 :])
    done = checks.run("stats", path, "--format", "json")
    good = done.returncode == 0 and done.stderr == f"{path}: {WARNING}\n"
    checks.that(f"a strip table too large: {done.stderr}", good and json.loads(done.stdout)["channels"][0]["max"] == 73)


def check_many(checks, image):
    folder = checks.folder / "many"
    folder.mkdir()
    names = [f"{i:05}.tif" for i in range(10000)]
    for name in names:
        os.symlink(image, folder / name)
    before = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss
    done = subprocess.run([checks.program, "stats", *names, "--format", "json"], cwd=folder, capture_output=True,
                          text=True, timeout=120)  # fmt: skip
    found = [json.loads(line)["file"] for line in done.stdout.splitlines()]
    checks.that("ten thousand files", done.returncode == 0 and found == names and not done.stderr)
    after = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss
    checks.that(f"memory of ten thousand files: {before} and {after} KiB", after < max(before, 100_000) + 1)
    screen, terminal = pty.openpty()
    done = subprocess.run([checks.program, "stats", *names[:3000]], cwd=folder, stdout=subprocess.DEVNULL,
                          stderr=terminal, timeout=60)  # fmt: skip
    os.close(terminal)
    shown = os.read(screen, 65536).decode()
    os.close(screen)
    good = re.fullmatch(r"(\r\[#*\.*\] \d+% \d+/3000 *)+\r +\r", shown)
    checks.that(f"progress bar: {shown!r}", done.returncode == 0 and good)


def check_stopping(checks):
    """A signal at any time leaves the whole file or none, and ends the program as it is expected to."""
    folder = checks.folder / "stopped"
    folder.mkdir()
    source = checks.fresh("large.tif")
    source.write_bytes(tiff(np.arange(3000 * 2000).reshape(2000, 3000) % 65521, 16))
    words = [checks.program, "convert", source, "--display", folder / "a.bmp", "--data", folder / "a.bin"]
    begin = time.monotonic()
    subprocess.run(words, check=True, timeout=60)
    span = time.monotonic() - begin
    whole = {path.name: path.read_bytes() for path in folder.iterdir()}
    checks.that("copies of a large image", sorted(whole) == ["a.bin", "a.bmp"])
    stopped = 0
    for attempt in range(24):
        shutil.rmtree(folder)
        folder.mkdir()
        process = subprocess.Popen(words)
        time.sleep(span * attempt / 20)
        process.send_signal(signal.SIGINT if attempt % 2 else signal.SIGTERM)
        status = process.wait(60)
        stopped += status < 0
        left = {path.name: path.read_bytes() for path in folder.iterdir()}
        good = all(whole.get(name) == data for name, data in left.items())
        checks.that(f"stopped by a signal: {status} {sorted(left)}", good and status in (0, -2, -15))
    checks.that(f"signals end the program: {stopped} of 24", stopped > 0)
    process = subprocess.Popen([checks.program, "stats", *[source] * 3000, "--format", "json"], stdout=subprocess.PIPE)
    time.sleep(0.5)
    process.send_signal(signal.SIGINT)
    results = process.communicate(timeout=60)[0]
    good = process.returncode == -2 and all(json.loads(line) for line in results.splitlines())
    checks.that("a batch that is stopped", good and (not results or results.endswith(b"\n")))


def check_stopping_a_copy(checks):
    """A signal ends the copying of a very large image where it is, and leaves nothing of it."""
    folder, source = checks.folder / "copy", checks.fresh("huge.bmp")
    folder.mkdir()
    width, height = 65535, 20000
    size = 54 + (3 * width + 3) // 4 * 4 * height
    header = struct.pack("<2sIIIIiiHHIIiiII", b"BM", 0, 0, 54, 40, width, height, 1, 24, 0, 0, 0, 0, 0, 0)
    source.write_bytes(header)
    os.truncate(source, size)  # takes no space
    target = folder / "a.bmp"
    target.write_bytes(b"old")
    process = subprocess.Popen([checks.program, "convert", source, "--display", target])
    end, copy = time.monotonic() + 60, None
    while not copy and time.monotonic() < end:
        for path in folder.glob(".*"):
            with contextlib.suppress(FileNotFoundError):  # some are there for a moment
                if path.stat().st_size > 0:
                    copy = path.open("rb")
    process.send_signal(signal.SIGINT)
    status = process.wait(60)
    copied = os.fstat(copy.fileno()).st_size if copy else 0
    names = [path.name for path in folder.iterdir()]
    checks.that(f"stopped after {copied} of {size} bytes: {status}", status == -2 and 0 < copied < size)
    checks.that(f"nothing is left of a copy: {names}", names == ["a.bmp"] and target.read_bytes() == b"old")
    source.unlink()


def check_stopping_twice(checks, image):
    """A program that waits for a reader of its results hears of a second signal."""
    process = subprocess.Popen([checks.program, "info", *[image] * 3000], stdout=subprocess.PIPE)
    time.sleep(1)
    process.send_signal(signal.SIGTERM)
    process.send_signal(signal.SIGTERM)
    time.sleep(2.1)
    waited = process.poll() is None
    process.send_signal(signal.SIGTERM)
    checks.that(f"a second signal: {process.wait(60)}", waited and process.returncode == -signal.SIGTERM)
    process.stdout.close()


def run_examples(checks, folder):
    environment = {**os.environ, "PATH": f"{folder}:{os.environ['PATH']}"}

    def run(command):
        return subprocess.run(command, shell=True, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              text=True, timeout=60, env=environment)  # fmt: skip

    (folder / "pixora-cli").symlink_to(checks.program)
    return run


def check_examples(checks, root):
    """The commands of the guide, in its order, with the output that it shows."""
    folder = checks.folder / "examples"
    folder.mkdir()
    (folder / "samples").symlink_to(root / "samples")
    run = run_examples(checks, folder)
    blocks = re.findall(r"^    \$ (.*)\n((?:    (?!\$).*\n)*)", (root / "docs" / "cli.md").read_text(), re.M)
    checks.that(f"{len(blocks)} examples in the guide", len(blocks) >= 8)
    for command, output in blocks:
        done, expected = run(command), re.sub(r"^    ", "", output, flags=re.M)
        checks.that(f"example {command}: {done.stdout!r} instead of {expected!r}", done.stdout == expected)


def check_short_examples(checks, root):
    """The commands in the manual page and in every help text work on images as they assume them."""
    folder = checks.folder / "short"
    folder.mkdir()
    run = run_examples(checks, folder)
    for name in ("flat", "edge", "chart", "raw"):
        (folder / f"{name}.tif").write_bytes(tiff(np.arange(210 * 220 * 3).reshape(210, 220, 3) % 65521, 16))
    commands = re.findall(r"^\.Dl \$ (.*)$", (root / "docs" / "pixora-cli.1").read_text(), re.M)
    checks.that(f"{len(commands)} examples in the manual page", len(commands) >= 2)
    for words in ([], ["info"], ["stats"], ["histogram"], ["profile"], ["save-region"], ["convert"]):
        text = subprocess.run([checks.program, *words, "--help"], capture_output=True, text=True, timeout=60).stdout
        commands += re.findall(r"^Example: (.*)$", text, re.M)
    for command in commands:
        outs = re.findall(r"--(?:out|display|data) (\S+)", command)
        done = run(command)
        good = done.returncode == 0 and "Failed" not in done.stdout and (outs or "flat.tif" in done.stdout)
        made = all((folder / out).stat().st_size > 0 for out in outs)
        checks.that(f"example {command}: {done.stdout}", good and made)
    checks.that(f"{len(commands)} examples", len(commands) == 9)


def check(checks, root):
    image = checks.folder / "image.tif"
    image.write_bytes(tiff(GREY, 8))
    check_usage(checks, image)
    check_refusals(checks, image)
    check_names(checks, image)
    check_outputs(checks, image)
    check_rights(checks, image)
    check_channel_of_grey(checks, image)
    check_strip_table(checks)
    check_many(checks, image)
    check_stopping(checks)
    check_stopping_a_copy(checks)
    check_stopping_twice(checks, image)
    check_examples(checks, root)
    check_short_examples(checks, root)
