#include "shell/qt/help_viewer.h"

#include <QtWidgets>

namespace zorvant {
namespace {

constexpr int kStartTopic = 10250;
constexpr QSize kStartSize(900, 680);
constexpr int kContentsWidth = 280;
constexpr int kPageMargin = 14;

QString ReadText(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

HelpViewer::HelpViewer(const QString& directory, QWidget* parent)
    : QWidget(parent, Qt::Window), directory_(directory) {
    setWindowTitle(tr("ZORVANT - Help"));
    setWindowIcon(QApplication::windowIcon());
    // At the right, so that the dialog that is asked about can be seen beside it.
    const QRect room = screen()->availableGeometry();
    resize(kStartSize.boundedTo(room.size()));
    move(room.right() - width(), room.top() + (room.height() - height()) / 2);
    ReadContents();
    BuildWidgets();
    FillTree({});
}

QString HelpViewer::FindDirectory() {
    const QDir program(QCoreApplication::applicationDirPath());
    QStringList candidates;
    for (const char* place : {"help", "../help", "../share/zorvant/help"})
        candidates << program.filePath(QString::fromLatin1(place));
#ifdef ZORVANT_HELP_DIR
    candidates << QStringLiteral(ZORVANT_HELP_DIR);
#endif
    for (const QString& candidate : candidates)
        if (QFileInfo::exists(candidate + QStringLiteral("/contents.txt")))
            return QDir(candidate).canonicalPath();
    return {};
}

void HelpViewer::ReadContents() {
    const QString text = ReadText(directory_ + QStringLiteral("/contents.txt"));
    for (const QString& line : text.split(u'\n')) {
        const QString entry = line.trimmed();
        if (entry.isEmpty() || entry.startsWith(u'#'))
            continue;
        qsizetype indent = 0;
        while (indent < line.size() && line.at(indent) == u' ')
            ++indent;
        const QString number = entry.section(u' ', 0, 0);
        contents_.push_back(
            {number.toInt(), static_cast<int>(indent / 2), entry.mid(number.size()).trimmed()});
    }
}

void HelpViewer::BuildWidgets() {
    page_ = new QTextBrowser;
    page_->setSearchPaths({directory_});
    page_->setOpenLinks(false);
    page_->document()->setDocumentMargin(kPageMargin);
    connect(page_, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
        const int topic = QFileInfo(link.path()).completeBaseName().toInt();
        if (topic > 0)
            Display(topic);
        else if (link.hasFragment())
            page_->scrollToAnchor(link.fragment());
    });
    connect(page_, &QTextBrowser::sourceChanged, this, [this](const QUrl& source) {
        const int topic = QFileInfo(source.path()).completeBaseName().toInt();
        if (topic != topic_)
            Display(topic);
    });

    search_ = new QLineEdit;
    search_->setPlaceholderText(tr("Search (Ctrl+F)"));
    search_->setClearButtonEnabled(true);
    tree_ = new QTreeWidget;
    tree_->setHeaderHidden(true);
    tree_->setTextElideMode(Qt::ElideRight);
    connect(search_, &QLineEdit::textChanged, this,
            [this](const QString& words) { FillTree(words); });
    connect(search_, &QLineEdit::returnPressed, this, [this] {
        if (QTreeWidgetItem* const first = tree_->topLevelItem(0))
            Display(first->data(0, Qt::UserRole).toInt());
    });
    connect(tree_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (item != nullptr && item->data(0, Qt::UserRole).toInt() != topic_)
            Display(item->data(0, Qt::UserRole).toInt());
    });

