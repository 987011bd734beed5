"""The report page in a browser, as someone uses it. Usage: reportPage_test.py VXSCENE"""
import base64
import csv
import functools
import io
import json
import pathlib
import re
import sys
import tempfile
import time
import unicodedata
import unittest

from browser import Browser
from scenes import EXAMPLES, HOSTILE, arnold, data_of, driver, geometry, hostile_scene, mantra, run, run_report, scene
from scenes import shot_scene, wedge, with_data, with_texts, written
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.ui import Select, WebDriverWait

SHOWN = "return [...document.querySelectorAll(arguments[0])].filter((node) => node.getClientRects().length > 0)"


@functools.cache
def browser():
    """One for all tests: its start takes longer than most of them."""
    profile = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
    unittest.addModuleCleanup(profile.cleanup)
    started = Browser(profile.name)
    unittest.addModuleCleanup(started.quit)
    return started


class PageTest(unittest.TestCase):
    """Each test leaves a page that has loaded nothing but itself and has nothing to complain of."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        cls.browser = browser()

    def open(self, page, size=(1440, 900), colours="light"):
        self.doCleanups()  # of a page before this one
        self.browser.get("about:blank")
        self.browser.set_size(*size)
        self.browser.set_colours(colours)
        self.browser.messages()
        self.browser.addresses()
        address = written(self.folder, "page.html", page).as_uri()
        self.browser.get(address)
        self.addCleanup(self.assert_quiet, address)

    def assert_quiet(self, address):
        self.assertEqual(self.browser.messages(), [])
        self.assertEqual({url.split("#")[0] for url in self.browser.addresses()}, {address})

    def all(self, selector):
        return self.browser.find_elements(By.CSS_SELECTOR, selector)

    def shown(self, selector):
        return self.browser.execute_script(SHOWN, selector)

    def one(self, selector):
        (element,) = self.shown(selector)
        return element

    def text(self, selector):
        return self.one(selector).text

    def click(self, element):
        self.browser.execute_script("arguments[0].scrollIntoView({ block: 'center' })", element)
        element.click()

    def follow(self, selector, target):
        self.click(self.shown(selector)[0])
        self.wait_for(lambda: self.shown(target), f"{selector} does not lead to {target}")

    def press(self, *keys):
        self.browser.switch_to.active_element.send_keys(*keys)

    def focused(self):
        return self.browser.switch_to.active_element.get_attribute("id")

    def wait_for(self, condition, complaint):
        WebDriverWait(self.browser, 10, poll_frequency=0.05).until(lambda _: condition(), complaint)

    def wait_until_focused(self, place):
        self.wait_for(lambda: self.focused() == place, f"{place} does not get the focus")

    def rows(self):
        """Numbers of the jobs whose rows are shown, from top to bottom."""
        return [int(cell.text.split()[-1].lstrip("!")) for cell in self.shown("table.jobs td.c-number")]

    def printed(self):
        return base64.b64decode(self.browser.execute_cdp_cmd("Page.printToPDF", {})["data"])


class OneScene(PageTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.page = run_report(written(cls.folder, "shot.hip", shot_scene())).stdout

    def setUp(self):
        self.open(self.page)

    def test_table_sorts_numbers_as_numbers_by_pointer_and_by_key(self):
        frames = self.one("th.c-frames")
        self.assertEqual(self.rows(), [1, 2, 3, 4, 5, 6])
        self.click(frames.find_element(By.TAG_NAME, "button"))
        self.assertEqual((frames.get_attribute("aria-sort"), self.rows()), ("ascending", [3, 4, 5, 6, 1, 2]))
        self.press(Keys.ENTER)
        self.assertEqual((frames.get_attribute("aria-sort"), self.rows()), ("descending", [1, 2, 6, 5, 4, 3]))
        self.press(Keys.TAB, Keys.SPACE)
        self.assertEqual([head.text for head in self.all("th[aria-sort]")], ["Output"])
        self.assertEqual(self.rows(), [5, 3, 6, 4, 1, 2])  # geo, ifd, render

    def test_filter_leaves_what_holds_all_words(self):
        self.press("/")
        self.assertEqual(self.focused(), "s0-filter")
        self.press("GEO still")
        self.assertEqual((self.rows(), self.text(".count")), ([4], "1 of 6 jobs"))
        self.assertEqual([name.get_attribute("title") for name in self.shown(".driver > .name")], ["/out/still"])
        self.press("x")
        self.assertEqual((self.rows(), self.text(".count")), ([], "0 of 6 jobs"))
        self.press(Keys.ESCAPE)
        self.assertEqual((self.rows(), self.text(".count")), ([1, 2, 3, 4, 5, 6], "6 of 6 jobs"))

    def test_arrow_leads_to_the_job_waited_for_even_when_that_is_filtered_away(self):
        self.press("/")
        self.press("mantra_stda")
        self.assertEqual(self.rows(), [2])
        self.click(self.one("a.waits"))
        self.wait_until_focused("s0-j1")
        self.assertTrue(self.one("#s0-j1.found"))
        self.assertEqual(len(self.rows()), 6)

    def test_chart_shows_ranges_steps_pairs_and_faults_and_leads_to_the_jobs(self):
        widths = {bar.get_attribute("aria-label").split(" ")[0]: bar.rect["width"] for bar in self.shown("a.bar")}
        self.assertAlmostEqual(widths["/out/every10:"] / widths["/out/beauty:"], 200 / 100, delta=0.1)
        self.assertEqual(len(self.shown(".arrow path")), 1)
        self.assertEqual(len(self.all("a.bar.render .steps")), 1)
        self.assertIn("80-30 x5: starts behind its end", [words.text for words in self.shown(".words.fault")])
        self.browser.execute_script("document.querySelector('a.bar').focus()")
        self.press(Keys.ARROW_DOWN)
        self.assertIn("Mantra_StdA, frames 1001-1100", self.text("#tip"))
        self.press(Keys.ENTER)
        self.wait_until_focused("s0-j2")

    def test_frames_beyond_all_measure_are_drawn_too(self):
        data = data_of(self.page)
        for start, end in ((1e300, 1e300), (-1.7e308, 1.7e308)):
            for job in data["scenes"][0]["jobs"]:
                job.update(start=start, end=end)
            self.open(with_data(self.page, data))
            self.assertEqual(len(self.rows()), 6)

    def test_colours_follow_the_system_until_the_button_is_used(self):
        self.browser.set_colours("dark")
        self.wait_for(lambda: self.all("[data-theme=dark]"), "the page does not follow the system")
        self.one("button.theme").click()
        self.assertTrue(self.all("[data-theme=light]"))


DIFFERENCES = """return [...document.querySelectorAll(".comparison tr:has(.kind)")].map((row) => [
    row.querySelector(".kind").className, [...row.cells].map((cell) => cell.innerText),
    [...row.querySelectorAll(".change")].map((change) => change.innerText.replace(/\\n+/g, "\\n"))])"""


class SeveralScenes(PageTest):
    """Two versions of a scene, with warnings and a driver without a job, and a scene that is not there."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        preview = driver("out/preview", "ifd", ("soho_outputmode", '"off"'), ("vm_picture", "ip"))
        left = scene([mantra("beauty"), geometry("a"), geometry("b", step=0), preview], {"_HIP_SAVEVERSION": "19.5.640"})
        right = scene([arnold("beauty"), geometry("a", (1, 20)), preview], {"_HIP_SAVEVERSION": "20.0.547"})
        cls.scenes = [written(cls.folder, "v1/shot.hip", left), written(cls.folder, "v2/shot.hip", right)]
        cls.page = run_report(*cls.scenes, cls.folder / "broken.hip").stdout

    def setUp(self):
        self.open(self.page)

    def differences(self):
        """What the page tells of each job, in the words and the order of `vxscene diff`."""
        lines = []
        for word, (_, *cells, what), changes in self.browser.execute_script(DIFFERENCES):
            cells[0] = f"{word.split()[-1]:7} {cells[0]}"
            frames_and_file = [] if changes else what.rsplit(" ", 1)
            lines.append("  ".join(text for text in [*cells, *frames_and_file] if text))
            lines += ["    {}: {} -> {}".format(*change.split("\n")) for change in changes]
        return lines

    def choose(self, *scenes):
        for select, name in zip(self.all(".choice select"), scenes):
            select.send_keys(name)

    def test_two_scenes_differ_once_they_are_picked(self):
        self.follow("a[href='#compare']", ".choice")
        self.assertEqual(self.shown(".comparison table"), [])
        self.choose("v1", "v2")
        facts = [row.text.split("\n") for row in self.shown(".comparison table:first-of-type tbody tr")]
        self.assertIn(["Houdini", "19.5.640", "20.0.547"], facts)
        *told, _ = run("diff", *self.scenes).stdout.decode().splitlines()
        self.assertEqual(self.differences(), told)
        self.assertEqual(sum("Arnold" in line for line in told), 2)
        self.choose("v2")
        self.assertIn("one and the same scene", self.text(".comparison"))
        self.choose("v2", "v1")
        *told, _ = run("diff", *reversed(self.scenes)).stdout.decode().splitlines()
        self.assertEqual(self.differences(), told)

    def test_report_that_was_asked_to_compare_opens_on_it(self):
        self.open(run_report("--compare", *self.scenes).stdout)
        self.assertGreater(len(self.differences()), 3)
        self.open(with_data(self.page, {**data_of(self.page), "comparisons": []}))
        self.follow("a[href='#compare']", ".choice")
        self.choose("v1", "v2")
        self.assertIn("have not been compared", self.text(".comparison"))

    def test_scenes_are_listed_with_their_totals(self):
        told = [figure.text for figure in self.shown(".figures > li")]
        self.assertEqual(told[:3], ["3 scenes", "7 jobs", "430 frames"])
        self.assertIn("1 job without a count of frames", told)
        self.assertIn("2 nodes without a job", told)
        self.assertIn("Houdini/geometry 30 frames, 3 jobs", told)
        names = [cell.text for cell in self.shown("td.c-scene")]
        self.assertEqual(names, ["v1/shot.hip", "v2/shot.hip", "broken.hip"])
        self.click(self.shown("th.c-warnings button")[0])
        self.assertEqual(self.shown("td.c-scene")[-1].text, "broken.hip")  # nothing is known of its warnings
        self.press("/")
        self.press("opened READING")
        self.assertEqual([cell.text for cell in self.shown("td.c-scene")], ["broken.hip"])
        self.follow("td.c-scene a", ".failure")
        self.assertEqual(self.text(".failure"), "Failed: cannot be opened for reading: No such file or directory (code 3)")

    def test_jobs_of_all_scenes_are_in_one_table_that_leads_to_them(self):
        self.follow(".renderers-total button", ".of-all")
        self.press("/")
        self.press("v2 /out/a")
        self.assertEqual(self.text(".count"), "1 of 7 jobs, 1 warning")
        self.shown("td.c-scene a")[0].click()
        self.wait_until_focused("s1-j3")
        self.browser.back()
        self.wait_for(lambda: self.shown(".of-all"), "going back does not lead to the table")

    def test_what_is_beside_the_jobs_is_counted_alike_and_found(self):
        self.follow("td.c-scene a[href='#s0']", ".scene")
        told = [figure.text for figure in self.shown(".figures > .notice")]
        heads = [re.sub(r"(.*) \((\d+)\)", r"\2 \1", head.text) for head in self.shown(".view h3")]
        self.assertEqual(told, ["4 warnings", "1 node without a job"])
        self.assertTrue({"4 Warnings", "1 Without a job", "4 Jobs"} <= set(heads), heads)
        self.press("/")
        self.press("preview")
        self.assertEqual(self.text(".count"), "0 of 4 jobs, 1 without a job")
        self.assertIn("renders to the viewer only", self.text(".found-beside"))
        self.click(self.one(".found-beside a"))
        self.wait_until_focused("s0-x1")
        self.assertRegex(self.text("#s0-x1"), r"line \d+, byte \d+")
        self.click(self.shown(".warnings a")[1])
        self.wait_until_focused("s0-j2")
        self.press("/")
        self.press("\ue009a\ue000no renderer accepts")
        self.assertEqual((self.rows(), self.text(".count")), ([4], "1 of 4 jobs, 1 warning"))

    def test_paper_has_all_of_the_view_unfolded_and_no_controls(self):
        page = run_report(EXAMPLES / "turntable.hip").stdout
        (scene,) = data_of(page)["scenes"]
        scene["warnings"] *= 20
        self.open(with_data(page, {**data_of(page), "scenes": [scene]}))
        self.assertTrue(self.printed().startswith(b"%PDF"))
        self.browser.set_colours("dark", "print")
        self.assertEqual(len(self.shown("#s0-variables tbody tr")), len(scene["facts"]["variables"]))
        self.assertEqual(len(self.shown(".warnings > li")), len(scene["warnings"]))
        self.assertEqual(self.shown("input, .theme, .save, .all"), [])


