"""Random block names, layers and descriptions in many scripts, and the case rules for them."""

SCRIPTS = {
    "latin": "abcdefghijklmnopqrstuvwxyz",
    "accented": "àéîõüçñæøåß",
    "hebrew": "אבגדהוזחטיכלמנסעפצקרשתםןךףץ",
    "cyrillic": "абвгдежзийклмнопрстуфхцчшщъыьэюяё",
    "greek": "αβγδεζηθικλμνξοπρστυφχψωςάέή",
    "turkish": "abcçğıiİIjöşüz",
    "korean": "문창벽침대의자책상가나다",
    "japanese": "ドアまど椅子机カナ",
    "chinese": "门窗桌椅床柜灯",
    "arabic": "ابتثجحخدذرسشصض",
    "thai": "กขคงจฉชซ",
    "beyond": "𐐀𐐨𝒜😀",
}
# The scripts that each code page of drawings holds; characters of others are written as escapes.
CODE_PAGES = {
    "ANSI_1252": ["latin", "accented"], "ANSI_1255": ["latin", "hebrew"], "ANSI_1251": ["latin", "cyrillic"],
    "ANSI_1253": ["latin", "greek"], "ANSI_1254": ["latin", "turkish"], "ANSI_1256": ["latin", "arabic"],
    "ANSI_874": ["latin", "thai"], "ANSI_949": ["latin", "korean"], "ANSI_932": ["latin", "japanese"],
    "ANSI_936": ["latin", "chinese"], "dos862": ["latin", "hebrew"], "dos850": ["latin", "accented"],
}
MARKS = "_-$ #.&+()[]{}!'%@~"


def units(text):
    """The UTF-16 units of a text, each as a character: what the module counts, pads and lowers."""
    data = text.encode("utf-16-le", "surrogatepass")
    return "".join(chr(data[i] | data[i + 1] << 8) for i in range(0, len(data), 2))


def joined(text):
    """The text of UTF-16 units; a half of a pair alone becomes U+FFFD."""
    data = b"".join(ord(unit).to_bytes(2, "little") for unit in text)
    return data.decode("utf-16-le", "replace")


def lower(text):
    """Lowers each UTF-16 unit by the simple mapping: no final sigma, İ stays as on Windows, nothing beyond the basic plane
    changes."""
    return "".join(unit.lower() if unit != "İ" else unit for unit in units(text))


def respelled(random, name):
    """The name with the case of letters changed, so that it is still the same name."""
    def other(letter):
        raised = letter.upper()
        return raised if len(raised) == 1 and lower(raised) == lower(letter) else letter

    kind = random.randrange(4)
    if kind == 0:
        return "".join(map(other, name))
    return "".join(other(c) if kind == 1 and random.random() < 0.5 else c for c in name)


def word(random, script):
    return "".join(random.choice(SCRIPTS[script]) for _ in range(random.randint(1, 7)))


def phrase(random, scripts, marks=MARKS):
    """One to three words; seldom one that is longer than any column is wide."""
    text = word(random, random.choice(scripts))
    for _ in range(random.choice([0, 0, 1, 1, 2, 9 if random.random() < 0.1 else 1])):
        text += random.choice(marks) + random.choice([word(random, random.choice(scripts)), str(random.randrange(99))])
    return text
