"""Has the browser compile scripts, each alone and all as one, as the page joins them: scriptSyntax.py FILE..."""
import pathlib
import sys
import tempfile

from browser import Browser


def main(*files):
    sources = {file: pathlib.Path(file).read_text() for file in files}
    sources["all together"] = "\n".join(sources.values())
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as profile, Browser(profile) as browser:
        browser.execute_cdp_cmd("Runtime.enable", {})
        for name, source in sources.items():
            script = {"expression": source, "sourceURL": name, "persistScript": False}
            fault = browser.execute_cdp_cmd("Runtime.compileScript", script).get("exceptionDetails")
            if fault:
                sys.exit(f"{name}:{fault['lineNumber'] + 1}: {fault['exception']['description']}")


main(*sys.argv[1:])
