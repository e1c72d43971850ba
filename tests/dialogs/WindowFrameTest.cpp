#include "BoxUser.h"
#include "dialogs/CaptionButton.h"
#include "dialogs/Look.h"
#include "dialogs/WindowFrame.h"
#include "platform/encoding/Deva.h"
#include "support/DrawnTexts.h"

#include <QMainWindow>
#include <QMenuBar>
#include <QSignalSpy>
#include <QStatusBar>
#include <QVBoxLayout>
#include <QWindow>

#include <gtest/gtest.h>

namespace tolvan {
namespace {

class FramedWindow : public testing::Test {
  protected:
    explicit FramedWindow(WindowFrame::Kind kind = WindowFrame::Kind::Resizable) : frame(window, kind) {
        auto* layout = new QVBoxLayout(&window);
        layout->setContentsMargins({});
        layout->addWidget(&content);
        content.setFocusPolicy(Qt::StrongFocus);
        content.setMinimumSize(50, 40);
        window.setGeometry(100, 100, 400, 300);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        content.setFocus();
    }
    ~FramedWindow() override { content.setParent(nullptr); }

    QPoint titlePoint() const { return frame.captionBar().geometry().center(); }

    // Draws the mouse with its button down from a place in the window by `way`.
    void drag(QPoint from, QPoint way) {
        QWindow* handle = window.windowHandle();
        QPoint at = window.pos() + from;  // on the screen: the window moves under the mouse
        QTest::mousePress(handle, Qt::LeftButton, {}, from);
        for (int step = 1; step <= 4; ++step) QTest::mouseMove(handle, at + way * step / 4 - window.pos());
        at += way;
        QTest::mouseRelease(handle, Qt::LeftButton, {}, at - window.pos());
    }

    void chooseInMenu(int downs) {
        press(window, Qt::Key_Space, Qt::AltModifier);
        QWidget* menu = QApplication::activePopupWidget();
        ASSERT_EQ(menu, &frame.systemMenu());
        for (int i = 0; i < downs; ++i) press(*menu, Qt::Key_Down);
        press(*menu, Qt::Key_Return);
    }

    QColor captionColour() { return window.grab().toImage().pixelColor(titlePoint() + QPoint(0, 4)); }

    QWidget window;
    QWidget content;
    WindowFrame frame;
};

TEST_F(FramedWindow, ButtonsAndDoubleClickChangeTheState) {
    const QRect normal = window.geometry();
    auto& maximize = control<CaptionButton>(window, "cmdMaximize");
    clickOn(maximize);
    EXPECT_TRUE(window.isMaximized());
    EXPECT_EQ(maximize.sign(), CaptionButton::Sign::Restore);
    EXPECT_EQ(content.geometry().left(), 0);  // no edge to resize by
    clickOn(maximize);
    EXPECT_FALSE(window.isMaximized());
    EXPECT_EQ(window.geometry(), normal);

    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {}, titlePoint());
    EXPECT_TRUE(window.isMaximized());
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {}, titlePoint());
    EXPECT_FALSE(window.isMaximized());

    clickOn(control(window, "cmdMinimize"));
    EXPECT_TRUE(window.isMinimized());
    window.showNormal();
    clickOn(control(window, "cmdClose"));
    EXPECT_FALSE(window.isVisible());
}

TEST_F(FramedWindow, AltF4ClosesUnlessTheWindowRefuses) {
    struct : QObject {
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Close) event->ignore();
            return event->type() == QEvent::Close;
        }
    } refusal;
    window.installEventFilter(&refusal);
    press(window, Qt::Key_F4, Qt::AltModifier);
    EXPECT_TRUE(window.isVisible());
    window.removeEventFilter(&refusal);
    press(window, Qt::Key_F4, Qt::AltModifier);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(FramedWindow, SystemMenuIsMarathiAndGreyedByState) {
    const std::string_view captions[] = {"saxar[ kr"_deva,   "halv"_deva,           "Aakar"_deva,
                                         "kmIt kmI kr"_deva, "jaStIt jaSt kr"_deva, "b<d kr"_deva};
    struct {
        bool maximized;
        QString enabled;  // one letter an item, in the order of the captions
    } const cases[] = {{false, QStringLiteral("-xxxxx")}, {true, QStringLiteral("x--x-x")}};
    for (const auto& [maximized, expected] : cases) {
        maximized ? window.showMaximized() : window.showNormal();
        press(window, Qt::Key_Space, Qt::AltModifier);
        QString enabled;
        std::size_t position = 0;
        for (const QAction* item : frame.systemMenu().actions()) {
            if (item->isSeparator()) continue;
            EXPECT_EQ(item->text(), look::captionText(captions[position++]));
            enabled += QLatin1Char(item->isEnabled() ? 'x' : '-');
        }
        EXPECT_EQ(enabled, expected);
        press(frame.systemMenu(), Qt::Key_Escape);
        EXPECT_FALSE(frame.systemMenu().isVisible());
    }
    EXPECT_EQ(frame.systemMenu().font().family(), look::controlFont(Font::Devanagari).family());
}