class TakenAlong(PageTest):
    """Files that the browser makes of the page's data."""

    def saved(self, kind):
        target = self.folder / "saved"
        target.mkdir(exist_ok=True)
        behaviour = {"behavior": "allow", "downloadPath": str(target)}
        self.browser.execute_cdp_cmd("Browser.setDownloadBehavior", behaviour)
        self.one(f".save[aria-label$={kind}]").click()
        path = target / f"jobs.{kind.lower()}"
        self.wait_for(path.exists, f"{path} is not there")
        content = path.read_bytes()
        path.unlink()
        return content

    def test_files_hold_the_jobs_that_the_filter_leaves(self):
        page = run_report(written(self.folder, "shot.hip", shot_scene())).stdout
        data = data_of(page)
        job = data["scenes"][0]["jobs"][2]
        texts = {"take": "=1+1", "camera": '@a,"b"\n\u202e', "renderer": "+x", "frames": "-5"}
        job.update(texts)
        self.open(with_data(page, data), (700, 900))
        self.press("/")
        self.press("cache")
        content = self.saved("CSV").decode()
        self.assertTrue(content.startswith("\ufeffScene,#,Driver,"))
        self.assertEqual(content.count("\r\n"), content.count("\n"))
        head, row = csv.reader(io.StringIO(content[1:], newline=""))
        self.assertEqual(row, [
            str(self.folder / "shot.hip"), "3", "/out/cache", "'+x", "-5", job["output"],
            "'@a,\"b\"\u27e8U+000A\u27e9\u27e8U+202E\u27e9", "'=1+1", "", "", "232", row[-1]])
        self.assertIn("take Main is none", row[head.index("Warnings")])
        content = self.saved("JSON").decode()
        self.assertNotIn("\u202e", content)
        told = json.loads(content)
        self.assertEqual(told["program"], data["program"])
        (taken,) = told["jobs"]
        self.assertEqual({name: taken[name] for name in texts}, texts)


