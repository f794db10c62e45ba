#!/usr/bin/python3
"""Whether a PDF is what it says: one for archives (ISO 19005-2, level U) that can be read aloud (ISO 14289-1).

archival.py FILE.pdf: says on standard error which of their clauses it breaks, and on standard output what a
reader of its structure gets: a line for each element that has text, with its role and language.

Looked at are, of 19005-2: 6.1.2 and 6.1.3 (header, trailer), 6.1.13 (limits), 6.2.3 (output intent), 6.2.4 (colours),
6.2.11 (fonts: embedded, widths, texts, no missing glyphs), 6.3 (annotations), 6.5 (actions), 6.6 (metadata); of
14289-1: 5 (identification), 7.1 (what is marked or an artifact), 7.2 (language), 7.3 (figures), 7.18 (links), 7.21.
"""
import base64
import io
import json
import re
import subprocess
import sys
import xml.etree.ElementTree as xml

from fontTools.cffLib import CFFFontSet
from fontTools.pens.basePen import NullPen
from fontTools.ttLib import TTFont

PATH = sys.argv[1]
FILE = open(PATH, "rb").read()
OBJECTS = json.loads(subprocess.run(
    ["qpdf", "--json=2", "--json-stream-data=inline", "--decode-level=all", PATH],
    check=True, capture_output=True).stdout)["qpdf"][1]
ROLES = {"Document", "Div", "P", "H1", "H2", "H3", "L", "LI", "Lbl", "LBody", "Figure", "Link"}
broken = set()


def must(holds, clause):
    if not holds:
        broken.add(clause)


def at(value):
    """What a reference refers to; a stream's dictionary has its bytes, too."""
    if not (isinstance(value, str) and re.fullmatch(r"\d+ 0 R", value)):
        return value
    found = OBJECTS["obj:" + value]
    if "value" in found:
        return found["value"]
    return {**found["stream"]["dict"], "bytes": base64.b64decode(found["stream"]["data"])}


TRAILER = OBJECTS["trailer"]["value"]
CATALOG = at(TRAILER["/Root"])


def check_file():
    must(re.match(rb"%PDF-1\.[4-7]\n%[\x80-\xff]{4}", FILE), "6.1.2")
    must(len(TRAILER["/ID"]) == 2 and "/Encrypt" not in TRAILER and FILE.endswith(b"%%EOF\n"), "6.1.3")
    for each in OBJECTS.values():
        kind = each.get("value", each.get("stream", {}).get("dict"))
        if isinstance(kind, dict):
            must(not {"/AA", "/OpenAction", "/JS", "/AF", "/Names"} & kind.keys(), "6.5 no actions of its own")
            must(kind.get("/ColorSpace") in (None, "/DeviceRGB", "/DeviceGray"), "6.2.4")
    intent, = at(CATALOG["/OutputIntents"])
    profile = at(at(intent)["/DestOutputProfile"])
    must(at(intent)["/S"] == "/GTS_PDFA1" and profile["/N"] == 3 and profile["bytes"][36:40] == b"acsp", "6.2.3")
    about = xml.fromstring(at(CATALOG["/Metadata"])["bytes"].split(b"?>", 1)[1].rsplit(b"<?", 1)[0])

    def told(name):
        return ["".join(e.itertext()).strip() for e in about.iter() if e.tag.endswith("}" + name)]

    information = at(TRAILER["/Info"])
    digits = [re.sub(r"\D", "", date) for date in (told("CreateDate")[0], information["/CreationDate"])]
    must(told("title") == [information["/Title"][2:]] and told("CreatorTool") == [information["/Creator"][2:]]
         and digits[0] == digits[1], "6.6.3")
    must(told("conformance") == ["U"] and "2" in told("part"), "6.6.4")
    must(told("part").count("1") == 1 and told("title") != [""], "UA 5")
    must(CATALOG["/MarkInfo"]["/Marked"] and CATALOG["/ViewerPreferences"]["/DisplayDocTitle"], "UA 7.1")
    must(CATALOG["/Lang"] == "u:ja", "UA 7.2")


