#!/usr/bin/python3
"""Holds what pixora-cli says about the samples against readers and arithmetic of its own.

    scripts/check_cli.py build/native/bin/pixora-cli

Everything here is written from the file formats, in another language and with another library, so that a mistake in
the program's readers, statistics or writers does not repeat itself in the check. Ends with "N passed, M failed".
"""

import json
import math
import pathlib
import struct
import subprocess
import sys
import tempfile

import numpy as np

ROOT = pathlib.Path(__file__).resolve().parent.parent
SAMPLES = ROOT / "samples"


class Image:
    """A sample as it must be read: `values` is height x width x 3 (red, green, blue) or height x width."""

    def __init__(self, path):
        self.path, self.data = path, path.read_bytes()
        if self.data[:2] == b"BM":
            self.read_bmp()
        else:
            self.read_tiff()
        self.height, self.width = self.values.shape[:2]
        self.colour = self.values.ndim == 3

    def read_bmp(self):
        self.kind, self.stored_bits, self.bits, self.valid_bits, self.raw = "BMP", 0, 8, 0, False
        offset, _, width, height, _, self.bmp_bits = struct.unpack_from("<IIiiHH", self.data, 10)
        stride = (width * self.bmp_bits // 8 + 3) // 4 * 4
        area = np.frombuffer(self.data, np.uint8, stride * abs(height), offset).reshape(abs(height), stride)
        rows = area[::-1] if height > 0 else area
        if self.bmp_bits == 8:
            palette = np.frombuffer(self.data, np.uint8, 1024, 54).reshape(256, 4)
            pixels = palette[rows[:, :width]][..., 2::-1]
        else:
            size = self.bmp_bits // 8
            pixels = rows[:, : width * size].reshape(abs(height), width, size)[..., 2::-1]
        grey = (pixels[..., 0] == pixels[..., 1]).all() and (pixels[..., 1] == pixels[..., 2]).all()
        self.values = (pixels[..., 0] if grey else pixels).astype(np.uint16)
        self.shown = self.values

    def read_tiff(self):
        order = "<" if self.data[:2] == b"II" else ">"
        self.kind = "TIFF II" if order == "<" else "TIFF MM"
        directory = struct.unpack_from(order + "I", self.data, 4)[0]
        tags = {}
        for index in range(struct.unpack_from(order + "H", self.data, directory)[0]):
            at = directory + 2 + 12 * index
            tag, kind, count = struct.unpack_from(order + "HHI", self.data, at)
            if kind == 3:
                where = at + 8 if count <= 2 else struct.unpack_from(order + "I", self.data, at + 8)[0]
                tags[tag] = struct.unpack_from(order + "H", self.data, where)[0]
            else:
                tags[tag] = struct.unpack_from(order + "I", self.data, at + 8)[0]
        width, height, bits, strip = tags[256], tags[257], tags[258], tags[273]
        channels = 3 if tags[262] == 2 else 1
        count = width * height * channels
        self.bmp_bits, self.stored_bits, self.bits, self.valid_bits, self.raw = 0, bits, bits, bits, bits == 16
        if bits == 8:
            values = np.frombuffer(self.data, np.uint8, count, strip).astype(np.uint16)
        elif bits == 12:
            three = np.frombuffer(self.data, np.uint8, count * 3 // 2, strip).reshape(-1, 3).astype(np.uint16)
            first, second = three[:, 0] << 4 | three[:, 1] >> 4, (three[:, 1] & 15) << 8 | three[:, 2]
            values = np.stack((first, second), axis=1).reshape(-1)
        else:  # low byte first, whatever the header's order
            values = np.frombuffer(self.data, "<u2", count, strip).astype(np.uint16)
        shape = (height, width, 3) if channels == 3 else (height, width)
        self.shown = (values >> (bits - 8)).reshape(shape)
        if bits == 16:
            changing = int(np.bitwise_or.reduce(values ^ values[0]))
            self.valid_bits = next(n for n in (8, 10, 12, 14, 16) if changing % (1 << (16 - n)) == 0)
            values = values >> (16 - self.valid_bits)
        self.values = values.reshape(shape)

    @property
    def depth(self):
        return self.valid_bits if self.raw else self.bits

    def channels(self, region):
        left, top, right, bottom = region
        part = self.values[top : bottom + 1, left : right + 1]
        if not self.colour:
            return {"mono": part}
        return {"R": part[..., 0], "G": part[..., 1], "B": part[..., 2], "RGB": part}

    def regions(self):
        """The whole image, a single pixel, a row, a column and a part in the middle."""
        w, h = self.width - 1, self.height - 1
        return [(0, 0, w, h), (w, h, w, h), (0, h // 2, w, h // 2), (w // 3, 0, w // 3, h), (7, 5, w * 2 // 3, h - 9)]


class Checks:
    def __init__(self, program):
        self.program, self.passed, self.failed = program, 0, 0
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="pixora-check-"))

    def that(self, what, good):
        if good:
            self.passed += 1
        else:
            self.failed += 1
            print(f"FAILED: {what}")

    def run(self, *arguments):
        return subprocess.run([self.program, *map(str, arguments)], capture_output=True, text=True, timeout=60)

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


def check_info(checks, image):
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


def check_stats(checks, image):
    for region in image.regions():
        done = checks.run("stats", image.path, "--region", ",".join(map(str, region)), "--format", "json")
        what = f"stats {image.path.name} {region}"
        checks.that(f"{what}: {done.stderr.strip()}", done.returncode == 0)
        if done.returncode:
            continue
        found = json.loads(done.stdout)
        channels = image.channels(region)
        checks.that(f"{what}: region", found["region"] == list(region))
        checks.that(f"{what}: channels", [c["name"] for c in found["channels"]] == list(channels))
        for got, samples in zip(found["channels"], channels.values()):
            values = samples.reshape(-1).astype(object) if samples.size < 64 else samples.reshape(-1).astype(np.int64)
            count, total = len(values), int(values.sum())
            squares = int((values * values).sum())
            deviation = math.sqrt(max(squares * count - total * total, 0)) / count
            checks.that(f"{what}: {got['name']} least {got['min']}", got["min"] == int(values.min()))
            checks.that(f"{what}: {got['name']} most {got['max']}", got["max"] == int(values.max()))
            checks.that(f"{what}: {got['name']} mean {got['mean']}", got["mean"] == total / count)
            checks.that(
                f"{what}: {got['name']} deviation {got['std']} instead of {deviation}",
                math.isclose(got["std"], deviation, rel_tol=1e-9, abs_tol=1e-9),
            )


def check_histograms(checks, image):
    for choice in ("R", "G", "B", "RGB") if image.colour else ("RGB",):
        region = image.regions()[4]
        out = checks.fresh("histogram.csv")
        done = checks.run(
            "histogram", image.path, "--out", out, "--channel", choice, "--region", ",".join(map(str, region))
        )
        arrays, words, _ = channel_arrays(image, region, choice)
        levels = 1 << image.depth
        counts = [np.bincount(array.reshape(-1), minlength=levels) for array in arrays]
        rows = (
            [number(level, 99999, 5), *(number(int(count[level]), 99999999, 8) for count in counts)]
            for level in range(levels)
        )
        good = done.returncode == 0 and out.read_bytes() == csv(["Value", *words], rows)
        checks.that(f"histogram {image.path.name} {choice}", good)


def check_profiles(checks, image):
    left, top, right, bottom = image.regions()[4]
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


def check_conversion(checks, image):
    display, data = checks.fresh("display.bmp"), checks.fresh("data.bin")
    done = checks.run("convert", image.path, "--display", display, *(["--data", data] if image.raw else []))
    shown = image.shown if image.colour else np.repeat(image.shown[..., None], 3, axis=2)
    expected = image.data if image.bmp_bits == 24 else bmp24(shown)
    checks.that(f"display copy of {image.path.name}", done.returncode == 0 and display.read_bytes() == expected)
    if image.raw:
        values = image.values[..., ::-1] if image.colour else image.values
        good = done.returncode == 0 and data.read_bytes() == values.astype("<u2").tobytes()
        checks.that(f"data copy of {image.path.name}", good)


def check_saved_regions(checks, image):
    for left, top, right, bottom in image.regions()[1:]:
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


def main():
    if len(sys.argv) != 2:
        print(__doc__)
        return 2
    program = pathlib.Path(sys.argv[1]).resolve()
    if not program.is_file():
        print(f"there is no program {program}")
        return 2
    checks = Checks(program)
    for path in sorted(SAMPLES.glob("*.bmp")) + sorted(SAMPLES.glob("*.tif")):
        image = Image(path)
        for check in (check_info, check_stats, check_histograms, check_profiles, check_conversion, check_saved_regions):
            check(checks, image)
    for path in checks.folder.iterdir():
        path.unlink()
    checks.folder.rmdir()
    print(f"{checks.passed} passed, {checks.failed} failed")
    return 1 if checks.failed or not checks.passed else 0


if __name__ == "__main__":
    sys.exit(main())
