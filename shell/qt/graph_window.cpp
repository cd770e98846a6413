#include "shell/qt/graph_window.h"

#include "diagrams/figure.h"
#include "dialogs/diagram/axis_settings.h"
#include "dialogs/diagram/diagram_texts.h"
#include "dialogs/diagram/diagram_walk.h"
#include "shell/qt/binder.h"
#include "shell/qt/plot_picture.h"
#include "shell/qt/qt_text.h"
#include "ui_frmZGraph2D.h"

#include <QtWidgets>

namespace zorvant {
namespace {

/// The chart beside an open panel is never narrower than this, pixels.
constexpr int kLeastChart = 200;
/// As wide it stays where the work area lets the window grow.
constexpr int kUsefulChart = 440;
constexpr double kPreviewWidth = 280;      ///< pixels
constexpr double kPixelsPerCm = 96 / 2.54; ///< of a picture
constexpr const char* kCloses = "closesPanel";
constexpr int kCloseMargin = 4;
/// Lines of a text that its field shows at once.
constexpr int kTextLines = 4;

Qt::CursorShape CursorOf(ChartPointer pointer) {
    switch (pointer) {
    case ChartPointer::Curve:
    case ChartPointer::Point:
        return Qt::PointingHandCursor;
    case ChartPointer::Move:
        return Qt::SizeAllCursor;
    case ChartPointer::CrossHair:
        return Qt::CrossCursor;
    case ChartPointer::Default:
        break;
    }
    return Qt::ArrowCursor;
}

MouseButton ButtonOf(PlotButton button) {
    return button == PlotButton::Left    ? MouseButton::Left
           : button == PlotButton::Right ? MouseButton::Right
                                         : MouseButton::Other;
}

struct KeyRow {
    int key;
    Qt::KeyboardModifiers modifiers;
    ChartKey meaning;
};
constexpr KeyRow kChartKeys[] = {
    {Qt::Key_Left, Qt::NoModifier, ChartKey::Left},
    {Qt::Key_Right, Qt::NoModifier, ChartKey::Right},
    {Qt::Key_Up, Qt::NoModifier, ChartKey::Up},
    {Qt::Key_Down, Qt::NoModifier, ChartKey::Down},
    {Qt::Key_PageUp, Qt::NoModifier, ChartKey::PageUp},
    {Qt::Key_PageDown, Qt::NoModifier, ChartKey::PageDown},
    {Qt::Key_Home, Qt::NoModifier, ChartKey::Home},
    {Qt::Key_End, Qt::NoModifier, ChartKey::End},
    {Qt::Key_Delete, Qt::NoModifier, ChartKey::Delete},
    {Qt::Key_Return, Qt::NoModifier, ChartKey::Design},
    {Qt::Key_Enter, Qt::NoModifier, ChartKey::Design},
    {Qt::Key_Menu, Qt::NoModifier, ChartKey::Design},
    {Qt::Key_F10, Qt::ShiftModifier, ChartKey::Design},
};

} // namespace

GraphWindow::GraphWindow(frmZGraph2D& document) : document_(document) {
    Ui::frmZGraph2D ui;
    ui.setupUi(this);
    setProperty("maximizes", true);
    chart_ = ui.chart;
    preview_ = ui.lblFigurePreview;
    // It takes what height is left: a long result line must not push it out of the window.
    smallestChart_ = chart_->minimumSize();
    chart_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    auto* const layout = new QVBoxLayout(chart_);
    layout->setContentsMargins(0, 0, 0, 0);
    view_ = new PlotView(chart_);
    layout->addWidget(view_);
    MakeDock();
    chart_->setAccessibleName(QStringLiteral("Diagram"));
    // Their names are their texts: those are what is read out.
    ui.lblMausPosNr->setAccessibleDescription(
        QStringLiteral("Curve or point set under the pointer"));
    ui.lblMausPos->setAccessibleDescription(QStringLiteral("Coordinates under the pointer"));
    for (QWidget* panel :
         std::initializer_list<QWidget*>{ui.fraTabs, ui.fraKurven, ui.fraPunkte, ui.fraSchrift,
                                         ui.fraCoordInput, ui.fraPrintIt, ui.fraResolution})
        Dock(*panel);
    ConnectMouse();
    auto* const copy = new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C), this);
    copy->setContext(Qt::WidgetWithChildrenShortcut);
    connect(copy, &QShortcut::activated, this,
            [this] { Binder::Run(&document_.mnuCopyPicture, document_.mnuCopyPicture.onClick); });
    ConnectKeys();
    // A line break ends what was typed: the cursor goes behind the text, and so it does at opening.
    texts_ = ui.schrift;
    texts_->setFixedHeight(texts_->fontMetrics().lineSpacing() * kTextLines +
                           2 * static_cast<int>(texts_->document()->documentMargin() + 2));
    texts_->setAccessibleName(QStringLiteral("Text of the diagram"));
    connect(texts_->document(), &QTextDocument::contentsChanged, this, [this] {
        const bool another =
            std::exchange(shownText_, document_.TextTarget) != document_.TextTarget;
        if (another || texts_->toPlainText().contains(QChar(kTextBreakMark)))
            QTimer::singleShot(0, texts_, [this] { texts_->moveCursor(QTextCursor::End); });
    });
    refreshTexts_ = document_.onRefresh;
    document_.onRefresh = [this] {
        refreshTexts_();
        ShowPointer();
        ShowPreview();
    };
    document_.rightEdge = [this] {
        const QWidget* frame = this;
        while (frame->parentWidget() != nullptr &&
               qobject_cast<const QMdiSubWindow*>(frame) == nullptr)
            frame = frame->parentWidget();
        return frame->geometry().right() * kTwipsPerPixel;
    };
    document_.surface.onRepaint = [this] { view_->Show(document_.surface); };
    view_->Show(document_.surface);
}

