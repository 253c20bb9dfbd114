"""The specifications of one project."""

from __future__ import annotations

import os
from typing import Any, Iterator, List, Mapping, Optional, Sequence, Tuple, Union

from . import _designspec
from ._errors import NotFoundError, Problem
from ._specification import Specification


class Library(Mapping[str, Specification]):
    """The specifications of a project by name (ignoring case) or GUID.

    What it gives are copies: change them, and `save` them. Each library is for one thread at a
    time; different ones know nothing of each other.
    """

    def __init__(self, folder: Union[str, os.PathLike[str]]) -> None:
        """Opens the folder that holds 规范. FileError when there is none; single files that cannot
        be read are left out, and stand in `problems`."""
        self._core = _designspec.Library(os.fspath(folder))

    @property
    def folder(self) -> str:
        """What it was opened with."""
        return self._core.path()

    @property
    def problems(self) -> List[Problem]:
        """What reading had to tell. One error here means that a specification may be missing."""
        return [Problem(*one) for one in self._core.problems()]

    def reload(self) -> None:
        """Reads all files anew."""
        self._core.reload()

    @property
    def default(self) -> Optional[Specification]:
        """A copy of the default one, or None."""
        found = self._core.default()
        return Specification._of(found) if found else None

    def set_default(self, name: str) -> None:
        """Makes one, by its name or GUID, the project's default."""
        self._core.set_default(name)

    def save(self, specification: Specification) -> None:
        """Writes the limits of one that is in the library, by its identity. What it replaces goes
        into the history; what others have written meanwhile is kept among the deleted ones."""
        self._core.save(specification._core)

    def add(self, specification: Specification) -> Specification:
        """Adds a copy with an identity of its own, under a name that is made unique, saves it, and
        gives it back."""
        return Specification._of(self._core.add(specification._core))

    def rename(self, name: str, new_name: str) -> None:
        """Gives one another name, and saves it. RefusedError for a name that another one has, or
        that the editor would not take."""
        self._core.rename(name, new_name)

    def remove(self, name: str) -> None:
        """Sets its file aside, among the deleted ones."""
        self._core.remove(name)

    def import_file(
        self,
        file: Union[str, os.PathLike[str]],
        names: Sequence[str] = (),
        overwrite: bool = False,
    ) -> List[str]:
        """Takes the named specifications of a file, or all, into the library and saves them. The
        names of those that came."""
        return self._core.import_file(os.fspath(file), list(names), overwrite)

    def export_file(
        self, file: Union[str, os.PathLike[str]], names: Sequence[str] = ()
    ) -> None:
        """Writes the named ones, or all, into a file; what else that holds stays in it."""
        self._core.export_file(os.fspath(file), list(names))

    def __getitem__(self, name: str) -> Specification:
        found = self._core.find(name)
        if found is None:
            raise NotFoundError(name)
        return Specification._of(found)

    def __contains__(self, name: object) -> bool:
        return isinstance(name, str) and self._core.find(name) is not None

    def __iter__(self) -> Iterator[str]:
        return iter(self._core.names())

    def __len__(self) -> int:
        return len(self._core.names())

    def __reduce__(self) -> Tuple[Any, ...]:
        return Library, (self.folder,)

    def __repr__(self) -> str:
        return f"<Library {self.folder}: {', '.join(self)}>"
