// The project file .ZC3, also that of the last session (docs/file_formats.md).
#pragma once

#include "data/formats/item_reader.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace zorvant {

/// The model number by which the enzyme model says that its data are r(P)-c(S) couples.
inline constexpr int kEnzymeWithRcS = 100;

/// The lines of a project. What is empty was not read.
struct Zc3File {
    std::optional<std::string> date; ///< for people, in any form
    std::optional<std::string> comment;
    std::optional<std::string> dataFile; ///< without folder and quotes; empty: none
    std::optional<int> model;            ///< 1..20, or kEnzymeWithRcS
    std::array<std::optional<double>, 3> k;
    int window = 0;                          ///< code of the open calculation window; not read back
    std::array<std::optional<double>, 5> c0; ///< mol/L
    std::optional<int> scaleSpecies;         ///< 1..5
    std::optional<bool> scaleOneSpecies;
    std::optional<double> tMax;     ///< TU
    std::optional<double> tVerweil; ///< TU
    std::optional<std::string> timeUnit;
    bool operator==(const Zc3File&) const = default;
};

/// Reads a project as far as it can be read.
/// Returned: file: the fields read until the end or the error
///           error: why reading stopped; nothing when all was read
struct Zc3Reading {
    Zc3File file;
    std::optional<std::string> error;
};
Zc3Reading ParseZc3(std::string_view bytes);

/// The first three lines alone, for previews.
/// Errors: FormatError: ends early.
Zc3File ParseZc3Head(std::string_view bytes);

/// The bytes of the file; empty fields are written as empty text or 0, the model as 2.
std::string WriteZc3(const Zc3File& file);

} // namespace zorvant
