"""A browser without a window for the tests of the report and its pictures."""
import json

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common import utils

# It may run as root, in a container, and without a network or even the name "localhost".
SWITCHES = """--headless --no-sandbox --disable-gpu --disable-dev-shm-usage --disable-quic --no-first-run
--disable-background-networking --disable-component-update --disable-sync --hide-scrollbars
--remote-debugging-pipe""".split()


class _RemoteControl(Service):
    """Selenium would look for it under the name "localhost"."""

    HOST = "127.0.0.1"

    @property
    def service_url(self):
        return f"http://{self.HOST}:{self.port}"

    def is_connectable(self):
        return utils.is_connectable(self.port, self.HOST)


class Browser(webdriver.Chrome):
    def __init__(self, profile_folder):
        options = webdriver.ChromeOptions()
        options.binary_location = "/usr/bin/chromium"
        for switch in [*SWITCHES, f"--user-data-dir={profile_folder}"]:
            options.add_argument(switch)
        options.ignore_local_proxy_environment_variables()
        options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
        super().__init__(service=_RemoteControl("/usr/bin/chromedriver"), options=options)

    def set_size(self, width, height):
        size = {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": False}
        self.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", size)

    def set_colours(self, scheme, media=""):
        """`scheme` of the system, "light" or "dark"; `media` "print" shows the page as on paper."""
        features = [{"name": "prefers-color-scheme", "value": scheme}]
        self.execute_cdp_cmd("Emulation.setEmulatedMedia", {"media": media, "features": features})

    def messages(self):
        """What the console has shown since the last call: errors, and what the page's policy has kept from it."""
        return [entry["message"] for entry in self.get_log("browser")]

    def addresses(self):
        """What the browser has loaded since the last call."""
        events = [json.loads(entry["message"])["message"] for entry in self.get_log("performance")]
        return {event["params"]["request"]["url"] for event in events if event["method"] == "Network.requestWillBeSent"}
