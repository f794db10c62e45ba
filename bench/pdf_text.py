"""The text of a PDF as its own maps have it: each code of each page, in the order of drawing.

Nothing is guessed from where things stand, so that what another reader folds or reorders can be told
from what the file says. pdf_text.py PDF
"""
import re
import subprocess
import sys


def objects(pdf):
    plain = subprocess.run(["qpdf", "--qdf", "--object-streams=disable", "--normalize-content=n", pdf, "-"],
                           capture_output=True, check=True).stdout
    return {int(number): body for number, body in re.findall(rb"\n(\d+) 0 obj\n(.*?)\nendobj", plain, re.S)}


def stream(body):
    return body.split(b"stream\n", 1)[1].rsplit(b"\nendstream", 1)[0]


def texts_of_codes(cmap):
    pairs = re.findall(rb"<([0-9A-F]+)> <([0-9A-F]+)>\n", cmap.split(b"endcodespacerange", 1)[1])
    return {bytes.fromhex(code.decode()): bytes.fromhex(text.decode()).decode("utf-16-be", "replace")
            for code, text in pairs}


def fonts(all_objects):
    """{name in the resources: (length of its codes, {code: text})}"""
    found = {}
    for body in all_objects.values():
        for name, number in re.findall(rb"/(F\d+) (\d+) 0 R", body):
            font = all_objects[int(number)]
            to_unicode = int(re.search(rb"/ToUnicode (\d+) 0 R", font)[1])
            length = 1 if b"/Type3" in font else 2
            found[name] = (length, texts_of_codes(stream(all_objects[to_unicode])))
    return found


TOKEN = re.compile(rb"/ActualText\(((?:[^\\()]|\\.)*)\)>>BDC|( EMC)|/(F\d+) [\d.]+ Tf"
                   rb"|\[((?:[^\]()]|\((?:[^\\()]|\\.)*\))*)\]TJ|( Td)", re.S)
STRING = re.compile(rb"\(((?:[^\\()]|\\.)*)\)", re.S)


def plain(string):
    return re.sub(rb"\\(.)", lambda m: b"\r" if m[1] == b"r" else m[1], string, flags=re.S)


def page_text(content, all_fonts):
    parts, font, said = [], None, False
    for match in TOKEN.finditer(content):
        saying, end, name, array, line = match.groups()
        if saying is not None:
            said = True
            parts.append(plain(saying).decode("utf-16", "replace"))
        elif end:
            said = False
        elif name:
            font = all_fonts[name]
        elif line:
            parts.append("\n")
        elif not said:
            for string in STRING.findall(array):
                codes = plain(string)
                length, texts = font
                parts += [texts.get(codes[i:i + length], "") for i in range(0, len(codes), length)]
    return "".join(parts)


def text(pdf):
    all_objects = objects(pdf)
    all_fonts = fonts(all_objects)
    pages = (re.search(rb"/Contents (\d+) 0 R", body) for body in all_objects.values() if b"/Type /Page\n" in body)
    return "".join(page_text(stream(all_objects[int(page[1])]), all_fonts) for page in pages if page)


if __name__ == "__main__":
    sys.stdout.write(text(sys.argv[1]))
