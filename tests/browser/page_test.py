"""Works with the pages of explanations in headless Chromium: python3 page_test.py FOLDER

The folder contains the pages; the screenshots are written into it. The last line is "N passed, N failed, N skipped".
"""

import base64
import json
import sys
import unittest
from pathlib import Path

from chromium import start_browser
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

FOLDER = Path(sys.argv[1]).resolve()
SCRIPTS = Path(__file__).resolve().parent
NARROW, WIDE = (360, 740), (1440, 900)
PAGES = sorted(page.stem for page in FOLDER.glob("*.html"))


class PageTest(unittest.TestCase):
    """One browser for all tests; each test opens the pages that it needs."""

    @classmethod
    def setUpClass(cls):
        cls.browser = start_browser()

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()

    def open(self, name, size=WIDE, scheme="light"):
        width, height = size
        self.command("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=False)
        self.command("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": scheme}])
        self.browser.get((FOLDER / (name + ".html")).as_uri())

    def command(self, name, **parameters):
        return self.browser.execute_cdp_cmd(name, parameters)

    def run_script(self, script, *arguments):
        return self.browser.execute_script(script, *arguments)

    def find(self, selector):
        return self.browser.find_element(By.CSS_SELECTOR, selector)

    def press(self, *keys):
        ActionChains(self.browser).send_keys(*keys).perform()

    def active(self):
        return self.browser.switch_to.active_element

    def screenshot(self, name):
        image = self.command("Page.captureScreenshot", format="png")["data"]
        (FOLDER / (name + ".png")).write_bytes(base64.b64decode(image))

    def hits(self, selector):
        return [each.get_attribute("textContent") for each in
                self.browser.find_elements(By.CSS_SELECTOR, selector + ".hit")]


class Structure(PageTest):
    def test_no_page_says_an_error_or_asks_the_network(self):
        for name in PAGES:
            with self.subTest(name):
                self.open(name)
                self.assertEqual(self.browser.get_log("browser"), [])
                self.assertEqual(self.run_script("return performance.getEntriesByType('resource').length"), 0)

    def test_the_screen_is_the_hosts(self):
        self.open("traveller")
        shown = self.run_script("return lines.map((line) => line.querySelector('.text').textContent)")
        sample = SCRIPTS.parents[1] / "samples" / "profiles" / "traveller.txt"
        self.assertEqual([line.rstrip() for line in shown], [line.rstrip() for line in sample.read_text().splitlines()])

    def test_every_value_is_marked_where_it_was_read(self):
        for name in PAGES:
            self.open(name)
            with self.subTest(name):
                wrong = self.run_script("""
                    const wrong = [];
                    data.values.forEach((value, number) => {
                        const marked = segmentsOf[number].map((segment) => segment.textContent).join("");
                        const read = value.pieces.filter(isPlaced).map((piece) => visible(piece.text)).join("");
                        const shown = document.querySelector("#value-" + number + " .content").textContent;
                        if (marked !== read) wrong.push([value.names, read, marked]);
                        if (read && shown !== visible(value.text)) wrong.push([value.names, shown]);
                    });
                    return wrong;""")
                if name != "hostile":  # its half of a character has no text of its own
                    self.assertEqual(wrong, [])

    def test_headings_landmarks_and_names(self):
        self.open("every_family")
        self.assertEqual(self.run_script("return document.documentElement.lang"), "en")
        self.assertEqual(len(self.browser.find_elements(By.CSS_SELECTOR, "h1")), 1)
        for landmark in ("header", "main", "nav[aria-label]"):
            self.find(landmark)
        unnamed = self.run_script("""
            return Array.from(document.querySelectorAll("a, button, [role=button], summary"))
                .filter((each) => !each.textContent.trim()).length""")
        self.assertEqual(unnamed, 0)
        repeated = self.run_script("""
            const ids = Array.from(document.querySelectorAll("[id]"), (each) => each.id);
            return ids.length - new Set(ids).size""")
        self.assertEqual(repeated, 0)

    def test_what_the_screen_contains_is_no_markup(self):
        self.open("hostile")
        self.assertIsNone(self.run_script("return window.hacked"))
        shown = self.run_script("return lines.map((line) => line.querySelector('.text').textContent.trimEnd())")
        self.assertEqual(shown[2], "   1 PPR/ </script><script>window.hacked = 1</script>")
        self.assertEqual(shown[3], "   2 PPR/ <!--<img src=x onerror=\"window.hacked=1\">'&amp;&#38;")
        self.assertEqual(shown[4], "   3 PPR/ \u2424\u2424\ufffd\ufffdOLLEH \u2401\u241f\u2421\ufffd")
        self.assertEqual(shown[5], "   4 PPR/ LONE \ufffd")
        for line in shown[2:6]:
            self.assertTrue(any(line.endswith(value) for value in self.run_script(
                "return Array.from(document.querySelectorAll('.content'), (each) => each.textContent)") if value))

    def test_empty_and_failed_are_said(self):
        self.open("broken_off")
        summaries = [each.text for each in self.browser.find_elements(By.CSS_SELECTOR, "#values summary")]
        self.assertTrue(any("failed: error" in each for each in summaries), summaries)
        self.assertTrue(any(each.endswith("empty") for each in summaries), summaries)
        self.assertNotIn("0 failed", self.find(".summary").text)

    def test_without_script_everything_is_there(self):
        self.command("Emulation.setScriptExecutionDisabled", value=True)
        try:
            self.open("every_family")
            self.assertIn("AZULEJO CERAMICS", self.find(".box").text)
            self.find("#values details > summary").click()
            self.assertGreater(len(self.browser.find_elements(By.CSS_SELECTOR, "#decisions li")), 50)
        finally:
            self.command("Emulation.setScriptExecutionDisabled", value=False)

    def test_paper_has_no_folds(self):
        self.open("every_family")
        folded = "return document.querySelectorAll('details:not([open])').length"
        before = self.run_script(folded)
        self.assertGreater(before, 0)
        self.run_script("window.dispatchEvent(new Event('beforeprint'))")
        self.assertEqual(self.run_script(folded), 0)
        self.command("Emulation.setEmulatedMedia", media="print", features=[])
        self.assertEqual(self.find("nav").is_displayed(), False)
        self.assertEqual(self.run_script("return getComputedStyle(box).overflow"), "visible")
        pdf = base64.b64decode(self.command("Page.printToPDF", printBackground=True)["data"])
        (FOLDER / "every_family.pdf").write_bytes(pdf)
        self.command("Emulation.setEmulatedMedia", media="", features=[])
        self.assertEqual(self.run_script(folded), before)


