// The program with its window: every layout against its record, menus and toolbar, start and exit.
#include "platform/files.h"
#include "platform/host.h"
#include "shell/qt/application.h"
#include "shell/qt/qt_text.h"
#include "tests/qt/qt_user.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace zorvant {
namespace {

class ApplicationTest : public testing::Test {
protected:
    /// After the program has filled the host: boxes are recorded instead of shown.
    void Start(Application& program) {
        host().messageBox = [this](const MessageBox& box) {
            boxes.push_back(box);
            return box.buttons == Buttons::Ok || box.buttons == Buttons::OkCancel ? Answer::Ok
                                                                                  : Answer::Yes;
        };
        host().quit = [this] { quitted = true; };
        host().programDirectory = folder_.path().toStdString();
        program.Start("");
        Settle();
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

/// Dialogs that commands name and that are still to come. Each that comes leaves this list.
const std::set<std::string> kNotBuiltYet = {
    "frmBatch",       "frmRohrreaktor",      "frmRKconti",  "frmKaskade",      "frmVerweilzeit",
    "frmVerweilCalc", "frmArrheniusRechner", "frmZFitting", "frmCalcTangente", "frmBlutalkohol",
};

TEST_F(ApplicationTest, EveryNameByWhichDialogsReachEachOtherExists) {
    Application program;
    const Desktop& desktop = program.state().desktop;
    for (const std::string& name : kNotBuiltYet)
        EXPECT_EQ(FindForm(desktop, name), nullptr) << name << " is there now";
    const auto hasControl = [&](const std::string& name) {
        return std::ranges::any_of(desktop.forms,
                                   [&](Form* form) { return form->Find(name) != nullptr; });
    };
    QFile header(QStringLiteral(SOURCE_DIR "/dialogs/common/names.h"));
    ASSERT_TRUE(header.open(QIODevice::ReadOnly));
    const QRegularExpression constant(
        QStringLiteral("constexpr const char\\* \\w+ =\\s*\"(\\w+)\""));
    int count = 0;
    for (const auto& match : constant.globalMatch(QString::fromUtf8(header.readAll()))) {
        const std::string name = match.captured(1).toStdString();
        ++count;
        EXPECT_TRUE(FindForm(desktop, name) || hasControl(name) || kNotBuiltYet.contains(name))
            << name;
    }
    EXPECT_GT(count, 20) << "the list was read";
    for (const PopupRow& row : PopupRows()) {
        Form* const form = FindForm(desktop, row.form);
        ASSERT_NE(form, nullptr) << row.form;
        EXPECT_NE(form->Find(row.button), nullptr) << row.form << " " << row.button;
    }
}

TEST_F(ApplicationTest, StartsWithTheModelDialogAndALineOfStatus) {
    Application program;
    Start(program);
    EXPECT_TRUE(IsFormLoaded(program.state().desktop, "frmZorModel"));
    EXPECT_EQ(Child<QLabel>(program.window(), "lblStatus").text(),
              QStringLiteral("kinetic model: A => P   (n = 1)     time unit: s     data: none"));
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ApplicationTest, ChoosingAModelInTheWindowReachesStateMenusAndStatus) {
    Application program;
    Start(program);
    const Form& model = *FindForm(program.state().desktop, "frmZorModel");
    QWidget& dialog = *program.windows().WidgetOf(model);
    Child<QRadioButton>(dialog, "optTyp_10").click();
    EXPECT_EQ(program.state().ModelId, 10);
    EXPECT_TRUE(program.record().Entry("mnuMichMent").enabled);
    EXPECT_TRUE(Child<QLabel>(program.window(), "lblStatus").text().contains(QStringLiteral("ES")));
}

TEST_F(ApplicationTest, TheKeysOfTheMainWindowReachIt) {
    Application program;
    Start(program);
    const auto shown = [&](int index) {
        return Child<QToolButton>(program.window(),
                                  QStringLiteral("Toolbar1_%1").arg(index).toUtf8().constData())
            .isVisible();
    };
    EXPECT_TRUE(!shown(2) && shown(14)) << "the icon of the data editor is the fifth";
    Key(Qt::Key_W, Qt::ControlModifier);
    Settle();
    EXPECT_FALSE(IsFormLoaded(program.state().desktop, "frmZorModel"));
    Key(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(quitted && FileExists(folder_.path().toStdString() + "/ZorLastSession.ZC3"));
    Key(Qt::Key_F10);
    const auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->title(), QStringLiteral("&Data"));
    QApplication::activePopupWidget()->close();
}

TEST_F(ApplicationTest, AMenuAtThePointerRunsItsOpenEventAndShowsItsEntries) {
    Application program;
    Start(program);
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
    Start(program);
    QMenu& list = *Child<QAction>(program.window(), "mnuFenster").menu();
    emit list.aboutToShow();
    QStringList texts;
    for (const QAction* action : list.actions())
        texts << action->text();
    EXPECT_TRUE(texts.contains(QStringLiteral("&1  Kinetic Model"))) << FromQt(texts.join(u'|'));
}

TEST_F(ApplicationTest, AProjectDroppedOnTheWindowIsLoaded) {
    Application program;
    Start(program);
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
