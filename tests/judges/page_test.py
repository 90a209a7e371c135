#!/usr/bin/python3
"""Opens report.html in a headless browser and uses it as a person does: the sample house, on a phone, on paper, with hostile
names, with many references. Also compares SVGOUT's drawings with PNGOUT's by the ink in each part of the picture.

usage: page_test.py DRAWINGHOST.exe MODULE.arx [TEST...]
"""

import base64
import csv
import io
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

import ezdxf
from ezdxf import bbox
from selenium import webdriver
from selenium.webdriver import ActionChains
from selenium.webdriver.common.actions.wheel_input import ScrollOrigin
from selenium.webdriver.common.keys import Keys

from host import ROOT, SAMPLE, Host, windows_path

HOSTILE = ["<img src=x onerror=document.title=1>", "</script><script>document.title=1</script>", "]]>&lt;\"'`${1}", "{{data}}<!--",
           "=1+1\u202e\u2028", "__proto__"]
LIVELY = "return [document.title, document.images.length, document.scripts.length, getComputedStyle(document.body).display]"
SETTLED = "const done = arguments[arguments.length - 1]; requestAnimationFrame(() => requestAnimationFrame(() => done(performance.now())));"
# Measures the time until what a click lights up is in the page and laid out.
LIGHTING = """const row = document.querySelectorAll('#rows tr')[arguments[0]], begin = performance.now();
row.click(); document.body.getBoundingClientRect();
return performance.now() - begin;"""
# Drawings of other programs, where they are at hand: their letters, and endless lines at the border, differ more.
OTHERS = [ROOT.parent / "shared" / "drawings" / f"{name}.dxf" for name in (
    "acad_table_with_blockref_AC1032", "acadsharp_sample_AC1009_ascii", "acadsharp_sample_AC1015_binary", "acadsharp_sample_AC1018_ascii",
    "acadsharp_sample_AC1021_ascii", "acadsharp_sample_AC1032_ascii", "bad_R12_with_trash_beyond_EOF", "bad_duplicate_handles",
    "bricscad_nested_AC1027", "minsert_array_rotated_AC1021")]
# Measures the ink of each colour channel in cells of 40 by 40 pixels. Each picture is first put in the middle of a sheet.
INK = """const [sources, done] = arguments;
const load = (source) => new Promise((good, bad) => { const image = new Image(); image.onload = () => good(image); image.onerror = bad; image.src = source; });
(async () => done(await Promise.all(sources.map(async (source) => {
  const image = await load(source);
  const paper = Object.assign(document.createElement('canvas'), { width: 1600, height: 1200 }).getContext('2d', { willReadFrequently: true });
  paper.fillStyle = '#fff'; paper.fillRect(0, 0, 1600, 1200);
  paper.drawImage(image, (1600 - image.width) / 2, (1200 - image.height) / 2);
  const { data } = paper.getImageData(0, 0, 1600, 1200), cells = new Array(3600).fill(0);
  for (let i = 0; i < data.length; ++i) if (i % 4 < 3) cells[(Math.floor(i / 256000) * 40 + Math.floor(i / 4 % 1600 / 40)) * 3 + i % 4] += 255 - data[i];
  return cells;
}))))();"""


def run(*arguments):
    done = subprocess.run([ROOT / "run", "--quiet", *arguments], capture_output=True, text=True, check=False)
    if done.returncode != 0:
        raise AssertionError(done.stderr)


def drawing_of_looks():
    """A drawing of all that a display list can hold, ten thousand kilometres from the origin."""
    drawing = ezdxf.new("R2010", setup=True)
    drawing.header["$INSUNITS"] = 4
    for name, colour, line_type in (("RED", 1, "DASHED"), ("BLUE", 5, "Continuous"), ("OFF", 3, "Continuous")):
        drawing.layers.add(name, color=colour, linetype=line_type)
    drawing.layers.get("OFF").off()
    part, whole = drawing.blocks.new("PART"), drawing.blocks.new("WHOLE", base_point=(5e6, 5e6))
    part.add_line((0, 0), (10, 6), dxfattribs={"color": 0, "linetype": "ByBlock"})
    part.add_circle((5, 3), 2.5)
    part.add_lwpolyline([(0, 0), (10, 0), (10, 6, 0, 0, .5), (0, 6)], close=True, dxfattribs={"layer": "BLUE", "lineweight": 100})
    whole.add_blockref("PART", (5e6, 5e6), dxfattribs={"color": 0})
    whole.add_blockref("PART", (5e6 + 12, 5e6), dxfattribs={"xscale": -.5, "yscale": 1.2, "rotation": 30})
    whole.add_hatch(color=0).paths.add_polyline_path([(5e6, 5e6 - 4), (5e6 + 8, 5e6 - 4), (5e6 + 4, 5e6 - 1)])
    space = drawing.modelspace()
    for number, layer in enumerate(("0", "RED", "BLUE", "OFF")):
        place = (1e10 + 40 * number, 1e10)
        space.add_blockref("WHOLE", place, dxfattribs={"layer": layer, "color": (256, 6, 256, 256)[number], "rotation": 15 * number})
        space.add_text(f"שלום {layer} 123", height=4, dxfattribs={"insert": (place[0], place[1] + 25), "width": .8, "layer": layer})
    space.add_blockref("PART", (1e10, 1e10 - 60), dxfattribs={"column_count": 6, "row_count": 3, "column_spacing": 15, "row_spacing": 10})
    space.add_line((1e10 - 20, 1e10 - 70), (1e10 + 150, 1e10 + 40), dxfattribs={"layer": "RED"})
    space.add_ellipse((1e10 + 120, 1e10 - 40), (20, 5), .4, dxfattribs={"color": 7})
    return drawing


class PageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp(dir=ROOT / "build"))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        options = webdriver.ChromeOptions()
        for option in ("headless=new", "no-sandbox", "hide-scrollbars", "force-device-scale-factor=1", "window-size=1400,900",
                       f"user-data-dir={cls.folder}/browser"):
            options.add_argument("--" + option)
        options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
        cls.browser = webdriver.Chrome(options=options)
        cls.addClassCleanup(cls.browser.quit)
        cls.browser.set_script_timeout(60)
        run("--out", cls.folder / "house")

    def open(self, name, width=1400, height=900):
        self.browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                                     {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": False})
        self.browser.get((self.folder / name / "report.html").as_uri())
        return self.browser.execute_async_script(SETTLED)

    def all(self, selector):
        return self.browser.find_elements("css selector", selector)

    def text(self, selector):
        return self.all(selector)[0].text

    def js(self, script, *arguments):
        return self.browser.execute_script(script, *arguments)

    def press(self, *keys):
        ActionChains(self.browser).send_keys(*keys).perform()

    def marked(self):
        return [row.text for row in self.all("tr.marked td:nth-child(2)")]

    def test_sample_house(self):
        self.open("house")
        self.check_places()
        words = self.js("return [...document.querySelectorAll('#sheet text')].map((text) => text.textContent)")
        self.assertTrue(words)
        self.assertEqual([word for word in words if word in ("Block name", "2560.00")], [], "the table, or a part of it")
        rows = self.all("#rows tr")
        rows[0].click()
        self.assertEqual((self.marked(), self.text("#place")), (["door_90"], "door_90 4"))
        self.press(Keys.ARROW_RIGHT)
        self.assertEqual(self.text("#place"), "door_90 1 of 4")
        self.press(Keys.ESCAPE, Keys.ESCAPE, Keys.ARROW_DOWN, Keys.ARROW_DOWN)
        self.assertEqual(self.marked(), ["door_80"])
        self.press("/", "DOOR", Keys.ESCAPE, "/", "Win")
        self.assertEqual((self.text("#count"), len(self.all("#rows tr"))), ("2 of 24", 2))
        self.press(Keys.ESCAPE)
        self.all("#notes tr")[0].click()
        self.assertEqual(self.text("#place"), "29 places")
        self.all("#notes tr")[3].click()  # CHAIR and PILLOW, inside other blocks, whose references are lit
        self.assertEqual(self.js("return [...new Set(state.found.map((place) => place.block))].sort()"), ["bed_double", "bed_single", "dining_set"])
        self.all("#fit")[0].click()
        at = self.js("""const [door] = places.byHandle.get('23C'), [a, , c] = door.corners, pane = document.getElementById('view').getBoundingClientRect();
            return [(((a[0] + c[0]) / 2) - view.x) * view.scale + pane.width / 2, ((a[1] + c[1]) / 2 - view.y) * view.scale + pane.height / 2, pane.x, pane.y];""")
        click = ActionChains(self.browser)
        click.w3c_actions.pointer_action.move_to_location(int(at[0] + at[2]), int(at[1] + at[3])).click()
        click.perform()
        self.assertEqual((self.marked(), self.text("#place")), (["door_90"], "door_90 2 of 4"))
        self.check_hands()
        self.check_table()
        self.assertEqual(self.browser.get_log("browser"), [])

    def check_places(self):
        """What is lit is where ezdxf says that the references are."""
        found = self.js("return billRows.flatMap((row) => places.of(row)).map(({handle, corners}) => [handle, corners])")
        entities = ezdxf.readfile(SAMPLE).entitydb
        pairs = []
        for handle, corners in found:
            reference = entities[handle]
            if reference.mcount > 1:
                continue
            box = bbox.extents(reference.virtual_entities())
            self.assertTrue(box.has_data, handle)
            pairs.append(((box.center.x, -box.center.y), tuple((corners[0][axis] + corners[2][axis]) / 2 for axis in (0, 1))))
        counted = [entities[handle] for row in self.report("house")["rows"] for handle in row["handles"]]
        self.assertEqual(len(found), len(counted) - 2)  # less two on a layer that is off
        first, last = min(pairs), max(pairs)
        scale = (last[1][0] - first[1][0]) / (last[0][0] - first[0][0])
        for world, page in pairs:
            for axis in (0, 1):
                self.assertAlmostEqual(page[axis] - first[1][axis], (world[axis] - first[0][axis]) * scale, delta=2)

    def check_hands(self):
        """Wheel, dragging, two fingers, double click."""
        seen = lambda: self.js("return [view.x, view.y, view.scale].map((number) => Math.round(number * 1000) / 1000)")
        whole, pane = seen(), self.all("#view")[0]
        wheel = ActionChains(self.browser)
        wheel.scroll_from_origin(ScrollOrigin.from_element(pane, 100, 0), 0, -200).drag_and_drop_by_offset(pane, 50, 20).perform()
        moved = seen()
        self.assertGreater(moved[2], whole[2] * 1.2)
        for kind, apart in (("touchStart", 40), ("touchMove", 80), ("touchMove", 120)):
            points = [{"x": 300 - apart, "y": 400, "id": 0}, {"x": 300 + apart, "y": 400, "id": 1}]
            self.browser.execute_cdp_cmd("Input.dispatchTouchEvent", {"type": kind, "touchPoints": points})
        self.browser.execute_cdp_cmd("Input.dispatchTouchEvent", {"type": "touchEnd", "touchPoints": []})
        self.assertAlmostEqual(seen()[2] / moved[2], 3, delta=0.05)
        ActionChains(self.browser).double_click(pane).perform()
        self.assertEqual(seen(), whole)

    def report(self, name):
        return json.loads((self.folder / name / "report.json").read_bytes())

    def check_table(self):
        """Copying, hiding, sorting, ticking."""
        self.press(Keys.ESCAPE)
        copied = """const event = new ClipboardEvent('copy', {clipboardData: new DataTransfer(), bubbles: true, cancelable: true});
            document.body.dispatchEvent(event); return event.clipboardData.getData('text/plain');"""
        table = list(csv.reader(io.StringIO((self.folder / "house" / "report.csv").read_text(encoding="utf-8-sig"))))[:-1]
        self.assertEqual(self.js(copied), "".join("\t".join(row) + "\r\n" for row in table))
        self.assertEqual(self.text("#sum td:last-child"), "62977.80")
        self.all("#money")[0].click()
        self.js("document.querySelectorAll('#column-list input')[3].click()")
        self.js("document.querySelectorAll('#head button')[1].click()")
        quantities = [int(cell.text) for cell in self.all("#rows td.number")]
        self.assertEqual((quantities, self.all("#sum tr")), (sorted(int(row[2]) for row in table[1:]), []))
        self.assertEqual(self.js(copied).splitlines()[0], "Block name\tQuantity")
        self.all("#rows input")[0].click()
        self.open("house")
        self.assertEqual((self.text("#ticked"), len(self.all("tr.done"))), ("1 of 24 checked", 1))

    def test_phone_and_right_to_left(self):
        self.open("house", 390, 780)
        self.all("#rows tr")[0].click()
        self.assertLessEqual(self.js("return document.documentElement.scrollWidth"), 390)
        self.assertEqual(self.js("""const box = (s) => document.querySelector(s).getBoundingClientRect(), view = box('#view'), bill = box('#bill');
            return [view.height > 250, bill.top >= view.bottom, bill.height > 300, getComputedStyle(document.querySelector('table')).direction,
                    box('#rows td:nth-child(2)').left > box('#rows td:nth-child(4)').left, document.querySelector('#bill').scrollWidth <= bill.width]"""),
                         [True, True, True, "rtl", True, True])

    def test_printing(self):
        self.open("house")
        self.all("#rows tr")[3].click()
        printed = self.browser.execute_cdp_cmd("Page.printToPDF", {"printBackground": True})["data"]
        (self.folder / "page.pdf").write_bytes(base64.b64decode(printed))
        words = subprocess.run(["pdftotext", "-layout", self.folder / "page.pdf", "-"], capture_output=True, text=True, check=True).stdout
        for row in self.report("house")["rows"]:
            self.assertIn(row["total"], words)
        self.assertIn("62977.80", words)
        self.assertNotIn("Search", words)
        subprocess.run(["pdftoppm", "-r", "40", self.folder / "page.pdf", self.folder / "printed"], check=True)
        shapes = (self.folder / "printed-1.ppm").read_bytes()[15:]
        orange = sum(red > 230 and 150 < green < 225 and blue < 200 for red, green, blue in zip(*(shapes[at::3] for at in range(3))))
        self.assertGreater(orange, 50)  # the windows of the house are lit on paper too

    def test_hostile_names(self):
        """Hostile text in names of blocks and layers, in texts, descriptions, notes and the drawing's name does nothing; a file
        with hidden prices holds none."""
        drawing = ezdxf.new("R2010")
        harmless = [f"NAME_{number}" for number in range(len(HOSTILE))]  # replaced in the file below
        for number, name in enumerate(harmless):
            drawing.blocks.new(name).add_text(name, dxfattribs={"height": 2})
            drawing.layers.add(name)
            for column in range(2):
                drawing.modelspace().add_blockref(name, (20 * column, 5 * number), dxfattribs={"layer": name})
            drawing.modelspace().add_text(name, dxfattribs={"insert": (40, 5 * number), "layer": name})
        path = self.folder / "&lt;b&gt;' ]]&amp;{{script}};.dxf"
        drawing.saveas(path)
        text = path.read_text(encoding="utf-8")
        for name, hostile in zip(harmless, HOSTILE):
            text = text.replace(name, hostile)
        path.write_text(text, encoding="utf-8")
        prices = self.folder / "list.prc"
        prices.write_text("".join(f"{name}|{73519 + number}{',5' * number}|{name}\r\n" for number, name in enumerate(HOSTILE[:-1])), encoding="utf-8")
        for out, option in (("hostile", "--quiet"), ("hidden", "--hide-prices")):
            run(path, prices, "--out", self.folder / out, option)
            self.open(out)
            self.assertEqual(self.js(LIVELY), [f"{path.name} – bill of materials", 0, 2, "flex"])
            self.all("#rows tr")[0].click()
            names = self.js("return billRows.map((row) => row.block)")
            self.assertEqual(sorted(names), sorted(name.lower() for name in HOSTILE[:-1]))
            self.assertEqual(self.js("return [...document.querySelectorAll('#rows tr')].map((row) => row.cells[1].textContent)"), names)
            self.assertEqual(self.js("return billRows.map((row) => places.of(row).length)"), [2] * len(names))
            self.assertIn("__proto__ 2", self.text("#notes"))
            self.assertEqual(self.browser.get_log("browser"), [])
        self.assertIn("73519", (self.folder / "hostile" / "report.html").read_text(encoding="utf-8"))
        self.assertNotRegex((self.folder / "hidden" / "report.html").read_text(encoding="utf-8"), r"735\d\d|147038|,5")

    def test_many_references(self):
        for count, out in ((20_000, "many"), (60_000, "too many")):
            drawing = self.folder / f"{out}.dxf"
            subprocess.run([sys.executable, ROOT / "bench" / "generate_inserts.py", drawing, str(count)], check=True)
            run(drawing, "--out", self.folder / out)
        opened = min(self.open("many") for _ in range(3))
        lit = min(self.js(LIGHTING, number) for number in range(5))
        print(f"20,000 references: open in {opened:.0f} ms, lit in {lit:.1f} ms, load {os.getloadavg()[0]:.1f}")
        self.assertEqual(self.js("return places.all.length"), 20_000)
        shared = max(1, os.getloadavg()[0] / os.cpu_count())  # how many programs share each processor
        self.assertLess(opened, 2000 * shared)
        self.assertLess(lit, 50 * shared)
        self.open("too many")
        self.all("#rows tr")[0].click()
        self.assertEqual((len(self.all("#sheet img")), self.text("#place")), (1, "not shown in a picture"))
        self.assertIn("too many parts", self.text("#still"))
        self.assertEqual(self.browser.get_log("browser"), [])

    def test_svg_looks_like_png(self):
        drawing_of_looks().saveas(self.folder / "looks.dxf")
        self.browser.get("about:blank")
        drawings = [SAMPLE, SAMPLE.with_name("house_plan_r12_binary.dxf"), self.folder / "looks.dxf"]
        for number, drawing in enumerate([*drawings, *filter(pathlib.Path.exists, OTHERS)]):
            there = self.folder / str(number)
            there.mkdir()
            Host(PROGRAM, [], there, ["PNGOUT", windows_path(there / "a.png"), "SVGOUT", windows_path(there / "a.svg"), ""], drawing).succeed()
            sources = [f"data:image/{kind};base64," + base64.b64encode((there / name).read_bytes()).decode()
                       for kind, name in (("png", "a.png"), ("svg+xml", "a.svg"))]
            png, svg = self.browser.execute_async_script(INK, sources)
            difference = sum(abs(a - b) for a, b in zip(png, svg)) / sum(png)
            print(f"{drawing.name}: {difference:.3f} of the ink differs")
            self.assertLess(difference, 0.15 if drawing in drawings else 0.25, drawing)


if __name__ == "__main__":
    PROGRAM, MODULE = (sys.argv.pop(1) for _ in range(2))
    unittest.main()
