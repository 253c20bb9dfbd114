"""The criteria of a specification, made of what the core tells of their fields. Their types stand in
_criteria.pyi, which tools/make_stubs.py makes of the same."""

from __future__ import annotations

from typing import Any, Dict, List, Optional, Tuple

from . import _designspec
from ._table import SpeedTable, mode_number, table_dict

#: By criterion: what it is called, and key, label, unit and kind of each field.
FIELDS: Dict[str, Tuple[str, List[Tuple[str, str, str, str]]]] = {}
for _criterion, _page, _key, _label, _unit, _kind in _designspec.fields():
    FIELDS.setdefault(_criterion, (_page, []))[1].append((_key, _label, _unit, _kind))


class Criterion:
    """One criterion of a specification. Its fields are attributes, by the library's names."""

    _name = ""
    _label = ""

    def __init__(self, core: _designspec.Specification) -> None:
        object.__setattr__(self, "_core", core)

    def __setattr__(self, name: str, value: Any) -> None:
        if name not in self.fields():
            raise AttributeError(f"{self._name} has no field {name}")
        object.__setattr__(self, name, value)

    @classmethod
    def fields(cls) -> List[str]:
        """The names of its fields, in the order of files."""
        return [key for key, _, _, _ in FIELDS[cls._name][1]]

    def to_dict(self) -> Dict[str, Any]:
        """All fields; tables are dicts by speed, rows within rows lists of dicts."""
        core: _designspec.Specification = getattr(self, "_core")
        return {key: core.get_field(f"{self._name}.{key}") for key in self.fields()}

    def update(self, values: Dict[str, Any]) -> None:
        """Sets the fields that `values` has, all of them or, where one is refused, none."""
        core: _designspec.Specification = getattr(self, "_core")
        core.set_fields(dict(self._field_value(*one) for one in values.items()))

    @classmethod
    def _field_value(cls, name: str, value: Any) -> Tuple[str, Any]:
        """The path of a field, and the value as the core takes it."""
        kinds = {key: kind for key, _, _, kind in FIELDS[cls._name][1]}
        if name not in kinds:
            raise AttributeError(f"{cls._name} has no field {name}")
        return f"{cls._name}.{name}", table_dict(value) if kinds[name].endswith("_table") else value

    def __eq__(self, other: object) -> bool:
        return type(self) is type(other) and self.to_dict() == other.to_dict()  # type: ignore[attr-defined]

    __hash__ = None  # type: ignore[assignment]

    def __repr__(self) -> str:
        return f"<{self._name} {self._label}>"


def _field_property(criterion: str, key: str, label: str, unit: str, kind: str) -> property:
    path = f"{criterion}.{key}"

    def get(self: Criterion) -> Any:
        core: _designspec.Specification = getattr(self, "_core")
        if kind.endswith("_table"):
            return SpeedTable(core, path, label, unit)
        return core.get_field(path)

    def put(self: Criterion, value: Any) -> None:
        self.update({key: value})

    means = {
        "rows": "rows within rows: a list of dicts, which is a copy; assign it to change it",
        "int_table": "whole numbers by design speed (km/h)",
        "float_table": "decimals by design speed (km/h)",
    }.get(kind, kind)
    return property(get, put, doc=f"{label}{f', {unit}' if unit else ''}: {means}")


def _query_grade_length(
    self: Criterion, gradient: float, speed: int, mode: str = "nearest"
) -> Optional[int]:
    """The maximum length (m) of a grade of that gradient (%); None: no answer."""
    core: _designspec.Specification = getattr(self, "_core")
    return core.query_grade_length(gradient, speed, mode_number(mode))


def _query_superelevation(
    self: Criterion,
    maximum: int,
    speed: int,
    radius: int,
    mode: str = "nearest",
    tolerance: int = 0,
) -> Optional[int]:
    """The superelevation (%) of a curve of `radius` m in the table of the maximum superelevation
    (%); `tolerance` (km/h) is how far the speed may lie outside the table. None: no answer."""
    core: _designspec.Specification = getattr(self, "_core")
    return core.query_superelevation(maximum, speed, radius, mode_number(mode), tolerance)


def _query_widening(self: Criterion, vehicle: str, radius: int) -> Optional[float]:
    """The widening (m) of a lane for a design vehicle on a curve of `radius` m. None: no answer."""
    core: _designspec.Specification = getattr(self, "_core")
    return core.query_widening(vehicle, radius)


_QUERIES = {
    "LonGradMaxLen": _query_grade_length,
    "SuperElevation": _query_superelevation,
    "CurveWidening": _query_widening,
}


def _criterion_class(name: str) -> type:
    page, fields = FIELDS[name]
    members: Dict[str, Any] = {"_name": name, "_label": page, "__doc__": page}
    for key, label, unit, kind in fields:
        members[key] = _field_property(name, key, label, unit, kind)
    if name in _QUERIES:
        members["query"] = _QUERIES[name]
    return type(name, (Criterion,), members)


CRITERIA = {name: _criterion_class(name) for name in FIELDS}
globals().update(CRITERIA)  # where pickles look for them


class HasCriteria:
    """Has a criterion as an attribute for each."""

    _core: _designspec.Specification


def _add_criteria() -> None:
    for name, made in CRITERIA.items():

        def get(self: HasCriteria, made: type = made) -> Any:
            return made(self._core)

        setattr(HasCriteria, name, property(get, doc=made.__doc__))


_add_criteria()
