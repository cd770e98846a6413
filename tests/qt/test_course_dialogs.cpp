// The road from the menu to a painted diagram, with real widgets and keys.
#include "dialogs/diagram/diagram_document.h"
#include "platform/host.h"
#include "shell/qt/application.h"
#include "shell/qt/graph_window.h"
#include "shell/qt/text_pages.h"
#include "tests/qt/qt_user.h"

#include <QClipboard>
#include <QtWidgets>
#include <gtest/gtest.h>

#include <map>

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
    /// Goes to a field and replaces what it holds.
    static void Retype(QWidget& field, const char* keys) {
        field.setFocus(Qt::TabFocusReason);
        Key(Qt::Key_A, Qt::ControlModifier);
        Keys(QString::fromLatin1(keys));
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
    Retype(Child<QComboBox>(dialog, "kCombo_1"), "0,2");
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
    Child<QLineEdit>(dialog, "Inp_0").setFocus();
    Key(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), &Child<QLineEdit>(dialog, "Inp_3"));
    Key(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), &Child<QLineEdit>(dialog, "Inp_0"));
    EXPECT_FALSE(IsOpen("frmZGraph2D")); // Enter in a field is not the draw button
    Key(Qt::Key_Escape);
    Settle();
    EXPECT_FALSE(IsOpen("frmPrepareTimeDiagram"));
}

TEST_F(CourseDialogs, ARefusalLeadsToTheFirstFieldAtFaultAndAnotherModelKeepsWhatWasTyped) {
    Trigger("mnuctGraph");
    Child<QRadioButton>(Widget("frmZorModel"), "optTyp_4").click(); // A + B => P
    QWidget& dialog = Widget("frmPrepareTimeDiagram");
    Retype(Child<QLineEdit>(dialog, "Inp_0"), "0.75");
    Retype(Child<QLineEdit>(dialog, "Inp_1"), "0");
    Retype(Child<QComboBox>(dialog, "kCombo_1"), "0");
    Child<QPushButton>(dialog, "cmdDrawctDiagram").click();
    Settle();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(QApplication::focusWidget(), &Child<QLineEdit>(dialog, "Inp_1"));
    Child<QRadioButton>(Widget("frmZorModel"), "optTyp_6").click();
    EXPECT_EQ(Child<QLineEdit>(dialog, "Inp_0").text().trimmed(), QStringLiteral("0.75"));
}

/// A bold caption may round the height of its row to the next pixel; more would be a jump.
bool Stays(const QRect& before, const QRect& now) {
    return (now.topLeft() - before.topLeft()).manhattanLength() <= 1 &&
           std::abs(now.width() - before.width()) <= 1 &&
           std::abs(now.height() - before.height()) <= 1;
}

/// Where the visible controls of a window stand.
std::map<std::string, QRect> Places(QWidget& root) {
    std::map<std::string, QRect> places;
    for (QWidget* widget : root.findChildren<QWidget*>())
        if (widget->isVisible() && !widget->objectName().isEmpty() &&
            !widget->objectName().startsWith(QStringLiteral("qt_")))
            places[widget->objectName().toStdString()] =
                QRect(widget->mapTo(&root, QPoint()), widget->size());
    return places;
}

TEST_F(CourseDialogs, NoControlOfTheCoursesMovesWhateverModelOrUnitIsChosen) {
    for (const char* mode : {"mnuctGraph", "mnuvtGraph"}) {
        Trigger(mode);
        QWidget& model = Widget("frmZorModel");
        QWidget& dialog = Widget("frmPrepareTimeDiagram");
        auto before = Places(dialog);
        for (const char* unit : {"optZeit_1", "optZeit_0"})
            for (int option = 0; option < 20; ++option) {
                Child<QRadioButton>(model, unit).click();
                const std::string name = "optTyp_" + std::to_string(option);
                Child<QRadioButton>(model, name.c_str()).click();
                Settle();
                for (const auto& [widget, place] : Places(dialog)) {
                    const auto [known, fresh] = before.try_emplace(widget, place);
                    EXPECT_TRUE(Stays(known->second, place))
                        << widget << ' ' << name << ' ' << mode;
                }
            }
    }
}

TEST(TextPages, HaveTheHeadingAndWholeLinesAndLoseNone) {
    QString text = QStringLiteral("      t/min\tcA/(mol/L)\tr(ES)/(mol/L/min)\r\n\r\n");
    for (int i = 0; i <= 200; ++i)
        text += QStringLiteral("      %1\t%2\t%3\r\n").arg(i).arg(1.0 / (i + 3)).arg(0.5);
    for (const int extra : {0, 60, 200}) { // also wider than the page
        QString wide = text;
        wide.replace(QStringLiteral("mol/L)"), QStringLiteral("mol/L)") + QString(extra, u'x'));
        const QSizeF page(540, 780); // A4 less margins, points
        const TextPages pages = LayOutPages(wide, page);
        QStringList rows;
        for (const QStringList& lines : pages.pages) {
            EXPECT_TRUE(lines.at(0).contains(QStringLiteral("t/min")));
            EXPECT_EQ(lines.at(0).indexOf(QStringLiteral("cA")),
                      lines.at(2).indexOf(QStringLiteral("0.")));
            rows += lines.mid(2);
            for (const QString& line : lines) // a letter of fixed width is 0.6 of its size
                EXPECT_LE(0.59 * pages.points * static_cast<double>(line.size()),
                          pages.landscape ? page.height() : page.width());
            EXPECT_LE(pages.points * static_cast<double>(lines.size()),
                      pages.landscape ? page.width() : page.height());
        }
        ASSERT_EQ(rows.size(), 201);
        EXPECT_TRUE(rows.at(200).trimmed().startsWith(QStringLiteral("200")));
        EXPECT_EQ(pages.landscape, extra == 200); // 60 more fit in smaller type
    }
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
