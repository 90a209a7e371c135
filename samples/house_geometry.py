"""The house of the sample drawings: its walls, the blocks of its fittings and where they stand. Lengths in millimetres."""

OUTER, INNER = 250, 120
WIDTH, DEPTH = 14000, 9600

# Walls as rectangles (left, bottom, right, top), and the openings that doors and windows make in them.
WALLS = [(0, 0, WIDTH, OUTER), (0, DEPTH - OUTER, WIDTH, DEPTH), (0, 0, OUTER, DEPTH), (WIDTH - OUTER, 0, WIDTH, DEPTH),
         (4940, 0, 5060, DEPTH), (0, 3840, 5000, 3960), (0, 6040, 5000, 6160), (6540, 5340, 6660, DEPTH),
         (6540, 5340, WIDTH, 5460), (10340, 5340, 10460, DEPTH), (5000, 7840, 6600, 7960)]

# Doors: block, hinge, angle, mirrored, opening. A door's block opens from its hinge at (0, 0) along +x, leaf up.
DOORS = [("ENTRANCE DOOR", (5600, OUTER), 0, False, (5600, 0, 6600, OUTER)),
         ("DOOR_90", (4940, 2700), 90, False, (4940, 2700, 5060, 3600)),
         ("DOOR_80", (4940, 4300), 90, False, (4940, 4300, 5060, 5100)),
         ("DOOR_90", (4940, 6500), 90, False, (4940, 6500, 5060, 7400)),
         ("DOOR_90", (6660, 7000), -90, False, (6540, 6100, 6660, 7000)),
         ("DOOR_90", (11900, 5460), 180, True, (11000, 5340, 11900, 5460)),
         ("DOOR_80", (5400, 7840), 0, True, (5400, 7840, 6200, 7960))]

# Windows: block, the opening's lower left corner when seen along the wall, angle. The wall is OUTER thick.
WINDOWS = [("WINDOW_160", (1700, 0), 0), ("WINDOW_160", (1700, DEPTH - OUTER), 0), ("WINDOW_160", (7700, DEPTH - OUTER), 0),
           ("WINDOW_160", (11400, DEPTH - OUTER), 0), ("WINDOW_160", (8200, 0), 0), ("WINDOW_160", (10900, 0), 0),
           ("WINDOW_160", (OUTER, 1200), 90), ("WINDOW_160", (OUTER, 7100), 90), ("WINDOW_160", (WIDTH, 1900), 90),
           ("WINDOW_160", (WIDTH, 6700), 90), ("WINDOW_60", (5500, DEPTH - OUTER), 0), ("WINDOW_60", (OUTER, 4700), 90)]

ROOMS = [("חדר שינה", 1, 1500, 2900, "17.6"), ("אמבטיה", 2, 1600, 5450, "10.3"), ("חדר ילדים", 3, 4150, 7800, "16.0"),
         ("סלון", 4, 9900, 3500, "45.9"), ("מטבח", 5, 8100, 7750, "15.0"), ("חדר עבודה", 6, 11400, 7400, "13.5"),
         ("שירותים", 7, 5820, 8330, "2.1"), ("מבואה", 8, 5800, 6500, "3.8")]


def line(x1, y1, x2, y2):
    return ("line", x1, y1, x2, y2)


def box(x, y, width, height):
    return ("polyline", [(x, y), (x + width, y), (x + width, y + height), (x, y + height)], True)


def rounded(x, y, width, height, radius):
    """A box with round corners; a bulge of tan(90/4 degrees) makes a quarter of a circle."""
    bulge = 0.414214
    right, top = x + width, y + height
    return ("polyline", [(x + radius, y), (right - radius, y, bulge), (right, y + radius), (right, top - radius, bulge),
                         (right - radius, top), (x + radius, top, bulge), (x, top - radius), (x, y + radius, bulge)], True)


def oval(x, y, width, height):
    """Two half circles joined by straight sides, standing upright."""
    half = width / 2
    return ("polyline", [(x, y + half, 1), (x + width, y + half), (x + width, y + height - half, 1),
                         (x, y + height - half)], True)


def circle(x, y, radius):
    return ("circle", x, y, radius)


def arc(x, y, radius, start, end):
    return ("arc", x, y, radius, start, end)


def insert(name, x, y, angle=0, scale=(1, 1)):
    return ("insert", name, x, y, angle, scale)


def door(width, leaf=45):
    return [box(0, 0, leaf, width), arc(0, 0, width, 0, 90), line(0, 0, width, 0)]


def window(width):
    return [box(0, 0, width, OUTER), box(60, 95, width - 120, 60), line(width / 2, 95, width / 2, 155)]


def window_sill(width):
    return window(width) + [line(-40, 0, -40, -40), line(-40, -40, width + 40, -40), line(width + 40, -40, width + 40, 0)]