TEST_F(FramedWindow, SystemMenuByMouse) {
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {},
                      control(window, "cmdSystemMenu").mapTo(&window, QPoint(5, 5)));
    ASSERT_TRUE(frame.systemMenu().isVisible());
    EXPECT_EQ(frame.systemMenu().pos().x(), window.x() + frame.captionBar().x());
    const QRect item = frame.systemMenu().actionGeometry(frame.systemMenu().item(SystemCommand::Maximize));
    QTest::mouseClick(frame.systemMenu().windowHandle(), Qt::LeftButton, {}, item.center());
    EXPECT_TRUE(window.isMaximized());
}

TEST_F(FramedWindow, SystemMenuByKeyboard) {
    chooseInMenu(3);
    EXPECT_TRUE(window.isMaximized());
    chooseInMenu(0);
    EXPECT_FALSE(window.isMaximized());
    chooseInMenu(4);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(FramedWindow, OwnItemsComeBackByTheirKey) {
    frame.systemMenu().addCommand("tolvn beisk bÎl"_deva, "ShowAbout");
    QSignalSpy chosen(&frame, &WindowFrame::userCommand);
    chooseInMenu(5);
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen[0][0].toByteArray(), "ShowAbout");
}

TEST_F(FramedWindow, IsDrawnByItsCaptionBar) {
    drag(titlePoint(), {60, 40});
    EXPECT_EQ(window.geometry(), QRect(160, 140, 400, 300));
    drag(titlePoint(), {2, 1});  // a click with an unsteady hand
    EXPECT_EQ(window.pos(), QPoint(160, 140));
}

TEST_F(FramedWindow, DrawnWhileMaximizedItGetsItsSizeBack) {
    window.showMaximized();
    drag({window.width() / 2, titlePoint().y()}, {30, 50});
    EXPECT_FALSE(window.isMaximized());
    EXPECT_EQ(window.size(), QSize(400, 300));
}

TEST_F(FramedWindow, EdgesAndCornersResize) {
    const QRect from(100, 100, 400, 300);
    const int right = 399, bottom = 299;
    const struct {
        QPoint at, way;
        QRect expected;
    } cases[] = {
        {{1, 150}, {-20, 7}, {80, 100, 420, 300}},     {{right - 1, 150}, {20, 7}, {100, 100, 420, 300}},
        {{200, 1}, {9, -20}, {100, 80, 400, 320}},     {{200, bottom - 1}, {9, 20}, {100, 100, 400, 320}},
        {{1, 1}, {10, 10}, {110, 110, 390, 290}},      {{right, 3}, {10, 10}, {100, 110, 410, 290}},
        {{3, bottom}, {10, 10}, {110, 100, 390, 310}}, {{right, bottom}, {10, 10}, {100, 100, 410, 310}},
    };
    for (const auto& [at, way, expected] : cases) {
        window.setGeometry(from);
        drag(at, way);
        EXPECT_EQ(window.geometry(), expected) << at.x() << "," << at.y();
    }
}

TEST_F(FramedWindow, TheEdgeAcrossStaysWhenItCannotBeSmaller) {
    drag({1, 150}, {390, 0});
    EXPECT_EQ(window.geometry().right(), 499);
    EXPECT_GT(window.width(), 50);
    EXPECT_LT(window.width(), 400);
}

TEST_F(FramedWindow, KeyboardMovesAndSizes) {
    chooseInMenu(0);  // move
    press(window, Qt::Key_Right, Qt::ControlModifier);
    press(window, Qt::Key_Down, Qt::ControlModifier);
    press(window, Qt::Key_Return);
    EXPECT_EQ(window.geometry(), QRect(101, 101, 400, 300));

    chooseInMenu(1);  // size
    press(window, Qt::Key_Right);
    press(window, Qt::Key_Up, Qt::ControlModifier);
    EXPECT_GT(window.width(), 401);
    EXPECT_EQ(window.height(), 299);
    press(window, Qt::Key_Escape);
    EXPECT_EQ(window.geometry(), QRect(101, 101, 400, 300));

    press(window, Qt::Key_Right);  // it is over
    EXPECT_EQ(window.geometry(), QRect(101, 101, 400, 300));
}

