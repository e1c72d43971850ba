"""Makes the font Tolvan Devanagari out of its source, Noto Serif Devanagari."""

import copy
import os

from fontTools import subset
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib import TTFont

import encodingtable
from assembly import script_record
from layout import JOINER, VIRAMA_GLYPH, Layout
from shaping import shape

HERE = os.path.dirname(os.path.abspath(__file__))
SOURCE = "/usr/share/fonts/truetype/noto/NotoSerifDevanagari-Regular.ttf"
TARGET = os.path.normpath(os.path.join(HERE, "..", "..", "assets", "fonts", "TolvanDevanagari.ttf"))

FAMILY = "Tolvan Devanagari"
VERSION = "1.000"
# Seconds since 1904 in the font's head; fixed, so that every build has the same bytes. The start of 2024.
CREATED = 3786912000
DOTTED_CIRCLE = "uni25CC"
BASE_CLASS = 1
# OS/2 ulCodePageRange1, bit 0: windows-1252.
LATIN_1_CODE_PAGE = 1


def pictures_of(rows):
    """What the source font draws for each code: its glyphs, without the dotted circle that it puts under a sign
    that stands alone, or the letter that shows a reph its place."""
    texts = []
    for row in rows:
        if row.kind == "reph":
            texts.append(row.draws.replace("\u094d", "\u094dक"))
        elif row.kind == "half":
            texts.append(row.draws + encodingtable.ZERO_WIDTH_JOINER)
        else:
            texts.append(row.draws)
    pictures = {}
    for row, line in zip(rows, shape(SOURCE, texts)):
        carrier = "uni0915" if row.kind == "reph" else DOTTED_CIRCLE
        glyphs = [glyph for glyph in line.glyphs if glyph.name != carrier]
        if row.kind == "half":
            glyphs = [glyph for glyph in glyphs if glyph.name != "space"]
        if not glyphs or any(glyph.name == ".notdef" for glyph in glyphs):
            raise SystemExit(f"code {row.code}: the source font does not draw {row.draws}")
        pictures[row.code] = (glyphs, line.advance)
    return pictures


def add_glyph(font, name, glyph, advance):
    font.setGlyphOrder(font.getGlyphOrder() + [name])
    font["glyf"][name] = glyph
    glyph.recalcBounds(font["glyf"])
    font["hmtx"][name] = (advance, getattr(glyph, "xMin", 0))
    font["GDEF"].table.GlyphClassDef.classDefs[name] = BASE_CLASS


def add_code_glyphs(font, pictures):
    """The glyph of every code: the source's own where it draws the code with one, else one put together."""
    code_glyphs = {}
    for code, (glyphs, advance) in pictures.items():
        if len(glyphs) == 1:
            code_glyphs[code] = glyphs[0].name
        else:
            code_glyphs[code] = f"code{code}"
            add_composed_glyph(font, code_glyphs[code], glyphs, advance)
    return code_glyphs


def add_composed_glyph(font, name, glyphs, advance):
    pen = TTGlyphPen(font.getGlyphSet())
    for glyph in glyphs:
        pen.addComponent(glyph.name, (1, 0, 0, 1, glyph.x, glyph.y))
    add_glyph(font, name, pen.glyph(), advance)


def add_logotypes(font):
    """One glyph for each; it shows what the source draws for its text."""
    names = {}
    logotypes = encodingtable.logotypes()
    for logotype, line in zip(logotypes, shape(SOURCE, [logotype.draws for logotype in logotypes])):
        name = "logotype" + "_".join(map(str, logotype.codes))
        add_composed_glyph(font, name, line.glyphs, line.advance)
        names[logotype.codes] = name
    return names


def name_font(font):
    table = font["name"]
    source_version = str(table.getName(5, 3, 1, 0x409)).split(";")[0]
    names = {
        0: str(table.getName(0, 3, 1, 0x409)) + " Modified by the makers of Tolvan Basic.",
        1: FAMILY,
        2: "Regular",
        3: f"{VERSION};TLVN;TolvanDevanagari-Regular",
        4: FAMILY,
        5: f"Version {VERSION}",
        6: "TolvanDevanagari-Regular",
        10: "Devanagari in the 8-bit glyph encoding of Tolvan Basic. "
        + f"A modified version of Noto Serif Devanagari, {source_version}.",
        13: str(table.getName(13, 3, 1, 0x409)),
        14: str(table.getName(14, 3, 1, 0x409)),
    }
    table.names = []
    for number, text in names.items():
        table.setName(text, number, 3, 1, 0x409)


def description(font):
    """What the font says of itself, the version of its source included."""
    return str(font["name"].getName(10, 3, 1, 0x409))


def keep_what_is_used(font):
    options = subset.Options()
    options.layout_features = ["*"]
    options.layout_scripts = ["*"]
    options.name_IDs = ["*"]
    options.glyph_names = True
    options.notdef_outline = True
    options.recalc_timestamp = False
    options.hinting = True
    subsetter = subset.Subsetter(options)
    subsetter.populate(unicodes=font.getBestCmap().keys())
    subsetter.subset(font)


def build_font():
    rows = encodingtable.read()
    source = TTFont(SOURCE, lazy=False)
    font = TTFont(SOURCE, lazy=False, recalcTimestamp=False)
    pictures = pictures_of(rows)
    code_glyphs = add_code_glyphs(font, pictures)
    logotype_glyphs = add_logotypes(font)
    add_glyph(font, JOINER, copy.deepcopy(font["glyf"][VIRAMA_GLYPH]), 0)
    half_pictures = {
        row.code: [glyph.name for glyph in pictures[row.code][0]]
        for row in rows
        if row.kind == "half" and len(pictures[row.code][0]) > 1
    }
    font["GSUB"].table = Layout(source, rows, code_glyphs, half_pictures, logotype_glyphs).build()
    # All positions are the source's own: every script has their features switched on.
    positions = font["GPOS"].table
    everything = range(len(positions.FeatureList.FeatureRecord))
    positions.ScriptList.ScriptRecord = [script_record(tag, {}, everything) for tag in ("DFLT", "latn")]
    for table in font["cmap"].tables:
        table.cmap = {ord(row.character): code_glyphs[row.code] for row in rows}
    del font["DSIG"]
    name_font(font)
    font["head"].created = font["head"].modified = CREATED
    font["head"].fontRevision = float(VERSION)
    keep_what_is_used(font)
    os2 = font["OS/2"]
    os2.recalcUnicodeRanges(font)
    os2.ulCodePageRange1 = LATIN_1_CODE_PAGE
    os2.ulCodePageRange2 = 0
    os2.achVendID = "TLVN"
    return font
