"""The compact file of map data; docs/maps.md describes it."""
import struct
import zlib

MAGIC = b"TLPGEO1\n"


def varint(value):
    out = bytearray()
    while value >= 0x80:
        out.append(value & 0x7F | 0x80)
        value >>= 7
    out.append(value)
    return bytes(out)


def signed(value):
    return varint(value * 2 if value >= 0 else -value * 2 - 1)


def on_grid(points, units):
    """Points as whole grid steps, no two alike in a row."""
    kept = []
    for lon, lat in points:
        point = (round(lon * units), round(lat * units))
        if not kept or kept[-1] != point:
            kept.append(point)
    return kept


class Writer:
    def __init__(self, units):
        self.units = units
        self.layers = []

    def layer(self, name, closed, features):
        """Features are (rank, [points, ...]); rings are closed, their first point not repeated."""
        body = bytearray()
        count = 0
        for rank, parts in features:
            grids = [on_grid(part, self.units) for part in parts]
            if closed:
                grids = [g[:-1] if g and g[0] == g[-1] else g for g in grids]
            grids = [g for g in grids if len(g) >= (3 if closed else 2)]
            if not grids:
                continue
            count += 1
            body += varint(rank) + varint(len(grids))
            for grid in grids:
                body += varint(len(grid))
                x = y = 0
                for px, py in grid:
                    body += signed(px - x) + signed(py - y)
                    x, y = px, py
        head = name.encode() + b"\0" + (b"A" if closed else b"L") + varint(count)
        self.layers.append(head + bytes(body))
        return count

    def write(self, path):
        payload = struct.pack("<I", self.units) + varint(len(self.layers)) + b"".join(self.layers)
        with open(path, "wb") as file:
            file.write(MAGIC + struct.pack(">I", len(payload)) + zlib.compress(payload, 9))
