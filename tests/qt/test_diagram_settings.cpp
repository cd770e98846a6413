// The diagram window under mouse and keys: zoom, panels, the walk along a curve.
#include "dialogs/diagram/diagram_walk.h"
#include "dialogs/diagram/frm_z_graph_2d.h"
#include "platform/host.h"
#include "shell/qt/application.h"
#include "shell/qt/graph_window.h"
#include "tests/qt/qt_user.h"

#include <QtWidgets>
#include <gtest/gtest.h>

namespace zorvant {
namespace {

class DiagramSettings : public testing::Test {
protected:
    DiagramSettings() {
        host().messageBox = [](const MessageBox& box) {
            ADD_FAILURE() << box.text;
            return Answer::Ok;
        };
        host().programDirectory = folder_.path().toStdString();
        program.Start("");
        Settle();
        Child<QAction>(program.window(), "mnuctGraph").trigger();
        Child<QPushButton>(Widget("frmPrepareTimeDiagram"), "cmdDrawctDiagram").click();
        Settle();
    }
    QWidget& Widget(const char* form) {
        return *program.windows().WidgetOf(*FindForm(program.state().desktop, form));
    }
    GraphWindow& Window() { return dynamic_cast<GraphWindow&>(Widget("frmZGraph2D")); }
    frmZGraph2D& Doc() {
        return dynamic_cast<frmZGraph2D&>(*FindForm(program.state().desktop, "frmZGraph2D"));
    }
    /// Shortcuts hear keys of the window system only.
    void Shortcut(const QKeySequence& keys) {
        for (QShortcut* shortcut : Window().findChildren<QShortcut*>())
            if (shortcut->key() == keys)
                emit shortcut->activated();
        Settle();
    }

