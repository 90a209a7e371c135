"""Writing of DXF drawings for the sample generator: R12, R2000 and R2013, text or binary. Standard library only."""

import struct

SENTINEL = b"AutoCAD Binary DXF\r\n\x1a\0"
REAL, INT16, INT32, FLAG = "<d", "<h", "<i", "<B"
BINARY_KINDS = [(10, 59, REAL), (60, 79, INT16), (90, 99, INT32), (110, 149, REAL), (170, 179, INT16),
                (210, 239, REAL), (270, 289, INT16), (290, 299, FLAG), (370, 389, INT16), (1010, 1059, REAL),
                (1060, 1070, INT16), (1071, 1071, INT32)]


def binary_kind(code):
    return next((kind for first, last, kind in BINARY_KINDS if first <= code <= last), None)


class Format:
    """A version with its code page and the look of its groups."""

    def __init__(self, version, code_page, line_end="\n", binary=False):
        self.version = version
        self.code_page = code_page
        self.line_end = line_end
        self.binary = binary
        self.r12 = version == "AC1009"

    def text_bytes(self, text):
        if self.version >= "AC1021":
            return text.encode("utf-8")
        encoding = "cp" + self.code_page[len("ANSI_"):]
        out = b""
        for character in text:
            try:
                out += character.encode(encoding)
            except UnicodeEncodeError:
                out += b"\\U+%04X" % ord(character)
        return out

    def group(self, code, value):
        if not self.binary:
            line_end = self.line_end.encode()
            return b"%3d" % code + line_end + self.text_bytes(str(value)) + line_end
        if not self.r12:
            head = struct.pack("<H", code)
        else:
            head = struct.pack("<B", code) if code < 255 else b"\xff" + struct.pack("<H", code)
        kind = binary_kind(code)
        if kind is None:
            return head + self.text_bytes(str(value)) + b"\0"
        return head + struct.pack(kind, float(value) if kind == REAL else int(value))

    def encode(self, groups):
        start = SENTINEL if self.binary else b""
        return start + b"".join(self.group(code, value) for code, value in groups)


def number(value):
    """Reals as short as they can be, always with a point."""
    return repr(round(float(value), 6) + 0.0)


def point(x, y, z=0.0, code=10):
    return [(code, number(x)), (code + 10, number(y)), (code + 20, number(z))]


class Block:
    def __init__(self, name, entities):
        self.name = name
        self.entities = entities


