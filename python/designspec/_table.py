"""Tables by design speed."""

from __future__ import annotations

from html import escape
from typing import TYPE_CHECKING, Any, Dict, Iterator, Mapping, MutableMapping, Tuple, Union

import numpy as np
import numpy.typing as npt

if TYPE_CHECKING:
    import pandas

    from . import _designspec

#: How a speed between two of a table is answered: by the nearer speed's value, the next higher or
#: lower speed's, between the two in proportion, or not at all.
MODES = {"nearest": 0, "upper": 1, "lower": 2, "interpolate": 3, "exact": 4}

Number = Union[int, float]


def mode_number(mode: str) -> int:
    """The number of a mode; ValueError for a word that is none."""
    try:
        return MODES[mode]
    except KeyError:
        raise ValueError(f"mode is one of {', '.join(MODES)}, not {mode!r}") from None


def whole_speed(speed: Any) -> int:
    """A speed of whatever type; ValueError when it is no whole number."""
    whole = int(speed)
    if whole != speed:
        raise ValueError("speeds are whole numbers")
    return whole


def table_dict(values: Any) -> Dict[int, Number]:
    """A mapping of speeds and values, a pandas Series, or a pair of arrays, as a dict.

    ValueError when a speed stands twice, or the arrays are not of one length.
    """
    if isinstance(values, Mapping):
        pairs = list(values.items())
    elif hasattr(values, "items"):  # a Series
        pairs = list(values.items())
    else:
        speeds, limits = values
        if len(speeds) != len(limits):
            raise ValueError("as many values as speeds are needed")
        pairs = list(zip(speeds, limits))
    made = {whole_speed(speed): float(value) for speed, value in pairs}
    if len(made) != len(pairs):
        raise ValueError("a speed stands twice")
    return {speed: int(value) if value.is_integer() else value for speed, value in made.items()}


class SpeedTable(MutableMapping[int, Number]):
    """Limits by design speed (km/h), highest speed first; what is changed here is changed in the
    specification, unless the editor would refuse it (RefusedError)."""

    def __init__(self, core: _designspec.Specification, path: str, label: str, unit: str) -> None:
        self._core = core
        self.path = path
        self.label = label
        self.unit = unit

    def to_dict(self) -> Dict[int, Number]:
        """Speeds and values."""
        return dict(self._core.get_field(self.path))

    def assign(self, values: Any) -> None:
        """Puts other speeds and values in place of all: a mapping, a Series, a pair of arrays."""
        self._core.set_fields({self.path: table_dict(values)})

    def to_numpy(self) -> Tuple[npt.NDArray[np.int32], npt.NDArray[np.float64]]:
        """Speeds and values, lowest speed first, as NumPy's interp takes them."""
        values = self.to_dict()
        speeds = sorted(values)
        return (
            np.array(speeds, dtype=np.int32),
            np.array([values[one] for one in speeds], dtype=np.float64),
        )

    def to_series(self) -> pandas.Series[Any]:
        """Values by speed, as a pandas Series."""
        import pandas

        values = self.to_dict()
        index = pandas.Index(list(values), name="speed")
        return pandas.Series(list(values.values()), index=index, name=self.label)

    def query(self, speed: Any, mode: str = "nearest") -> Any:
        """The limit for a design speed: a number, or None when there is no answer. Of an array of
        speeds an array of floats, with NaN for no answer; other threads go on meanwhile."""
        number = mode_number(mode)
        if np.ndim(speed) == 0:
            return self._core.query(self.path, whole_speed(speed), number)
        speeds = np.asarray(speed)
        with np.errstate(invalid="ignore"):
            whole_speeds = speeds.astype(np.int32, casting="unsafe", copy=False)
        if not np.can_cast(speeds.dtype, np.int32) and not np.array_equal(whole_speeds, speeds):
            raise ValueError("speeds are whole numbers of 32 bits")
        return self._core.query_many(self.path, whole_speeds, number)

    def __getitem__(self, speed: int) -> Number:
        return self.to_dict()[speed]

    def __setitem__(self, speed: int, value: Number) -> None:
        values = self.to_dict()
        values[speed] = value
        self._core.set_fields({self.path: values})

    def __delitem__(self, speed: int) -> None:
        values = self.to_dict()
        del values[speed]
        self._core.set_fields({self.path: values})

    def __iter__(self) -> Iterator[int]:
        return iter(self.to_dict())

    def __len__(self) -> int:
        return len(self.to_dict())

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Mapping) and self.to_dict() == dict(other)

    __hash__ = None  # type: ignore[assignment]

    def __repr__(self) -> str:
        return f"SpeedTable({self.to_dict()!r})"

    def _repr_html_(self) -> str:
        values = self.to_dict()
        caption = f"{self.label} ({self.unit})" if self.unit else self.label
        speeds = "".join(f"<th>{one}</th>" for one in values)
        cells = "".join(f"<td>{one:g}</td>" for one in values.values())
        return (
            f"<table><tr><th>设计车速 (km/h)</th>{speeds}</tr>"
            f"<tr><th>{escape(caption)}</th>{cells}</tr></table>"
        )


def table_repr(heading: str, corner: str, columns: Any, lines: Any) -> str:
    """A table of texts as HTML."""
    head = "".join(f"<th>{escape(one)}</th>" for one in [corner, *columns])
    rows = "".join(
        f"<tr><th>{escape(caption)}</th>" + "".join(f"<td>{escape(one)}</td>" for one in cells) + "</tr>"
        for caption, cells in lines
    )
    title = f"<p>{escape(heading)}</p>" if heading else ""
    return f"{title}<table><tr>{head}</tr>{rows}</table>" if lines else title


__all__ = ["MODES", "Number", "SpeedTable", "mode_number", "table_dict", "table_repr", "whole_speed"]
