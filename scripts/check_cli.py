#!/usr/bin/python3
"""Holds what pixora-cli says about the samples against readers and arithmetic of its own.

    scripts/check_cli.py build/native/bin/pixora-cli [SEED]

Everything here is written from the file formats, in another language and with another library, so that a mistake in
the program's readers, statistics or writers does not repeat itself in the check. pixora_bench, which lies beside the
program, is held to its kernel call. Ends with "N passed, M failed".
"""

import fractions
import itertools
import json
import math
import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile

import numpy as np

import cli_behaviour
import cli_kernel
import cli_limits
from cli_images import VALID_BITS, Image, any_file, hard_files, write_large_flat

ROOT = pathlib.Path(__file__).resolve().parent.parent
SAMPLES = ROOT / "samples"
RANDOM_FILES = 60


class Checks:
    def __init__(self, program):
        self.program, self.passed, self.failed, self.bits = program, 0, 0, []
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="pixora-check-"))

    def that(self, what, good):
        if good:
            self.passed += 1
        else:
            self.failed += 1
            print(f"FAILED: {what}")

    def run(self, *arguments):
        words = [self.program, *map(str, arguments), *(self.bits if arguments[0] != "save-region" else [])]
        return subprocess.run(words, capture_output=True, text=True, timeout=60)

    def fresh(self, name):
        path = self.folder / name
        path.unlink(missing_ok=True)
        return path


def number(value, most, dashes):
    return str(value) if value <= most else "-" * dashes


def csv(header, rows):
    return ("".join(",".join(row) + "\r\n" for row in [header, *rows])).encode()


def channel_arrays(image, region, choice):
    found = image.channels(region)
    if not image.colour:
        return [found["mono"]], ["Freq."], ["Value"]
    names = ["R", "G", "B"] if choice == "RGB" else [choice]
    return [found[n] for n in names], [f"Freq ({n})" for n in names], [f"Value ({n})" for n in names]


def check_info(checks, image, _):
    done = checks.run("info", image.path, "--format", "json")
    expected = {
        "file": str(image.path), "kind": image.kind, "width": image.width, "height": image.height,
        "colour": image.colour, "bits_per_sample": image.bits, "stored_bits": image.stored_bits,
        "valid_bits": image.valid_bits, "bmp_bit_count": image.bmp_bits, "raw_data": image.raw,
        "pixel_format": ("RGB" if image.colour else "Mono") + str(image.bits),
    }  # fmt: skip
    found = json.loads(done.stdout) if done.returncode == 0 else None
    checks.that(f"info {image.path.name}: {found} instead of {expected}", found == expected)
    checks.that(f"info {image.path.name}: order of the fields", found is None or list(found) == list(expected))


def deviation(values):
    """From whole numbers, with one rounding in the end."""
    count, total, squares = len(values), sum(values), sum(value * value for value in values)
    return math.sqrt(fractions.Fraction(squares * count - total * total, count * count))


def check_stats(checks, image, random):
    for region in image.regions(random):
        done = checks.run("stats", image.path, "--region", ",".join(map(str, region)), "--format", "json")
        what = f"stats {image.path.name} {region}"
        checks.that(f"{what}: {done.stderr.strip()}", done.returncode == 0)
        if done.returncode:
            continue
        found = json.loads(done.stdout)
        channels = image.channels(region)
        checks.that(f"{what}: region", found["region"] == [int(edge) for edge in region])
        checks.that(f"{what}: channels", [c["name"] for c in found["channels"]] == list(channels))
        for got, samples in zip(found["channels"], channels.values()):
            values = samples.reshape(-1).tolist()
            checks.that(f"{what}: {got['name']} least {got['min']}", got["min"] == min(values))
            checks.that(f"{what}: {got['name']} most {got['max']}", got["max"] == max(values))
            checks.that(f"{what}: {got['name']} mean {got['mean']}", got["mean"] == sum(values) / len(values))
            expected = deviation(values)
            good = math.isclose(got["std"], expected, rel_tol=1e-13, abs_tol=0)
            checks.that(f"{what}: {got['name']} deviation {got['std']} instead of {expected}", good)


