// The program with its window: every layout against its record, menus and toolbar, start and exit.
#include "platform/files.h"
#include "platform/host.h"
#include "shell/qt/application.h"
#include "shell/qt/help_viewer.h"
#include "shell/qt/qt_text.h"
#include "tests/qt/qt_user.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvant {
namespace {

class ApplicationTest : public testing::Test {
protected:
    /// After the program has filled the host: boxes are recorded instead of shown.
    void RecordBoxes() {
        host().messageBox = [this](const MessageBox& box) {
            boxes.push_back(box);
            return box.buttons == Buttons::Ok || box.buttons == Buttons::OkCancel ? Answer::Ok
                                                                                  : Answer::Yes;
        };
        host().quit = [this] { quitted = true; };
        host().programDirectory = folder_.path().toStdString();
    }

    ScriptedHost restore_;
    QTemporaryDir folder_;
    std::vector<MessageBox> boxes;
    bool quitted = false;
};

TEST_F(ApplicationTest, EveryDialogFitsItsLayoutBothWays) {
    Application program;
    EXPECT_THAT(program.windows().Mismatches(), testing::IsEmpty());
}

TEST_F(ApplicationTest, StartsWithTheModelDialogAndALineOfStatus) {
    Application program;
    RecordBoxes();
    program.Start("");
    Settle();
    EXPECT_TRUE(IsFormLoaded(program.state().desktop, "frmZorModel"));
    EXPECT_EQ(Child<QLabel>(program.window(), "lblStatus").text(),
              QStringLiteral("kinetic model: A => P   (n = 1)     time unit: s     data: none"));
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ApplicationTest, CommandsWithoutADialogAreDisabledAndSayWhy) {
    Application program;
    RecordBoxes();
    program.Start("");
    Settle();
    const auto& missing = Child<QAction>(program.window(), "mnuKaskade");
    const bool exists = FindForm(program.state().desktop, "frmKaskade") != nullptr;
    EXPECT_EQ(missing.isEnabled(), exists);
    EXPECT_EQ(missing.toolTip(), exists ? QString() : QStringLiteral("not yet available"));
    EXPECT_TRUE(Child<QAction>(program.window(), "mnuModel").isEnabled());
    EXPECT_TRUE(Child<QAction>(program.window(), "mnuDaten").isEnabled());
    EXPECT_FALSE(Child<QAction>(program.window(), "mnuOptionenTools").isVisible());
}

TEST_F(ApplicationTest, ChoosingAModelInTheWindowReachesStateMenusAndStatus) {
    Application program;
    RecordBoxes();
    program.Start("");
    Settle();
    const Form& model = *FindForm(program.state().desktop, "frmZorModel");
    QWidget& dialog = *program.windows().WidgetOf(model);
    Child<QRadioButton>(dialog, "optTyp_10").click();
    EXPECT_EQ(program.state().ModelId, 10);
    EXPECT_TRUE(program.record().Entry("mnuMichMent").enabled);
    EXPECT_TRUE(Child<QLabel>(program.window(), "lblStatus").text().contains(QStringLiteral("ES")));
}

TEST_F(ApplicationTest, AKeyInADialogIsShownWithinFiveMilliseconds) {
    Application program;
    RecordBoxes();
    program.Start("");
    Settle();
    QWidget& dialog =
        *program.windows().WidgetOf(*FindForm(program.state().desktop, "frmZorModel"));
    Child<QRadioButton>(dialog, "optTyp_0").click();
    auto& order = Child<QLineEdit>(dialog, "txtOrdnung");
    order.clear();
    constexpr int kKeys = 100;
    QElapsedTimer taken;
    taken.start();
    for (int i = 0; i < kKeys; ++i) {
        PressKey(order, Qt::Key_1, QStringLiteral("1"));
        order.repaint();
    }
    const double each = static_cast<double>(taken.nsecsElapsed()) / 1e6 / kKeys;
    RecordProperty("milliseconds", std::to_string(each));
    EXPECT_LT(each, 5.0);
}

TEST_F(ApplicationTest, ClosingTheWindowRunsTheExitAndWritesTheSession) {
    const std::string session = folder_.path().toStdString() + "/ZorLastSession.ZC3";
    {
        Application program;
        RecordBoxes();
        program.Start("");
        Settle();
        program.window().close();
        Settle();
        EXPECT_TRUE(quitted);
        EXPECT_TRUE(FileExists(session));
        EXPECT_FALSE(IsFormLoaded(program.state().desktop, "frmZorModel"));
    }
}

TEST_F(ApplicationTest, AMenuAtThePointerRunsItsOpenEventAndShowsItsEntries) {
    Application program;
    RecordBoxes();
    program.Start("");
    Settle();
    QStringList entries;
    QTimer::singleShot(20, qApp, [&] {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr)
            return;
        for (const QAction* action : menu->actions())
            entries << action->text();
        menu->close();
    });
    QGuiApplication::clipboard()->setText(QStringLiteral("1"));
    host().popupMenu(program.record().Entry("mnuEdit1"));
    EXPECT_EQ(entries.join(u'|'), QStringLiteral("Copy|Insert|Delete||Undo|Redo"));
    EXPECT_TRUE(program.record().Entry("mnuPaste1").enabled);
}

TEST_F(ApplicationTest, TheWindowListNamesTheOpenWindows) {
    Application program;
    RecordBoxes();
    program.Start("");
    Settle();
    QMenu& list = *Child<QAction>(program.window(), "mnuFenster").menu();
    emit list.aboutToShow();
    QStringList texts;
    for (const QAction* action : list.actions())
        texts << action->text();
    EXPECT_TRUE(texts.contains(QStringLiteral("&1  Kinetic Model"))) << FromQt(texts.join(u'|'));
}

TEST_F(ApplicationTest, AProjectDroppedOnTheWindowIsLoaded) {
    Application program;
    RecordBoxes();
    program.Start("");
    Settle();
    QMimeData dropped;
    dropped.setUrls({QUrl::fromLocalFile(QStringLiteral(SOURCE_DIR "/examples/n2o5.ZC3"))});
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &dropped, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&program.window(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &dropped, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&program.window(), &drop);
    Settle();
    EXPECT_TRUE(program.state().ProjectFile.ends_with("n2o5.ZC3"));
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "Status of the project");

    QMimeData other;
    other.setUrls({QUrl::fromLocalFile(QStringLiteral("/tmp/picture.png"))});
    QDragEnterEvent refused({10, 10}, Qt::CopyAction, &other, Qt::LeftButton, {});
    refused.ignore();
    QCoreApplication::sendEvent(&program.window(), &refused);
    EXPECT_FALSE(refused.isAccepted());
}

} // namespace
} // namespace zorvant
