#!/usr/bin/env python3
"""Holds what vxscene exports as templates and job files against the engines' schemas and the rules beside them.

Usage: formats.py ROOT VXSCENE
"""
import copy
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

from jsonschema import Draft7Validator

ROOT, VXSCENE = pathlib.Path(sys.argv[1]).resolve(), sys.argv[2]
SCHEMAS = ROOT / "../shared/engines"
TEMPLATE_SCHEMA, DOCUMENT_TYPE = SCHEMAS / "jobtemplate-2023-09.schema.json", SCHEMAS / "cjsl-1.15.dtd"
EXAMPLES = [ROOT / "examples/turntable.hip", ROOT / "examples/turntable_unfinished.hip"]
SCENES = [*EXAMPLES, *sorted((ROOT / "../shared/scenes").glob("*.hip*"))]
FORMATS = ["openjd", "opencue"]
ENVIRONMENT = {**os.environ, "USER": "artist", "SHOW": "kettle", "SHOT": "shot010", "XDG_CONFIG_HOME": "/nowhere"}

# One word each, of a command and of the environment. None of them may be taken for anything else.
HOSTILE = ["it's a \"b\"", "; exit 1; #", "$(id)`id`$HOME", "a\nb\n", "]]><cmd>&amp;", " ends ", "#IFRAME##LAYER#",
           "#FRAME_START#A#JOB#", "%s\\n\\", "{ {a} }", "-n", "", "*?[a]~!", "ü€🎬", "\ta", "<!--x--><![CDATA[", "A=b"]

# What a format cannot hold: a word, and how the engine's reason begins; empty: it can.
REFUSED = [("{{Param.A}}", {"openjd": "\"{{\" or \"}}\"", "opencue": ""}),
           ("a}}", {"openjd": "\"{{\" or \"}}\"", "opencue": ""}),
           ("a\x1b", {"openjd": "", "opencue": "control characters"}),
           ("a\rb", {"openjd": "", "opencue": "control characters"})]

# Options, then the frames of the first example's first job in both formats, and of its last task.
RANGES = [("--frames 1001-1001", "1001", "1001", 1001, 1001),
          ("--frames 1001-1095", "1001-1091:10", "1001-1095", 1091, 1095),
          ("--frames 1001-1021x2 --chunk 4", "1001-1017:8", "1001-1021x2", 1017, 1021),
          ("--chunk 1", "1001-1100", "1001-1100", 1100, 1100),
          ("--chunk 500", "1001", "1001-1100", 1001, 1100)]


def run_export(scene, form, *options, **variables):
    command = [VXSCENE, "export", "--to", form, *options, scene]
    return subprocess.run(command, env={**ENVIRONMENT, **variables}, capture_output=True, timeout=120)


def exported(scene, form, *options):
    text = run_export(scene, form, "--skip-invalid", *options).stdout
    return text and (json.loads(text) if form == "openjd" else ElementTree.fromstring(text))


def parameter_of(step):
    return step["parameterSpace"]["taskParameterDefinitions"][0]


def range_fault(text, step_mark):
    found = re.fullmatch(rf"(-?\d+)(?:-(-?\d+)(?:{step_mark}(-?\d+))?)?", text)
    first, last, step = found.groups() if found else (1, 0, None)
    return [] if int(last or first) >= int(first) and int(step or 1) >= 1 else [f"range {text}"]


