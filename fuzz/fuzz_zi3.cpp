// Any bytes as a data file: a table or a refusal; a table comes back unchanged from its own file.
#include "data/formats/zi3.h"
#include "fuzz/require.h"

#include <cmath>
#include <cstdint>

using namespace zorvant;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    Zi3File file;
    try {
        file = ParseZi3(bytes);
    } catch (const FormatError&) {
        return 0;
    }
    Require(file.head.count == static_cast<int>(file.rows.size()), "all rows are there");
    Require(ParseZi3Head(bytes) == file.head, "the head alone is that of the file");
    for (const ExpPoint& row : file.rows)
        Require(std::isfinite(row.t + row.cA / 1e9) && std::isfinite(row.lambda), "finite");
    // The first writing rounds to the digits of the format, later ones change nothing.
    const std::string written = WriteZi3(file.head, file.rows, file.lambdaInf);
    const Zi3File read = ParseZi3(written);
    Require(read.head == file.head, "the head comes back");
    const std::string again = WriteZi3(read.head, read.rows, read.lambdaInf);
    Require(again == written, "the same bytes");
    Require(ParseZi3(again) == read, "the same table");
    return 0;
}