    auto* const back = new QToolButton;
    back->setArrowType(Qt::LeftArrow);
    back->setToolTip(tr("Back (Alt+Left)"));
    back->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Left));
    connect(back, &QToolButton::clicked, page_, &QTextBrowser::backward);
    connect(page_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    auto* const forward = new QToolButton;
    forward->setArrowType(Qt::RightArrow);
    forward->setToolTip(tr("Forward (Alt+Right)"));
    forward->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Right));
    connect(forward, &QToolButton::clicked, page_, &QTextBrowser::forward);
    connect(page_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
    back->setEnabled(false);
    forward->setEnabled(false);

    auto* const head = new QHBoxLayout;
    head->addWidget(back);
    head->addWidget(forward);
    head->addWidget(search_, 1);
    auto* const left = new QWidget;
    auto* const column = new QVBoxLayout(left);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(head);
    column->addWidget(tree_);
    auto* const split = new QSplitter;
    split->addWidget(left);
    split->addWidget(page_);
    split->setStretchFactor(1, 1);
    split->setSizes({kContentsWidth, kStartSize.width() - kContentsWidth});
    auto* const whole = new QVBoxLayout(this);
    whole->addWidget(split);

    auto* const find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, search_, [this] {
        search_->setFocus();
        search_->selectAll();
    });
    auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(escape, &QShortcut::activated, this, &QWidget::close);
}

void HelpViewer::FillTree(const QString& words) {
    const QSignalBlocker quiet(tree_);
    tree_->clear();
    if (!words.trimmed().isEmpty()) {
        for (const int found : Search(words)) {
            auto* const item = new QTreeWidgetItem(tree_, {TitleOf(found)});
            item->setData(0, Qt::UserRole, found);
        }
        return;
    }
    std::vector<QTreeWidgetItem*> above;
    for (const Entry& entry : contents_) {
        above.resize(std::min(above.size(), static_cast<std::size_t>(entry.level)));
        auto* const item = above.empty() ? new QTreeWidgetItem(tree_, {entry.title})
                                         : new QTreeWidgetItem(above.back(), {entry.title});
        item->setData(0, Qt::UserRole, entry.topic);
        item->setToolTip(0, entry.title);
        if (entry.topic == topic_)
            tree_->setCurrentItem(item);
        above.push_back(item);
    }
    tree_->expandAll();
}

std::vector<int> HelpViewer::Search(const QString& words) {
    if (texts_.isEmpty())
        for (const Entry& entry : contents_) {
            QTextDocument document;
            document.setHtml(ReadText(PathOf(entry.topic)));
            texts_[entry.topic] = entry.title + u' ' + document.toPlainText();
        }
    std::vector<int> found;
    const QStringList wanted = words.split(u' ', Qt::SkipEmptyParts);
    for (const Entry& entry : contents_) {
        const QString& text = texts_[entry.topic];
        const bool all = std::ranges::all_of(
            wanted, [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
        if (all && !wanted.isEmpty())
            found.push_back(entry.topic);
    }
    return found;
}

QString HelpViewer::TitleOf(int topic) const {
    const auto entry =
        std::ranges::find_if(contents_, [&](const Entry& each) { return each.topic == topic; });
    return entry == contents_.end() ? QString() : entry->title;
}

QString HelpViewer::PathOf(int topic) const {
    return directory_ + QStringLiteral("/%1.html").arg(topic);
}

void HelpViewer::ShowTopic(int topic) {
    search_->clear(); // of another question
    Display(topic);
    if (isMinimized())
        showNormal();
    show();
    raise();
    activateWindow();
}

void HelpViewer::Display(int topic) {
    topic_ = topic;
    if (QFileInfo::exists(PathOf(topic))) {
        page_->setSource(QUrl(QStringLiteral("%1.html").arg(topic)), QTextDocument::HtmlResource);
    } else {
        QString list;
        for (const Entry& entry : contents_)
            list += QStringLiteral("<li><a href=\"%1.html\">%2</a></li>")
                        .arg(entry.topic)
                        .arg(entry.title.toHtmlEscaped());
        page_->setHtml(
            contents_.empty()
                ? tr("<h2>Help</h2><p>The help files were not found beside the program.</p>")
                : tr("<h2>Help</h2><p>There is no topic %1 yet. What there is:</p>").arg(topic) +
                      QStringLiteral("<ul>%1</ul>").arg(list));
    }
    for (QTreeWidgetItemIterator item(tree_); *item != nullptr; ++item)
        if ((*item)->data(0, Qt::UserRole).toInt() == topic) {
            const QSignalBlocker quiet(tree_);
            tree_->setCurrentItem(*item);
        }
    const QString title = TitleOf(topic);
    setWindowTitle(title.isEmpty() ? tr("ZORVANT - Help") : title + tr(" - ZORVANT Help"));
}

} // namespace zorvant
