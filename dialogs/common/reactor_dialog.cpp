#include "dialogs/common/reactor_dialog.h"

#include "engine/reaction_catalogue.h"
#include "platform/number_text.h"

#include <algorithm>

namespace zorvant {
namespace {

/// Some models have two extents, told apart by the reactions of the matrix.
constexpr const char* kExtentsTip = "... both to the right => ";

void ResetResults(ReactorDialog& dialog) {
    const Workspace& ps = dialog.ps;
    const GivenInput shown = InputShownFor(ps);
    for (int slot = 1; slot <= kSpecies; ++slot) {
        TextField& result = dialog.Inp(slot + 4);
        Label& caption = dialog.lblStoffResults(slot + 4);
        result.text.clear();
        result.locked = true;
        result.visible = caption.visible = shown.species[static_cast<std::size_t>(slot)];
        caption.text = SpeciesName(ps.ModelId, slot);
    }
    dialog.fraKsi.visible = false;
    dialog.cmdShowKsi.enabled = dialog.cmdDiagram.enabled = false;
    const char* const tip = Model(ps.ModelId).singleReaction ? "" : kExtentsTip;
    dialog.cmdShowKsi.toolTip = dialog.fraKsi.toolTip = dialog.lblTextKsi_1.toolTip =
        dialog.lblTextKsi_2.toolTip = tip;
}

void ShowExtents(ReactorDialog& dialog) {
    const Workspace& ps = dialog.ps;
    dialog.fraKsi.visible = true;
    dialog.lblTextKsi_1.text = "ksi(1)/(mol/L) = " + GeneralText(ps.Ksi[1]);
    dialog.lblTextKsi_2.text = "ksi(2)/(mol/L) = " + GeneralText(ps.Ksi[2]);
    dialog.lblTextKsi_2.visible = !Model(ps.ModelId).singleReaction;
}

void ShowUnits(ReactorDialog& dialog) {
    const std::string unit = Trim(dialog.ps.TimeUnitText);
    dialog.lblZeitEinheit.text = unit;
    dialog.lblVPunktInput.text = "V* /(m^3/" + unit + ")";
}

} // namespace

ReactorDialog::ReactorDialog(Workspace& state, std::string formName, std::string formCaption,
                             CalcTask dialogId)
    : CalcDialog(state, std::move(formName), std::move(formCaption), dialogId) {
    kFields = {nullptr, &Inp(10), &Inp(11), &Inp(12)};
    cmdDiagram.enabled = cmdShowKsi.enabled = cmdProtocol.enabled = false;
    fraKsi.visible = false;
    onResetResults = [this] { ResetResults(*this); };
    onShowUnits = [this] { ShowUnits(*this); };
}

void WireFields(ReactorDialog& dialog, std::function<void(int field, double value)> take) {
    for (int i = 0; i <= 16; ++i) {
        if (i >= 5 && i < 10)
            continue; // results
        MakeNumeric(dialog.Inp(i), &dialog.walk, [&dialog, i, take](double value) {
            ResetResults(dialog);
            if (dialog.onInit)
                dialog.onInit();
            if (i >= 13)
                take(i, value);
            else if (i >= 10)
                dialog.ps.k[static_cast<std::size_t>(i - 9)] = value;
            else
                dialog.ps.c0[static_cast<std::size_t>(i + 1)] = value;
        });
    }
}

void OpenFields(ReactorDialog& dialog, std::initializer_list<int> given) {
    for (int i = 13; i <= 16; ++i) {
        const bool open = std::ranges::find(given, i) != given.end();
        dialog.Inp(i).locked = !open;
        dialog.Inp(i).backColour = open ? kStyleColour : kPaleYellow;
    }
}

void WireExtents(ReactorDialog& dialog) {
    dialog.cmdShowKsi.onClick = [&dialog] { ShowExtents(dialog); };
    dialog.cmdCloseKsi.onClick = [&dialog] { dialog.fraKsi.visible = false; };
}

void ShowResults(ReactorDialog& dialog) {
    for (int slot = 1; slot <= kSpecies; ++slot)
        dialog.Inp(slot + 4).text = GeneralText(dialog.ps.cEnd[static_cast<std::size_t>(slot)]);
    dialog.cmdShowKsi.enabled = dialog.cmdDiagram.enabled = true;
    if (dialog.firstResult)
        dialog.cmdProtocol.enabled = true;
    dialog.firstResult = false;
}

} // namespace zorvant
