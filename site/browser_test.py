"""Opens the built site in headless Chromium, narrow and wide, light and dark: python3 browser_test.py SITE PICTURES

The screenshots are written into the folder PICTURES. The last line is "N passed, N failed, N skipped".
"""

import functools
import http.server
import sys
import threading
import time
import unittest
from pathlib import Path

from selenium.webdriver.common.by import By
from selenium.webdriver.support.ui import WebDriverWait

sys.path.append(str(Path(__file__).resolve().parents[1] / "tests" / "browser"))
from chromium import start_browser  # noqa: E402

SITE, PICTURES = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve()
SIZES = {"narrow": (390, 844), "wide": (1440, 1000)}
PAGES = (
    "index.html",
    "guides/cpp.html",
    "guides/scripts.html",
    "reference/index.html",
    "reference/errors.html",
    "reference/classes/CPDNTrans.html",
    "reference/classes/CPTTrans.html",
    "reference/queries/SR.html",
    "docs/architecture.html",
    "docs/com.html",
)


class QuietHandler(http.server.SimpleHTTPRequestHandler):
    def log_message(self, *_):
        pass


class SiteTest(unittest.TestCase):
    """The search needs a server. Each test has a browser of its own, because the theme remembers the colours."""

    @classmethod
    def setUpClass(cls):
        handler = functools.partial(QuietHandler, directory=SITE)
        cls.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), handler)
        threading.Thread(target=cls.server.serve_forever, daemon=True).start()
        PICTURES.mkdir(parents=True, exist_ok=True)

    @classmethod
    def tearDownClass(cls):
        cls.server.shutdown()

    def setUp(self):
        self.browser = start_browser()
        self.addCleanup(self.browser.quit)

    def open(self, page, size, scheme="light"):
        width, height = SIZES[size]
        is_narrow = size == "narrow"
        self.command(
            "Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=is_narrow
        )
        self.command("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": scheme}])
        self.browser.get(f"http://127.0.0.1:{self.server.server_port}/{page}")

    def command(self, name, **parameters):
        return self.browser.execute_cdp_cmd(name, parameters)

    def run_script(self, script, *arguments):
        return self.browser.execute_script(script, *arguments)

    def look_at_all(self, size, scheme):
        for page in PAGES:
            with self.subTest(page):
                self.open(page, size, scheme)
                self.assertLessEqual(self.run_script("return document.documentElement.scrollWidth"), SIZES[size][0])
                colours = self.run_script("return document.body.dataset.mdColorScheme")
                self.assertEqual(colours, {"light": "default", "dark": "slate"}[scheme])
                self.browser.save_screenshot(str(PICTURES / f"{page.replace('/', '-')[:-5]}-{size}-{scheme}.png"))
        self.assertEqual([entry for entry in self.browser.get_log("browser") if entry["level"] == "SEVERE"], [])

    def test_no_page_is_wider_than_a_wide_window_in_light_colours(self):
        self.look_at_all("wide", "light")

    def test_no_page_is_wider_than_a_wide_window_in_dark_colours(self):
        self.look_at_all("wide", "dark")

    def test_no_page_is_wider_than_a_narrow_window_in_light_colours(self):
        self.look_at_all("narrow", "light")

    def test_no_page_is_wider_than_a_narrow_window_in_dark_colours(self):
        self.look_at_all("narrow", "dark")

    def test_a_screen_scrolls_inside_its_own_box_where_the_window_is_narrow(self):
        width = "const box = document.querySelector('.screen'); return [box.scrollWidth, box.clientWidth]"
        self.open("reference/queries/SR.html", "narrow")
        content, box = self.run_script(width)
        self.assertGreater(content, box)
        self.open("reference/queries/SR.html", "wide")
        content, box = self.run_script(width)
        self.assertLessEqual(content, box)

    def test_the_ruler_stands_above_the_columns(self):
        """The column of a coloured value, measured in characters of the ruler, is the one that the tool says."""
        self.open("reference/queries/FFN.html", "wide")
        column = self.run_script(
            "const screen = [...document.querySelectorAll('.screen')].find(box => box.querySelector('mark.part'));"
            "const ruler = screen.querySelector('.ruler').getBoundingClientRect();"
            "const number = screen.querySelector('.number').getBoundingClientRect();"
            "const value = screen.querySelector('mark.part').getBoundingClientRect();"
            "const character = ruler.width / screen.querySelector('.ruler').textContent.length;"
            "return (value.left - number.right) / character + 1;"
        )
        self.assertAlmostEqual(column, 18, places=1)

    def found_by(self, words):
        self.browser.find_element(By.CSS_SELECTOR, ".md-search__input").click()
        self.browser.find_element(By.CSS_SELECTOR, ".md-search__input").send_keys(words)
        results = ".md-search-result__article h1"
        WebDriverWait(self.browser, 20).until(lambda browser: browser.find_elements(By.CSS_SELECTOR, results))
        time.sleep(0.5)
        return [each.text for each in self.browser.find_elements(By.CSS_SELECTOR, results)]

    def test_the_search_finds_classes_keys_and_families(self):
        found = {"CPDNTrans": "CPDNTrans", "strKeyRecLocPos": "CPDNTrans", "5265": "RC", "visa": "PIV"}
        for words, page in found.items():
            with self.subTest(words):
                self.open("index.html", "wide")
                self.assertIn(page, self.found_by(words))

    def test_the_colours_can_be_changed(self):
        self.open("index.html", "wide", "dark")
        self.browser.find_element(By.CSS_SELECTOR, "form[data-md-component=palette] label:not([hidden])").click()
        self.assertEqual(self.run_script("return document.body.dataset.mdColorScheme"), "default")


def main():
    tests = unittest.defaultTestLoader.loadTestsFromModule(sys.modules[__name__])
    result = unittest.TextTestRunner(verbosity=2).run(tests)
    failed = len({str(getattr(test, "test_case", test)) for test, _ in result.failures + result.errors})
    skipped = len(result.skipped)
    print(f"{result.testsRun - failed - skipped} passed, {failed} failed, {skipped} skipped")
    return 0 if result.wasSuccessful() else 1


if __name__ == "__main__":
    sys.exit(main())
