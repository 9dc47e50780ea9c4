"""Works with the playground in headless Chromium, opened from a file: python3 playground_test.py FOLDER

The folder contains index.html; the screenshots are written into it. The last line is "N passed, N failed, N skipped".
"""

import base64
import json
import sys
import tempfile
import unittest
from pathlib import Path

from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.ui import Select, WebDriverWait

FOLDER = Path(sys.argv[1]).resolve()
ROOT = Path(__file__).resolve().parents[3]
SCRIPTS = ROOT / "tests" / "browser"
sys.path.append(str(SCRIPTS))
from chromium import start_browser  # noqa: E402

NARROW, WIDE = (360, 740), (1440, 900)
TRAVELLER = (ROOT / "samples" / "profiles" / "traveller.txt").read_text()
LOCATOR_UNKNOWN = "PDRT/KQ4R7T\nRECORD LOCATOR NOT FOUND\n>"


class PlaygroundTest(unittest.TestCase):
    """One browser for all tests; each test opens the page."""

    @classmethod
    def setUpClass(cls):
        cls.browser = start_browser()

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()

    def open(self, size=WIDE, scheme="light", address=""):
        width, height = size
        self.command("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=False)
        self.command("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": scheme}])
        self.browser.get("about:blank")
        self.browser.get((FOLDER / "index.html").as_uri() + address)
        self.wait(lambda: "Loading" not in self.status())

    def command(self, name, **parameters):
        return self.browser.execute_cdp_cmd(name, parameters)

    def run_script(self, script, *arguments):
        return self.browser.execute_script(script, *arguments)

    def find(self, selector):
        return self.browser.find_element(By.CSS_SELECTOR, selector)

    def choose(self, field, value):
        Select(self.find("#" + field)).select_by_value(value)

    def wait(self, condition):
        WebDriverWait(self.browser, 20, poll_frequency=0.05).until(lambda _: condition())

    def status(self):
        return self.find("#status").text

    def read_by(self, script, *arguments):
        """Runs the script and waits until its screen was read: the status has another text then, be it the same one."""
        self.run_script("window.said = document.getElementById('status').firstChild;" + script, *arguments)
        self.wait(lambda: self.run_script("return document.getElementById('status').firstChild !== window.said"))

    def paste(self, text):
        self.read_by("""
            const screen = document.getElementById("screen");
            screen.value = arguments[0];
            screen.dispatchEvent(new Event("input", { bubbles: true }));""", text)

    def drop(self, script, *arguments):
        self.read_by("""
            const dataTransfer = new DataTransfer();
            %s
            document.body.dispatchEvent(new DragEvent("drop", { bubbles: true, cancelable: true, dataTransfer }));"""
                     % script, *arguments)

    def page(self):
        """Everything below is inside the page of the explanation until the test's end."""
        def is_loaded():
            self.browser.switch_to.default_content()
            self.browser.switch_to.frame("page")
            return self.browser.find_elements(By.CSS_SELECTOR, ".box, #values")
        self.wait(is_loaded)

    def page_of(self, title):
        self.wait(lambda: self.run_script("""
            const page = document.getElementById("page").contentDocument;
            return page.readyState === "complete" && page.title === arguments[0]""", title))
        self.page()

    def results(self):
        return json.loads(self.run_script("return document.getElementById('results').textContent"))

    def screenshot(self, name):
        image = self.command("Page.captureScreenshot", format="png", captureBeyondViewport=False)["data"]
        (FOLDER / (name + ".png")).write_bytes(base64.b64decode(image))


