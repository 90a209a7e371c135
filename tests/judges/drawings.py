"""Makes random drawings: a plan of what one holds, and two ways to write it, by hand and with ezdxf."""

import sys

import ezdxf
from ezdxf.lldxf.const import DXF12

import names
from ezdxf_reader import decoded
from host import ROOT

sys.path.append(str(ROOT / "samples"))
from dxf_output import Block, Drawing, Format  # noqa: E402

VERSIONS = ["AC1009", "AC1012", "AC1014", "AC1015", "AC1018", "AC1021", "AC1024", "AC1027", "AC1032"]
EZDXF_KNOWS = {page for page in names.CODE_PAGES if page.startswith("ANSI") and page != "ANSI_936"}
FROZEN, LOCKED = 1, 4
MODEL, PAPER, OTHER_LAYOUT = "model", "paper", "other layout"


class Reference:
    def __init__(self, random, name, layer, space):
        self.name, self.layer, self.space = name, layer, space
        self.array = (random.randint(1, 4), random.randint(1, 4), 2.5, 3.0) if random.random() < 0.15 else None
        self.attributes = [("TAG", names.phrase(random, ["latin", "hebrew"]), 0, 0, 1)] if random.random() < 0.15 else []


class Plan:
    """What a drawing holds. The blocks are names; `inside` says which of them hold references to which."""

    def __init__(self, random):
        self.random = random
        self.by_hand = random.random() < 0.7
        self.version = random.choice(VERSIONS if self.by_hand else [v for v in VERSIONS if v not in ("AC1012", "AC1014")])
        self.code_page = random.choice([page for page in names.CODE_PAGES if self.by_hand or page in EZDXF_KNOWS])
        self.binary = random.random() < 0.25
        self.line_end = random.choice(["\n", "\r\n"])
        self.paper_is_current = random.random() < 0.15
        self.bare = self.by_hand and self.version == "AC1009" and random.random() < 0.3  # no tables at all
        self.layers = [("0", 0, True)]
        for number in range(random.choice([0, 2, 5])):
            layer = names.phrase(random, names.CODE_PAGES[self.code_page], "_-$") + str(number)
            self.layers.append((layer, random.choice([0, 0, LOCKED, FROZEN, FROZEN | LOCKED]), random.random() < 0.8))
        self.plan_blocks()
        self.plan_references()

    def plan_blocks(self):
        random = self.random
        # ezdxf lowers what is beyond the basic plane, and garbles what is below U+0100 where the code page lacks it.
        every = [script for script in names.SCRIPTS if self.by_hand or script not in ("accented", "beyond", "turkish")]
        scripts = random.choice([names.CODE_PAGES[self.code_page]] * 2 + [every])
        spellings = [names.phrase(random, scripts) for _ in range(random.choice([1, 3, 8, 20]))]
        spellings += [f"*{random.choice('UDT')}{number}" for number in range(random.choice([0, 0, 2]))]
        spellings += random.choice([[], [], ["plan|door"], ["summary" if random.random() < 0.5 else "Summary"]])
        self.blocks = list({names.lower(name): name for name in spellings}.values())
        self.xrefs = {name for name in self.blocks if random.random() < 0.05 and name[0] != "*"}
        self.inside = {name: random.sample(self.blocks[:i], min(i, random.choice([0, 0, 1, 2])))
                       for i, name in enumerate(self.blocks) if name not in self.xrefs}

    def plan_references(self):
        random = self.random
        self.references = []
        for _ in range(random.choice([0, 1, 5, 20, 60])):
            space = random.choice([MODEL, MODEL, MODEL, PAPER] + ([] if self.by_hand else [OTHER_LAYOUT]))
            layer = names.respelled(random, random.choice(self.layers)[0])
            self.references.append(Reference(random, names.respelled(random, random.choice(self.blocks)), layer, space))
        self.undefined = self.by_hand and self.references and random.random() < 0.03
        if self.undefined:
            self.references.append(Reference(random, "NO_SUCH_BLOCK", "0", MODEL))

    def selected(self):
        """The block names of the references that a selection of everything takes, in the order of the drawing."""
        frozen = set() if self.bare else {names.lower(n) for n, flags, _ in self.layers if flags & FROZEN}
        current = PAPER if self.paper_is_current and not self.bare else MODEL
        ordered = [r for space in (MODEL, PAPER) for r in self.references if r.space == space]
        return [r.name for r in ordered if r.space == current and names.lower(r.layer) not in frozen]

    def to_bytes(self, path):
        return HandWritten(self).to_bytes() if self.by_hand else with_ezdxf(self, path)


class Coding(Format):
    """Writes texts with escapes even where none is needed, and group codes without padding."""

    def __init__(self, plan):
        super().__init__(plan.version, plan.code_page, plan.line_end, plan.binary)
        self.random = plan.random
        self.encoding = "utf-8" if plan.version >= "AC1021" else "cp" + "".join(filter(str.isdigit, plan.code_page))
        self.escaped = plan.random.choice([0, 0, 0.1])
        self.code_format = plan.random.choice([b"%3d", b"%d", b"%6d"])

    def text_bytes(self, text):
        out = b""
        for unit in text if self.encoding == "utf-8" else names.units(text):
            try:
                if ord(unit) >= 0x80 and ord(unit) < 0x10000 and self.random.random() < self.escaped:
                    raise UnicodeError
                out += unit.encode(self.encoding)
            except UnicodeError:
                out += b"\\U+%04X" % ord(unit)
        return out

    def group(self, code, value):
        if self.binary:
            return super().group(code, value)
        line_end = self.line_end.encode()
        return self.code_format % code + line_end + self.text_bytes(str(value)) + line_end


