#!/usr/bin/env python3
"""Writes the sample drawings and their price list: generate_samples.py [FOLDER]. The same bytes every time."""

import pathlib
import sys

import house_geometry as house
from dxf_output import Block, Drawing, Format

FROZEN, LOCKED = 1, 4
LAYERS = [("0", 7, 0, True), ("WALLS", 7, 0, True), ("WALL_FILL", 9, 0, True), ("DOORS", 32, 0, True),
          ("WINDOWS", 150, 0, True), ("ריהוט", 8, 0, True), ("SANITARY", 142, 0, True), ("KITCHEN", 106, 0, True),
          ("LIGHTING", 30, 0, True), ("ELECTRICAL", 1, LOCKED, True), ("ROOM_NAMES", 200, 0, True),
          ("DIMENSIONS", 8, 0, True), ("VARIANT", 6, FROZEN, True), ("CONSTRUCTION", 3, 0, False),
          ("SHEET", 7, 0, True)]

# Name, price and description; in the cases that people type. No price: DINING_SET's chairs, PLANT, SWITCH and others.
PRICES = [("door_90", "640.00", "דלת פנים 90 ס\"מ"), ("DOOR_80", "590.00", "דלת פנים 80 ס\"מ"),
          ("Entrance Door", "3850.00", "דלת כניסה משוריינת"), ("window_160", "1280.50", "חלון אלומיניום 160 ס\"מ"),
          ("WINDOW_60", "545.00", "חלון קיפ 60 ס\"מ"), ("Bed_Double", "2450.00", "מיטה זוגית"),
          ("bed_single", "1190.00", "מיטת יחיד"), ("NIGHT TABLE", "280.00", "שידת לילה"),
          ("ארון בגדים", "1975.00", "ארון בגדים, שתי דלתות"), ("WC_PAN", "890.00", "אסלה תלויה (Villeroy)"),
          ("wash_basin", "420.00", "כיור רחצה"), ("BATHTUB", "1650.00", "אמבטיה 170x75"),
          ("Sofa 3 Seats", "4200.00", "ספה תלת-מושבית"), ("armchair", "1350.00", "כורסה"),
          ("COFFEE_TABLE", "760.00", "שולחן סלון"), ("dining_set", "3900.00", "פינת אוכל ו-6 כסאות"),
          ("DESK_160", "980.00", "שולחן כתיבה"), ("Office_Chair", "540.00", "כסא משרדי [ארגונומי]"),
          ("נברשת", "1120.00", "נברשת 6 זרועות"), ("light_ceiling", "145.90", "גוף תאורה צמוד תקרה"),
          ("SPOT", "38.50", "Spot light, LED"), ("socket", "24.00", "שקע חשמל"),
          ("FRIDGE", "5200.00", "מקרר"), ("cooker", "2100.00", "כיריים קרמיות"),
          ("PERGOLA", "7800.00", "פרגולה (אינה בתוכנית)")]
# In R12 names hold no blanks; the same things are priced under the names that they have there.
PRICES += [(name.replace(" ", "_"), price, description) for name, price, description in PRICES if " " in name]


def maker(drawing, layer, shape):
    """A function from (owner, in paper space) to the shape's groups, called when the owner has a handle."""
    kind, *rest = shape
    method = {"attdef": drawing.attribute_definition}.get(kind) or getattr(drawing, kind)
    return lambda owner, paper: method(layer, owner, paper, *rest)


def add_walls(drawing):
    xs, ys, filled = house.wall_cells()
    for i, j in sorted(filled):
        corners = [(xs[i], ys[j]), (xs[i + 1], ys[j]), (xs[i + 1], ys[j + 1]), (xs[i], ys[j + 1])]
        drawing.model.append(maker(drawing, "WALL_FILL", ("solid", corners)))
    for outline in house.wall_outlines():
        drawing.model.append(maker(drawing, "WALLS", ("polyline", outline, True)))


def add_fittings(drawing):
    def put(layer, name, x, y, angle=0, scale=(1, 1), array=None):
        drawing.model.append(maker(drawing, layer, ("insert", name, x, y, angle, scale, array)))

    for name, (x, y), angle, mirrored, _ in house.DOORS:
        put("DOORS", name, x, y, angle, (1, -1) if mirrored else (1, 1))
    for name, (x, y), angle in house.WINDOWS:
        put("WINDOWS", name, x, y, angle)
    for layer, fittings in (("ריהוט", house.FURNITURE), ("SANITARY", house.SANITARY), ("KITCHEN", house.KITCHEN),
                            ("LIGHTING", house.LIGHTS), ("ELECTRICAL", house.ELECTRICAL),
                            ("VARIANT", house.FROZEN_VARIANT), ("CONSTRUCTION", house.CONSTRUCTION)):
        for name, x, y, angle in fittings:
            put(layer, name, x, y, angle)
    # Arrays: one reference each, however many times it is drawn.
    put("LIGHTING", "SPOT", 7300, 6300, array=(4, 2, 800, 1000))
    put("KITCHEN", "COUNTER_60", 7360, 8750, scale=(0.9, 1))
    put("KITCHEN", "COUNTER_60", 10340, 5480, 90, array=(4, 1, 600, 1))
    put("0", "NORTH_ARROW", 15800, 8600)


