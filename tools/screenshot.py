#!/usr/bin/python3
"""Takes a picture of a whole page in a headless browser: screenshot.py PAGE OUT.png [--width N]"""

import argparse
import base64
import pathlib
import shutil
import sys

BROWSERS = ("chromium", "chromium-browser", "google-chrome")
HEIGHT_LIMIT = 16000  # larger pictures come out empty
SWITCHES = (
    "--headless=new",
    "--no-sandbox",  # root, for whom the sandbox does not work, may run this; pages are our own
    "--disable-gpu",
    "--disable-dev-shm-usage",
    "--disable-background-networking",
    "--disable-component-update",
    "--disable-sync",
    "--no-first-run",
    "--hide-scrollbars",
    "--force-device-scale-factor=1",
    "--force-color-profile=srgb",
)


class BrowserMissing(Exception):
    """Says in one line what to install."""


def requirements():
    """The paths of browser and driver, and selenium's classes."""
    browser = next(filter(None, map(shutil.which, BROWSERS)), None)
    driver = shutil.which("chromedriver")
    if browser is None or driver is None:
        raise BrowserMissing("no browser: apt-get install chromium chromium-driver")
    try:
        from selenium.webdriver import Chrome, ChromeOptions
        from selenium.webdriver.chrome.service import Service
    except ImportError as error:
        raise BrowserMissing(f"{sys.executable} has no selenium ({error}): "
                             "apt-get install python3-selenium") from error
    return browser, driver, Chrome, ChromeOptions, Service


def started(width=1200, height=900):
    """A running headless browser; whoever asks for it ends it with `quit`."""
    browser, driver, Chrome, ChromeOptions, Service = requirements()
    options = ChromeOptions()
    options.binary_location = browser
    for switch in SWITCHES + (f"--window-size={width},{height}",):
        options.add_argument(switch)
    started_browser = Chrome(service=Service(driver), options=options)
    started_browser.set_page_load_timeout(60)
    started_browser.set_script_timeout(60)
    return started_browser


def open_page(browser, page):
    """Opens a file; returns when it and its pictures are loaded."""
    from selenium.webdriver.support.wait import WebDriverWait

    browser.get(pathlib.Path(page).resolve().as_uri())
    WebDriverWait(browser, 60).until(lambda shown: shown.execute_script(
        "return document.readyState === 'complete' && [...document.images].every(i => i.complete)"))


def taken(browser, width):
    """The bytes of a PNG file of the open page in its whole height."""
    size = {"width": width, "height": 800, "deviceScaleFactor": 1, "mobile": False}
    browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", size)
    height = browser.execute_script("return document.documentElement.scrollHeight")
    clip = {"x": 0, "y": 0, "width": width, "height": min(height, HEIGHT_LIMIT), "scale": 1}
    shot = browser.execute_cdp_cmd("Page.captureScreenshot", {
        "format": "png", "captureBeyondViewport": True, "clip": clip})
    return base64.b64decode(shot["data"])


def main():
    parser = argparse.ArgumentParser(description=__doc__.split(":")[0])
    parser.add_argument("page", metavar="PAGE", type=pathlib.Path, help="an HTML file")
    parser.add_argument("out", metavar="OUT.png", type=pathlib.Path, help="the picture to write")
    parser.add_argument("--width", type=int, default=1200, help="of the picture, in pixels (1200)")
    arguments = parser.parse_args()
    if not arguments.page.is_file():
        print(f"{parser.prog}: no file {arguments.page}", file=sys.stderr)
        return 2
    try:
        browser = started(arguments.width)
    except BrowserMissing as error:
        print(f"{parser.prog}: {error}", file=sys.stderr)
        return 1
    try:
        open_page(browser, arguments.page)
        arguments.out.write_bytes(taken(browser, arguments.width))
    finally:
        browser.quit()
    return 0


if __name__ == "__main__":
    sys.exit(main())
