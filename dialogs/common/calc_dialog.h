// What the six calculation dialogs have in common, so that the model dialog and the change of the
// time unit write to "the open calculation dialog" without knowing which it is.
#pragma once

#include "dialogs/common/workspace.h"
#include "engine/modes.h"

#include <string>

namespace zorvant {

struct CalcDialog : Form {
    CalcDialog(std::string formName, std::string formCaption, CalcTask dialogId);

    const CalcTask id;
    bool IsReactor() const;

    /// 0..4 c0 by slot less 1, 5..9 results, 10..12 k1..k3, 13..16 by dialog.
    Array<TextField, 17> Inp{*this, "Inp"};
    Array<Label, 10> lblStoff{*this, "lblStoff"};
    Array<Label, 3, 5> Bz{*this, "Bz"}; ///< captions of k1..k3
    Label unit1{*this, "unit1"}, unit2{*this, "unit2"}, unit3{*this, "unit3"};
    Label Label7{*this, "Label7"}; ///< the model
    Label lblZeitEinheit{*this, "lblZeitEinheit"};
    CheckBox chkDelDiagram{*this, "chkDelDiagram"};
    CheckBox chkSpecialScaling{*this, "chkSpecialScaling"};
    OptionGroup optSpecialScaling{*this, "optSpecialScaling", {"A", "B", "C", "P", "Q"}};
    Button cmdReset_k{*this, "cmdReset_k", "Set default values"};
    Frame fraKsi{*this, "fraKsi"};
    Label lblTextKsi_1{*this, "lblTextKsi_1"}, lblTextKsi_2{*this, "lblTextKsi_2"};
    Button cmdShowKsi{*this, "cmdShowKsi"};
    Button cmdDiagram{*this, "cmdDiagram"};

    /// A dialog's own part of a model change: clears results, refreshes its caption.
    Handler onInit;
    /// k1..k3 and times of the state into the fields.
    Handler onShowParameters;
};

/// The open calculation dialog, nullptr when none is.
CalcDialog* WhichCalcDialog(const Workspace& ps);
/// What it computes.
CalcTask OpenCalculation(const Workspace& ps);

} // namespace zorvant