class Font:
    """What its codes say, and how wide they are, as the file has it and as the font's program has."""

    def __init__(self, font):
        self.size = 1 if font["/Subtype"] == "/Type3" else 2
        maps = at(font["/ToUnicode"])["bytes"].split(b"endcodespacerange", 1)[1]
        pairs = re.findall(rb"^<(\w+)> <(\w+)>$", maps, re.M)
        self.texts = {int(a, 16): bytes.fromhex(b.decode()).decode("utf-16-be") for a, b in pairs}
        must(not {"\0", "\ufeff", "\ufffe"} & set("".join(self.texts.values())), "6.2.11.7.2")
        if self.size == 1:
            must("/FontDescriptor" in font, "UA 7.21 descriptor")
            self.widths = dict(enumerate(at(font["/Widths"]), font["/FirstChar"]))
            names = [name for name in at(font["/Encoding"])["/Differences"][1:] if isinstance(name, str)]
            programs = [at(at(font["/CharProcs"])[name])["bytes"] for name in names]
            self.real = {code: float(program.split()[0]) for code, program in enumerate(programs)}
        else:
            inner = at(at(font["/DescendantFonts"])[0])
            must(font["/Encoding"] == "/Identity-H" and re.match(r"/[A-Z]{6}\+", inner["/BaseFont"]), "6.2.11.3")
            must(inner["/Subtype"] == "/CIDFontType0" or inner["/CIDToGIDMap"] == "/Identity", "6.2.11.3.2")
            self.widths = {}
            runs = at(inner["/W"])
            for first, widths in zip(runs[::2], runs[1::2]):
                self.widths.update(enumerate(widths, first))
            self.real = self.program(at(inner["/FontDescriptor"]))

    def program(self, descriptor):
        must(0 < descriptor["/CapHeight"] <= 1000 and 10 < descriptor["/StemV"] < 400, "6.2.11.2 measures")
        if "/FontFile2" in descriptor:
            font = TTFont(io.BytesIO(at(descriptor["/FontFile2"])["bytes"]))
            scale = 1000 / font["head"].unitsPerEm
            return {font.getGlyphID(name): width * scale for name, (width, _) in font["hmtx"].metrics.items()}
        fonts = CFFFontSet()
        fonts.decompile(io.BytesIO(at(descriptor["/FontFile3"])["bytes"]), None)
        font = fonts[0]
        widths = {}
        for number, name in enumerate(font.charset):
            program, _ = font.CharStrings.getItemAndSelector(name)
            program.draw(NullPen())
            widths[int(name[3:]) if name.startswith("cid") else number] = program.width
        return widths

    def say(self, code):
        must(code in self.texts, "6.2.11.7.2 a code without a text")
        must(self.size == 1 or code != 0, "6.2.11.8")
        must(code in self.real and abs(self.widths.get(code, 1000) - self.real[code]) <= 1, "6.2.11.5")
        return self.texts.get(code, "")


TOKEN = re.compile(rb"\s*(?:(\((?:\\.|[^\\)])*\))|(<<|>>|\[|\])|<([0-9A-Fa-f]*)>|(/[^\s/<>\[\]()]*)|([-+.\d][-+.\d]*)"
                   rb"|([A-Za-z'*]+\d?))", re.S)
ESCAPED = {b"r": b"\r", b"n": b"\n", b"t": b"\t", b"b": b"\b", b"f": b"\f"}


def operations(content):
    """The operators of a content stream, with what comes before them."""
    before = []
    position = 0
    while found := TOKEN.match(content, position):
        position = found.end()
        string, bracket, digits, name, number, word = found.groups()
        if string:
            before.append(re.sub(rb"\\(.)", lambda m: ESCAPED.get(m[1], m[1]), string[1:-1], flags=re.S))
        elif digits is not None:
            before.append(bytes.fromhex(digits.decode()))
        elif word:
            yield word.decode(), before
            before = []
        else:
            before.append((bracket or name or b"").decode() or float(number))
    must(not content[position:].strip(), "6.2.2 content")


def actual(properties):
    """What marked content says, in place of its codes; None if nothing."""
    if "/ActualText" not in properties:
        return None
    said = properties[properties.index("/ActualText") + 1]
    must(len(said) <= 32767, "6.1.13")
    return said[2:].decode("utf-16-be") if said.startswith(b"\xfe\xff") else said.decode()


