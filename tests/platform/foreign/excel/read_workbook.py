"""Prints the cells of a workbook as another reader sees them: read_workbook.py READER FILE

One line a cell: sheet, row, column (from 0), kind (n, t, b), then the bits of the number, or the text,
in hexadecimal; then, under "sheets", the names.
"""

import struct
import sys


def show(sheet, row, column, value):
    if isinstance(value, bool):
        kind, shown = "b", str(int(value))
    elif isinstance(value, (int, float)):
        kind, shown = "n", struct.pack(">d", value).hex()
    else:
        kind, shown = "t", value.encode("utf-8").hex()
    print(sheet.encode("utf-8").hex(), row, column, kind, shown)


def by_xlrd(path):
    import xlrd

    book = xlrd.open_workbook(path, logfile=sys.stderr)
    for sheet in book.sheets():
        for row in range(sheet.nrows):
            for column, cell in enumerate(sheet.row(row)):
                if cell.ctype in (xlrd.XL_CELL_TEXT, xlrd.XL_CELL_NUMBER, xlrd.XL_CELL_DATE):
                    show(sheet.name, row, column, cell.value)
                elif cell.ctype == xlrd.XL_CELL_BOOLEAN:
                    show(sheet.name, row, column, bool(cell.value))
    return book.sheet_names()


def by_openpyxl(path):
    import openpyxl

    book = openpyxl.load_workbook(path, read_only=True, data_only=True)
    for sheet in book.worksheets:
        for cells in sheet.iter_rows():
            for cell in cells:
                if cell.value is not None:
                    show(sheet.title, cell.row - 1, cell.column - 1, cell.value)
    return book.sheetnames


names = {"xlrd": by_xlrd, "openpyxl": by_openpyxl}[sys.argv[1]](sys.argv[2])
print("sheets", *(name.encode("utf-8").hex() for name in names))
