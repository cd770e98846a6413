// Any bytes as an imported or pasted table; its numbers come back unchanged when copied.
#include "data/formats/table_text.h"
#include "fuzz/require.h"
#include "platform/encoding.h"

#include <cmath>
#include <cstdint>

using namespace zorvant;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text =
        DecodeTableText(std::string_view(reinterpret_cast<const char*>(data), size));
    Require(IsUtf8(text), "text is UTF-8");
    const TableGuess guess = GuessTableLayout(text);
    for (const TableDoubt& doubt : guess.doubts)
        Require(!doubt.example.empty() && std::isfinite(doubt.reading), "a doubt has an example");
    for (const char separator : {guess.layout.separator, '\t', ';', ',', ' '}) {
        TableLayout layout = guess.layout;
        layout.separator = separator;
        const TableNumbers table = ReadTable(text, layout);
        for (const double value : table.values)
            Require(std::isfinite(value), "finite");
        const std::string written = WriteTable(table);
        const TableLayout own{.separator = '\t', .skipLines = 0, .decimals = {}};
        const TableNumbers read = ReadTable(written, own);
        Require(read.badCells == 0 && read.rowStart == table.rowStart, "the same cells");
        Require(WriteTable(read) == written, "the same text");
        Require(SplitTable(text, separator, 20).size() <= 20, "a preview is short");
    }
    return 0;
}
