// What separates the fields of a row in the files that other programs read: `CsvSep`.
#pragma once

#include "engine/project_state.h"
#include "platform/host.h"

#include <array>
#include <optional>

namespace zorvant {

struct FieldSeparator {
    const char* caption;
    const char* text;
};
/// In the order in which lists offer them.
inline constexpr std::array<FieldSeparator, 3> kFieldSeparators{
    {{"Semicolon", ";"}, {"Comma", ","}, {"Tab", "\t"}}};

/// The entry of CsvSep; 0 when it is none of them.
int SeparatorEntry(const ProjectState& ps);

/// The warning when a comma separates fields and the system writes decimal commas.
std::optional<MessageBox> CheckSeparator(const ProjectState& ps);

} // namespace zorvant