class Links(PageTest):
    def unfold(self):
        self.run_script("for (const each of document.querySelectorAll('details')) each.open = true")

    def in_box(self, selector):
        return self.run_script("""
            const line = document.querySelector(arguments[0]).getBoundingClientRect();
            const outer = box.getBoundingClientRect();
            return line.top >= outer.top && line.bottom <= outer.bottom""", selector)

    def test_a_decision_shows_its_lines(self):
        for size in (WIDE, NARROW):
            self.open("long_400", size)
            self.unfold()
            numbers = self.run_script("""
                return data.decisions.map((each, number) => number)
                    .filter((number) => !data.decisions[number].isSearch && data.decisions[number].first > 300)""")
            decision = self.run_script("return data.decisions[arguments[0]]", numbers[-1])
            link = self.find("#decision-%d a" % numbers[-1])
            self.run_script("arguments[0].scrollIntoView({block: 'center'})", link)
            link.click()
            hit = self.run_script("return Array.from(document.querySelectorAll('.line.hit'), (line) => line.id)")
            self.assertEqual(hit, ["line-%d" % line for line in range(decision["first"], decision["last"] + 1)])
            self.assertTrue(self.in_box(".line.hit"))
            self.assertIn("Decision %d" % (numbers[-1] + 1), self.find("#selection h2").text)

    def test_a_search_shows_its_mark(self):
        self.open("every_family")
        self.unfold()
        number = self.run_script("""
            return data.decisions.findIndex((each) => each.found.some((piece) => piece.text === "------- PRIORITY"))""")
        self.find("#decision-%d a" % number).click()
        self.assertEqual(self.hits(".mark"), ["------- PRIORITY"])

    def test_a_line_shows_its_decisions(self):
        self.open("every_family")
        self.find("#line-36 .number").click()
        expected = self.run_script("""
            return data.decisions.map((each, number) => number).filter((number) => {
                const each = data.decisions[number];
                return each.isSearch ? each.found.some((piece) => piece.line === 36)
                    : each.first <= 36 && each.last >= 36; });""")
        self.assertGreater(len(expected), 1)
        links = [each.get_attribute("href").split("#")[1] for each in
                 self.browser.find_elements(By.CSS_SELECTOR, "#selection ul a")]
        self.assertCountEqual(links, ["decision-%d" % number for number in expected])
        self.assertEqual(len(self.browser.find_elements(By.CSS_SELECTOR, ".step.hit")), len(expected))
        self.find("#selection ul a").click()
        self.assertTrue(self.find("#%s a" % links[0]).is_displayed())
        self.assertEqual(self.active(), self.find("#%s a" % links[0]))

    def test_pointing_shows_a_value_and_a_click_keeps_it(self):
        self.open("every_family")
        # Two values: the element's text and its free text.
        segment = self.find("#line-21 .nested")
        ActionChains(self.browser).move_to_element(segment).perform()
        shown = self.find("#selection").text
        for expected in ("2 values", "HOME ADDRESS IS NOT TO BE GIVEN OUT", "freeText", "RC", "line 21, columns 18"):
            self.assertIn(expected, shown)
        ActionChains(self.browser).move_to_element(self.find("h1")).perform()
        self.assertIn("Nothing selected", self.find("#selection").text)
        segment.click()
        ActionChains(self.browser).move_to_element(self.find("h1")).perform()
        self.assertIn("freeText", self.find("#selection").text)
        self.assertEqual(segment.get_attribute("aria-pressed"), "true")
        row = self.find("tr.hit")
        self.assertTrue(row.is_displayed())
        self.find("#selection button").click()
        self.assertIn("Nothing selected", self.find("#selection").text)
        self.assertEqual(self.hits(".value"), [])

    def test_a_value_of_the_list_is_shown_on_the_screen(self):
        self.open("long_400")
        self.unfold()
        number = self.run_script("""
            return data.values.findLastIndex((value) => value.pieces.some((piece) => piece.line > 300))""")
        link = self.find("#value-%d a" % number)
        self.run_script("arguments[0].scrollIntoView({block: 'center'})", link)
        link.click()
        self.assertEqual("".join(self.hits(".value")), self.run_script("return data.values[arguments[0]].text", number))
        self.assertTrue(self.in_box(".value.hit"))

    def test_a_wrapped_value_is_marked_in_all_its_lines(self):
        self.open("wrapped")
        number = self.run_script("""
            return data.values.findIndex((value) => new Set(value.pieces.map((piece) => piece.line)).size > 1)""")
        segments = self.run_script("return segmentsOf[arguments[0]]", number)
        self.assertGreater(len(segments), 1)
        segments[-1].click()
        hit = self.run_script("return Array.from(document.querySelectorAll('.value.hit'))")
        for segment in segments:
            self.assertIn(segment, hit)
        self.assertIn("Piece 2", self.find("#selection").text)

    def test_lines_that_nothing_was_read_from_stand_out(self):
        self.open("every_family")
        unread = self.run_script("""
            return Array.from(document.querySelectorAll(".lines .unread")).map((line) => {
                const sign = getComputedStyle(line.querySelector(".number"), "::before").content;
                return [line.querySelectorAll(".value, .mark").length, sign.includes("\u25cb"),
                        line.textContent.includes("nothing was read from it")]; });""")
        self.assertGreater(len(unread), 0)
        self.assertTrue(all(each == [0, True, True] for each in unread), unread)


