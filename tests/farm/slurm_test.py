"""Scenes that are submitted to a real Slurm of one node, with stand-ins for the renderers.

Usage: slurm_test.py VXSCENE. Skipped (status 77) where the engine is not installed or this is not root.
"""
import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[1]
sys.path.insert(0, str(ROOT / "examples"))
import makeTurntable
from sceneWriter import START, driver, entry, network, scene

PROGRAM = str(pathlib.Path(sys.argv[1]).resolve())
SKIPPED = 77
RENDERERS = ["hython", "mantra", "kick", "vray", "husk"]
SECONDS_FOR_A_RUN = 60
SECONDS_FOR_ALL = 200  # below the limit of ctest, which would leave the engine running
ENDED = {"COMPLETED", "FAILED", "CANCELLED", "TIMEOUT", "NODE_FAIL", "OUT_OF_MEMORY"}

# What the drivers of examples/turntable.hip write, and what renderers make of it. Every job of a driver is the driver.
TURNTABLE = {
    "/out/mantra_beauty": {"writes": ["ifd/mantra_beauty.%04d.ifd"], "renders": ["render/mantra_beauty.%04d.exr"]},
    "/out/arnold_beauty": {"writes": ["render/arnold_beauty/turntable.%04d.exr"]},
    "/out/redshift_beauty": {"writes": ["render/redshift_beauty.%04d.exr"]},
    "/out/vray_beauty": {
        "writes": ["vrscene/vray_beauty.%04d.vrscene"],
        "renders": ["review/tt010/vray_beauty.%04d.png"],
    },
    "/out/kettle_geometry": {"writes": ["geo/kettle_geometry.%04d.bgeo.sc"]},
    "/out/kettle_alembic": {"writes": ["publish/tt010/kettle.abc"]},
    "/out/mantra_stereo": {"writes": ["render/mantra_stereo.<take>.%04d.exr"]},
    "/out/light_test": {
        "writes": ["review/light_test.%04d.png"],
        "variants": [f"review/light_test_wedge_key_{key}.000000.%04d.png" for key in (2, 4, 6)],
    },
    "/stage/karma1": {"writes": ["render/turntable.karma1.%04d.exr"]},
    "/stage/usdrender_rop1": {"writes": ["usd/usdrender_rop1.%04d.usd"], "renders": ["render/usd/turntable.%04d.exr"]},
}

# Two drivers that export what a renderer reads, and one that does not.
SHOT_FRAMES = range(1, 7)
SHOT = {
    "/out/beauty": {"writes": ["ifd/beauty.%04d.ifd"], "renders": ["render/beauty.%04d.exr"]},
    "/out/fur": {"writes": ["ass/fur.%04d.ass"], "renders": ["render/fur.%04d.exr"]},
    "/out/cache": {"writes": ["geo/cache.%04d.bgeo.sc"]},
}


def shot(_):
    frames = (SHOT_FRAMES[0], SHOT_FRAMES[-1])
    image = "$HIP/render/$OS.$F4.exr"
    ifd = [("soho_outputmode", '"on"'), ("soho_diskfile", "$HIP/ifd/$OS.$F4.ifd"), ("vm_picture", image)]
    ass = [("ar_ass_export_enable", '"on"'), ("ar_ass_file", "$HIP/ass/$OS.$F4.ass"), ("ar_picture", image)]
    drivers = [
        driver("out/beauty", "ifd", ("camera", "/obj/cam1"), *ifd, frames=frames),
        driver("out/fur", "arnold", ("camera", "/obj/cam1"), *ass, frames=frames),
        driver("out/cache", "geometry", ("sopoutput", "$HIP/geo/$OS.$F4.bgeo.sc"), frames=frames),
    ]
    variables = entry(".variables", "set -g ACTIVETAKE = 'Main'\n")
    return b"".join([entry(".start", START), variables, network("out", drivers), entry("TRAILER!!!", "")])


def turntable(folder):
    variables = {**makeTurntable.VARIABLES, "JOB": str(folder)}
    return scene(variables, makeTurntable.OBJECTS, makeTurntable.DRIVERS, makeTurntable.STAGE)


def names(patterns, frames):
    return {pattern % frame if "%" in pattern else pattern for pattern in patterns for frame in frames}


def all_names(drivers, frames):
    patterns = [pattern for outputs in drivers.values() for kind in outputs.values() for pattern in kind]
    return names(patterns, frames)


# The engine.

FOLDER = None  # of everything that the tests write, the engine's folder among it