def contents(page, fonts):
    """The text of each marked content of a page, by its number."""
    texts, marks, font = {}, [], None
    for word, before in operations(at(page["/Contents"])["bytes"]):
        if word in ("BDC", "BMC"):
            number = int(before[before.index("/MCID") + 1]) if "/MCID" in before else None
            must(number is None or number == len(texts), "MCIDs in their order")
            marks.append((before[0], number, actual(before)))
            if number is not None:
                texts[number] = ""
        elif word == "EMC":
            kind, number, said = marks.pop()
            if said is not None:
                belongs(marks, texts, said)
        elif word == "Tf":
            font = fonts[before[0]]
        elif word == "TJ":
            shown = b"".join(each for each in before if isinstance(each, bytes))
            codes = [int.from_bytes(shown[i:i + font.size], "big") for i in range(0, len(shown), font.size)]
            belongs(marks, texts, "".join(map(font.say, codes)))
        elif word == "Do":
            belongs(marks, texts, "")
    must(not marks, "UA 7.1 balance")
    return texts


def belongs(marks, texts, said):
    """Gives a text to the content that it is in, unless that is an artifact or says another one."""
    must(any(number is not None or kind == "/Artifact" for kind, number, _ in marks), "UA 7.1 neither marked nor artifact")
    owners = [number for kind, number, _ in marks if number is not None]
    if owners and all(other is None for _, _, other in marks):
        texts[owners[-1]] += said


def numbers(node):
    """A number tree."""
    node = at(node)
    for kid in node.get("/Kids", []):
        found = dict(numbers(kid))
        must(list(found) == sorted(found) and at(kid)["/Limits"] == [min(found), max(found)], "number tree")
        yield from found.items()
    flat = node.get("/Nums", [])
    yield from zip(flat[::2], flat[1::2])


def pages(node):
    for kid in at(node)["/Kids"]:
        yield from pages(kid) if at(kid)["/Type"] == "/Pages" else [kid]


class Structure:
    def __init__(self):
        root = at(CATALOG["/Pages"])
        fonts = {name: Font(at(font)) for name, font in at(at(root["/Resources"])["/Font"]).items()}
        self.parents = dict(numbers(at(CATALOG["/StructTreeRoot"])["/ParentTree"]))
        self.texts = {}
        for page in pages(CATALOG["/Pages"]):
            said = contents(at(page), fonts)
            owners = at(self.parents.get(at(page).get("/StructParents"), []))
            must(len(owners) == len(said), "UA 7.1 parents of all contents")
            self.texts.update({(page, number): each for number, each in said.items()})
            self.check_links(at(page))
        self.left = set(self.texts)
        document = at(CATALOG["/StructTreeRoot"])["/K"]
        must(at(document)["/S"] == "/Document", "UA 7.1 document")
        self.walk(document, "u:ja")
        must(not self.left, "UA 7.1 contents that no element has")

    def check_links(self, page):
        for each in page.get("/Annots", []):
            link = at(each)
            must(link["/Subtype"] == "/Link" and link["/F"] == 4 and link["/A"]["/S"] == "/URI", "6.3 6.5")
            must(link["/Contents"] and page["/Tabs"] == "/S", "UA 7.18")
            element = at(self.parents[link["/StructParent"]])
            must(element["/S"] == "/Link" and any(isinstance(k, dict) and k.get("/Obj") == each for k in element["/K"]),
                 "UA 7.18.5")

    def walk(self, reference, language):
        element = at(reference)
        role = element["/S"][1:]
        language = element.get("/Lang", language)
        must(role in ROLES, "UA 7.1 role")
        must(role != "Figure" or element.get("/Alt"), "UA 7.3")
        said = ""
        for kid in element["/K"]:
            if isinstance(at(kid), dict) and "/S" in at(kid):
                must(at(kid)["/P"] == reference, "structure's parents")
                must((at(kid)["/S"] == "/LI") == (role == "L"), "UA 7.6")
                said += self.walk(kid, language)
            elif not (isinstance(kid, dict) and kid["/Type"] == "/OBJR"):
                place = (kid["/Pg"], kid["/MCID"]) if isinstance(kid, dict) else (element["/Pg"], kid)
                must(place in self.left and self.parents[at(place[0])["/StructParents"]][place[1]] == reference,
                     "UA 7.1 an element's contents")
                self.left.discard(place)
                said += self.texts.get(place, "")
        if role not in ("Document", "Div", "L", "LI", "Link"):
            print(f"{role} {language[2:]} {said}")
        return said


check_file()
Structure()
if broken:
    sys.exit("\n".join(sorted(broken)))
