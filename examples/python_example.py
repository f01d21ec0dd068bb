#!/usr/bin/env python3
"""Opens an EEPROM image, lists its failing blocks, changes one calibration cell and saves a copy.

Usage: python_example.py IMAGE [OUTPUT_DIR]
"""
import os
import sys

import epromdatablock

image = epromdatablock.Image.open(sys.argv[1])
print(image)
for block in image.blocks:
    if not block.ok:
        print("failing:", block)
for problem in image.problems:
    print("problem:", problem)

# The first calibration table with cells: raise its first cell by one stored step.
block = next(b for b in image.blocks if b.table is not None and b.table.shape[0] * b.table.shape[1])
table = block.table
print(table, "first row:", table.cells[0][:5])
table.set_raw(0, 0, table.raw[0][0] + 1)
print("after:", table.cells[0][:5], "checksum", block.checksum)

out_dir = sys.argv[2] if len(sys.argv) > 2 else "."
os.makedirs(out_dir, exist_ok=True)
target = os.path.join(out_dir, "edited.eeprom")
image.save(target)
print("saved", target, "verify:", epromdatablock.Image.open(target).verify())
