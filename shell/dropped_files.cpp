#include "shell/dropped_files.h"

#include "dialogs/common/names.h"
#include "dialogs/data/frm_datedit.h"
#include "dialogs/data/frm_import_text.h"
#include "dialogs/data/frm_zxy_editor.h"
#include "platform/number_text.h"
#include "shell/project_commands.h"

#include <algorithm>

namespace zorvant {
namespace {

/// The record of a dialog, null when it does not exist here.
template <class Dialog> Dialog* Find(MDIZOR& form, const char* name) {
    return dynamic_cast<Dialog*>(FindForm(form.ps.desktop, name));
}

void OpenData(MDIZOR& form, const std::string& path) {
    auto* const editor = Find<frmDatedit>(form, name::kDataEditor);
    if (editor == nullptr)
        return;
    ShowForm(form.ps.desktop, *editor);
    LoadIntoEditor(*editor, path);
}

void OpenPoints(MDIZOR& form, const std::string& path) {
    auto* const editor = Find<frmZXYEditor>(form, name::kXYEditor);
    if (editor == nullptr)
        return;
    ShowForm(form.ps.desktop, *editor);
    LoadIntoEditor(*editor, path);
}

void OpenText(MDIZOR& form, const std::string& path) {
    auto* const dialog = Find<frmImportText>(form, name::kImportText);
    if (dialog == nullptr)
        return;
    dialog->path = path;
    ShowForm(form.ps.desktop, *dialog);
}

struct DroppedKind {
    const char* ending;
    void (*open)(MDIZOR&, const std::string&);
};
constexpr DroppedKind kKinds[] = {
    {".ZC3", OpenProject}, {".ZI3", OpenData}, {".XY", OpenPoints}, {".LRG", OpenPoints},
    {".CSV", OpenText},    {".TSV", OpenText}, {".TXT", OpenText},
};

const DroppedKind* KindOf(const std::string& path) {
    const std::string name = UpperCase(path);
    const auto* const found = std::ranges::find_if(
        kKinds, [&](const DroppedKind& kind) { return EndsWith(name, kind.ending); });
    return found == std::end(kKinds) ? nullptr : found;
}

} // namespace

bool CanOpenDropped(const std::string& path) {
    return KindOf(path) != nullptr;
}

void OpenDropped(MDIZOR& form, const std::string& path) {
    const DroppedKind* const kind = KindOf(path);
    if (kind == nullptr)
        return;
    if (Form* const drinks = FindForm(form.ps.desktop, name::kBloodAlcohol))
        UnloadForm(form.ps.desktop, *drinks);
    kind->open(form, path);
}

} // namespace zorvant
