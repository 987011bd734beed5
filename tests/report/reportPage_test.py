"""The report page in a browser, as someone uses it. Usage: reportPage_test.py VXSCENE"""
import base64
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
from selenium.webdriver.support.ui import WebDriverWait

SHOWN = "return [...document.querySelectorAll(arguments[0])].filter((node) => node.getClientRects().length > 0)"


class PageTest(unittest.TestCase):
    """Each test leaves a page that has loaded nothing but itself and has nothing to complain of."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        cls.browser = Browser(cls.folder / "profile")
        cls.addClassCleanup(cls.browser.quit)

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
        self.assertEqual([name.text for name in self.shown(".driver > .name")], ["/out/still"])
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
        self.assertIn("80-30 x5: starts behind its end", [words.text for words in self.shown("a.bar.faulty text")])
        self.browser.execute_script("document.querySelector('a.bar').focus()")
        self.press(Keys.ARROW_DOWN)
        self.assertIn("Mantra_StdA, frames 1001-1100", self.text("#tip"))
        self.press(Keys.ENTER)
        self.wait_until_focused("s0-j2")

    def test_colours_follow_the_system_until_the_button_is_used(self):
        self.browser.set_colours("dark")
        self.wait_for(lambda: self.all("[data-theme=dark]"), "the page does not follow the system")
        self.one("button.theme").click()
        self.assertTrue(self.all("[data-theme=light]"))

class SeveralScenes(PageTest):
    """Two versions of a scene, with warnings and a driver without a job, and a scene that is not there."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        preview = driver("out/preview", "ifd", ("soho_outputmode", '"off"'), ("vm_picture", "ip"))
        left = scene([mantra("beauty"), geometry("a"), geometry("b"), preview], {"_HIP_SAVEVERSION": "19.5.640"})
        right = scene([arnold("beauty"), geometry("a", (1, 20)), preview], {"_HIP_SAVEVERSION": "20.0.547"})
        cls.scenes = [written(cls.folder, "v1/shot.hip", left), written(cls.folder, "v2/shot.hip", right)]
        cls.page = run_report(*cls.scenes, cls.folder / "broken.hip").stdout

    def setUp(self):
        self.open(self.page)

    def differences(self):
        """What the page tells of each job, in the words and the order of `vxscene diff`."""
        lines = []
        for row in self.shown(".comparison tr:has(.kind)"):
            kind, number, driver_cell, renderer, take, what = row.find_elements(By.TAG_NAME, "td")
            word = kind.find_element(By.CSS_SELECTOR, ".kind").get_attribute("class").split()[-1]
            cells = [f"{word:7} {number.text}", driver_cell.text, renderer.text, take.text]
            changes = what.find_elements(By.CSS_SELECTOR, ".change")
            frames_and_file = [] if changes else what.text.split(" ")
            lines.append("  ".join(text for text in [*cells, *frames_and_file] if text))
            for change in changes:
                name, before, after = change.text.split("\n")
                lines.append(f"    {name}: {before} -> {after}")
        return lines

    def test_overview_tells_what_differs(self):
        facts = [row.text.split("\n") for row in self.shown(".comparison table:first-of-type tbody tr")]
        self.assertIn(["Houdini", "19.5.640", "20.0.547"], facts)
        *told, _ = run("diff", *self.scenes).stdout.decode().splitlines()
        self.assertEqual(self.differences(), told)
        self.assertEqual(sum("Arnold" in line for line in told), 2)
        left, right = self.all(".choice select")
        left.send_keys("v2")
        self.assertIn("one and the same scene", self.text(".comparison"))
        right.send_keys("v1")
        *told, _ = run("diff", *reversed(self.scenes)).stdout.decode().splitlines()
        self.assertEqual(self.differences(), told)

    def test_pair_that_was_not_compared_says_so(self):
        data = data_of(self.page)
        self.open(with_data(self.page, {**data, "comparisons": []}))
        self.assertIn("have not been compared", self.text(".comparison"))

    def test_tabs_show_one_scene_at_a_time(self):
        self.one("[role=tab][aria-selected=true]").send_keys(Keys.ARROW_LEFT)
        self.assertEqual(self.text(".failure"), "Failed: cannot be opened for reading (code 3)")
        self.press(Keys.HOME, Keys.ARROW_RIGHT)
        self.assertEqual((self.text("[role=tabpanel] h2"), self.focused()), ("shot.hip", "tab-s0"))

    def test_missing_driver_is_found_with_its_reason(self):
        self.click(self.all("[role=tab]")[2])
        self.press("/")
        self.press("preview")
        self.assertEqual(self.text(".count"), "0 of 3 jobs, 1 without a job")
        self.assertIn("renders to the viewer only", self.text(".found-without"))
        self.click(self.one(".found-without a"))
        self.wait_until_focused("s1-x1")
        self.assertRegex(self.text("#s1-x1"), r"line \d+, byte \d+")

    def test_warnings_lead_to_their_jobs(self):
        self.click(self.all("[role=tab]")[1])
        self.click(self.shown(".warnings a")[1])
        self.wait_until_focused("s0-j2")
        self.assertEqual(len(self.shown("#s0-table .mark")), 4)

    def test_paper_has_all_scenes_unfolded_and_no_controls(self):
        self.assertTrue(self.printed().startswith(b"%PDF"))
        self.browser.set_colours("dark", "print")
        self.assertEqual([title.text for title in self.shown(".scene h2")], ["shot.hip", "shot.hip", "broken.hip"])
        self.assertEqual(self.shown("input, .theme, [role=tab]"), [])


class HostileTexts(PageTest):
    def assert_harmless(self):
        self.assertIsNone(self.browser.execute_script("return window.attacked"))
        self.assertEqual(len(self.all("script")), 2)
        self.assertEqual(self.all("img, iframe, object, [onerror], [style]:not(#tip, .panel)"), [])
        links = {link.get_dom_attribute("href") for link in self.all("a")}
        self.assertEqual([link for link in links if not re.fullmatch(r"#(content|s\d+(-[a-z]+\d*)?)", link)], [])
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
        for tab in self.all("[role=tab]"):
            self.click(tab)
            self.browser.execute_script("document.querySelectorAll('details').forEach((details) => { details.open = true; })")
            self.assert_harmless()
        self.assertTrue(self.printed().startswith(b"%PDF"))

    def test_policy_keeps_any_other_script_from_running(self):
        page = run_report(written(self.folder, "shot.hip", shot_scene())).stdout
        self.open(page.replace(b"</body>", b"<script>window.attacked = 1</script><svg onload='window.attacked = 1'></svg></body>"))
        self.assertIsNone(self.browser.execute_script("return window.attacked"))
        self.assertEqual(len(self.rows()), 6)
        self.assertEqual(sum("Content Security Policy" in message for message in self.browser.messages()), 2)


class LargeScene(PageTest):
    def test_page_of_as_many_jobs_as_there_can_be_is_there_within_a_minute(self):
        page = run_report(written(self.folder, "shot.hip", shot_scene())).stdout
        data = data_of(page)
        data["scenes"][0]["jobs"] *= 2730
        self.browser.set_page_load_timeout(60)
        self.open(with_data(page, data))
        rows = self.browser.execute_script("return document.querySelectorAll('table.jobs tbody tr').length")
        self.assertEqual(rows, 16380)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
