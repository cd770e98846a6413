// The small steps of which the main window's commands are made.
#pragma once

#include "shell/commands.h"

#include <initializer_list>
#include <string>

namespace zorvant {

std::string Lines(std::initializer_list<const char*> lines);
/// Opens or closes a dialog by its name; nothing happens where there is none.
void Show(MDIZOR& form, const char* dialog);
void Unload(MDIZOR& form, const char* dialog);
/// Presses a button of an open dialog.
void PressIn(MDIZOR& form, const char* dialog, const char* button);
void Enable(MDIZOR& form, std::initializer_list<const char*> entries);
void EnableTools(MDIZOR& form, std::initializer_list<int> indices);

} // namespace zorvant