    ScriptedHost restore_;
    QTemporaryDir folder_;
    Application program;
};

TEST_F(DiagramSettings, ARectangleDrawnWithTheMouseZooms) {
    const DiaKoord before = program.state().Frame;
    const PixelRect area = Doc().surface.layout.plotArea;
    QWidget& canvas = *Window().view().childAt(100, 100);
    const QPoint from = QPointF(area.left + area.width / 4, area.top + 20).toPoint();
    const QPoint to = QPointF(area.left + area.width / 2, area.top + area.height / 2).toPoint();
    const auto mouse = [&](QEvent::Type what, const QPoint& at) {
        const Qt::MouseButton button = what == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        const Qt::MouseButton held =
            what == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(what, QPointF(at), canvas.mapToGlobal(QPointF(at)), button, held, {});
        QCoreApplication::sendEvent(&canvas, &event);
    };
    Child<QAction>(Window(), "mnuZoom").trigger();
    Settle();
    EXPECT_EQ(Window().view().cursor().shape(), Qt::CrossCursor);
    EXPECT_TRUE(Child<QLabel>(Window(), "lblHint").isVisible());
    mouse(QEvent::MouseButtonPress, from);
    mouse(QEvent::MouseMove, to);
    EXPECT_TRUE(Doc().surface.rubber.dragging);
    Shortcut(Qt::Key_Escape);
    EXPECT_FALSE(Doc().surface.rubber.armed);
    mouse(QEvent::MouseButtonRelease, to);
    EXPECT_EQ(program.state().Frame.xMax, before.xMax);
    EXPECT_EQ(Window().view().cursor().shape(), Qt::ArrowCursor);

    Shortcut(Qt::CTRL | Qt::Key_Plus);
    mouse(QEvent::MouseButtonPress, from);
    mouse(QEvent::MouseMove, to);
    mouse(QEvent::MouseButtonRelease, to);
    EXPECT_NEAR(program.state().Frame.xMin, before.xMin + (before.xMax - before.xMin) / 4, 0.2);
    EXPECT_NEAR(program.state().Frame.xMax, before.xMin + (before.xMax - before.xMin) / 2, 0.2);
    Shortcut(Qt::CTRL | Qt::Key_0);
    EXPECT_EQ(program.state().Frame.xMax, before.xMax);
}

TEST_F(DiagramSettings, ThePanelIsWorkedByKeysAndEscapeGoesBackToTheChart) {
    const QSize before = Window().view().parentWidget()->size();
    Child<QAction>(Window(), "mnuDesignMore").trigger();
    Settle();
    QWidget& panel = Child<QWidget>(Window(), "fraTabs");
    ASSERT_TRUE(panel.isVisible());
    EXPECT_TRUE(panel.isAncestorOf(Window().focusWidget()));
    QWidget& chart = *Window().view().parentWidget();
    const auto place = [&](QWidget& of) {
        return QRect(of.mapTo(&Window(), QPoint(0, 0)), of.size());
    };
    EXPECT_FALSE(place(panel).intersects(place(chart))) << "beside the chart, not upon it";
    EXPECT_LT(chart.width(), before.width());
    EXPECT_GE(chart.width(), 400);
    Child<QTabWidget>(Window(), "tabSettings").setCurrentIndex(1);
    Child<QRadioButton>(Window(), "opt1Gitter_0").click();
    EXPECT_EQ(GetAxis(Doc().surface, AxisId::X).gridPattern, LinePattern::None);
    Child<QRadioButton>(Window(), "optScaling_1").click();
    auto& box = Child<QLineEdit>(Window(), "txtXGridValue");
    box.setFocus();
    box.selectAll();
    TypeText(box, QStringLiteral("0"));
    EXPECT_EQ(box.text(), QStringLiteral("0"));
    Child<QLineEdit>(Window(), "txtYGridValue").setFocus();
    Settle();
    EXPECT_EQ(box.text().trimmed(), QStringLiteral("10")) << "refused: the automatic value again";
    Shortcut(Qt::Key_Escape);
    EXPECT_FALSE(panel.isVisible());
    EXPECT_EQ(chart.size(), before);
    EXPECT_TRUE(Doc().loaded) << "the first Esc closes the panel only";
    EXPECT_EQ(Window().focusWidget(), &Window().view());
}

TEST_F(DiagramSettings, ArrowKeysTellTheValuesOfACurve) {
    PlotView& view = Window().view();
    view.setFocus();
    PressKey(view, Qt::Key_Home);
    PressKey(view, Qt::Key_PageDown);
    const SeriesPoint at = Doc().surface.cursor.value();
    EXPECT_EQ(at.point, 1 + kWalkStride);
    EXPECT_EQ(Child<QLabel>(Window(), "lblMausPosNr").text().trimmed(),
              QStringLiteral("#%1").arg(at.series));
    EXPECT_TRUE(view.accessibleName().startsWith(QStringLiteral("curve %1").arg(at.series)));
    EXPECT_TRUE(view.accessibleName().contains(QStringLiteral("X = ")));
    PressKey(view, Qt::Key_Return);
    EXPECT_TRUE(Child<QWidget>(Window(), "fraKurven").isVisible());
    EXPECT_EQ(Child<QTabWidget>(Window(), "tabKurven").currentIndex(), at.series - 1);

    auto* const frame = program.window().findChild<QMdiArea*>()->activeSubWindow();
    Shortcut(Qt::Key_F11);
    EXPECT_TRUE(frame->isMaximized());
    Shortcut(Qt::Key_F11);
    EXPECT_FALSE(frame->isMaximized());
}

TEST_F(DiagramSettings, EveryPanelFitsBesideTheChart) {
    QMdiArea& area = *program.window().findChild<QMdiArea*>();
    QMdiSubWindow& frame = *area.activeSubWindow();
    for (const QRect& place : {QRect(300, 30, 794, 560), QRect(10, 10, 537, 456)}) {
        frame.setGeometry(place);
        Settle();
        for (const char* action : {"mnuDesignMore", "mnuKurvenDesign", "mnuTextDesign_1",
                                   "mnuTextDesign_4", "mnuCoord", "mnuBild_2", "mnuBild_3"}) {
            Child<QAction>(Window(), action).trigger();
            Settle();
            EXPECT_TRUE(area.viewport()->rect().united(place).contains(frame.geometry()));
            EXPECT_GE(Window().view().width(), 200) << action;
            Shortcut(Qt::Key_Escape);
            EXPECT_EQ(frame.geometry(), place) << action;
        }
    }
}

TEST_F(DiagramSettings, ControlZTakesBackAndControlYMakesAgain) {
    Child<QAction>(Window(), "mnuYLog").trigger();
    Settle();
    ASSERT_TRUE(GetAxisLog(Doc().surface, AxisId::Y));
    Shortcut(QKeySequence::Undo);
    EXPECT_FALSE(GetAxisLog(Doc().surface, AxisId::Y));
    Shortcut(Qt::CTRL | Qt::Key_Y);
    EXPECT_TRUE(GetAxisLog(Doc().surface, AxisId::Y));
}

} // namespace
} // namespace zorvant
