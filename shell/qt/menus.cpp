#include "shell/qt/menus.h"

#include "shell/qt/qt_text.h"

#include <QMenu>

namespace zorvant {

void BuildMenuBar(QMenuBar& bar, std::span<const MenuRow> rows) {
    std::vector<QMenu*> open; // open[l]: the menu whose entries have level l + 2
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const MenuRow& row = rows[i];
        const auto depth = static_cast<std::size_t>(row.level) - 1;
        open.resize(std::min(open.size(), depth));
        QWidget& above = open.empty() ? static_cast<QWidget&>(bar) : *open.back();
        const bool hasRowsBelow = i + 1 < rows.size() && rows[i + 1].level > row.level;

        QAction* action = nullptr;
        if (hasRowsBelow) {
            auto* const menu = new QMenu(&above);
            open.push_back(menu);
            action = menu->menuAction();
            above.addAction(action);
        } else {
            action = new QAction(&above);
            above.addAction(action);
        }
        action->setObjectName(row.control);
        action->setMenuRole(QAction::NoRole);
        if (std::string_view(row.caption) == "-")
            action->setSeparator(true);
        else
            action->setText(WithMnemonic(row.caption));
        if (*row.shortcut != '\0')
            action->setShortcut(QKeySequence(QString::fromLatin1(row.shortcut)));
    }
}

} // namespace zorvant
