// Both panes side by side in a window, as the editor has them.
#pragma once

#include "editor/panes/PaneAids.h"
#include "editor/panes/ProgramBox.h"
#include "editor/panes/RomanBox.h"
#include "editor/panes/RomanInput.h"

#include <QApplication>
#include <QClipboard>
#include <QSplitter>
#include <QTest>

#include <gmock/gmock.h>

namespace tolvan {

class Panes : public ::testing::Test {
  protected:
    Panes() {
        window.addWidget(&roman);
        window.addWidget(&program);
        window.resize(1000, 400);
        window.show();
        roman.setFocus();
        QObject::connect(&roman, &RomanBox::characterRefused, [this](char32_t c) { refused += c; });
        QObject::connect(&roman, &RomanBox::charactersLeftOut, [this](const std::u32string& c) { refused += c; });
    }

    void type(const char* letters) { QTest::keyClicks(&roman, QString::fromLatin1(letters)); }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&roman, static_cast<Qt::Key>(key), modifiers);
    }

    // Goes to the clipboard, which owns it.
    void putOnClipboard(const QString& text) { QGuiApplication::clipboard()->setText(text); }
    static QString clipboardText() { return QGuiApplication::clipboard()->text(); }

    // In the pane, on the row (from 0), so far down in the row's height.
    static QPoint place(const TextPane& pane, int x, int row, double depth) {
        return {x, static_cast<int>(pane.firstVisibleTop() + (row + depth) * pane.lineHeight())};
    }

    QSplitter window;
    RomanBox roman;
    ProgramBox program;
    RomanInput input{roman, program};
    PaneAids aids{roman, program, input};
    std::u32string refused;
};

}  // namespace tolvan
