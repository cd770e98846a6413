#include "engine/calc_dialog.h"

#include <utility>

namespace zorvant {

CalcDialog::CalcDialog(std::string formName, std::string formCaption, CalcDialogId dialogId)
    : Form(std::move(formName), std::move(formCaption)), id(dialogId) {}

bool CalcDialog::IsReactor() const {
    return id == CalcDialogId::Cstr || id == CalcDialogId::Batch || id == CalcDialogId::Tubular ||
           id == CalcDialogId::Cascade;
}

CalcDialog* WhichCalcDialog(ProjectState& ps) {
    CalcDialog* found = nullptr;
    for (Form* form : ps.desktop.forms) {
        auto* dialog = dynamic_cast<CalcDialog*>(form);
        if (dialog == nullptr || !dialog->loaded || dialog->id == CalcDialogId::None)
            continue;
        if (found == nullptr || dialog->id < found->id)
            found = dialog;
    }
    return found;
}

} // namespace zorvant