def sofa(seats):
    width = 700 * seats + 400
    cushions = [rounded(200 + 700 * i, 60, 700, 640, 60) for i in range(seats)]
    return [rounded(0, 0, width, 900, 100), rounded(0, 0, 200, 800, 80), rounded(width - 200, 0, 200, 800, 80),
            rounded(200, 700, width - 400, 200, 60)] + cushions


def plant():
    leaves = [arc(180 * x, 180 * y, 180, start, start + 180)
              for x, y, start in ((1, 0, 270), (-1, 0, 90), (0, 1, 0), (0, -1, 180))]
    return [circle(0, 0, 120), circle(0, 0, 90)] + leaves + [
        line(-90, -90, -270, -270), line(90, 90, 270, 270), line(-90, 90, -270, 270), line(90, -90, 270, -270)]


def blocks():
    """Name and contents of every block, the nested ones first."""
    return [
        ("PILLOW", [rounded(0, 0, 650, 400, 90), arc(325, -420, 560, 68, 112)]),
        ("CHAIR", [rounded(-225, -225, 450, 450, 70), arc(0, -140, 400, 52, 128)]),
        ("DOOR_90", door(900)),
        ("DOOR_80", door(800)),
        ("ENTRANCE DOOR", door(1000, 60) + [circle(90, 930, 25), line(0, -OUTER, 1000, -OUTER)]),
        ("WINDOW_160", window_sill(1600)),
        ("WINDOW_60", window(600)),
        ("BED_DOUBLE", [rounded(0, 0, 1600, 2000, 60), line(0, 1400, 1600, 1400), line(0, 1400, 500, 1150),
                        line(500, 1150, 1600, 1150), box(-40, 2000, 1680, 60),
                        insert("PILLOW", 100, 1500), insert("PILLOW", 850, 1500)]),
        ("BED_SINGLE", [rounded(0, 0, 900, 2000, 60), line(0, 1400, 900, 1400), box(-20, 2000, 940, 60),
                        insert("PILLOW", 125, 1500)]),
        ("NIGHT TABLE", [box(0, 0, 450, 400), circle(225, 200, 130), circle(225, 200, 40)]),
        ("ארון בגדים", [box(0, 0, 1800, 600), line(0, 560, 1800, 560), line(900, 0, 900, 560)] +
         [line(100 + 200 * i, 120, 140 + 200 * i, 440) for i in range(9)] + [line(40, 280, 1760, 280)]),
        ("WC_PAN", [rounded(-200, 0, 400, 180, 30), oval(-180, -470, 360, 640), oval(-125, -420, 250, 480),
                    circle(0, 100, 25)]),
        ("WASH_BASIN", [rounded(-300, -460, 600, 460, 80), oval(-200, -400, 400, 320), circle(0, -220, 22),
                        box(-20, -70, 40, 60), circle(-90, -50, 18), circle(90, -50, 18)]),
        ("BATHTUB", [box(0, 0, 1700, 750), rounded(70, 70, 1560, 610, 250), circle(330, 375, 35), circle(1690, 375, 0.5),
                     line(1630, 300, 1700, 300), line(1630, 450, 1700, 450)]),
        ("SHOWER", [box(0, 0, 900, 900), line(0, 0, 900, 900), line(0, 900, 900, 0), circle(450, 450, 60),
                    arc(900, 0, 900, 90, 180)]),
        ("SOFA 3 SEATS", sofa(3)),
        ("ARMCHAIR", sofa(1)),
        ("COFFEE_TABLE", [rounded(0, 0, 1200, 600, 60), rounded(60, 60, 1080, 480, 40)]),
        ("TV_UNIT", [box(0, 0, 2000, 420), box(300, 180, 1400, 60), line(900, 180, 820, 60), line(1100, 180, 1180, 60)]),
        ("DINING_SET", [rounded(-1000, -500, 2000, 1000, 80)] +
         [insert("CHAIR", x, 640) for x in (-640, 0, 640)] +
         [insert("CHAIR", x, -640, 180) for x in (-640, 0, 640)]),
        ("DESK_160", [box(0, 0, 1600, 750), rounded(500, 420, 600, 220, 20), box(620, 120, 380, 160),
                      box(1250, 60, 260, 350)]),
        ("OFFICE_CHAIR", [circle(0, 0, 260), arc(0, 0, 320, 30, 150), line(-277, 160, -225, 130), line(277, 160, 225, 130)] +
         [line(0, 0, x, y) for x, y in ((0, 200), (190, 62), (118, -162), (-118, -162), (-190, 62))]),
        ("BOOKCASE", [box(0, 0, 1200, 350)] + [line(400 * i, 0, 400 * i, 350) for i in (1, 2)] +
         [line(60 + 45 * i, 40, 60 + 45 * i, 310) for i in range(6)]),
        ("COUNTER_60", [box(0, 0, 600, 600), line(0, 40, 600, 40), line(280, 20, 320, 20)]),
        ("FRIDGE", [box(0, 0, 700, 680), line(0, 60, 700, 60), line(80, 20, 80, -30), line(350, 370, 350, 570),
                    line(250, 470, 450, 470), line(280, 400, 420, 540), line(280, 540, 420, 400)]),
        ("COOKER", [box(0, 0, 600, 600), line(0, 60, 600, 60)] +
         [circle(x, y, r) for x, y in ((170, 190), (430, 190), (170, 440), (430, 440)) for r in (110, 60)]),
        ("KITCHEN_SINK", [box(0, 0, 1200, 600), rounded(80, 90, 460, 400, 50), rounded(620, 90, 460, 400, 50),
                          circle(310, 290, 30), circle(850, 290, 30), circle(580, 530, 25), line(580, 530, 580, 380)]),
        ("LIGHT_CEILING", [circle(0, 0, 150), line(-106, -106, 106, 106), line(-106, 106, 106, -106)]),
        ("SPOT", [circle(0, 0, 70), circle(0, 0, 25)]),
        ("נברשת", [circle(0, 0, 120)] + [circle(x, y, 70) for x, y in
                                         ((300, 0), (150, 260), (-150, 260), (-300, 0), (-150, -260), (150, -260))] +
         [line(0.4 * x, 0.4 * y, 0.77 * x, 0.77 * y) for x, y in
          ((300, 0), (150, 260), (-150, 260), (-300, 0), (-150, -260), (150, -260))]),
        ("SOCKET", [arc(0, 0, 90, 0, 180), line(-90, 0, 90, 0), line(0, 90, 0, 180)]),
        ("SWITCH", [circle(0, 60, 45), line(32, 92, 150, 210), line(150, 210, 190, 170)]),
        ("PLANT", plant()),
        ("*U1", [("polyline", [(0, 0), (3200, 0), (3200, 2300), (0, 2300)], True),
                 ("polyline", [(120, 120), (3080, 120), (3080, 2180), (120, 2180)], True)] +
         [line(x, 0, x, -90) for x in range(100, 3200, 200)] + [line(x, 2300, x, 2390) for x in range(100, 3200, 200)]),
        ("NORTH_ARROW", [circle(0, 0, 500), ("polyline", [(0, 480), (-200, -350), (0, -180), (200, -350)], True),
                         line(0, 480, 0, -180), ("text", 0, 580, 260, "N")]),
        ("ROOM_TAG", [rounded(-260, -150, 520, 300, 150),
                      ("attdef", 0, -75, 150, "ROOM", "Room number", "0"),
                      ("attdef", 0, -400, 120, "AREA", "Area in square metres", "0.0")]),
        ("TITLE_BLOCK", [box(0, 0, 180, 40), line(0, 20, 180, 20), line(120, 0, 120, 40),
                         ("attdef", 60, 26, 7, "TITLE", "Title", "-"), ("attdef", 60, 6, 5, "OWNER", "Owner", "-"),
                         ("attdef", 150, 27, 5, "SCALE", "Scale", "1:50"), ("attdef", 150, 7, 5, "SHEET", "Sheet", "1")]),
    ]


