#!/usr/bin/python3
"""Makes the sample images: one synthetic camera picture in every accepted file format.

    scripts/make_samples.py                        # writes samples/
    scripts/make_samples.py --check                # compares samples/ with what would be written
    scripts/make_samples.py --size 12000x8333 --out build/big tiff16-mono.tif

The picture is a test chart as a camera would see it: a grey ramp and wedge, colour patches, a zone plate, line pairs,
an edge and a label, under the shading of a lens and the noise of a sensor. All of it is whole-number arithmetic over
the pixel's position, so that the same bytes come out everywhere, in whatever order the rows are asked for.
"""

import argparse
import math
import pathlib
import struct
import sys

import numpy as np

ROOT = pathlib.Path(__file__).resolve().parent.parent
BAND = 64  # rows computed at once
CHART_WIDTH, CHART_HEIGHT = 320, 240  # the chart's own units; every size shows all of it

BACKGROUND = (0x2A00, 0x2C00, 0x3000)
PATCHES = (
    "735244 c29682 627a9d 576c43 8580b1 67bdaa "
    "d67e2c 505ba6 c15a63 5e3c6c 9dbc40 e0a32e "
    "383d96 469449 af363c e7c71f bb5695 0885a1 "
    "f3f3f2 c8c8c8 a0a0a0 7a7a79 555555 343434"
).split()
HOT_PIXELS = ((37, 61), (165, 128), (301, 219))

# Five by seven dots a character, one number a row.
GLYPHS = {
    "A": "0e 11 11 1f 11 11 11", "B": "1e 11 11 1e 11 11 1e", "C": "0e 11 10 10 10 11 0e",
    "D": "1e 11 11 11 11 11 1e", "E": "1f 10 10 1e 10 10 1f", "F": "1f 10 10 1e 10 10 10",
    "G": "0e 11 10 17 11 11 0f", "H": "11 11 11 1f 11 11 11", "I": "0e 04 04 04 04 04 0e",
    "L": "10 10 10 10 10 10 1f", "M": "11 1b 15 15 11 11 11", "N": "11 19 15 13 11 11 11",
    "O": "0e 11 11 11 11 11 0e", "P": "1e 11 11 1e 10 10 10", "R": "1e 11 11 1e 14 12 11",
    "S": "0f 10 10 0e 01 01 1e", "T": "1f 04 04 04 04 04 04", "U": "11 11 11 11 11 11 0e",
    "W": "11 11 11 15 15 1b 11", "X": "11 11 0a 04 0a 11 11", "Y": "11 11 0a 04 04 04 04",
    "0": "0e 11 13 15 19 11 0e", "1": "04 0c 04 04 04 04 0e", "2": "0e 11 01 02 04 08 1f",
    "3": "1f 02 04 02 01 11 0e", "4": "02 06 0a 12 1f 02 02", "6": "06 08 10 1e 11 11 0e",
    "8": "0e 11 11 0e 11 11 0e", " ": "00 00 00 00 00 00 00",
}  # fmt: skip

COSINE = np.array([round(32767 * math.cos(2 * math.pi * i / 1024)) for i in range(1024)], dtype=np.int64)
ROOTS = np.array([math.isqrt(i << 8) for i in range(257)], dtype=np.int64)  # square root of a sample, by its high byte


