#include "dialogs/Accessibility.h"

#include "dialogs/Look.h"
#include "platform/encoding/Unicode.h"
#include "platform/fonts/FontEncoding.h"
#include "platform/richtext/Letters.h"
#include "platform/richtext/UnicodeText.h"

#include <QAccessibleObject>
#include <QAction>
#include <QHash>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>

namespace tolvan::accessible {
namespace {

constexpr const char* roleProperty = "accessibleRole";

using CaretPlace = int (*)(QWidget& widget);
QHash<QObject*, CaretPlace>& textEvents() {
    static QHash<QObject*, CaretPlace> widgets;
    return widgets;
}

// An item of a menu or of a menu bar. Its action belongs to that one first of all.
class MenuItem : public QAccessibleObject, public QAccessibleActionInterface {
  public:
    MenuItem(QAction& action, QWidget& owner) : QAccessibleObject(&action), action_(action), owner_(owner) {}

    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&owner_); }
    QAccessibleInterface* child(int index) const override {
        return index == 0 && action_.menu() != nullptr ? QAccessible::queryAccessibleInterface(action_.menu())
                                                       : nullptr;
    }
    int childCount() const override { return action_.menu() != nullptr ? 1 : 0; }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child != nullptr && child->object() == action_.menu() ? 0 : -1;
    }
    QWindow* window() const override { return parent()->window(); }

    QString text(QAccessible::Text which) const override {
        if (which == QAccessible::Accelerator) return action_.shortcut().toString(QKeySequence::NativeText);
        if (which != QAccessible::Name) return {};
        const bool inCodes = owner_.font().families() == look::controlFont(Font::Devanagari).families() &&
                             action_.font().families() != look::controlFont(Font::Latin).families();
        return inCodes ? unicode(action_.text()) : withoutMarks(action_.text());
    }
    QAccessible::Role role() const override {
        return action_.isSeparator() ? QAccessible::Separator : QAccessible::MenuItem;
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.disabled = !action_.isEnabled();
        state.invisible = !action_.isVisible() || !owner_.isVisible();
        state.checkable = action_.isCheckable();
        state.checked = action_.isChecked();
        state.hasPopup = action_.menu() != nullptr;
        state.focusable = true;
        state.focused = activeAction() == &action_;
        return state;
    }
    QRect rect() const override {
        const QRect area = menu()  ? menu()->actionGeometry(&action_)
                           : bar() ? bar()->actionGeometry(&action_)
                                   : QRect();
        return {owner_.mapToGlobal(area.topLeft()), area.size()};
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }
    QStringList actionNames() const override {
        if (action_.isSeparator() || !action_.isEnabled()) return {};
        return {action_.menu() != nullptr ? showMenuAction() : pressAction()};
    }
    // What it does may ask the user; who calls is not to wait for that.
    void doAction(const QString& name) override {
        if (name == pressAction())
            QMetaObject::invokeMethod(&action_, "trigger", Qt::QueuedConnection);
        else if (name == showMenuAction() && bar() != nullptr)
            QMetaObject::invokeMethod(
                bar(), [this] { bar()->setActiveAction(&action_); }, Qt::QueuedConnection);
    }
    QStringList keyBindingsForAction(const QString&) const override {
        return {action_.shortcut().toString(QKeySequence::PortableText)};
    }

  private:
    // Of mnemonics.
    static QString withoutMarks(QString text) {
        for (qsizetype at = 0; (at = text.indexOf(u'&', at)) >= 0; ++at) text.remove(at, 1);
        return text;
    }
    QMenu* menu() const { return qobject_cast<QMenu*>(&owner_); }
    QMenuBar* bar() const { return qobject_cast<QMenuBar*>(&owner_); }
    QAction* activeAction() const { return menu() ? menu()->activeAction() : bar() ? bar()->activeAction() : nullptr; }

    QAction& action_;
    QWidget& owner_;
};

QAccessibleInterface* menuItem(QAction& action) {
    for (QObject* object : action.associatedObjects())
        if (qobject_cast<QMenu*>(object) != nullptr || qobject_cast<QMenuBar*>(object) != nullptr)
            return new MenuItem(action, static_cast<QWidget&>(*object));
    return nullptr;
}

QAccessibleInterface* ownInterface(const QString& className, QObject* object) {
    if (className == QLatin1String("QAction")) return menuItem(static_cast<QAction&>(*object));
    if (className == QLatin1String("QSplitterHandle"))
        return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Separator);
    if (className != QLatin1String("QWidget") && className != QLatin1String("QAbstractScrollArea")) return nullptr;
    auto* const widget = static_cast<QWidget*>(object);
    if (const QVariant role = widget->property(roleProperty); role.isValid())
        return new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()));
    const bool isPlainWindow =
        widget->isWindow() && (widget->windowType() == Qt::Window || widget->windowType() == Qt::SplashScreen);
    return isPlainWindow ? new QAccessibleWidget(widget, QAccessible::Window) : nullptr;
}

// Hands an event to the platform, which is what happens where there is no handler.
void handOn(QAccessibleEvent& event);

