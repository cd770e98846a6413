// The looks that all controls share, written to a widget where they differ from what it shows.
#pragma once

#include "platform/controls.h"

#include <QAction>
#include <QWidget>

#include <optional>

namespace zorvant {

/// Visibility, use, tip, bold and colours of a control.
/// Given: shown   what the widget shows now; empty before the first time
void ShowCommon(QWidget& widget, const CommonContents& wanted,
                const std::optional<CommonContents>& shown);
/// The same for a menu entry, which has no colours.
void ShowCommon(QAction& action, const CommonContents& wanted);

/// Whether a control can be used, and the tip that goes with that.
bool IsUsable(const CommonContents& contents);
const std::string& TipOf(const CommonContents& contents);

} // namespace zorvant