class Drawing:
    """Layers, blocks and entities, turned into the groups of one format."""

    def __init__(self, fmt):
        self.format = fmt
        self.handle = 0x2F
        self.layers = []       # (name, colour, flags, on)
        self.ascii_layers = {}  # other names for layers, where the code page lacks their letters
        self.blocks = []
        self.model = []
        self.paper = []
        self.extents = (0, 0, 1, 1)
        self.records = {}      # block name -> handle of its record

    def take_handle(self):
        self.handle += 1
        return f"{self.handle:X}"

    # Entities: every function gives the groups of one record with its sub-records.

    def head(self, kind, layer, subclass, owner, paper=False):
        layer = self.layer_name(layer)
        if self.format.r12:
            groups = [(0, kind), (8, layer)]
            return groups + ([(67, 1)] if paper else [])
        groups = [(0, kind), (5, self.take_handle()), (330, owner), (100, "AcDbEntity")]
        groups += [(67, 1)] if paper else []
        return groups + [(8, layer)] + ([(100, subclass)] if subclass else [])

    def line(self, layer, owner, paper, x1, y1, x2, y2):
        return self.head("LINE", layer, "AcDbLine", owner, paper) + point(x1, y1) + point(x2, y2, code=11)

    def circle(self, layer, owner, paper, x, y, radius):
        return self.head("CIRCLE", layer, "AcDbCircle", owner, paper) + point(x, y) + [(40, number(radius))]

    def arc(self, layer, owner, paper, x, y, radius, start, end):
        groups = self.head("ARC", layer, "AcDbCircle", owner, paper) + point(x, y) + [(40, number(radius))]
        groups += [] if self.format.r12 else [(100, "AcDbArc")]
        return groups + [(50, number(start)), (51, number(end))]

    def solid(self, layer, owner, paper, corners):
        groups = self.head("SOLID", layer, "AcDbTrace", owner, paper)
        for i, (x, y) in enumerate((corners[0], corners[1], corners[3], corners[2])):
            groups += point(x, y, code=10 + i)
        return groups

    def polyline(self, layer, owner, paper, points, closed):
        """Points are (x, y) or (x, y, bulge)."""
        flags = 1 if closed else 0
        points = [(*p, 0) if len(p) == 2 else p for p in points]
        if not self.format.r12:
            groups = self.head("LWPOLYLINE", layer, "AcDbPolyline", owner, paper)
            groups += [(90, len(points)), (70, flags), (43, "0.0")]
            for x, y, bulge in points:
                groups += [(10, number(x)), (20, number(y))] + ([(42, number(bulge))] if bulge else [])
            return groups
        groups = self.head("POLYLINE", layer, None, owner, paper) + [(66, 1)] + point(0, 0) + [(70, flags)]
        for x, y, bulge in points:
            groups += [(0, "VERTEX"), (8, self.layer_name(layer))] + ([(67, 1)] if paper else []) + point(x, y)
            groups += [(42, number(bulge))] if bulge else []
        return groups + [(0, "SEQEND"), (8, self.layer_name(layer))]

    def text(self, layer, owner, paper, x, y, height, text, centred=True):
        groups = self.head("TEXT", layer, "AcDbText", owner, paper)
        return groups + self.text_body(x, y, height, text, centred) + self.subclass("AcDbText")

    def text_body(self, x, y, height, text, centred):
        groups = point(x, y) + [(40, number(height)), (1, text)]
        return groups + ([(72, 1)] + point(x, y, code=11) if centred else [])

    def subclass(self, name):
        return [] if self.format.r12 else [(100, name)]

    def attribute_definition(self, layer, owner, paper, x, y, height, tag, prompt, default):
        groups = self.head("ATTDEF", layer, "AcDbText", owner, paper)
        groups += self.text_body(x, y, height, default, True) + self.subclass("AcDbAttributeDefinition")
        return groups + [(3, prompt), (2, tag), (70, 0)]

    def attribute(self, layer, owner, paper, x, y, height, tag, value):
        groups = self.head("ATTRIB", layer, "AcDbText", owner, paper)
        groups += self.text_body(x, y, height, value, True) + self.subclass("AcDbAttribute")
        return groups + [(2, tag), (70, 0)]

    def insert(self, layer, owner, paper, name, x, y, angle=0, scale=(1, 1), array=None, attributes=()):
        """Array is (columns, rows, column spacing, row spacing); attributes are (tag, value, x, y, height)."""
        subclass = "AcDbMInsertBlock" if array else "AcDbBlockReference"
        groups = self.head("INSERT", layer, subclass, owner, paper)
        own = groups[1][1]
        groups += ([(66, 1)] if attributes else []) + [(2, self.block_name(name))] + point(x, y)
        if scale != (1, 1):
            groups += [(41, number(scale[0])), (42, number(scale[1])), (43, "1.0")]
        groups += [(50, number(angle))] if angle else []
        if array:
            groups += [(70, array[0]), (71, array[1]), (44, number(array[2])), (45, number(array[3]))]
        for tag, value, ax, ay, height in attributes:
            groups += self.attribute(layer, own, paper, ax, ay, height, tag, value)
        return groups + (self.head("SEQEND", layer, None, own, paper) if attributes else [])

    def layer_name(self, name):
        """Readers differ on escapes in the layer names of R2000."""
        return name if self.format.code_page == "ANSI_1255" else self.ascii_layers.get(name, name)

    def block_name(self, name):
        """R12 knows no blanks in names."""
        return name.replace(" ", "_") if self.format.r12 else name

    # Structure.

    def groups(self):
        model, paper = "*Model_Space", "*Paper_Space"
        if not self.format.r12:
            for name in (model, paper, *(block.name for block in self.blocks)):
                self.records[name] = self.take_handle()
        blocks = self.section("BLOCKS", self.block_groups())
        entities = self.section("ENTITIES", self.entity_groups())
        root, layouts = self.take_handle(), {model: self.take_handle(), paper: self.take_handle()}
        objects = [] if self.format.r12 else self.section("OBJECTS", self.object_groups(root, layouts))
        tables = self.section("TABLES", self.table_groups(layouts))
        return self.section("HEADER", self.header()) + tables + blocks + entities + objects + [(0, "EOF")]

    @staticmethod
    def section(name, groups):
        return [(0, "SECTION"), (2, name)] + groups + [(0, "ENDSEC")]

    def header(self):
        left, bottom, right, top = self.extents
        groups = [(9, "$ACADVER"), (1, self.format.version), (9, "$DWGCODEPAGE"), (3, self.format.code_page)]
        groups += [(9, "$INSBASE")] + point(0, 0)
        groups += [(9, "$EXTMIN")] + point(left, bottom) + [(9, "$EXTMAX")] + point(right, top)
        groups += [(9, "$LIMMIN"), (10, number(left)), (20, number(bottom))]
        groups += [(9, "$LIMMAX"), (10, number(right)), (20, number(top))]
        groups += [(9, "$LTSCALE"), (40, "1.0"), (9, "$TEXTSIZE"), (40, "200.0")]
        groups += [(9, "$TEXTSTYLE"), (7, "STANDARD" if self.format.r12 else "Standard"), (9, "$CLAYER"), (8, "0")]
        if not self.format.r12:
            groups += [(9, "$INSUNITS"), (70, 4), (9, "$HANDSEED"), (5, f"{self.handle + 0x10:X}")]
        return groups

    def table(self, name, entries):
        """Entries are (type, name, groups); DIMSTYLE keeps its handle in group 105."""
        r12 = self.format.r12
        own = self.take_handle()
        groups = [(0, "TABLE"), (2, name)]
        groups += [] if r12 else [(5, own), (330, "0"), (100, "AcDbSymbolTable")]
        groups += [(70, len(entries))]
        groups += [(100, "AcDbDimStyleTable")] if name == "DIMSTYLE" and not r12 else []
        for subclass, entry, handle, body in entries:
            groups += [(0, name)]
            if not r12:
                code = 105 if name == "DIMSTYLE" else 5
                groups += [(code, handle or self.take_handle()), (330, own), (100, "AcDbSymbolTableRecord")]
                groups += [(100, subclass)]
            groups += [(2, entry)] + body
        return groups + [(0, "ENDTAB")]

    def table_groups(self, layouts):
        line_type = [(70, 0), (3, "Solid line"), (72, 65), (73, 0), (40, "0.0")]
        solid = "CONTINUOUS" if self.format.r12 else "Continuous"
        names = [solid] if self.format.r12 else ["ByBlock", "ByLayer", solid]
        types = [("AcDbLinetypeTableRecord", name, None, line_type) for name in names]
        layers = [("AcDbLayerTableRecord", self.layer_name(name), None,
                   [(70, flags), (62, colour if on else -colour), (6, solid)])
                  for name, colour, flags, on in self.layers]
        style = [(70, 0), (40, "0.0"), (41, "1.0"), (50, "0.0"), (71, 0), (42, "200.0"), (3, "arial.ttf"), (4, "")]
        styles = [("AcDbTextStyleTableRecord", "STANDARD" if self.format.r12 else "Standard", None, style)]
        groups = self.table("VPORT", [("AcDbViewportTableRecord", "*Active", None, self.view_port())])
        groups += self.table("LTYPE", types) + self.table("LAYER", layers) + self.table("STYLE", styles)
        groups += self.table("VIEW", []) + self.table("UCS", [])
        groups += self.table("APPID", [("AcDbRegAppTableRecord", "ACAD", None, [(70, 0)])])
        if self.format.r12:
            return groups
        groups += self.table("DIMSTYLE", [("AcDbDimStyleTableRecord", "Standard", None, [(70, 0)])])
        records = [("AcDbBlockTableRecord", name, handle, [(340, layouts.get(name, "0"))])
                   for name, handle in self.records.items()]
        return groups + self.table("BLOCK_RECORD", records)

    def view_port(self):
        left, bottom, right, top = self.extents
        return [(70, 0), (10, "0.0"), (20, "0.0"), (11, "1.0"), (21, "1.0"),
                (12, number((left + right) / 2)), (22, number((bottom + top) / 2)), (13, "0.0"), (23, "0.0"),
                (14, "100.0"), (24, "100.0"), (15, "100.0"), (25, "100.0"), (16, "0.0"), (26, "0.0"), (36, "1.0"),
                (17, "0.0"), (27, "0.0"), (37, "0.0"), (40, number((top - bottom) * 1.1)), (41, "1.4"),
                (42, "50.0"), (43, "0.0"), (44, "0.0"), (50, "0.0"), (51, "0.0"), (71, 0), (72, 1000), (73, 1),
                (74, 3), (75, 0), (76, 0), (77, 0), (78, 0)]

    def block_groups(self):
        spaces = [] if self.format.r12 else [Block("*Model_Space", []), Block("*Paper_Space", [])]
        groups = []
        for block in spaces + self.blocks:
            owner = self.records.get(block.name, "0")
            name = self.block_name(block.name)
            contents = [e for make in block.entities for e in make(owner, False)]
            flags = (1 if name.startswith("*U") else 0) | (2 if (0, "ATTDEF") in contents else 0)
            groups += self.head("BLOCK", "0", "AcDbBlockBegin", owner)
            groups += [(2, name), (70, flags)] + point(0, 0) + [(3, name)]
            groups += [] if self.format.r12 else [(1, "")]
            groups += contents + self.head("ENDBLK", "0", "AcDbBlockEnd", owner)
        return groups

    def entity_groups(self):
        groups = []
        for make in self.model:
            groups += make(self.records.get("*Model_Space"), False)
        for make in self.paper:
            groups += make(self.records.get("*Paper_Space"), True)
        return groups

    def object_groups(self, root, layouts):
        group_dictionary, layout_dictionary = self.take_handle(), self.take_handle()
        groups = self.dictionary(root, "0", [("ACAD_GROUP", group_dictionary), ("ACAD_LAYOUT", layout_dictionary)])
        groups += self.dictionary(group_dictionary, root, [])
        groups += self.dictionary(layout_dictionary, root,
                                  [("Model", layouts["*Model_Space"]), ("Layout1", layouts["*Paper_Space"])])
        groups += self.layout(layouts["*Model_Space"], layout_dictionary, "Model", 0, "*Model_Space")
        return groups + self.layout(layouts["*Paper_Space"], layout_dictionary, "Layout1", 1, "*Paper_Space")

    @staticmethod
    def dictionary(handle, owner, entries):
        groups = [(0, "DICTIONARY"), (5, handle), (330, owner), (100, "AcDbDictionary"), (281, 1)]
        for name, value in entries:
            groups += [(3, name), (350, value)]
        return groups

    def layout(self, handle, owner, name, tab, space):
        plot_flags = 1024 if tab == 0 else 0
        groups = [(0, "LAYOUT"), (5, handle), (330, owner), (100, "AcDbPlotSettings"), (1, ""), (2, "none_device"),
                  (4, "ISO_A3_(420.00_x_297.00_MM)"), (6, "")]
        groups += [(code, "0.0") for code in range(40, 44)] + [(44, "420.0"), (45, "297.0")]
        groups += [(code, "0.0") for code in range(46, 50)] + [(140, "0.0"), (141, "0.0"), (142, "1.0"), (143, "1.0")]
        groups += [(70, plot_flags), (72, 1), (73, 0), (74, 5), (7, ""), (75, 16), (147, "1.0"), (148, "0.0"),
                   (149, "0.0"), (100, "AcDbLayout"), (1, name), (70, 1), (71, tab), (10, "0.0"), (20, "0.0"),
                   (11, "420.0"), (21, "297.0")]
        groups += point(0, 0, code=12) + point(0, 0, code=14) + point(420, 297, code=15)
        groups += [(146, "0.0")] + point(0, 0, code=13) + point(1, 0, code=16) + point(0, 1, code=17)
        return groups + [(76, 0), (330, self.records[space])]
