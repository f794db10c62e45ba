#!/usr/bin/python3
"""Makes small fonts that no system has, one of each kind that a page may meet: make_fonts.py FOLDER"""
import os
import sys

from fontTools.colorLib.builder import buildCOLR, buildCPAL
from fontTools.fontBuilder import FontBuilder
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib.tables.TupleVariation import TupleVariation


def bar(left, right, bottom=0, top=700):
    pen = TTGlyphPen(None)
    if right > left:
        pen.moveTo((left, bottom))
        for corner in ((left, top), (right, top), (right, bottom)):
            pen.lineTo(corner)
        pen.closePath()
    return pen.glyph()


def left(glyph):
    return min((x for x, _ in glyph.coordinates), default=0) if glyph.numberOfContours else 0


def font(family, glyphs, advances=None):
    """`glyphs` by their characters; None stands for the one that is missing."""
    made = FontBuilder(1000, isTTF=True)
    names = {c: ".notdef" if c is None else f"u{c:X}" for c in (None, *glyphs)}
    made.setupGlyphOrder([*names.values(), "red", "blue", "wide"])
    made.setupCharacterMap({c: name for c, name in names.items() if c is not None})
    shapes = {names[c]: glyph for c, glyph in glyphs.items()}
    shapes.update({".notdef": bar(0, 0), "red": bar(0, 300), "blue": bar(300, 600), "wide": bar(0, 600)})
    made.setupGlyf(shapes)
    made.setupHorizontalMetrics({name: ((advances or {}).get(name, 1000), left(shape))
                                 for name, shape in shapes.items()})
    made.setupHorizontalHeader(ascent=800, descent=-200)
    made.setupNameTable({"familyName": family, "styleName": "Regular"})
    made.setupOS2(sTypoAscender=800, sTypoDescender=-200, usWinAscent=800, usWinDescent=200)
    made.setupPost()
    return made


def painted(family, character, version):
    made = font(family, {character: bar(0, 0)})
    # From red to blue, in version 1.
    line = {"Extend": "pad", "ColorStop": [{"StopOffset": i, "PaletteIndex": i, "Alpha": 1} for i in (0, 1)]}
    layers = [("red", 0), ("blue", 1)] if version == 0 else {
        "Format": 10, "Glyph": "wide", "Paint": {"Format": 4, "ColorLine": line, "x0": 100, "y0": 0, "x1": 500,
                                                 "y1": 0, "x2": 100, "y2": 100}}
    made.font["COLR"] = buildCOLR({f"u{character:X}": layers}, version=version)
    made.font["CPAL"] = buildCPAL([[(1, 0, 0, 1), (0, 0, 1, 0.5)]])
    return made


def variable(family, character):
    made = font(family, {character: bar(0, 100)})
    made.font["OS/2"].usWeightClass = 100
    made.setupFvar([("wght", 100, 100, 900, "Weight")], [
        {"location": {"wght": 100}, "stylename": "Thin"}, {"location": {"wght": 400}, "stylename": "Regular"}])
    wider = [(0, 0), (0, 0), (800, 0), (800, 0), (0, 0), (800, 0), (0, 0), (0, 0)]
    made.setupGvar({f"u{character:X}": [TupleVariation({"wght": (0, 1, 1)}, wider)]})
    return made


def forbidden(family, character):
    made = font(family, {character: bar(0, 100)})
    made.font["OS/2"].fsType = 2
    return made


FONTS = {
    "layers": painted("Layers", 0xE000, 0),
    "painted": painted("Painted", 0x1F600, 1),
    "variable": variable("Variable", 0xE001),
    # As fonts for Japanese have marks: as wide as a letter, and in no way known to be marks.
    "marks": font("Marks", {ord("q"): bar(100, 400, 0, 400), 0x301: bar(300, 800, 600, 700), 0x302: bar(300, 800, 600, 700)},
                  {"u71": 500}),
    "forbidden": forbidden("Forbidden", 0xE010),
    "low": font("Low", {ord("x"): bar(100, 400, 0, 400)}),
}

for name, made in FONTS.items():
    made.save(os.path.join(sys.argv[1], name + ".ttf"))
