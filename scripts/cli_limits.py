"""How pixora-cli ends where the disk, the memory or the place for a copy is missing: said, and nothing half-written."""

import json
import os
import resource
import signal
import struct
import subprocess

import numpy as np

from cli_images import bmp, tiff

GREY = np.arange(12).reshape(3, 4)
CANNOT, INVALID = "the file cannot be written", "This image file is invalid."
WARNING = "warning: the strip table is too large; pixels are read from the start of the file"


def small_disk(size):
    def limit():
        resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))
        signal.signal(signal.SIGXFSZ, signal.SIG_IGN)  # a write then fails as on a full disk

    return limit


def small_memory():
    resource.setrlimit(resource.RLIMIT_AS, (1 << 30, 1 << 30))


def limited(checks, limit, *words):
    return subprocess.run([checks.program, *map(str, words)], capture_output=True, text=True, timeout=60,
                          preexec_fn=limit)  # fmt: skip


def check_full_disk(checks):
    folder = checks.folder / "full disk"
    folder.mkdir()
    image = checks.fresh("image8.tif")
    image.write_bytes(tiff(np.arange(1200).reshape(20, 60) % 256, 8))
    for words, name in ((["histogram"], "a.csv"), (["profile", "--row", "0"], "a.csv"),
                        (["save-region", "--region", "0,0,59,19"], "a.bmp"),
                        (["save-region", "--region", "0,0,59,19"], "a.tif")):  # fmt: skip
        out = folder / name
        for old in (None, b"old"):
            if old:
                out.write_bytes(old)
            done = limited(checks, small_disk(200), *words, image, "--out", out)
            good = done.returncode == 1 and done.stderr == f"{out}: {CANNOT}\n"
            good = good and list(folder.iterdir()) == ([out] if old else []) and (not old or out.read_bytes() == old)
            checks.that(f"{words[0]} to {name} on a full disk: {done.stderr}", good)
        out.unlink()


def check_full_disk_of_copies(checks):
    """A display copy takes 3 bytes a pixel; a data copy 2 of a grey image and 6 of a colour one."""
    folder = checks.folder / "full disk of copies"
    folder.mkdir()
    pixels = np.arange(1200).reshape(20, 60) * 53
    grey, colour = checks.fresh("grey.tif"), checks.fresh("colour.tif")
    grey.write_bytes(tiff(pixels, 16))
    colour.write_bytes(tiff(np.repeat(pixels[..., None], 3, axis=2), 16))
    display, data = folder / "display", folder / "data"
    for image, size, lost in ((grey, 3000, display), (colour, 5000, data), (colour, 512, data)):
        for old in (None, b"old"):
            for path in (display, data) if old else ():
                path.write_bytes(old)
            done = limited(checks, small_disk(size), "convert", image, "--display", display, "--data", data)
            good = done.returncode == 1 and done.stderr == f"{lost}: {CANNOT}\n"
            left = {path.name: path.read_bytes() for path in folder.iterdir()}
            good = good and left == ({"display": old, "data": old} if old else {})
            checks.that(f"convert on a disk of {size} bytes: {done.stderr} {sorted(left)}", good)
        display.unlink()
        data.unlink()
    done = limited(checks, small_disk(3000), "convert", grey, "--display", display)
    good = done.returncode == 1 and done.stderr == f"{display}: {CANNOT}\n" and not list(folder.iterdir())
    checks.that(f"convert without a data copy on a full disk: {done.stderr}", good)


