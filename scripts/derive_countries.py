#!/usr/bin/env python3
"""Derives data/gazetteer/countries.csv; run by hand when a source has a new version.

    derive_countries.py ISO_3166 SUPPLEMENTAL_DATA OUTPUT

ISO_3166           iso_3166-1.json of the Debian package iso-codes, in /usr/share/iso-codes/json
SUPPLEMENTAL_DATA  supplementalData.xml of the Debian package unicode-cldr-core
OUTPUT             data/gazetteer/countries.csv
"""
import csv
import json
import sys
import xml.etree.ElementTree as ElementTree

# Known to neither source: added to FIPS 10-4 late, as Geopolitical Entities and Codes.
LATER = {"CW": "UC", "SS": "OD", "SX": "NN", "XK": "KV"}
# No entity of FIPS 10-4 but a part of one.
PART_OF = {"AX": "FI", "BQ": "NL"}
# Countries that FIPS 10-4 has in parts; a place of none of these divisions gets no code.
DIVIDED = {"PS": {"Gaza Strip": "GZ", "West Bank": "WE"},
           "SJ": {"Jan Mayen": "JN", "Svalbard": "SV"},
           "UM": {}}
NOT_ISO = {"XK": "Kosovo"}


def names(path):
    with open(path, encoding="utf-8") as file:
        rows = json.load(file)["3166-1"]
    found = {r["alpha_2"]: r.get("common_name", r["name"]) for r in rows}
    return {**found, **NOT_ISO}


def fips_codes(path):
    """Codes by ISO code; the source leaves out those that are the ISO code."""
    codes = ElementTree.parse(path).iter("territoryCodes")
    return {c.get("type"): c.get("fips10") or c.get("type") for c in codes}


def rows_of(iso, name, published):
    if iso in DIVIDED:
        yield iso, "", "", name, "divided"
        for division, code in DIVIDED[iso].items():
            yield iso, division, code, "", "FIPS 10-4"
    elif iso in LATER:
        yield iso, "", LATER[iso], name, "GEC"
    elif iso in PART_OF:
        yield iso, "", PART_OF[iso], name, "part"
    else:
        yield iso, "", published[iso], name, "CLDR"


def main(iso_3166, supplemental_data, output):
    published = fips_codes(supplemental_data)
    with open(output, "w", encoding="utf-8", newline="") as file:
        writer = csv.writer(file, lineterminator="\n")
        writer.writerow(["iso", "division", "fips", "name", "source"])
        for iso, name in sorted(names(iso_3166).items()):
            writer.writerows(rows_of(iso, name, published))


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    main(*sys.argv[1:])
