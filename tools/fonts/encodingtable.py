"""The 8-bit encoding of Devanagari text: what each code of the font draws (encoding.tsv)."""

import csv
import os
from dataclasses import dataclass

FILE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "encoding.tsv")
VIRAMA = "\u094d"
ZERO_WIDTH_JOINER = "\u200d"
LETTER_KINDS = ("consonant", "half", "conjunct", "syllable")


@dataclass(frozen=True)
class Row:
    """One used code: its number, its kind in the words of the table, the Unicode text it draws, a remark."""

    code: int
    kind: str
    draws: str
    note: str

    @property
    def character(self):
        """The Unicode character that stands for the code outside the font: windows-1252's, or the control
        character of the same number where windows-1252 has none."""
        return character_of(self.code)

    @property
    def is_letter(self):
        """Whether the code begins with a consonant, so that a half form before it joins it."""
        return self.kind in LETTER_KINDS


def character_of(code):
    try:
        return bytes([code]).decode("cp1252")
    except UnicodeDecodeError:
        return chr(code)


@dataclass(frozen=True)
class Logotype:
    """Several codes that are drawn as one glyph, a name, and the Unicode text that it reads."""

    codes: tuple
    draws: str


def table_rows():
    with open(FILE, encoding="utf-8", newline="") as file:
        return list(csv.DictReader(file, delimiter="\t", quoting=csv.QUOTE_NONE))


def read():
    """The used rows, in the order of their codes."""
    return [
        Row(int(row["code"]), row["kind"], row["draws"], row["note"])
        for row in table_rows()
        if row["kind"] not in ("unused", "logotype")
    ]


def logotypes():
    return [
        Logotype(tuple(map(int, row["code"].split())), row["draws"])
        for row in table_rows()
        if row["kind"] == "logotype"
    ]


def texts_with_half_form(rows):
    """The letters and conjuncts of which the table also has the half form."""
    return {row.draws[: -len(VIRAMA)] for row in rows if row.kind == "half"}
