// Design files .OC2: everything that a diagram shows, as text (docs/file_formats.md).
#pragma once

#include "data/formats/item_reader.h" // FormatError
#include "diagrams/plot_surface.h"

#include <string>
#include <string_view>

namespace zorvant {

/// Files larger than this are refused, bytes.
inline constexpr std::size_t kLargestDesign = std::size_t{64} << 20;

/// The contents as text. Numbers read back exactly, so a design that was read is written with the
/// same bytes.
std::string WriteDesign(const PlotContents& contents);

/// Given:    the bytes of a file
/// Returned: contents whose numbers are finite and whose labels are attached to series that exist
/// Errors:   FormatError names the line and what is wrong there
PlotContents ParseDesign(std::string_view bytes);

} // namespace zorvant
