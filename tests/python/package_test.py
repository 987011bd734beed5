#!/usr/bin/env python3
"""The Python package, with the program that was built: package_test.py ROOT VXSCENE FAKEPLUGIN"""
import contextlib
import os
import pathlib
import re
import signal
import stat
import subprocess
import sys
import tempfile
import unittest
import warnings

ROOT, VXSCENE, FAKE_PLUGIN = pathlib.Path(sys.argv[1]), *sys.argv[2:4]
os.environ["VXSCENE_PROGRAM"] = VXSCENE
sys.path.insert(0, str(ROOT / "python"))

import vxscene  # noqa: E402

EXAMPLE = ROOT / "examples/turntable.hip"
UNFINISHED = ROOT / "examples/turntable_unfinished.hip"
REAL = ROOT.parent / "shared/scenes"


@contextlib.contextmanager
def program(script):
    """A program in the place of vxscene."""
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder, "vxscene")
        path.write_text("#!/bin/sh\n" + script)
        path.chmod(stat.S_IRWXU)
        os.environ["VXSCENE_PROGRAM"] = str(path)
        try:
            yield folder
        finally:
            os.environ["VXSCENE_PROGRAM"] = VXSCENE


def with_fake_plugin():
    """Its scenes crash the load, hold texts that no real scene has, and more."""
    return program(f'command=$1; shift; exec "{VXSCENE}" "$command" --plugin "{FAKE_PLUGIN}" "$@"\n')


