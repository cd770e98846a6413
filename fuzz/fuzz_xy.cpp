// Any bytes as a list of points; the list comes back unchanged from its own file.
#include "data/formats/xy.h"
#include "fuzz/require.h"

#include <cmath>
#include <cstdint>

using namespace zorvant;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    XYFile file;
    try {
        file = ParseXY(std::string_view(reinterpret_cast<const char*>(data), size));
    } catch (const FormatError&) {
        return 0;
    }
    for (const XYPoint& point : file.points)
        Require(std::isfinite(point.x) && std::isfinite(point.y), "finite");
    for (const char* delimiter : {";", ",", "\t"}) {
        const std::string written = WriteXY(file.comment, file.points, delimiter);
        const XYFile read = ParseXY(written);
        Require(read.badLines == 0 && read.points.size() == file.points.size(), "all points");
        Require(read.comment == file.comment, "the comment comes back");
        Require(WriteXY(read.comment, read.points, delimiter) == written, "the same bytes");
    }
    return 0;
}
