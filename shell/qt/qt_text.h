// Texts between the program's records (UTF-8) and the toolkit.
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace zorvant {

inline QString ToQt(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}
inline std::string FromQt(const QString& text) {
    return text.toStdString();
}

/// Lines in records end in CR LF, in widgets in LF.
QString ToQtLines(std::string_view utf8);
std::string FromQtLines(QString text);

/// Text for a control that takes an "&" as the mark of its shortcut letter: an "&" before a letter
/// or digit is one, every other is shown as it stands.
QString WithMnemonic(std::string_view utf8);
/// Text in which every "&" is shown as it stands.
QString WithoutMnemonic(std::string_view utf8);
/// A tip that the toolkit shows as plain text, whatever "<" it holds; blanks around it are cut.
QString PlainTip(std::string_view utf8);

} // namespace zorvant
