"""vxscene report as a shell meets it: what it writes, where, and its status. Usage: reportCommand_test.py VXSCENE"""
import json
import os
import pathlib
import resource
import signal
import sys
import tempfile
import unittest

from scenes import arnold, data_of, geometry, mantra, run, run_report, scene, shot_scene, wedge, written


def small_files_only():
    signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
    resource.setrlimit(resource.RLIMIT_FSIZE, (1000, 1000))


class Command(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.scene = written(self.folder, "shot.hip", shot_scene())
        self.report = self.folder / "report.html"

    def assert_fails(self, run, status, *texts):
        self.assertEqual(run.returncode, status)
        lines = run.stderr.decode().splitlines()
        self.assertEqual(len(lines), 1, lines)
        for text in ("vxscene: ", *texts):
            self.assertIn(text, lines[0])

    def test_page_goes_to_the_file_or_to_an_output_that_is_no_terminal(self):
        run = run_report("-o", self.report, self.scene)
        self.assertEqual((run.returncode, run.stdout, run.stderr), (0, b"", b""))
        self.assertEqual(run_report(self.scene).stdout, self.report.read_bytes())

    def test_terminal_gets_no_page(self):
        terminal, program_side = os.openpty()
        self.addCleanup(os.close, terminal)
        run = run_report(self.scene, output=program_side)
        self.assert_fails(run, 2, "--output")
        os.close(program_side)
        with self.assertRaises(OSError):  # nothing was written
            os.read(terminal, 1)

    def test_failed_scene_is_in_the_page_beside_the_others(self):
        run = run_report("--output", self.report, self.scene, self.folder / "missing.hip")
        self.assert_fails(run, 1, "missing.hip", "cannot be opened for reading", "(code 3)")
        page = self.report.read_text()
        self.assertIn('"/out/beauty"', page)
        self.assertIn('"error":"cannot be opened for reading"', page)

    def test_existing_report_stays_where_the_new_one_cannot_be_written(self):
        self.report.write_text("old")
        run = run_report("-o", self.report, self.scene, preexec_fn=small_files_only)
        self.assert_fails(run, 1, "report.html", "cannot be written")
        self.assertEqual(self.report.read_text(), "old")
        self.assertEqual({path.name for path in self.folder.iterdir()}, {"report.html", "shot.hip"})
        self.assert_fails(run_report("-o", self.folder / "no" / "a.html", self.scene), 1, "/no/a.html")


def results(*arguments):
    return json.loads(run(*arguments[:1], "--format", "json", *arguments[1:]).stdout)


class Agreement(unittest.TestCase):
    """What jobs, diff and report say of the same scenes."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def test_on_the_jobs_that_jobs_wait_for(self):
        """An export and its render job 301 times: more than own numbers of 8 bits can tell apart."""
        path = written(self.folder, "wedge.hip", scene([mantra("beauty"), wedge("beauty", 300)]))
        ((result,), (shown,)) = results("jobs", path), data_of(run_report(path).stdout)["scenes"]
        waits = [job["waitsFor"] for job in result["jobs"]]
        self.assertEqual(waits, [[], [1], *[[]] * 300, *[[3 + variant] for variant in range(300)]])
        self.assertEqual([job.get("waitsFor", []) for job in shown["jobs"]], waits)
        table = run("jobs", path).stdout.decode().splitlines()[2:]
        column = [int(line.split()[-1]) for line in table if "Mantra_StdA" in line]
        self.assertEqual(column, [numbers[0] for numbers in waits if numbers])
        empty = written(self.folder, "empty.hip", scene([]))
        self.assertEqual(results("diff", empty, path)["came"], result["jobs"])

    def test_on_which_jobs_are_the_same_and_what_has_changed(self):
        before = [mantra("beauty"), geometry("cache"), geometry("gone"), geometry("moved")]
        now = [geometry("new"), arnold("beauty"), geometry("cache", (1, 20)), geometry("moved")]
        paths = [written(self.folder, f"v{at}/shot.hip", scene(drivers)) for at, drivers in enumerate([before, now])]
        diff = results("diff", *paths)
        (found,) = data_of(run_report(*paths).stdout)["comparisons"]
        pairs = [(job["left"], job["right"]) for job in found["changed"]]
        self.assertEqual(pairs, [(1, 2), (2, 3), (3, 4)])
        self.assertEqual(pairs, [(job["oldNumber"], job["newNumber"]) for job in diff["changed"]])
        self.assertEqual([len(found[kind]) for kind in ("came", "went")], [len(diff[kind]) for kind in ("came", "went")])
        lines = [f"    {field['name']}: {field['before']} -> {field['after']}"
                 for job in found["changed"] for field in job["fields"]]
        told = run("diff", *paths).stdout.decode().splitlines()
        self.assertEqual(lines, [line for line in told if line.startswith("    ")])
        self.assertIn("    frames: 1-10 -> 1-20", lines)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
