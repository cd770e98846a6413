// Someone at one of the editors of lists.
#pragma once

#include "dialogs/data/frm_datedit.h"
#include "dialogs/data/frm_zxy_editor.h"
#include "tests/dialogs/workbench.h"
#include "tests/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvant {

enum class ListKind { Data, Pairs };

struct ListUser {
    explicit ListUser(ListKind kind)
        : list(kind == ListKind::Data ? static_cast<ListEditor&>(data) : points) {
        bench.ps.desktop.forms.push_back(&list);
        ps.DataDir = ps.XYDir = folder.Path();
    }
    /// Types into the boxes one after the other and takes the line over.
    void TypeLine(const std::vector<std::string>& values) {
        for (std::size_t box = 0; box < values.size(); ++box)
            bench.Retype(*list.boxes[box], values[box]);
        Press(list.OKinput);
    }
    void Select(int firstRow, int lastRow, int firstColumn = 0, int lastColumn = 10) {
        list.Grid.row = firstRow;
        list.Grid.column = firstColumn;
        list.Grid.selection = {firstRow, firstColumn, lastRow, lastColumn};
        list.Grid.onSelect();
    }
    /// Returned: what the handler made of the key.
    int Key(int key, int column = 2) {
        list.Grid.onKeyPress(list.Grid.row, column, key);
        return key;
    }
    void Paste(const std::string& text) {
        bench.host.clipboard = text;
        Key(kKeyPaste);
    }
    void Edit(std::size_t row, std::size_t column, const std::string& text) {
        list.Grid.cells.at(row).at(column) = text;
        list.Grid.onEdit(static_cast<int>(row), static_cast<int>(column));
    }
    const std::string& Cell(std::size_t row, std::size_t column) const {
        return list.Grid.cells.at(row).at(column);
    }
    const MessageBox& Box() const { return bench.host.boxes.back(); }

    TempFolder folder;
    Workbench bench;
    Workspace& ps = bench.ps;
    frmDatedit data{ps, bench.diagram};
    frmZXYEditor points{ps, bench.diagram};
    ListEditor& list;
};

} // namespace zorvant
