// Fonts, measures and line breaks of the texts in a diagram's picture.
#pragma once

#include "diagrams/plot_surface.h"

#include <QColor>
#include <QFont>
#include <QLineF>
#include <QRectF>
#include <QStringList>

#include <optional>

namespace zorvant {

QColor ToColour(Colour colour, Colour ofStyle);
/// The font of a choice, in pixels. The names of the classic system fonts stand for the free fonts
/// of the same widths.
QFont ToFont(const FontChoice& choice, double pixelsPerPoint);
/// The other way round: the name of a font in files that other systems read.
QString ClassicFontName(const QFont& font);

/// A text in its box.
struct TextBox {
    QRectF rect; ///< with padding, as it lies on the picture
    QStringList lines;
    QString exponent; ///< stands raised behind the last line
    QFont font;
    QColor fore = Qt::black;
    std::optional<QColor> back = std::nullopt; ///< none: what lies below shows through
    Border border;
    bool vertical = false;                       ///< reads upward
    int number = 0;                              ///< of a label
    std::optional<QLineF> leader = std::nullopt; ///< from a label to its point, when that is far
};

/// The width of one line. The same few texts are measured at each painting, and shaping them takes
/// as long as painting a curve, so widths are kept. For the window's thread alone.
double TextWidth(const QString& text, const QFont& font);
/// Size of a text as it lies on the picture, without padding.
QSizeF MeasureText(const TextBox& box);
QFont ExponentFont(const QFont& font);

/// Takes a text into a box: its own line ends are kept; where it is wider than it may be, the font
/// is made a little smaller, and if that is not enough the lines are broken between words.
/// Returned: a box without place (rect at the origin, as large as the text)
TextBox FitText(const std::string& utf8, const QFont& font, double maxWidth);

/// The number at a mark as people write it: true minus signs, powers of ten with a raised exponent.
TextBox NumberText(const std::string& markText, const QFont& font);
/// The power of ten that the numbers of an axis share.
TextBox FactorText(int power, const QFont& font);

} // namespace zorvant
