"""Reads and parses every specification file of a folder and prints the seconds of processor time."""
import pathlib
import sys
import time
import xml.etree.ElementTree as ElementTree

files = sorted(pathlib.Path(sys.argv[1]).glob("*.hds"))
start = time.process_time()
for file in files:
    ElementTree.parse(file)
print(time.process_time() - start)