class Package(unittest.TestCase):
    def test_a_scene_says_what_the_program_says(self):
        for resolve in (False, True):
            scene = vxscene.load(EXAMPLE, resolve=resolve)
            options = ["--resolve"] if resolve else []
            command = [VXSCENE, "jobs", *options, "--wide", "--columns", "driver,frames,output", EXAMPLE]
            table = subprocess.run(command, capture_output=True, check=True, text=True).stdout
            self.assertGreater(len(scene.jobs), 10)
            shown = re.sub(r"\s+", "", table)
            for job in scene.jobs:
                self.assertIn((job.driver + job.frames + job.output).replace(" ", ""), shown)
            self.assertTrue(scene.ok)
        self.assertEqual(vxscene.load(EXAMPLE, arguments=["-houdiniBuildVersion", "50000"]).jobs[0].app_version_minor[:1], "5")

    def test_explanation_values_and_differences(self):
        scene = vxscene.load(UNFINISHED)
        self.assertIn("relativePath", [warning.code for warning in scene.warnings])
        self.assertEqual(scene.facts.frame_range.end, 1100)
        self.assertTrue(any(section.outcome == "none" for section in scene.explanation.sections))
        (first, *_) = [value for value in scene.values("/out/beauty", driven=True)]
        self.assertEqual(first.node, "/out/beauty")
        with self.assertRaises(vxscene.ProgramError):
            scene.values("/out/nobody")
        diff = vxscene.diff(EXAMPLE, UNFINISHED)
        self.assertTrue(diff and diff.came and diff.went and diff.changed[0].fields[0].name)
        self.assertFalse(vxscene.diff(EXAMPLE, EXAMPLE))

    def test_files_and_exports(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder, "a.hip")
            path.write_bytes(EXAMPLE.read_bytes())
            scene = vxscene.load(path)
            sets = scene.files(missing=True)
            known = [each for each in sets if each.disk]
            self.assertEqual({each.job for each in sets}, set(range(1, len(scene.jobs) + 1)))
            self.assertTrue(known[0].disk.folder_missing and known[0].disk.faults.absent == known[0].frames)
            self.assertIn("sbatch", vxscene.export(scene, to="slurm", frames="1001-1002", jobs="1,2"))
            text = vxscene.export(path, to="shell", missing=True)
            self.assertIn("1001", text)
            table = pathlib.Path(folder, "none.toml")
            with self.assertRaisesRegex(vxscene.ProgramError, "none.toml"):
                vxscene.export(scene, to="shell", commands=table)
            path.unlink()
            with self.assertRaises(vxscene.SceneError):
                scene.files()

    def test_failures_are_told_and_do_not_stop_a_scan(self):
        with tempfile.TemporaryDirectory() as folder:
            foreign, cut, empty = (pathlib.Path(folder, name) for name in ("foreign.hip", "cut.hip", "empty"))
            foreign.write_text("hello")
            cut.write_bytes(EXAMPLE.read_bytes()[:20000])
            empty.mkdir()
            with self.assertRaises(vxscene.SceneError) as caught:
                vxscene.load(foreign)
            self.assertEqual((caught.exception.code, caught.exception.scene), (-6, str(foreign)))
            with warnings.catch_warnings(record=True) as told:
                warnings.simplefilter("always")
                scenes = list(vxscene.scan([foreign, cut, empty, folder + "/none.hip", EXAMPLE], timeout=60))
            self.assertEqual([scene.ok for scene in scenes], [False, False, False, True])
            self.assertIn("cut off", repr(scenes[1]))
            self.assertEqual([type(warning.message) for warning in told], [vxscene.VxsceneWarning])
            self.assertIn(str(empty), str(told[0].message))

    def test_crashes_and_hostile_texts_stay_outside(self):
        with with_fake_plugin() as folder:
            scenes = list(vxscene.scan([f"{folder}/{name}" for name in ("aborts", "hostileTexts", "exportPair")]))
            self.assertEqual([scene.code for scene in scenes], [-2, 1, 1])
            page = scenes[1]._repr_html_()
            self.assertEqual(set(re.findall(r"</?([^>\s]+)", page)), {"p", "b", "table", "thead", "tbody", "tr", "th", "td"})

    def test_a_program_that_misbehaves(self):
        for script, error in [
            ("echo '{\"formatVersion\": 2}'", vxscene.FormatError),
            ("echo 'vxscene: no plug-in' >&2; exit 3", vxscene.ProgramError),
            ("echo '{\"formatVer'", vxscene.FormatError),
            ("exit 0", vxscene.ProgramError),
            ("kill -SEGV $$", vxscene.ProgramError),
        ]:
            with self.subTest(script), program(script), self.assertRaises(error):
                vxscene.load(EXAMPLE)
        os.environ["VXSCENE_PROGRAM"] = "/nowhere/vxscene"
        with self.assertRaises(vxscene.ProgramNotFound):
            vxscene.load(EXAMPLE)
        os.environ["VXSCENE_PROGRAM"] = VXSCENE

    def test_whoever_stops_early_ends_the_program(self):
        with program('echo $$ >"$(dirname "$0")/pid"\nexec "%s" jobs --format jsonl "%s" /dev/stdin' % (VXSCENE, EXAMPLE)):
            scenes = vxscene.scan([EXAMPLE])
            next(scenes)
            pid = int(pathlib.Path(os.environ["VXSCENE_PROGRAM"]).with_name("pid").read_text())
            scenes.close()
            with self.assertRaises(ProcessLookupError):
                os.kill(pid, signal.SIGCONT)

    def test_examples(self):
        def run(name, *words):
            environment = {**os.environ, "PYTHONPATH": str(ROOT / "python")}
            command = [sys.executable, "-B", ROOT / "python/examples" / name, *words]
            return subprocess.run(command, capture_output=True, text=True, env=environment)

        self.assertEqual(run("preSubmit.py", EXAMPLE).returncode, 0)
        refused = run("preSubmit.py", UNFINISHED)
        self.assertEqual((refused.returncode, refused.stdout.count("is relative")), (1, 1))
        self.assertEqual(run("showTable.py", ROOT / "examples").stdout.count("turntable"), 2)
        with tempfile.TemporaryDirectory() as folder:
            scene, database = pathlib.Path(folder, "a.hip"), folder + "/jobs.db"
            marks = []
            for version in (EXAMPLE, EXAMPLE, UNFINISHED):
                scene.write_bytes(version.read_bytes())
                marks.append({line[0] for line in run("nightlyScan.py", database, folder).stdout.splitlines()})
            self.assertEqual(marks, [{"+"}, set(), {"+", "-", "~"}])

    @unittest.skipUnless(REAL.is_dir(), "the folder of real scenes is not there")
    def test_real_scenes(self):
        scenes = list(vxscene.scan([REAL], resolve=True))
        self.assertGreater(len(scenes), 20)
        self.assertTrue(all(scene.ok and scene.explanation.facts for scene in scenes))


unittest.main(argv=sys.argv[:1])
