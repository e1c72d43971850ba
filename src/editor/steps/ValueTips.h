// Shows the value of a name when the pointer rests on it, in either pane.
#pragma once

#include <QObject>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tolvan {

class ProgramBox;
class RomanBox;

class ValueTips : public QObject {
    Q_OBJECT
  public:
    // The value that a word (in font codes) has where it stands, in a line from 1, in internal text form; nothing where
    // there is none, and other tips are shown.
    using ValueOf = std::function<std::optional<std::string>(std::string_view word, int line)>;

    // The panes must outlive it.
    ValueTips(RomanBox& roman, ProgramBox& program, ValueOf valueOf);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::string wordAt(std::size_t line, std::size_t column, bool inProgram) const;

    RomanBox& roman_;
    ProgramBox& program_;
    ValueOf valueOf_;
};

}  // namespace tolvan