class Keyboard(PageTest):
    def test_the_skip_link_leads_to_the_values(self):
        self.open("every_family")
        self.press(Keys.TAB)
        self.assertEqual(self.active().text, "Skip to the values")
        self.press(Keys.ENTER)
        self.press(Keys.TAB)
        self.assertTrue(self.run_script("return document.activeElement === document.querySelector('#values summary')"))

    def test_the_screen_is_one_stop_and_the_arrow_keys_move_in_it(self):
        self.open("every_family")
        self.press(Keys.TAB, Keys.TAB, Keys.TAB)
        self.assertEqual(self.active().get_attribute("data-line"), "0")
        self.press(Keys.END)
        self.assertEqual(self.active().get_attribute("data-line"), "78")
        self.press(Keys.HOME, Keys.PAGE_DOWN, Keys.PAGE_DOWN, Keys.ARROW_DOWN, Keys.ARROW_RIGHT, Keys.ARROW_RIGHT)
        self.assertEqual(self.active().get_attribute("textContent"), "RC  ")
        self.press(Keys.ARROW_RIGHT)
        self.assertIn("freeText", self.find("#selection").text)
        self.press(Keys.ARROW_DOWN)
        self.assertEqual(self.active().get_attribute("textContent"), "SALARY GRADE 7")
        self.press(Keys.ENTER)
        self.assertEqual(self.active().get_attribute("aria-pressed"), "true")
        self.press(Keys.TAB)  # out of the screen
        self.assertFalse(self.run_script("return box.contains(document.activeElement)"))
        self.assertIn("SALARY GRADE 7", self.find("#selection").text)
        self.press(Keys.ESCAPE)
        self.assertIn("Nothing selected", self.find("#selection").text)
        ActionChains(self.browser).key_down(Keys.SHIFT).send_keys(Keys.TAB).key_up(Keys.SHIFT).perform()
        self.assertEqual(self.active().get_attribute("textContent"), "SALARY GRADE 7")

    def test_a_decision_is_chosen_with_enter(self):
        self.open("pdn_company_list")
        self.run_script("document.querySelector('#decisions a.step').focus()")
        self.press(Keys.ENTER)
        self.assertGreater(len(self.browser.find_elements(By.CSS_SELECTOR, ".line.hit, .mark.hit")), 0)

    def test_every_stop_is_seen(self):
        """From the first stop to the last: each has an outline, is in the window and is not covered."""
        for size in (WIDE, NARROW):
            for name in ("every_family", "pdn_company_list"):
                self.open(name, size)
                self.run_script("document.querySelector('.number').click(); window.scrollTo(0, 0);")
                self.run_script("document.activeElement.blur()")
                stops = set()
                for _ in range(400):
                    self.press(Keys.TAB)
                    stop = self.run_script((SCRIPTS / "focus.js").read_text())
                    if stop is None or stop["path"] in stops:
                        break
                    stops.add(stop["path"])
                    with self.subTest(page=name, size=size, stop=stop):
                        self.assertTrue(stop["hasOutline"])
                        self.assertTrue(stop["isSeen"])
                self.assertGreater(len(stops), 8)


