"""Natural Earth as TopoJSON: rings, lines and the borders that two countries share."""
import json
import math
from collections import defaultdict

from shapely.geometry import LineString, Polygon, box
from shapely.affinity import translate
from shapely.ops import linemerge, unary_union

SOUTH_POLE = -90.0
CRIMEA = (32.5, 45.5, 36.0, 46.5)  # west, south, east, north of the isthmus


class Topology:
    """A TopoJSON file with its arcs decoded to degrees."""

    def __init__(self, path):
        with open(path, encoding="utf-8") as file:
            data = json.load(file)
        self.objects = data["objects"]
        scale_x, scale_y = data["transform"]["scale"]
        left, bottom = data["transform"]["translate"]
        self.arcs = []
        for steps in data["arcs"]:
            x = y = 0
            arc = []
            for dx, dy in steps:
                x, y = x + dx, y + dy
                arc.append((x * scale_x + left, y * scale_y + bottom))
            self.arcs.append(arc)

    def chain(self, indices):
        points = []
        for index in indices:
            arc = self.arcs[index] if index >= 0 else self.arcs[~index][::-1]
            points += arc[1:] if points else arc
        return points

    def polygons(self, name):
        """Every polygon of an object as a list of rings."""
        for geometry in self.objects[name].get("geometries", [self.objects[name]]):
            parts = geometry["arcs"] if geometry["type"] == "MultiPolygon" else [geometry["arcs"]]
            for rings in parts:
                yield [self.chain(ring) for ring in rings]

    def lines(self, name):
        for geometry in self.objects[name]["geometries"]:
            single = geometry["type"] == "LineString"
            for indices in [geometry["arcs"]] if single else geometry["arcs"]:
                yield self.chain(indices)

    def owners(self, name):
        """For every arc the names of the features that have it in their outline."""
        users = defaultdict(set)
        for geometry in self.objects[name]["geometries"]:
            parts = geometry["arcs"] if geometry["type"] == "MultiPolygon" else [geometry["arcs"]]
            for rings in parts:
                for ring in rings:
                    for index in ring:
                        users[index if index >= 0 else ~index].add(geometry["properties"]["name"])
        return users


def unwrapped(ring):
    """The ring with steps of less than half a turn; round a pole it is closed along that pole."""
    points = [ring[0]]
    for lon, lat in ring[1:]:
        previous = points[-1][0]
        points.append((lon + 360 * round((previous - lon) / 360), lat))
    turns = round((points[-1][0] - points[0][0]) / 360)
    if turns:
        points += [(points[-1][0], SOUTH_POLE), (points[0][0], SOUTH_POLE)]
    return points


def planar(rings):
    """Polygons between 180 W and 180 E: what reaches beyond is cut off and moved over."""
    outer = unwrapped(rings[0])
    if all(lat < -89.9 for _, lat in outer) or len(outer) < 4:
        return []
    body = Polygon(outer).buffer(0)
    for hole in rings[1:]:
        if all(lat < -89.9 for _, lat in hole):
            continue
        cut = Polygon(unwrapped(hole)).buffer(0)
        for turn in (-360, 0, 360):
            body = body.difference(translate(cut, turn))
    parts = []
    for turn in (-360, 0, 360):
        part = translate(body.intersection(box(-180 - turn, -90, 180 - turn, 90)), turn)
        parts += [p for p in getattr(part, "geoms", [part]) if isinstance(p, Polygon) and p.area > 0]
    return parts


def land(topology):
    """The land between the antimeridians; pieces that meet there stay cut."""
    pieces = []
    for rings in topology.polygons("land"):
        pieces += planar(rings)
    return pieces


def within(point, limits):
    west, south, east, north = limits
    return west <= point[0] <= east and south <= point[1] <= north


def borders(topology, disputed, dropped):
    """Arcs between two countries as long lines: (rank, points), rank 1 where it is disputed."""
    groups = defaultdict(list)
    for index, names in topology.owners("countries").items():
        names = names - dropped
        if len(names) < 2:
            continue
        # On 180 degrees the two sides of one country never count, but two features may meet there.
        if all(abs(abs(lon) - 180) < 1e-6 for lon, _ in topology.arcs[index]):
            continue
        contested = names & disputed or all(within(point, CRIMEA) for point in topology.arcs[index])
        groups[1 if contested else 0].append(topology.arcs[index])
    found = []
    for rank, arcs in sorted(groups.items()):
        merged = linemerge(arcs)
        for line in getattr(merged, "geoms", [merged]):
            found.append((rank, list(line.coords)))
    return found


def smooth(points, closed, tolerance):
    """A coarsely gridded line without its steps: generalised, then its corners cut once."""
    shape = Polygon(points) if closed else LineString(points)
    kept = shape.simplify(tolerance)
    points = list(kept.exterior.coords if closed else kept.coords)
    if len(points) < (5 if closed else 3):
        return points
    cut = []
    for (x0, y0), (x1, y1) in zip(points, points[1:]):
        cut += [(x0 * 0.75 + x1 * 0.25, y0 * 0.75 + y1 * 0.25),
                (x0 * 0.25 + x1 * 0.75, y0 * 0.25 + y1 * 0.75)]
    return cut + [cut[0]] if closed else [points[0], *cut[1:-1], points[-1]]


def length_km(points):
    total = 0.0
    for (lon0, lat0), (lon1, lat1) in zip(points, points[1:]):
        east = (lon1 - lon0) * math.cos(math.radians((lat0 + lat1) / 2))
        total += math.hypot(east, lat1 - lat0) * 111.2
    return total


def parts_of(shape):
    """The polygons of a shape; lines and points where shapes merely touch are none of them."""
    return [p for p in getattr(shape, "geoms", [shape])
            if isinstance(p, Polygon) and not p.is_empty]


def union_of(polygons):
    return parts_of(unary_union([p.buffer(0) for p in polygons]))