def template_faults(template):
    """The rules of templates that no schema holds."""
    faults, earlier = [], set()
    for step in template["steps"]:
        waits = [entry["dependsOn"] for entry in step.get("dependencies", [])]
        faults += [f"depends on {name}" for name in waits if name not in earlier]  # so there is no cycle
        faults += ["a name or a wait twice"] * (step["name"] in earlier or len(set(waits)) < len(waits))
        earlier.add(step["name"])
        file, action = step["script"]["embeddedFiles"][0], step["script"]["actions"]["onRun"]
        scope = f"{{{{Task.Param.{parameter_of(step)['name']}}}}}", f"{{{{Task.File.{file['name']}}}}}"
        for text in [action["command"], *action["args"], file["data"].replace("\n", " "), template["name"]]:
            rest = text.replace(scope[0], "").replace(scope[1], "")
            faults += [f"values or lines in {text}"] * bool(re.search(r"\{\{|\}\}|\n", rest))
        faults += range_fault(parameter_of(step)["range"], ":")
    return faults + ["name"] * (not re.fullmatch(r"[^\x00-\x1f\x7f-\x9f]{1,128}", template["name"]))


def job_file_faults(spec):
    """The rules of job files that no document type holds."""
    job, names = spec.find("job"), [layer.get("name") for layer in spec.iter("layer")]
    faults = ["the same layer twice"] * (len(set(names)) < len(names))
    faults += [f"name {name}" for name in [*names, job.get("name")] if not re.fullmatch(r"[\w.-]{3,}", name)]
    faults += ["root"] * (spec.findtext("uid") == "0" or spec.findtext("user") == "root")
    for layer in job.iter("layer"):
        faults += ["empty cmd"] * (not layer.findtext("cmd").strip())
        faults += range_fault(layer.findtext("range"), "x") + ["chunk"] * (int(layer.findtext("chunk")) < 1)
    for depend in spec.iter("depend"):
        layers, jobs = ([depend.findtext(name) for name in pair]
                        for pair in (("deplayer", "onlayer"), ("depjob", "onjob")))
        if len(set(layers)) != 2 or not set(layers) <= set(names) or set(jobs) != {job.get("name")}:
            faults.append(f"depend {layers} {jobs}")
    return faults


# Changes of a sound document, each against one rule.
SPOIL_TEMPLATE = [
    lambda t: t["steps"][1].update(name=t["steps"][0]["name"]),
    lambda t: t["steps"][0].update(dependencies=[{"dependsOn": t["steps"][0]["name"]}]),
    lambda t: parameter_of(t["steps"][0]).update(range="10-1:1"),
    lambda t: parameter_of(t["steps"][0]).update(range="1-10:0"),
    lambda t: t["steps"][0]["script"]["actions"]["onRun"]["args"].append("{{Param.Frame}}"),
    lambda t: t.update(name="a" * 129),
]
SPOIL_JOB_FILE = [
    lambda s: [layer.set("name", "layer") for layer in s.iter("layer")],
    lambda s: setattr(s.find("user"), "text", "root"),
    lambda s: setattr(next(s.iter("cmd")), "text", " "),
    lambda s: setattr(next(s.iter("range")), "text", "1-10x0"),
    lambda s: setattr(next(s.iter("deplayer")), "text", "nobody"),
]


def run_task(document, first, last):
    """What the first step's task prints in a shell, as its engine would run it."""
    environment = dict(ENVIRONMENT)
    if isinstance(document, dict):
        line = document["steps"][0]["script"]["embeddedFiles"][0]["data"]
    else:
        layer = next(document.iter("layer"))
        environment.update({key.get("name"): key.text for key in layer.iter("key")})
        line = layer.findtext("cmd").replace("#FRAME_START#", str(first)).replace("#FRAME_END#", str(last))
        line = re.sub("#(IFRAME|ZFRAME|FRAME|LAYER|JOB|FRAMESPEC|FRAME_CHUNK)#", "replaced", line)
    command = ["/bin/sh", "-c", line, "sh", str(first)]
    return subprocess.run(command, env=environment, capture_output=True).stdout.decode().split("\0")[:-1]


