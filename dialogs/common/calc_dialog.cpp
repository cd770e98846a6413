#include "dialogs/common/calc_dialog.h"

#include "dialogs/common/names.h"
#include "dialogs/common/time_unit_change.h"
#include "engine/reaction_catalogue.h"
#include "platform/host.h"
#include "platform/number_text.h"

#include <algorithm>

namespace zorvant {
namespace {

/// c(P,0) that starts an autocatalysis; taken away again when another model is selected.
constexpr double kSeedOfAutocatalysis = 0.002;
constexpr std::size_t kSlotP = 4;
constexpr const char* kScaleTip = "scaling is fixed while new curves are added";
constexpr const char* kNoCurvesTip = "only while a diagram with curves is open";

void EnableScaling(CalcDialog& dialog) {
    const Workspace& ps = dialog.ps;
    const GivenInput shown = InputShownFor(ps);
    dialog.chkSpecialScaling.enabled = !ps.AddCurves;
    dialog.chkSpecialScaling.disabledTip = kScaleTip;
    for (int slot = 1; slot <= kSpecies; ++slot)
        dialog.optSpecialScaling(slot - 1).enabled = dialog.chkSpecialScaling.checked &&
                                                     !ps.AddCurves &&
                                                     shown.species[static_cast<std::size_t>(slot)];
}

void chkDelDiagram_Click(CalcDialog& dialog) {
    dialog.ps.AddCurves = dialog.chkDelDiagram.checked;
    if (dialog.ps.AddCurves) {
        dialog.chkSpecialScaling.checked = false;
        dialog.ps.ScaleOneSpecies = false;
    }
    EnableScaling(dialog);
}

void chkSpecialScaling_Click(CalcDialog& dialog) {
    dialog.ps.ScaleOneSpecies = dialog.chkSpecialScaling.checked;
    EnableScaling(dialog);
}

/// Nothing reacts without a trace of the product that speeds it up.
void SeedAutocatalysis(CalcDialog& dialog) {
    double& c0P = dialog.ps.c0[kSlotP];
    if (IsAutocatalytic(dialog.ps.ModelId)) {
        if (Val(dialog.Inp(3).text) == 0 && c0P == 0)
            c0P = kSeedOfAutocatalysis;
    } else if (c0P == kSeedOfAutocatalysis) {
        c0P = 0;
    }
}

void ShowSpecies(CalcDialog& dialog) {
    const Workspace& ps = dialog.ps;
    const GivenInput shown = InputShownFor(ps);
    for (int slot = 1; slot <= kSpecies; ++slot) {
        const int i = slot - 1;
        const bool takesPart = shown.species[static_cast<std::size_t>(slot)];
        dialog.Inp(i).visible = dialog.lblStoff(i).visible = takesPart;
        dialog.Inp(i).text = GeneralText(ps.c0[static_cast<std::size_t>(slot)]);
        dialog.lblStoff(i).text = SpeciesName(ps.ModelId, slot);
        dialog.optSpecialScaling(i).visible = takesPart;
        dialog.optSpecialScaling(i).text = SpeciesName(ps.ModelId, slot);
    }
    EnableScaling(dialog);
}

void CaptionConstants(CalcDialog& dialog) {
    const Workspace& ps = dialog.ps;
    const ReactionModel& model = Model(ps.ModelId);
    const GivenInput shown = InputShownFor(ps);
    const std::array<Label*, 4> units{nullptr, &dialog.unit1, &dialog.unit2, &dialog.unit3};
    for (std::size_t j = 1; j <= 3; ++j) {
        Label& caption = dialog.Bz(static_cast<int>(j) + 4);
        caption.text = model.constantCaptions[j];
        if (j == 1)
            continue;
        caption.visible = units[j]->visible = shown.constants[j];
        if (dialog.kFields[j] != nullptr)
            dialog.kFields[j]->visible = shown.constants[j];
    }
    if (ps.FitMode >= kFirstTemperatureMode) {
        dialog.Bz(5).text = "Arrhenius-A";
        dialog.Bz(6).text = "EA";
    } else if (ps.FitMode == kFitOrder) {
        dialog.Bz(6).text = "n";
    }
}

Control* FieldOf(CalcDialog& dialog, InputField quantity) {
    switch (quantity) {
    case InputField::A:
        return &dialog.Inp(0);
    case InputField::B:
        return &dialog.Inp(1);
    case InputField::P:
        return &dialog.Inp(3);
    case InputField::K1:
        return dialog.kFields[1];
    case InputField::K2:
        return dialog.kFields[2];
    case InputField::K3:
        return dialog.kFields[3];
    default:
        break;
    }
    const auto found =
        std::ranges::find(dialog.otherFields, quantity, &std::pair<InputField, Control*>::first);
    return found == dialog.otherFields.end() ? nullptr : found->second;
}

void ResetOrder(CalcDialog& dialog) {
    dialog.ps.OrderN = kDefaultOrder;
    if (Form* model = FindForm(dialog.ps.desktop, name::kModel); model != nullptr && model->loaded)
        model->Find(name::kOrder)->text = GeneralText(static_cast<double>(kDefaultOrder));
    dialog.Label7.text = ModelCaption(dialog.ps);
}

} // namespace

CalcDialog::CalcDialog(Workspace& state, std::string formName, std::string formCaption,
                       CalcTask dialogId)
    : Form(std::move(formName), std::move(formCaption)), ps(state), id(dialogId) {
    // A diagram that opens or closes changes what can be done with its curves.
    onRefresh = [this] { RefreshScaling(*this); };
}

CalcDialog* WhichCalcDialog(const Workspace& ps) {
    CalcDialog* found = nullptr;
    for (Form* form : ps.desktop.forms) {
        auto* dialog = dynamic_cast<CalcDialog*>(form);
        if (dialog == nullptr || !dialog->loaded || dialog->id == CalcTask::None)
            continue;
        if (found == nullptr || dialog->id < found->id)
            found = dialog;
    }
    return found;
}

CalcTask OpenCalculation(const Workspace& ps) {
    const CalcDialog* const open = WhichCalcDialog(ps);
    return open == nullptr ? CalcTask::None : open->id;
}

void WireConcentrations(CalcDialog& dialog) {
    for (std::size_t slot = 1; slot <= kSpecies; ++slot)
        MakeNumeric(dialog.Inp(static_cast<int>(slot) - 1), &dialog.concentrationWalk,
                    [&dialog, slot](double c) { dialog.ps.c0[slot] = c; });
}

void WireScaling(CalcDialog& dialog) {
    dialog.chkDelDiagram.onClick = [&dialog] { chkDelDiagram_Click(dialog); };
    dialog.chkSpecialScaling.onClick = [&dialog] { chkSpecialScaling_Click(dialog); };
    dialog.optSpecialScaling.onClick = [&dialog](int i) { dialog.ps.ScaleSpecies = i + 1; };
}

void WireDefaults(CalcDialog& dialog) {
    dialog.cmdReset_k.onClick = [&dialog] { ResetConstants(dialog.ps); };
}

void ShowScaling(CalcDialog& dialog) {
    dialog.chkSpecialScaling.checked = dialog.ps.ScaleOneSpecies;
    dialog.optSpecialScaling.selected = dialog.ps.ScaleSpecies - 1;
    EnableScaling(dialog);
}

void RefreshScaling(CalcDialog& dialog) {
    Workspace& ps = dialog.ps;
    const bool curves = IsFormLoaded(ps.desktop, name::kDiagram) && ps.CurveCount > 0;
    ps.AddCurves = ps.AddCurves && curves;
    dialog.chkDelDiagram.enabled = curves;
    dialog.chkDelDiagram.disabledTip = kNoCurvesTip;
    dialog.chkDelDiagram.checked = ps.AddCurves;
    EnableScaling(dialog);
}

void ShowConstants(CalcDialog& dialog) {
    for (std::size_t j = 1; j <= 3; ++j)
        if (dialog.kFields[j] != nullptr)
            dialog.kFields[j]->text = GeneralText(dialog.ps.k[j]);
    if (dialog.onShowParameters)
        dialog.onShowParameters();
}

void AdaptToModel(CalcDialog& dialog) {
    dialog.ps.UA = 0;
    if (dialog.onResetResults)
        dialog.onResetResults();
    dialog.Label7.text = ModelCaption(dialog.ps);
    CaptionConstants(dialog);
    SeedAutocatalysis(dialog);
    ShowSpecies(dialog);
    ShowConstants(dialog);
    if (dialog.onInit)
        dialog.onInit();
}

void ReadConcentrations(CalcDialog& dialog) {
    for (int slot = 1; slot <= kSpecies; ++slot)
        dialog.ps.c0[static_cast<std::size_t>(slot)] = Val(dialog.Inp(slot - 1).text);
}

bool RefusesInput(CalcDialog& dialog, InputTask task, const GivenInput& input) {
    const InputCheck check = CheckInput(dialog.ps, task, input);
    if (check.text.empty())
        return false;
    if (check.orderFailed)
        ResetOrder(dialog);
    ShowMessage(check.text, kExecutionNotPossible, Icon::Critical);
    if (const Control* field = FieldOf(dialog, *check.first))
        dialog.setFocus = field;
    return true;
}

} // namespace zorvant
