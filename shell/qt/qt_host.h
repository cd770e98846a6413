// The host on the toolkit: message boxes, file choice, clipboard, printer, pointer, clock.
#pragma once

namespace zorvant {

/// Fills the host's members that need nothing but the toolkit. Those that belong to a window
/// (forms, help, menus at the pointer) are filled by the classes that have it.
void InstallQtHost();

} // namespace zorvant