class Reading(PlaygroundTest):
    def tearDown(self):
        self.browser.switch_to.default_content()

    def test_it_opens_from_a_file_and_asks_the_network_nothing(self):
        self.open()
        self.assertEqual(self.browser.get_log("browser"), [])
        self.assertEqual(self.run_script("return performance.getEntriesByType('resource').length"), 0)
        self.assertIn("Whole profile", self.status())
        refused = self.browser.execute_async_script("""
            fetch("http://127.0.0.1:9/").then(() => "sent", (error) => error.name).then(arguments[0])""")
        self.assertEqual(refused, "TypeError")
        self.assertIn("Content Security Policy", str(self.browser.get_log("browser")))

    def test_a_display_is_shown_with_its_values(self):
        self.open()
        self.paste(TRAVELLER.replace("LINDQVIST/AGNES", "LINDQVIST/PASTED"))
        self.assertEqual(self.results()["name"], "LINDQVIST/PASTED MS")
        self.page_of("Whole profile")
        self.assertIn("LINDQVIST/PASTED MS", self.find("#box").text)
        self.assertTrue(self.browser.find_elements(By.CSS_SELECTOR, ".ruler"))
        self.assertGreater(len(self.browser.find_elements(By.CSS_SELECTOR, ".lines .value")), 10)
        self.assertGreater(len(self.browser.find_elements(By.CSS_SELECTOR, "#decisions li")), 10)

    def test_the_page_inside_works(self):
        self.open()
        self.page_of("Whole profile")
        self.run_script("document.querySelector('.lines .value[role=button]').click()")
        self.assertIn("Read by", self.find("#selection").text)

    def test_a_screen_is_recognised(self):
        self.open()
        self.paste(LOCATOR_UNKNOWN)
        self.assertIn("Read as CPDRTrans", self.status())
        self.assertIn("blnKeyErrNoRecLoc", self.status())
        self.assertIs(self.results()["blnKeyErrNoRecLoc"], True)
        self.page_of("CPDRTrans")
        self.assertIn("RECORD LOCATOR NOT FOUND", self.find("#box").text)

    def test_a_class_may_be_chosen(self):
        self.open()
        self.paste(LOCATOR_UNKNOWN)
        self.choose("what", "CPDNTrans")
        self.assertIn("Read as CPDNTrans", self.status())

    def test_a_sample_is_chosen(self):
        self.open()
        for sample, expected in (("pdn_company_list", "CPDNTrans"), ("rlp_linked_profiles", "CRLPTrans"),
                                 ("odd", "Whole profile"), ("pdr_not_found", "CPDRTrans")):
            self.choose("sample", sample)
            with self.subTest(sample):
                self.assertIn("Read as " + expected, self.status())

    def test_an_unbroken_screen_is_read(self):
        self.open()
        self.paste("".join(line.ljust(80) for line in LOCATOR_UNKNOWN.split("\n")))
        self.assertIn("Read as CPDRTrans", self.status())

    def test_one_of_several_displays_is_chosen(self):
        self.open()
        other = TRAVELLER.replace("LINDQVIST/AGNES", "LINDQVIST/OTHER")
        self.paste(TRAVELLER + "\n" + other)
        self.wait(lambda: self.find("#display").is_displayed())
        self.assertEqual(self.results()["name"], "LINDQVIST/AGNES MS")
        self.choose("display", "1")
        self.wait(lambda: self.results()["name"] == "LINDQVIST/OTHER MS")
        self.choose("sample", "traveller")
        self.assertFalse(self.find("#display").is_displayed())

    def test_a_long_line_is_said(self):
        self.open()
        for text in ("A\n" + "B" * 81 + "\n>", "PDRT/ABC\n" + "B" * 81):
            self.paste(text)
            self.assertIn("81", self.status())
            self.assertIn("failed", self.find("#status").get_attribute("class"))
            self.assertFalse(self.find("#page").is_displayed())
            self.paste(LOCATOR_UNKNOWN)

    def test_the_state_is_passed(self):
        self.open()
        self.choose("what", "CProfileMode")
        self.paste("PM\n*PROFILE MODE*")
        self.assertIn("Read as CProfileMode", self.status())
        self.run_script("document.getElementById('state-field').open = true")
        field = self.find("#state")
        field.clear()
        field.send_keys('{"strKept": "K"')
        self.wait(lambda: "no JSON object" in self.status())
        field.send_keys("}")
        self.wait(lambda: "Read as" in self.status())
        self.assertEqual(self.results()["strKept"], "K")

    def test_text_and_files_are_dropped(self):
        self.open()
        self.drop("dataTransfer.setData('text/plain', arguments[0]);", LOCATOR_UNKNOWN)
        self.assertIn("CPDRTrans", self.status())
        self.drop("dataTransfer.items.add(new File([arguments[0]], 'display.txt'));", TRAVELLER)
        self.assertIn("Whole profile", self.status())

    def test_a_file_is_chosen(self):
        self.open()
        before = self.status()
        with tempfile.NamedTemporaryFile("w", suffix=".txt") as file:
            file.write(LOCATOR_UNKNOWN)
            file.flush()
            self.find("#file").send_keys(file.name)
            self.wait(lambda: self.status() != before)
        self.assertIn("CPDRTrans", self.status())

    def test_what_is_pasted_is_no_markup(self):
        self.open()
        self.paste("------- PRIORITY\n   1 PPR/ </script><script>parent.hacked = 1</script>\n>")
        self.page_of("Whole profile")
        self.assertIn("</script><script>", self.find("#box").text)
        self.browser.switch_to.default_content()
        self.assertIsNone(self.run_script("return window.hacked"))

    def test_the_page_can_be_saved(self):
        self.open()
        link = self.find("#page-link")
        self.assertEqual(link.get_attribute("download"), "explanation.html")
        self.assertTrue(link.get_attribute("href").startswith("blob:"))

    def test_an_address_chooses(self):
        self.open(address="#sample=company&class=CPDATrans")
        self.assertEqual(self.find("#sample").get_attribute("value"), "company")
        self.assertEqual(self.find("#class").get_attribute("value"), "CPDATrans")


