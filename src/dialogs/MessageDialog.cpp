#include "dialogs/MessageDialog.h"

#include "dialogs/RichTextView.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QScreen>

namespace tolvan {

// The share of the screen's width and height that a message may take before it scrolls.
constexpr double screenShare = 0.6;

std::string messageDocument(std::string_view fragment) {
    constexpr std::string_view header =
        "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deftab720{\\fonttbl{\\f0\\fswiss Times New Roman;}{\\f1\\fnil Sanskrit "
        "1.2;}}{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue255;} \\fs20 ";
    return std::string(header).append(fragment).append("\\par}");
}

MessageDialog::MessageDialog(std::string_view title, MessageSign::Kind sign, const char* messageName, QWidget* parent)
    : FramedDialog(title, parent), view_(new RichTextView(this)) {
    view_->setObjectName(QLatin1String(messageName));
    body().addWidget(new MessageSign(sign, this), 0, Qt::AlignTop);
    body().addWidget(view_, 1, Qt::AlignVCenter);
}

void MessageDialog::setMessage(std::string_view fragment) {
    view_->setTextRtf(messageDocument(fragment));
    view_->setFixedSize(view_->sizeFor(screen()->availableSize() * screenShare));
}

void MessageDialog::keyPressEvent(QKeyEvent* event) {
    if (!view_->scrollByKey(event->key())) FramedDialog::keyPressEvent(event);
}

}  // namespace tolvan
