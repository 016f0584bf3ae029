"""GSHHG as the generic mapping tools keep it: lines cut into bins of 5 degrees, joined again."""
from collections import defaultdict

import numpy
from netCDF4 import Dataset
from shapely.geometry import Point, Polygon
from shapely.ops import unary_union
from shapely.prepared import prep

LAKE = 2
ISLAND_IN_LAKE = 3
FULL = 65535.0
NEAR_DEGREES = 0.09  # the two sources agree on a river to some kilometres
LAST_LEVEL = 5  # perennial rivers and the greatest of those that run dry; no canals


class Bins:
    def __init__(self, path):
        data = Dataset(path)
        self.values = {name: data.variables[name][...].data for name in data.variables}
        self.size = int(self.values["Bin_size_in_minutes"][0]) / 60
        self.per_row = int(self.values["N_bins_in_360_longitude_range"][0])
        self.x = self.values["Relative_longitude_from_SW_corner_of_bin"].astype(numpy.uint16)
        self.y = self.values["Relative_latitude_from_SW_corner_of_bin"].astype(numpy.uint16)
        self.first = self.values["Id_of_first_point_in_a_segment"]

    def segments(self, count):
        """(bin, segment) for all; `count` is the name of the table of counts per bin."""
        starts = self.values["Id_of_first_segment_in_a_bin"]
        for number, (start, many) in enumerate(zip(starts, self.values[count])):
            for segment in range(int(start), int(start) + int(many)):
                yield number, segment

    def points(self, number, segment, count):
        west = (number % self.per_row) * self.size
        west -= 360 if west >= 180 else 0
        north = 90 - (number // self.per_row) * self.size
        first = int(self.first[segment])
        chosen = slice(first, first + count)
        lon = west + self.x[chosen] / FULL * self.size
        lat = north - self.size + self.y[chosen] / FULL * self.size
        return [(round(float(a), 4), round(float(b), 4)) for a, b in zip(lon, lat)]


def joined(pieces):
    """Lines whose ends meet, two at a place, as one line each."""
    ends = defaultdict(list)
    for number, piece in enumerate(pieces):
        ends[piece[0]].append(number)
        ends[piece[-1]].append(number)
    used = [False] * len(pieces)

    def grow(line):
        while True:
            here = ends[line[-1]]
            fresh = [n for n in here if not used[n]]
            if len(here) != 2 or not fresh:
                return line
            used[fresh[0]] = True
            piece = pieces[fresh[0]]
            line += piece[1:] if piece[0] == line[-1] else piece[-2::-1]

    lines = []
    for number, piece in enumerate(pieces):
        if used[number]:
            continue
        used[number] = True
        line = grow(list(piece))
        lines.append(grow(line[::-1]) if line[0] != line[-1] else line)
    return lines


def rivers(path, great):
    """(rank, points): 0 along the rivers `great`, then by the level of the source, 1 to 5."""
    bins = Bins(path)
    counts = bins.values["N_points_for_a_segment"]
    levels = bins.values["Hierarchial_level_of_a_segment"]
    near_great = prep(unary_union([line.buffer(NEAR_DEGREES) for line in great]))
    by_rank = defaultdict(list)
    for number, segment in bins.segments("N_segments_in_a_bin"):
        level = int(levels[segment])
        if level <= LAST_LEVEL and counts[segment] > 1:
            line = bins.points(number, segment, int(counts[segment]))
            along = sum(near_great.contains(Point(p)) for p in line) >= 0.8 * len(line)
            by_rank[0 if along else max(level, 1)].append(line)
    return [(rank, line) for rank in sorted(by_rank) for line in joined(by_rank[rank])]


def lakes(path, least_km2, most_km2):
    """Lakes between two sizes as polygons, their islands taken out: (square kilometres, polygon)."""
    bins = Bins(path)
    info = bins.values["Embedded_npts_levels_exit_entry_for_a_segment"]
    owners = bins.values["Id_of_GSHHS_ID"]
    areas = bins.values["The_km_squared_area_of_polygons"]
    pieces = defaultdict(list)
    levels = {}
    for number, segment in bins.segments("N_segments_in_a_bin"):
        level, owner = (int(info[segment]) >> 6) & 7, int(owners[segment])
        if level in (LAKE, ISLAND_IN_LAKE):
            levels[owner] = level
            pieces[owner].append(bins.points(number, segment, int(info[segment]) >> 9))
    rings = {LAKE: [], ISLAND_IN_LAKE: []}
    for owner, parts in pieces.items():
        for line in joined(parts):
            if len(line) >= 4 and line[0] == line[-1]:
                rings[levels[owner]].append((float(areas[owner]), Polygon(line).buffer(0)))
    islands = [shape for area, shape in rings[ISLAND_IN_LAKE] if area > least_km2 / 4]
    found = []
    for area, lake in rings[LAKE]:
        if least_km2 <= area <= most_km2:
            for island in islands:
                if lake.intersects(island):
                    lake = lake.difference(island)
            found.append((area, lake))
    return found