class HostileTexts(PageTest):
    def assert_harmless(self):
        self.assertIsNone(self.browser.execute_script("return window.attacked"))
        self.assertEqual(len(self.all("script")), 2)
        self.assertEqual(self.all("img, iframe, object, [onerror], [style]:not(#tip, .filtered, .words, .renderer)"), [])
        links = self.browser.execute_script("return [...document.querySelectorAll('a')].map((a) => a.getAttribute('href'))")
        self.assertEqual([link for link in links if not re.fullmatch(r"#(content|scenes|jobs|compare|s\d+(-[a-z]+\d*)?)", link)], [])
        text = self.browser.execute_script("return document.body.innerText + document.title")
        odd = {character for character in text if unicodedata.category(character) in ("Cc", "Cf", "Cs", "Zl", "Zp")}
        self.assertLessEqual(odd, {"\n", "\t"})
        self.assertIn("\u27e8U+202E\u27e9exe", text)
        self.assertIn("</script>", text)

    def test_scene_file_cannot_get_markup_into_the_page(self):
        self.open(run_report(written(self.folder, "<b>\u202eexe.hip", hostile_scene())).stdout, (400, 800))
        self.assert_harmless()
        self.assertLessEqual(self.browser.execute_script("return document.scrollingElement.scrollWidth"), 400)
        self.click(self.shown(".jobs .more")[0])
        self.assertIn("x" * 200, self.text(".jobs .c-output .middle"))

    def test_no_text_of_the_data_gets_markup_into_the_page(self):
        rich = EXAMPLES / "turntable_unfinished.hip"
        page = run_report(rich, EXAMPLES / "turntable.hip", self.folder / "missing.hip").stdout
        self.open(with_data(page, with_texts(data_of(page), lambda text: text + HOSTILE)))
        for place in ("scenes", "jobs", "compare", "s0", "s1", "s2"):
            self.browser.execute_script("location.hash = arguments[0]", place)
            self.wait_for(lambda: self.shown(f"#{place}-title"), f"{place} is not shown")
            for select, value in zip(self.all("select"), ("0", "1")):
                Select(select).select_by_value(value)
            self.browser.execute_script("dispatchEvent(new Event('beforeprint'))")  # unfolds all
            self.assert_harmless()

    def test_policy_keeps_any_other_script_from_running(self):
        page = run_report(written(self.folder, "shot.hip", shot_scene())).stdout
        self.open(page.replace(b"</body>", b"<script>window.attacked = 1</script><svg onload='window.attacked = 1'></svg></body>"))
        self.assertIsNone(self.browser.execute_script("return window.attacked"))
        self.assertEqual(len(self.rows()), 6)
        self.assertEqual(sum("Content Security Policy" in message for message in self.browser.messages()), 2)


