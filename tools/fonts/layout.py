"""The glyph substitutions of the built font.

Text in the 8-bit encoding is in the order in which it is read off the page: the short i before its letters, the reph
after its syllable. The source font's own lookups expect just that order once a shaper for Indic scripts has moved
the characters about. So the built font turns codes back into the source's nominal glyphs, and then applies the
source's lookups in the order of the Indic features, all under one feature that every script has switched on. Half
forms, conjuncts, the twelve widths of the short i, the shortened u: all are picked as the source picks them.

A virama comes in two kinds: one that joins the letters around it (the glyph JOINER, which exists only while
substituting), and one that was written to be seen.
"""

import itertools
import re

from fontTools.feaLib.builder import addOpenTypeFeaturesFromString
from fontTools.ttLib import TTFont, newTable

from assembly import Assembly, ligatures, plain_subtables
from encodingtable import VIRAMA, texts_with_half_form

FEATURE = "ccmp"
MARATHI = "MAR "
JOINER = "virama.join"
VIRAMA_GLYPH = "uni094D"
NUKTA_GLYPH = "uni093C"
SHORT_I_GLYPH = "uni093F"
REPH_GLYPH = "uni0930094D"
# The reph alone and with what stands after it in one glyph.
REPH_GLYPHS = {REPH_GLYPH: None, "uni0930094D0902": "uni0902", "uni0930094D0901": "uni0901"}
# Draws nothing and is passed over like a mark.
NO_GLYPH = "NullMark"

# Features of the source that put letters together, in the order in which a shaper for Indic scripts applies them;
# those whose lookups read the virama get the joining one instead.
JOINING_FEATURES = ("locl", "akhn", "rkrf", "blwf", "half", "cjct")
# Features that choose among forms once the letters are in place; applied together, in the order of their lookups.
CHOOSING_FEATURES = ("pres", "abvs", "blws", "psts", "rclt")

# Vowels and signs that the encoding writes with two or three codes and the source has as one glyph.
COMPOSED_VOWELS = (
    ("अाे", "ओ"),
    ("अाै", "औ"),
    ("अाॅ", "ऑ"),
    ("अा", "आ"),
    ("अॅ", "ॲ"),
    ("एे", "ऐ"),
    ("एॅ", "ऍ"),
    ("ाे", "ो"),
    ("ाै", "ौ"),
    ("ाॅ", "ॉ"),
)

# Limits of a cluster in which a virama is seen: half forms before each full letter, and viramas.
MOST_HALVES = 2
MOST_VISIBLE_VIRAMAS = 2
VOWEL_SIGNS = "ाीुूृॄॅेैॉोौॢ"


def glyph_class(glyphs):
    return "[" + " ".join(glyphs) + "]"


