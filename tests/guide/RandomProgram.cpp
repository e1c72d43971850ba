#include "guide/RandomProgram.h"

#include <array>

namespace tolvan::guide {
namespace {

constexpr auto ownNames = std::to_array<std::string_view>(
    {"vay",  "guN",     "berIj", "saMkhyA",  "AMk",       "nAv1",   "uMchIche", "kramAMk", "x",     "y1",
     "n",    "mAj",     "ekUN",  "sarAsarI", "paise",     "kiMmat", "dar",      "mahinA",  "varSh", "divas",
     "phaL", "dukAn",   "shALA", "muLe",     "vidyArthI", "pAyrI",  "raMgIt",   "kolaThA", "mULaA", "trikoN",
     "bAjU", "kShetra", "aMtar", "gatI",     "tAs",       "miniT",  "lAkaDI",   "tavA",    "jAl",   "ghaDI"});

// With more names the script names of two could be the same.
constexpr std::size_t mostNames = 36;

}  // namespace

std::string RandomProgram::write() {
    for (std::size_t i = below(3); i > 0; --i) functions_.push_back(freshName());
    if (perhaps()) line("suchanA " + std::string(oneOf({"he prAyojan berIj karate", "ek te dahA", "jar tar nAhI"})));
    if (perhaps()) line("korA");
    assignment();
    statements(3 + below(12), 0);
    for (const std::string& name : functions_) function(name);
    return program_;
}

void RandomProgram::line(const std::string& text) {
    program_ += std::string(6 * depth_, ' ') + text;
    if (below(12) == 0) program_ += " suchanA shevaT";
    program_ += "\r\n";
    if (below(15) == 0) program_ += "\r\n";
}

std::string RandomProgram::freshName() {
    const std::string_view name = ownNames[fresh_ % ownNames.size()];
    ++fresh_;
    return std::string(name) + (fresh_ > ownNames.size() ? std::to_string(fresh_) : "");
}

void RandomProgram::statements(std::size_t count, std::size_t depth) {
    for (; count > 0 && fresh_ < mostNames; --count) statement(depth);
}

void RandomProgram::statement(std::size_t depth) {
    switch (below(depth < deepest ? 11 : 7)) {
        case 0:
        case 1:
            return assignment();
        case 2:
            return line("dAkhav " + (perhaps() ? text() + " & " + value() : perhaps() ? text() : value()));
        case 3:
            return array();
        case 4:
            return input();
        case 5:
            return drawing();
        case 6:
            return below(4) == 0 ? file() : line("jar " + test() + " tar dAkhav " + value());
        case 7:
        case 8:
            return condition(depth);
        case 9:
            return countedLoop(depth);
        default:
            return whileLoop(depth);
    }
}

void RandomProgram::assignment() {
    const std::string given = value();
    const bool isNew = names_.empty() || below(3) == 0;
    const std::string name = isNew ? freshName() : names_[below(names_.size())];
    line(name + std::string(oneOf({" = ", " barobar "})) + given);
    if (isNew) names_.push_back(name);
}

void RandomProgram::array() {
    if (arrays_.empty() || below(4) == 0) {
        arrays_.push_back(freshName());
        return line("mitI " + arrays_.back() + "(10)");
    }
    line(arrays_[below(arrays_.size())] + "(" + std::to_string(below(10)) + ") = " + value());
}

void RandomProgram::input() {
    const std::string name = freshName();
    line("dAkhav " + text());
    line("ghe " + name);
    if (perhaps()) return line("dAkhav " + name + " & " + text());
    line(name + " = aMkik(" + name + ")");
    names_.push_back(name);
}

void RandomProgram::condition(std::size_t depth) {
    line("jar " + test() + " tar");
    ++depth_;
    const std::size_t known = names_.size();
    statements(1 + below(3), depth + 1);
    for (const bool more = perhaps(); more && perhaps();) {
        --depth_;
        line("nAhItarajar " + test() + " tar");
        ++depth_;
        statements(1 + below(2), depth + 1);
    }
    if (perhaps()) {
        --depth_;
        line("nAhItar");
        ++depth_;
        statements(1 + below(2), depth + 1);
    }
    names_.resize(known);
    --depth_;
    line("saMpav jar");
}

void RandomProgram::countedLoop(std::size_t depth) {
    const std::string name = freshName();
    line(name + " sAThI 1 te " + value() + (perhaps() ? " paryaMt" : ""));
    names_.push_back(name);
    ++depth_;
    statements(1 + below(4), depth + 1);
    --depth_;
    line(perhaps() ? "puDhachA " + name : "puDhachA");
}

void RandomProgram::whileLoop(std::size_t depth) {
    line("jovar " + test() + (perhaps() ? " tovar" : ""));
    ++depth_;
    statements(1 + below(4), depth + 1);
    --depth_;
    line("kar");
}

void RandomProgram::drawing() {
    switch (below(4)) {
        case 0:
            return line((perhaps() ? place() + " pAsun " : "") + place() + " paryaMt " +
                        (perhaps() ? colour() + " raMgAchI " : "") + "regh Akh");
        case 1:
            return line((perhaps() ? place() + " pAsun " : "") + place() + " paryaMt " +
                        (perhaps() ? colour() + " raMgAche " : "") + (perhaps() ? "bharalele " : "") + "Ayat kADh");
        case 2:
            return line(place() + " pAsun " + value() + (perhaps() ? " trijyAche " : " trijyA Asalele ") +
                        (perhaps() ? colour() + " raMgAche " : "") + (perhaps() ? "bharalele " : "") + "vartuL kADh");
        default:
            return line(place() + " var " + (perhaps() ? colour() + " raMgAchA " : "") + "biMdU kADh");
    }
}

void RandomProgram::file() {
    line("ughaD #\"yAdI.txt\"#, lihiNyAsAThI");
    line("lihI " + value());
    line("baMd");
    const std::string name = freshName();
    line("ughaD #\"yAdI.txt\"#, vAchaNyAsAThI");
    line("jovar nAhI phAilaMt tovar");
    ++depth_;
    line("vAch " + name);
    line("dAkhav " + name);
    --depth_;
    line("kar");
    line("baMd");
}

void RandomProgram::function(const std::string& name) {
    line("");
    const std::string parameter = freshName();
    line("upaprAyojan " + name + "(" + parameter + ")");
    names_ = {parameter};
    arrays_.clear();
    ++depth_;
    statements(1 + below(3), 1);
    line(name + " = " + value());
    --depth_;
    line("upaprAyojan saMpav");
}

std::string RandomProgram::number() {
    switch (below(4)) {
        case 0:
            return std::to_string(1 + below(9)) + "." + std::to_string(below(100));
        case 1:
            return "-" + std::to_string(below(100));
        default:
            return std::to_string(1 + below(1000));
    }
}

std::string RandomProgram::text() {
    return std::string(
        oneOf({"#\"#namaskAr, jag!#\"#", "#\"Hello, World\"#", "#\"#tujhe nAv kAy?#\"#", "#\"#uttar: #\"#",
               "#\"#ek te dahA, dAkhav ANi ghe#\"#", "#\"\"#", "#\"#jar tar nAhItar#\"#"}));
}

std::string RandomProgram::value(std::size_t depth) {
    switch (below(depth > 2 ? 3 : 9)) {
        case 0:
            return number();
        case 1:
        case 2:
            return names_.empty() ? number() : names_[below(names_.size())];
        case 3:
            return arrays_.empty() ? number() : arrays_[below(arrays_.size())] + "(" + std::to_string(below(10)) + ")";
        case 4:
            return functions_.empty() ? "phAsA(6)"
                                      : functions_[below(functions_.size())] + "(" + value(depth + 1) + ")";
        case 5:
            return "(" + value(depth + 1) + " adhik " + value(depth + 1) + ")";
        case 6:
            return std::string(oneOf({"ruMdI", "uMchI", "bAkI(7, 2)", "vargamUL(16)", "pAy", "lAl", "sekaMd"}));
        default:
            return value(depth + 1) + std::string(oneOf({" adhik ", " vajA ", " guNile ", " * ", " + ", "-"})) +
                   value(depth + 1);
    }
}

std::string RandomProgram::test() {
    const auto one = [this] {
        return std::string(perhaps() ? "" : "nAhI ") + value() +
               std::string(oneOf({" lahAn ", " moThA ", " barobar ", " = ", " < ", " > ", " <> ", " >= "})) + value();
    };
    return one() + (below(3) == 0 ? std::string(oneOf({" ANi ", " kiMvA "})) + one() : "");
}

std::string RandomProgram::place() {
    return "(" + value() + ", " + value() + ")";
}

std::string RandomProgram::colour() {
    return perhaps() ? "raMg(" + value() + ", 0, 255)" : std::string(oneOf({"lAl", "niLyA", "hiravyA", "255"}));
}

}  // namespace tolvan::guide
