// The road from the menu to a painted diagram, with real widgets and keys.
#include "dialogs/diagram/diagram_document.h"
#include "platform/host.h"
#include "shell/qt/application.h"
#include "shell/qt/graph_window.h"
#include "tests/qt/qt_user.h"

#include <QClipboard>
#include <QtWidgets>
#include <gtest/gtest.h>

namespace zorvant {
namespace {

class CourseDialogs : public testing::Test {
protected:
    CourseDialogs() {
        host().messageBox = [this](const MessageBox& box) {
            boxes.push_back(box);
            return Answer::Yes;
        };
        host().quit = [] {};
        host().programDirectory = folder_.path().toStdString();
        program.Start("");
        Settle();
    }
    QWidget& Widget(const char* form) {
        return *program.windows().WidgetOf(*FindForm(program.state().desktop, form));
    }
    bool IsOpen(const char* form) { return IsFormLoaded(program.state().desktop, form); }
    void Trigger(const char* action) {
        Child<QAction>(program.window(), action).trigger();
        Settle();
    }
    /// Replaces what an editor holds by typing.
    static void Retype(QWidget& editor, const char* keys) {
        editor.setFocus();
        PressKey(editor, Qt::Key_A, {}, Qt::ControlModifier);
        TypeText(editor, QString::fromLatin1(keys));
    }

    /// Shortcuts hear keys of the window system only.
    static void PressEscape(QWidget& window) {
        for (QShortcut* shortcut : window.findChildren<QShortcut*>())
            if (shortcut->key() == QKeySequence(Qt::Key_Escape))
                emit shortcut->activated();
    }

    ScriptedHost restore_;
    QTemporaryDir folder_;
    std::vector<MessageBox> boxes;
    Application program;
};

TEST_F(CourseDialogs, ACourseIsTypedDrawnAndPainted) {
    Trigger("mnuctGraph");
    ASSERT_TRUE(IsOpen("frmPrepareTimeDiagram"));
    ASSERT_TRUE(IsOpen("frmZorModel"));
    QWidget& dialog = Widget("frmPrepareTimeDiagram");
    Retype(Child<QLineEdit>(dialog, "Inp_0"), "0,5x");
    EXPECT_EQ(Child<QLineEdit>(dialog, "Inp_0").text(), QStringLiteral("0.5"));
    Retype(*Child<QComboBox>(dialog, "kCombo_1").lineEdit(), "0,2");
    EXPECT_EQ(program.state().k[1], 0.2);
    Child<QPushButton>(dialog, "cmdDrawctDiagram").click();
    Settle();
    ASSERT_TRUE(boxes.empty()) << boxes.back().text;
    ASSERT_TRUE(IsOpen("frmZGraph2D"));
    EXPECT_EQ(program.state().CurveCount, 2);
    EXPECT_NEAR(program.state().cSimA[200], 0.5 * std::exp(-0.2 * 100), 1e-15);

    // The curve of A is where its equation says, dark on the white of the plot area.
    auto& window = dynamic_cast<GraphWindow&>(Widget("frmZGraph2D"));
    const auto& doc =
        dynamic_cast<DiagramDocument&>(*FindForm(program.state().desktop, "frmZGraph2D"));
    const QImage picture = window.view().grab().toImage();
    const PixelRect area = doc.surface.layout.plotArea;
    ASSERT_GT(area.width, 100);
    const DiaKoord& frame = program.state().Frame;
    const double t = 10, c = 0.5 * std::exp(-0.2 * t);
    const double px = area.left + (t - frame.xMin) / (frame.xMax - frame.xMin) * area.width;
    const double py = area.top + (frame.yMax - c) / (frame.yMax - frame.yMin) * area.height;
    int darkest = 255;
    for (int dy = -2; dy <= 2; ++dy)
        darkest = std::min(darkest,
                           qGray(picture.pixel(static_cast<int>(px), static_cast<int>(py) + dy)));
    EXPECT_LT(darkest, 128);
    EXPECT_GT(qGray(picture.pixel(static_cast<int>(px), static_cast<int>(py) - 12)), 200);
}

TEST_F(CourseDialogs, EnterGoesRoundTheFieldsAndEscCloses) {
    Trigger("mnuctGraph");
    QWidget& dialog = Widget("frmPrepareTimeDiagram");
    auto& first = Child<QLineEdit>(dialog, "Inp_0");
    first.setFocus();
    PressKey(first, Qt::Key_Return, QStringLiteral("\r"));
    EXPECT_EQ(program.window().focusWidget(), &Child<QLineEdit>(dialog, "Inp_3"));
    EXPECT_FALSE(IsOpen("frmZGraph2D")); // Enter in a field is not the draw button
    PressEscape(dialog);
    Settle();
    EXPECT_FALSE(IsOpen("frmPrepareTimeDiagram"));
}

TEST_F(CourseDialogs, EveryModelDrawsInBothModesFromItsDefaults) {
    for (const char* mode : {"mnuctGraph", "mnuvtGraph"}) {
        for (int option = 0; option < 20; ++option) {
            Trigger(mode);
            const std::string name = "optTyp_" + std::to_string(option);
            Child<QRadioButton>(Widget("frmZorModel"), name.c_str()).click();
            Child<QPushButton>(Widget("frmPrepareTimeDiagram"), "cmdDrawctDiagram").click();
            Settle();
            SCOPED_TRACE(std::string(mode) + " " + name);
            ASSERT_TRUE(boxes.empty()) << boxes.back().text;
            EXPECT_TRUE(IsOpen("frmZGraph2D"));
            EXPECT_GE(program.state().CurveCount, 2);
        }
    }
}

TEST_F(CourseDialogs, TheTableGoesToTheClipboard) {
    Trigger("mnuctGraph");
    Child<QPushButton>(Widget("frmPrepareTimeDiagram"), "cmdListe").click();
    Settle();
    ASSERT_TRUE(IsOpen("frmSimTabelle"));
    Child<QPushButton>(Widget("frmSimTabelle"), "cmdClipboard").click();
    const QString text = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(text.contains(QStringLiteral(" t/s"))) << text.left(80).toStdString();
    EXPECT_GT(text.count(QLatin1Char('\n')), 200);
}

} // namespace
} // namespace zorvant
