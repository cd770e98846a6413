#include "shell/qt/qt_text.h"

#include <QTextDocument>

namespace zorvant {

QString ToQtLines(std::string_view utf8) {
    return ToQt(utf8).remove(u'\r');
}

std::string FromQtLines(QString text) {
    return FromQt(text.replace(u'\n', QStringLiteral("\r\n")));
}

QString WithMnemonic(std::string_view utf8) {
    QString text = ToQt(utf8);
    for (qsizetype i = text.indexOf(u'&'); i >= 0; i = text.indexOf(u'&', i)) {
        const bool marks = i + 1 < text.size() && text.at(i + 1).isLetterOrNumber();
        if (!marks)
            text.insert(i, u'&');
        i += marks ? 1 : 2;
    }
    return text;
}

QString WithoutMnemonic(std::string_view utf8) {
    return ToQt(utf8).replace(u'&', QStringLiteral("&&"));
}

QString PlainTip(std::string_view utf8) {
    const QString text = ToQt(utf8).trimmed();
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

} // namespace zorvant
