#!/usr/bin/env python3
"""Prints the rows of a .dbf file as another program reads them.

read_dbf.py dbfread|ogr FILE ENCODING

Fields end in US, rows in RS, the first row are the names. dbfread: Null is GS, truth T or F.
ogr: ENCODING is own for that of the file, Null is nothing, a date has "/", a memo is the number of its block.
"""
import csv
import datetime
import io
import subprocess
import sys

US, RS, GS = "\x1f", "\x1e", "\x1d"


def text(value):
    if value is None:
        return GS
    if value is True or value is False:
        return "T" if value else "F"
    if isinstance(value, datetime.date):
        return value.isoformat()
    return str(value)


def by_dbfread(path, encoding):
    import dbfread

    table = dbfread.DBF(path, encoding=encoding, recfactory=list)
    print(US.join(table.field_names), end=RS)
    for row in table:
        print(US.join(text(value) for _, value in row), end=RS)


def by_ogr(path, encoding):
    option = [] if encoding == "own" else ["-oo", "ENCODING=" + encoding]
    command = ["ogr2ogr", "-f", "CSV", *option, "/vsistdout/", path]
    out = subprocess.run(command, capture_output=True, check=True).stdout.decode()
    csv.field_size_limit(sys.maxsize)
    for row in csv.reader(io.StringIO(out, newline="")):
        print(US.join(row), end=RS)


sys.stdout.reconfigure(encoding="utf-8", newline="")
{"dbfread": by_dbfread, "ogr": by_ogr}[sys.argv[1]](sys.argv[2], sys.argv[3])