void handle(QAccessibleEvent* event) {
    const auto found = textEvents().constFind(event->object());
    if (found == textEvents().cend()) return handOn(*event);
    switch (event->type()) {
        case QAccessible::TextInserted:
        case QAccessible::TextRemoved:
        case QAccessible::TextUpdated:
        case QAccessible::TextSelectionChanged:
            return;
        case QAccessible::TextCaretMoved: {
            auto* const widget = static_cast<QWidget*>(event->object());
            if (*found == nullptr || !widget->hasFocus()) return;
            QAccessibleTextCursorEvent moved(widget, (*found)(*widget));
            return handOn(moved);
        }
        default:
            return handOn(*event);
    }
}

void handOn(QAccessibleEvent& event) {
    QAccessible::installUpdateHandler(nullptr);
    QAccessible::updateAccessibility(&event);
    QAccessible::installUpdateHandler(handle);
}

// The codes of a line that are one letter.
struct DrawnLetter {
    std::size_t begin = 0;
    std::size_t end = 0;
};

std::vector<DrawnLetter> drawnLettersOf(const DrawnLine& line) {
    std::vector<DrawnLetter> letters;
    std::size_t begin = 0;
    for (const StyledView& letter : lettersOf(line.codes)) {
        letters.push_back({begin, begin + letter.size()});
        begin += letter.size();
    }
    return letters;
}

}  // namespace

void install() {
    QAccessible::installFactory(ownInterface);
    QAccessible::installUpdateHandler(handle);
}

int unicodeSize(StyledView codes) {
    return static_cast<int>(QString::fromStdString(unicodeOf(codes)).size());
}

QString unicode(std::string_view codes) {
    return QString::fromStdString(unicodeOfCodes(codes));
}

QString unicode(const QString& shown) {
    QString text = shown;
    return unicode(std::string_view(toFontEncoded(text.replace(QLatin1String("&&"), QLatin1String("&")))));
}

void setRole(QWidget& widget, QAccessible::Role role) {
    widget.setProperty(roleProperty, static_cast<int>(role));
}

void announce(QWidget& widget, int position, const QString& text) {
    if (!isUsed() || text.isEmpty()) return;
    QAccessibleTextInsertEvent event(&widget, position, text);
    handOn(event);
}

void replaceTextEvents(QWidget& widget, int (*caret)(QWidget& widget)) {
    textEvents().insert(&widget, caret);
    QObject::connect(&widget, &QObject::destroyed, [](QObject* gone) { textEvents().remove(gone); });
}

ReadText::ReadText(QWidget& widget, QAccessible::Role role) : QAccessibleWidget(&widget, role) {}

QString ReadText::text(QAccessible::Text which) const {
    if (which == QAccessible::Value) return content();
    return QAccessibleWidget::text(which);
}

QAccessible::State ReadText::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    state.multiLine = true;
    return state;
}

void* ReadText::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

void ReadText::selection(int, int* start, int* end) const {
    *start = *end = 0;
}

QString ReadText::text(int start, int end) const {
    const QString all = content();
    const auto to = end < 0 ? all.size() : std::min<qsizetype>(end, all.size());
    const auto from = std::clamp<qsizetype>(start, 0, to);
    return all.mid(from, to - from);
}

int ReadText::characterCount() const {
    return static_cast<int>(content().size());
}

QRect ReadText::characterRect(int offset) const {
    const std::vector<DrawnLine> lines = drawnLines();
    const auto after = std::find_if(lines.begin(), lines.end(), [&](const DrawnLine& l) { return l.start > offset; });
    if (offset < 0 || after == lines.begin()) return {};
    const DrawnLine& line = *std::prev(after);
    const int inLine = offset - line.start;
    const StyledView codes = line.codes;
    const int size = unicodeSize(codes);
    if (inLine > size) return {};
    const auto areaOf = [&](double left, double right) {
        const QRectF area(left, line.top, std::max(right - left, 1.0), line.height);
        return area.toAlignedRect().translated(widget()->mapToGlobal(QPoint()));
    };
    if (inLine == size) return areaOf(line.edges.back(), line.edges.back());
    const std::vector<DrawnLetter> letters = drawnLettersOf(line);
    const auto letter = std::partition_point(letters.begin(), letters.end(), [&](const DrawnLetter& l) {
        return unicodeSize(codes.substr(0, l.end)) <= inLine;
    });
    return areaOf(line.edges[letter->begin], line.edges[letter->end]);
}

int ReadText::offsetAtPoint(const QPoint& point) const {
    const QPointF place = widget()->mapFromGlobal(QPointF(point) + QPointF(0.5, 0.5));
    for (const DrawnLine& line : drawnLines()) {
        if (place.y() < line.top || place.y() >= line.top + line.height || place.x() < line.edges.front()) continue;
        for (const auto& [begin, end] : drawnLettersOf(line))
            if (place.x() < line.edges[end]) return line.start + unicodeSize(line.codes.view().substr(0, begin));
    }
    return -1;
}

QString ReadText::attributes(int, int* start, int* end) const {
    *start = 0;
    *end = characterCount();
    return {};
}

}  // namespace tolvan::accessible
