#include "editor/Commands.h"

#include "platform/encoding/Deva.h"

namespace tolvan {
namespace {

using enum WhileRunning;

constexpr std::string_view separator = "-";

// The misspelt keys of the separators are the names by which they are looked for.
constexpr MenuItem fileItems[] = {
    {"FileNew", "nvIn"_deva, Greyed},
    {"FileOpen", "%\"f"_deva, Greyed},
    {"FileExamples", "%dahr[eŽ Ž Ž "_deva, Greyed},
    {"FileSave", "saQv"_deva},
    {"FileSaveAs", "Ž Ž Ž Mh[un saQv"_deva},
    {"FileSaveUnicode", "yuinkaef mjkªr Mh[Un saQv"_deva},
    {"FileOldVersions", "juNya Aav&Åya"_deva, Greyed},
    {"FileSheet", "DapIl àtŽ Ž Ž "_deva, Greyed},
    {"FileCheck", "tpasŽ Ž Ž "_deva, Greyed},
    {"mnuSeperator1", separator},
    {"FilePreferences", "invfI"_deva},
    {"mnuSeperator2", separator},
    {"FileMakeEXE", "Svt<Ç cal[are àayaejn bnv"_deva, Greyed},
    {"mnuSeperator3", separator},
    {"MnuMru1", " ", Greyed},
    {"MnuMru2", " ", Greyed},
    {"MnuMru3", " ", Greyed},
    {"MnuMru4", " ", Greyed},
    {"mnuSeperator4", separator},
    {"FileExit", "b<d kr"_deva},
};

constexpr MenuItem editItems[] = {
    {"EditUndo", "rhIt kr"_deva},
    {"EditRedo", "prt kr"_deva},
    {"mnuSeperator5", separator},
    {"EditCut", "kap"_deva, Greyed},
    {"EditCopy", "àt"_deva},
    {"EditCopyDevanagari", "devnagrIt àt"_deva},
    {"EditPaste", "jaef"_deva, Greyed},
    {"EditSelectAll", "svR invf"_deva},
    {"mnuSeperator6", separator},
    {"EditFind", "zaexŽ Ž Ž "_deva},
    {"EditFindNext", "puFce zaex"_deva},
    {"EditReplace", "bdlŽ Ž Ž "_deva, Greyed},
    {"mnuSeperator7", separator},
    {"EditFormat", "sjv"_deva, Greyed},
    {"EditSuggest", "zBd sucv"_deva, Greyed},
    {"mnuSeperator11", separator},
    {"EditNextProblem", "puFcI Afc["_deva},
    {"EditMend", "ÊéSt kr"_deva, Greyed},
};

constexpr MenuItem viewItems[] = {
    {"ViewNextPane", "Ês\u009dya -agat ja"_deva},
    {"mnuSeperator14", separator},
    {"ViewValues", "ik<mtI"_deva},
    {"ViewTrace", "magaeva"_deva},
    {"ViewScript", "àayaejnacI iS³Pq"_deva},
    {"mnuSeperator9", separator},
    {"ViewZoomIn", "A]re maeQI kr"_deva},
    {"ViewZoomOut", "A]re lhan kr"_deva},
    {"ViewZoomNormal", "A]re nehmIsaroI kr"_deva},
    {"mnuSeperator10", separator},
    {toolBarKey, "saxnp”I"_deva},
};

constexpr MenuItem runItems[] = {
    {"RunStart", "suê kr"_deva},
    {"RunGoOn", "puFe calU Qev"_deva},
    {"RunEnd", "wa<bv"_deva},
    {"RunPause", "jra wa<b"_deva},
    {"mnuSeperator12", separator},
    {"RunStepInto", "@k Aae¦ puFe"_deva},
    {"RunStepOver", "%pàayaejn Aaela<fƒn puFe"_deva},
    {"RunStepOut", "%pàayaejnaCya baher"_deva},
    {"RunToHere", "yewpy¡t calv"_deva},
    {"RunSlowly", "h¦U calv"_deva},
    {"mnuSeperator13", separator},
    {"RunBreakPoint", "wa<ba Qev ik<va kaF"_deva},
    {"RunBreakPointAt", "yewe iktVya ve¦I wa<bayceŽ Ž Ž "_deva},
};

constexpr MenuItem helpItems[] = {
    {"HelpHelp", "mdt"_deva},
    {"mnuSeperator8", separator},
    {"HelpAbout", "tolvn beisk bÎl"_deva},
};

constexpr Menu menus[] = {
    {"File", ")a#l"_deva, ")a#l   s<b<ixt   Aa}a"_deva, "F", fileItems},
    {"Edit", "s<padn"_deva, "s<padna   s<b<ixt   Aa}a"_deva, "E", editItems},
    {"View", "†Zy"_deva, "†ZyazI s<b<ixt Aa}a"_deva, "V", viewItems},
    {"Run", "caln"_deva, "caln   s<b<ixt   Aa}a"_deva, "R", runItems},
    {"Help", "mdt"_deva, "mdtI s<b<ixt Aa}a"_deva, "H", helpItems},
};

// The toolbar's caption of the undo command differs from the menu's.
constexpr ToolButton buttons[] = {
    {"FileNew", "nvIn"_deva, "nvIn àayaejn bnv{yasaQI"_deva},
    {"FileOpen", "%\"f"_deva, "saQvlele àayaejn %\"f{yasaQI"_deva},
    {"FileSave", "saQv"_deva, "AaÄa %\"fe àayaejn saQv{yasaQI"_deva},
    {},
    {"EditCut", "kap"_deva, "invflele zaiBdk kap{yasaQI"_deva},
    {"EditCopy", "àt"_deva, "invfleLya zaiBdkacI àt bnv{yasaQI"_deva},
    {"EditPaste", "jaef"_deva, "kplele ik<va àt bnvlele zaiBdk jaef{yasaQI"_deva},
    {"EditFind", "zaex"_deva, "@oade zaiBdk zaex{yasaQI"_deva},
    {},
    {"EditUndo", "riht kr"_deva, "bdl riht kr{yasaQI"_deva},
    {"EditRedo", "prt kr"_deva, "riht kelele bdl prt kr{yasaQI"_deva},
    {},
    {"EditFormat", "sjv"_deva, "àayaejn sjv{yasaQI"_deva},
    {},
    {"RunStart", "suê kr"_deva, "àayaejn suê kr{yasaQI"_deva},
    {"RunEnd", "wa<bv"_deva, "suê Aslele àayaejn wa<bv{yasaQI"_deva},
    {"RunPause", "jra wa<b"_deva, "calU àayaejn jra wa<bv{yasaQI"_deva},
    {},
    {"RunStepInto", "@k Aae¦ puFe"_deva, "puFcI @k Aae¦ calv{yasaQI"_deva},
    {"RunStepOver", "%pàayaejn Aaela<fƒn puFe"_deva, "%pàayaejn n wa<bta calv{yasaQI"_deva},
    {"RunStepOut", "%pàayaejnaCya baher"_deva, "%pàayaejn s<pepy¡t calv{yasaQI"_deva},
    {"RunSlowly", "h¦U calv"_deva, "h¦Uh¦U calv{yasaQI"_deva},
};

constexpr Shortcut shortcutTable[] = {
    {"FileNew", "Ctrl+N"},
    {"FileOpen", "Ctrl+O"},
    {"FileSave", "Ctrl+S"},
    {"FileSaveAs", "Ctrl+Shift+S"},
    {"FileExit", "Ctrl+Q"},
    {"EditUndo", "Ctrl+Z"},
    {"EditRedo", "Ctrl+Y"},
    {"EditRedo", "Ctrl+Shift+Z"},
    {"EditCut", "Ctrl+X"},
    {"EditCopy", "Ctrl+C"},
    {"EditPaste", "Ctrl+V"},
    {"EditSelectAll", "Ctrl+A"},
    {"EditFind", "Ctrl+F"},
    {"EditReplace", "Ctrl+H"},
    {"EditFindNext", "F3"},
    {"EditNextProblem", "F8"},
    {"EditMend", "Alt+Return"},
    {"EditMend", "Alt+Enter"},
    {"EditFormat", "Ctrl+Shift+F"},
    {"EditSuggest", "Ctrl+Space"},
    {"ViewNextPane", "F6", When::AtRest},
    {"ViewValues", "Ctrl+Shift+V"},
    {"ViewTrace", "Ctrl+Shift+M"},
    {"ViewZoomIn", "Ctrl++"},
    {"ViewZoomIn", "Ctrl+Shift++"},
    {"ViewZoomIn", "Ctrl+="},  // plus without Shift
    {"ViewZoomOut", "Ctrl+-"},
    {"ViewZoomNormal", "Ctrl+0"},
    {"RunStart", "F5", When::Idle},
    {"RunGoOn", "F5", When::Busy},
    {"RunPause", "F6", When::OnTheWay},
    {"RunStepInto", "F11"},
    {"RunStepOver", "F10", When::Busy},  // else it opens the menu bar
    {"RunStepOut", "Shift+F11", When::Busy},
    {"RunToHere", "Ctrl+F10"},
    {"RunSlowly", "Ctrl+F5"},
    {"RunBreakPoint", "F9"},
    {"RunBreakPointAt", "Ctrl+F9"},
    {"RunEnd", "F4"},
    {"RunEnd", "Shift+F5"},
    {"HelpHelp", "F1"},
    {toolBarKey, "Ctrl+Shift+T"},
};

}  // namespace

std::span<const Menu> editorMenus() {
    return menus;
}

std::span<const ToolButton> toolButtons() {
    return buttons;
}

std::span<const Shortcut> shortcuts() {
    return shortcutTable;
}

}  // namespace tolvan
