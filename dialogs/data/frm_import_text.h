// Import of measured values from a text file: a preview of the text and of what is read from it,
// with separator, decimal sign, lines to skip and the column for each field.
#pragma once

#include "data/exp_columns.h"
#include "data/formats/table_text.h"
#include "dialogs/data/frm_datedit.h"

#include <string>

namespace zorvant {

struct frmImportText : Form {
    frmImportText(Workspace& state, frmDatedit& dataEditor);

    Workspace& ps;
    frmDatedit& editor;

    Label lblFile{*this, "lblFile"};
    Button cmdFile{*this, "cmdFile", "Other file ..."};
    Label lblSep{*this, "lblSep", "Separator"};
    ComboBox cmbSep{*this, "cmbSep"};
    Label lblDecimal{*this, "lblDecimal", "Decimal sign"};
    ComboBox cmbDecimal{*this, "cmbDecimal"};
    Label lblSkip{*this, "lblSkip", "Lines to skip"};
    UpDown updSkip{*this, "updSkip"};
    Label lblDoubt{*this, "lblDoubt"}; ///< what can be read in two ways

    Frame fraText{*this, "fraText", " Text "};
    zorvant::Grid Grid{*this, "Grid"}; ///< the first lines as they stand in the file
    Frame fraFields{*this, "fraFields", " Columns "};
    Array<Label, kExpColumns> lblField{*this, "lblField"};
    Array<ComboBox, kExpColumns> cmbField{*this, "cmbField"}; ///< entry 0: not in the file
    Frame fraRead{*this, "fraRead", " Will be read as "};
    zorvant::Grid GridRead{*this, "GridRead"};
    Label lblCount{*this, "lblCount"};

    OptionGroup optTarget{*this, "optTarget", {"replace the list", "append to the list"}};
    Button cmdOK{*this, "cmdOK", "Import"};
    Button cmdCancel{*this, "cmdCancel", "Cancel <Esc>"};

    std::string pasted; ///< to be read at the next load
    std::string path;   ///< to be read at the next load; empty: the dialog asks
    std::string text;   ///< of the file
    TableGuess guess;   ///< of the text
    TableNumbers numbers;
    bool corrected = false; ///< the user has chosen separator or decimal sign
};

/// Reads a file and shows it. Returned: false when it can't be read (a box told).
bool TakeFile(frmImportText& form, const std::string& path);
/// Shows a text.
/// Given: title, toolTip: where it comes from
void TakeText(frmImportText& form, const std::string& text, const std::string& title,
              const std::string& toolTip);
/// The layout that the controls show.
TableLayout LayoutOf(const frmImportText& form);
/// Reads the text anew by the controls and shows the result.
void ShowReading(frmImportText& form);
void cmdOK_Click(frmImportText& form);

} // namespace zorvant
