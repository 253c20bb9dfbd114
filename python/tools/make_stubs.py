"""Writes designspec/_criteria.pyi, the types of the criteria, of what the core tells of their fields:

    PYTHONPATH=BUILD/python python3 python/tools/make_stubs.py [FILE]
"""

import pathlib
import sys

from designspec import _designspec

HEAD = '''"""Made by tools/make_stubs.py: the types of the criteria and their fields."""

from typing import Any, Dict, List, Mapping, Optional, Tuple, Union

from . import _designspec
from ._table import SpeedTable

FIELDS: Dict[str, Tuple[str, List[Tuple[str, str, str, str]]]]
CRITERIA: Dict[str, type]
Rows = List[Dict[str, Any]]
Values = Union[Mapping[int, float], Tuple[Any, Any], Any]

class TableField:
    def __get__(self, criterion: object, owner: Optional[type] = ...) -> SpeedTable: ...
    def __set__(self, criterion: object, values: Values) -> None: ...

class Criterion:
    def __init__(self, core: _designspec.Specification) -> None: ...
    @classmethod
    def fields(cls) -> List[str]: ...
    def to_dict(self) -> Dict[str, Any]: ...
    def update(self, values: Dict[str, Any]) -> None: ...
'''

QUERIES = {
    "LonGradMaxLen": "self, gradient: float, speed: int, mode: str = ...",
    "SuperElevation": "self, maximum: int, speed: int, radius: int, mode: str = ...,"
    " tolerance: int = ...",
    "CurveWidening": "self, vehicle: str, radius: int",
}
ANSWERS = {"CurveWidening": "float"}


def field_line(key: str, label: str, unit: str, kind: str) -> str:
    types = {"rows": "Rows", "int_table": "TableField", "float_table": "TableField"}
    return f"    {key}: {types.get(kind, kind)}  # {label}{f' ({unit})' if unit else ''}"


def stub() -> str:
    criteria: dict[str, list[str]] = {}
    pages: dict[str, str] = {}
    for name, page, key, label, unit, kind in _designspec.fields():
        pages[name] = page
        criteria.setdefault(name, []).append(field_line(key, label, unit, kind))
    lines = [HEAD]
    for name, fields in criteria.items():
        lines += [f"class {name}(Criterion):  # {pages[name]}", *fields]
        if name in QUERIES:
            answer = ANSWERS.get(name, "int")
            lines.append(f"    def query({QUERIES[name]}) -> Optional[{answer}]: ...")
        lines.append("")
    lines += ["class HasCriteria:", "    _core: _designspec.Specification"]
    for name in criteria:
        lines += ["    @property", f"    def {name}(self) -> {name}: ..."]
    return "\n".join(lines) + "\n"


if __name__ == "__main__":
    own = pathlib.Path(__file__).parents[1] / "designspec" / "_criteria.pyi"
    (pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else own).write_text(stub(), encoding="utf-8")
