// A text of lines and tabs on paper: no line is broken, columns stand below each other, the heading
// is on every page.
#pragma once

#include <QSizeF>
#include <QStringList>

namespace zorvant {

struct TextPages {
    bool landscape = false;
    double points = 0;        ///< size of the type
    QList<QStringList> pages; ///< lines; the heading with an empty line behind it comes first
};

/// Given: text   lines with columns parted by tabs; what stands before the first empty line is the
///               heading, unless there is none
///        page   printable area of the upright page, in points
TextPages LayOutPages(const QString& text, const QSizeF& page);

/// Asks for a printer and prints. Returned: whether it was printed.
bool PrintTextOnPages(const QString& text, const QString& title);

} // namespace zorvant