class Scene:
    """The picture at one size, a band of rows at a time, as 16-bit samples in the order red, green, blue."""

    def __init__(self, width, height, label):
        self.width, self.height, self.label = width, height, label
        x = np.arange(width, dtype=np.int64)
        self.x, self.u = x, x * CHART_WIDTH // width

    def rows(self, first, last):
        y = np.arange(first, last, dtype=np.int64)[:, None]
        v = y * CHART_HEIGHT // self.height
        picture = np.empty((last - first, self.width, 3), dtype=np.int64)
        picture[:] = BACKGROUND
        self._greys(picture, v)
        self._patches(picture, v)
        self._zone_plate(picture, y)
        self._line_pairs(picture, y, v)
        self._text(picture, y)
        self._shade(picture, y)
        self._noise(picture, y)
        for hot_u, hot_v in HOT_PIXELS:
            hot_x, hot_y = hot_u * self.width // CHART_WIDTH, hot_v * self.height // CHART_HEIGHT
            if first <= hot_y < last:
                picture[hot_y - first, hot_x] = 65535
        return picture.astype(np.uint16)

    def _put(self, picture, where, values):
        """Puts one grey value a pixel where the mask holds."""
        picture[where] = np.broadcast_to(values[..., None], picture.shape)[where]

    def _greys(self, picture, v):
        left, right = 10 * self.width // CHART_WIDTH, 310 * self.width // CHART_WIDTH
        inside = (self.x >= left) & (self.x < right)
        ramp = (self.x - left) * 65535 // max(right - 1 - left, 1)
        self._put(picture, inside & (v >= 8) & (v < 30), ramp[None, :])
        wedge = (self.u - 10) * 16 // 300 * 65535 // 15
        self._put(picture, (self.u >= 10) & (self.u < 310) & (v >= 34) & (v < 54), wedge[None, :])

    def _patches(self, picture, v):
        for index, colour in enumerate(PATCHES):
            left, top = 10 + index % 6 * 26, 62 + index // 6 * 26
            where = (self.u >= left) & (self.u < left + 23) & (v >= top) & (v < top + 23)
            picture[where] = [value * 257 for value in bytes.fromhex(colour)]

    def _zone_plate(self, picture, y):
        """Rings up to the finest that pixels can hold, at the rim."""
        radius = min(50 * self.width // CHART_WIDTH, 50 * self.height // CHART_HEIGHT)
        x = self.x - 240 * self.width // CHART_WIDTH
        square = x * x + (y - 113 * self.height // CHART_HEIGHT) ** 2
        rings = 32768 + COSINE[square * 256 // max(radius, 1) & 1023]
        self._put(picture, square < radius * radius, rings)

    def _line_pairs(self, picture, y, v):
        for index, period in enumerate((2, 3, 4, 6, 8, 12)):
            upright = (self.u >= 10 + index * 26) & (self.u < 33 + index * 26) & (v >= 172) & (v < 192)
            self._put(picture, upright, np.where(self.x % period < period // 2, 0xE000, 0x1000)[None, :])
            flat = (self.u >= 10 + index * 26) & (self.u < 33 + index * 26) & (v >= 194) & (v < 214)
            self._put(picture, flat, np.where(y % period < period // 2, 0xE000, 0x1000))
        edge = (self.u >= 176) & (self.u < 310) & (v >= 172) & (v < 214)
        bright = (self.u - 243) * 8 > (v - 193)
        self._put(picture, edge, np.where(bright, 0xD000, 0x3000))

    def _text(self, picture, y):
        dot = max(1, self.width // CHART_WIDTH)  # whole pixels, so that small pictures can be read too
        row = (y[:, 0] - 222 * self.height // CHART_HEIGHT) // dot
        left = (self.x - 10 * self.width // CHART_WIDTH) // dot
        for index, character in enumerate(self.label):
            dots = np.array([int(bits, 16) for bits in GLYPHS[character].split()] + [0], dtype=np.int64)
            column = left - index * 6
            bits = dots[np.where((row >= 0) & (row < 7), row, 7)][:, None]
            where = (column >= 0) & (column < 5) & (bits >> np.clip(4 - column, 0, 4) & 1 == 1)
            picture[where] = 0xF000

    def _shade(self, picture, y):
        """A lens lets less light through to the corners."""
        x, y = self.x * 2 - self.width, y * 2 - self.height
        away = (x * x + y * y) * 16384 // (self.width * self.width + self.height * self.height)
        picture *= (65536 - away)[..., None]
        picture >>= 16

    def _noise(self, picture, y):
        """Shot noise grows with the root of the light; the read-out adds some of its own."""
        for channel in range(3):
            key = (y * self.width + self.x).astype(np.uint64) * np.uint64(3) + np.uint64(channel)
            key = key * np.uint64(0x9E3779B97F4A7C15) + np.uint64(0x5069786F7261)
            key = (key ^ (key >> np.uint64(30))) * np.uint64(0xBF58476D1CE4E5B9)
            key = (key ^ (key >> np.uint64(27))) * np.uint64(0x94D049BB133111EB)
            key ^= key >> np.uint64(31)
            total = np.zeros(key.shape, dtype=np.int64)
            for shift in (0, 16, 32, 48):
                total += (key >> np.uint64(shift) & np.uint64(0xFFFF)).astype(np.int64)
            light = picture[..., channel]
            strength = 64 + 2 * ROOTS[light >> 8]
            light += (total - 131070) * strength >> 15
        np.clip(picture, 0, 65535, out=picture)


def mono(picture):
    """One grey value a pixel from red, green and blue."""
    red, green, blue = (picture[..., i].astype(np.uint32) for i in range(3))
    return ((red * 77 + green * 150 + blue * 29) >> 8).astype(np.uint16)


# ---- sample encodings: a band of the scene -> the bytes of its rows, in file order --------------------------------


def low_byte_first(samples, order):
    return samples.astype(order + "u2").tobytes()


def pack_12(samples):
    """Two 12-bit values in three bytes, high bits first, running on across rows."""
    pairs = samples.astype(np.uint16).reshape(-1, 2)
    packed = np.empty((len(pairs), 3), dtype=np.uint8)
    packed[:, 0] = pairs[:, 0] >> 4
    packed[:, 1] = (pairs[:, 0] & 15) << 4 | pairs[:, 1] >> 8
    packed[:, 2] = pairs[:, 1] & 255
    return packed.tobytes()


def cube_palette():
    """Six steps of each colour, then forty greys: blue, green, red, 0 an entry."""
    cube = [(b * 51, g * 51, r * 51, 0) for r in range(6) for g in range(6) for b in range(6)]
    return bytes(v for entry in cube + [(i * 255 // 39,) * 3 + (0,) for i in range(40)] for v in entry)


def cube_index(picture):
    """The palette entry of each pixel: ordered dither over the cube, nearly grey pixels from the greys."""
    eight = picture.astype(np.int32) >> 8
    height, width = eight.shape[:2]
    pattern = np.array(((0, 8, 2, 10), (12, 4, 14, 6), (3, 11, 1, 9), (15, 7, 13, 5)), dtype=np.int32)
    dither = np.tile(pattern, (height // 4 + 1, width // 4 + 1))[:height, :width] * 51 // 16
    step = np.minimum((eight + dither[..., None]) // 51, 5)
    index = step[..., 0] * 36 + step[..., 1] * 6 + step[..., 2]
    grey = eight.max(axis=2) - eight.min(axis=2) < 14
    return np.where(grey, 216 + eight.mean(axis=2).astype(np.int32) * 39 // 255, index).astype(np.uint8)


# ---- files --------------------------------------------------------------------------------------------------------


def bmp_rows(picture, bits, palette):
    if bits == 8:
        pixels = cube_index(picture) if palette else (mono(picture) >> 8).astype(np.uint8)
    else:
        pixels = (picture[..., ::-1] >> 8).astype(np.uint8)
        if bits == 32:
            unused = np.full(pixels.shape[:2] + (1,), 255, dtype=np.uint8)
            pixels = np.concatenate((pixels, unused), axis=2)
    pixels = pixels.reshape(pixels.shape[0], -1)
    return np.pad(pixels, ((0, 0), (0, -pixels.shape[1] % 4))).tobytes()


def write_bmp(file, scene, bits, grey=False, palette=False, top_down=False):
    colours = 256 if bits == 8 else 0
    offset = 54 + 4 * colours
    stride = (scene.width * bits // 8 + 3) // 4 * 4
    size = stride * scene.height
    height = -scene.height if top_down else scene.height
    file.write(struct.pack("<2sIHHI", b"BM", offset + size, 0, 0, offset))
    file.write(struct.pack("<IIiHHIIiiII", 40, scene.width, height, 1, bits, 0, size, 3780, 3780, colours, 0))
    if colours:
        file.write(cube_palette() if palette else bytes(v for i in range(256) for v in (i, i, i, 0)))
    starts = range(0, scene.height, BAND)
    for first in starts if top_down else reversed(starts):
        picture = scene.rows(first, min(first + BAND, scene.height))
        if grey:
            picture = np.repeat(mono(picture)[..., None], 3, axis=2)
        file.write(bmp_rows(picture if top_down else picture[::-1], bits, palette))


def tiff_header(order, scene, bits, channels):
    """Header, one directory, and what its entries point to, in this order; the pixels follow."""
    fields, extra = [], b""
    behind = 8 + 2 + 12 * 12 + 4
    pixels = behind + (6 if channels == 3 else 0) + 16
    counts = scene.width * scene.height * channels * bits // 8
    entries = (
        (256, 4, (scene.width,)), (257, 4, (scene.height,)), (258, 3, (bits,) * channels), (259, 3, (1,)),
        (262, 3, (1 if channels == 1 else 2,)), (273, 4, (pixels,)), (277, 3, (channels,)), (278, 4, (scene.height,)),
        (279, 4, (counts,)), (282, 5, (72, 1)), (283, 5, (72, 1)), (296, 3, (2,)),
    )  # fmt: skip
    for tag, kind, values in entries:
        data = b"".join(struct.pack(order + ("H" if kind == 3 else "I"), value) for value in values)
        if len(data) > 4:
            extra, data = extra + data, struct.pack(order + "I", behind + len(extra))
        count = len(values) // 2 if kind == 5 else len(values)
        fields.append(struct.pack(order + "HHI", tag, kind, count) + data.ljust(4, b"\0"))
    mark = b"II" if order == "<" else b"MM"
    return mark + struct.pack(order + "HIH", 42, 8, len(fields)) + b"".join(fields) + bytes(4) + extra


def write_tiff(file, scene, bits, rgb=False, valid=None, order="<"):
    file.write(tiff_header(order, scene, bits, 3 if rgb else 1))
    for first in range(0, scene.height, BAND):
        picture = scene.rows(first, min(first + BAND, scene.height))
        samples = (picture if rgb else mono(picture)).reshape(-1)
        if bits == 8:
            file.write((samples >> 8).astype(np.uint8).tobytes())
        elif bits == 12:
            file.write(pack_12(samples >> 4))
        else:
            unused = 16 - (valid or 16)
            file.write(low_byte_first(samples >> unused << unused, order))


# name: (size, label in the picture, writer, what the writer is told)
SAMPLES = {
    "bmp8-grey.bmp": ((320, 240), "BMP 8 GREY", write_bmp, {"bits": 8}),
    "bmp8-palette.bmp": ((318, 239), "BMP 8 PALETTE", write_bmp, {"bits": 8, "palette": True}),
    "bmp24-colour.bmp": ((319, 241), "BMP 24 COLOUR", write_bmp, {"bits": 24}),
    "bmp24-grey.bmp": ((161, 121), "BMP 24 GREY", write_bmp, {"bits": 24, "grey": True}),
    "bmp24-top-down.bmp": ((162, 122), "BMP 24 TOP DOWN", write_bmp, {"bits": 24, "top_down": True}),
    "bmp32-colour.bmp": ((240, 180), "BMP 32 COLOUR", write_bmp, {"bits": 32}),
    "tiff8-mono.tif": ((320, 240), "TIFF 8 MONO", write_tiff, {"bits": 8}),
    "tiff8-rgb.tif": ((480, 360), "TIFF 8 RGB", write_tiff, {"bits": 8, "rgb": True}),
    "tiff8-rgb-big-endian.tif": (
        (240, 180), "TIFF 8 RGB BIG ENDIAN", write_tiff, {"bits": 8, "rgb": True, "order": ">"}),
    "tiff12-mono.tif": ((320, 240), "TIFF 12 MONO", write_tiff, {"bits": 12}),
    "tiff12-rgb.tif": ((240, 180), "TIFF 12 RGB", write_tiff, {"bits": 12, "rgb": True}),
    "tiff16-mono.tif": ((320, 240), "TIFF 16 MONO", write_tiff, {"bits": 16}),
    "tiff16-mono-upper10.tif": ((320, 240), "TIFF 16 MONO UPPER 10", write_tiff, {"bits": 16, "valid": 10}),
    "tiff16-mono-upper12.tif": ((320, 240), "TIFF 16 MONO UPPER 12", write_tiff, {"bits": 16, "valid": 12}),
    "tiff16-mono-upper14.tif": ((200, 150), "TIFF 16 MONO UPPER 14", write_tiff, {"bits": 16, "valid": 14}),
    "tiff16-mono-big-endian.tif": ((200, 150), "TIFF 16 MONO BIG ENDIAN", write_tiff, {"bits": 16, "order": ">"}),
    "tiff16-rgb.tif": ((200, 150), "TIFF 16 RGB", write_tiff, {"bits": 16, "rgb": True}),
    "tiff16-rgb-upper12.tif": ((320, 240), "TIFF 16 RGB UPPER 12", write_tiff, {"bits": 16, "rgb": True, "valid": 12}),
}  # fmt: skip


class Comparison:
    """Stands in for a file that is written, and compares instead."""

    def __init__(self, path):
        self.file = open(path, "rb")
        self.same = True

    def write(self, data):
        self.same = self.same and self.file.read(len(data)) == data

    def finish(self):
        with self.file:
            return self.same and self.file.read(1) == b""


def parse_size(text):
    width, _, height = text.lower().partition("x")
    if not (width.isdigit() and height.isdigit()) or not (0 < int(width) <= 65535 and 0 < int(height) <= 65535):
        raise argparse.ArgumentTypeError(f"{text!r} is no size such as 4096x3000")
    return int(width), int(height)


def check(folder, names, size):
    """The names of the files that are not what they should be."""
    wrong = []
    for name in names:
        own_size, label, write, options = SAMPLES[name]
        try:
            comparison = Comparison(folder / name)
        except OSError:
            wrong.append(name)
            continue
        write(comparison, Scene(*(size or own_size), label), **options)
        if not comparison.finish():
            wrong.append(name)
    return wrong


def main():
    parser = argparse.ArgumentParser(description="Makes the sample images.")
    parser.add_argument("names", nargs="*", metavar="NAME", help="only these files; all by default")
    parser.add_argument("--size", type=parse_size, metavar="WxH", help="instead of each sample's own size")
    parser.add_argument("--out", type=pathlib.Path, default=ROOT / "samples", metavar="FOLDER")
    parser.add_argument("--check", action="store_true", help="compare the files, write nothing")
    parser.add_argument("--list", action="store_true", help="print the names, write nothing")
    arguments = parser.parse_args()
    names = arguments.names or list(SAMPLES)
    for name in names:
        if name not in SAMPLES:
            parser.error(f"there is no sample {name!r}; --list shows all")
        if "tiff12" in name and arguments.size and arguments.size[0] % 2:
            parser.error(f"{name}: 12-bit rows need an even width")
    if arguments.list:
        print("\n".join(names))
        return 0
    if arguments.check:
        wrong = check(arguments.out, names, arguments.size)
        for name in wrong:
            print(f"{arguments.out / name} differs from what this script makes", file=sys.stderr)
        return 1 if wrong else 0
    arguments.out.mkdir(parents=True, exist_ok=True)
    for name in names:
        own_size, label, write, options = SAMPLES[name]
        with open(arguments.out / name, "wb") as file:
            write(file, Scene(*(arguments.size or own_size), label), **options)
    return 0


if __name__ == "__main__":
    sys.exit(main())
