#include "shell/command_steps.h"

#include "platform/number_text.h"

namespace zorvant {

std::string Lines(std::initializer_list<const char*> lines) {
    std::string text;
    for (const char* line : lines)
        text.append(text.empty() ? "" : kCrLf).append(line);
    return text;
}

void Unload(MDIZOR& form, const char* dialog) {
    if (Form* const open = FindForm(form.ps.desktop, dialog))
        UnloadForm(form.ps.desktop, *open);
}

void Show(MDIZOR& form, const char* dialog) {
    if (Form* const known = FindForm(form.ps.desktop, dialog))
        ShowForm(form.ps.desktop, *known);
}

void PressIn(MDIZOR& form, const char* dialog, const char* button) {
    const Form* const open = FindForm(form.ps.desktop, dialog);
    if (open == nullptr || !open->loaded)
        return;
    for (Control* control : open->controls)
        if (control->name == button && control->kind == Kind::Button)
            Press(static_cast<Button&>(*control));
}

void Enable(MDIZOR& form, std::initializer_list<const char*> entries) {
    for (const char* entry : entries)
        form.Entry(entry).enabled = true;
}

void EnableTools(MDIZOR& form, std::initializer_list<int> indices) {
    for (const int index : indices)
        form.Tool(index).enabled = true;
}

} // namespace zorvant