GraphWindow::~GraphWindow() {
    document_.surface.onRepaint = nullptr;
    document_.rightEdge = nullptr;
    document_.onFullSize = nullptr;
    document_.onRefresh = refreshTexts_;
    view_->Forget();
}

void GraphWindow::ConnectMouse() {
    view_->setMouseTracking(true);
    view_->onMouseMove = [this](double px, double py) {
        Binder::Run(nullptr, [&] { MouseMove(document_.ps, document_, px, py); });
    };
    view_->onMousePress = [this](PlotButton button, double px, double py) {
        view_->setFocus(Qt::MouseFocusReason);
        Binder::Run(nullptr, [&] { MouseDown(document_.ps, document_, ButtonOf(button), px, py); });
    };
    view_->onMouseRelease = [this](PlotButton button, double px, double py) {
        Binder::Run(nullptr, [&] { MouseUp(document_.ps, document_, ButtonOf(button), px, py); });
    };
    view_->onMouseLeave = [this] {
        Binder::Run(nullptr,
                    [&] { document_.lblMausPosNr.visible = document_.lblMausPos.visible = false; });
    };
}

void GraphWindow::ConnectKeys() {
    view_->setFocusPolicy(Qt::StrongFocus);
    view_->setAccessibleName(chart_->accessibleName());
    view_->installEventFilter(this);
    setFocusProxy(view_);
    setTabOrder(view_, findChild<QPushButton*>(QStringLiteral("cmdSingleCalc")));
    focusEdge_ = new QFrame(chart_);
    focusEdge_->setFrameShape(QFrame::Box);
    focusEdge_->setAttribute(Qt::WA_TransparentForMouseEvents);
    QPalette edge = focusEdge_->palette();
    edge.setColor(QPalette::WindowText, edge.color(QPalette::Highlight));
    focusEdge_->setPalette(edge);
    focusEdge_->hide();
    document_.onFullSize = [this] { ToggleFullSize(); };
    const auto onKey = [this](const QKeySequence& keys, MenuEntry& entry) {
        auto* const shortcut = new QShortcut(keys, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this,
                [&entry] { Binder::Run(&entry, [&] { Press(entry); }); });
    };
    onKey(Qt::Key_F11, document_.mnuFullSize);
    onKey(Qt::CTRL | Qt::Key_Plus, document_.mnuZoom);
    onKey(Qt::CTRL | Qt::Key_Equal, document_.mnuZoom);
    onKey(Qt::CTRL | Qt::Key_0, document_.mnuZoomReset);
    onKey(Qt::CTRL | Qt::Key_9, document_.mnuShowAll);
    onKey(QKeySequence::Undo, document_.mnuUndo);
    onKey(Qt::CTRL | Qt::Key_Y, document_.mnuRedo);
}

