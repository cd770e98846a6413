// The editors of data with real widgets: the grid takes keys, pastes and undo as a user gives them.
#include "dialogs/data/frm_datedit.h"
#include "dialogs/data/frm_z_cmn_dlg.h"
#include "dialogs/data/frm_zxy_editor.h"
#include "platform/files.h"
#include "platform/host.h"
#include "shell/qt/application.h"
#include "shell/qt/binder.h"
#include "tests/qt/qt_user.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvant {
namespace {

class EditorsInWindows : public testing::Test {
protected:
    EditorsInWindows() {
        // The program has filled the host: boxes are answered instead of shown.
        host().messageBox = [](const MessageBox&) { return Answer::Yes; };
        host().programDirectory = folder.path().toStdString();
        program.Start("");
        Settle();
    }
    void Open(Form& form) {
        ShowForm(ps.desktop, form);
        Binder::PushAll();
        Settle();
    }
    /// What is typed; "\n" stands for the Enter key.
    static void Write(const QString& text) {
        for (const QChar c : text)
            c == u'\n' ? Key(Qt::Key_Return, {}, QStringLiteral("\r")) : Keys(c);
        Settle();
    }
    static void Undo() {
        Key(Qt::Key_Z, Qt::ControlModifier);
        Settle();
    }
    QTableView& Table(Form& form) { return Child<QTableView>(*windows.WidgetOf(form), "Grid"); }
    static QString Shown(const QTableView& table, int row, int column) {
        return table.model()->index(row, column).data().toString();
    }

    template <class Dialog> Dialog& Find(const char* name) {
        return dynamic_cast<Dialog&>(*FindForm(program.state().desktop, name));
    }

