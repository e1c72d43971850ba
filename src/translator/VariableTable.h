// The script names that stand for a program's own names.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tolvan {

// Makes script names of ten small letters, one after the other. A "z" at the end of a name is carried one name late, so
// that names repeat: the 51st is the 26th again.
class NameCounter {
  public:
    void reset() { letters_.assign(length, 'a'); }

    // Empty when there is no further name.
    std::string next();

  private:
    static constexpr std::size_t length = 10;
    std::string letters_ = std::string(length, 'a');
};

// Names are told apart byte for byte and have no scope: one name of the program is one script name everywhere.
class VariableTable {
  public:
    // Forgets all names; the script names start again.
    void clear() { names_.clear(); }

    // Pairs of a name and its script name, in no order.
    auto begin() const { return names_.begin(); }
    auto end() const { return names_.end(); }

    // The script name for `name`, a new one the first time. Blanks around `name` do not count. The result is valid
    // until `clear`.
    const std::string& MapIdentifier(std::string_view name);

    // The script name that the next new name gets. Taking it without putting a name into the table moves the counter
    // all the same.
    std::string GetNextVariable();

  private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
    };

    std::unordered_map<std::string, std::string, Hash, std::equal_to<>> names_;
    NameCounter counter_;
};

}  // namespace tolvan