bool GraphWindow::KeyPressed(const QKeyEvent& key) {
    const auto modifiers = key.modifiers() & ~Qt::KeypadModifier;
    for (const KeyRow& row : kChartKeys) {
        if (row.key != key.key() || row.modifiers != modifiers)
            continue;
        bool taken = false;
        Binder::Run(nullptr, [&] { taken = KeyOnChart(document_.ps, document_, row.meaning); });
        if (taken)
            SpeakReadout();
        return taken;
    }
    return false;
}

/// Screen readers tell the name of what has the focus when it changes.
void GraphWindow::SpeakReadout() {
    const QString spoken = ToQt(SpokenReadout(document_)).simplified();
    if (spoken.isEmpty())
        return;
    view_->setAccessibleName(spoken);
    view_->setAccessibleDescription(ToQt(document_.surface.header.text).simplified());
    QAccessibleEvent changed(view_, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&changed);
}

/// An edge shows that the keys have come to the chart; a click need not be told.
void GraphWindow::ShowFocus(const QEvent& event) {
    const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
    const bool byKey = event.type() == QEvent::FocusIn &&
                       (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason);
    focusEdge_->setGeometry(chart_->rect());
    focusEdge_->setVisible(byKey);
}

void GraphWindow::ToggleFullSize() {
    if (QWidget* const frame = Frame())
        frame->isMaximized() ? frame->showNormal() : frame->showMaximized();
}

void GraphWindow::ShowPointer() {
    if (const Qt::CursorShape shape = CursorOf(document_.pointer); view_->cursor().shape() != shape)
        view_->setCursor(shape);
}

/// The figure as it will be written, as large as the panel has room for.
void GraphWindow::ShowPreview() {
    const PicturePanel& panel = document_.pictures;
    if (!document_.fraPrintIt.visible || panel.OutputMode != OutputTarget::File)
        return;
    const std::optional<PictureSize> size = FigureSize(panel);
    const QString made = QStringLiteral("%1 %2 %3 %4")
                             .arg(document_.surface.revision)
                             .arg(size ? size->width : 0)
                             .arg(size ? size->height : 0)
                             .arg(FigureScale(panel));
    if (std::exchange(previewOf_, made) == made)
        return;
    if (!size) {
        preview_->clear();
        return;
    }
    const double scale = kPreviewWidth / size->width;
    PlotSurface figure = ScaledFigure(document_.surface, FigureScale(panel));
    const double ratio = devicePixelRatioF();
    QImage image = PictureImage(
        figure, {.size = (QSizeF(size->width, size->height) * kPixelsPerCm).toSize(),
                 .pixels = (QSizeF(size->width, size->height) * scale * ratio).toSize()});
    image.setDevicePixelRatio(ratio);
    preview_->setPixmap(QPixmap::fromImage(image));
}

/// Chart and, at its right, the place of the open panel.
void GraphWindow::MakeDock() {
    auto* const outer = static_cast<QVBoxLayout*>(layout());
    outer->removeWidget(chart_);
    auto* const beside = new QHBoxLayout;
    outer->insertLayout(0, beside, 1);
    beside->addWidget(chart_, 1);
    dock_ = new QScrollArea;
    beside->addWidget(dock_);
    dock_->setFrameShape(QFrame::NoFrame);
    dock_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    dock_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    dock_->setWidgetResizable(true);
    dock_->setFocusPolicy(Qt::NoFocus);
    auto* const column = new QWidget;
    docked_ = new QVBoxLayout(column);
    docked_->setContentsMargins(0, 0, 0, 0);
    docked_->addStretch(1);
    dock_->setWidget(column);
    dock_->hide();
}

/// A panel stands beside the chart while it is open, and never upon it.
void GraphWindow::Dock(QWidget& panel) {
    docked_->insertWidget(docked_->count() - 1, &panel);
    panel.setProperty("collapses", true); // the others keep no room for theirs
    panel.hide();
    if (qobject_cast<QGroupBox*>(&panel) != nullptr) // its title inside the frame, as its button
        panel.setStyleSheet(QStringLiteral("QGroupBox#%1 {border: 1px solid palette(mid);"
                                           " margin-top: 0; padding-top: 1.8em}"
                                           "QGroupBox#%1::title {subcontrol-origin: border;"
                                           " subcontrol-position: top left; left: 8px; top: 6px}")
                                .arg(panel.objectName()));
    panel.installEventFilter(this);
    panels_.push_back(&panel);
    AddCloseButton(panel);
}

