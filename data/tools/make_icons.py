#!/usr/bin/env python3
"""Draws the images of data/Assets. Needs nothing but the standard library.

Each icon is a union of thick strokes on a 36 by 36 grid, sampled 8 by 8 times in a pixel.
"""

import math
import os
import struct
import zlib

SIZE = 36
SAMPLES = 8
INK = (236, 238, 242)
OUTPUT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "Assets")


def write_png(name, width, height, rows, color_type):
    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))

    raw = b"".join(b"\0" + bytes(row) for row in rows)
    with open(os.path.join(OUTPUT, name), "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n")
        file.write(chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, color_type, 0, 0, 0)))
        file.write(chunk(b"IDAT", zlib.compress(raw, 9)))
        file.write(chunk(b"IEND", b""))


def distance_to_segment(x, y, a, b):
    dx, dy = b[0] - a[0], b[1] - a[1]
    length = dx * dx + dy * dy
    t = max(0.0, min(1.0, ((x - a[0]) * dx + (y - a[1]) * dy) / length)) if length else 0.0
    return math.hypot(x - a[0] - t * dx, y - a[1] - t * dy)


def polyline(*points, width=2.6):
    """A stroke with round joins and ends."""
    segments = list(zip(points, points[1:]))
    return lambda x, y: any(distance_to_segment(x, y, a, b) <= width / 2 for a, b in segments)


def closed(*points, width=2.6):
    return polyline(*points, points[0], width=width)


def filled(*points):
    """The inside of a polygon by the even-odd rule."""

    def inside(x, y):
        result = False
        for a, b in zip(points, points[1:] + points[:1]):
            if (a[1] > y) != (b[1] > y) and x < a[0] + (y - a[1]) / (b[1] - a[1]) * (b[0] - a[0]):
                result = not result
        return result

    return inside


def arc(cx, cy, radius, start, end, width=2.6):
    """Part of a circle; angles in degrees, clockwise from the right."""
    count = 48
    angles = [math.radians(start + (end - start) * i / count) for i in range(count + 1)]
    return polyline(*[(cx + radius * math.cos(a), cy + radius * math.sin(a)) for a in angles], width=width)


def disc(cx, cy, radius):
    return lambda x, y: math.hypot(x - cx, y - cy) <= radius


ICONS = {
    "folder": [
        closed((5, 28), (5, 9), (7, 7), (13.5, 7), (16.5, 10.5), (29, 10.5), (31, 12.5), (31, 28), (29.5, 29.5), (6.5, 29.5)),
        polyline((5, 16.5), (31, 16.5), width=2.2),
    ],
    "comment": [
        closed((7, 6.5), (29, 6.5), (31.5, 9), (31.5, 22.5), (29, 25), (18, 25), (11, 31), (11, 25), (7, 25), (4.5, 22.5), (4.5, 9)),
        polyline((11, 13), (25, 13), width=2.2),
        polyline((11, 18.5), (20, 18.5), width=2.2),
    ],
    "arrow-up": [polyline((18, 30), (18, 7), width=3), polyline((8.5, 16.5), (18, 7), (27.5, 16.5), width=3)],
    "arrow-down": [polyline((18, 6), (18, 29), width=3), polyline((8.5, 19.5), (18, 29), (27.5, 19.5), width=3)],
    "refresh": [
        arc(18, 18, 11.5, 200, 335),
        arc(18, 18, 11.5, 20, 155),
        filled((31.8, 7.0), (31.4, 17.0), (22.6, 13.2)),
        filled((4.2, 29.0), (4.6, 19.0), (13.4, 22.8)),
    ],
    "pins": [
        disc(8.5, 9, 4),
        disc(8.5, 27, 4),
        arc(27.5, 18, 3.6, 0, 360),
        polyline((8.5, 9), (15, 9), (19, 18), (24, 18)),
        polyline((8.5, 27), (15, 27), (19, 18)),
    ],
    "bolt": [
        filled((20.5, 4), (8, 20.5), (16, 20.5), (14, 32), (28, 14.5), (19.5, 14.5)),
        closed((20.5, 4), (8, 20.5), (16, 20.5), (14, 32), (28, 14.5), (19.5, 14.5), width=1.6),
    ],
}


def icon_rows(shapes):
    for py in range(SIZE):
        row = []
        for px in range(SIZE):
            hits = 0
            for sy in range(SAMPLES):
                for sx in range(SAMPLES):
                    x, y = px + (sx + 0.5) / SAMPLES, py + (sy + 0.5) / SAMPLES
                    hits += any(shape(x, y) for shape in shapes)
            row += [*INK, round(255 * hits / SAMPLES**2)]
        yield row


def canvas_rows(size=100, step=20):
    """A tile that repeats without a seam: a grid with a stronger line on two of its edges."""
    base, fine, strong = (0x24, 0x24, 0x2A), (0x29, 0x29, 0x30), (0x30, 0x30, 0x38)
    for y in range(size):
        row = []
        for x in range(size):
            row += strong if 0 in (x, y) else fine if x % step == 0 or y % step == 0 else base
        yield row


def main():
    os.makedirs(OUTPUT, exist_ok=True)
    for name, shapes in ICONS.items():
        write_png(name + ".png", SIZE, SIZE, icon_rows(shapes), 6)
    write_png("CanvasBg.png", 100, 100, canvas_rows(), 2)


if __name__ == "__main__":
    main()
