"""xlsx.py FILE: what a workbook holds, as an independent reader sees it.

For each sheet "sheet NAME FREEZE", then its filled cells row by row: "CELL n NUMBER FORMAT" or "CELL s TEXT".
"""
import sys

import openpyxl

for sheet in openpyxl.load_workbook(sys.argv[1]):
    print("sheet", sheet.title, sheet.freeze_panes)
    for row in sheet.iter_rows():
        for cell in row:
            if cell.value is None:
                continue
            if cell.data_type == "n":
                print(cell.coordinate, "n", repr(float(cell.value)), cell.number_format)
            else:
                print(cell.coordinate, "s", cell.value)
