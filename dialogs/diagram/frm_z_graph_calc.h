// The single point calculator: the concentrations of the model at one x of the diagram.
#pragma once

#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

struct frmZGraphCalc : Form {
    frmZGraphCalc(Workspace& state, DiagramDocument& document);

    Workspace& ps;
    DiagramDocument& diagram;

    Label lblXEingabe{*this, "lblXEingabe", "time specific. t ="};
    TextField txtX{*this, "txtX", " 0"};
    Label lblZeit{*this, "lblZeit"};
    Array<Label, kSpecies> lblRes{*this, "lblRes"};       ///< names
    Array<Label, kSpecies> lblResult{*this, "lblResult"}; ///< values
    Button cmdGraphCalcExec{*this, "cmdGraphCalcExec", "&Calculate"};
    Button cmdCloseGraphCalc{*this, "cmdCloseGraphCalc", "Close  <Esc>"};
};

/// The place over the right part of the diagram; names and unit by the kind of diagram.
void Form_Load(frmZGraphCalc& form);
/// Enter calculates, anything else passes the filter of numeric fields.
void txtX_KeyPress(frmZGraphCalc& form, int& key);
/// Shows the values at x, nothing where the model has none; a beep for an x outside the diagram,
/// and the results stay.
void cmdGraphCalcExec_Click(frmZGraphCalc& form);

} // namespace zorvant
