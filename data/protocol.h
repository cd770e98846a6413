// The log of reactor results: the rows collected until the file is closed.
#pragma once

#include "engine/modes.h"
#include "engine/project_state.h"

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

/// Empties the record of the latest result and gives it so many rows (1; the tanks of a series).
void ClearProtokollDaten(ProjectState& ps, int rows = 1);

/// Copies the latest result into the table of the log and opens the log.
/// Given:    series: the tanks-in-series dialog is open, rows 0..NKask - 1 are taken, else row 0;
///           rows that the record lacks are left out, no record at all counts as a row of zeros
/// Returned: ps.ProtokollTabelle, ps.ProtokollRows, ps.ProtocolOpen
void RecordProtocolRows(ProjectState& ps, bool series);

/// Writes the rows that wait, and begins a new log under the next free name.
/// Returned: the content of the file for the clipboard; empty when there is none
/// Errors:   FileError; then the rows still wait
std::string CloseProtocol(ProjectState& ps, CalcTask caller, std::string_view date);

/// Deletes the protocol file when it exists and is empty.
void DeleteEmptyProtocol(const ProjectState& ps);

} // namespace zorvant