class Building(PlaygroundTest):
    def field(self, key):
        return self.find('[data-key="%s"]' % key)

    def texts(self):
        return [self.find(selector).text for selector in ("#command", "#advice", "#tool")]

    def test_a_command_is_built(self):
        self.open()
        self.choose("class", "CPDNTrans")
        self.choose("example", "")
        self.field("strKeyName").send_keys("O'NEIL ANNA")
        self.field("blnKeyExactMatch").click()
        self.assertEqual(self.texts(), [
            "PDN/-O'NEIL ANNA/", "",
            "vantro-profile command CPDNTrans 'strKeyName=O'\\''NEIL ANNA' blnKeyExactMatch=True"])

    def test_a_missing_key_is_named(self):
        self.open()
        self.choose("class", "CPDRTrans")
        self.choose("example", "")
        command, advice, _ = self.texts()
        self.assertEqual(command, "")
        self.assertIn("strKeyRecLoc", advice)

    def test_every_example_builds_its_command(self):
        self.open()
        built = 0
        for name in [each.get_attribute("value") for each in Select(self.find("#class")).options]:
            self.choose("class", name)
            for option in Select(self.find("#example")).options[1:]:
                self.choose("example", option.get_attribute("value"))
                with self.subTest(name, example=option.text):
                    command = self.find("#command").text
                    self.assertTrue(command and option.text.startswith(command), command)
                built += 1
        self.assertGreater(built, 20)


class Look(PlaygroundTest):
    def test_every_field_and_list_has_a_name(self):
        self.open()
        unnamed = self.run_script("""
            return Array.from(document.querySelectorAll("input, select, textarea"))
                .filter((each) => each.labels.length === 0).map((each) => each.id)""")
        self.assertEqual(unnamed, [])
        self.assertEqual(len(self.browser.find_elements(By.CSS_SELECTOR, "h1")), 1)
        repeated = self.run_script("""
            const ids = Array.from(document.querySelectorAll("[id]"), (each) => each.id);
            return ids.length - new Set(ids).size""")
        self.assertEqual(repeated, 0)

    def test_the_page_is_never_wider_than_the_window(self):
        for width in (320, 360, 600, 800, 1099, 1440, 2200):
            self.open((width, 800))
            with self.subTest(width=width):
                self.assertLessEqual(self.run_script(
                    "const page = document.scrollingElement; return page.scrollWidth - page.clientWidth"), 0)

    def test_contrast(self):
        """4.5 to 1 for every text, 3 to 1 for large texts and for the focus."""
        script = (SCRIPTS / "contrast.js").read_text()
        for scheme in ("light", "dark"):
            for size in (WIDE, NARROW):
                self.open(size, scheme)
                self.run_script("for (const each of document.querySelectorAll('details')) each.open = true")
                for text in (LOCATOR_UNKNOWN, "A\n" + "B" * 81):
                    self.paste(text)
                    found = self.run_script(script)
                    self.assertGreater(found["checked"], 20)
                    self.assertEqual(found["low"], [], (scheme, size))

    def test_the_borders_of_fields_are_seen(self):
        """3 to 1 against what is around them."""
        luminance = """
            const [red, green, blue] = arguments[0].match(/[\\d.]+/g).map(Number).map((part) => {
                const share = part / 255;
                return share <= 0.04045 ? share / 12.92 : ((share + 0.055) / 1.055) ** 2.4; });
            return 0.2126 * red + 0.7152 * green + 0.0722 * blue;"""
        for scheme in ("light", "dark"):
            self.open(WIDE, scheme)
            border = self.find("#screen").value_of_css_property("border-top-color")
            around = self.find("#read").value_of_css_property("background-color")
            low, high = sorted(self.run_script(luminance, colour) for colour in (border, around))
            self.assertGreaterEqual((high + 0.05) / (low + 0.05), 3)

    def test_every_stop_is_seen(self):
        """From the first stop to the explanation: each has an outline, is in the window and is not covered."""
        for size in (WIDE, NARROW):
            self.open(size)
            stops = []
            for _ in range(60):
                ActionChains(self.browser).send_keys(Keys.TAB).perform()
                stop = self.run_script((SCRIPTS / "focus.js").read_text())
                if stop is None or "page" == self.run_script("return document.activeElement.id"):
                    break
                stops.append(stop["path"])
                with self.subTest(size=size, stop=stop):
                    self.assertTrue(stop["hasOutline"])
                    self.assertTrue(stop["isSeen"])
            self.assertGreater(len(stops), 7)

    def test_screenshots(self):
        for size_name, size in (("wide", WIDE), ("narrow", NARROW)):
            for scheme in ("light", "dark"):
                self.open(size, scheme)
                self.page_of("Whole profile")
                self.browser.switch_to.default_content()
                self.screenshot("-".join(("playground", size_name, scheme)))
                self.find("#page").location_once_scrolled_into_view
                self.run_script("document.getElementById('page').scrollIntoView()")
                self.screenshot("-".join(("playground", size_name, scheme, "page")))
                self.run_script("document.getElementById('build').scrollIntoView()")
                self.screenshot("-".join(("playground", size_name, scheme, "build")))
        self.assertEqual(len(list(FOLDER.glob("*.png"))), 12)


def main():
    tests = unittest.defaultTestLoader.loadTestsFromModule(sys.modules[__name__])
    result = unittest.TextTestRunner(verbosity=2).run(tests)
    failed = len({str(getattr(test, "test_case", test)) for test, _ in result.failures + result.errors})
    skipped = len(result.skipped)
    print("%d passed, %d failed, %d skipped" % (result.testsRun - failed - skipped, failed, skipped))
    return 0 if result.wasSuccessful() else 1


if __name__ == "__main__":
    sys.exit(main())
