#!/usr/bin/env python3
"""Holds what vxscene prints as JSON against docs/schema, and the schemas against their own rules.

Usage: schemas.py ROOT VXSCENE FAKEPLUGIN, which is the one in tests/host.
"""
import json
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

from jsonschema import Draft202012Validator, RefResolver

ROOT, VXSCENE, FAKE_PLUGIN = pathlib.Path(sys.argv[1]), *sys.argv[2:4]
FOLDER = ROOT / "docs/schema"
EXAMPLE = ROOT / "examples/turntable.hip"
UNFINISHED = ROOT / "examples/turntable_unfinished.hip"  # explained, it has an entry in every list
SCHEMAS = {path.name: json.loads(path.read_text()) for path in FOLDER.glob("*.schema.json")}
STORE = {f"{FOLDER.as_uri()}/{name}": schema for name, schema in SCHEMAS.items()}

# How many scenes a command with JSON output takes at a time; each has the schema of its name.
SCENES_AT_A_TIME = {"info": 0, "jobs": 1, "vars": 1, "explain": 1, "values": 1, "files": 1, "diff": 2}

# Texts, codes and ends that no real scene has; the fake plug-in knows them by these names.
FAKE_SCENES = ["exportPair", "hostileTexts", "noJobs", "cannotOpen", "noUsableOutput", "jobThenNoMore", "aborts", "exits"]


def text_of(*arguments):
    return subprocess.run([VXSCENE, *arguments], capture_output=True, timeout=120).stdout.decode()


def formats_of(command):
    """The JSON formats that the command's help offers."""
    offered = re.search(r"^ *(?:-\w,)?--format .*$", text_of(command, "--help"), re.MULTILINE)
    return re.findall(r"\bjsonl?\b", offered.group() if offered else "")


def json_commands():
    listed = text_of("--help").partition("Commands:\n")[2].partition("\n\n")[0]
    return {command: formats_of(command) for command in re.findall(r"^  (\w+)", listed, re.MULTILINE)}


def printed(command, form, *arguments):
    text = text_of(command, "--format", form, *arguments)
    documents = text.splitlines() if form == "jsonl" else [text]
    return [entry for document in documents if document for entry in as_list(json.loads(document))]


def as_list(parsed):
    return parsed if isinstance(parsed, list) else [parsed]


def faults(command, document):
    name = f"{command}.schema.json"
    resolver = RefResolver(f"{FOLDER.as_uri()}/{name}", SCHEMAS[name], store=STORE)
    validator = Draft202012Validator(SCHEMAS[name], resolver=resolver)
    return [f"{fault.json_path}: {fault.message[:300]}" for fault in validator.iter_errors(document)]


def scenes(folder):
    """The example, spoilt variants of it, odd ones, one that is not there, and the real ones where they are."""
    subprocess.run([sys.executable, ROOT / "scripts/support/oddScenes.py", EXAMPLE, folder, "6"], check=True)
    (folder / "empty.hip").touch()
    (folder / "manyNames.hip").write_bytes(b"out/a.parm {\n" + b"vm_picture\t(a\n" * 150)  # explained, it is cut
    real = sorted((ROOT / "../shared/scenes").glob("*.hip*"))
    return [EXAMPLE, UNFINISHED, *sorted(folder.glob("*.hip")), folder / "missing.hip", folder, *real]


def argument_lists(command, made):
    count = SCENES_AT_A_TIME[command]
    takes_plugin = "--plugin" in text_of(command, "--help")
    fake = [f"/{name}.hip" for name in FAKE_SCENES] if takes_plugin else []
    if count == 0:
        return [[], ["--plugin", FAKE_PLUGIN]]
    if count == 2:  # each scene once as the old one, once as the new one
        return [[made[0], scene] for scene in made] + [["--plugin", FAKE_PLUGIN, fake[0], scene] for scene in fake]
    if command == "values":  # all values of real scenes are too many
        return [[EXAMPLE]] + [[option, scene] for option in ("--driven", "--check") for scene in made]
    if command == "files":
        return [[*options, scene] for options in ([], ["--missing", "--resolve"]) for scene in made]
    filters = [["--only", "missing"], ["--driver", "*a*", "--reader", "driver"]] if command == "explain" else []
    filtered = [[*options, UNFINISHED] for options in filters]
    plain = [[scene] for scene in made] + filtered + [["--plugin", FAKE_PLUGIN, scene] for scene in fake]
    return plain + [["--resolve", scene] for scene in made if command != "vars"]


def objects_in(schema, path="#"):
    """All parts of a schema that describe something, with their place."""
    if isinstance(schema, dict):
        yield path, schema
        for key, value in schema.items():
            yield from objects_in(value, f"{path}/{key}")
    elif isinstance(schema, list):
        for index, value in enumerate(schema):
            yield from objects_in(value, f"{path}/{index}")


class Schemas(unittest.TestCase):
    def test_are_valid_strict_and_told_in_words(self):
        for name, schema in SCHEMAS.items():
            Draft202012Validator.check_schema(schema)
            for path, part in objects_in(schema):
                with self.subTest(schema=name, part=path):
                    if part.get("type") == "object":
                        self.assertIs(part.get("additionalProperties"), False)
                    if re.search(r"/properties/\w+$", path) and "/allOf/" not in path and "/if/" not in path:
                        self.assertTrue({"title", "description"} <= part.keys() or "$ref" in part)
        job = SCHEMAS["job.schema.json"]
        self.assertEqual([name for name in job["properties"] if name != "resolved"], job["required"])
        added = {"waitsFor", "frames", "output", "resolved"}  # no fields of the record
        self.assertEqual(set(job["properties"]) - added, set(job["$defs"]["fieldName"]["enum"]))

    def test_hold_for_all_that_the_program_prints(self):
        commands = json_commands()
        self.assertIn("jobs", commands)
        with tempfile.TemporaryDirectory() as name:
            made = scenes(pathlib.Path(name))
            for command, formats in commands.items():
                if formats:
                    self.assertIn(command, SCENES_AT_A_TIME, "a command prints JSON that no schema is held against")
                for form in formats:
                    self.hold_for(command, form, argument_lists(command, made))

    def hold_for(self, command, form, arguments):
        for line in arguments:
            documents = printed(command, form, *line)
            with self.subTest(command=command, form=form, line=line):
                self.assertTrue(documents or command in ("diff", "values"))  # of scenes that failed: nothing
                for document in documents:
                    self.assertEqual(faults(command, document), [])
                    self.assertNotEqual(faults(command, {**document, "more": 1}), [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
