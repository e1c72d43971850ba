// The help: topics at the left, what they say at the right, and a button that copies the topic's example. Letters that
// are typed look for a topic; they may be Roman, Devanagari or of an English word.
#pragma once

#include "shell/help/HelpFile.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace tolvan {

class RichTextView;

class frmHelp : public QWidget {
    Q_OBJECT

  public:
    explicit frmHelp(std::vector<HelpTopic> topics);

    // Shows the topic of this title, as the list has it; nothing changes if there is none.
    void showTopic(const QString& title);

  protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void setUpSearch();
    void setUpTopics();
    void setUpLayout();
    const HelpTopic& current() const;
    void search();
    void showCurrent();
    void copyExample();

    std::vector<HelpTopic> topics_;  // at least one
    QLineEdit* txtSearch_;
    QLabel* lblNote_;  // that nothing was found
    QListWidget* lstTopics_;
    RichTextView* txtHelp_;
    QPushButton* cmdCopy_;
};

// Shows the help of a file, in the one window for it, at the topic of this title if there is one. False if the file
// cannot be read or holds no help.
bool showHelp(const QString& file, const QString& topic);

}  // namespace tolvan
