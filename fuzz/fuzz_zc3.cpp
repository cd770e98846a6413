// Any bytes as a project: what is read of it comes back unchanged from its own file.
#include "data/formats/zc3.h"
#include "fuzz/require.h"

#include <cstdint>

using namespace zorvant;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const Zc3Reading reading = ParseZc3(bytes);
    try {
        const Zc3File head = ParseZc3Head(bytes);
        Require(head.comment == reading.file.comment && head.dataFile == reading.file.dataFile,
                "the head alone is that of the file");
    } catch (const FormatError&) {
        Require(reading.error.has_value(), "a file without a head has an error");
    }
    const std::string written = WriteZc3(reading.file);
    const Zc3Reading read = ParseZc3(written);
    Require(!read.error, "what was written can be read");
    Require(read.file.comment == reading.file.comment.value_or(""), "the comment comes back");
    Require(WriteZc3(read.file) == written, "the same bytes");
    Require(ParseZc3(WriteZc3(read.file)).file == read.file, "the same project");
    return 0;
}
