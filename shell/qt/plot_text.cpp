#include "shell/qt/plot_text.h"

#include <QFontMetricsF>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <utility>

namespace zorvant {
namespace {

/// Fonts that are made smaller than this share are harder to read than a second line.
constexpr double kSmallestShare = 0.85;
constexpr double kShareStep = 0.05;
constexpr double kExponentShare = 0.72;
constexpr QChar kMinus(0x2212), kTimes(0x00B7), kCross(0x00D7);

struct FontName {
    const char* classic;
    const char* ours;
};
/// Free fonts with the same widths.
constexpr std::array<FontName, 3> kFontNames{{{"Arial", "Liberation Sans"},
                                              {"Courier New", "Liberation Mono"},
                                              {"Times New Roman", "Liberation Serif"}}};

double WidestLine(const QStringList& lines, const QFont& font) {
    double widest = 0;
    for (const QString& line : lines)
        widest = std::max(widest, TextWidth(line, font));
    return widest;
}

/// Breaks a line between words; a word that is wider than the line keeps a line of its own.
QStringList BreakLine(const QString& line, const QFontMetricsF& metrics, double maxWidth) {
    QStringList broken;
    QString current;
    for (const QString& word : line.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QString longer =
            current.isEmpty() ? word : QString(current + QLatin1Char(' ') + word);
        if (!current.isEmpty() && metrics.horizontalAdvance(longer) > maxWidth) {
            broken.append(current);
            current = word;
        } else {
            current = longer;
        }
    }
    broken.append(current);
    return broken;
}

} // namespace

QColor ToColour(Colour colour, Colour ofStyle) {
    return QColor::fromRgb(colour == kStyleColour ? ofStyle : colour);
}

QFont ToFont(const FontChoice& choice, double pixelsPerPoint) {
    const QString name = QString::fromStdString(choice.family);
    // The toolkit writes names into pictures as they are; one with markup is no font's.
    static const QRegularExpression kNoName(QStringLiteral("[<>&\"\\x00-\\x1F]"));
    QString family =
        name.isEmpty() || name.contains(kNoName) ? QLatin1String(kFontNames[0].ours) : name;
    for (const FontName& font : kFontNames)
        if (name.compare(QLatin1String(font.classic), Qt::CaseInsensitive) == 0)
            family = QLatin1String(font.ours);
    QFont font;
    font.setFamilies({family, QLatin1String("DejaVu Sans")});
    font.setPixelSize(std::max(1, qRound(choice.size * pixelsPerPoint)));
    font.setBold(choice.bold);
    font.setItalic(choice.italic);
    // No colour fringes: pictures are printed and looked at enlarged.
    font.setStyleStrategy(
        static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QString ClassicFontName(const QFont& font) {
    const QString family = font.families().value(0, font.family());
    for (const FontName& name : kFontNames)
        if (family == QLatin1String(name.ours))
            return QLatin1String(name.classic);
    return family;
}

QFont ExponentFont(const QFont& font) {
    QFont raised = font;
    raised.setPixelSize(std::max(1, qRound(font.pixelSize() * kExponentShare)));
    return raised;
}

double TextWidth(const QString& text, const QFont& font) {
    constexpr qsizetype kMostKept = 4096;
    static QHash<std::pair<QFont, QString>, double> kept;
    const std::pair<QFont, QString> key(font, text);
    if (const auto found = kept.constFind(key); found != kept.cend())
        return *found;
    if (kept.size() >= kMostKept)
        kept.clear();
    return *kept.insert(key, QFontMetricsF(font).horizontalAdvance(text));
}

QSizeF MeasureText(const TextBox& box) {
    const QFontMetricsF metrics(box.font);
    double width = WidestLine(box.lines, box.font);
    const auto lines = static_cast<double>(std::max<qsizetype>(box.lines.size(), 1));
    double height = metrics.height() + (lines - 1) * metrics.lineSpacing();
    if (!box.exponent.isEmpty())
        width += TextWidth(box.exponent, ExponentFont(box.font));
    return box.vertical ? QSizeF(height, width) : QSizeF(width, height);
}

TextBox FitText(const std::string& utf8, const QFont& font, double maxWidth) {
    QString text = QString::fromStdString(utf8);
    text.remove(QLatin1Char('\r'));
    TextBox box;
    box.font = font;
    box.lines = text.split(QLatin1Char('\n'));
    for (QString& line : box.lines)
        line = line.trimmed();
    double share = 1;
    while (WidestLine(box.lines, box.font) > maxWidth && share > kSmallestShare) {
        share -= kShareStep;
        box.font.setPixelSize(std::max(1, qRound(font.pixelSize() * share)));
    }
    if (WidestLine(box.lines, box.font) > maxWidth) {
        const QFontMetricsF metrics(box.font);
        QStringList broken;
        for (const QString& line : std::as_const(box.lines))
            broken += BreakLine(line, metrics, maxWidth);
        box.lines = broken;
    }
    box.rect = QRectF(QPointF(0, 0), MeasureText(box));
    return box;
}

TextBox FactorText(int power, const QFont& font) {
    TextBox box;
    box.font = font;
    box.lines = {QString(kCross) + QStringLiteral("10")};
    box.exponent = QString::number(power).replace(QLatin1Char('-'), kMinus);
    box.rect = QRectF(QPointF(0, 0), MeasureText(box));
    return box;
}

TextBox NumberText(const std::string& markText, const QFont& font) {
    QString text = QString::fromStdString(markText).trimmed();
    TextBox box;
    box.font = font;
    const qsizetype e = text.indexOf(QLatin1Char('E'), 0, Qt::CaseInsensitive);
    if (e > 0) {
        box.exponent = QString::number(text.mid(e + 1).toInt());
        box.exponent.replace(QLatin1Char('-'), kMinus);
        text.truncate(e);
        text = text == QLatin1String("1") ? QString(QStringLiteral("10"))
                                          : QString(text + kTimes + QStringLiteral("10"));
    }
    text.replace(QLatin1Char('-'), kMinus);
    box.lines = {text};
    box.rect = QRectF(QPointF(0, 0), MeasureText(box));
    return box;
}

} // namespace zorvant
