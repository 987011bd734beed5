"""Pictures of report pages, one in light and one in dark colours. Usage: screenshots.py LIGHT_PAGE DARK_PAGE FOLDER"""
import pathlib
import sys
import tempfile

from browser import Browser

SIZE = (1360, 900)


def main(light_page, dark_page, folder):
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as profile, Browser(profile) as browser:
        browser.set_size(*SIZE)
        for colours, page in (("light", light_page), ("dark", dark_page)):
            browser.set_colours(colours)
            browser.get(pathlib.Path(page).resolve().as_uri())
            browser.save_screenshot(f"{folder}/report-{colours}.png")


main(*sys.argv[1:])
