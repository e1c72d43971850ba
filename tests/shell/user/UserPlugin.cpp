// Plays the user of a real program that is started by a test: Qt loads it into the program as it loads any plugin for
// input devices, so that the program itself needs nothing for it.
//
// It writes down every window that comes up, one a line, in UTF-8, in the file that TOLVAN_USER_LOG names:
//     CLASS|caption|what it says
// and does what the file named by TOLVAN_USER_DEEDS says, one deed a line, in this order, each when its window is in
// front:
//     CLASS click OBJECT     clicks the button of that object name, or of that caption
//     CLASS command METHOD   calls the command of that name, as the menu does
//     CLASS type TEXT        types it into the widget with the keyboard, and Enter
//     CLASS close            closes the window
//     CLASS leave            presses the blank until the window is gone
//     CLASS logout TEXT      types it into the widget with the keyboard; then the system asks the program to end
//     CLASS remove FILE      removes a file meanwhile
// With "*" as CLASS a deed is for any window, and is done again and again until the program ends.
#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QGenericPlugin>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <csignal>

namespace tolvan {
namespace {

struct Deed {
    QString window;
    QString verb;
    QString object;
};

QString className(const QObject& object) {
    return QString::fromLatin1(object.metaObject()->className()).section(QLatin1String("::"), -1);
}

// What the texts of a window say that are no buttons.
QString textOf(const QWidget& window) {
    QStringList texts;
    if (const auto* box = qobject_cast<const QMessageBox*>(&window)) {
        texts << (box->icon() == QMessageBox::Critical ? QStringLiteral("Critical") : QStringLiteral("Information"))
              << box->text();
    }
    for (const QWidget* part : window.findChildren<QWidget*>())
        if (className(*part) == QLatin1String("RichTextView")) texts << part->property("text").toString();
    return texts.join(u'|').replace(QLatin1String("\r\n"), QLatin1String("\\n")).replace(u'\n', QLatin1String("\\n"));
}

class User : public QObject {
  public:
    User() : log_(qEnvironmentVariable("TOLVAN_USER_LOG")) {
        if (!log_.open(QIODevice::WriteOnly)) return;
        readDeeds(qEnvironmentVariable("TOLVAN_USER_DEEDS"));
        qApp->installEventFilter(this);
        connect(&timer_, &QTimer::timeout, this, &User::look);
        timer_.start(15);
    }

  private:
    void readDeeds(const QString& path) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) return;
        for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts))
            deeds_.append({line.section(u' ', 0, 0), line.section(u' ', 1, 1), line.section(u' ', 2)});
    }

    // Windows are written down in the order in which they came up; several may since the last look.
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* const window = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::Show && window != nullptr && window->isWindow()) shown_.append(window);
        return QObject::eventFilter(watched, event);
    }

    void look() {
        for (QWidget* window : std::exchange(shown_, {}))
            if (window != nullptr && window->isVisible() && !seen_.contains(window)) note(*window);
        seen_.removeAll(nullptr);
        QWidget* const modal = QApplication::activeModalWidget();
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (!window->isVisible() || (modal && window != modal)) continue;
            if (deeds_.isEmpty() || act(*window)) return;
        }
        if (std::exchange(leaving_, false)) deeds_.removeFirst();  // it is gone
    }

    void note(QWidget& window) {
        seen_.append(&window);
        const QString line = className(window) + u'|' + window.windowTitle() + u'|' + textOf(window) + u'\n';
        log_.write(line.toUtf8());
        log_.flush();
    }

    // The next deed, if it is for this window.
    bool act(QWidget& window) {
        const Deed deed = deeds_.constFirst();
        const bool always = deed.window == QLatin1String("*");
        if (!always && deed.window != className(window)) return false;
        if (deed.verb == QLatin1String("leave")) {
            leaving_ = true;
            QTest::keyClick(window.windowHandle(), Qt::Key_Space);
            return true;
        }
        if (deed.verb == QLatin1String("type") && !qobject_cast<QLineEdit*>(QApplication::focusWidget())) return false;
        if (!always) deeds_.removeFirst();
        carryOut(deed, window);
        return true;
    }

    static void carryOut(const Deed& deed, QWidget& window) {
        if (deed.verb == QLatin1String("click")) {
            for (auto* button : window.findChildren<QAbstractButton*>())
                if (button->objectName() == deed.object || button->text().remove(u'&') == deed.object)
                    return button->click();
        } else if (deed.verb == QLatin1String("command")) {
            QMetaObject::invokeMethod(&window, deed.object.toLatin1().constData(), Qt::QueuedConnection);
        } else if (deed.verb == QLatin1String("type")) {
            for (const QChar letter : deed.object)
                QTest::sendKeyEvent(QTest::Click, window.windowHandle(), Qt::Key_unknown, letter, {});
            QTest::keyClick(window.windowHandle(), Qt::Key_Return);
        } else if (deed.verb == QLatin1String("logout")) {
            for (const QChar letter : deed.object)
                QTest::sendKeyEvent(QTest::Click, window.windowHandle(), Qt::Key_unknown, letter, {});
            std::raise(SIGTERM);
        } else if (deed.verb == QLatin1String("close")) {
            window.close();
        } else if (deed.verb == QLatin1String("remove")) {
            QFile::remove(deed.object);
        }
    }

    QFile log_;
    QList<Deed> deeds_;
    QList<QPointer<QWidget>> shown_;
    QList<QPointer<QWidget>> seen_;
    QTimer timer_;
    bool leaving_ = false;
};

}  // namespace

class UserPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "user.json")

  public:
    QObject* create(const QString&, const QString&) override { return new User; }
};

}  // namespace tolvan

#include "UserPlugin.moc"
