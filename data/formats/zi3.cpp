#include "data/formats/zi3.h"

#include "platform/encoding.h"
#include "platform/number_text.h"

#include <cmath>

namespace zorvant {
namespace {

constexpr const char* kColumns =
    "t, cA, cB, cC, cP, cQ, k, T, lambda, lambda_inf, res3, res4, exclude(0|-1)";
/// Bytes of a usual row, to reserve room.
constexpr std::size_t kRowBytes = 64;

Zi3Head ReadHead(ItemReader& reader) {
    Zi3Head head;
    head.comment = reader.Line("comment");
    head.timeUnit = reader.TimeUnit();
    (void)reader.Line("column heads");
    head.count = reader.Integer("number of measuring points");
    if (head.count < 0)
        throw FormatError("the number of measuring points is " + std::to_string(head.count));
    return head;
}

/// The value as a Single has it, unless it is beyond its range: a limit typed as such comes back.
double ThroughSingle(double value) {
    const float single = static_cast<float>(value);
    return std::isfinite(single) ? static_cast<double>(single) : value;
}

ExpPoint ReadRow(ItemReader& reader, double& lambdaInf) {
    ExpPoint p;
    p.t = reader.Number("t");
    p.cA = reader.Number("cA");
    p.cB = reader.Number("cB");
    p.cC = reader.Number("cC");
    p.cP = reader.Number("cP");
    p.cQ = reader.Number("cQ");
    p.k = reader.Number("k");
    p.T = reader.Number("T");
    p.lambda = reader.Single("lambda");
    const double limit = ThroughSingle(reader.Number("lambda_inf"));
    if (limit > 0)
        lambdaInf = limit;
    p.res3 = reader.Single("res3");
    p.res4 = reader.Single("res4");
    p.exclude = static_cast<std::int16_t>(reader.Integer("exclude"));
    reader.EndRow();
    return p;
}

} // namespace

Zi3Head ParseZi3Head(std::string_view bytes) {
    const std::string text = DecodeText(bytes);
    ItemReader reader(text);
    return ReadHead(reader);
}

Zi3File ParseZi3(std::string_view bytes) {
    const std::string text = DecodeText(bytes);
    ItemReader reader(text);
    Zi3File file;
    file.head = ReadHead(reader);
    reader.EndRow();
    for (int row = 1; row <= file.head.count; ++row) {
        reader.SetRow(row, file.head.count);
        file.rows.push_back(ReadRow(reader, file.lambdaInf));
    }
    return file;
}

std::string WriteZi3(const Zi3Head& head, std::span<const ExpPoint> rows, double lambdaInf) {
    std::string text;
    text.reserve(kRowBytes * (rows.size() + 4));
    text += OneLine(head.comment) + kCrLf + OneLine(head.timeUnit) + kCrLf + kColumns + kCrLf +
            std::to_string(rows.size()) + kCrLf;
    const std::string limit = FileText(lambdaInf);
    const auto item = [&text](const std::string& number) { // sums of strings would cost the time
        text += ',';
        text += number;
    };
    for (const ExpPoint& p : rows) {
        text += FileTextSingle(p.t);
        for (const double value : {p.cA, p.cB, p.cC, p.cP, p.cQ, p.k, p.T})
            item(FileText(value));
        item(FileTextSingle(static_cast<double>(p.lambda)));
        item(limit);
        item(FileTextSingle(static_cast<double>(p.res3)));
        item(FileTextSingle(static_cast<double>(p.res4)));
        item(std::to_string(p.exclude));
        text += kCrLf;
    }
    return EncodeText(text);
}

} // namespace zorvant
