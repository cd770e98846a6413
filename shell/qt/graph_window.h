// The widget of the diagram window: the picture, and over it the floating panels.
#pragma once

#include "dialogs/diagram/frm_z_graph_2d.h"
#include "shell/qt/plot_view.h"

#include <QFrame>
#include <QPlainTextEdit>
#include <QPointer>
#include <QWidget>

#include <vector>

namespace zorvant {

class GraphWindow : public QWidget {
public:
    explicit GraphWindow(frmZGraph2D& document);
    ~GraphWindow() override;

    PlotView& view() { return *view_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void ConnectMouse();
    void ConnectKeys();
    bool KeyPressed(const QKeyEvent& key);
    void SpeakReadout();
    void AddCloseButton(QWidget& panel);
    void ToggleFullSize();
    void ShowFocus(const QEvent& event);
    void Float(QWidget& panel);
    void MakeRoom();
    void PlacePanel(QWidget& panel);
    void ShowPointer();

    frmZGraph2D& document_;
    PlotView* view_ = nullptr;
    QWidget* chart_ = nullptr;
    QSize smallestChart_;
    Handler refreshTexts_;        ///< what the record does before it is shown
    QFrame* focusEdge_ = nullptr; ///< around the chart when the keys have come to it
    std::vector<QWidget*> panels_;
    QPlainTextEdit* texts_ = nullptr; ///< schrift
    DiagramText shownText_ = DiagramText::Header;
    QWidget* dragged_ = nullptr; ///< the panel that the mouse has hold of
    QPoint grab_;                ///< where, from the panel's corner
};

} // namespace zorvant