class Layout:
    """Builds the GSUB table.

    `source` is the source font, `code_glyphs` the glyph of every code, `half_pictures` the glyphs that draw a half
    form standing alone, by code, where these are several; `logotype_glyphs` the glyph of each sequence of codes that
    has one.
    """

    def __init__(self, source, rows, code_glyphs, half_pictures, logotype_glyphs):
        self.source = source
        self.gsub = source["GSUB"].table
        self.rows = rows
        self.code_glyphs = code_glyphs
        self.half_pictures = half_pictures
        self.logotype_glyphs = logotype_glyphs
        self.nominal = source.getBestCmap()

    def build(self):
        """The table, for a font whose glyphs are the source's, the JOINER and the glyphs of the codes."""
        assembly = Assembly(self.gsub, FEATURE)
        assembly.append(*self.compile(self.decoding_rules()))
        marathi_only = self.copy_joining_features(assembly)
        assembly.append(*self.compile(self.settling_rules()))
        marathi_only |= self.copy_choosing_features(assembly)
        return assembly.table(MARATHI, marathi_only)

    # What the codes stand for

    def glyphs_of(self, text):
        """The nominal glyphs of a text in which every virama joins."""
        return [JOINER if character == VIRAMA else self.nominal[ord(character)] for character in text]

    def decoding_rules(self):
        return "\n".join(
            (
                self.join_logotypes(),
                self.split_halves(),
                self.join_viramas(),
                self.split_codes(),
                self.attach_nuktas(),
                self.compose_vowels(),
            )
        )

    def join_logotypes(self):
        rules = [
            f"sub {' '.join(self.code_glyphs[code] for code in codes)} by {glyph};"
            for codes, glyph in self.logotype_glyphs.items()
        ]
        return block("join_logotypes", rules)

    def letters(self):
        """What may follow a half form and be joined to it; a nukta stands before its letter."""
        letters = {self.code_glyphs[row.code] for row in self.rows if row.is_letter}
        return glyph_class(sorted(letters | {NUKTA_GLYPH}))

    def split_halves(self):
        rules = [
            f"sub {self.code_glyphs[row.code]}' lookup split_half {self.letters()};"
            for row in self.rows
            if row.kind == "half"
        ]
        splits = [
            f"sub {self.code_glyphs[row.code]} by {' '.join(self.glyphs_of(row.draws))};"
            for row in self.rows
            if row.kind == "half"
        ]
        return block("split_half", splits) + block("split_halves", rules)

    def join_viramas(self):
        """A virama after a letter that has no half form in the encoding, before another letter, joins the two;
        after the others it was asked for."""
        have_half = texts_with_half_form(self.rows)
        without_half = {
            self.code_glyphs[row.code]
            for row in self.rows
            if row.kind in ("consonant", "conjunct", "form") and row.draws not in have_half
        }
        rule = f"sub {glyph_class(sorted(without_half))} {VIRAMA_GLYPH}' lookup join_virama {self.letters()};"
        return block("join_virama", [f"sub {VIRAMA_GLYPH} by {JOINER};"]) + block("join_viramas", [rule])

    def split_codes(self):
        splits = {}
        for row in self.rows:
            nominal = self.glyphs_of(row.draws)
            if row.kind == "half":
                if row.code in self.half_pictures:
                    splits[self.code_glyphs[row.code]] = self.half_pictures[row.code]
            elif row.kind in ("consonant", "conjunct", "syllable", "form") and len(nominal) > 1:
                splits[self.code_glyphs[row.code]] = nominal
        return block("split_codes", [f"sub {glyph} by {' '.join(parts)};" for glyph, parts in splits.items()])

    def attach_nuktas(self):
        """The encoding writes the nukta before its letter."""
        with_nukta = {
            (first, *rest): result
            for lookup in self.lookups_of("nukt")
            for first, rest, result in ligatures(lookup)
        }
        dotted = {letters[0]: result for letters, result in with_nukta.items() if letters[1:] == (NUKTA_GLYPH,)}
        halves = {
            first: result
            for lookup in self.lookups_of("half")
            for first, rest, result in ligatures(lookup)
            if rest[0] == VIRAMA_GLYPH
        }
        dotted |= {
            halves[letter]: halves[result]
            for letter, result in dotted.items()
            if letter in halves and result in halves
        }
        return block("attach_nuktas", [f"sub {NUKTA_GLYPH} {glyph} by {result};" for glyph, result in dotted.items()])

    def compose_vowels(self):
        rules = [
            f"sub {' '.join(self.nominal[ord(part)] for part in parts)} by {self.nominal[ord(whole)]};"
            for parts, whole in COMPOSED_VOWELS
        ]
        return block("compose_vowels", rules)

    # What remains when the letters are joined

    def settling_rules(self):
        """A joining virama that joined nothing is seen."""
        full, half = self.consonant_glyphs()
        either = glyph_class(sorted(full | half))
        full, half = glyph_class(sorted(full)), glyph_class(sorted(half))
        return (
            block("show_viramas", [f"sub {JOINER} by {VIRAMA_GLYPH};"])
            + self.move_i(full, half, either)
            + self.move_reph(full, half)
        )

    def move_i(self, full, half, either):
        """A short i stands after the last virama that is seen in its cluster."""
        moves = [
            f"sub {SHORT_I_GLYPH}' lookup drop_i "
            + f"{half}' " * halves
            + f"{full}' {VIRAMA_GLYPH}' lookup put_i {either};"
            for halves in range(MOST_HALVES, -1, -1)
        ]
        return (
            block("drop_i", [f"sub {SHORT_I_GLYPH} by {NO_GLYPH};"])
            + block("put_i", [f"sub {VIRAMA_GLYPH} by {VIRAMA_GLYPH} {SHORT_I_GLYPH};"])
            + "".join(block(f"move_i_{step}", moves) for step in range(MOST_VISIBLE_VIRAMAS))
        )

    def move_reph(self, full, half):
        """A reph stands over the first virama that is seen in its cluster; its anusvara stays at the end."""
        unite = [f"sub {REPH_GLYPH} {mark} by {both};" for both, mark in REPH_GLYPHS.items() if mark]
        drops = [f"sub {both} by {mark or NO_GLYPH};" for both, mark in REPH_GLYPHS.items()]
        signs = glyph_class(self.nominal[ord(sign)] for sign in VOWEL_SIGNS)
        moves = []
        some_halves = range(MOST_HALVES + 1)
        for halves, short_i, last_halves, sign in itertools.product(some_halves, (0, 1), some_halves, (0, 1)):
            tail = f"{SHORT_I_GLYPH}' " * short_i + f"{half}' " * last_halves + f"{full}' " + f"{signs}' " * sign
            between = f"{half}' " * halves + f"{full}' {VIRAMA_GLYPH}' "
            moves += [between + tail, tail]
        # The first rule that fits is taken: the longest come first. Each glyph of a rule has its prime.
        moves.sort(key=lambda move: move.count("'"), reverse=True)
        rules = [
            f"sub {full} {VIRAMA_GLYPH}' lookup put_reph {move} {reph}' lookup drop_reph;"
            for move in dict.fromkeys(moves)
            for reph in REPH_GLYPHS
        ]
        return (
            block("unite_reph", unite)
            + block("drop_reph", drops)
            + block("put_reph", [f"sub {VIRAMA_GLYPH} by {VIRAMA_GLYPH} {REPH_GLYPH};"])
            + block("move_reph", rules)
        )

    def consonant_glyphs(self):
        """The consonants of the source's repertoire, alone and joined: those that end a cluster, and half forms."""
        full = {name for code, name in self.nominal.items() if 0x0915 <= code <= 0x0939 or 0x0958 <= code <= 0x095F}
        for lookup in self.lookups_of("locl"):
            for subtable in plain_subtables(lookup):
                full |= {subtable.mapping[name] for name in full & subtable.mapping.keys()}
        half = set()
        tags = ("nukt", *JOINING_FEATURES)
        rules = [rule for tag in tags for lookup in self.lookups_of(tag) for rule in ligatures(lookup)]
        known = 0
        while known < len(full | half):
            known = len(full | half)
            for first, rest, result in rules:
                if first in full | half and set(rest) <= full | half | {VIRAMA_GLYPH, NUKTA_GLYPH}:
                    ends_open = rest[-1] == VIRAMA_GLYPH or rest[-1] in half
                    (half if ends_open else full).add(result)
        return full, half

    # The source's lookups

    def language_features(self, language=None):
        for record in self.gsub.ScriptList.ScriptRecord:
            if record.ScriptTag == "dev2":
                systems = {item.LangSysTag: item.LangSys for item in record.Script.LangSysRecord}
                system = systems[language] if language else record.Script.DefaultLangSys
                return [self.gsub.FeatureList.FeatureRecord[index] for index in system.FeatureIndex]
        raise RuntimeError("the source font has no Devanagari features")

    def lookup_indices(self, tag, language=None):
        """A feature's lookups in the order in which they apply."""
        return sorted(
            {
                index
                for record in self.language_features(language)
                if record.FeatureTag == tag
                for index in record.Feature.LookupListIndex
            }
        )

    def lookups_of(self, tag):
        """With those that only Marathi has."""
        return [self.gsub.LookupList.Lookup[index] for index in self.lookup_indices(tag, MARATHI)]

    def copy_joining_features(self, assembly):
        """Returns the places of those that only Marathi has."""
        marathi_only = set()
        for tag in JOINING_FEATURES:
            for index in self.lookup_indices(tag, MARATHI):
                place = assembly.copy(index, {VIRAMA_GLYPH: JOINER})
                if index not in self.lookup_indices(tag):
                    marathi_only.add(place)
        return marathi_only

    def copy_choosing_features(self, assembly):
        def indices(language):
            return {index for tag in CHOOSING_FEATURES for index in self.lookup_indices(tag, language)}

        general = indices(None)
        places = {index: assembly.copy(index) for index in sorted(indices(MARATHI))}
        return {place for index, place in places.items() if index not in general}

    def compile(self, rules):
        """Compiles rules in the feature file language: the lookups, and the places of those that apply by
        themselves."""
        scratch = TTFont()
        names = dict.fromkeys(self.source.getGlyphOrder() + [JOINER] + list(self.code_glyphs.values()) + list(self.logotype_glyphs.values()))
        scratch.setGlyphOrder(list(names))
        scratch["cmap"] = newTable("cmap")
        scratch["cmap"].tables = []
        called = set(re.findall(r"' lookup (\w+)", rules))
        applied = [name for name in re.findall(r"^lookup (\w+)", rules, re.MULTILINE) if name not in called]
        feature = "\n".join(f"lookup {name};" for name in applied)
        addOpenTypeFeaturesFromString(scratch, f"{rules}\nfeature {FEATURE} {{\n{feature}\n}} {FEATURE};")
        table = scratch["GSUB"].table
        return table.LookupList.Lookup, table.FeatureList.FeatureRecord[0].Feature.LookupListIndex


def block(name, rules):
    body = "\n".join("    " + rule for rule in rules)
    return f"lookup {name} {{\n{body}\n}} {name};\n"
