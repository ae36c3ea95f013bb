"""xlsx.py FILE: what a workbook holds, as an independent reader sees it.

"title WORDS" of its properties; for each sheet "sheet NAME FREEZE", then its filled cells row by row: "CELL n NUMBER FORMAT" or "CELL s TEXT".
"""
import sys

import openpyxl

book = openpyxl.load_workbook(sys.argv[1])
print("title", book.properties.title or "")
for sheet in book:
    print("sheet", sheet.title, sheet.freeze_panes)
    for row in sheet.iter_rows():
        for cell in row:
            if cell.value is None:
                continue
            if cell.data_type == "n":
                print(cell.coordinate, "n", repr(float(cell.value)), cell.number_format)
            else:
                print(cell.coordinate, "s", cell.value)
