"""Design specifications of roads: limits by design speed, their files, and roads held against them.

>>> library = Library("project")            # the folder that holds 规范
>>> standard = library["公路二级"]
>>> standard.CircularCurveRad.SuperelevationMinRad.query(70, mode="interpolate")
>>> verify("road.xml", standard, speed=60).to_frame()

Lengths are in metres, gradients and superelevations in percent, speeds in km/h.
"""

from ._designspec import version as __version__
from ._differences import Difference, Differences, apply, diff
from ._errors import Error, FileError, NotFoundError, Problem, RefusedError
from ._library import Library
from ._specification import MODES, Finding, Specification, read
from ._table import SpeedTable
from ._verify import ROAD_TYPES, RoadFinding, RoadReport, Unchecked, verify
from ._work import RoadOutcome, RoadWork, outcomes_frame, road_works, run_works

__all__ = [
    "MODES",
    "ROAD_TYPES",
    "Difference",
    "Differences",
    "Error",
    "FileError",
    "Finding",
    "Library",
    "NotFoundError",
    "Problem",
    "RefusedError",
    "RoadFinding",
    "RoadOutcome",
    "RoadReport",
    "RoadWork",
    "SpeedTable",
    "Specification",
    "Unchecked",
    "__version__",
    "apply",
    "diff",
    "outcomes_frame",
    "read",
    "road_works",
    "run_works",
    "verify",
]
