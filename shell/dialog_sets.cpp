// The commands that open a calculation dialog and close the others.
#include "dialogs/common/calc_dialog.h"
#include "dialogs/common/names.h"
#include "engine/modes.h"
#include "engine/reaction_catalogue.h"
#include "platform/host.h"
#include "shell/command_steps.h"

namespace zorvant {

void ReopenModelDialog(MDIZOR& form) {
    Unload(form, name::kModel);
    Show(form, name::kModel);
}

namespace {

void SetContext(ProjectState& ps, const DialogSet& set) {
    ps.IsTubular = set.isTubular.value_or(ps.IsTubular);
    ps.IsCSTR = set.isCSTR.value_or(ps.IsCSTR);
    ps.IsCascade = set.isCascade.value_or(ps.IsCascade);
    ps.RateDiagram = set.rateDiagram.value_or(ps.RateDiagram);
    if (set.clearsFitMode)
        ps.FitMode = kNoFit;
}

} // namespace

void OpenDialogSet(MDIZOR& form, const DialogSet& set) {
    Workspace& ps = form.ps;
    Form* const opened = FindForm(ps.desktop, set.opens);
    if (opened == nullptr)
        return;
    if (set.refusesEnzyme && IsEnzymeModel(ps.ModelId)) {
        ShowMessage("Sorry, under construction", "Execution not possible", Icon::Critical);
        return;
    }
    if (Form* const model = FindForm(ps.desktop, name::kModel); model && set.hidesModelDialog)
        HideForm(*model);
    for (const char* name : set.closes)
        if (name != nullptr)
            Unload(form, name);
    SetContext(ps, set);
    ShowForm(ps.desktop, *opened);
    if (set.presses != nullptr)
        PressIn(form, set.opens, set.presses);
    auto* const calculation = dynamic_cast<CalcDialog*>(opened);
    if (calculation == nullptr || !opened->loaded)
        return;
    // Both show the same model: the model dialog adapts the calculation dialog as it opens.
    ReopenModelDialog(form);
    ShowForm(ps.desktop, *opened);
    if (calculation->onInit)
        calculation->onInit();
}

} // namespace zorvant
