// The list of points .XY: a comment and pairs of numbers (docs/file_formats.md).
#pragma once

#include "data/formats/item_reader.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zorvant {

/// A line of the list.
struct XYPoint {
    float x = 0;
    float y = 0;
    float inactive = 0; ///< -1: switched off, 0: active
    bool operator==(const XYPoint&) const = default;
};

struct XYFile {
    std::string comment;
    std::vector<XYPoint> points; ///< from index 0, all active
    /// Lines in which x or y was not a number of the range of a Single; it is 0 then, or what
    /// stands at the head of the text.
    int badLines = 0;
    int firstBadLine = 0; ///< counted from 1 as the file's lines are; 0: none
};

/// Given:    the bytes; the delimiter is found in the first line behind the comment: the last one
///           of blank, comma, semicolon and tab that stands in it (docs/file_formats.md)
/// Errors:   FormatError: empty; a first line of points without a delimiter
XYFile ParseXY(std::string_view bytes);

/// The active points; the comment as one line.
std::string WriteXY(std::string_view comment, std::span<const XYPoint> points,
                    std::string_view delimiter);

} // namespace zorvant