class Look(PageTest):
    def overflow(self):
        return self.run_script("const page = document.scrollingElement; return page.scrollWidth - page.clientWidth")

    def test_the_page_is_never_wider_than_the_window(self):
        for name in PAGES:
            for width in (320, 360, 600, 800, 1099, 1100, 1440, 2200):
                with self.subTest(page=name, width=width):
                    self.open(name, (width, 800))
                    self.run_script("for (const each of document.querySelectorAll('details')) each.open = true")
                    self.assertLessEqual(self.overflow(), 0)
        self.open("every_family", NARROW)
        self.assertGreater(self.run_script("return box.scrollWidth - box.clientWidth"), 100)

    def test_contrast(self):
        """4.5 to 1 for every text, 3 to 1 for large texts and for lines that carry a meaning."""
        script = (SCRIPTS / "contrast.js").read_text()
        for name in ("every_family", "pdn_company_list", "odd", "broken_off", "nothing"):
            for scheme in ("light", "dark"):
                for size in (WIDE, NARROW):
                    with self.subTest(page=name, scheme=scheme, size=size):
                        self.open(name, size, scheme)
                        self.run_script("for (const each of document.querySelectorAll('details')) each.open = true")
                        self.check_contrast(script)
                        for selector in (".number", ".nested", "#decisions a", ".lines .unread .number"):
                            for each in self.browser.find_elements(By.CSS_SELECTOR, selector)[:1]:
                                self.run_script("arguments[0].click()", each)
                                self.check_contrast(script)

    def check_contrast(self, script):
        found = self.run_script(script)
        self.assertGreater(found["checked"], 10)
        self.assertEqual(found["low"], [])

    def test_marking_differs_without_colour(self):
        self.open("every_family")
        style = "return getComputedStyle(document.querySelector(arguments[0])).borderBottomStyle"
        kinds = [self.run_script(style, ".legend " + each) for each in (".value:not(.nested)", ".nested", ".mark")]
        self.assertEqual(kinds, ["solid", "double", "dotted"])
        self.run_script("document.querySelector('.legend .mark').className = 'tag'")
        self.assertEqual("wavy", self.run_script(
            "return getComputedStyle(document.querySelector('.legend .tag')).textDecorationStyle"))

    def test_nothing_moves(self):
        self.open("every_family")
        moving = self.run_script("""
            return Array.from(document.querySelectorAll("*")).filter((each) => {
                const style = getComputedStyle(each);
                return style.animationName !== "none" || parseFloat(style.transitionDuration) > 0
                    || style.scrollBehavior === "smooth"; }).length""")
        self.assertEqual(moving, 0)

    def test_screenshots(self):
        for name in ("every_family", "pdn_company_list", "odd", "long_400", "broken_off"):
            for size_name, size in (("wide", WIDE), ("narrow", NARROW)):
                for scheme in ("light", "dark"):
                    self.open(name, size, scheme)
                    self.screenshot("-".join((name, size_name, scheme)))
                    for segment in self.browser.find_elements(By.CSS_SELECTOR, ".lines .nested, .lines .value")[:1]:
                        segment.click()
                        self.screenshot("-".join((name, size_name, scheme, "selected")))
        for scheme in ("light", "dark"):
            self.open("odd", WIDE, scheme)
            self.find("#line-36 .number").click()
            self.screenshot("odd-line-" + scheme)
        self.assertEqual(len(list(FOLDER.glob("*-wide-dark.png"))), 5)


def main():
    tests = unittest.defaultTestLoader.loadTestsFromModule(sys.modules[__name__])
    result = unittest.TextTestRunner(verbosity=2).run(tests)
    failed = len({str(getattr(test, "test_case", test)) for test, _ in result.failures + result.errors})
    skipped = len(result.skipped)
    print("%d passed, %d failed, %d skipped" % (result.testsRun - failed - skipped, failed, skipped))
    return 0 if result.wasSuccessful() else 1


if __name__ == "__main__":
    sys.exit(main())