def add_room_tags(drawing):
    for name, room, x, y, area in house.ROOMS:
        tag = ("insert", "ROOM_TAG", x, y, 0, (1, 1), None,
               [("ROOM", str(room), x, y - 75, 150), ("AREA", area, x, y - 400, 120)])
        drawing.model.append(maker(drawing, "ROOM_NAMES", tag))
        drawing.model.append(maker(drawing, "ROOM_NAMES", ("text", x, y + 230, 210, name)))


def add_dimension(drawing, start, end, offset, across):
    """A dimension of plain lines: `across` runs along y, else along x; `offset` is its place on the other axis."""
    def at(along, beside):
        return (beside, along) if across else (along, beside)

    tick = 70
    shapes = [("line", *at(start - 150, offset), *at(end + 150, offset))]
    for end_point in (start, end):
        shapes.append(("line", *at(end_point, offset - 250), *at(end_point, offset + 150)))
        shapes.append(("line", *at(end_point - tick, offset - tick), *at(end_point + tick, offset + tick)))
    x, y = at((start + end) / 2, offset)
    shapes.append(("text", x - (420 if across else 0), y + (0 if across else 90), 200, str(end - start)))
    drawing.model += [maker(drawing, "DIMENSIONS", shape) for shape in shapes]


def add_annotations(drawing):
    for start, end in ((0, 5000), (5000, 6600), (6600, 10400), (10400, house.WIDTH)):
        add_dimension(drawing, start, end, house.DEPTH + 500, False)
    add_dimension(drawing, 0, house.WIDTH, house.DEPTH + 1100, False)
    for start, end in ((0, 3900), (3900, 6100), (6100, house.DEPTH)):
        add_dimension(drawing, start, end, -600, True)
    drawing.model.append(maker(drawing, "ROOM_NAMES", ("text", 7000, -900, 350, "תוכנית קומת קרקע  1:50")))
    drawing.model.append(maker(drawing, "CONSTRUCTION", ("line", 6600, 4800, 7400, 4800)))


def add_sheet(drawing):
    title = ("insert", "TITLE_BLOCK", 230, 10, 0, (1, 1), None,
             [("TITLE", "תוכנית בית", 290, 36, 7), ("OWNER", "משפחת לוי", 290, 16, 5),
              ("SCALE", "1:50", 380, 37, 5), ("SHEET", "1", 380, 17, 5)])
    for shape in (("polyline", [(10, 10), (410, 10), (410, 287), (10, 287)], True), title,
                  ("text", 210, 270, 6, "GROUND FLOOR")):
        drawing.paper.append(maker(drawing, "SHEET", shape))


def house_plan(fmt):
    drawing = Drawing(fmt)
    drawing.extents = (-1400, -1100, 16400, 11100)
    drawing.layers = LAYERS
    drawing.ascii_layers = {"ריהוט": "FURNITURE"}
    for name, shapes in house.blocks():
        drawing.blocks.append(Block(name, [maker(drawing, "0", shape) for shape in shapes]))
    add_walls(drawing)
    add_fittings(drawing)
    add_room_tags(drawing)
    add_annotations(drawing)
    add_sheet(drawing)
    return fmt.encode(drawing.groups())


def price_list():
    """In UTF-8 behind its mark, which systems of every language read alike."""
    lines = (f"{name}|{price}|{description}\r\n" for name, price, description in PRICES)
    return "".join(lines).encode("utf-8-sig")


def main(folder):
    folder.mkdir(parents=True, exist_ok=True)
    formats = {"house_plan.dxf": Format("AC1027", "ANSI_1255"),
               "house_plan_r2000.dxf": Format("AC1015", "ANSI_1252"),
               "house_plan_r12.dxf": Format("AC1009", "ANSI_1255", "\r\n"),
               "house_plan_r12_binary.dxf": Format("AC1009", "ANSI_1255", binary=True)}
    for name, fmt in formats.items():
        (folder / name).write_bytes(house_plan(fmt))
    (folder / "house_prices.prc").write_bytes(price_list())


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else pathlib.Path(__file__).parent)
