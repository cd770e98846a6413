// Annotating a diagram with real widgets: texts by key, a mark, the curve handed out, the design
// saved, spoiled by another diagram, and brought back.
#include "dialogs/diagram/diagram_document.h"
#include "platform/files.h"
#include "platform/host.h"
#include "shell/qt/application.h"
#include "tests/qt/qt_user.h"

#include <QtWidgets>
#include <gtest/gtest.h>

namespace zorvant {
namespace {

struct DiagramNotes : testing::Test {
    DiagramNotes() {
        host().messageBox = [this](const MessageBox& box) {
            boxes.push_back(box.text);
            return Answer::Yes;
        };
        host().programDirectory = folder.path().toStdString();
        program.Start("");
        Settle();
    }
    QWidget& Window(const char* form) {
        return *program.windows().WidgetOf(*FindForm(program.state().desktop, form));
    }
    void Trigger(const QWidget& window, const char* action) {
        Child<QAction>(window, action).trigger();
        Settle();
    }
    void Draw() {
        Trigger(program.window(), "mnuctGraph");
        Child<QPushButton>(Window("frmPrepareTimeDiagram"), "cmdDrawctDiagram").click();
        Settle();
    }

    ScriptedHost restore;
    QTemporaryDir folder;
    std::vector<std::string> boxes;
    Application program;
};

TEST_F(DiagramNotes, AreMadeKeptAndBroughtBack) {
    Draw();
    auto& document =
        dynamic_cast<DiagramDocument&>(*FindForm(program.state().desktop, "frmZGraph2D"));
    QWidget& window = Window("frmZGraph2D");
    const PixelRect& place = document.surface.layout.header;
    const QPoint at(static_cast<int>(place.left + place.width / 2),
                    static_cast<int>(place.top + place.height / 2));
    QWidget* picture = Child<QWidget>(window, "chart").childAt(at);
    ASSERT_NE(picture, nullptr);
    QMouseEvent press(QEvent::MouseButtonPress, at, picture->mapToGlobal(at), Qt::RightButton,
                      Qt::RightButton, {});
    QCoreApplication::sendEvent(picture, &press);
    Settle();
    auto& text = Child<QPlainTextEdit>(window, "schrift");
    ASSERT_TRUE(text.isVisible());
    EXPECT_TRUE(text.textCursor().atEnd());
    text.setFocus();
    PressKey(text, Qt::Key_Return, QStringLiteral("\r"));
    PressKey(text, Qt::Key_Return, QStringLiteral("\r"), Qt::ControlModifier);
    Settle();
    TypeText(text, QStringLiteral("run 12"));
    Settle();
    const std::string header = program.state().Frame.Header + "\nrun 12";
    EXPECT_EQ(document.surface.header.text, header);
    auto& fromLeft = Child<QSlider>(window, "HScroll1");
    EXPECT_GT(fromLeft.value(), 0) << "shows where the header stands";
    fromLeft.setValue(10);
    Settle();
    EXPECT_FALSE(document.surface.header.location.automatic);
    Child<QPushButton>(window, "cmdSchriftFertig").click();
    Settle();
    EXPECT_FALSE(text.isVisible());

    Trigger(window, "mnuManuXY");
    EXPECT_TRUE(Window("frmZXYEditor").isVisible());
    Trigger(window, "mnuHalbA");
    EXPECT_TRUE(Child<QLabel>(window, "StatusBar2").text().startsWith(u"Half-life tau(A) = "));
    Child<QPushButton>(window, "cmdSingleCalc").click();
    Settle();
    ASSERT_TRUE(Window("frmZGraphCalc").isVisible());
    auto& x = Child<QLineEdit>(Window("frmZGraphCalc"), "txtX");
    x.setFocus();
    x.selectAll();
    TypeText(x, QStringLiteral("0"));
    PressKey(x, Qt::Key_Return, QStringLiteral("\r"));
    Settle();
    EXPECT_EQ(Child<QLabel>(Window("frmZGraphCalc"), "lblResult_0").text().trimmed(),
              QString::number(program.state().c0[1]));

    const std::string path = folder.filePath(QStringLiteral("kept.oc2")).toStdString();
    host().chooseFile = [&path](const FileRequest&) { return FileChoice{path}; };
    Trigger(window, "mnuSaveOC2");
    Trigger(program.window(), "mnuvtGraph");
    Child<QPushButton>(Window("frmPrepareTimeDiagram"), "cmdDrawctDiagram").click();
    Settle();
    ASSERT_NE(document.surface.header.text, header);
    const std::string good = ReadFile(path);
    WriteFileAtomically(path, std::string_view(good).substr(0, good.size() - 8));
    Trigger(Window("frmZGraph2D"), "mnuLoadOC2");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_NE(boxes[0].find("line "), std::string::npos);
    ASSERT_NE(document.surface.header.text, header);
    WriteFileAtomically(path, good);
    Trigger(Window("frmZGraph2D"), "mnuLoadOC2");
    EXPECT_EQ(document.surface.header.text, header);
    Trigger(Window("frmZGraph2D"), "mnuSaveOC2");
    EXPECT_EQ(ReadFile(path), good);
}

} // namespace
} // namespace zorvant
