"""Specifications, their criteria and fields."""

from __future__ import annotations

import os
from dataclasses import dataclass
from html import escape
from typing import Any, Dict, List, Tuple, Union

from . import _designspec
from ._criteria import FIELDS, Criterion, HasCriteria
from ._table import MODES, table_repr


@dataclass(frozen=True)
class Finding:
    """What is wrong or odd in a specification."""

    is_error: bool
    """True: a page of the editor refuses to store it."""
    path: str
    text: str


class Specification(HasCriteria):
    """A named set of limits. What is changed here is in memory; Library.save writes it."""

    def __init__(self, name: str = "规范") -> None:
        """One with the built-in limits."""
        self._core = _designspec.Specification(name)

    @classmethod
    def _of(cls, core: _designspec.Specification) -> Specification:
        made = cls.__new__(cls)
        made._core = core
        return made

    @classmethod
    def from_text(cls, text: bytes) -> Specification:
        """The only one that the text of a file (.hds) holds; ValueError when it is not one."""
        found = _designspec.from_text(text, "text")
        if len(found) != 1:
            raise ValueError(f"the text holds {len(found)} specifications")
        return cls._of(found[0])

    def to_text(self) -> bytes:
        """The text of a file (.hds) that holds it alone."""
        return self._core.text()

    @property
    def name(self) -> str:
        """Its name. One of a library is renamed by Library.rename."""
        return self._core.name()

    @name.setter
    def name(self, name: str) -> None:
        self._core.set_name(name)

    @property
    def id(self) -> str:
        """Its identity, a GUID."""
        return self._core.id()

    def get(self, path: str) -> Any:
        """A value by its path, as the command designspec takes it:
        CircularCurveRad.SuperelevationMinRad[80]. None when there is no such row."""
        return self._core.get(path)

    def set(self, path: str, value: Any) -> None:
        """Sets a value by its path; rows that are missing on the way are added."""
        if isinstance(value, bool):
            value = int(value)
        self._core.set(path, str(value))

    def copy(self) -> Specification:
        """A copy, of the same identity."""
        return self._of(self._core.copy())

    def findings(self) -> List[Finding]:
        """What is wrong or odd in it."""
        return [Finding(*one) for one in self._core.findings()]

    def to_dict(self) -> Dict[str, Dict[str, Any]]:
        """All criteria."""
        return {name: getattr(self, name).to_dict() for name in FIELDS}

    def __reduce__(self) -> Tuple[Any, Tuple[bytes]]:
        return Specification.from_text, (self.to_text(),)

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Specification) and self._core.same(other._core)

    __hash__ = None  # type: ignore[assignment]

    def __repr__(self) -> str:
        return f"<Specification {self.name}>"

    def _repr_html_(self) -> str:
        parts = [f"<h3>{escape(self.name)}</h3>"]
        for _, title, limits, tables, sources in self._core.pages():
            parts.append(f"<details><summary>{escape(title)}</summary>")
            for caption, text in [*limits, *sources]:
                parts.append(f"<div>{escape(caption)}: {escape(text)}</div>")
            parts += [table_repr(*table) for table in tables]
            parts.append("</details>")
        return "".join(parts)


def read(path: Union[str, os.PathLike[str]]) -> List[Specification]:
    """Those that a file (.hds) or a project's folder holds. FileError when one cannot be read."""
    return [Specification._of(one) for one in _designspec.from_file(os.fspath(path))]


__all__ = ["FIELDS", "MODES", "Criterion", "Finding", "Specification", "read"]
