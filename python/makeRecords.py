#!/usr/bin/env python3
"""Writes vxscene/records.py, the classes for what the program prints as JSON, from the schemas in docs/schema.

makeRecords.py          writes it
makeRecords.py --check  only compares; exit status 1 when the file differs
"""
import json
import keyword
import pathlib
import re
import sys
import textwrap

ROOT = pathlib.Path(__file__).resolve().parent.parent
TARGET = ROOT / "python/vxscene/records.py"
SCHEMAS = {path.name: json.loads(path.read_text()) for path in (ROOT / "docs/schema").glob("*.schema.json")}

# Class, and where its schema stands; a class comes after those that its members have.
CLASSES = {
    "ResolvedValue": "job.schema.json#/$defs/resolvedValue",
    "OutputFile": "job.schema.json#/$defs/channel",
    "NamedText": "job.schema.json#/$defs/namedText",
    "JobRecord": "job.schema.json",
    "FrameRange": "explain.schema.json#/$defs/frameRange",
    "Variable": "explain.schema.json#/$defs/variable",
    "Camera": "explain.schema.json#/$defs/camera",
    "Lop": "explain.schema.json#/$defs/lop",
    "UsdRenderSettings": "explain.schema.json#/$defs/usdRenderSettings",
    "WedgeChannel": "explain.schema.json#/$defs/wedgeChannel",
    "Wedge": "explain.schema.json#/$defs/wedge",
    "Facts": "explain.schema.json#/$defs/facts",
    "Section": "explain.schema.json#/$defs/section",
    "NotRecognised": "explain.schema.json#/$defs/notRecognised",
    "SceneWarning": "explain.schema.json#/$defs/warning",
    "Value": "values.schema.json#/$defs/value",
    "Faults": "files.schema.json#/$defs/disk/properties/faults",
    "Disk": "files.schema.json#/$defs/disk",
    "FileSet": "files.schema.json#/$defs/set",
    "ChangedField": "diff.schema.json#/$defs/field",
    "ChangedJob": "diff.schema.json#/$defs/changed",
}
# Members of the program's format itself, of no use in Python.
LEFT_OUT = {"JobRecord": ["structureIDs"]}
TYPES = {"string": "str", "integer": "int", "number": "float", "boolean": "bool", "null": "None"}

HEAD = '''"""What the program vxscene prints of scenes, as classes: made from docs/schema by makeRecords.py.

Texts, units and capacities are those of the program's JSON. A member that the program left out is None, or empty.
"""

from __future__ import annotations

from dataclasses import dataclass
from typing import Any, ClassVar

from .decoding import Members, Record
'''


def schema_at(place):
    name, _, path = place.partition("#")
    found = SCHEMAS[name]
    for key in path.split("/")[1:]:
        found = one_of(found[key])
    return found


def one_of(schema):
    """Of an object that may have one of several forms: the members of all, none of which has to be there."""
    if not all("properties" in form for form in schema.get("oneOf", [{}])):
        return schema
    members = {name: member for form in schema["oneOf"] for name, member in form["properties"].items()}
    return {**schema, "properties": members, "required": []}


def place_of(reference, schema_file):
    return schema_file + reference if reference.startswith("#") else reference


def python_name(name):
    """imageDir -> image_dir, waitForPreIDs -> wait_for_pre_ids, from -> from_"""
    words = re.sub(r"(?<=[a-z0-9])(?=[A-Z])", "_", name.replace("IDs", "Ids").replace("ID", "Id")).lower()
    return words + "_" if keyword.iskeyword(words) else words


def class_at(place):
    return next((name for name, at in CLASSES.items() if at == place), None)


class Member:
    """A member of a class: its type in Python, its default, and how it is read from JSON."""

    def __init__(self, name, class_place, is_required):
        self.name, self.python, self.is_required = name, python_name(name), is_required
        place = f"{class_place}/properties/{name}"
        described = schema_at(place)
        while "$ref" in schema_at(place) and class_at(place) is None:
            place = place_of(schema_at(place)["$ref"], place.partition("#")[0])
        self.meaning = {**schema_at(place), **described}.get("description") or schema_at(place)["title"]
        self.reader = "None"
        self.type = self.type_of(place)
        self.is_list = self.type.startswith("tuple")
        if not is_required and not self.is_list:
            self.type += " | None"

    def type_of(self, place):
        known, schema = class_at(place), schema_at(place)
        if known:
            self.reader = known
            return known
        if "$ref" in schema:
            return self.type_of(place_of(schema["$ref"], place.partition("#")[0]))
        types = schema.get("type", "boolean" if schema.get("const") is True else "string")  # of an enum: words
        if isinstance(types, list):
            return "Any" if "array" in types else " | ".join(TYPES[each] for each in types)
        return f"tuple[{self.type_of(place + '/items')}, ...]" if types == "array" else TYPES[types]

    def default(self):
        return "" if self.is_required else " = ()" if self.is_list else " = None"

    def line(self):
        return f"    {self.python}: {self.type}{self.default()}"

    def row(self):
        return f'        "{self.name}": ("{self.python}", {self.reader}),'


def wrapped(text, indent, more=""):
    return textwrap.fill(text, 116, initial_indent=indent, subsequent_indent=indent + more, break_long_words=False)


def class_text(name, place):
    schema = schema_at(place)
    required = schema.get("required", [])
    members = [
        Member(key, place if "#" in place else place + "#", key in required)
        for key in schema["properties"]
        if key not in LEFT_OUT.get(name, [])
    ]
    members.sort(key=lambda member: not member.is_required)  # those with a default have to come last
    what = f"{schema['title']}. {schema.get('description', '')}".strip()
    lines = ["", "", "@dataclass(frozen=True)", f"class {name}(Record):", wrapped(f'"""{what}', "    "), ""]
    lines += [wrapped(f"{member.python}: {member.meaning}", "    ", "    ") for member in members]
    lines += ['    """', ""] + [member.line() for member in members]
    lines += ["", "    _members: ClassVar[Members] = {"]
    return "\n".join(lines + [member.row() for member in members] + ["    }", ""])


def main():
    text = HEAD + "".join(class_text(*each) for each in CLASSES.items())
    if sys.argv[1:] == ["--check"]:
        if TARGET.read_text() != text:
            sys.exit(f"{TARGET.relative_to(ROOT)} is not what python/makeRecords.py makes of docs/schema; run it.")
    else:
        TARGET.write_text(text)


main()
