"""Reads and parses every specification file of a folder and prints the seconds that takes."""
import pathlib
import sys
import time
import xml.etree.ElementTree as ElementTree

files = sorted(pathlib.Path(sys.argv[1]).glob("*.hds"))
start = time.perf_counter()
for file in files:
    ElementTree.parse(file)
print(time.perf_counter() - start)
