"""The plant's page in a real browser: a broker, two cells that weld, a recorder and Chromium, on loopback."""

import json
import os
import re
import socket
import sqlite3
import subprocess
import tempfile
import time
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

    def __init__(self, folder, cells, brokers=1):
        self.folder = folder
        self.ports = [free_port() for _ in range(brokers)]
        self.page_port = free_port()
        self.running = {}
        self.broker("init", 0, str(self.ports[0]))
        for kind, name, *allowed in (*(("cell", cell) for cell in cells), ("recorder", "plant"),
                                     ("reader", "vera"), ("user", "bert", cells[0])):
            self.broker(kind, 0, name, *allowed, password=name[::-1])
        for number in range(1, brokers):
            self.broker("standby", 0, self.path(f"broker{number}"), str(self.ports[number]))
        for number in range(brokers):
            self.start_broker(number)
        program = self.path("seam.tl")
        with open(program, "w") as file:
            file.write(SEAM)
        for cell in cells:
            os.mkdir(self.path(cell))
            open(self.path(cell, "users"), "w").close()
            self.start(cell, cell, os.path.join(BIN, "controllerd"), "--cell", cell, "--data", self.path(cell),
                       "--example", "--weld", program, "--broker", self.address())
        os.mkdir(self.path("plant"))
        self.start_recorder()

    def path(self, *names):
        return os.path.join(self.folder, *names)

    def address(self, user=""):
        return f"mqtt://{user}" + ",".join(f"127.0.0.1:{port}" for port in self.ports)

    def broker(self, command, number, *arguments, password=""):
        subprocess.run([BROKER, command, self.path(f"broker{number}"), *arguments], input=password + "\n",
                       text=True, check=True)

    def start(self, name, account, *command):
        environment = {**os.environ, "WELMO_BROKER_PASSWORD": account[::-1]}
        with open(self.path(f"{name}.log"), "a") as log:
            self.running[name] = subprocess.Popen(command, env=environment, stderr=log)

    def start_broker(self, number):
        self.start(f"broker{number}.run", "", BROKER, "run", self.path(f"broker{number}"))

    def start_recorder(self):
        self.start("recorder", "plant", os.path.join(BIN, "recorder"), "--data", self.path("plant"), "--broker",
                   self.address("plant@"), "--http", f"127.0.0.1:{self.page_port}")

    def stop(self, name):
        process = self.running.pop(name)
        process.kill()
        process.wait()

    def end(self):
        for name in list(self.running):
            self.stop(name)


class Page(unittest.TestCase):
    """A browser and a plant."""

    cells = ["north", "south"]
    brokers = 1

    @classmethod
    def setUpClass(cls):
        folder = cls.enterClassContext(tempfile.TemporaryDirectory())
        cls.plant = Plant(folder, cls.cells, cls.brokers)
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

    def ask(self, what):
        """What the page would get."""
        return self.browser.execute_async_script(
            "const [what, done] = arguments; fetch('api/' + what).then(a => a.json()).then(done)", what)

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


class PageTest(Page):
    def test_who_may_see_what(self):
        self.come("bert", "wrong")
        self.wait(lambda: "Not signed in" in self.texts("#refused")[0])
        self.come("bert")
        self.wait(lambda: self.texts("#cells td:first-child") == ["north"])
        self.browser.get(self.url + "#cell/north")
        self.wait(lambda: self.all("#seams td a"))
        for what in ("seams?cell=south", "changes?", "alarms?", "sums?from=0&until=9000000000000"):
            said = json.dumps(self.ask(what))
            self.assertNotIn("south", said, what)
        seams = self.ask("seams?")["seams"]
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
        self.plant.stop("broker0.run")
        self.wait(lambda: "no connection to a broker" in self.texts("#lost")[0])
        self.assertEqual(set(self.texts("#cells td:nth-child(2)")), {"Not online"})
        self.plant.start_broker(0)
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


class LongWatch(Page):
    """Many cells on a pair of brokers that are killed in turn, watched for minutes."""

    cells = [f"cell{number:02}" for number in range(1, int(os.environ.get("WELMO_CELLS", "0")) + 1)]
    brokers = 2

    def online(self):
        return self.texts("#tiles strong")[:1]

    def test_watch(self):
        self.come("vera")
        everyone = [f"{len(self.cells)} / {len(self.cells)}"]
        self.wait(lambda: self.online() == everyone)
        end = time.monotonic() + 60 * float(os.environ["WELMO_MINUTES"])
        round = 0
        while time.monotonic() < end:
            lost = round % 2
            killed = 1000 * time.time()
            self.plant.stop(f"broker{lost}.run")
            self.wait(lambda: all(cell["there"] and cell["changed"] > killed
                                  for cell in self.ask("plant?")["cells"]))
            self.wait(lambda: self.online() == everyone)
            self.plant.start_broker(lost)
            time.sleep(10)
            self.assertEqual(self.online(), everyone)
            round += 1
        self.assertEqual(self.texts("#lost"), [""])
        self.assertEqual(self.browser.get_log("browser")[1:], [])
        stored = self.counted("SELECT count(*) FROM seam")
        self.assertEqual(stored, self.counted("SELECT count(DISTINCT cell || log || sequence) FROM seam"))
        self.wait(lambda: int(self.texts("#tiles strong")[3].replace(",", "")) >= stored)
        print(f"{round} brokers were killed; {stored} seams, {self.texts('#tiles strong')}")

    def counted(self, question):
        with sqlite3.connect(self.plant.path("plant", "plant.db")) as database:
            return database.execute(question).fetchone()[0]


if __name__ == "__main__":
    unittest.main(verbosity=2, defaultTest="LongWatch" if LongWatch.cells else "PageTest")
