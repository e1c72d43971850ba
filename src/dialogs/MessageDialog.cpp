#include "dialogs/MessageDialog.h"

#include "dialogs/Look.h"
#include "dialogs/RichTextView.h"
#include "platform/richtext/RtfWriter.h"

#include <QBoxLayout>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QScreen>

namespace tolvan {
namespace {

// The share of the screen's width and height that a message may take before it scrolls.
constexpr double screenShare = 0.6;

}  // namespace

MessageDialog::MessageDialog(std::string_view title, MessageSign::Kind sign, const char* messageName, QWidget* parent)
    : FramedDialog(title, parent), view_(new RichTextView(this)) {
    view_->setObjectName(QLatin1String(messageName));
    body().addWidget(new MessageSign(sign, this), 0, Qt::AlignTop);
    auto* column = new QVBoxLayout;  // one line of text looks centred beside the sign
    column->setContentsMargins(0, 2 * look::devanagariDrop(), 0, 0);
    column->addWidget(view_, 0, Qt::AlignVCenter);
    body().addLayout(column);
    body().addStretch(1);
}

void MessageDialog::setMessage(std::string_view fragment) {
    view_->setTextRtf(rtfDocument(fragment));
    view_->setFixedSize(view_->sizeFor(screen()->availableSize() * screenShare));
}

void MessageDialog::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy))
        QGuiApplication::clipboard()->setMimeData(view_->toMimeData().release());
    else if (!view_->scrollByKey(event->key()))
        FramedDialog::keyPressEvent(event);
}

}  // namespace tolvan
