// The measured columns of a row by number, as editors, the clipboard and imports address them.
#pragma once

#include "engine/experimental_data.h"

#include <array>
#include <string>

namespace zorvant {

/// Columns that the user sees, in the order of the editor: t, cA..cQ, lambda, T, k.
inline constexpr int kExpColumns = 9;
inline constexpr int kExpTime = 0, kExpLambda = 6, kExpTemperature = 7, kExpRate = 8;

/// Short names for lists to choose from.
inline constexpr std::array<const char*, kExpColumns> kExpColumnNames{
    "t", "c(A)", "c(B)", "c(C)", "c(P)", "c(Q)", "lambda", "T", "k"};

double ExpValue(const ExpPoint& row, int column);
/// Lambda is kept as Single: beyond its range the largest one.
void SetExpValue(ExpPoint& row, int column, double value);

/// The value as the editor lists it: t through Single, concentrations in 0 < c < 1E-5 as
/// "5.000000E-06", else the general form with at most 15 digits.
std::string ExpCellText(const ExpPoint& row, int column);

} // namespace zorvant