def check_histograms(checks, image, random):
    whole, *_, part = image.regions(random)
    for choice, region in itertools.product(("R", "G", "B", "RGB") if image.colour else ("RGB",), (None, part)):
        out = checks.fresh("histogram.csv")
        extra = ["--region", ",".join(map(str, region))] if region else []
        done = checks.run("histogram", image.path, "--out", out, "--channel", choice, *extra)
        arrays, words, _ = channel_arrays(image, region or whole, choice)
        levels = 1 << image.depth
        counts = [np.bincount(array.reshape(-1), minlength=levels) for array in arrays]
        rows = (
            [number(level, 99999, 5), *(number(int(count[level]), 99999999, 8) for count in counts)]
            for level in range(levels)
        )
        good = done.returncode == 0 and out.read_bytes() == csv(["Value", *words], rows)
        checks.that(f"histogram {image.path.name} {choice} {region or 'whole'}", good)


def check_profiles(checks, image, random):
    left, top, right, bottom = image.regions(random)[4]
    lines = (("--row", (top + bottom) // 2, None), ("--column", (left + right) // 2, (left, top, right, bottom)))
    for choice in ("R", "G", "B", "RGB") if image.colour else ("RGB",):
        for option, line, region in lines:
            out = checks.fresh("profile.csv")
            extra = ["--region", ",".join(map(str, region))] if region else []
            done = checks.run("profile", image.path, option, line, "--out", out, "--channel", choice, *extra)
            l, t, r, b = region or (0, 0, image.width - 1, image.height - 1)
            strip, first = ((l, line, r, line), l) if option == "--row" else ((line, t, line, b), t)
            arrays, _, words = channel_arrays(image, strip, choice)
            columns = [array.reshape(-1) for array in arrays]
            rows = (
                [number(first + k, 99999, 5), *(number(int(column[k]), 99999, 5) for column in columns)]
                for k in range(len(columns[0]))
            )
            good = done.returncode == 0 and out.read_bytes() == csv(["Loacation", *words], rows)
            checks.that(f"profile {image.path.name} {option} {line} {choice}", good)


def bmp24(pixels):
    """The 24-bit file of height x width x 3 samples in red, green, blue."""
    height, width = pixels.shape[:2]
    rows = pixels[::-1, :, ::-1].astype(np.uint8).reshape(height, width * 3)
    rows = np.pad(rows, ((0, 0), (0, width % 4)))
    head = struct.pack("<2sIHHI", b"BM", 54 + rows.size, 0, 0, 54)
    return head + struct.pack("<IIIHHIIIIII", 40, width, height, 1, 24, 0, rows.size, 3780, 3780, 0, 0) + rows.tobytes()


def bmp8(pixels):
    height, width = pixels.shape
    rows = np.pad(pixels[::-1].astype(np.uint8), ((0, 0), (0, -width % 4)))
    head = struct.pack("<2sIHHI", b"BM", 1078 + rows.size, 0, 0, 1078)
    info = struct.pack("<IIIHHIIIIII", 40, width, height, 1, 8, 0, rows.size, 3780, 3780, 256, 0)
    return head + info + b"".join(bytes((i, i, i, 0)) for i in range(256)) + rows.tobytes()


def tiff(pixels, bits):
    height, width = pixels.shape[:2]
    channels = 3 if pixels.ndim == 3 else 1
    data = pixels.astype(np.uint8 if bits == 8 else "<u2").tobytes()
    bits_value = 158 if channels == 3 else bits
    x, y, strip = (164, 172, 180) if channels == 3 else (158, 166, 174)
    entries = (
        (256, 4, 1, width), (257, 4, 1, height), (258, 3, channels, bits_value), (259, 3, 1, 1),
        (262, 3, 1, 2 if channels == 3 else 1), (273, 4, 1, strip), (277, 3, 1, channels), (278, 4, 1, height),
        (279, 4, 1, len(data)), (282, 5, 1, x), (283, 5, 1, y), (296, 3, 1, 1),
    )  # fmt: skip
    out = struct.pack("<2sHIH", b"II", 42, 8, len(entries)) + b"".join(struct.pack("<HHII", *e) for e in entries)
    three_bits = struct.pack("<HHH", bits, bits, bits) if channels == 3 else b""
    return out + bytes(4) + three_bits + struct.pack("<IIII", 1, 1, 1, 1) + data


def check_conversion(checks, image, _):
    display, data = checks.fresh("display.bmp"), checks.fresh("data.bin")
    done = checks.run("convert", image.path, "--display", display, *(["--data", data] if image.raw else []))
    shown = image.shown if image.colour else np.repeat(image.shown[..., None], 3, axis=2)
    expected = image.data if image.bmp_bits == 24 else bmp24(shown)
    checks.that(f"display copy of {image.path.name}", done.returncode == 0 and display.read_bytes() == expected)
    if image.raw:
        values = image.values[..., ::-1] if image.colour else image.values
        good = done.returncode == 0 and data.read_bytes() == values.astype("<u2").tobytes()
        checks.that(f"data copy of {image.path.name}", good)


def check_saved_regions(checks, image, random):
    for left, top, right, bottom in image.regions(random)[1:]:
        part = image.values[top : bottom + 1, left : right + 1]
        for name in ("region.bmp", "region.TIF"):
            out = checks.fresh(name)
            done = checks.run("save-region", image.path, "--region", f"{left},{top},{right},{bottom}", "--out", out)
            what = f"region {left},{top},{right},{bottom} of {image.path.name} as {name}"
            if name == "region.TIF":
                expected = tiff(part, 8 if image.depth == 8 else 16)
            elif image.colour:
                expected = bmp24(part >> (image.depth - 8))
            elif image.depth in (14, 16):
                checks.that(f"{what} must fail without a file", done.returncode == 1 and not out.exists())
                continue
            else:
                expected = bmp8(part >> (image.depth - 8))
            checks.that(what, done.returncode == 0 and out.read_bytes() == expected)


def check_image(checks, path, random, valid_bits=None):
    image = Image(path, valid_bits)
    checks.bits = ["--valid-bits", str(valid_bits)] if valid_bits else []
    for check in (check_info, check_stats, check_histograms, check_profiles, check_conversion):
        check(checks, image, random)
    checks.bits = []
    if not valid_bits:
        check_saved_regions(checks, image, random)


def check_hard_images(checks, random):
    for name, data, ending, valid_bits in hard_files():
        path = checks.fresh(f"hard{ending}")
        path.write_bytes(data)
        before = checks.failed
        image = Image(path, valid_bits)
        checks.bits = ["--valid-bits", str(valid_bits)] if valid_bits else []
        for check in (check_stats, check_histograms, check_profiles):
            check(checks, image, random)
        if checks.failed > before:
            print(f"    ({name})")
    checks.bits = []


def check_large_flat(checks, width, height, value, counted):
    """Counts beyond what a file has room for, or just within, and sums of many equal samples."""
    path, out = checks.fresh("flat.bmp"), checks.fresh("histogram.csv")
    write_large_flat(path, width, height, value)
    done = checks.run("stats", path, "--format", "json")
    expected = [{"name": "mono", "min": value, "max": value, "mean": value, "std": 0}]
    what = f"{width} x {height} pixels of {value}"
    checks.that(f"stats of {what}", done.returncode == 0 and json.loads(done.stdout)["channels"] == expected)
    done = checks.run("histogram", path, "--out", out)
    rows = ([str(level), counted if level == value else "0"] for level in range(256))
    checks.that(f"histogram of {what}", done.returncode == 0 and out.read_bytes() == csv(["Value", "Freq."], rows))
    out.unlink(missing_ok=True)
    path.unlink()


def check_all(checks, seed):
    random = np.random.default_rng(seed)
    for path in sorted(SAMPLES.glob("*.bmp")) + sorted(SAMPLES.glob("*.tif")):
        check_image(checks, path, random)
    for _ in range(RANDOM_FILES):
        data, ending = any_file(random)
        path = checks.fresh(f"any{ending}")
        path.write_bytes(data)
        before = checks.failed
        check_image(checks, path, random)
        if ending == ".tif" and Image(path).raw:
            check_image(checks, path, random, int(random.choice(VALID_BITS)))
        if checks.failed > before:
            print(f"    (seed {seed}; the file has {len(data)} bytes)")
    check_hard_images(checks, random)
    check_large_flat(checks, 10000, 10000, 200, "--------")
    check_large_flat(checks, 3333, 30003, 255, "99999999")
    check_large_flat(checks, 4000, 2500, 0, "10000000")
    cli_behaviour.check(checks, ROOT)
    cli_limits.check(checks)
    cli_kernel.check(checks, checks.program.with_name("pixora_bench"))


def main():
    if len(sys.argv) not in (2, 3):
        print(__doc__)
        return 2
    program = pathlib.Path(sys.argv[1]).resolve()
    for needed in (program, program.with_name("pixora_bench")):
        if not needed.is_file():
            print(f"there is no program {needed}")
            return 2
    checks = Checks(program)
    try:
        check_all(checks, int(sys.argv[2]) if len(sys.argv) == 3 else 20)
    finally:
        shutil.rmtree(checks.folder)
    print(f"{checks.passed} passed, {checks.failed} failed")
    return 1 if checks.failed or not checks.passed else 0


if __name__ == "__main__":
    sys.exit(main())
