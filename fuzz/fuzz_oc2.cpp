// Any bytes as a design file; what was read comes back unchanged from its own file.
#include "diagrams/design_file.h"
#include "fuzz/require.h"

#include <cstdint>

using namespace zorvant;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    PlotContents read;
    try {
        read = ParseDesign(std::string_view(reinterpret_cast<const char*>(data), size));
    } catch (const FormatError&) {
        return 0;
    }
    const std::string written = WriteDesign(read);
    const PlotContents again = ParseDesign(written);
    Require(again == read, "the same contents");
    Require(WriteDesign(again) == written, "the same bytes");
    return 0;
}
