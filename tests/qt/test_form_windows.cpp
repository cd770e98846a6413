// Windows of forms: opened, placed, kept inside the work area, asked before they close.
#include "platform/host.h"
#include "shell/qt/form_windows.h"
#include "tests/qt/qt_user.h"

#include <gtest/gtest.h>

namespace zorvant {
namespace {

struct SmallForm : Form {
    explicit SmallForm(const std::string& formName) : Form(formName, formName) { Declare(); }
    Button cmdClose{*this, "cmdClose", "Close"};
};

QWidget* SmallWindow(const QSize& size) {
    auto* const root = new QWidget;
    root->setMinimumSize(size);
    auto* const close = new QPushButton(root);
    close->setObjectName(QStringLiteral("cmdClose"));
    (new QVBoxLayout(root))->addWidget(close);
    return root;
}

class FormWindowsTest : public testing::Test {
protected:
    FormWindowsTest() : windows(desktop, area) {
        area.resize(800, 600);
        area.show();
        Settle();
        windows.Add(first, [] { return SmallWindow({300, 200}); });
        windows.Add(
            second,
            [] {
                return SmallWindow({300, 200});
            },
            WindowPlacement::BesideOthers);
        windows.Add(large, [] { return SmallWindow({2000, 1500}); });
        windows.Add(modal, [] { return SmallWindow({300, 200}); });
        modal.modal = true;
    }
    QMdiSubWindow& Frame(const Form& form) {
        QWidget* widget = windows.WidgetOf(form);
        while (widget != nullptr && qobject_cast<QMdiSubWindow*>(widget) == nullptr)
            widget = widget->parentWidget();
        if (widget == nullptr)
            qFatal("no window");
        return static_cast<QMdiSubWindow&>(*widget);
    }

    ScriptedHost restore_;
    Desktop desktop;
    QMdiArea area;
    SmallForm first{"first"}, second{"second"}, large{"large"}, modal{"modal"};
    FormWindows windows;
};

TEST_F(FormWindowsTest, PositionsAreKeptInTwipsAndMovedInsideTheWorkArea) {
    first.left = 60 * 15;
    first.top = 40 * 15;
    ShowForm(desktop, first);
    Settle();
    EXPECT_EQ(Frame(first).pos(), QPoint(60, 40));
    Frame(first).move(100, 90);
    UnloadForm(desktop, first);
    EXPECT_EQ(first.left, 100 * 15);
    EXPECT_EQ(first.top, 90 * 15);

    first.left = 5000 * 15;
    first.top = -100 * 15;
    ShowForm(desktop, first);
    Settle();
    const QRect room(QPoint(0, 0), area.viewport()->size());
    EXPECT_TRUE(room.contains(Frame(first).geometry()));
    UnloadForm(desktop, first);
    EXPECT_EQ(first.left, 5000 * 15) << "what the user has not moved keeps its place";
}

TEST_F(FormWindowsTest, AWindowBesideOthersDoesNotCoverThem) {
    ShowForm(desktop, first);
    ShowForm(desktop, second);
    Settle();
    EXPECT_FALSE(Frame(first).geometry().intersects(Frame(second).geometry()));
}

TEST_F(FormWindowsTest, AWindowTooLargeForTheWorkAreaScrolls) {
    ShowForm(desktop, large);
    Settle();
    EXPECT_TRUE(QRect(QPoint(0, 0), area.viewport()->size()).contains(Frame(large).geometry()));
    const auto* const scroll = Frame(large).findChild<QScrollArea*>();
    ASSERT_NE(scroll, nullptr);
    EXPECT_GT(scroll->horizontalScrollBar()->maximum(), 0);
    EXPECT_GT(scroll->verticalScrollBar()->maximum(), 0);
}

TEST_F(FormWindowsTest, TheCloseButtonOfAWindowAsksTheForm) {
    bool refuse = true;
    first.onQueryUnload = [&](bool& cancel) { cancel = refuse; };
    ShowForm(desktop, first);
    Frame(first).close();
    Settle();
    EXPECT_TRUE(first.loaded);
    EXPECT_NE(windows.WidgetOf(first), nullptr);
    refuse = false;
    Frame(first).close();
    Settle();
    EXPECT_FALSE(first.loaded);
    EXPECT_EQ(windows.WidgetOf(first), nullptr);
    EXPECT_TRUE(area.subWindowList().isEmpty());
}

TEST_F(FormWindowsTest, TheActivateEventRunsOnceForEachComingToTheFront) {
    int activations = 0;
    first.onActivate = [&] { ++activations; };
    ShowForm(desktop, first);
    EXPECT_EQ(activations, 1);
    ShowForm(desktop, second);
    area.setActiveSubWindow(&Frame(first));
    Settle();
    EXPECT_EQ(activations, 2);
    EXPECT_EQ(desktop.order.back(), &first);
    EXPECT_EQ(windows.ActiveForm(), &first);
    area.setActiveSubWindow(&Frame(first));
    Settle();
    EXPECT_EQ(activations, 2);
}

TEST_F(FormWindowsTest, TheWindowThatComesToLightWhenOneClosesIsActivated) {
    int activations = 0;
    ShowForm(desktop, first);
    first.onActivate = [&] { ++activations; };
    ShowForm(desktop, second);
    UnloadForm(desktop, second);
    Settle();
    EXPECT_EQ(windows.ActiveForm(), &first);
    EXPECT_EQ(activations, 1);
}

TEST_F(FormWindowsTest, AModalFormHoldsItsCallerUntilItIsHiddenOrClosed) {
    bool shown = false;
    modal.cmdClose.onClick = [&] { HideForm(modal); };
    QTimer::singleShot(20, &area, [&] {
        shown = QApplication::activeModalWidget() != nullptr;
        Child<QPushButton>(*windows.WidgetOf(modal), "cmdClose").click();
    });
    ShowForm(desktop, modal);
    EXPECT_TRUE(shown);
    EXPECT_TRUE(modal.loaded) << "hidden is not closed: its contents can still be read";
    UnloadForm(desktop, modal);
    Settle();
    EXPECT_EQ(windows.WidgetOf(modal), nullptr);
}

} // namespace
} // namespace zorvant
