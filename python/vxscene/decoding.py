"""From the program's JSON to records."""

from __future__ import annotations

from typing import Any, ClassVar, Dict, Mapping, Optional, Tuple, Type, TypeVar

from .errors import FormatError

#: The version of the JSON format that this package reads.
FORMAT_VERSION = 1

#: JSON name -> name in Python, and the class of what it holds, one of them or a list; None: plain values.
Members = Dict[str, Tuple[str, Optional[Type["Record"]]]]

_R = TypeVar("_R", bound="Record")


class Record:
    """Something that the program told in JSON. Members that later programs add are left aside."""

    _members: ClassVar[Members] = {}

    @classmethod
    def from_json(cls: type[_R], told: Mapping[str, Any]) -> _R:
        """The record of a parsed JSON object.

        Raises FormatError where a member is missing that always has to be there.
        """
        known = cls._members
        try:
            return cls(**{known[name][0]: _value(held, known[name][1]) for name, held in told.items() if name in known})
        except TypeError as fault:
            raise FormatError(f"the program's JSON lacks something: {fault}") from fault


def _value(told: Any, reader: type[Record] | None) -> Any:
    if isinstance(told, list):
        return tuple(told) if reader is None else tuple(reader.from_json(each) for each in told)
    return told if reader is None else reader.from_json(told)


def check_version(told: Mapping[str, Any]) -> None:
    """Raises FormatError where the program speaks another version of the format."""
    version = told.get("formatVersion")
    if version != FORMAT_VERSION:
        raise FormatError(f"the program's JSON has format version {version}; this package reads {FORMAT_VERSION}")
