// What the six calculation dialogs share, so that the model dialog and the change of the time unit
// write to "the open calculation dialog" without knowing which it is.
#pragma once

#include "dialogs/common/numeric_field.h"
#include "dialogs/common/workspace.h"
#include "engine/input_rules.h"
#include "engine/modes.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace zorvant {

struct CalcDialog : Form {
    CalcDialog(Workspace& state, std::string formName, std::string formCaption, CalcTask dialogId);

    Workspace& ps;
    const CalcTask id;

    Label Label7{*this, "Label7"};         ///< the model
    Array<TextField, 5> Inp{*this, "Inp"}; ///< c0 by slot less 1
    Array<Label, 5> lblStoff{*this, "lblStoff"};
    Array<Label, 3, 5> Bz{*this, "Bz"}; ///< captions of k1..k3
    Label unit1{*this, "unit1"}, unit2{*this, "unit2"}, unit3{*this, "unit3"};
    Button cmdReset_k{*this, "cmdReset_k", "Set default values"};
    CheckBox chkDelDiagram{*this, "chkDelDiagram"};
    CheckBox chkSpecialScaling{*this, "chkSpecialScaling"};
    OptionGroup optSpecialScaling{*this, "optSpecialScaling", {"A", "B", "C", "P", "Q"}};

    /// [1..3] the fields of k1..k3; nullptr where there is none.
    std::array<Control*, 4> kFields{};
    /// The fields of further quantities, for the focus after a refusal.
    std::vector<std::pair<InputField, Control*>> otherFields;
    FieldWalk concentrationWalk;

    /// A dialog's own part of a model change; runs last.
    Handler onInit;
    /// What depends on results goes back to nothing.
    Handler onResetResults;
    /// Times and other quantities of the state into the fields; constants are there already.
    Handler onShowParameters;
    /// Captions with the time unit beside those of the constants.
    Handler onShowUnits;
};

/// The open calculation dialog, nullptr when none is.
CalcDialog* WhichCalcDialog(const Workspace& ps);
/// What it computes.
CalcTask OpenCalculation(const Workspace& ps);

// --- steps of a constructor
/// Initial concentrations: numeric, Enter leads through them.
void WireConcentrations(CalcDialog& dialog);
/// Added curves and scaling by one species, and the button for default constants.
void WireScaling(CalcDialog& dialog);
void WireDefaults(CalcDialog& dialog);

// --- on loading and activating
/// Shows what the state has of the scaling.
void ShowScaling(CalcDialog& dialog);
/// Curves are added only to an open diagram that has some; the scaling is fixed meanwhile. Runs
/// before each showing too.
void RefreshScaling(CalcDialog& dialog);
void ShowConstants(CalcDialog& dialog);
/// Puts the selected model into the dialog: species, captions, units, values.
void AdaptToModel(CalcDialog& dialog);

// --- on calculating
void ReadConcentrations(CalcDialog& dialog);
/// Holds the input against the rules of a task. What fails is told in one box, an order that is
/// none goes back to its default, and the first field at fault gets the focus.
/// Returned: whether there was something to refuse
bool RefusesInput(CalcDialog& dialog, InputTask task, const GivenInput& input);

} // namespace zorvant
