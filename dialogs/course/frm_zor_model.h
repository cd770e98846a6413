// The model dialog: stays open beside every calculation dialog, and whatever is chosen in it takes
// effect at once in the state and in the open dialog. Beside it the matrix dialog.
#pragma once

#include "dialogs/common/workspace.h"

namespace zorvant {

struct frmZorModel : Form {
    explicit frmZorModel(Workspace& state);

    Workspace& ps;

    Frame fraSimple{*this, "fraSimple", "Simple reactions"};
    Frame fraComplex{*this, "fraComplex", "Complex reactions"};
    OptionGroup optTyp; ///< index = model, 0 = model 20
    /// Schemes beside the options whose captions name only the kind of reaction.
    Label lbl7{*this, "lbl7", "A + B => C          A + C => P"};
    Label lbl10{*this, "lbl10", "E  + S <=> ES => P + E "};
    Label lbl13{*this, "lbl13", "A + B => C <=> P"};
    Label Label3{*this, "Label3", "A => C <=> P"}; ///< 14
    Label Label2{*this, "Label2", "A<=>C=>P"};     ///< 15
    Label lbl18{*this, "lbl18", "A + B <=> C => P "};
    TextField txtOrdnung{*this, "txtOrdnung"};
    Label lblOrdnung{*this, "lblOrdnung", "n ="};
    Label lblOrdnungHint{*this, "lblOrdnungHint", "( n >  0 )"};
    Frame fraZeit{*this, "fraZeit", "Time unit"};
    OptionGroup optZeit{*this, "optZeit", {"s", "min", "h", "d", "a"}};
    Label lblZeitHint1{*this, "lblZeitHint1", "(remains in effect in the whole ZORVANT program)"};
    Label lblZeitHint2{*this, "lblZeitHint2",
                       "... causes conversion of a all time values and rate constants "};
    OptionGroup optMichMent{*this, "optMichMent", {"r(P)-c(S) evaluation", "c-t evaluation"}};
    Button cmdShowMatrix{*this, "cmdShowMatrix", "Show stoichiometric matrix"};
};

/// Selects a model by its option; also called by whoever else changes the model.
void optTyp_Click(frmZorModel& form, int index);
void optZeit_Click(frmZorModel& form, int index);
void optMichMent_Click(frmZorModel& form);

struct frmmatrix : Form {
    explicit frmmatrix(Workspace& state);

    Workspace& ps;

    Label lblModel{*this, "lblModel"};
    Array<Label, 3, 1> lblHead{*this, "lblHead"}; ///< the reactions
    Label lblA{*this, "lblA"}, lblB{*this, "lblB"}, lblC{*this, "lblC"}, lblP{*this, "lblP"},
        lblQ{*this, "lblQ"};
    /// Coefficient of species slot s in reaction r: 3 (s - 1) + r.
    Array<Label, 15, 1> lblCell{*this, "lblCell"};
    Button cmdClose{*this, "cmdClose", "Close  <Esc>"};
    Button cmdHelp{*this, "cmdHelp", "Help"};
};

} // namespace zorvant
