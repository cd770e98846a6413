// The widget of the diagram window: the picture, and beside it the panel that is open.
#pragma once

#include "dialogs/diagram/frm_z_graph_2d.h"
#include "shell/qt/plot_view.h"

#include <QFrame>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QVBoxLayout>
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
    void MakeDock();
    void Dock(QWidget& panel);
    void ArrangeDock();
    void GrowFor(int dockWidth);
    void ShrinkBack();
    QWidget* Frame() const;
    void PlaceCloseButton(QWidget& panel);
    void PanelEvent(QWidget& panel, const QEvent& event);
    void ShowPointer();
    void ShowPreview();

    frmZGraph2D& document_;
    PlotView* view_ = nullptr;
    QWidget* chart_ = nullptr;
    QSize smallestChart_;
    Handler refreshTexts_;          ///< what the record does before it is shown
    QFrame* focusEdge_ = nullptr;   ///< around the chart when the keys have come to it
    QScrollArea* dock_ = nullptr;   ///< beside the chart, while a panel is open
    QVBoxLayout* docked_ = nullptr; ///< the panels in it
    QRect before_, grown_;          ///< of the window, without and with a panel
    std::vector<QWidget*> panels_;
    QPlainTextEdit* texts_ = nullptr; ///< schrift
    QLabel* preview_ = nullptr;       ///< of the figure that would be written
    QString previewOf_;               ///< what it was made of
    DiagramText shownText_ = DiagramText::Header;
};

} // namespace zorvant
