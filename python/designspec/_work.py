"""Many roads against many specifications: pieces of work that any engine can spread."""

from __future__ import annotations

import os
from dataclasses import dataclass, field
from typing import TYPE_CHECKING, Any, Dict, Iterable, List, Mapping, Union

from ._errors import Error, FileError
from ._specification import Specification
from ._verify import RoadReport, verify

if TYPE_CHECKING:
    import pandas


@dataclass(frozen=True)
class RoadWork:
    """One road file against one specification: a plain value without a project's folder, which
    goes to any process on any machine that can read the file."""

    file: str
    specification: bytes
    """The text of a file (.hds) that holds it alone."""
    options: Mapping[str, Any] = field(default_factory=dict)
    """What verify takes besides: speed, mode, ..."""

    def run(self) -> RoadOutcome:
        """Holds the road against the specification. Raises nothing for a file or a specification
        that cannot be read, or a call that is refused: that is the outcome."""
        name = ""
        try:
            limits = Specification.from_text(self.specification)
            name = limits.name
            report = verify(self.file, limits, **self.options)
            cause = "\n".join(str(one) for one in report.problems if one.is_error)
            return RoadOutcome(self, name, report, cause)
        except FileError as error:
            return RoadOutcome(self, name, cause=str(error))
        except Error as error:
            return RoadOutcome(self, name, cause=f"{self.file}: {error}")


@dataclass(frozen=True)
class RoadOutcome:
    """What became of a piece of work."""

    work: RoadWork
    specification: str
    """Its name; empty: it could not be read."""
    report: Union[RoadReport, None] = None
    cause: str = ""
    """Why there is no report, or not all of the file in it; empty: there is one of all."""

    def counts(self) -> Dict[str, int]:
        """How many findings there are, by rule."""
        counts: Dict[str, int] = {}
        for one in self.report.findings if self.report else ():
            counts[one.rule] = counts.get(one.rule, 0) + 1
        return counts


def road_works(
    files: Iterable[Union[str, os.PathLike[str]]],
    specifications: Iterable[Specification],
    **options: Any,
) -> List[RoadWork]:
    """A piece of work for each file and each specification."""
    texts = [one.to_text() for one in specifications]
    return [RoadWork(os.fspath(file), text, options) for file in files for text in texts]


def run_works(works: Iterable[RoadWork]) -> List[RoadOutcome]:
    """The outcomes of several: what an engine hands out is worth more than its own time."""
    return [one.run() for one in works]


def outcomes_frame(outcomes: Iterable[RoadOutcome]) -> pandas.DataFrame:
    """A row for each: file, specification, errors, cause, and a column for each rule that was told
    of any, with its count."""
    import pandas

    rows = []
    for one in outcomes:
        errors = one.report.errors if one.report else 0
        row: Dict[str, Any] = {
            "file": one.work.file,
            "specification": one.specification,
            "errors": errors,
            "cause": one.cause,
        }
        rows.append({**row, **one.counts()})
    frame = pandas.DataFrame(rows, columns=None if rows else ["file", "specification", "errors", "cause"])
    rules = [one for one in frame.columns if one not in ("file", "specification", "errors", "cause")]
    frame[rules] = frame[rules].fillna(0).astype(int)
    return frame
