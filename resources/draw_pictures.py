#!/usr/bin/python3
"""Draws the program's icon, the error symbol and the product banner from plain shapes and text.

    resources/draw_pictures.py          # needs Debian's python3-pil and fonts-dejavu-core

The results are committed; run this only to change them.
"""

import io
import math
import pathlib
import struct

from PIL import Image, ImageChops, ImageDraw, ImageFont

FOLDER = pathlib.Path(__file__).resolve().parent
FONTS = pathlib.Path("/usr/share/fonts/truetype/dejavu")
FINE = 8  # drawn this much larger and reduced, for smooth edges

NIGHT, SEA = (16, 42, 67), (22, 122, 140)
AMBER, WHITE = (255, 178, 46), (255, 255, 255)

# The icon: a sun over a histogram that could as well be mountains. Everything lies on whole pixels at each size:
# (bar width, gap between bars, bar heights from the left, sun's centre x, y and radius), in pixels.
ICONS = {
    16: (2, 0, (4, 7, 5, 10, 7), 5, 4.5, 1.6),
    20: (2, 1, (4, 8, 6, 12, 8), 6.5, 6, 2.1),
    24: (3, 1, (5, 10, 7, 15, 10), 7.5, 7, 2.6),
    32: (4, 1, (7, 13, 10, 20, 14), 9.5, 9, 3.4),
    40: (5, 1, (8, 17, 12, 25, 17), 11.5, 11, 4.2),
    48: (6, 2, (10, 20, 15, 31, 21), 13.5, 13, 5.2),
    64: (8, 2, (13, 27, 20, 41, 28), 18, 17.5, 7),
    128: (16, 4, (26, 54, 40, 82, 56), 36, 35, 14),
    256: (32, 8, (52, 108, 80, 164, 112), 72, 70, 28),
}


def mix(first, second, share):
    return tuple(round(a + (b - a) * share) for a, b in zip(first, second))


def gradient(width, height, first, second, slant=0.0):
    """From `first` at the top to `second` at the bottom; `slant` lets the left stay behind."""
    picture = Image.new("RGB", (width, height))
    for y in range(height):
        for x in range(width) if slant else (0,):
            share = (y / max(height - 1, 1) + slant * x / max(width - 1, 1)) / (1 + slant)
            if slant:
                picture.putpixel((x, y), mix(first, second, share))
            else:
                picture.paste(mix(first, second, share), (0, y, width, y + 1))
    return picture


def smooth(width, height, draw):
    """A mask of what `draw` paints in white, with smooth edges; it draws on a canvas FINE times as large."""
    canvas = Image.new("L", (width * FINE, height * FINE), 0)
    draw(ImageDraw.Draw(canvas))
    return canvas.resize((width, height), Image.Resampling.BOX)


def disc(x, y, radius):
    box = [(x - radius) * FINE, (y - radius) * FINE, (x + radius) * FINE - 1, (y + radius) * FINE - 1]
    return lambda draw: draw.ellipse(box, fill=255)


def icon(size):
    bar, gap, heights, sun_x, sun_y, sun_radius = ICONS[size]
    corner = max(2, round(size * 0.19))
    edge = size * FINE - 1
    shape = smooth(size, size, lambda draw: draw.rounded_rectangle([0, 0, edge, edge], corner * FINE, fill=255))
    picture = gradient(size, size, NIGHT, SEA)
    picture.paste(AMBER, (0, 0), smooth(size, size, disc(sun_x, sun_y, sun_radius)))
    draw = ImageDraw.Draw(picture)
    used = 5 * bar + 4 * gap
    left, bottom = (size - used) // 2, size - max(2, round(size * 0.14))
    for index, height in enumerate(heights):
        x = left + index * (bar + gap)
        colour = WHITE if gap or index % 2 else (226, 240, 244)
        draw.rectangle([x, bottom - height, x + bar - 1, bottom - 1], fill=colour)
    picture.putalpha(shape)
    return picture


def icon_image(picture):
    """One entry of an icon file: a PNG for the largest, else a bitmap with its one-bit mask."""
    size = picture.width
    if size == 256:
        data = io.BytesIO()
        picture.save(data, "PNG", optimize=True)
        return data.getvalue()
    pixels = picture.transpose(Image.Transpose.FLIP_TOP_BOTTOM).tobytes("raw", "BGRA")
    stride = (size + 31) // 32 * 4
    mask = bytearray(stride * size)
    for y in range(size):
        for x in range(size):
            if picture.getpixel((x, size - 1 - y))[3] == 0:
                mask[y * stride + x // 8] |= 0x80 >> x % 8
    header = struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, len(pixels) + len(mask), 0, 0, 0, 0)
    return header + pixels + bytes(mask)