FURNITURE = [("BED_DOUBLE", 250, 300, 0), ("NIGHT TABLE", 1900, 1890, 0), ("ארון בגדים", 2100, 3240, 0),
             ("ארון בגדים", 4940, 350, 90), ("BED_SINGLE", 2250, 8450, 90), ("BED_SINGLE", 2250, 6300, 90),
             ("NIGHT TABLE", 260, 7500, 0), ("ארון בגדים", 2260, 6160, 0), ("DESK_160", 2600, 8600, 0),
             ("OFFICE_CHAIR", 3400, 8230, 180), ("PLANT", 650, 3400, 0),
             ("SOFA 3 SEATS", 12900, 3950, 180), ("ARMCHAIR", 13600, 1100, 90), ("ARMCHAIR", 9500, 2250, -90),
             ("COFFEE_TABLE", 11100, 1750, 0), ("TV_UNIT", 10700, 270, 0), ("DINING_SET", 7800, 3900, 90),
             ("*U1", 10100, 900, 0), ("PLANT", 13380, 4950, 0), ("PLANT", 7350, 680, 0),
             ("PLANT", 10830, 8960, 0), ("DESK_160", 13740, 6300, 90), ("OFFICE_CHAIR", 12700, 7100, 90),
             ("BOOKCASE", 10460, 8150, 270), ("BOOKCASE", 10460, 6900, 270), ("BOOKCASE", 13740, 9340, 180)]