class Formats(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.table = pathlib.Path(folder.name) / "commands.toml"

    def write_table(self, texts):
        """A command that prints its words and the environment."""
        names = [f"TEXT{number}" for number in range(len(texts))]
        shown = "printf '%s\\0' \"$@\" " + " ".join(f'"${name}"' for name in names)
        words = [text.replace("[", "[[") for text in texts]
        command = ["/bin/sh", "-c", shown, "sh", *words, "#[First:6]-[Last]x[Step]"]
        settings = ", ".join(f"{name} = {json.dumps(word, ensure_ascii=False)}" for name, word in zip(names, words))
        self.table.write_text(f"[[task]]\napp = \"*\"\nframes-per-task = 10\ncores = 2\nmemory-mb = 8192\n"
                              f"minutes = 90\nlicence = \"houdini\"\nenvironment = {{{settings}}}\n"
                              f"command = {json.dumps(command, ensure_ascii=False)}\n")
        return "--commands", self.table

    def test_tasks_run_every_word_as_it_was_given(self):
        options = ["--jobs", "1", *self.write_table(HOSTILE)]
        for more, parameter, frames, first, last in RANGES:
            template, spec = (exported(EXAMPLES[0], form, *options, *more.split()) for form in FORMATS)
            self.assertEqual(parameter_of(template["steps"][0])["range"], parameter)
            self.assertEqual(spec.findtext(".//range"), frames)
            by = frames.partition("x")[2] or "1"
            for document in (template, spec):
                with self.subTest(options=more, form=type(document)):
                    self.assertEqual(run_task(document, first, last), [*HOSTILE, f"#{first:06}-{last}x{by}", *HOSTILE])

    def test_what_a_format_cannot_hold_is_refused(self):
        for word, reasons in REFUSED:
            options = ["--jobs", "1", *self.write_table([word])]
            for form, reason in reasons.items():
                with self.subTest(word=word, form=form):
                    run = run_export(EXAMPLES[0], form, *options)
                    self.assertEqual((run.returncode, run.stdout == b""), (1, True) if reason else (0, False))
                    self.assertIn(reason and f"job 1 (/out/mantra_beauty): {reason}", run.stderr.decode())
        for user, uid in {"root": None, "nobody": "65534", "no-user-of-this-machine": ""}.items():
            text = run_export(EXAMPLES[0], "opencue", USER=user).stdout
            self.assertEqual(text and ElementTree.fromstring(text).findtext("uid", ""), b"" if uid is None else uid)

    def hold(self, form, schema_faults, rule_faults, spoil_by):
        for scene in SCENES:
            for options in ([], ["--resolve", "--chunk", "1"], self.write_table(HOSTILE)):
                document = exported(scene, form, *options)
                with self.subTest(scene=scene.name, options=options):
                    self.assertEqual(schema_faults(document) + rule_faults(document) if document else [], [])
        for number, spoil in enumerate(spoil_by):
            document = copy.deepcopy(exported(EXAMPLES[0], form))
            spoil(document)
            self.assertNotEqual(rule_faults(document), [], number)

    def test_templates_hold_the_rules(self):
        schema = json.loads(TEMPLATE_SCHEMA.read_text()) if TEMPLATE_SCHEMA.is_file() else True
        validator = Draft7Validator(schema)
        self.hold("openjd", lambda template: [fault.message[:300] for fault in validator.iter_errors(template)],
                  template_faults, SPOIL_TEMPLATE)
        if schema is True:
            self.skipTest(f"{TEMPLATE_SCHEMA} is not there: held against the rules beside it only")

    def test_job_files_hold_the_rules(self):
        def faults(spec):
            command = ["xmllint", "--noout", "--nonet", "--dtdvalid", DOCUMENT_TYPE, "-"]
            checked = subprocess.run(command, input=ElementTree.tostring(spec), capture_output=True)
            return checked.stderr.splitlines()

        self.hold("opencue", faults if DOCUMENT_TYPE.is_file() else lambda spec: [], job_file_faults,
                  SPOIL_JOB_FILE)
        if not DOCUMENT_TYPE.is_file():
            self.skipTest(f"{DOCUMENT_TYPE} is not there: held against the rules beside it only")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
