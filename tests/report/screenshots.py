"""Pictures of a report page in light and dark colours. Usage: screenshots.py PAGE FOLDER"""
import pathlib
import sys
import tempfile

from browser import Browser

SIZE = (1360, 900)


def main(page, folder):
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as profile, Browser(profile) as browser:
        browser.set_size(*SIZE)
        for colours in ("light", "dark"):
            browser.set_colours(colours)
            browser.get(pathlib.Path(page).resolve().as_uri())
            browser.save_screenshot(f"{folder}/report-{colours}.png")


main(*sys.argv[1:])