# Another arrangement of the living room, on a frozen layer; marks of the builders, on a layer that is off.
FROZEN_VARIANT = [("SOFA 3 SEATS", 9700, 4200, 0), ("COFFEE_TABLE", 10100, 3300, 0), ("ARMCHAIR", 12600, 3000, 0)]
CONSTRUCTION = [("LIGHT_CEILING", 7000, 4800, 0), ("SOCKET", 0, 0, 0)]

SANITARY = [("BATHTUB", 250, 3960, 0), ("WASH_BASIN", 2700, 6040, 0), ("WASH_BASIN", 3500, 6040, 0),
            ("WC_PAN", 2600, 4140, 180), ("SHOWER", 250, 5140, 0), ("WC_PAN", 6200, 9170, 0), ("WASH_BASIN", 5060, 8900, 90),
            ("KITCHEN_SINK", 7900, 8750, 0)]
KITCHEN = [("FRIDGE", 6660, 8670, 0), ("COOKER", 9100, 8750, 0), ("COUNTER_60", 9700, 8750, 0)]
LIGHTS = [("LIGHT_CEILING", 2500, 1900, 0), ("LIGHT_CEILING", 2600, 5000, 0), ("LIGHT_CEILING", 2500, 7750, 0),
          ("LIGHT_CEILING", 5800, 8800, 0), ("LIGHT_CEILING", 12100, 7000, 0), ("נברשת", 7800, 3900, 0),
          ("נברשת", 11700, 2700, 0), ("LIGHT_CEILING", 5800, 5600, 0)]
ELECTRICAL = [("SOCKET", 250, 3000, -90), ("SOCKET", 3900, 250, 0), ("SOCKET", 250, 6800, -90), ("SOCKET", 1500, 6160, 0),
              ("SOCKET", 7600, 250, 0), ("SOCKET", 13750, 1300, 90), ("SOCKET", 13750, 4200, 90), ("SOCKET", 9000, 5340, 180),
              ("SOCKET", 7000, 5460, 0), ("SOCKET", 13000, 5460, 0), ("SOCKET", 10340, 6500, 90),
              ("SWITCH", 4940, 2450, 90), ("SWITCH", 5060, 5250, -90), ("SWITCH", 4940, 6350, 90),
              ("SWITCH", 6900, 250, 0), ("SWITCH", 10800, 5460, 0), ("SWITCH", 6540, 7150, 90)]


def openings():
    found = [opening for *_, opening in DOORS]
    for name, (x, y), angle in WINDOWS:
        width = 1600 if name == "WINDOW_160" else 600
        found.append((x, y, x + width, y + OUTER) if angle == 0 else (x - OUTER, y, x, y + width))
    return found


def wall_cells():
    """The walls without their openings as a grid: the sorted xs and ys, and the set of filled cells (i, j)."""
    rectangles = WALLS + openings()
    xs = sorted({x for r in rectangles for x in (r[0], r[2])})
    ys = sorted({y for r in rectangles for y in (r[1], r[3])})

    def inside(x, y, rectangle):
        return rectangle[0] < x < rectangle[2] and rectangle[1] < y < rectangle[3]

    filled = set()
    for i in range(len(xs) - 1):
        for j in range(len(ys) - 1):
            x, y = (xs[i] + xs[i + 1]) / 2, (ys[j] + ys[j + 1]) / 2
            if any(inside(x, y, w) for w in WALLS) and not any(inside(x, y, o) for o in openings()):
                filled.add((i, j))
    return xs, ys, filled


def wall_outlines():
    """The edges of the filled cells, joined into closed outlines with the wall to their left."""
    xs, ys, filled = wall_cells()
    following = {}
    for i, j in sorted(filled):
        sides = [((i, j), (i + 1, j), (i, j - 1)), ((i + 1, j), (i + 1, j + 1), (i + 1, j)),
                 ((i + 1, j + 1), (i, j + 1), (i, j + 1)), ((i, j + 1), (i, j), (i - 1, j))]
        for start, end, neighbour in sides:
            if neighbour not in filled:
                following.setdefault(start, []).append(end)
    outlines = []
    while following:
        start = min(following)
        corner, path = start, []
        while True:
            path.append(corner)
            ends = following[corner]
            following_corner = ends.pop()
            if not ends:
                del following[corner]
            corner = following_corner
            if corner == start:
                break
        outlines.append([(xs[i], ys[j]) for i, j in without_straight_corners(path)])
    return outlines


def without_straight_corners(path):
    kept = []
    for before, corner, after in zip(path[-1:] + path[:-1], path, path[1:] + path[:1]):
        straight = before[0] == corner[0] == after[0] or before[1] == corner[1] == after[1]
        if not straight:
            kept.append(corner)
    return kept
