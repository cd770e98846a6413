// The host on the toolkit: boxes answered as a user would, clipboard, wait pointer.
#include "platform/host.h"
#include "shell/qt/qt_host.h"
#include "tests/qt/qt_user.h"

#include <gtest/gtest.h>

namespace zorvant {
namespace {

class QtHostTest : public testing::Test {
protected:
    QtHostTest() { InstallQtHost(); }

    /// Does something with the next modal box.
    static void Meanwhile(const std::function<void(QMessageBox&)>& act) {
        QTimer::singleShot(20, qApp, [act] {
            if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                act(*box);
        });
    }
    ScriptedHost restore_; ///< puts the host back afterwards
};

TEST_F(QtHostTest, ABoxShowsItsTextAsItStandsAndGivesTheAnswer) {
    QString shown;
    Meanwhile([&](QMessageBox& box) {
        shown = box.text();
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_TRUE(box.textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
        box.button(QMessageBox::No)->click();
    });
    const Answer answer =
        Ask("c(A) < 0\r\nA <=> P", "WARNING", Icon::Warning, Buttons::YesNoCancel);
    EXPECT_EQ(answer, Answer::No);
    EXPECT_EQ(shown, QStringLiteral("c(A) < 0\nA <=> P"));
}

TEST_F(QtHostTest, EscIsTheAnswerThatChangesNothing) {
    const struct {
        Buttons buttons;
        Answer expected;
    } cases[] = {
        {Buttons::Ok, Answer::Ok},
        {Buttons::OkCancel, Answer::Cancel},
        {Buttons::YesNo, Answer::No},
        {Buttons::YesNoCancel, Answer::Cancel},
    };
    for (const auto& each : cases) {
        Meanwhile([](QMessageBox& box) { box.done(QMessageBox::NoButton); });
        EXPECT_EQ(Ask("text", "title", Icon::None, each.buttons), each.expected);
    }
}

TEST_F(QtHostTest, ThePresetAnswerIsTheDefaultButton) {
    QString preset;
    Meanwhile([&](QMessageBox& box) {
        preset = box.defaultButton()->text();
        PressKey(*box.defaultButton(), Qt::Key_Return);
    });
    EXPECT_EQ(Ask("text", "title", Icon::Question, Buttons::YesNo, Answer::No), Answer::No);
    EXPECT_TRUE(preset.contains(QStringLiteral("No")));
}

TEST_F(QtHostTest, ABoxIsAsWideAsItsTitle) {
    const std::string title(40, 'm'); // the screen is 800 pixels wide
    int width = 0;
    Meanwhile([&](QMessageBox& box) {
        width = box.width();
        Key(Qt::Key_Return);
    });
    ShowMessage("x", title, Icon::None);
    EXPECT_GT(width,
              QFontMetrics(QApplication::font()).horizontalAdvance(QString::fromStdString(title)));
}

TEST_F(QtHostTest, CtrlCCopiesABox) {
    QGuiApplication::clipboard()->clear();
    Meanwhile([](QMessageBox& box) {
        for (QShortcut* shortcut : box.findChildren<QShortcut*>())
            emit shortcut->activated();
        box.button(QMessageBox::Ok)->click();
    });
    ShowMessage("Overflow", "Execution not possible", Icon::Critical);
    EXPECT_EQ(host().clipboardText(), "Execution not possible\n\nOverflow");
}

} // namespace
} // namespace zorvant
