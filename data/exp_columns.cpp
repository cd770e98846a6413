#include "data/exp_columns.h"

#include "engine/arithmetic.h"

#include "platform/number_text.h"

#include <cassert>

namespace zorvant {
namespace {

/// Below it a concentration is listed with an exponent, mol/L.
constexpr double kSmallConcentration = 1e-5;

/// The general form of files with the zero before the point.
std::string General(double value) {
    std::string text = FileText(value);
    const std::size_t at = text.starts_with('-') ? 1 : 0;
    if (text.size() > at && text[at] == '.')
        text.insert(at, 1, '0');
    return text;
}

} // namespace

double ExpValue(const ExpPoint& row, int column) {
    assert(column >= 0 && column < kExpColumns);
    switch (column) {
    case kExpTime:
        return row.t;
    case kExpLambda:
        return static_cast<double>(row.lambda);
    case kExpTemperature:
        return row.T;
    case kExpRate:
        return row.k;
    default:
        return row.c(column);
    }
}

void SetExpValue(ExpPoint& row, int column, double value) {
    assert(column >= 0 && column < kExpColumns);
    switch (column) {
    case kExpTime:
        row.t = value;
        break;
    case kExpLambda:
        row.lambda = NearestSingle(value);
        break;
    case kExpTemperature:
        row.T = value;
        break;
    case kExpRate:
        row.k = value;
        break;
    default:
        row.c(column) = value;
    }
}

std::string ExpCellText(const ExpPoint& row, int column) {
    const double value = ExpValue(row, column);
    if (value == 0)
        return "0";
    if (column == kExpTime || column == kExpLambda)
        return SingleText(static_cast<double>(NearestSingle(value)));
    if (column < kExpLambda && value > 0 && value < kSmallConcentration)
        return FormatNumber(value, "0.000000E+00");
    return General(value);
}

} // namespace zorvant
