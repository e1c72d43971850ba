"""Puts a GSUB table together from lookups of several origins."""

import copy
import itertools

from fontTools.ttLib.tables import otTables

SCRIPTS = ("DFLT", "latn")


class Assembly:
    """A list of lookups in the order in which they apply; `source` is the GSUB table from which copies are taken."""

    def __init__(self, source, feature_tag):
        self.source = source
        self.feature_tag = feature_tag
        self.lookups = []
        self.applied = []

    def append(self, lookups, applied):
        """Takes over whole lookups that refer to each other by their place in the list; those of the places
        `applied` apply by themselves, the others where a context calls them."""
        offset = len(self.lookups)
        for lookup in lookups:
            for rule in calls(lookup):
                # The last place first: a call that puts a glyph in moves those after it.
                rule.reverse()
                for record in rule:
                    record.LookupListIndex += offset
            self.lookups.append(lookup)
        self.applied += [offset + place for place in applied]

    def copy(self, index, renamed=None):
        """Copies a lookup of the source and all that it calls, with glyphs `renamed` where it reads them; returns the
        place of the copy."""
        place = self.place_copy(index, renamed or {}, {})
        self.applied.append(place)
        return place

    def place_copy(self, index, renamed, placed):
        if index in placed:
            return placed[index]
        lookup = plain(copy.deepcopy(self.source.LookupList.Lookup[index]))
        for subtable in lookup.SubTable:
            rename_input(subtable, renamed)
        placed[index] = len(self.lookups)
        self.lookups.append(lookup)
        for record in itertools.chain.from_iterable(calls(lookup)):
            record.LookupListIndex = self.place_copy(record.LookupListIndex, renamed, placed)
        return placed[index]

    def table(self, language, language_only):
        """The table: every language has all applied lookups but those of the places `language_only`, which only
        `language` has."""
        general = sorted(set(self.applied) - language_only)
        table = otTables.GSUB()
        table.Version = 0x00010000
        table.LookupList = otTables.LookupList()
        table.LookupList.Lookup = self.lookups
        table.LookupList.LookupCount = len(self.lookups)
        table.FeatureList = otTables.FeatureList()
        table.FeatureList.FeatureRecord = [self.feature(general), self.feature(sorted(set(self.applied)))]
        table.FeatureList.FeatureCount = 2
        table.ScriptList = otTables.ScriptList()
        table.ScriptList.ScriptRecord = [script_record(tag, {language: 1}) for tag in SCRIPTS]
        table.ScriptList.ScriptCount = len(SCRIPTS)
        return table

    def feature(self, places):
        record = otTables.FeatureRecord()
        record.FeatureTag = self.feature_tag
        record.Feature = otTables.Feature()
        record.Feature.FeatureParams = None
        record.Feature.LookupListIndex = places
        record.Feature.LookupCount = len(places)
        return record


def script_record(tag, languages, default=(0,)):
    """A script whose default language system has the features of the indices `default`, and each of `languages` the
    one feature given."""
    record = otTables.ScriptRecord()
    record.ScriptTag = tag
    record.Script = otTables.Script()
    record.Script.DefaultLangSys = language_system(default)
    record.Script.LangSysRecord = []
    for language, feature in languages.items():
        item = otTables.LangSysRecord()
        item.LangSysTag = language
        item.LangSys = language_system((feature,))
        record.Script.LangSysRecord.append(item)
    record.Script.LangSysCount = len(record.Script.LangSysRecord)
    return record


def language_system(features):
    system = otTables.LangSys()
    system.LookupOrder = None
    system.ReqFeatureIndex = 0xFFFF
    system.FeatureIndex = list(features)
    system.FeatureCount = len(system.FeatureIndex)
    return system


def plain(lookup):
    """The lookup without extension subtables, which the compiler adds where a table is too large."""
    subtables = plain_subtables(lookup)
    lookup.SubTable = subtables
    lookup.LookupType = subtables[0].LookupType
    return lookup


def plain_subtables(lookup):
    return [getattr(subtable, "ExtSubTable", subtable) for subtable in lookup.SubTable]


def calls(lookup):
    """The calls of other lookups in a lookup of chained contexts, of any of the three formats: a list for each
    rule."""
    found = []
    for subtable in plain_subtables(lookup):
        if subtable.LookupType == 5:
            raise RuntimeError("contexts without chaining are not read")
        if subtable.LookupType == 6 and subtable.Format == 3:
            found.append(subtable.SubstLookupRecord)
        elif subtable.LookupType == 6:
            kind = "Class" if subtable.Format == 2 else ""
            for rules in getattr(subtable, f"ChainSub{kind or 'Rule'}Set"):
                found += [rule.SubstLookupRecord for rule in getattr(rules, f"ChainSub{kind}Rule", ())]
    return found


def ligatures(lookup):
    """The (first glyph, other glyphs, result) of a ligature lookup; none of any other."""
    return [
        (first, tuple(ligature.Component), ligature.LigGlyph)
        for subtable in plain_subtables(lookup)
        if subtable.LookupType == 4
        for first, choices in subtable.ligatures.items()
        for ligature in choices
    ]


def rename_input(subtable, renamed):
    """Renames glyphs where a subtable reads them, not where it writes them. A ligature that reads none of them is
    left out: it is about an order of glyphs that the source's shaper makes and then changes."""
    if not renamed:
        return
    if subtable.LookupType == 4:
        read = {}
        for first, choices in subtable.ligatures.items():
            for ligature in choices:
                if renamed.keys() & {first, *ligature.Component}:
                    ligature.Component = [renamed.get(name, name) for name in ligature.Component]
                    read.setdefault(renamed.get(first, first), []).append(ligature)
        subtable.ligatures = read
    elif subtable.LookupType in (1, 2):
        subtable.mapping = {renamed.get(name, name): result for name, result in subtable.mapping.items()}
    elif subtable.LookupType == 6:
        if subtable.Format != 3:
            raise RuntimeError("only contexts of coverages can be renamed")
        for coverage in subtable.BacktrackCoverage + subtable.InputCoverage + subtable.LookAheadCoverage:
            coverage.glyphs = [renamed.get(name, name) for name in coverage.glyphs]