def write_icon(path):
    images = [(size, icon_image(icon(size))) for size in ICONS]
    offset = 6 + 16 * len(images)
    entries = b""
    for size, data in images:
        entries += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(data), offset)
        offset += len(data)
    path.write_bytes(struct.pack("<HHH", 0, 1, len(images)) + entries + b"".join(data for _, data in images))


def error_symbol():
    """A white cross on a red disc, on the face colour of dialogs."""
    size = 32
    picture = Image.new("RGB", (size, size), (240, 240, 240))
    picture.paste((150, 22, 24), (0, 0), smooth(size, size, disc(16, 16, 15.5)))
    picture.paste(gradient(size, size, (238, 82, 74), (198, 30, 32)), (0, 0), smooth(size, size, disc(16, 16, 14.4)))

    def cross(draw):
        near, far = 10.5 * FINE, 21.5 * FINE
        for line in ([near, near, far, far], [near, far, far, near]):
            draw.line(line, fill=255, width=round(3.6 * FINE))
            for x, y in (line[:2], line[2:]):
                radius = 1.8 * FINE
                draw.ellipse([x - radius, y - radius, x + radius, y + radius], fill=255)

    picture.paste(WHITE, (0, 0), smooth(size, size, cross))
    return picture


def curve(x, hills):
    return sum(height * math.exp(-(((x - middle) / width) ** 2)) for middle, width, height in hills)


def histogram(width, height, hills):
    """The area under a smooth curve and the line on top of it, as two masks."""
    points = [(x * FINE, (height - 1 - height * curve(x / width, hills)) * FINE) for x in range(width + 1)]
    area = smooth(width, height, lambda d: d.polygon([(0, height * FINE), *points, (width * FINE, height * FINE)], 255))
    line = smooth(width, height, lambda d: d.line(points, fill=255, width=round(2.4 * FINE), joint="curve"))
    return area, line


def banner():
    width, height = 756, 390
    picture = gradient(width, height, (10, 28, 47), (19, 98, 116), slant=0.55)
    grid = Image.new("L", picture.size, 0)
    draw = ImageDraw.Draw(grid)
    for x in range(53, width, 54):
        draw.line([x, 0, x, height], fill=15)
    for y in range(11, height, 54):
        draw.line([0, y, width, y], fill=15)
    picture.paste(WHITE, (0, 0), grid)

    low = 150
    channels = (
        ((70, 130, 255), ((0.20, 0.09, 0.62), (0.47, 0.13, 0.30), (0.86, 0.05, 0.16))),
        ((60, 214, 120), ((0.29, 0.10, 0.50), (0.58, 0.12, 0.48), (0.90, 0.04, 0.10))),
        ((255, 92, 84), ((0.38, 0.12, 0.36), (0.73, 0.10, 0.60), (0.93, 0.03, 0.12))),
    )
    bottom = picture.crop((0, height - low, width, height))
    for colour, hills in channels:
        area, line = histogram(width, low, hills)
        glow = Image.new("RGB", bottom.size)
        glow.paste(mix((0, 0, 0), colour, 0.45), (0, 0), area)
        bottom = ImageChops.screen(bottom, glow)
        bottom.paste(mix(colour, WHITE, 0.25), (0, 0), line)
    picture.paste(bottom, (0, height - low))

    mark = icon(256).resize((132, 132), Image.Resampling.LANCZOS)
    rim = smooth(140, 140, lambda d: d.rounded_rectangle([0, 0, 140 * FINE - 1, 140 * FINE - 1], 28 * FINE, fill=255))
    picture.paste((214, 232, 238), (60, 62), rim)
    picture.paste(mark, (64, 66), mark)

    name = ImageFont.truetype(str(FONTS / "DejaVuSans-Bold.ttf"), 112)
    draw = ImageDraw.Draw(picture)
    draw.text((240, 132), "Pixora", font=name, fill=WHITE, anchor="lm")
    draw.rectangle([246, 206, 300, 211], fill=AMBER)
    return picture


def main():
    write_icon(FOLDER / "pixora.ico")
    error_symbol().save(FOLDER / "error.bmp")
    banner().save(FOLDER / "banner.bmp")


if __name__ == "__main__":
    main()
