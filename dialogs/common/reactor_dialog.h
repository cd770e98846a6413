// What the four reactor dialogs share beyond the other calculations: results, what is given, the
// extents of reaction, the diagram and the log.
#pragma once

#include "dialogs/common/calc_dialog.h"

namespace zorvant {

struct ReactorDialog : CalcDialog {
    ReactorDialog(Workspace& state, std::string formName, std::string formCaption,
                  CalcTask dialogId);

    /// 0..4 c0, 5..9 results by slot, 10..12 k1..k3, 13..16 what is given, by dialog.
    Array<TextField, 12, 5> InpMore{*this, "Inp"};
    TextField& Inp(int i) { return i < 5 ? CalcDialog::Inp(i) : InpMore(i); }
    Array<Label, 5, 5> lblStoffResults{*this, "lblStoff"};

    Label lblZeitEinheit{*this, "lblZeitEinheit"};
    Label lblVPunktInput{*this, "lblVPunktInput"};
    Frame fraKsi{*this, "fraKsi"};
    Label lblTextKsi_1{*this, "lblTextKsi_1"}, lblTextKsi_2{*this, "lblTextKsi_2"};
    Button cmdShowKsi{*this, "cmdShowKsi", "Show Extent(s) of reaction"};
    Button cmdCloseKsi{*this, "cmdCloseKsi", "Close"};
    Button cmdDiagram{*this, "cmdDiagram", "Diagram"};
    Button cmdProtocol{*this, "cmdProtocol", "Activate result logging"};

    bool firstResult = true; ///< until the first success: only then there is something to log
    FieldWalk walk;          ///< all open fields, in the order of their numbers
};

// --- steps of a constructor
/// Feed, constants and given quantities in one walk. Each typed change empties the results and then
/// hands its number on: constants to the state, field 13..16 to `take`.
void WireFields(ReactorDialog& dialog, std::function<void(int field, double value)> take);
/// Opens the fields of the quantities that are given; the others of 13..16 are locked and pale.
void OpenFields(ReactorDialog& dialog, std::initializer_list<int> given);
/// The panel of the extents.
void WireExtents(ReactorDialog& dialog);

/// Shows c(1..5) of the state and offers diagram, extents and log.
void ShowResults(ReactorDialog& dialog);

} // namespace zorvant
