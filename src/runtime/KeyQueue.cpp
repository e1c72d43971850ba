#include "runtime/KeyQueue.h"

#include "platform/encoding/Ascii.h"
#include "platform/encoding/Deva.h"
#include "platform/encoding/Windows1252.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/richtext/InternalText.h"
#include "platform/transliteration/UnicodeToRoman.h"
#include "runtime/host/InputValue.h"

#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace tolvan {
namespace {

// So that a program which never reads its keys cannot fill the memory. Nobody types this far ahead.
constexpr std::size_t mostKeys = 1000;

struct NamedKey {
    int key;  // Qt::Key
    std::string_view name;
};
constexpr NamedKey namedKeys[] = {
    {Qt::Key_Up, "vr"_deva},      {Qt::Key_Down, "oalI"_deva},   {Qt::Key_Left, "favI"_deva},
    {Qt::Key_Right, "%jvI"_deva}, {Qt::Key_Return, "@<qr"_deva}, {Qt::Key_Enter, "@<qr"_deva},
    {Qt::Key_Space, "jaga"_deva},
};

bool isCommand(const QKeyEvent& key) {
    return (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
}

// The font codes of a Devanagari key, the same as a program gets that spells the letter; a vowel sign counts as its
// vowel. "" for a sign that is no letter by itself.
std::string codesOf(const QString& letters) {
    std::u32string unspelled;
    const std::string roman = romanOfUnicode(letters.toStdString(), RomanUse::Program, &unspelled);
    return unspelled.empty() ? inputValue(roman) : std::string();
}

}  // namespace

std::string KeyQueue::nameOf(const QKeyEvent& key) {
    const auto* const named = std::find_if(std::begin(namedKeys), std::end(namedKeys),
                                           [&](const NamedKey& candidate) { return candidate.key == key.key(); });
    if (named != std::end(namedKeys)) return std::string(named->name);
    if (hasDevanagari(key.text()) && !isCommand(key)) return codesOf(key.text());
    if (key.text().size() != 1 || !key.text().front().isPrint() || isCommand(key)) return {};
    const std::optional<std::uint8_t> code = unicodeToWindows1252(key.text().front().unicode());
    if (!code) return {};
    const std::string character(1, static_cast<char>(*code));
    // A digit is the same in both fonts.
    return isDigit(character[0]) ? character : RomanMark(StyledText(character, Font::Latin));
}

bool KeyQueue::add(const QKeyEvent& key) {
    if (key.isAutoRepeat() && key.key() != lastPressed_) return false;
    lastPressed_ = key.key();
    std::string name = nameOf(key);
    if (name.empty()) return false;
    if (keys_.size() < mostKeys) keys_.push_back(std::move(name));
    return true;
}

std::string KeyQueue::take() {
    if (keys_.empty()) return {};
    std::string key = std::move(keys_.front());
    keys_.pop_front();
    return key;
}

void KeyQueue::clear() {
    keys_.clear();
    lastPressed_ = 0;
}

}  // namespace tolvan
