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
        windows.Add(
            kept,
            [] {
                QWidget* const root = SmallWindow({300, 200});
                root->setProperty("maximizes", true);
                return root;
            },
            WindowPlacement::Stored, WindowLife::Kept);
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
    SmallForm first{"first"}, second{"second"}, large{"large"}, kept{"kept"}, modal{"modal"};
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
    for (int time = 0; time < 2; ++time) { // the second time it is in front already
        area.setActiveSubWindow(&Frame(first));
        Settle();
        EXPECT_EQ(activations, 2);
        EXPECT_EQ(desktop.order.back(), &first);
    }
}

TEST_F(FormWindowsTest, AnIconBecomesAWindowAgainAndAFullWindowKeepsItsSize) {
    for (Form* form : {static_cast<Form*>(&first), static_cast<Form*>(&kept)}) {
        ShowForm(desktop, *form);
        Frame(*form).showMinimized();
        ShowForm(desktop, *form);
        EXPECT_FALSE(Frame(*form).isMinimized()) << form->name;
    }
    for (const bool full : {false, true}) { // drawn anew, as a diagram is
        full ? Frame(kept).showMaximized() : Frame(kept).showMinimized();
        UnloadForm(desktop, kept);
        Settle();
        ShowForm(desktop, kept);
        Settle();
        EXPECT_EQ(Frame(kept).isMaximized(), full);
        EXPECT_FALSE(Frame(kept).isMinimized());
        EXPECT_GE(Frame(kept).height(), 200);
    }
}

TEST_F(FormWindowsTest, WhoOpenedAWindowIsInFrontWhenItCloses) {
    ShowForm(desktop, first);
    ShowForm(desktop, second);
    ShowForm(desktop, kept); // from the second one
    area.setActiveSubWindow(&Frame(first));
    area.setActiveSubWindow(&Frame(kept));
    UnloadForm(desktop, kept);
    Settle();
    EXPECT_EQ(windows.ActiveForm(), &second);
    EXPECT_EQ(area.activeSubWindow(), &Frame(second));
    UnloadForm(desktop, second);
    Settle();
    EXPECT_EQ(windows.ActiveForm(), &first);
}

TEST_F(FormWindowsTest, AWindowFollowsItsContentsUntilTheUserSizesIt) {
    ShowForm(desktop, first);
    Settle();
    auto& button = Child<QPushButton>(*windows.WidgetOf(first), "cmdClose");
    const int before = Frame(first).height();
    const auto heightWith = [&](int ofButton) {
        button.setMinimumHeight(ofButton);
        Settle();
        return Frame(first).height();
    };
    EXPECT_GT(heightWith(400), before + 150);
    EXPECT_EQ(heightWith(20), before);
    Frame(first).resize(500, 450);
    heightWith(300);
    EXPECT_EQ(heightWith(20), 450);
}

TEST_F(FormWindowsTest, AModalWindowOpensWhereTheUserPutItLast) {
    const QPoint place(37, 91);
    QPoint seen;
    for (int time = 0; time < 2; ++time) {
        QTimer::singleShot(20, &area, [&] {
            QWidget& dialog = *windows.WidgetOf(modal)->window();
            seen = dialog.pos();
            dialog.move(place);
            HideForm(modal);
        });
        ShowForm(desktop, modal);
        UnloadForm(desktop, modal);
    }
    EXPECT_EQ(seen, place);
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
