#include "shell/qt/text_pages.h"

#include <QtPrintSupport>
#include <QtWidgets>

#include <algorithm>

namespace zorvant {
namespace {

constexpr double kWantedPoints = 10, kSmallPoints = 8, kLeastPoints = 4;
constexpr int kGap = 2; ///< characters between columns

QFont PrintFont(double points) {
    QFont font(QStringLiteral("Courier New"));
    font.setStyleHint(QFont::Monospace);
    font.setPointSizeF(points);
    return font;
}

QString WithoutBlanksBehind(QString text) {
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

/// The lines with blanks in place of tabs, so that columns stand below each other.
QStringList InColumns(const QStringList& lines) {
    QList<qsizetype> widths;
    for (const QString& line : lines) {
        const QStringList cells = line.split(u'\t');
        for (qsizetype i = 0; i < cells.size(); ++i) {
            if (i == widths.size())
                widths.append(0);
            widths[i] = std::max(widths[i], WithoutBlanksBehind(cells[i]).size() + kGap);
        }
    }
    QStringList aligned;
    for (const QString& line : lines) {
        const QStringList cells = line.split(u'\t');
        QString text;
        for (qsizetype i = 0; i < cells.size(); ++i)
            text += WithoutBlanksBehind(cells[i]).leftJustified(widths[i]);
        aligned.append(WithoutBlanksBehind(text));
    }
    return aligned;
}

/// Upright and large while it fits, then smaller, then across, then as small as it takes.
void ChooseType(TextPages& pages, double widthPerPoint, const QSizeF& page) {
    const double upright = page.width() / widthPerPoint, across = page.height() / widthPerPoint;
    pages.landscape = upright < kSmallPoints;
    pages.points = std::clamp(pages.landscape ? across : upright, kLeastPoints, kWantedPoints);
}

} // namespace

TextPages LayOutPages(const QString& text, const QSizeF& page) {
    QString plain = text;
    plain.remove(u'\r');
    while (plain.endsWith(u'\n'))
        plain.chop(1);
    const QStringList lines = InColumns(plain.split(u'\n'));
    qsizetype widest = 1;
    for (const QString& line : lines)
        widest = std::max(widest, line.size());

    TextPages result;
    const QFontMetricsF metrics(PrintFont(100));
    const double pixelsPerPoint = QFontInfo(PrintFont(100)).pixelSize() / 100.0;
    const double perPoint = 1 / pixelsPerPoint / 100;
    ChooseType(result, metrics.horizontalAdvance(u'0') * perPoint * static_cast<double>(widest),
               page);
    const double height = result.landscape ? page.width() : page.height();
    const double lineHeight = metrics.lineSpacing() * perPoint * result.points;

    const qsizetype empty = lines.indexOf(QString());
    const QStringList head = empty > 0 ? lines.first(empty + 1) : QStringList();
    const auto room =
        std::max<qsizetype>(static_cast<qsizetype>(height / lineHeight) - head.size(), 1);
    for (qsizetype first = head.size(); first < lines.size() || result.pages.isEmpty();
         first += room)
        result.pages.append(head + lines.mid(first, room));
    return result;
}

bool PrintTextOnPages(const QString& text, const QString& title) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title);
    QPrintDialog dialog(&printer, QApplication::activeWindow());
    if (dialog.exec() != QDialog::Accepted)
        return false;
    QPageLayout upright = printer.pageLayout();
    upright.setOrientation(QPageLayout::Portrait);
    const TextPages pages = LayOutPages(text, upright.paintRect(QPageLayout::Point).size());
    printer.setPageOrientation(pages.landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    QPainter painter(&printer);
    painter.setFont(PrintFont(pages.points));
    const double lineHeight = painter.fontMetrics().lineSpacing();
    for (qsizetype page = 0; page < pages.pages.size(); ++page) {
        if (page > 0)
            printer.newPage();
        double y = painter.fontMetrics().ascent();
        for (const QString& line : pages.pages[page]) {
            painter.drawText(QPointF(0, y), line);
            y += lineHeight;
        }
    }
    return true;
}

} // namespace zorvant
