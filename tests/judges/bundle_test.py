#!/usr/bin/python3
"""Unpacks the bundle for Windows as a new user does, on an English system and under a path with a blank and Hebrew letters,
starts it as a double click does, and prices the sample.

usage: bundle_test.py [TEST...]
"""

import os
import pathlib
import subprocess
import sys
import unittest
import zipfile


from desktop import DesktopTest, wait_until, xdotool
from host import ROOT, windows_path


class Bundle(DesktopTest):
    def test_prices_the_sample_where_it_was_unpacked(self):
        packed = subprocess.run([ROOT / "tools" / "bundle", self.folder], capture_output=True, text=True, check=True).stdout.strip()
        place = self.folder / "קבצים שלי"
        with zipfile.ZipFile(packed) as bundle:
            bundle.extractall(place)
        home = next(place.iterdir())
        self.assertEqual(home.name + ".zip", pathlib.Path(packed).name)
        subprocess.run(["localedef", "-i", "en_US", "-f", "UTF-8", self.folder / "en_US.UTF-8"], check=True)
        system = os.environ | {"LOCPATH": str(self.folder), "LC_ALL": "en_US.UTF-8", "CORVANES_PREFIX": str(self.folder / "prefix")}
        samples = home / "samples"
        report = samples / "report.txt"
        steps = subprocess.Popen([ROOT / "tools" / "session", "--display", ROOT / "tools" / "wine", "cmd", "/c", "start", "/wait",
                                  "", windows_path(home / "drawinghost.exe"), windows_path(samples / "house_plan.dxf")], env=system)
        self.addCleanup(steps.wait)

        def answer(title, *keys):
            """Sends keys to a window, and sets the focus first, since X may hold it elsewhere."""
            window = wait_until(lambda: xdotool("search", "--onlyvisible", "--name", title), title)
            wait_until(lambda: xdotool("windowfocus", window, "getwindowfocus") == window, f"the focus of {title}")
            for key in keys:
                xdotool("key", key) if key in ("Return", "alt+s", "alt+c") else xdotool("type", "--delay", 2, key)

        answer("^house_plan.dxf - Drawing Host$", "qxbomc", "Return")
        answer("^Open$", "house_prices.prc", "Return")
        answer("^house_plan.dxf - Drawing Host$", "all", "Return", "Return")
        answer("^BOM Report$", "alt+s")
        answer("^Save as$", report.name, "Return")
        wait_until(report.exists, "the report")
        answer("^BOM Report$", "alt+c")
        answer("^house_plan.dxf - Drawing Host$", "quit", "Return")
        self.assertEqual(steps.wait(timeout=60), 0)
        saved = report.read_bytes()
        text = saved.decode("utf-8-sig")
        self.assertTrue(saved.startswith(b"\xef\xbb\xbf"), "code page 1252 has no Hebrew")
        self.assertIn("נברשת", text)
        self.assertEqual(text.split()[-2:], ["Summary:", "62977.80"])


if __name__ == "__main__":
    if "CORVANES_SESSION" not in os.environ:
        os.execv(ROOT / "tools" / "session", [str(ROOT / "tools" / "session"), *sys.argv])
    unittest.main(argv=sys.argv, verbosity=2)
