"""Images for the checks of pixora-cli: made and read without any code of the program."""

import struct

import numpy as np

VALID_BITS = (8, 10, 12, 14, 16)


class Image:
    """A file as it must be read: `values` is height x width x 3 (red, green, blue) or height x width."""

    def __init__(self, path, valid_bits=None):
        self.path, self.data, self.given_bits = path, path.read_bytes(), valid_bits
        if self.data[:2] == b"BM":
            self.read_bmp()
        else:
            self.read_tiff()
        self.height, self.width = self.values.shape[:2]
        self.colour = self.values.ndim == 3

    def bytes_at(self, offset, count):
        """What the file lacks reads as zero."""
        part = self.data[offset : offset + count]
        return np.frombuffer(part + bytes(count - len(part)), np.uint8)

    def read_bmp(self):
        self.kind, self.stored_bits, self.bits, self.valid_bits, self.raw = "BMP", 0, 8, 0, False
        offset, _, width, height, _, self.bmp_bits = struct.unpack_from("<IIiiHH", self.data, 10)
        bottom_up, height = height > 0, abs(height)
        if self.bmp_bits == 8 and not bottom_up:  # indices straight through, without a palette and without padding
            grey = self.bytes_at(offset, width * height).reshape(height, width)
            pixels = np.repeat(grey[..., None], 3, axis=2)
        else:
            stride = (width * self.bmp_bits // 8 + 3) // 4 * 4
            rows = self.bytes_at(offset, stride * height).reshape(height, stride)
            size = self.bmp_bits // 8
            if size == 1:
                palette = self.bytes_at(54, 1024).reshape(256, 4)
                pixels = palette[rows[:, :width]][..., 2::-1].copy()
                pixels[(np.arange(stride * height).reshape(height, stride) >= len(self.data) - offset)[:, :width]] = 0
            else:
                pixels = rows[:, : width * size].reshape(height, width, size)[..., 2::-1]
            pixels = pixels[::-1] if bottom_up else pixels
        grey = (pixels[..., 0] == pixels[..., 1]).all() and (pixels[..., 1] == pixels[..., 2]).all()
        self.values = (pixels[..., 0] if grey else pixels).astype(np.uint16)
        self.shown = self.values

    def tags(self, order):
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
        return tags

    def read_tiff(self):
        order = "<" if self.data[:2] == b"II" else ">"
        self.kind = "TIFF II" if order == "<" else "TIFF MM"
        tags = self.tags(order)
        width, height, bits, strip = tags[256], tags[257], tags[258], tags[273]
        channels = 3 if tags[262] == 2 else 1
        count = width * height * channels
        self.bmp_bits, self.stored_bits, self.bits, self.valid_bits, self.raw = 0, bits, bits, bits, bits == 16
        if bits == 8:
            values = self.bytes_at(strip, count).astype(np.uint16)
        elif bits == 12:  # pairs of pixels; the odd one at the end is not read
            whole = width * height // 2 * 2 * channels
            three = self.bytes_at(strip, whole * 3 // 2).reshape(-1, 3).astype(np.uint16)
            pairs = np.stack((three[:, 0] << 4 | three[:, 1] >> 4, (three[:, 1] & 15) << 8 | three[:, 2]), axis=1)
            values = np.concatenate((pairs.reshape(-1), np.zeros(count - whole, np.uint16)))
        else:  # low byte first, whatever the header's order
            values = self.bytes_at(strip, 2 * count).view("<u2").astype(np.uint16)
        shape = (height, width, 3) if channels == 3 else (height, width)
        self.shown = (values >> (bits - 8)).reshape(shape)
        if bits == 16:
            changing = int(np.bitwise_or.reduce(values ^ values[0]))
            found = next(n for n in VALID_BITS if changing % (1 << (16 - n)) == 0)
            self.valid_bits = self.given_bits or found
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

    def regions(self, random):
        """The whole image, single pixels, a row, a column and any part."""
        w, h = self.width - 1, self.height - 1
        x, y = sorted(random.integers(0, w + 1, 2)), sorted(random.integers(0, h + 1, 2))
        return [(0, 0, w, h), (w, h, w, h), (0, h // 2, w, h // 2), (w // 3, 0, w // 3, h), (x[0], y[0], x[1], y[1])]


def bmp(pixels, bits, bottom_up=True, palette=None, gap=b""):
    """`pixels` is height x width x 3 in file order of the channels (blue, green, red), or indices for 8 bits."""
    height, width = pixels.shape[:2]
    if bits == 32:
        pixels = np.concatenate((pixels, np.full((height, width, 1), 77)), axis=2)
    rows = pixels.astype(np.uint8).reshape(height, -1)
    if bits == 8 and not bottom_up:
        body = rows.tobytes()
    else:
        body = np.pad(rows[::-1] if bottom_up else rows, ((0, 0), (0, -rows.shape[1] % 4))).tobytes()
    before = (palette.astype(np.uint8).tobytes() if palette is not None else b"") + gap
    offset = 54 + len(before)
    head = struct.pack("<2sIHHI", b"BM", offset + len(body), 0, 0, offset)
    size = (width, height if bottom_up else -height)
    return head + struct.pack("<IiiHHIIIIII", 40, *size, 1, bits, 0, len(body), 0, 0, 0, 0) + before + body


def pack12(values):
    values = np.concatenate((values, np.zeros(len(values) % 2, values.dtype))).reshape(-1, 2).astype(np.uint32)
    first, second = values[:, 0], values[:, 1]
    return np.stack((first >> 4, (first & 15) << 4 | second >> 8, second & 255), axis=1).astype(np.uint8).tobytes()


def tiff(pixels, bits, order="<", gap=0):
    """`pixels` is height x width x 3 (red, green, blue) or height x width; words are always low byte first."""
    height, width = pixels.shape[:2]
    channels = 3 if pixels.ndim == 3 else 1
    flat = pixels.reshape(-1)
    data = pack12(flat) if bits == 12 else flat.astype(np.uint8 if bits == 8 else "<u2").tobytes()
    count = 9
    extra = 8 + 2 + 12 * count + 4
    strip = extra + 6 + gap
    entries = (
        (256, 3, 1, width), (257, 4, 1, height), (258, 3, channels, bits if channels == 1 else extra), (259, 3, 1, 1),
        (262, 3, 1, channels if channels == 1 else 2), (273, 4, 1, strip), (277, 3, 1, channels), (278, 4, 1, height),
        (279, 4, 1, len(data)),
    )  # fmt: skip
    out = (b"II" if order == "<" else b"MM") + struct.pack(order + "HIH", 42, 8, count)
    for tag, kind, number, value in entries:
        inline = kind == 3 and number == 1
        out += struct.pack(order + ("HHIHH" if inline else "HHII"), tag, kind, number, value, *([0] if inline else []))
    return out + bytes(4) + struct.pack(order + "HHH", bits, bits, bits) + bytes(gap) + data


def any_pixels(random, height, width, colour, most):
    """Noise, a ramp, one value, two values, or the largest value everywhere."""
    shape = (height, width, 3) if colour else (height, width)
    style = random.integers(0, 5)
    if style == 0:
        return random.integers(0, most + 1, shape)
    if style == 1:
        return (np.arange(np.prod(shape)) * 37 % (most + 1)).reshape(shape)
    if style == 2:
        return np.full(shape, random.integers(0, most + 1))
    if style == 3:
        return random.choice([random.integers(0, most + 1), most], shape)
    return np.full(shape, most)


def any_file(random):
    """The bytes of an image of any kind, with an ending for its name; one in six is cut short."""
    height, width = (int(n) for n in random.choice([random.integers(1, 5, 2), random.integers(1, 90, 2)]))
    bottom_up, colour = bool(random.integers(0, 2)), bool(random.integers(0, 2))
    kind = random.choice(["bmp8", "bmp24", "bmp32", "tiff8", "tiff12", "tiff16", "tiff16"])
    if kind == "bmp8":
        palette = random.integers(0, 256, (256, 4)) if colour else np.repeat(np.arange(256)[:, None], 4, axis=1)
        data = bmp(any_pixels(random, height, width, False, 255), 8, bottom_up, palette)
    elif kind in ("bmp24", "bmp32"):
        pixels = any_pixels(random, height, width, colour, 255)
        pixels = pixels if colour else np.repeat(pixels[..., None], 3, axis=2)
        data = bmp(pixels, int(kind[3:]), bottom_up, gap=bytes(int(random.integers(0, 9))))
    else:
        bits, order = int(kind[4:]), "<>"[int(bottom_up)]
        pixels = any_pixels(random, height, width, colour, (1 << bits) - 1)
        if bits == 16:  # padding below the valid bits, not always zeros
            padding = 16 - int(random.choice(VALID_BITS))
            pixels = pixels >> padding << padding | random.integers(0, 1 << padding)
        data = tiff(pixels, bits, order, int(random.integers(0, 9)))
    least = 1400 if kind == "bmp8" else 200
    if random.integers(0, 6) == 0 and len(data) > least:
        data = data[: int(random.integers(least, len(data)))]
    return data, ".bmp" if kind.startswith("bmp") else ".tif"


def hard_pixels(height, width, colour, most):
    """What sums, counts and divisions go wrong on: one value, the least, the largest, two far apart, one pixel."""
    shape = (height, width, 3) if colour else (height, width)
    two = np.zeros(shape, np.int64)
    two[:, : width // 2] = most
    yield "all 0", np.zeros(shape, np.int64)
    yield f"all {most}", np.full(shape, most)
    yield f"all {most // 2}", np.full(shape, most // 2)
    yield "the two ends", two
    yield "one pixel", np.full((1, 1, 3) if colour else (1, 1), most)
    yield "one pixel apart", np.where(np.arange(np.prod(shape)).reshape(shape) < (3 if colour else 1), 0, most)


def hard_files():
    """Grey and colour images of every depth: a name, the bytes, an ending and the valid bits to ask for."""
    for colour in (False, True):
        for bits, valid in ((8, 8), (12, 12), *((16, valid) for valid in VALID_BITS)):
            for what, pixels in hard_pixels(40, 70, colour, (1 << valid) - 1):
                name = f"{what}, {'colour' if colour else 'grey'}, {valid} of {bits} bits"
                yield name, tiff(pixels << (bits - valid), bits), ".tif", valid if bits == 16 else None
        for what, pixels in hard_pixels(40, 70, colour, 255):
            three = pixels if colour else np.repeat(pixels[..., None], 3, axis=2)
            yield f"{what}, {'colour' if colour else 'grey'} BMP", bmp(three, 24), ".bmp", None


def write_large_flat(path, width, height, value):
    """An 8-bit BMP of one grey: its palette says which, and the indices are all 0, which takes no room on the disk."""
    palette = np.zeros((256, 4), np.uint8)
    palette[0, :3] = value
    rows = (width + 3) // 4 * 4 * height
    head = struct.pack("<2sIHHI", b"BM", (1078 + rows) & 0xFFFFFFFF, 0, 0, 1078)
    info = struct.pack("<IiiHHIIIIII", 40, width, height, 1, 8, 0, rows, 0, 0, 0, 0)
    with path.open("wb") as file:
        file.write(head + info + palette.tobytes())
        file.truncate(1078 + rows)