class LargeReports(PageTest):
    """Of long tables only rows near those in view are made."""

    def row_count(self):
        return len(self.all("table.rows tbody tr"))

    def test_a_thousand_scenes_and_sixteen_thousand_jobs(self):
        page = run_report(written(self.folder, "shot.hip", shot_scene())).stdout
        data = data_of(page)
        (scene,) = data["scenes"]
        scenes = [{**scene, "scene": f"/show/{number:04}/shot.hip"} for number in range(1, 1001)]
        scenes[0]["jobs"] = scene["jobs"] * 2730
        self.browser.set_page_load_timeout(20)
        self.open(with_data(page, {**data, "scenes": scenes}))
        self.assertEqual([link.text for link in self.shown(".views a")], ["Scenes 1,000", "Jobs 22,374", "What differs"])
        self.assertLessEqual(self.row_count(), 200)
        self.press("/")
        self.press("0999/")
        self.assertEqual([cell.text for cell in self.shown("td.c-scene")], ["0999/shot.hip"])
        self.browser.execute_script("location.hash = 's0-j16380'")
        self.wait_until_focused("s0-j16380")
        self.assertLessEqual(self.row_count(), 200)
        self.follow("a[href='#jobs']", ".of-all")
        first = self.row_count()
        self.browser.execute_script("scrollTo(0, document.body.scrollHeight)")
        self.wait_for(lambda: self.row_count() > first, "scrolling brings no further rows")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