def check_little_memory(checks):
    """A region of more pixels than fit into memory; the file itself holds few of them."""
    out = checks.fresh("never.out")

    def promising(data, width_at, height_at, form):
        data = bytearray(data)
        for at in (width_at, height_at):
            struct.pack_into(form, data, at, 60000)
        return bytes(data)

    def large_tiff(bits):
        data = tiff(GREY, bits)
        width_at, height_at = (data.index(struct.pack("<H", tag), 8) + 8 for tag in (256, 257))
        return promising(data, width_at, height_at, "<H")

    files = (
        ("huge.bmp", promising(bmp(np.zeros((3, 4, 3)), 24), 18, 22, "<I"), INVALID),
        ("huge8.tif", large_tiff(8), INVALID), ("huge12.tif", large_tiff(12), INVALID),
        ("huge16.tif", large_tiff(16), "This file is invalid or corrupt."),
    )  # fmt: skip
    for name, data, message in files:
        path = checks.fresh(name)
        path.write_bytes(data)
        done = limited(checks, small_memory, "save-region", path, "--region", "0,0,59999,59999", "--out", out)
        good = done.returncode == 1 and done.stderr == f"{path}: {message}\n"
        checks.that(f"too many pixels of {name}: {done.stderr}", good and not list(checks.folder.glob("*.out*")))
        done = limited(checks, small_memory, "profile", path, "--row", "59999", "--out", out)
        checks.that(f"few of the pixels of {name}: {done.stderr}", done.returncode == 0 and not done.stderr)
        out.unlink(missing_ok=True)


def check_data_copy(checks):
    """Where a data copy cannot be made there is no display copy either."""
    folder = checks.folder / "data copy"
    folder.mkdir()
    deep, display, protected = checks.fresh("deep.tif"), folder / "new", folder / "protected"
    deep.write_bytes(tiff(GREY * 4001 + 3, 16))
    before = deep.read_bytes()
    protected.write_bytes(b"old")
    protected.chmod(0o444)
    (folder / "folder").mkdir()
    os.mkfifo(folder / "pipe")
    for name, message, status in (("missing/a", "the folder does not exist", 1),
                                  ("folder", "a folder has this name", 1), ("protected", CANNOT, 1),
                                  ("pipe", CANNOT, 1), (deep, "this is the image itself", 2)):  # fmt: skip
        done = checks.run("convert", deep, "--display", display, "--data", folder / name)
        good = done.returncode == status and done.stderr == f"{folder / name}: {message}\n" and not done.stdout
        left = sorted(path.name for path in folder.iterdir())
        good = good and left == ["folder", "pipe", "protected"] and (folder / "pipe").is_fifo()
        checks.that(f"data copy to {name}: {done.stderr} {left}", good and deep.read_bytes() == before)
    checks.that("the protected file", protected.read_bytes() == b"old")


def check_strip_table_of_copies(checks):
    path, display = checks.fresh("strips.tif"), checks.fresh("strips.bmp")
    data = tiff(GREY, 8)
    at = data.index(struct.pack("<HH", 273, 4))
    path.write_bytes(data[: at + 4] + struct.pack("<II", 3000, 0) + data[at + 12 :])
    done = checks.run("convert", path, "--display", display)
    good = done.returncode == 0 and done.stderr == f"{path}: {WARNING}\n" and display.stat().st_size == 54 + 3 * 12
    checks.that(f"convert with a strip table too large: {done.stderr}", good)


def check_empty_lists(checks):
    missing = checks.fresh("missing.tif")
    for command, header in (("stats", "file,channel,min,max,mean,std"), ("info", "file,kind,width,")):
        for form, lines in (("csv", 1), ("json", 2), ("text", 0)):
            done = checks.run(command, missing, missing, "--format", form)
            found = done.stdout.splitlines()
            good = done.returncode == 1 and len(found) == lines and len(done.stderr.splitlines()) == 2
            good = good and (form != "csv" or found[0].startswith(header))
            good = good and (form != "json" or all(json.loads(line)["code"] == 1 for line in found))
            checks.that(f"{command} of refused files alone, {form}: {done.stdout}", good)


def check(checks):
    check_full_disk(checks)
    check_full_disk_of_copies(checks)
    check_little_memory(checks)
    check_data_copy(checks)
    check_strip_table_of_copies(checks)
    check_empty_lists(checks)
