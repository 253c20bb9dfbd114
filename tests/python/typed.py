"""What a program that is checked by mypy --strict may write; run as a test as well."""

from __future__ import annotations

import pathlib
from typing import Optional

import numpy as np
from designspec import Differences, Library, RoadReport, Specification, diff, read, verify


def changed(standard: Specification) -> Differences:
    other = standard.copy()
    other.CircularCurveRad.MaxRad = 9000
    other.CircularCurveRad.SuperelevationMinRad = {80: 260, 60: 150}
    other.CircularCurveRad.SuperelevationMinRad[40] = 70
    other.LonGrad.MinGrad = 0.5
    other.LonGradMaxLen.rows = [{"Grad": 5.0, "lengths": {80: 600}}]
    length: Optional[int] = other.LonGradMaxLen.query(5.0, 80, mode="exact")
    assert length == 600
    return diff(standard, other)


def of_file(path: pathlib.Path) -> Specification:
    return read(path)[0]


def first(library: Library) -> Specification:
    return library[next(iter(library))]


def held(path: str, standard: Specification) -> RoadReport:
    return verify(path, standard, speed=60, road_type="二级公路")


assert len(changed(Specification("甲"))) > 5
assert Specification("甲").LonGrad.MaxGradLimitedValues.query(np.array([80])).tolist() == [6.0]
