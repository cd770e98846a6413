#include "dialogs/common/time_unit_change.h"

#include "data/exp_data.h"
#include "dialogs/common/names.h"
#include "engine/time_units.h"

#include <array>

namespace zorvant {
namespace {

/// The dialogs that show times or flows of their own, in the order in which they hear of a change.
constexpr std::array kUnitListeners{name::kTube,  name::kTank,        name::kSeries,
                                    name::kBatch, name::kTimeDiagram, name::kModel};

void Tell(const Workspace& ps, const char* formName) {
    const Form* form = FindForm(ps.desktop, formName);
    if (form != nullptr && form->loaded && form->onTimeUnitChanged)
        form->onTimeUnitChanged();
}

/// Velocity and flow belong to the open dialogs.
void ConvertFlows(Workspace& ps, double factor) {
    if (IsFormLoaded(ps.desktop, name::kTube))
        ps.vRohr /= factor;
    if (IsFormLoaded(ps.desktop, name::kTank) || IsFormLoaded(ps.desktop, name::kSeries))
        ps.VPunkt /= factor;
}

void TellUnit(Workspace& ps) {
    UpdateUnitLabels(ps);
    for (const char* listener : kUnitListeners)
        Tell(ps, listener);
}

} // namespace

void ChangeTimeUnit(Workspace& ps, int newIdx, int oldIdx) {
    ConvertFlows(ps, ConvertTimeUnit(ps, newIdx, oldIdx));
    TellUnit(ps);
}

void UpdateUnitLabels(Workspace& ps) {
    if (CalcDialog* dialog = WhichCalcDialog(ps)) {
        ShowConstants(*dialog);
        if (dialog->onShowUnits)
            dialog->onShowUnits();
        dialog->unit1.text = ConstantUnitText(ps, 1);
        dialog->unit2.text = ConstantUnitText(ps, 2);
        dialog->unit3.text = ConstantUnitText(ps, 3);
    }
    Tell(ps, name::kDataEditor);
}

void TellUnitOfData(Workspace& ps) {
    const int unit = TimeUnitIndex(ps.TimeUnitText), before = ps.TimeUnitIdx;
    if (before == unit || ps.TimeUnitText != kTimeUnits.at(static_cast<std::size_t>(unit)))
        return;
    ConvertFlows(
        ps, ps.TimeFactor.at(static_cast<std::size_t>(before)).at(static_cast<std::size_t>(unit)));
    ps.TimeUnitIdx = unit;
    TellUnit(ps);
}

void ResetConstants(Workspace& ps) {
    SetDefaultK(ps);
    CalcDialog* dialog = WhichCalcDialog(ps);
    if (dialog == nullptr)
        return;
    if (dialog->id == CalcTask::TimeDiagram)
        ps.tMax = DefaultTimeAxis(ps);
    ShowConstants(*dialog);
}

void CheckExpData(Workspace& ps) {
    FuCheckExpData(ps);
    const Form* editor = FindForm(ps.desktop, name::kDataEditor);
    if (editor != nullptr && editor->loaded && editor->onModelChanged)
        editor->onModelChanged();
}

} // namespace zorvant
