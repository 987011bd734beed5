#!/usr/bin/env python3
"""Holds what vxscene exports as templates and specifications against the engines' schemas and the rules beside them.

Usage: formats.py ROOT VXSCENE [--write], which makes the golden files anew.
"""
import copy
import json
import os
import pathlib
import re
import subprocess
import sys
import unittest
import xml.etree.ElementTree as ElementTree

from jsonschema import Draft7Validator

ROOT, VXSCENE = pathlib.Path(sys.argv[1]).resolve(), sys.argv[2]
GOLDEN = pathlib.Path(__file__).parent / "golden"
SCHEMAS = ROOT / "../shared/engines"
TEMPLATE_SCHEMA, DOCUMENT_TYPE = SCHEMAS / "jobtemplate-2023-09.schema.json", SCHEMAS / "cjsl-1.15.dtd"
EXAMPLES = [ROOT / "examples/turntable.hip", ROOT / "examples/turntable_unfinished.hip"]
REAL_SCENES = sorted((ROOT / "../shared/scenes").glob("*.hip*"))
FORMATS = {"openjd": ".json", "opencue": ".xml"}
ENVIRONMENT = {**os.environ, "USER": "artist", "SHOW": "kettle", "SHOT": "shot010", "XDG_CONFIG_HOME": "/nowhere"}


def exported(scene, form, *options):
    command = [VXSCENE, "export", "--to", form, "--skip-invalid", *options, scene]
    return subprocess.run(command, env=ENVIRONMENT, capture_output=True, timeout=120).stdout


def is_ascending(first, last, step):
    return last is None or (int(first) <= int(last) and (step is None or int(step) >= 1))


RANGE = r"(-?\d+)(?:-(-?\d+)(?:%s(-?\d+))?)?"


def range_fault(text, step_mark):
    found = re.fullmatch(RANGE % step_mark, text)
    return [] if found and is_ascending(*found.groups()) else [f"range {text}"]


def template_faults(template):
    """The rules of templates that no schema holds."""
    faults, earlier = [], set()
    for step in template["steps"]:
        waits = [entry["dependsOn"] for entry in step.get("dependencies", [])]
        faults += [f"depends on {name}" for name in waits if name not in earlier]  # so there is no cycle
        faults += ["the same name or wait twice"] * (step["name"] in earlier or len(set(waits)) < len(waits))
        earlier.add(step["name"])
        parameters = step["parameterSpace"]["taskParameterDefinitions"]
        files = step["script"]["embeddedFiles"]
        scope = {f"{{{{Task.Param.{entry['name']}}}}}" for entry in parameters}
        scope |= {f"{{{{Task.File.{entry['name']}}}}}" for entry in files}
        for parameter in parameters:
            faults += range_fault(parameter["range"], ":")
        action = step["script"]["actions"]["onRun"]
        for text in [action["command"], *action["args"]]:
            values = re.findall(r"\{\{.*?\}\}", text)
            rest = re.sub(r"\{\{.*?\}\}", "", text)
            if not set(values) <= scope or re.search(r"\{\{|\}\}|\n", rest):
                faults.append(f"argument {text}")
        faults += ["braces in a file" for entry in files if re.search(r"\{\{|\}\}", entry["data"])]
    if not re.fullmatch(r"[^\x00-\x1f\x7f-\x9f{}]{1,128}", template["name"]):
        faults.append("name")
    return faults


def specification_faults(spec):
    """The rules of specifications that no document type holds."""
    faults, job = [], spec.find("job")
    names = [layer.get("name") for layer in job.iter("layer")]
    faults += ["the same layer twice"] * (len(set(names)) < len(names))
    faults += [f"name {name}" for name in [*names, job.get("name")] if not re.fullmatch(r"[\w.-]{3,}", name)]
    faults += ["root"] * (spec.findtext("uid") == "0" or spec.findtext("user") == "root")
    for layer in job.iter("layer"):
        faults += ["empty cmd"] * (not layer.findtext("cmd").strip())
        faults += range_fault(layer.findtext("range"), "x")
        faults += ["chunk"] * (int(layer.findtext("chunk")) < 1)
    for depend in spec.iter("depend"):
        on = [depend.findtext(name) for name in ("deplayer", "onlayer")]
        if on[0] == on[1] or not set(on) <= set(names) or {depend.findtext("depjob"),
                                                          depend.findtext("onjob")} != {job.get("name")}:
            faults.append(f"depend {on}")
    return faults


def spoilt(change):
    def change_copy(document):
        document = copy.deepcopy(document)
        change(document)
        return document
    return change_copy


