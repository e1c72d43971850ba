#include "editor/frmExamples.h"

#include "dialogs/Accessibility.h"
#include "dialogs/Look.h"
#include "editor/WholeFile.h"
#include "platform/encoding/Deva.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/transliteration/ReplaceRomanChars.h"
#include "translator/ProgramFile.h"

#include <QBoxLayout>
#include <QDir>
#include <QListWidget>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>

namespace tolvan {
namespace {

// In em; the pictures are as wide as high by the console's 4 to 3.
constexpr double pictureWidth = 9;
constexpr double pictureHeight = 6.75;
constexpr double cellWidth = 10.5;
constexpr double cellHeight = 9.5;
constexpr int columns = 4;
constexpr double visibleRows = 2.6;  // the cut row shows that there are more

// With a frame: the console's ground may be that of the window.
QIcon framed(const QString& file) {
    QPixmap picture(file);
    if (picture.isNull()) return {};
    QPainter painter(&picture);
    painter.setPen(QPen(look::colours().line, picture.width() / 80.0));
    painter.drawRect(picture.rect());
    return picture;
}

}  // namespace

frmExamples::frmExamples(const QString& folder, QWidget* parent)
    : FramedDialog("%dahr[e"_deva, parent), lstExamples_(new QListWidget) {
    setObjectName(QStringLiteral("frmExamples"));
    lstExamples_->setObjectName(QStringLiteral("lstExamples"));
    lstExamples_->setAccessibleName(accessible::unicode("%dahr[e"_deva));
    lstExamples_->setViewMode(QListView::IconMode);
    lstExamples_->setMovement(QListView::Static);
    lstExamples_->setResizeMode(QListView::Adjust);
    lstExamples_->setUniformItemSizes(true);
    lstExamples_->setWordWrap(true);
    lstExamples_->setIconSize({look::em(pictureWidth), look::em(pictureHeight)});
    lstExamples_->setGridSize({look::em(cellWidth), look::em(cellHeight)});
    lstExamples_->setFont(look::controlFont(Font::Devanagari));
    lstExamples_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    lstExamples_->setMinimumSize(
        QSize(look::em(columns * cellWidth + 1) + lstExamples_->verticalScrollBar()->sizeHint().width(),
              look::em(visibleRows * cellHeight))
            .boundedTo(screen()->availableSize() * 0.8));
    for (const QFileInfo& file : QDir(folder).entryInfoList({QStringLiteral("*.tvp")}, QDir::Files, QDir::Name))
        addProgram(file.absoluteFilePath());
    lstExamples_->setCurrentRow(0);
    body().addWidget(lstExamples_);

    connect(addButton("cmdOpen", "%\"f"_deva), &QPushButton::clicked, this, &QDialog::accept);
    connect(addButton("cmdCancel", "rÎ"_deva), &QPushButton::clicked, this, &QDialog::reject);
    connect(lstExamples_, &QListWidget::itemActivated, this, &QDialog::accept);
    lstExamples_->setFocus();
}

void frmExamples::addProgram(const QString& path) {
    const std::optional<QByteArray> content = readWholeFile(path);
    if (!content) return;
    const ProgramFile program = readProgramFile(content->toStdString());
    if (program.problem != ProgramFile::Problem::None) return;
    const QFileInfo file(path);
    const QString picture = file.dir().filePath(QStringLiteral("pictures/%1.png").arg(file.completeBaseName()));
    auto* const item =
        new QListWidgetItem(framed(picture), toQString(ReplaceRomanChars(program.caption)), lstExamples_);
    item->setData(Qt::UserRole, path);
    item->setData(Qt::AccessibleTextRole, accessible::unicode(item->text()));
}

QString frmExamples::chosen() const {
    const QListWidgetItem* const item = lstExamples_->currentItem();
    return item == nullptr ? QString() : item->data(Qt::UserRole).toString();
}

QString askExample(const QString& folder, QWidget* parent) {
    const QPointer<frmExamples> dialog = new frmExamples(folder, parent);
    const bool accepted = dialog->exec() == QDialog::Accepted;
    const QString path = dialog && accepted ? dialog->chosen() : QString();
    delete dialog;
    return path;
}

}  // namespace tolvan
