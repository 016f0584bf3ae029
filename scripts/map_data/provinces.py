"""States and provinces of a GeoPackage: the lines that two of one country share."""
import sqlite3
from collections import defaultdict

from shapely import wkb
from shapely.geometry import LineString
from shapely.ops import linemerge

HEADER = 8  # magic, version, flags, reference system
ENVELOPE = (0, 32, 48, 48, 64)  # bytes of the box behind it, by the kind that the flags name


def geometry(blob):
    return wkb.loads(bytes(blob[HEADER + ENVELOPE[blob[3] >> 1 & 7]:]))


def rings(shape):
    for part in getattr(shape, "geoms", [shape]):
        yield part.exterior.coords
        yield from (hole.coords for hole in part.interiors)


def inner_borders(path, countries):
    """Lines between two provinces of one of the countries, named by their three letters."""
    found = []
    with sqlite3.connect(path) as base:
        for country in countries:
            owners = defaultdict(set)
            for number, blob in base.execute(
                    "SELECT fid, geom FROM states_provinces WHERE adm0_a3 = ?", (country,)):
                for ring in rings(geometry(blob)):
                    points = [(round(x, 6), round(y, 6)) for x, y, *_ in ring]
                    for edge in zip(points, points[1:]):
                        owners[tuple(sorted(edge))].add(number)
            shared = linemerge([LineString(e) for e, who in owners.items() if len(who) > 1])
            found += [list(line.coords) for line in getattr(shared, "geoms", [shared])]
    return found
