"""xlsx.py FILE: what a workbook holds, as an independent reader sees it.

"title WORDS", "author WORDS" and "remark WORDS" of its properties; for each sheet "sheet NAME FREEZE", "width FIRST LAST LETTERS" of its columns, then its
filled cells row by row: "CELL n NUMBER FORMAT" or "CELL s TEXT", and where it looks like more than plain letters "look
CELL WEIGHT ALIGNMENT COLOR".
"""
import sys

import openpyxl

book = openpyxl.load_workbook(sys.argv[1])
print("title", book.properties.title or "")
print("author", book.properties.creator or "")
print("remark", book.properties.description or "")
for sheet in book:
    print("sheet", sheet.title, sheet.freeze_panes)
    for column in sheet.column_dimensions.values():
        print("width", column.min, column.max, column.width)
    for row in sheet.iter_rows():
        for cell in row:
            if cell.value is None:
                continue
            color = cell.fill.fgColor.rgb if cell.fill.fill_type else "none"
            if cell.font.b or color != "none":
                print("look", cell.coordinate, "bold" if cell.font.b else "plain", cell.alignment.horizontal, color)
            if cell.data_type == "n":
                print(cell.coordinate, "n", repr(float(cell.value)), cell.number_format)
            else:
                print(cell.coordinate, "s", cell.value)
