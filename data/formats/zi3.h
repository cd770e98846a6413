// The data file .ZI3: the table of measured values as text (docs/file_formats.md).
#pragma once

#include "data/formats/item_reader.h"
#include "engine/experimental_data.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zorvant {

struct Zi3Head {
    std::string comment;
    std::string timeUnit;
    int count = 0; ///< rows, 0..32767
    bool operator==(const Zi3Head&) const = default;
};

struct Zi3File {
    Zi3Head head;
    double lambdaInf = 0;       ///< the last value > 0 of its column; 0: none
    std::vector<ExpPoint> rows; ///< from index 0
    bool operator==(const Zi3File&) const = default;
};

/// The head of a data file, for previews.
/// Errors: FormatError: ends early, the count is not a number of rows that a table can have.
Zi3Head ParseZi3Head(std::string_view bytes);

/// A whole data file. Rows behind the count are not read.
/// Errors: as for the head; a row is missing or an item is not a number.
Zi3File ParseZi3(std::string_view bytes);

/// Given:    head (its count is not used), rows, lambdaInf
/// Returned: the bytes of the file; t, lambda and the reserved items with at most 7 digits, the
///           others with at most 15
std::string WriteZi3(const Zi3Head& head, std::span<const ExpPoint> rows, double lambdaInf);

} // namespace zorvant
