#include "editor/PrintPages.h"

#include "dialogs/Dialogs.h"
#include "editor/DocumentMessages.h"

#include <QPainter>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>

#include <algorithm>

namespace tolvan {
namespace {

// On Windows the dialog neither appears nor tells anything where there is no printer.
bool canAsk([[maybe_unused]] const QPrinter& printer) {
#ifdef Q_OS_WIN
    return printer.outputFormat() == QPrinter::NativeFormat;
#else
    return true;
#endif
}

std::vector<int> wantedPages(const QPrinter& printer, int count) {
    const bool isRange = printer.printRange() == QPrinter::PageRange;
    const int first = isRange ? std::max(printer.fromPage(), 1) : 1;
    const int last = isRange ? std::min(printer.toPage(), count) : count;
    std::vector<int> pages;
    for (int page = first; page <= last; ++page) pages.push_back(page);
    if (printer.pageOrder() == QPrinter::LastPageFirst) std::reverse(pages.begin(), pages.end());
    return pages;
}

bool print(const PaintedPages& pages, QPrinter& printer) {
    QPainter painter;
    if (!painter.begin(&printer)) return false;
    const QSizeF paper = printer.paperRect(QPrinter::DevicePixel).size();
    bool isFirst = true;
    for (const int page : wantedPages(printer, pages.pages())) {
        if (!isFirst && !printer.newPage()) return false;
        isFirst = false;
        pages.paint(page, painter, paper, printer.resolution() / 72.0);
    }
    return painter.end() && printer.printerState() != QPrinter::Error;
}

}  // namespace

void printPages(const PaintedPages& pages, const QString& name, QWidget* parent) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setFullPage(true);
    printer.setDocName(name.isEmpty() ? QStringLiteral("Tolvan Basic") : name);
    if (!canAsk(printer)) return ShowMessage(std::string(messages::notPrinted));
    const QPointer<QPrintDialog> dialog = new QPrintDialog(&printer, parent);
    dialog->setMinMax(1, pages.pages());
    dialog->setFromTo(1, pages.pages());
    const bool accepted = dialog->exec() == QDialog::Accepted && dialog;
    delete dialog;
    if (accepted && !print(pages, printer)) ShowMessage(std::string(messages::notPrinted));
}

}  // namespace tolvan
