// What the dialogs work on: the state of the project and the dialogs themselves.
#pragma once

#include "engine/project_state.h"
#include "platform/controls.h"

namespace zorvant {

struct Workspace : ProjectState {
    /// The dialogs that exist and which of them are open.
    Desktop desktop;
};

} // namespace zorvant
