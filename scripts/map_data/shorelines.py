"""GSHHG as the generic mapping tools keep it: lines cut into bins of 5 degrees, joined again."""
from collections import defaultdict

import numpy
from netCDF4 import Dataset
from shapely.geometry import LineString, Point, Polygon, box
from shapely.ops import linemerge, polygonize, unary_union
from shapely.prepared import prep

SEA_SHORE = 1  # in the far south the front of the ice, shelves included
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


class Shores:
    """The shorelines of one resolution."""

    def __init__(self, path):
        self.bins = Bins(path)
        self.info = self.bins.values["Embedded_npts_levels_exit_entry_for_a_segment"]
        self.owners = self.bins.values["Id_of_GSHHS_ID"]
        self.areas = self.bins.values["The_km_squared_area_of_polygons"]

    def pieces(self, wanted):
        """(level, owner, points) of the pieces for which `wanted(level, west, south)` holds."""
        size, per_row = self.bins.size, self.bins.per_row
        for number, segment in self.bins.segments("N_segments_in_a_bin"):
            level = (int(self.info[segment]) >> 6) & 7
            west = (number % per_row) * size
            south = 90 - (number // per_row + 1) * size
            if wanted(level, west - (360 if west >= 180 else 0), south):
                yield level, int(self.owners[segment]), self.bins.points(
                    number, segment, int(self.info[segment]) >> 9)

    def lakes(self, least_km2, most_km2):
        """Lakes between two sizes, their islands taken out: (square kilometres, polygon)."""
        pieces = defaultdict(list)
        levels = {}
        for level, owner, line in self.pieces(lambda level, *_: level in (LAKE, ISLAND_IN_LAKE)):
            levels[owner] = level
            pieces[owner].append(line)
        rings = {LAKE: [], ISLAND_IN_LAKE: []}
        for owner, parts in pieces.items():
            for line in joined(parts):
                if len(line) >= 4 and line[0] == line[-1]:
                    area = float(self.areas[owner])
                    rings[levels[owner]].append((area, Polygon(line).buffer(0)))
        islands = [shape for area, shape in rings[ISLAND_IN_LAKE] if area > least_km2 / 4]
        found = []
        for area, lake in rings[LAKE]:
            if least_km2 <= area <= most_km2:
                for island in islands:
                    if lake.intersects(island):
                        lake = lake.difference(island)
                found.append((area, lake))
        return found

    def ice_front(self, least_km2):
        """Antarctica and its islands out to the front of the shelves, as polygons."""
        pieces = defaultdict(list)
        for _, owner, line in self.pieces(
                lambda level, west, south: level == SEA_SHORE and south < -60):
            if len(line) > 1 and self.areas[owner] >= least_km2:
                pieces[owner].append(LineString(line))
        found = []
        for lines in pieces.values():
            merged = linemerge(lines)
            for line in getattr(merged, "geoms", [merged]):
                ring = list(line.coords)
                if ring[0] != ring[-1]:  # round the pole
                    ring += [(ring[-1][0], -90), (ring[0][0], -90)]
                if len(ring) >= 4:
                    found.append(Polygon(ring).buffer(0))
        return [p for p in found if p.bounds[3] < -60]

    def faces(self, frame):
        """A frame (west, south, east, north) cut into pieces along the shores of the sea."""
        west, south, east, north = frame
        size = self.bins.size
        lines = [LineString(line) for _, _, line in self.pieces(
            lambda level, w, s: level == SEA_SHORE and w < east and w + size > west and s < north
            and s + size > south) if len(line) > 1]
        whole = box(*frame)
        return list(polygonize(unary_union(
            [line.intersection(whole) for line in lines] + [whole.boundary])))
