"""Spells Unicode Devanagari in the 8-bit encoding, by the rules of the transliteration: longest glyphs first, the
short i before its letters, the reph after its syllable."""

import re
from functools import lru_cache

import encodingtable
from encodingtable import VIRAMA, ZERO_WIDTH_JOINER

ZERO_WIDTH_NON_JOINER = "\u200c"
NUKTA = "\u093c"
RA, YA, EYELASH_RA = "र", "य", "ऱ"
SHORT_I, LONG_I = "ि", "ी"
ANUSVARA = "ं"
CODE_VIRAMA, CODE_YA_FORM, CODE_RA_FORM, CODE_REPH, CODE_REPH_ANUSVARA = 33, 40, 43, 82, 161
CODE_SHORT_I, CODE_ANUSVARA, CODE_ANUSVARA_AFTER_LONG_I = 105, 60, 151
CODE_NUKTA, CODE_NUKTA_LOW = 136, 150
CODE_U, CODE_UU, CODE_VOCALIC_R, CODE_VOCALIC_RR = 117, 85, 38, 169
LOW_NUKTA_LETTERS = "डढ"
# The signs under a letter have three places: the usual one, right of a stem in the middle, below what reaches low.
MIDDLE_STEMS = (107, 41, 179, 181, 172)
LOW_LETTERS = (113, 81, 102, 70, 68, 39)
SIGNS_RIGHT = {CODE_U: 133, CODE_UU: 170, CODE_VOCALIC_R: 171, CODE_VOCALIC_RR: 168}
SIGNS_LOW = {CODE_U: 130, CODE_UU: 131, CODE_VOCALIC_R: 175, CODE_VOCALIC_RR: 176}

# What the table has no single code for.
COMPOSED = {
    "आ": "अा",
    "ओ": "अाे",
    "औ": "अाै",
    "ऑ": "अाॅ",
    "ॲ": "अॅ",
    "ऐ": "एे",
    "ऍ": "एॅ",
    "ो": "ाे",
    "ौ": "ाै",
    "ॉ": "ाॅ",
}
LETTERS_WITH_NUKTA = {chr(code): base + NUKTA for code, base in zip(range(0x958, 0x960), "कखगजडढफय")}
LETTERS_WITH_NUKTA |= {"ऩ": "न" + NUKTA, "ऴ": "ळ" + NUKTA}

LETTER = "[क-ह]" + NUKTA + "?"
SYLLABLE = re.compile(
    f"(?P<cluster>{LETTER}(?:{VIRAMA}{LETTER})*)(?P<virama>{VIRAMA}?)"
    + "(?P<sign>[ा-ॄॅे-ौॢ]?)(?P<marks>[ंँः]*)"
)
REPH_OVER_VOWEL = re.compile(f"{RA}{VIRAMA}(?P<vowel>[अ-औॠॡ])")

# A cluster is spelled with the fewest glyphs; these count as more than one, because a glyph of one's own is better.
COST_RA_FORM = 3
COST_VISIBLE_VIRAMA = 4


class Unspellable(ValueError):
    pass


class Speller:
    def __init__(self):
        rows = encodingtable.read()
        self.full = {}
        for row in rows:
            if row.kind in ("consonant", "conjunct"):
                self.full.setdefault(row.draws, row.code)
        self.half = {row.draws[:-1]: row.code for row in rows if row.kind == "half"}
        self.syllables = {row.draws: row.code for row in rows if row.kind == "syllable"}
        self.single = {}
        for row in rows:
            if row.kind in ("blank", "vowel", "sign", "mark", "digit", "other"):
                self.single.setdefault(row.draws, row.code)
        self.single |= {"ु": CODE_U, "ू": CODE_UU, "ृ": CODE_VOCALIC_R, "ॄ": CODE_VOCALIC_RR}

    def spell(self, text):
        """The bytes of a text; raises Unspellable for what the encoding cannot say."""
        for composed, parts in LETTERS_WITH_NUKTA.items():
            text = text.replace(composed, parts)
        text = text.replace(RA + VIRAMA + ZERO_WIDTH_JOINER, EYELASH_RA + VIRAMA)
        codes, position = [], 0
        while position < len(text):
            if text[position] == ZERO_WIDTH_NON_JOINER:
                position += 1
            elif match := REPH_OVER_VOWEL.match(text, position):
                codes += self.spell_single(match["vowel"]) + [CODE_REPH]
                position = match.end()
            elif match := SYLLABLE.match(text, position):
                codes += self.spell_syllable(**match.groupdict())
                position = match.end()
            else:
                codes += self.spell_single(text[position])
                position += 1
        return bytes(codes)

    def spell_single(self, character):
        try:
            return [self.single[part] for part in COMPOSED.get(character, character)]
        except KeyError:
            raise Unspellable(f"U+{ord(character):04X}") from None

    def spell_syllable(self, cluster, virama, sign, marks):
        letters = tuple(cluster.split(VIRAMA))
        reph = len(letters) > 1 and letters[0] == RA
        codes = list(self.spell_cluster(letters[1:] if reph else letters)[1])
        if virama:
            codes.append(CODE_VIRAMA)
        if sign == SHORT_I:
            codes.insert(0, CODE_SHORT_I)
        elif sign:
            syllable = self.syllables.get(letters[-1] + sign)
            if syllable and codes[-1] == self.full[letters[-1]]:
                codes[-1] = syllable
            else:
                codes += self.spell_sign(sign, codes[-1])
        if reph and marks.startswith(ANUSVARA):
            codes.append(CODE_REPH_ANUSVARA)
            marks = marks[1:]
        elif reph:
            codes.append(CODE_REPH)
        for mark in marks:
            after_long_i = mark == ANUSVARA and sign == LONG_I and not reph
            codes += [CODE_ANUSVARA_AFTER_LONG_I] if after_long_i else self.spell_single(mark)
        return codes

    def spell_sign(self, sign, letter):
        places = SIGNS_RIGHT if letter in MIDDLE_STEMS else SIGNS_LOW if letter in LOW_LETTERS else {}
        return [places.get(code, code) for code in self.spell_single(sign)]

    @lru_cache(maxsize=None)
    def spell_cluster(self, letters):
        """The (cost, codes) of letters that are joined."""
        candidates = []
        for count in range(len(letters), 0, -1):
            text, rest = VIRAMA.join(letters[:count]), letters[count:]
            full, half = self.glyph(self.full, text), self.glyph(self.half, text)
            if not rest and full:
                candidates.append((1, full))
            elif rest and half:
                cost, codes = self.spell_cluster(rest)
                candidates.append((1 + cost, half + codes))
            if rest and full and rest == (RA,):
                candidates.append((1 + COST_RA_FORM, full + (CODE_RA_FORM,)))
            if rest and full and not half:
                if rest == (YA,):
                    candidates.append((2, full + (CODE_YA_FORM,)))
                else:
                    cost, codes = self.spell_cluster(rest)
                    candidates.append((COST_VISIBLE_VIRAMA + cost, full + (CODE_VIRAMA,) + codes))
        if not candidates:
            raise Unspellable(VIRAMA.join(letters))
        return min(candidates, key=lambda candidate: candidate[0])

    def glyph(self, table, text):
        """The codes of a glyph, with the nukta before its letter; none if the table has no such glyph."""
        if text in table:
            return (table[text],)
        if text.endswith(NUKTA) and text[:-1] in table:
            low = text[:-1] in LOW_NUKTA_LETTERS
            return (CODE_NUKTA_LOW if low else CODE_NUKTA, table[text[:-1]])
        return ()
