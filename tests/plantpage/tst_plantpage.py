"""The plant's page in a real browser: a broker, two cells that weld, a recorder and Chromium, on loopback."""

import json
import os
import re
import socket
import subprocess
import tempfile
import unittest
import urllib.error
import urllib.request

from selenium import webdriver
from selenium.common.exceptions import TimeoutException
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.ui import WebDriverWait

ROOT = os.environ["WELMO_ROOT"]
BIN = os.environ["WELMO_BIN"]
BROKER = os.path.join(ROOT, "tools", "broker", "broker")
WEB = os.path.join(ROOT, "tools", "plantpage", "web")
PATIENT = 60.0
SEAM = """MoveL p3,v200,fine,torch1,wobj0
ArcOn "arcondata1","arcdata1"
WMoveL Offs(p3,0,20,0),v10,fine,torch1,wobj0
ArcOff "arcoffdata1"
"""


def free_port():
    with socket.socket() as one:
        one.bind(("127.0.0.1", 0))
        return one.getsockname()[1]


class Plant:
    """The programs of a plant as they are shipped; each account's password is its name backwards."""

    def __init__(self, folder):
        self.folder = folder
        self.broker_port, self.page_port = free_port(), free_port()
        self.running = {}
        self.broker("init", str(self.broker_port))
        for kind, name, *cells in (("cell", "north"), ("cell", "south"), ("recorder", "plant"),
                                   ("reader", "vera"), ("user", "anna", "north")):
            self.broker(kind, name, *cells, password=name[::-1])
        self.start("broker", BROKER, "run", self.path("broker"))
        program = self.path("seam.tl")
        with open(program, "w") as file:
            file.write(SEAM)
        for cell in ("north", "south"):
            os.mkdir(self.path(cell))
            open(self.path(cell, "users"), "w").close()
            self.start(cell, os.path.join(BIN, "controllerd"), "--cell", cell, "--data", self.path(cell),
                       "--example", "--weld", program, "--broker", f"mqtt://127.0.0.1:{self.broker_port}")
        os.mkdir(self.path("plant"))
        self.start_recorder()

    def path(self, *names):
        return os.path.join(self.folder, *names)

    def broker(self, command, *arguments, password=""):
        subprocess.run([BROKER, command, self.path("broker"), *arguments], input=password + "\n", text=True,
                       check=True)

    def start(self, name, *command):
        account = {"recorder": "plant"}.get(name, name)
        environment = {**os.environ, "WELMO_BROKER_PASSWORD": account[::-1]}
        with open(self.path(f"{name}.log"), "a") as log:
            self.running[name] = subprocess.Popen(command, env=environment, stderr=log)

    def start_recorder(self):
        self.start("recorder", os.path.join(BIN, "recorder"), "--data", self.path("plant"), "--broker",
                   f"mqtt://plant@127.0.0.1:{self.broker_port}", "--http", f"127.0.0.1:{self.page_port}")

    def stop(self, name):
        process = self.running.pop(name)
        process.kill()
        process.wait()

    def end(self):
        for name in list(self.running):
            self.stop(name)


class PageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = cls.enterClassContext(tempfile.TemporaryDirectory())
        cls.plant = Plant(folder)
        cls.addClassCleanup(cls.plant.end)
        cls.url = f"http://127.0.0.1:{cls.plant.page_port}/"

    def setUp(self):
        options = webdriver.ChromeOptions()
        for argument in ("headless=new", "no-sandbox", "disable-gpu", "lang=en"):
            options.add_argument("--" + argument)
        self.browser = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
        self.addCleanup(self.browser.quit)

    def wait(self, what, patience=PATIENT):
        try:
            return WebDriverWait(self.browser, patience).until(lambda _: what())
        except TimeoutException:
            self.fail("the page stays at:\n" + self.texts("body")[0])

    def all(self, selector):
        return self.browser.find_elements(By.CSS_SELECTOR, selector)

    def texts(self, selector):
        return self.browser.execute_script(
            "return [...document.querySelectorAll(arguments[0])].map(e => e.innerText)", selector)

    def press(self, *keys):
        webdriver.ActionChains(self.browser).send_keys(*keys).perform()

    def come(self, user, password=None):
        """Signs in with the keyboard alone."""
        self.browser.get(self.url)
        self.wait(lambda: self.browser.switch_to.active_element.get_attribute("name") == "user")
        self.press(user, Keys.TAB, password or user[::-1], Keys.ENTER)

    def seams_of(self, cell):
        """Waits until the plant has a seam of that cell."""
        self.browser.get(f"{self.url}#cell/{cell}")
        return self.wait(lambda: self.all("#seams td a"))

    def test_who_may_see_what(self):
        self.come("anna", "wrong")
        self.wait(lambda: "Not signed in" in self.texts("#refused")[0])
        self.come("anna")
        self.wait(lambda: self.texts("#cells td:first-child") == ["north"])
        self.browser.get(self.url + "#cell/north")
        self.wait(lambda: self.all("#seams td a"))
        asked = "const [what, done] = arguments; fetch('api/' + what).then(a => a.json()).then(done)"
        for what in ("seams?cell=south", "changes?", "alarms?", "sums?from=0&until=9000000000000"):
            said = json.dumps(self.browser.execute_async_script(asked, what))
            self.assertNotIn("south", said, what)
        seams = self.browser.execute_async_script(asked, "seams?")["seams"]
        self.assertEqual({seam["cell"] for seam in seams}, {"north"})
        self.browser.find_element(By.ID, "sign-out").click()
        self.wait(lambda: self.browser.switch_to.active_element.get_attribute("name") == "user")
        with self.assertRaises(urllib.error.HTTPError) as refused:
            urllib.request.urlopen(self.url + "api/plant")
        self.assertEqual(refused.exception.code, 401)

    def test_a_seam_by_keyboard_in_both_languages(self):
        self.come("vera")
        self.wait(lambda: self.texts("#cells td:first-child") == ["north", "south"])
        self.wait(lambda: "Welding" in self.texts("#cells td .pill"))
        link = self.seams_of("south")[0]
        link.send_keys(Keys.ENTER)
        self.wait(lambda: "Seam of" in self.texts("#seam-title")[0])
        inked = "const c = arguments[0]; return c.getContext('2d').getImageData(0, 0, c.width, c.height).data.some(v => v)"
        self.wait(lambda: self.browser.execute_script(inked, self.all("#course")[0]))
        for page in ("", "#cell/south", "#alarms", "#changes"):
            self.browser.get(self.url + page)
            self.all("#language")[0].click()
            self.wait(lambda: self.texts("html")[0] and self.texts("nav a")[1] == "报警")
            # Besides names, numbers and units nothing is left in English.
            shown = re.sub(r"English|plant|vera|north|south|seam\.tl|arc\w*data\d|kJ/mm|mm|[AVms]\b", "",
                           self.texts("body")[0])
            self.assertNotRegex(shown, r"[A-Za-z]{2}", page)
            self.all("#language")[0].click()
            self.wait(lambda: self.texts("nav a")[1] == "Alarms")
        self.assertEqual([entry for entry in self.browser.get_log("browser") if "401" not in entry["message"]], [])

    def test_on_a_phone(self):
        self.come("vera")
        self.seams_of("north")
        for width in (320, 480):
            self.browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
                "width": width, "height": 800, "deviceScaleFactor": 1, "mobile": True})
            for page in ("", "#cell/north", "#changes"):
                self.browser.get(self.url + page)
                self.wait(lambda: not self.all("main:not([hidden]) .empty:not([hidden])") or page == "#changes")
                wide = self.browser.execute_script("return document.scrollingElement.scrollWidth")
                self.assertLessEqual(wide, width, page)

    def test_what_is_lost_is_said_and_comes_back(self):
        self.come("vera")
        self.wait(lambda: "Welding" in self.texts("#cells td .pill"))
        self.plant.stop("broker")
        self.wait(lambda: "no connection to a broker" in self.texts("#lost")[0])
        self.assertEqual(set(self.texts("#cells td:nth-child(2)")), {"Not online"})
        self.plant.start("broker", BROKER, "run", self.plant.path("broker"))
        self.wait(lambda: "Welding" in self.texts("#cells td .pill") and self.texts("#lost") == [""])
        self.plant.stop("recorder")
        self.wait(lambda: "No connection to the recorder" in self.texts("#lost")[0])
        self.assertTrue(self.all(".stale #cells td"))
        self.plant.start_recorder()
        self.wait(lambda: "session has ended" in self.texts("#refused")[0])
        self.come("vera")
        self.seams_of("north")  # which the recorder had before

    def test_every_word_has_a_text(self):
        with open(os.path.join(WEB, "words.js")) as file:
            known = set(re.findall(r"^    (\w+): \['", file.read(), re.MULTILINE))
        used = set()
        for name in os.listdir(WEB):
            with open(os.path.join(WEB, name)) as file:
                used |= set(re.findall(r"\bword\('(\w+)'|data-(?:word|hint)=\"(\w+)\"", file.read()))
        self.assertEqual({first or second for first, second in used} - known, set())


if __name__ == "__main__":
    unittest.main(verbosity=2)