    ScriptedHost restore;
    QTemporaryDir folder;
    Application program;
    FormWindows& windows = program.windows();
    Workspace& ps = program.state();
    frmDatedit& data = Find<frmDatedit>("frmDatedit");
    frmZXYEditor& points = Find<frmZXYEditor>("frmZXYEditor");
};

TEST_F(EditorsInWindows, FitTheScreenWithoutScrolling) {
    for (Form* form : std::initializer_list<Form*>{&data, &points}) {
        Open(*form);
        const QSize size = windows.WidgetOf(*form)->minimumSizeHint();
        EXPECT_LE(size.width(), 1250) << form->name;
        EXPECT_LE(size.height(), 660) << form->name;
    }
}

TEST_F(EditorsInWindows, TakeKeysInTheInputLineAndInACellAndTakeThemBack) {
    Open(points);
    Write(QStringLiteral("4,5\n-2\n"));
    ASSERT_EQ(ps.XYCount, 1);
    EXPECT_EQ(points.XYData[1], (XYPoint{.x = 4.5F, .y = -2}));
    Write(QStringLiteral("7"));
    Undo(); // the box's own typing first
    EXPECT_EQ(ps.XYCount, 1);
    Undo();
    EXPECT_EQ(ps.XYCount, 0);

    ps.ExpData = {{}, {.t = 1, .cA = 2}, {.t = 3, .cA = 4}};
    ps.ExpPointCount = 2;
    Open(data);
    QTableView& table = Table(data);
    table.setFocus();
    table.setCurrentIndex(table.model()->index(1, 3));
    Write(QStringLiteral("7,x5\n")); // the first one begins the editing
    EXPECT_EQ(ps.ExpData[2].cA, 7.5);
    EXPECT_EQ(Shown(table, 1, 3), QStringLiteral("7.5"));
    Undo();
    EXPECT_EQ(Shown(table, 1, 3), QStringLiteral("4"));
    table.setCurrentIndex(table.model()->index(0, 1));
    Key(Qt::Key_Space);
    EXPECT_EQ(ps.ExpData[1].exclude, -1);
}

TEST_F(EditorsInWindows, PastedRowsAreShownAndTheCursorStays) {
    Open(data);
    QTableView& table = Table(data);
    EXPECT_EQ(table.model()->rowCount(), 1); // "empty list"
    std::string text;
    for (int i = 0; i < 10000; ++i)
        text += std::to_string(i) + "\t" + std::to_string(i) + ",5\r\n";
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    table.setFocus();
    PressKey(table, Qt::Key_V, QStringLiteral("\x16"), Qt::ControlModifier);
    Settle();
    EXPECT_EQ(ps.ExpPointCount, 10000);
    EXPECT_EQ(table.model()->rowCount(), 10001); // and the empty one
    EXPECT_EQ(Shown(table, 9999, 3), QStringLiteral("9999.5"));

    table.setCurrentIndex(table.model()->index(5000, 2));
    Settle();
    const int scrolled = table.verticalScrollBar()->value();
    EXPECT_GT(scrolled, 0);
    data.Grid.selection = {9990, 0, 9999, 0};
    Binder::Run(nullptr, [&] { Press(data.cmdErase); });
    EXPECT_EQ(table.model()->rowCount(), 9991);
    Binder::Run(nullptr, [&] { Press(data.cmdUndo); });
    EXPECT_EQ(table.model()->rowCount(), 10001); // and the empty one
    EXPECT_GT(table.verticalScrollBar()->value(), 0);
}

TEST_F(EditorsInWindows, EnterGoesDownIntoTheEmptyRowWhichTakesTheNext) {
    ps.ExpData = {{}, {.t = 1, .cA = 2, .exclude = -1}};
    ps.ExpPointCount = 1;
    Open(data);
    QTableView& table = Table(data);
    table.setFocus();
    table.setCurrentIndex(table.model()->index(0, 2));
    Write(QStringLiteral("7\n8\n9\n\n"));
    ASSERT_EQ(ps.ExpPointCount, 3);
    EXPECT_EQ(ps.ExpData[3].t, 9);
    EXPECT_EQ(table.currentIndex().row(), 3);
    const auto colour = [&](int row, int column) {
        return table.model()->index(row, column).data(Qt::ForegroundRole).value<QBrush>().color();
    };
    EXPECT_EQ(colour(0, 2), QApplication::palette().color(QPalette::Disabled, QPalette::Text));
    EXPECT_EQ(colour(1, 4), QApplication::palette().color(QPalette::PlaceholderText)); // no c(B)
    EXPECT_FALSE(table.model()->index(1, 3).data(Qt::ForegroundRole).isValid());
    EXPECT_FALSE(table.model()->index(3, 1).data(Qt::CheckStateRole).isValid());
}

TEST_F(EditorsInWindows, StandWithTheirBoxesOverTheColumns) {
    for (Form* form : std::initializer_list<Form*>{&data, &points}) {
        Open(*form);
        QWidget& window = *windows.WidgetOf(*form);
        QTableView& table = Table(*form);
        table.setColumnWidth(2, 170);
        Settle();
        for (const int box : {0, 1}) {
            const auto& line = Child<QLineEdit>(window, box == 0 ? "y_0" : "y_1");
            const int column = table.viewport()->mapTo(&window, QPoint(0, 0)).x() +
                               table.columnViewportPosition(2 + box);
            EXPECT_NEAR(line.mapTo(&window, QPoint(0, 0)).x(), column, 2) << form->name << box;
            EXPECT_NEAR(line.width(), table.columnWidth(2 + box), 4) << form->name << box;
        }
    }
}

TEST_F(EditorsInWindows, AFileThatWasDeletedLeavesNoneChosen) {
    for (const char* name : {"/a.ZI3", "/b.ZI3"})
        WriteFileAtomically(folder.path().toStdString() + name, "c\r\ns\r\nh\r\n0\r\n");
    ps.DataDir = folder.path().toStdString();
    Open(data);
    auto& dialog = Find<frmZCmnDlg>("frmZCmnDlg");
    host().messageBox = [](const MessageBox&) { // takes the focus as a box does
        QDialog box;
        box.show();
        box.activateWindow();
        Settle();
        return Answer::Yes;
    };
    bool looked = false;
    QTimer::singleShot(0, [&] {
        Child<QListWidget>(*windows.WidgetOf(dialog), "filOpenList").setFocus();
        Settle();
        EXPECT_EQ(dialog.filOpenList.index, -1); // the focus alone chooses nothing
        Key(Qt::Key_Down);
        Key(Qt::Key_Delete);
        Settle();
        EXPECT_EQ(dialog.filOpenList.items.size(), 1U);
        EXPECT_EQ(Child<QLineEdit>(*windows.WidgetOf(dialog), "txtOpenFile").text(), QString());
        looked = true;
        Key(Qt::Key_Escape);
    });
    Child<QPushButton>(*windows.WidgetOf(data), "cmdLoadFile").click();
    EXPECT_TRUE(looked);
}

TEST_F(EditorsInWindows, EscKeepsTheCommentOfTheProject) {
    ps.ProjectComment = "kept";
    QTimer::singleShot(0, [] {
        Keys(QStringLiteral("x"));
        Key(Qt::Key_Escape);
    });
    ShowForm(ps.desktop, *FindForm(ps.desktop, "frmCommentInput"));
    EXPECT_EQ(ps.ProjectComment, "kept");
}

TEST_F(EditorsInWindows, OpenReadyForTheFirstNumber) {
    for (Form* form : std::initializer_list<Form*>{&data, &points}) {
        Open(*form);
        EXPECT_EQ(QApplication::focusWidget(), &Child<QLineEdit>(*windows.WidgetOf(*form), "y_0"));
    }
}

} // namespace
} // namespace zorvant
