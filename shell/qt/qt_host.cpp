#include "shell/qt/qt_host.h"

#include "platform/host.h"
#include "shell/qt/binder.h"
#include "shell/qt/plot_text.h"
#include "shell/qt/qt_text.h"
#include "shell/qt/text_pages.h"

#include <QtWidgets>

namespace zorvant {
namespace {

QMessageBox::Icon IconOf(Icon icon) {
    switch (icon) {
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::Warning:
        return QMessageBox::Warning;
    case Icon::Critical:
        return QMessageBox::Critical;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons ButtonsOf(Buttons buttons) {
    switch (buttons) {
    case Buttons::OkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case Buttons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case Buttons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

QMessageBox::StandardButton ButtonOf(Answer answer) {
    switch (answer) {
    case Answer::Cancel:
        return QMessageBox::Cancel;
    case Answer::Yes:
        return QMessageBox::Yes;
    case Answer::No:
        return QMessageBox::No;
    case Answer::Ok:
        break;
    }
    return QMessageBox::Ok;
}

/// A pointer that says "wait" must not stand over a question.
class PlainPointer {
public:
    PlainPointer() : set_(QGuiApplication::overrideCursor() != nullptr) {
        if (set_)
            QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~PlainPointer() {
        if (set_)
            QGuiApplication::restoreOverrideCursor();
    }
    PlainPointer(const PlainPointer&) = delete;
    PlainPointer& operator=(const PlainPointer&) = delete;

private:
    const bool set_;
};

/// A box is as wide as its text; a title may be longer.
void ShowWholeTitle(QMessageBox& box) {
    constexpr int kTitleButtons = 120; // what a window manager puts beside a title, pixels
    auto* const grid = qobject_cast<QGridLayout*>(box.layout());
    if (grid == nullptr)
        return;
    QFont bold = box.font();
    bold.setBold(true);
    const int width = QFontMetrics(bold).horizontalAdvance(box.windowTitle()) + kTitleButtons;
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

Answer ShowBox(const MessageBox& box) {
    Binder::PushAll(); // what the handler has written so far is seen behind the box
    const PlainPointer pointer;
    const QString text = ToQt(box.text).remove(u'\r');
    const QString title = ToQt(box.title).remove(u'\r').replace(u'\n', u' ');
    QMessageBox shown(IconOf(box.icon), title, text, ButtonsOf(box.buttons),
                      QApplication::activeWindow());
    ShowWholeTitle(shown);
    shown.setTextFormat(Qt::PlainText); // the texts hold "<" and "<=>"
    shown.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    if (QAbstractButton* const preset = shown.button(ButtonOf(box.preset)))
        shown.setDefaultButton(static_cast<QPushButton*>(preset));
    if (auto* const first = shown.defaultButton())
        first->setFocus(); // not the text, which can be selected
    if (box.buttons == Buttons::Ok)
        shown.setEscapeButton(QMessageBox::Ok);
    auto* const copy = new QShortcut(QKeySequence::Copy, &shown);
    QObject::connect(copy, &QShortcut::activated, &shown, [&] {
        const auto* const label = shown.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
        const bool marked = label != nullptr && label->hasSelectedText();
        QGuiApplication::clipboard()->setText(
            marked ? label->selectedText() : shown.windowTitle() + QStringLiteral("\n\n") + text);
    });
    switch (shown.exec()) {
    case QMessageBox::Ok:
        return Answer::Ok;
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return box.buttons == Buttons::Ok      ? Answer::Ok
               : box.buttons == Buttons::YesNo ? Answer::No
                                               : Answer::Cancel;
    }
}

/// "*.TXT *.txt": files of other systems have either case here.
QString BothCases(const QString& pattern) {
    const QString lower = pattern.toLower(), upper = pattern.toUpper();
    return lower == upper ? pattern : upper + QStringLiteral(" ") + lower;
}

std::optional<FileChoice> ChooseFile(const FileRequest& request) {
    Binder::PushAll();
    const PlainPointer pointer;
    QFileDialog dialog(QApplication::activeWindow(), ToQt(request.title), ToQt(request.directory));
    dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(request.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !request.overwritePrompt);
    QStringList filters;
    for (const auto& [description, pattern] : request.filters) {
        const QString plain = ToQt(description).section(u'(', 0, 0).trimmed();
        filters << plain + QStringLiteral(" (") + BothCases(ToQt(pattern)) + QStringLiteral(")");
    }
    if (!filters.isEmpty())
        dialog.setNameFilters(filters);
    if (!request.extension.empty())
        dialog.setDefaultSuffix(ToQt(request.extension).remove(u'.'));
    if (!request.name.empty())
        dialog.selectFile(ToQt(request.name));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const auto filter = filters.indexOf(dialog.selectedNameFilter());
    return FileChoice{.path = FromQt(dialog.selectedFiles().constFirst()),
                      .filter = static_cast<int>(std::max<qsizetype>(filter, 0))};
}

std::optional<std::uint32_t> ChooseColour(std::uint32_t present) {
    const PlainPointer pointer;
    const QColor chosen =
        QColorDialog::getColor(QColor::fromRgb(present), QApplication::activeWindow());
    if (!chosen.isValid())
        return std::nullopt;
    return chosen.rgb() & 0xFFFFFFU;
}

std::optional<FontChoice> ChooseFont(const FontChoice& present) {
    const PlainPointer pointer;
    QFont font = ToFont(present, 1); // the family that is drawn
    font.setPointSizeF(present.size);
    bool chosen = false;
    font = QFontDialog::getFont(&chosen, font, QApplication::activeWindow());
    if (!chosen)
        return std::nullopt;
    return FontChoice{.family = FromQt(ClassicFontName(font)),
                      .size = font.pointSizeF(),
                      .bold = font.bold(),
                      .italic = font.italic()};
}

bool PrintText(const std::string& text, const std::string& title) {
    const PlainPointer pointer;
    return PrintTextOnPages(ToQt(text), ToQt(title));
}

double SecondsSinceMidnight() {
    return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

std::string DateAndTime() {
    return FromQt(QLocale::system().toString(QDateTime::currentDateTime(), QLocale::ShortFormat));
}

std::string FileDate(const std::string& path) {
    const QFileInfo file(ToQt(path));
    return file.exists()
               ? FromQt(QLocale::system().toString(file.lastModified(), QLocale::ShortFormat))
               : std::string();
}

} // namespace

void InstallQtHost() {
    Host& h = host();
    h.messageBox = ShowBox;
    h.chooseFile = ChooseFile;
    h.chooseColour = ChooseColour;
    h.chooseFont = ChooseFont;
    h.setClipboardText = [](const std::string& text) {
        QGuiApplication::clipboard()->setText(ToQt(text));
    };
    h.clipboardText = []() -> std::optional<std::string> {
        const QMimeData* const held = QGuiApplication::clipboard()->mimeData();
        if (held == nullptr || !held->hasText())
            return std::nullopt;
        return FromQt(held->text());
    };
    h.printText = PrintText;
    h.serviceEvents = [] {
        Binder::PushAll(); // what a handler has locked is locked before anything can be pressed
        QCoreApplication::processEvents();
    };
    h.beep = [] { QApplication::beep(); };
    h.waitPointer = [](bool on) {
        if (on)
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QGuiApplication::restoreOverrideCursor();
    };
    h.startProgram = [](const std::string& path) {
        return QProcess::startDetached(ToQt(path), {}, QFileInfo(ToQt(path)).absolutePath());
    };
    h.clockSeconds = SecondsSinceMidnight;
    h.dateAndTime = DateAndTime;
    h.fileDate = FileDate;
    h.decimalComma = [] { return QLocale::system().decimalPoint() == QStringLiteral(","); };
    h.quit = [] { QCoreApplication::quit(); };
    h.programDirectory = FromQt(QCoreApplication::applicationDirPath());
}

} // namespace zorvant
