"""Shapes lines of text with hb-shape, HarfBuzz's own command."""

import re
import subprocess
from dataclasses import dataclass

GLYPH = re.compile(r"([^|=\[\]]+)=\d+(?:@(-?\d+),(-?\d+))?\+(-?\d+)")


@dataclass(frozen=True)
class Placed:
    """A glyph of a shaped line and where its origin stands, in font units from the line's start."""

    name: str
    x: int
    y: int


@dataclass(frozen=True)
class Line:
    glyphs: tuple
    advance: int

    def without_advance(self):
        """The line's last glyphs that move nothing and draw nothing are of no interest to a reader of it."""
        return tuple(glyph for glyph in self.glyphs if glyph.name not in ("space", "NullMark", "uni200C"))


def shape(font_path, lines, script=None, language=None):
    """Every line of text, shaped on its own. A line may hold any character but a line feed."""
    command = ["hb-shape", "--font-file=" + font_path, "--text-file=-", "--direction=ltr"]
    if script:
        command.append("--script=" + script)
    command.append("--language=" + (language or "und"))
    output = subprocess.run(
        command, input="\n".join(lines) + "\n", capture_output=True, text=True, encoding="utf-8", check=True
    ).stdout
    shaped = [parse(line) for line in output.splitlines()]
    if len(shaped) != len(lines):
        raise RuntimeError(f"hb-shape answered {len(shaped)} lines for {len(lines)}")
    return shaped


def parse(text):
    """A line of hb-shape's output: [glyph=cluster@x offset,y offset+advance|...]."""
    position = 0
    glyphs = []
    for name, x_offset, y_offset, advance in GLYPH.findall(text):
        glyphs.append(Placed(name, position + int(x_offset or 0), int(y_offset or 0)))
        position += int(advance)
    return Line(tuple(glyphs), position)
