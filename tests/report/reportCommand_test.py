"""vxscene report as a shell meets it: what it writes, where, and its status. Usage: reportCommand_test.py VXSCENE PAGEOF"""
import os
import pathlib
import resource
import signal
import sys
import tempfile
import unittest

from scenes import run_report, shot_scene, written


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


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
