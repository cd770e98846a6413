// The dialog for courses of the selected model: concentrations or rates against time, as a diagram
// or a table; for the enzyme model also the Michaelis-Menten curve.
#pragma once

#include "dialogs/common/calc_dialog.h"
#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

struct frmPrepareTimeDiagram : CalcDialog {
    frmPrepareTimeDiagram(Workspace& state, DiagramDocument& diagramDocument);

    DiagramDocument& diagram;
    FieldWalk parameterWalk; ///< t(max) and the constants

    Label Label1{*this, "Label1", " conc.  [c(i)(0)] = mol/l"};
    Array<ComboBox, 4> kCombo{*this, "kCombo"}; ///< t(max), k1, k2, k3
    Label lbltMax{*this, "lbltMax", "t(max)"};
    Label unit4{*this, "unit4"};
    Button cmdDrawctDiagram{*this, "cmdDrawctDiagram", "Draw c-t diagram"};
    Button cmdListe{*this, "cmdListe", "Table"};
    CheckBox chkMitPunkten{*this, "chkMitPunkten", "with exper. points"};
    Frame fraMichaelis{*this, "fraMichaelis",
                       " Michaelis-Menten diagram (without using experimental points)"};
    Label lblMichaelisK1{*this, "lblMichaelisK1"}, lblMichaelisK2{*this, "lblMichaelisK2"};
    Button cmdMMdiagram{*this, "cmdMMdiagram", "Diagram  r(P)_=_Fu(c(S)) "};
    Button cmdMichaelisListe{*this, "cmdMichaelisListe", "Table of data"};
    CheckBox chkNormiert{*this, "chkNormiert", "X-axis normalized"};
    Label lblS0max{*this, "lblS0max", "x-Axis: c(S),max/(mol/L) ="};
    TextField txtS0max{*this, "txtS0max"};
    Button cmdClose{*this, "cmdClose", "Close <Esc>"};
};

/// Refreshes captions for the model.
void InitSimulation(frmPrepareTimeDiagram& form);
void cmdDrawctDiagram_Click(frmPrepareTimeDiagram& form);
void cmdListe_Click(frmPrepareTimeDiagram& form);
void cmdMMdiagram_Click(frmPrepareTimeDiagram& form);
void cmdMichaelisListe_Click(frmPrepareTimeDiagram& form);
void chkNormiert_Click(frmPrepareTimeDiagram& form);

} // namespace zorvant