def setUpModule():
    global FOLDER
    unittest.addModuleCleanup(signal.alarm, 0)
    for number in (signal.SIGALRM, signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, lambda *_: sys.exit("ended before the tests were"))
    signal.alarm(SECONDS_FOR_ALL)
    FOLDER = pathlib.Path(tempfile.mkdtemp(prefix="vxscene-farm-"))
    unittest.addModuleCleanup(shutil.rmtree, FOLDER, ignore_errors=True)
    unittest.addModuleCleanup(subprocess.run, [ROOT / "scripts/slurmDown", FOLDER / "slurm"], check=True)
    subprocess.run([ROOT / "scripts/slurmUp", FOLDER / "slurm"], check=True, stdout=subprocess.DEVNULL)
    os.environ["SLURM_CONF"] = str(FOLDER / "slurm/slurm.conf")


def tasks():
    """Every task that the engine knows, as (number of its array or job, state)."""
    listed = subprocess.run(["squeue", "--json", "--states=all"], check=True, stdout=subprocess.PIPE, timeout=20)
    return [(task["array_job_id"] or task["job_id"], task["job_state"]) for task in json.loads(listed.stdout)["jobs"]]


def wait_until(is_so):
    late = time.monotonic() + SECONDS_FOR_A_RUN
    while not is_so():
        if time.monotonic() > late:
            raise TimeoutError(f"after {SECONDS_FOR_A_RUN} s: {tasks()}")
        time.sleep(0.3)


# Folders whose names say other things to shells, engines and programs, and one of them to Houdini too.
ODD_NAME = "it's \"odd\"; & {{x}} \\ #"
HOSTILE_NAME = "it's \"$(touch harm)\" `touch harm`; %j {{x}} \\ $HOME"


