"""Asks the default specification of a project each of the library's queries once, in Python.

python3 main.py PROJECT        PROJECT is the folder that holds 规范
"""

import sys

import numpy as np

import designspec


def show(what, value):
    print(f"{what}: {'no answer' if value is None or np.isnan(value) else f'{value:g}'}")


def ask(road):
    radii = road.CircularCurveRad
    # Speeds in km/h.
    show("CircularCurveRad.noSuperelevationMinRad",
         radii.noSuperelevationMinRad.query(55, mode="interpolate"))
    show("LonGrad.MaxGradRecommendedValues",
         road.LonGrad.MaxGradRecommendedValues.query(55, mode="upper"))
    show("MaxResultantGrad.CityRoad", road.MaxResultantGrad.CityRoad.query(60, mode="exact"))
    # A gradient in percent; a maximum superelevation in percent; radii in metres.
    show("LonGradMaxLen", road.LonGradMaxLen.query(6.5, 50))
    show("SuperElevation", road.SuperElevation.query(4, 60, radius=180, tolerance=10))
    show("CurveWidening", road.CurveWidening.query("铰接车", 180))
    # Many speeds at once.
    speeds = np.array([20, 55, 80, 120])
    for speed, radius in zip(speeds, radii.SuperelevationMinRad.query(speeds, mode="upper")):
        show(f"{speed} km/h", radius)


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: main.py PROJECT")
    road = designspec.Library(sys.argv[1]).default
    if road is None:
        sys.exit("no default specification")
    print(road.name)
    ask(road)


main()
