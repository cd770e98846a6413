#include "shell/qt/main_window.h"

#include "platform/host.h"
#include "shell/dropped_files.h"
#include "shell/project_commands.h"
#include "shell/qt/help_viewer.h"
#include "shell/qt/menus.h"
#include "shell/qt/qt_text.h"

#include <QProxyStyle>
#include <QtWidgets>

namespace zorvant {
namespace {

constexpr QSize kLeastSize(480, 320);
constexpr QSize kStartSize(1360, 860);
constexpr double kScreenPart = 0.92; ///< of the screen that the window takes at most when it opens
constexpr int kSmallScreen = 1440;   ///< up to this width the window opens in full size
constexpr int kMenuSpacing = 3;      ///< pixels between titles of the menu bar, see below
constexpr int kGroundDarker = 112;   ///< work area against the windows' ground, per cent
constexpr int kToolIcon = 24;
constexpr double kPale = 0.3; ///< opacity of an icon that can't be used

/// The menu bar has many long titles; a little less room between them lets all stand side by side
/// on a screen of 1280 pixels.
class CompactMenuStyle : public QProxyStyle {
public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override {
        return metric == PM_MenuBarItemSpacing ? kMenuSpacing
                                               : QProxyStyle::pixelMetric(metric, option, widget);
    }
};

/// A drawing and its pale form for a command that can't be used, on a light ground and on a dark
/// one.
QIcon ToolIcon(const QString& file) {
    const QIcon drawing(file);
    QIcon icon;
    for (const int size : {kToolIcon, kToolIcon * 3 / 2, kToolIcon * 2}) {
        const QPixmap plain = drawing.pixmap(size);
        QPixmap pale(plain.size());
        pale.setDevicePixelRatio(plain.devicePixelRatio());
        pale.fill(Qt::transparent);
        QPainter painter(&pale);
        painter.setOpacity(kPale);
        painter.drawPixmap(0, 0, plain);
        painter.end();
        icon.addPixmap(plain);
        icon.addPixmap(pale, QIcon::Disabled);
    }
    return icon;
}

QMenu* MenuOf(QMainWindow& window, const std::string& control) {
    auto* const action = window.findChild<QAction*>(ToQt(control));
    return action == nullptr ? nullptr : action->menu();
}

/// The file of a drag, when it is one that the window opens.
QString OpenableFile(const QMimeData& data) {
    if (data.urls().size() != 1 || !data.urls().constFirst().isLocalFile())
        return {};
    const QString path = data.urls().constFirst().toLocalFile();
    return CanOpenDropped(FromQt(path)) ? path : QString();
}

} // namespace

MainWindow::MainWindow(MDIZOR& record) : record_(record), area_(new QMdiArea) {
    setObjectName(ToQt(record.name));
    area_->setObjectName(QStringLiteral("area"));
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area_->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    setCentralWidget(area_);
    area_->setBackground(palette().color(QPalette::Window).darker(kGroundDarker));
    menuBar()->setNativeMenuBar(false);
    auto* const compact = new CompactMenuStyle;
    compact->setParent(menuBar());
    menuBar()->setStyle(compact);
    BuildMenuBar(*menuBar(), record.menu);
    menuBar()->installEventFilter(this);
    BuildWindowList();
    BuildToolbar();
    BuildFoot();
    setAcceptDrops(true);
    setContextMenuPolicy(Qt::NoContextMenu);
    setMinimumSize(kLeastSize);
    resize(kStartSize.boundedTo(screen()->availableSize() * kScreenPart));

    windows_ = std::make_unique<FormWindows>(record.ps.desktop, *area_);
    new Binder(record, *this);
    ConnectHost();
}

MainWindow::~MainWindow() {
    host().showHelp = [](int) {};
    host().closeHelp = [] {};
    host().popupMenu = [](MenuEntry&) {};
}

void MainWindow::Open() {
    if (screen()->availableSize().width() <= kSmallScreen)
        showMaximized();
    else
        show();
    // Dialogs are placed by the size of the work area, so it gets its size now.
    QCoreApplication::sendPostedEvents();
    layout()->activate();
}

HelpViewer& MainWindow::help() {
    if (!help_)
        help_ = std::make_unique<HelpViewer>(HelpViewer::FindDirectory());
    return *help_;
}

void MainWindow::ConnectHost() {
    host().showHelp = [this](int topic) { help().ShowTopic(topic); };
    host().closeHelp = [this] {
        if (help_)
            help_->close();
    };
    host().popupMenu = [this](MenuEntry& entry) {
        Binder::PushAll();
        if (QMenu* const menu = MenuOf(*this, entry.name))
            menu->exec(QCursor::pos()); // its open event runs as it is about to show
    };
    auto* const save = new QShortcut(QKeySequence::Save, this);
    connect(save, &QShortcut::activated, this,
            [this] { Binder::Run(nullptr, [this] { SaveUnderKnownName(record_); }); });
    auto* const f10 = new QShortcut(Qt::Key_F10, this);
    connect(f10, &QShortcut::activated, menuBar(), [bar = menuBar()] {
        bar->setFocus(Qt::MenuBarFocusReason);
        bar->setActiveAction(bar->actions().constFirst());
    });
    auto* const f1 = new QShortcut(QKeySequence::HelpContents, this);
    connect(f1, &QShortcut::activated, this, [this] {
        const Form* const active = windows_->ActiveForm();
        const int topic = active == nullptr ? 0 : active->helpTopic;
        host().showHelp(topic != 0 ? topic : record_.helpTopic);
    });
}

void MainWindow::BuildToolbar() {
    auto* const bar = addToolBar(tr("Tools"));
    bar->setObjectName(QStringLiteral("Toolbar1"));
    bar->setMovable(false);
    bar->setIconSize({kToolIcon, kToolIcon});
    int last = 0;
    for (const ToolRow& row : MainToolbar()) {
        // Neighbours of one group are two apart.
        if (last != 0 && row.index > last + 2)
            bar->addSeparator();
        last = row.index;
        auto* const tool = new QToolButton;
        tool->setObjectName(QStringLiteral("Toolbar1_%1").arg(row.index));
        tool->setIcon(
            ToolIcon(QStringLiteral(":/icons/%1.svg").arg(QString::fromLatin1(row.icon))));
        tool->setAccessibleName(QString::fromLatin1(row.text));
        tool->setAutoRaise(true);
        tool->setFocusPolicy(Qt::TabFocus);
        bar->addWidget(tool);
    }
}

void MainWindow::BuildFoot() {
    auto* const foot = new QFrame;
    foot->setObjectName(QStringLiteral("Picture2"));
    auto* const row = new QHBoxLayout(foot);
    row->setContentsMargins(4, 2, 4, 2);
    auto* const first = new QPushButton;
    first->setObjectName(QStringLiteral("cmdErstnutzer"));
    first->setIcon(QIcon(QStringLiteral(":/icons/first_steps.svg")));
    auto* const status = new QLabel;
    status->setObjectName(QStringLiteral("lblStatus"));
    row->addWidget(first);
    row->addSpacing(12);
    row->addWidget(status, 1);
    status->setMinimumWidth(0);
    status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addPermanentWidget(foot, 1);
}

void MainWindow::BuildWindowList() {
    auto* const action = findChild<QAction*>(QStringLiteral("mnuFenster"));
    auto* const menu = new QMenu(menuBar());
    action->setMenu(menu);
    menu->addAction(tr("&Cascade"), area_, &QMdiArea::cascadeSubWindows);
    menu->addAction(tr("&Tile"), area_, &QMdiArea::tileSubWindows);
    auto* const close = menu->addAction(tr("C&lose"), area_, &QMdiArea::closeActiveSubWindow);
    close->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_W), QKeySequence(Qt::CTRL | Qt::Key_F4)});
    auto* const next = menu->addAction(tr("&Next"), area_, &QMdiArea::activateNextSubWindow);
    next->setShortcuts(QKeySequence::NextChild);
    auto* const list = new QActionGroup(menu); // the windows themselves, renewed at each opening
    menu->addSeparator();
    connect(menu, &QMenu::aboutToShow, this, [this, menu, list] { FillWindowList(*menu, *list); });
}

