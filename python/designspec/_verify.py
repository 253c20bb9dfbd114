"""Roads held against specifications."""

from __future__ import annotations

import json
import os
from dataclasses import asdict, dataclass, field
from typing import TYPE_CHECKING, Any, Dict, List, Optional, Sequence, Tuple, Union

import numpy as np

from . import _designspec
from ._errors import Problem
from ._specification import Specification
from ._table import mode_number, whole_speed

if TYPE_CHECKING:
    import pandas

#: The road types, for resultant gradients.
ROAD_TYPES = (
    "城市道路",
    "高速公路",
    "一级公路",
    "二级公路",
    "三级公路",
    "四级公路",
    "其它道路",
)


@dataclass(frozen=True)
class RoadFinding:
    """What a rule tells of an element of a road."""

    alignment: str
    rule: str
    severity: str
    """error, warning or note."""
    element: str
    """line, curve, spiral, wholeCurve, grade, verticalCurve."""
    index: int
    """Of the element, from 1."""
    start: float
    """m along the alignment."""
    end: float
    station_from: str
    station_to: str
    speed: Optional[int]
    """km/h; None: no speed had to do with it."""
    value: float
    limit: float
    unit: str
    criterion: str
    """Path of the limit."""
    source: str
    """The data source of the limit."""
    message: str


@dataclass(frozen=True)
class Unchecked:
    """What could not be checked, and why."""

    alignment: str
    rule: Optional[str]
    """None: no rule could."""
    why: str
    start: float
    end: float
    station_from: str
    station_to: str


@dataclass(frozen=True)
class RoadReport:
    """What holding one road file against a specification told."""

    file: str
    specification: str
    findings: List[RoadFinding] = field(default_factory=list)
    unchecked: List[Unchecked] = field(default_factory=list)
    problems: List[Problem] = field(default_factory=list)
    """What reading the file had to tell."""

    @property
    def errors(self) -> int:
        """How many limits are violated."""
        return sum(one.severity == "error" for one in self.findings)

    def to_frame(self) -> pandas.DataFrame:
        """A row for each finding."""
        import pandas

        columns = list(RoadFinding.__dataclass_fields__)
        return pandas.DataFrame([asdict(one) for one in self.findings], columns=columns)

    def _repr_html_(self) -> str:
        html: Any = self.to_frame().to_html(index=False)
        return str(html)


Speed = Union[None, int, Sequence[Tuple[float, float, int]]]


def _speeds(speed: Speed) -> List[Tuple[Optional[float], Optional[float], int]]:
    if speed is None:
        return []
    if isinstance(speed, (int, float, np.number)):
        return [(None, None, whole_speed(speed))]
    return [(float(start), float(end), whole_speed(value)) for start, end, value in speed]


def _finding(alignment: str, one: Dict[str, Any]) -> RoadFinding:
    return RoadFinding(
        alignment,
        one["rule"],
        one["severity"],
        one["element"]["kind"],
        one["element"]["index"],
        one["from"],
        one["to"],
        one["stationFrom"],
        one["stationTo"],
        one["speed"],
        one["value"],
        one["limit"],
        one["unit"],
        one["criterion"],
        one["source"],
        one["message"],
    )


def _unchecked(alignment: str, one: Dict[str, Any]) -> Unchecked:
    return Unchecked(
        alignment,
        one["rule"],
        one["why"],
        one["from"],
        one["to"],
        one["stationFrom"],
        one["stationTo"],
    )


def verify(
    path: Union[str, os.PathLike[str]],
    specification: Specification,
    *,
    speed: Speed = None,
    mode: str = "upper",
    road_type: str = "城市道路",
    plateau: bool = False,
    snow: bool = False,
    max_super: Optional[int] = None,
    edge: bool = False,
    vehicle: str = "",
) -> RoadReport:
    """Holds the alignments of a road file (LandXML) against a specification.

    speed: design speed, km/h, for the whole road, or (from station, to station, speed) for
    stretches; it overrides what the file says. mode: how a speed between two of a table is
    answered. plateau, snow: take the reduction on plateaus, the limits of snowy and frozen regions.
    max_super: the table of superelevations to take (%). edge: the carriageway turns about its edge.
    vehicle: design vehicle; without it no widening is told.

    FileError when the file cannot be read; RefusedError when there is no design speed at all. What
    could be read or checked only in part has errors among the problems of its report.
    """
    if road_type not in ROAD_TYPES:
        raise ValueError(f"road_type is one of {', '.join(ROAD_TYPES)}, not {road_type!r}")
    text, problems = _designspec.verify(
        os.fspath(path),
        specification._core,
        speeds=_speeds(speed),
        mode=mode_number(mode),
        road_type=ROAD_TYPES.index(road_type),
        plateau=plateau,
        snow=snow,
        max_super=max_super,
        edge=edge,
        vehicle=vehicle,
    )
    file = json.loads(text)["files"][0]
    report = RoadReport(os.fspath(path), specification.name)
    report.problems.extend(Problem(*one) for one in problems)
    for road in file["alignments"]:
        report.findings.extend(_finding(road["name"], one) for one in road["findings"])
        report.unchecked.extend(_unchecked(road["name"], one) for one in road["unchecked"])
    return report
