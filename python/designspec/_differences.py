"""Where two specifications differ."""

from __future__ import annotations

from dataclasses import astuple, dataclass, fields
from typing import TYPE_CHECKING, Any, Iterable, List, Optional

from . import _designspec
from ._specification import Specification

if TYPE_CHECKING:
    import pandas


@dataclass(frozen=True)
class Difference:
    """One value, in the order of the editor's pages."""

    path: str
    """"Name" for the name; empty for what this version does not know."""
    label: str
    key: str
    """Where in its table: 车速 80 km/h; empty: it is in none."""
    left: Optional[str]
    """As people read it, with unit; None: that side has none."""
    right: Optional[str]


class Differences(List[Difference]):
    """A list of differences that is a data frame as well."""

    def to_frame(self) -> pandas.DataFrame:
        """A row for each."""
        import pandas

        columns = [one.name for one in fields(Difference)]
        return pandas.DataFrame([astuple(one) for one in self], columns=columns)

    def _repr_html_(self) -> str:
        html: Any = self.to_frame().to_html(index=False, na_rep="—")
        return str(html)


def diff(left: Specification, right: Specification) -> Differences:
    """Every value in which they differ; empty when they are the same."""
    return Differences(Difference(*one) for one in _designspec.differences(left._core, right._core))


def apply(
    left: Specification, right: Specification, taken: Optional[Iterable[Difference]] = None
) -> None:
    """Takes values of the right over to the left, in memory: those of `taken`, which are of
    diff(left, right), or all. RefusedError, and nothing changed, for what the editor would refuse."""
    all_of_them = diff(left, right)
    wanted = set(all_of_them if taken is None else taken)
    if not wanted <= set(all_of_them):
        raise ValueError("not a difference of these two")
    _designspec.take(left._core, right._core, [one in wanted for one in all_of_them])
