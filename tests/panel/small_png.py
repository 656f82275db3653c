"""Makes a picture of a page small: most of its colours are shades of letters."""
import collections
import struct
import zlib

SIGNATURE = b'\x89PNG\r\n\x1a\n'


def chunks_of(png):
    place = len(SIGNATURE)
    while place < len(png):
        size, name = struct.unpack('>I4s', png[place:place + 8])
        yield name, png[place + 8:place + 8 + size]
        place += size + 12


def chunk(name, content):
    return struct.pack('>I', len(content)) + name + content + struct.pack('>I', zlib.crc32(name + content))


def paeth(left, above, corner):
    return min((left, above, corner), key=lambda value: abs(left + above - corner - value))


def lines_of(png):
    """The width of the picture and its lines, as bytes of red, green and blue. It has eight bits and no alpha."""
    chunks = list(chunks_of(png))
    width, _, bits, kind = struct.unpack('>IIBB', chunks[0][1][:10])
    assert (bits, kind) == (8, 2)
    data = zlib.decompress(b''.join(content for name, content in chunks if name == b'IDAT'))
    size = width * 3
    above = bytes(size)
    lines = []
    for start in range(0, len(data), size + 1):
        method = data[start]
        line = bytearray(data[start + 1:start + 1 + size])
        for i in range(size if method else 0):
            left = line[i - 3] if i >= 3 else 0
            corner = above[i - 3] if i >= 3 else 0
            guess = (0, left, above[i], (left + above[i]) // 2)[method] if method < 4 else paeth(left, above[i], corner)
            line[i] = (line[i] + guess) & 255
        lines.append(bytes(line))
        above = line
    return width, lines


def small(png):
    """The picture with the 256 most frequent of its colours; the others become the nearest of these."""
    width, lines = lines_of(png)
    rows = [[line[i:i + 3] for i in range(0, len(line), 3)] for line in lines]
    counts = collections.Counter(pixel for row in rows for pixel in row)
    palette = [color for color, _ in counts.most_common(256)]
    places = {color: min(range(len(palette)), key=lambda at: sum((a - b) ** 2 for a, b in zip(palette[at], color)))
              for color in counts}
    data = b''.join(b'\0' + bytes(places[pixel] for pixel in row) for row in rows)
    return (SIGNATURE + chunk(b'IHDR', struct.pack('>IIBBBBB', width, len(rows), 8, 3, 0, 0, 0)) +
            chunk(b'PLTE', b''.join(palette)) + chunk(b'IDAT', zlib.compress(data, 9)) + chunk(b'IEND', b''))
