#include "dialogs/common/calc_dialog.h"

#include <utility>

namespace zorvant {

CalcDialog::CalcDialog(std::string formName, std::string formCaption, CalcTask dialogId)
    : Form(std::move(formName), std::move(formCaption)), id(dialogId) {}

bool CalcDialog::IsReactor() const {
    return id == CalcTask::Cstr || id == CalcTask::Batch || id == CalcTask::Tubular ||
           id == CalcTask::Cascade;
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

} // namespace zorvant