class HandWritten(Drawing):
    def __init__(self, plan):
        super().__init__(Coding(plan))
        self.plan = plan
        self.layers = [(name, 7, flags, on) for name, flags, on in plan.layers]
        for name in plan.blocks:
            shapes = [lambda owner, paper: self.line("0", owner, paper, 0, 0, 1, 1)]
            shapes += [self.reference(Reference(plan.random, inner, "0", MODEL)) for inner in plan.inside.get(name, [])]
            self.blocks.append(Block(name, shapes))
        for reference in plan.references:
            (self.paper if reference.space == PAPER else self.model).append(self.reference(reference))

    def reference(self, reference):
        return lambda owner, paper: self.insert(reference.layer, owner, paper, reference.name, 1, 2,
                                                array=reference.array, attributes=reference.attributes)

    def layer_name(self, name):
        return name

    def block_name(self, name):
        return name

    def header(self):
        variables = super().header()
        return variables + ([(9, "$TILEMODE"), (70, 0)] if self.plan.paper_is_current else [])

    def block_groups(self):
        groups = super().block_groups()
        for name in self.plan.xrefs:
            at = groups.index((2, name))  # its flags follow; the path is group 1
            groups[at + 1] = (70, 4)
            groups.insert(groups.index((3, name), at) + 1, (1, "C:\\plans\\other.dxf"))
        return groups

    def groups(self):
        if not self.plan.bare:
            return super().groups()
        code_page = self.section("HEADER", [(9, "$DWGCODEPAGE"), (3, self.format.code_page)])
        blocks = self.section("BLOCKS", self.block_groups())
        return code_page + blocks + self.section("ENTITIES", self.entity_groups()) + [(0, "EOF")]

    def to_bytes(self):
        groups = self.groups()
        if not self.plan.binary and self.plan.random.random() < 0.3:
            groups = [extended for group in groups
                      for extended in ([(999, "a note")] if group[0] == 0 and self.plan.random.random() < 0.05 else []) + [group]]
        return self.format.encode(groups)


def with_ezdxf(plan, path):
    drawing = ezdxf.new(plan.version)
    drawing.encoding = "cp" + plan.code_page[len("ANSI_"):]
    drawing.header["$DWGCODEPAGE"] = plan.code_page
    drawing.header["$TILEMODE"] = 0 if plan.paper_is_current else 1
    for name, flags, on in plan.layers:
        layer = drawing.layers.get(name) if name == "0" else drawing.layers.add(name)
        layer.dxf.flags = flags
        layer.dxf.color = 7 if on else -7
    for name in plan.blocks:
        block = drawing.blocks.new(name, dxfattribs={"flags": 1 if name[0] == "*" else 0})
        if name in plan.xrefs:
            block.block.dxf.flags, block.block.dxf.xref_path = 4, "C:\\plans\\other.dxf"
        block.add_circle((0, 0), 1)
        for inner in plan.inside.get(name, []):
            block.add_blockref(inner, (1, 1))
    layouts = {MODEL: drawing.modelspace(), PAPER: drawing.active_layout() if drawing.dxfversion == DXF12 else
               drawing.layout("Layout1")}
    layouts[OTHER_LAYOUT] = layouts[PAPER]
    if drawing.dxfversion != DXF12:
        layouts[OTHER_LAYOUT] = drawing.layouts.new("Another")
    else:
        for reference in plan.references:
            reference.space = PAPER if reference.space == OTHER_LAYOUT else reference.space
    for reference in plan.references:
        insert = layouts[reference.space].add_blockref(reference.name, (1, 2), dxfattribs={"layer": reference.layer})
        if reference.array:
            insert.dxf.column_count, insert.dxf.row_count = reference.array[:2]
            insert.dxf.column_spacing, insert.dxf.row_spacing = reference.array[2:]
        for tag, value, x, y, height in reference.attributes:
            insert.add_attrib(tag, value, (x, y), dxfattribs={"height": height})
    drawing.saveas(path, fmt="bin" if plan.binary else "asc")
    data = path.read_bytes()
    return data if plan.binary or plan.line_end == "\n" else data.replace(b"\n", b"\r\n")


def counted_by_ezdxf(plan, path):
    """The names of Plan.selected(), as ezdxf reads them from the file. None where ezdxf cannot judge: it knows few code pages,
    and refuses some records with escapes in their names."""
    try:
        drawing = ezdxf.readfile(path)
    except (ezdxf.DXFError, ValueError):
        return None
    if plan.version < "AC1021" and drawing.encoding != "cp" + plan.code_page[len("ANSI_"):]:
        return None
    frozen = {names.lower(decoded(layer.dxf.name)) for layer in drawing.layers if layer.dxf.flags & FROZEN}
    space = drawing.modelspace()
    if drawing.header.get("$TILEMODE", 1) == 0:
        space = drawing.layouts.active_layout()
    return [decoded(i.dxf.name) for i in space.query("INSERT") if names.lower(decoded(i.dxf.layer)) not in frozen]