void MainWindow::FillWindowList(QMenu& menu, QActionGroup& list) {
    for (QAction* old : list.actions())
        delete old;
    int number = 0;
    for (QMdiSubWindow* window : area_->subWindowList()) {
        if (window->isHidden())
            continue;
        QString title = window->windowTitle();
        title.replace(u'&', QStringLiteral("&&"));
        ++number;
        const QString text = number < 10 ? QStringLiteral("&%1  ").arg(number) + title : title;
        QAction* const entry = menu.addAction(text, area_, [this, window = QPointer(window)] {
            if (window)
                area_->setActiveSubWindow(window);
        });
        list.addAction(entry);
        entry->setCheckable(true);
        entry->setChecked(window == area_->activeSubWindow());
    }
}

/// The titles in the bar say why they can't be opened, as the entries of the menus do.
bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched != menuBar() || event->type() != QEvent::ToolTip)
        return QMainWindow::eventFilter(watched, event);
    const auto& help = static_cast<QHelpEvent&>(*event);
    const QAction* const title = menuBar()->actionAt(help.pos());
    const bool says = title != nullptr && !title->isEnabled();
    QToolTip::showText(help.globalPos(), says ? title->toolTip() : QString(), menuBar());
    return true;
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->accept(); // can't be refused
    Binder::Run(nullptr, [this] { mnuExit_Click(record_); });
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!OpenableFile(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const QString path = OpenableFile(*event->mimeData());
    if (path.isEmpty())
        return;
    event->acceptProposedAction();
    // The sender waits for the end of the drop; a box would keep it waiting.
    QTimer::singleShot(0, this, [this, path] {
        Binder::Run(nullptr, [&] { OpenDropped(record_, FromQt(path)); });
    });
}

} // namespace zorvant
