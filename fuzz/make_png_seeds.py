#!/usr/bin/env python3
"""Writes the PNG fuzzer's seed pictures into fuzz/corpus/png/.

A good seed is named LAYOUT-WxH-WHAT.png, LAYOUT being what the loader makes
of it (rgb or rgba); a seed the loader must refuse is named bad-WHAT.png.
The regression test reads those names. Run again only to change the seeds:
the bytes are kept in the repository.
"""

import pathlib
import struct
import zlib

OUT = pathlib.Path(__file__).resolve().parent / "corpus" / "png"

GREY, RGB, PALETTE, GREY_ALPHA, RGBA = 0, 2, 3, 4, 6
CHANNELS = {GREY: 1, RGB: 3, PALETTE: 1, GREY_ALPHA: 2, RGBA: 4}


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def header(width, height, depth, colour, interlace=0):
    return chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, depth, colour, 0, 0, interlace))


def packed_row(samples, depth):
    """One row of samples as stored, after a filter byte of 0 (none)."""
    if depth == 16:
        return b"\0" + b"".join(struct.pack(">H", s) for s in samples)
    if depth == 8:
        return b"\0" + bytes(samples)
    bits = "".join(format(s, f"0{depth}b") for s in samples)
    bits += "0" * (-len(bits) % 8)
    return b"\0" + bytes(int(bits[i : i + 8], 2) for i in range(0, len(bits), 8))


def picture(width, height, depth, colour, samples, extra=b"", interlace=0):
    """samples: rows of pixels, each pixel a tuple of channel samples."""
    rows = [[s for pixel in row for s in pixel] for row in samples]
    if interlace:
        data = b""
        # Adam7: (x start, y start, x step, y step) of each pass.
        for x0, y0, dx, dy in [(0, 0, 8, 8), (4, 0, 8, 8), (0, 4, 4, 8), (2, 0, 4, 4), (0, 2, 2, 4), (1, 0, 2, 2), (0, 1, 1, 2)]:
            if x0 >= width or y0 >= height:
                continue
            for y in range(y0, height, dy):
                data += packed_row([s for x in range(x0, width, dx) for s in samples[y][x]], depth)
    else:
        data = b"".join(packed_row(row, depth) for row in rows)
    return (
        b"\x89PNG\r\n\x1a\n"
        + header(width, height, depth, colour, interlace)
        + extra
        + chunk(b"IDAT", zlib.compress(data, 9))
        + chunk(b"IEND", b"")
    )


def main():
    OUT.mkdir(parents=True, exist_ok=True)
    seeds = {
        "rgba-1x1-one-pixel.png": picture(1, 1, 8, RGBA, [[(16, 32, 48, 255)]]),
        "rgb-3x2-colour.png": picture(3, 2, 8, RGB, [[(255, 0, 0), (0, 255, 0), (0, 0, 255)], [(9, 8, 7), (0, 0, 0), (255, 255, 255)]]),
        "rgb-2x2-grey.png": picture(2, 2, 8, GREY, [[(0,), (85,)], [(170,), (255,)]]),
        "rgb-4x1-grey-2-bit.png": picture(4, 1, 2, GREY, [[(0,), (1,), (2,), (3,)]]),
        "rgba-2x1-grey-alpha.png": picture(2, 1, 8, GREY_ALPHA, [[(50, 255), (100, 0)]]),
        "rgb-2x1-palette.png": picture(2, 1, 8, PALETTE, [[(1,), (0,)]], chunk(b"PLTE", bytes([10, 20, 30, 40, 50, 60]))),
        "rgba-2x1-palette-transparency.png": picture(
            2, 1, 4, PALETTE, [[(1,), (0,)]], chunk(b"PLTE", bytes([10, 20, 30, 40, 50, 60])) + chunk(b"tRNS", bytes([77]))
        ),
        "rgba-2x1-16-bit.png": picture(2, 1, 16, RGBA, [[(65535, 0, 257, 32768), (1, 2, 3, 65535)]]),
        "rgb-3x3-interlaced.png": picture(3, 3, 8, RGB, [[(x * 80, y * 80, 7) for x in range(3)] for y in range(3)], interlace=1),
    }
    good = seeds["rgb-3x2-colour.png"]
    seeds["bad-cut-short.png"] = good[: len(good) - 20]
    # A critical chunk whose checksum does not match.
    seeds["bad-wrong-checksum.png"] = good[:29] + b"\0\0\0\0" + good[33:]
    seeds["bad-no-signature.png"] = b"GIF89a" + good[6:]
    seeds["bad-claims-too-many-pixels.png"] = b"\x89PNG\r\n\x1a\n" + header(100000, 100000, 8, RGBA)
    seeds["bad-palette-without-colours.png"] = picture(2, 1, 8, PALETTE, [[(1,), (0,)]])
    for name, data in seeds.items():
        (OUT / name).write_bytes(data)


if __name__ == "__main__":
    main()
