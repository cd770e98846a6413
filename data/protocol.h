// The log of reactor results: the rows collected, the text of the file, its automatic name.
#pragma once

#include "engine/modes.h"
#include "engine/project_state.h"
#include "platform/host.h"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zorvant {

/// Which column of a row holds what.
enum ProtocolColumn {
    kTankColumn = 0,
    kInitialColumn = 1,   ///< ..5, mol/L, by species slot
    kFinalColumn = 6,     ///< ..10, mol/L
    kConstantColumn = 11, ///< ..13, k1..k3
    kConversionColumn = 14,
    kTimeColumn = 15,     ///< TU
    kLengthColumn = 16,   ///< m
    kVolumeColumn = 17,   ///< m^3
    kFlowColumn = 18,     ///< m^3/TU
    kVelocityColumn = 19, ///< m/TU
    kExtentColumn = 20    ///< 20, 21, mol/L
};

/// A field separator of the file.
struct ProtocolSeparator {
    const char* caption;
    const char* text;
};
inline constexpr std::array<ProtocolSeparator, 3> kProtocolSeparators{
    {{"Semicolon", ";"}, {"Comma", ","}, {"Tab", "\t"}}};
/// The entry of CsvSep; 0 when it is none of them.
int SeparatorEntry(const ProjectState& ps);

/// The warning when a comma separates fields and the system writes decimal commas.
std::optional<MessageBox> CheckSeparator(const ProjectState& ps);

/// Empties the record of the latest result and gives it so many rows (1; the tanks of a series).
void ClearProtokollDaten(ProjectState& ps, int rows = 1);

/// Copies the latest result into the table of the log and opens the log.
/// Given:    series: the tanks-in-series dialog is open, rows 0..NKask - 1 are taken, else row 0;
///           rows that the record lacks are left out, no record at all counts as a row of zeros
/// Returned: ps.ProtokollTabelle, ps.ProtokollRows, ps.ProtocolOpen
void RecordProtocolRows(ProjectState& ps, bool series);

/// The text of the file.
/// Given:    caller  the dialog whose results these are
///           date    for people
/// Returned: heads and rows with CR LF. A column is in use when the species mask has its species
///           (1..10), else when the sum of its rows is not 0.
std::string ProtocolText(const ProjectState& ps, CalcTask caller, std::string_view date);

/// The text of the file as the clipboard takes it: tabs between the fields.
std::string ProtocolClipboardText(std::string fileText, std::string_view separator);

/// Where the protocol file stands: in the program's folder unless its name has a path.
std::string ProtocolPath(const ProjectState& ps);

/// A day of the calendar.
struct CalendarDay {
    int year = 0, month = 0, day = 0;
};
CalendarDay Today();

/// The next free automatic file name.
/// Given:    exists  whether a file of this name is there
/// Returned: YYMMDDnn.CSV, nn from 01; from the hundredth file of a day on with more digits
/// Errors:   FileError after 99999 files of a day
std::string NextProtocolName(const CalendarDay& day,
                             const std::function<bool(const std::string&)>& exists);
/// The same for today in the program's folder.
std::string NextProtocolName(const ProjectState& ps);

/// Writes the rows that wait, and begins a new log under the next free name.
/// Returned: the content of the file for the clipboard; empty when there is none
/// Errors:   FileError; then the rows still wait
std::string CloseProtocol(ProjectState& ps, CalcTask caller, std::string_view date);

/// Deletes the protocol file when it exists and is empty.
void DeleteEmptyProtocol(const ProjectState& ps);

} // namespace zorvant
