#!/usr/bin/python3
"""Reads saved regions with other programs and compares all of their samples with those of their images.

    check_regions.py FOLDER

FOLDER holds what the UI tests leave there (PIXORA_UI_SAVED): of each image NAME its copy NAME.source.bmp or .tif, and
its region saved as NAME.TIF and, where that is possible, as NAME.bmp. ImageMagick decodes all of them; libtiff's
tiffinfo judges the TIFFs. The last line says "N passed, M failed".
"""

import subprocess
import sys
from pathlib import Path

import numpy

LEFT, TOP, RIGHT, BOTTOM = 7, 5, 98, 60  # of every region, both ends inside

# Name and ending of the image, its channels, its stored bits, and how many upper ones of them count.
IMAGES = [
    ("bmp8-grey", "bmp", 1, 8, 8),
    ("tiff8-mono", "tif", 1, 8, 8),
    ("tiff16-mono-upper10", "tif", 1, 16, 10),
    ("tiff16-mono-upper12", "tif", 1, 16, 12),
    ("tiff12-mono", "tif", 1, 12, 12),
    ("tiff16-mono-upper14", "tif", 1, 16, 14),
    ("tiff16-mono", "tif", 1, 16, 16),
    ("tiff16-mono-big-endian", "tif", 1, 16, 16),
    ("bmp24-colour", "bmp", 3, 8, 8),
    ("bmp24-top-down", "bmp", 3, 8, 8),
    ("bmp8-palette", "bmp", 3, 8, 8),
    ("tiff8-rgb-big-endian", "tif", 3, 8, 8),
    ("upper10", "tif", 3, 16, 10),
    ("tiff12-rgb", "tif", 3, 12, 12),
    ("tiff16-rgb-upper12", "tif", 3, 16, 12),
    ("upper14", "tif", 3, 16, 14),
    ("tiff16-rgb", "tif", 3, 16, 16),
]

# 16-bit samples are taken as little-endian whatever the file's header says.
SWAPPED = {"tiff16-mono-big-endian"}


def run(*command):
    return subprocess.run([str(part) for part in command], capture_output=True, check=True)


def decode(path, bits):
    """All samples of a file of that many bits, as rows x columns x red, green, blue."""
    size = run("identify", "-format", "%w %h", path).stdout.split()
    raw = run("convert", path, "-depth", "16", "-endian", "LSB", "rgb:-").stdout
    samples = numpy.frombuffer(raw, "<u2").astype(numpy.int64).reshape(int(size[1]), int(size[0]), 3)
    # The decoder spreads fewer bits over all of 0 to 65535.
    largest = (1 << bits) - 1
    return (samples * largest + 32767) // 65535


def expected_part(folder, image, kept_bits):
    name, ending, _, stored, depth = image
    part = decode(folder / f"{name}.source.{ending}", stored)[TOP : BOTTOM + 1, LEFT : RIGHT + 1]
    if name in SWAPPED:
        part = part >> 8 | (part & 255) << 8
    return part >> (stored - depth) >> (depth - kept_bits)


def check_samples(path, bits, expected):
    samples = decode(path, bits)
    if samples.shape != expected.shape:
        return f"{path.name}: {samples.shape} instead of {expected.shape}"
    wrong = int(numpy.count_nonzero(samples != expected))
    return f"{path.name}: {wrong} of {samples.size} samples are wrong" if wrong else ""


def check_tiff(folder, image):
    name, _, channels, _, depth = image
    path = folder / f"{name}.TIF"
    bits = 8 if depth == 8 else 16
    told = run("tiffinfo", "-D", path)
    text = (told.stdout + told.stderr).decode()
    facts = [f"Bits/Sample: {bits}", f"Samples/Pixel: {channels}", f"Image Width: {RIGHT - LEFT + 1}", "None"]
    facts += ["RGB color" if channels == 3 else "min-is-black"]
    missing = [fact for fact in facts if fact not in text]
    if missing or "arning" in text:
        return f"{path.name}: without {missing}:\n{text}"
    return check_samples(path, bits, expected_part(folder, image, depth))


def check_bmp(folder, image):
    name, _, channels, _, depth = image
    path = folder / f"{name}.bmp"
    if channels == 1 and depth > 12:  # too deep for eight bits
        return f"{path.name} should not be there" if path.exists() else ""
    kind = "24" if channels == 3 else "8"
    stored = int.from_bytes(path.read_bytes()[28:30], "little")
    if str(stored) != kind:
        return f"{path.name}: {stored} bits a pixel instead of {kind}"
    return check_samples(path, 8, expected_part(folder, image, 8))


def main():
    folder = Path(sys.argv[1])
    passed = failed = 0
    for image in IMAGES:
        for check in (check_tiff, check_bmp):
            try:
                complaint = check(folder, image)
            except (OSError, ValueError, subprocess.CalledProcessError) as error:
                complaint = f"{image[0]}: {error}"
            if complaint:
                print(complaint)
                failed += 1
            else:
                passed += 1
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
