#include "data/field_separator.h"

namespace zorvant {

int SeparatorEntry(const ProjectState& ps) {
    for (std::size_t i = 0; i < kFieldSeparators.size(); ++i)
        if (ps.CsvSep == kFieldSeparators[i].text)
            return static_cast<int>(i);
    return 0;
}

std::optional<MessageBox> CheckSeparator(const ProjectState& ps) {
    if (ps.CsvSep != "," || !ps.DecimalComma)
        return std::nullopt;
    return MessageBox{"for computer setting \"Germany\" (decimal character = Comma), \r\n"
                      "\"comma\" as delimiter character is not suitable; the clibpoard\r\n"
                      "content will be not Excel-compatible\r\n"
                      "semicolon recommended",
                      "WARNING", Icon::Warning};
}

} // namespace zorvant
