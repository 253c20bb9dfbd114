"""What goes wrong, as exceptions."""

from __future__ import annotations

from dataclasses import dataclass
from typing import Any, Sequence, Tuple


@dataclass(frozen=True)
class Problem:
    """What went wrong with a file, or is odd about it."""

    is_error: bool
    """False: worth knowing, nothing is missing."""
    file: str
    """Empty: no file is meant."""
    line: int
    """From 1; 0: the file as a whole."""
    text: str

    def __str__(self) -> str:
        place = f"{self.file}:{self.line}" if self.line else self.file
        return f"{place}: {self.text}" if place else self.text


class Error(Exception):
    """The base of what this package raises."""


class FileError(Error, OSError):
    """A file could not be read or written, or not whole."""

    def __init__(self, problems: Sequence[Tuple[bool, str, int, str]]) -> None:
        self.problems = [Problem(*one) for one in problems]
        errors = [one for one in self.problems if one.is_error]
        first = errors[0] if errors else Problem(True, "", 0, "")
        #: The first error's file, line (0: the file as a whole) and cause.
        self.file = first.file
        self.line = first.line
        self.cause = first.text
        self._given = tuple(tuple(one) for one in problems)
        super().__init__("\n".join(str(one) for one in errors))

    def __reduce__(self) -> Tuple[Any, ...]:
        return FileError, (self._given,)


class RefusedError(Error, ValueError):
    """A value, a name or a path that the editor would not take either; nothing was changed."""


class NotFoundError(Error, KeyError):
    """There is no specification of that name or identity."""

    def __str__(self) -> str:
        return f"没有设计规范“{self.args[0]}”"