/// At the corner of a panel; Esc does the same, so it is left out of the order of tabs.
void GraphWindow::AddCloseButton(QWidget& panel) {
    auto* const close = new QToolButton(&panel);
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setAutoRaise(true);
    close->setFocusPolicy(Qt::NoFocus);
    close->setToolTip(QStringLiteral("Close <Esc>").toHtmlEscaped());
    close->setAccessibleName(QStringLiteral("Close"));
    close->resize(close->sizeHint());
    connect(close, &QToolButton::clicked, this,
            [this] { Binder::Run(nullptr, [&] { FuPanelsZu(document_); }); });
    close->setProperty(kCloses, true);
}

/// Gives the open panel the width that it needs, and the chart the rest; where the panel is higher
/// than the window it scrolls.
void GraphWindow::ArrangeDock() {
    QSize needed;
    for (QWidget* panel : panels_)
        if (!panel->isHidden())
            needed = needed.expandedTo(panel->sizeHint().expandedTo(panel->minimumSizeHint()));
    const bool open = needed.isValid() && !needed.isEmpty();
    if (open) {
        const bool scrolls = needed.height() > chart_->height();
        dock_->setFixedWidth(needed.width() +
                             (scrolls ? dock_->verticalScrollBar()->sizeHint().width() : 0));
    }
    chart_->setMinimumWidth(open ? std::min(kLeastChart, smallestChart_.width())
                                 : smallestChart_.width());
    const bool changes = open != dock_->isVisibleTo(this);
    dock_->setVisible(open);
    if (changes) // the window's new size leads here again
        open ? GrowFor(dock_->width()) : ShrinkBack();
}

/// The window grows, at most to the work area, while a panel would leave too little of the chart.
void GraphWindow::GrowFor(int dockWidth) {
    QWidget* const frame = Frame();
    if (frame == nullptr || frame->isMaximized())
        return;
    before_ = frame->geometry();
    const QRect area = frame->parentWidget()->rect();
    QRect grown = before_;
    grown.setWidth(std::clamp(kUsefulChart + dockWidth + before_.width() - chart_->width(),
                              before_.width(), std::max(before_.width(), area.width())));
    grown.moveLeft(std::max(0, std::min(grown.left(), area.width() - grown.width())));
    frame->setGeometry(grown);
    grown_ = grown;
}

/// Back to the size before, unless the user has given it another.
void GraphWindow::ShrinkBack() {
    QWidget* const frame = Frame();
    if (frame != nullptr && !frame->isMaximized() && frame->geometry() == grown_)
        frame->setGeometry(before_);
}

QWidget* GraphWindow::Frame() const {
    for (QWidget* above = parentWidget(); above != nullptr; above = above->parentWidget())
        if (qobject_cast<QMdiSubWindow*>(above) != nullptr)
            return above;
    return nullptr;
}

void GraphWindow::PlaceCloseButton(QWidget& panel) {
    for (QWidget* own : panel.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        if (own->property(kCloses).toBool()) {
            own->move(panel.width() - own->width() - kCloseMargin, kCloseMargin);
            own->raise();
        }
}

/// A diagram that has come is walked along by the keys at once.
void GraphWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    view_->setFocus(Qt::OtherFocusReason);
}

void GraphWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    ArrangeDock();
}

bool GraphWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == view_) {
        if (event->type() == QEvent::KeyPress)
            return KeyPressed(static_cast<QKeyEvent&>(*event));
        if (event->type() == QEvent::Resize)
            focusEdge_->hide(); // it would not fit any more
        if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
            ShowFocus(*event);
        return false;
    }
    PanelEvent(*static_cast<QWidget*>(watched), *event);
    return false;
}

void GraphWindow::PanelEvent(QWidget& panel, const QEvent& event) {
    switch (event.type()) {
    case QEvent::ShowToParent:
        ArrangeDock();
        dock_->ensureVisible(0, 0);
        if (texts_ != nullptr && panel.isAncestorOf(texts_))
            QTimer::singleShot(0, texts_, [this] { texts_->moveCursor(QTextCursor::End); });
        break;
    case QEvent::HideToParent:
        ArrangeDock();
        // Whoever worked in the panel goes on in the chart.
        if (isVisible() && (focusWidget() == nullptr || panel.isAncestorOf(focusWidget())))
            view_->setFocus(Qt::OtherFocusReason);
        break;
    case QEvent::Resize:
        PlaceCloseButton(panel);
        break;
    case QEvent::LayoutRequest: // its contents were shown or hidden
        ArrangeDock();
        break;
    default:
        break;
    }
}

} // namespace zorvant
