// Any bytes as a number, as the picture of one, as a number's own bytes, and as text.
#include "fuzz/require.h"
#include "platform/encoding.h"
#include "platform/number_text.h"

#include <cmath>
#include <cstdint>
#include <cstring>

using namespace zorvant;

namespace {

void HoldForms(double value) {
    for (const std::string& text : {GeneralText(value), PlainText(value), SingleText(value),
                                    FileText(value), FileTextSingle(value)}) {
        if (!std::isfinite(value)) {
            Require(text.empty() || text == "0", "no text for what is no number");
            continue;
        }
        const std::optional<double> read = ParseNumber(text);
        Require(read && *read == Val(text), "what is written can be read");
        Require(value == 0 || std::abs(*read - value) <= 1e-6 * std::abs(value) + 1e-38,
                "with seven digits");
    }
    const std::string file = FileText(value);
    Require(FileText(Val(file)) == file, "the same file text");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const double headed = Val(bytes);
    Require(std::isfinite(headed), "finite");
    if (const std::optional<double> whole = ParseNumber(bytes))
        Require(*whole == headed, "both readers agree");
    HoldForms(headed);

    double own = 0;
    std::memcpy(&own, data, std::min(size, sizeof own));
    HoldForms(own);
    const std::string pictured = FormatNumber(own, bytes);
    Require(std::isfinite(own) || pictured.empty(), "no picture of what is no number");
    (void)FormatNumber(headed, bytes);

    const std::string text = DecodeText(bytes);
    Require(IsUtf8(text), "text is UTF-8");
    Require(DecodeText(EncodeText(text)) == text, "the same text");
    return 0;
}