class Farm(unittest.TestCase):
    def setUp(self):
        self.parent = FOLDER / self._testMethodName
        self.programs = self.parent / "programs"
        self.programs.mkdir(parents=True)
        for name in RENDERERS:
            (self.programs / name).symlink_to(HERE / "standIn.py")
        self.log = self.parent / "log"
        self.log.touch()

    def tearDown(self):
        subprocess.run(["scancel", "--user=root"], check=True)
        self.assertEqual([str(path) for path in self.parent.rglob("harm")], [])

    def write_scene(self, make, drivers, name=HOSTILE_NAME):
        self.folder = self.parent / name
        self.folder.mkdir()
        self.scene = self.folder / "shot.hip"
        self.scene.write_bytes(make(self.folder))
        self.scene.with_name("shot.hip.json").write_text(json.dumps(drivers))

    def start_submit(self, *options, **variables):
        path = f"{self.programs}:{os.environ['PATH']}"
        return subprocess.Popen(
            [PROGRAM, "submit", "--to", "slurm", *options, self.scene],
            cwd=self.parent,
            env={**os.environ, "PATH": path, "STAND_IN_LOG": str(self.log), **variables},
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            text=True,
        )

    def end_of(self, run):
        """@return status, output, errors"""
        output, errors = run.communicate(timeout=SECONDS_FOR_A_RUN)
        return run.returncode, output, errors

    def submit(self, *options, **variables):
        """@return the numbers that were printed"""
        status, output, self.errors = self.end_of(self.start_submit(*options, **variables))
        self.assertEqual(status, 0, self.errors)
        return {int(number) for line in output.splitlines() for number in line.split(":")[1].split()}

    def states(self, numbers):
        return [state for number, state in tasks() if number in numbers]

    def wait_for_end(self, numbers):
        wait_until(lambda: set(self.states(numbers)) <= ENDED)

    def logged(self):
        return [json.loads(line) for line in self.log.read_text().splitlines()]

    def written(self):
        """Names within the folder of the scene."""
        files = {str(path.relative_to(self.folder)) for path in self.folder.rglob("*") if path.is_file()}
        return files - {"shot.hip", "shot.hip.json"}

    def assert_nothing_began_early(self):
        end_of = {path: line["end"] for line in self.logged() for path in line["writes"]}
        for line in self.logged():
            for path in line["reads"]:
                self.assertLessEqual(end_of[path], line["begin"], path)

    def test_every_file_of_the_example_is_there_and_nothing_began_early(self):
        self.write_scene(turntable, TURNTABLE)
        self.wait_for_end(numbers := self.submit("--frames", "1001-1012"))
        self.assertEqual(self.errors, "")
        self.assertEqual([line["failed"] for line in self.logged() if line["failed"]], [])
        self.assertEqual(set(self.states(numbers)), {"COMPLETED"})
        frames = range(1001, 1013)
        every25 = {"/out/light_test": TURNTABLE["/out/light_test"]}
        expected = all_names(TURNTABLE, frames) - all_names(every25, frames[1:])
        takes = {name.replace("<take>", take) for name in expected for take in ("", "Main", "closeup")}
        self.assertEqual(self.written(), takes)
        self.assert_nothing_began_early()

    def test_a_frame_that_fails_keeps_its_dependants_from_running_and_no_others(self):
        self.write_scene(shot, SHOT)
        self.wait_for_end(numbers := self.submit("--chunk", "1", STAND_IN_FAILS="/out/beauty 3"))
        self.assertEqual(all_names(SHOT, SHOT_FRAMES) - self.written(), {"ifd/beauty.0003.ifd", "render/beauty.0003.exr"})
        states = self.states(numbers)
        self.assertEqual((states.count("FAILED"), states.count("CANCELLED")), (1, 1))
        self.assertEqual([line["failed"] for line in self.logged() if line["failed"]], ["hython: frame 3 failed"])
        self.assert_nothing_began_early()

    def test_what_was_cancelled_is_submitted_again_for_its_missing_frames_alone(self):
        self.write_scene(shot, SHOT, ODD_NAME)
        expected = all_names(SHOT, SHOT_FRAMES)
        numbers = self.submit("--chunk", "1", STAND_IN_SECONDS="0.5")
        wait_until(lambda: len(self.written()) > 4)
        subprocess.run(["scancel", *map(str, numbers)], check=True)
        self.wait_for_end(numbers)
        there = self.written()
        self.assertLess(there, expected)
        self.log.write_text("")
        self.wait_for_end(self.submit("--chunk", "1", "--missing"))
        self.assertEqual(self.errors, "")
        self.assertEqual(self.written(), expected)
        again = [str(pathlib.Path(path).relative_to(self.folder)) for line in self.logged() for path in line["writes"]]
        self.assertEqual(sorted(again), sorted(expected - there))

    def test_held_jobs_wait_until_they_are_released(self):
        self.write_scene(shot, SHOT)
        numbers = self.submit("--hold", "--jobs", "1-2", "--frames", "1-2")
        self.assertEqual(set(self.states(numbers)), {"PENDING"})
        subprocess.run(["scontrol", "release", *map(str, sorted(numbers))], check=True)
        self.wait_for_end(numbers)
        self.assertEqual(self.written(), all_names({"": SHOT["/out/beauty"]}, [1, 2]))

    def replace_sbatch(self, before):
        """Has lines of a shell run before each submission."""
        program = self.programs / "sbatch"
        program.write_text(f'#!/bin/sh\n{before}\nexec {shutil.which("sbatch")} "$@"\n')
        program.chmod(0o755)

    def assert_cancelled(self, run, status, before):
        ended, output, errors = self.end_of(run)
        self.assertEqual((ended, output), (status, ""))
        numbers = {number for number, _ in tasks()} - before
        self.assertIn("cancelling " + " ".join(map(str, sorted(numbers))) + "\n", errors)
        self.assertGreater(len(numbers), 1)
        self.wait_for_end(numbers)
        self.assertEqual(set(self.states(numbers)), {"CANCELLED"})
        self.assertEqual(self.written(), set())

    def test_a_call_that_fails_leaves_nothing_submitted(self):
        self.write_scene(shot, SHOT)
        before = {number for number, _ in tasks()}
        self.replace_sbatch(f'[ "$(wc -l <"{self.log}")" -lt 3 ] || exit 1\necho >>"{self.log}"')
        self.assert_cancelled(self.start_submit(), 1, before)

    def test_a_signal_leaves_nothing_submitted(self):
        self.write_scene(shot, SHOT)
        before = {number for number, _ in tasks()}
        self.replace_sbatch(f'echo >>"{self.log}"\nsleep 0.4')
        run = self.start_submit()
        wait_until(lambda: len(self.log.read_text()) == 2)
        run.terminate()  # in the second call
        self.assert_cancelled(run, -signal.SIGTERM, before)

    def test_without_the_engine_one_line_says_so(self):
        self.write_scene(shot, SHOT)
        status, output, errors = self.end_of(self.start_submit(PATH=str(self.programs)))
        self.assertEqual((status, output), (1, ""))
        self.assertRegex(errors, r"^vxscene: .*sbatch is not installed.*\n$")


if __name__ == "__main__":
    needed = ("munged", "slurmctld", "slurmd", "sbatch")
    lacking = [name for name in needed if not shutil.which(name, path="/usr/sbin:/usr/bin")]
    if os.geteuid() != 0 or lacking:
        why = f"not installed (scripts/setup farm): {', '.join(lacking)}" if lacking else "only root can run the engine"
        print(f"skipped: {why}")
        sys.exit(SKIPPED)
    unittest.main(argv=sys.argv[:1])
