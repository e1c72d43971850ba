// What the document tells and asks, as fragments for ShowMessage and AskQuestion. The three questions about unsaved
// text differ in wording.
#pragma once

#include "platform/encoding/Deva.h"

#include <QString>
#include <QStringList>

#include <string>
#include <string_view>

namespace tolvan::messages {

inline constexpr std::string_view saveBeforeNew = "\\f1he àayaejn saQvlele nahI, te saQvayce ka\\f0?"_deva;
inline constexpr std::string_view saveBeforeOpen = "\\f1he àayaejn saQvlele nahI\\f0.\\f1 te saQvayce ka\\f0?"_deva;
inline constexpr std::string_view saveBeforeClose = "\\f1sXyace àayaejn saQvlele nahI AaheŽ te saQvayce ka\\f0?"_deva;

inline constexpr std::string_view noSuchFile =
    "\\f1 magR sapfla nahI\\f0.\\f1 maigtlele àayaejn AaiStTvat nahI \\f0."_deva;
inline constexpr std::string_view tooManyFiles = "\\f1@k pe]a jaSt )a#l AaeFta yet nahIt\\f0."_deva;

// The file was changed by someone else since it was opened or saved here: save all the same?
inline constexpr std::string_view changedOnDisk =
    "\\f1hI )a$l Ês\u009dya iofkIt bdllI Aahe\\f0.\\f1  trI tI saQvaycI ka\\f0?"_deva;

inline constexpr std::string_view notPrinted = "\\f1Dapta Aale nahI\\f0.\\f1 ià<qr tpasa Aai[ puNha Dapa\\f0."_deva;

std::string notSaved(const QString& path);
std::string notReadable(const QString& path);
// A dropped file of another kind.
std::string otherKind(const QString& path);
// Asks whether to take up the unsaved text of files, given by their paths or titles; at least one. Of several, the
// first is meant, and the others come at the next start.
std::string takeUpUnsaved(const QStringList& titles);
std::string helpFailed();

// The name of a file, in any script, as a piece of a message that is shown in the Latin font.
std::string nameFragment(const QString& name);

}  // namespace tolvan::messages