def first_range(step):
    return step["parameterSpace"]["taskParameterDefinitions"][0]


# What each rule is there for: a sound document with one fault.
SPOILT_TEMPLATES = [
    spoilt(lambda t: t["steps"][1].update(name=t["steps"][0]["name"])),
    spoilt(lambda t: t["steps"][0].update(dependencies=[{"dependsOn": t["steps"][0]["name"]}])),
    spoilt(lambda t: t["steps"][0].update(dependencies=[{"dependsOn": "nobody"}])),
    spoilt(lambda t: first_range(t["steps"][0]).update(range="10-1:1")),
    spoilt(lambda t: first_range(t["steps"][0]).update(range="1-10:0")),
    spoilt(lambda t: t["steps"][0]["script"]["actions"]["onRun"]["args"].append("{{Param.Frame}}")),
    spoilt(lambda t: t["steps"][0]["script"]["embeddedFiles"][0].update(data="{{")),
    spoilt(lambda t: t.update(name="a" * 129)),
]
SPOILT_SPECIFICATIONS = [
    spoilt(lambda s: [layer.set("name", "layer") for layer in s.iter("layer")]),
    spoilt(lambda s: setattr(s.find("user"), "text", "root")),
    spoilt(lambda s: setattr(next(s.iter("cmd")), "text", " ")),
    spoilt(lambda s: setattr(next(s.iter("range")), "text", "10-1")),
    spoilt(lambda s: setattr(next(s.iter("range")), "text", "1-10x0")),
    spoilt(lambda s: setattr(next(s.iter("deplayer")), "text", "nobody")),
    spoilt(lambda s: s.find("job").set("name", "ab")),
]


def golden_text(scene, form):
    return exported(scene, form).decode().replace(str(ROOT), "/project")


class Formats(unittest.TestCase):
    def test_examples_are_exported_as_reviewed(self):
        for scene in EXAMPLES:
            for form, ending in FORMATS.items():
                with self.subTest(scene=scene.name, form=form):
                    golden = GOLDEN / (scene.stem + ending)
                    self.assertEqual(golden_text(scene, form), golden.read_text())

    def test_templates_hold_the_rules(self):
        schema = json.loads(TEMPLATE_SCHEMA.read_text()) if TEMPLATE_SCHEMA.is_file() else True
        for scene in [*EXAMPLES, *REAL_SCENES]:
            for options in ([], ["--resolve"], ["--chunk", "7"]):
                text = exported(scene, "openjd", *options)
                with self.subTest(scene=scene.name, options=options):
                    template = json.loads(text) if text else None
                    faults = [fault.message[:300] for fault in Draft7Validator(schema).iter_errors(template)]
                    self.assertEqual([] if template is None else faults + template_faults(template), [])
        sound = json.loads(exported(EXAMPLES[0], "openjd"))
        for number, spoil in enumerate(SPOILT_TEMPLATES):
            self.assertNotEqual(template_faults(spoil(sound)), [], number)
        if schema is True:
            self.skipTest(f"{TEMPLATE_SCHEMA} is not there: held against the rules beside it only")

    def test_specifications_hold_the_rules(self):
        for scene in [*EXAMPLES, *REAL_SCENES]:
            for options in ([], ["--resolve"], ["--chunk", "7"]):
                text = exported(scene, "opencue", *options)
                with self.subTest(scene=scene.name, options=options):
                    if text:
                        self.assertEqual(specification_faults(ElementTree.fromstring(text)), [])
                    if text and DOCUMENT_TYPE.is_file():
                        command = ["xmllint", "--noout", "--nonet", "--dtdvalid", DOCUMENT_TYPE, "-"]
                        checked = subprocess.run(command, input=text, capture_output=True)
                        self.assertEqual((checked.returncode, checked.stderr), (0, b""))
        sound = ElementTree.fromstring(exported(EXAMPLES[0], "opencue"))
        for number, spoil in enumerate(SPOILT_SPECIFICATIONS):
            self.assertNotEqual(specification_faults(spoil(sound)), [], number)
        if not DOCUMENT_TYPE.is_file():
            self.skipTest(f"{DOCUMENT_TYPE} is not there: held against the rules beside it only")


if __name__ == "__main__":
    if "--write" in sys.argv:
        for example in EXAMPLES:
            for name, suffix in FORMATS.items():
                (GOLDEN / (example.stem + suffix)).write_text(golden_text(example, name))
    else:
        unittest.main(argv=sys.argv[:1])
