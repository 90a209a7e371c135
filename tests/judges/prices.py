"""Makes price lists as people leave them, and reads them independently of the module's reader."""

import re

import names

PRICES = ["0", "12.5", "7", "0.10", "1250.00", "  3.25", "-4.5", "+8", "1e3", "2.5E-2", ".5", "5.", "abc", "12,50",
          "1.005", "2.675", "0.125", "99999999.99", "1e300", "1e999", "3.5 NIS", "0x10", "1e", "--2", "$5", "\t6",
          "123456789012345678901234567890", "-0", "1..2", "1 2", "٣"]
NUMBER = re.compile(r"[ \t-\r]*([-+]?)(\d+\.?\d*(?:[eE][-+]?\d+)?|\.\d+(?:[eE][-+]?\d+)?)", re.ASCII)


def list_bytes(random, drawing_names):
    """A price list for some of the names, in the system's code page or in UTF-8 or UTF-16, as editors save it."""
    encoding = random.choice(["cp1255", "cp1255", "utf-8", "utf-8", "utf-8-sig", "utf-16-le", "utf-16-be"])
    out = []
    for _ in range(random.choice([0, 3, 10, 10, 30])):
        line = entry(random, drawing_names) if random.random() < 0.85 else broken_line(random)
        end = random.choice(["\r\n", "\r\n", "\r\n", "\n"])
        try:
            data = line.encode("utf-8" if encoding == "utf-8-sig" else encoding)
        except UnicodeEncodeError:
            continue
        if encoding == "cp1255" and random.random() < 0.03:
            data += b"|\xd9\xff"[:random.randrange(4)]
        out.append(data + end.encode(encoding if encoding.startswith("utf-16") else "ascii"))
    if len(out) > 1 and random.random() < 0.1 and not encoding.startswith("utf-16"):
        out[-1] = out[-1].rstrip(b"\r\n") + random.choice([b"", b"\r"])
    marks = {"utf-8-sig": b"\xef\xbb\xbf", "utf-16-le": b"\xff\xfe", "utf-16-be": b"\xfe\xff"}
    return marks.get(encoding, b"") + b"".join(out)


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
    for mark, encoding in ((b"\xef\xbb\xbf", "utf-8"), (b"\xff\xfe", "utf-16-le"), (b"\xfe\xff", "utf-16-be")):
        if data.startswith(mark):
            return names.units(data[len(mark):].decode(encoding, "replace"))
    if is_utf8(data):
        return names.units(data.decode("utf-8"))
    return "".join(from_byte(byte) for byte in data)


def is_utf8(data):
    """Whether the bytes are valid UTF-8 and not only ASCII."""
    try:
        return len(data.decode("utf-8")) < len(data)
    except UnicodeDecodeError:
        return False


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
            return  # the file ended before the line did
        end = 998 if end < 0 else end
        fields = re.split("[\0\n]", text[:end])[0].split("|")[:3]
        text = text[end + 1:]
        fields += [""] * (3 - len(fields))
        if fields[0] and fields[1]:
            yield tuple(fields)


def value(text):
    match = NUMBER.match(text)
    return float(match.group(1) + match.group(2)) if match else 0.0
