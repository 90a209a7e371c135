"""Price lists as people leave them, and a reader of them that shares nothing with the module's."""

import re

import names

PRICES = ["0", "12.5", "7", "0.10", "1250.00", "  3.25", "-4.5", "+8", "1e3", "2.5E-2", ".5", "5.", "abc", "12,50",
          "1.005", "2.675", "0.125", "99999999.99", "1e300", "1e999", "3.5 NIS", "0x10", "1e", "--2", "$5", "\t6",
          "123456789012345678901234567890", "-0", "1..2", "1 2", "٣"]
NUMBER = re.compile(r"[ \t-\r]*([-+]?)(\d+\.?\d*(?:[eE][-+]?\d+)?|\.\d+(?:[eE][-+]?\d+)?)", re.ASCII)


def list_bytes(random, drawing_names):
    """A price list for some of the names, in the system's code page or in UTF-8 behind its mark."""
    marked = random.random() < 0.4
    out = []
    for _ in range(random.choice([0, 3, 10, 10, 30])):
        line = entry(random, drawing_names) if random.random() < 0.85 else broken_line(random)
        try:
            data = line.encode("utf-8" if marked else "cp1255")
        except UnicodeEncodeError:
            continue
        if not marked and random.random() < 0.03:
            data += b"|\xd9\xff"[:random.randrange(4)]
        out.append(data + random.choice([b"\r\n", b"\r\n", b"\r\n", b"\n"]))
    data = b"".join(out)
    if random.random() < 0.1:
        data = data.rstrip(b"\r\n") + random.choice([b"", b"\r"])
    return (b"\xef\xbb\xbf" if marked else b"") + data


def entry(random, drawing_names):
    known = drawing_names and random.random() < 0.8
    name = random.choice(drawing_names) if known else names.phrase(random, list(names.SCRIPTS))
    description = random.choice(["", names.phrase(random, ["latin", "hebrew"], " ,-()[]\""),
                                 names.phrase(random, list(names.SCRIPTS), " ")])
    if random.random() < 0.01:
        description = random.choice("xא") * random.randint(900, 2200)
    line = names.respelled(random, name) + "|" + random.choice(PRICES)
    return line + ("|" + description if random.random() < 0.9 else "")


def broken_line(random):
    name = names.phrase(random, ["latin", "hebrew"])
    return random.choice(["", name, f"|5|{name}", f"{name}||x", f"{name}|", "||", "|", f"{name}|1|a|b|c", f" {name} |2| x ",
                          f"{name}\0x|3|y", f"{name}|4\0|z", f"\r{name}|6|\r"])


def file_text(data):
    """The units of a file's text. A byte that the code page lacks passes through as a unit of its own."""
    if data.startswith(b"\xef\xbb\xbf"):
        return names.units(data[3:].decode("utf-8", "replace"))
    return "".join(from_byte(byte) for byte in data)


def from_byte(byte):
    try:
        return bytes([byte]).decode("cp1255")
    except UnicodeDecodeError:
        return chr(0xF700 + byte)


def entries(data):
    """(name, price text, description) of the lines that count, in file order."""
    text = file_text(data).replace("\r\n", "\n")
    while text:
        end = text.find("\n", 0, 999)
        if end < 0 and len(text) < 999:
            return  # the end of the file was met before the line's
        end = 998 if end < 0 else end
        fields = re.split("[\0\n]", text[:end])[0].split("|")[:3]
        text = text[end + 1:]
        fields += [""] * (3 - len(fields))
        if fields[0] and fields[1]:
            yield tuple(fields)


def value(text):
    match = NUMBER.match(text)
    return float(match.group(1) + match.group(2)) if match else 0.0