TEST_F(FramedWindow, LooksActiveOnlyWithTheKeyboard) {
    EXPECT_EQ(captionColour(), look::colours().captionActive);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(captionColour(), look::colours().captionInactive);
    other.close();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(captionColour(), look::colours().captionActive);
}

TEST_F(FramedWindow, ALongTitleEndsInAnEllipsis) {
    frame.setTitle(StyledText(std::string(300, 'k'), Font::Devanagari));
    EXPECT_TRUE(DrawnTexts(frame.captionBar()).texts.back().second.endsWith(u'\u2026'));
}

TEST_F(FramedWindow, TitleIsDrawnInItsFontsAndTheDesktopGetsItsLatinPart) {
    const auto grabTitle = [&](StyledView title) {
        frame.setTitle(title);
        return frame.captionBar().grab().toImage();
    };
    const QImage devanagari = grabTitle(StyledText("tolvn"_deva, Font::Devanagari));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Tolvan Basic"));
    const QImage latin = grabTitle(StyledText("tolvn", Font::Latin));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("tolvn - Tolvan Basic"));
    EXPECT_NE(devanagari, latin);

    StyledText mixed("tolvn beisk "_deva, Font::Devanagari);
    mixed.append("- a\x80\xE9.tvp*", Font::Latin);
    grabTitle(mixed);
    EXPECT_EQ(window.windowTitle(), QString::fromUtf8("a€é.tvp* - Tolvan Basic"));

    const StyledText product("tolvn beisk "_deva, Font::Devanagari);
    const QImage unnamed = grabTitle(product);
    frame.setTitle(product, QString::fromUtf8("नमस्ते.tvp*"));
    EXPECT_EQ(window.windowTitle(), QString::fromUtf8("नमस्ते.tvp* - Tolvan Basic"));
    EXPECT_NE(frame.captionBar().grab().toImage(), unnamed);
}

TEST_F(FramedWindow, ALongTitleLeavesTheButtonsFree) {
    frame.setTitle(StyledText(std::string(2500, 'k'), Font::Devanagari), QString(2500, QLatin1Char('k')));
    const QImage image = frame.captionBar().grab().toImage();
    frame.setTitle({});
    const QImage without = frame.captionBar().grab().toImage();
    EXPECT_NE(image, without);
    const int buttonsLeft = static_cast<int>(control(window, "cmdMinimize").x() * image.devicePixelRatio());
    const QRect buttons(buttonsLeft, 0, image.width() - buttonsLeft, image.height());
    EXPECT_EQ(image.copy(buttons), without.copy(buttons));
}

TEST(WindowFrame, LeavesRoomForTheBarsOfAMainWindow) {
    QMainWindow window;
    const WindowFrame frame(window, WindowFrame::Kind::Resizable);
    window.menuBar()->addMenu(QStringLiteral("x"));
    window.setCentralWidget(new QWidget);
    window.statusBar()->showMessage(QStringLiteral("x"));
    window.resize(400, 300);
    window.show();
    const int left = window.centralWidget()->geometry().left();
    EXPECT_GT(left, 0);
    EXPECT_EQ(window.menuBar()->geometry().top(), frame.captionBar().geometry().bottom() + 1);
    EXPECT_EQ(window.menuBar()->geometry().left(), left);
    EXPECT_EQ(window.statusBar()->geometry().bottom(), window.height() - 1 - left);
}

class FixedWindow : public FramedWindow {
  protected:
    FixedWindow() : FramedWindow(WindowFrame::Kind::Fixed) {}
};

TEST_F(FixedWindow, MovesAndClosesOnly) {
    EXPECT_EQ(window.findChild<QWidget*>(QStringLiteral("cmdMaximize")), nullptr);
    EXPECT_EQ(window.findChild<QWidget*>(QStringLiteral("cmdMinimize")), nullptr);
    for (const auto command :
         {SystemCommand::Restore, SystemCommand::Size, SystemCommand::Minimize, SystemCommand::Maximize})
        EXPECT_EQ(frame.systemMenu().item(command), nullptr);
    QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {}, titlePoint());
    EXPECT_FALSE(window.isMaximized());
    drag({399, 299}, {20, 20});
    EXPECT_EQ(window.geometry(), QRect(100, 100, 400, 300));
    drag(titlePoint(), {20, 20});
    EXPECT_EQ(window.pos(), QPoint(120, 120));
    chooseInMenu(1);
    EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace tolvan
