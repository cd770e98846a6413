#include "data/table_heads.h"

#include "data/exp_columns.h"
#include "engine/time_units.h"
#include "platform/number_text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <ranges>
#include <span>
#include <string_view>

namespace zorvant {
namespace {

constexpr double kZeroCelsius = 273.15; ///< K

/// Heads by which a field is told, without unit and blanks; those of one letter with regard to
/// case, since t is the time and T the temperature.
struct FieldHeads {
    int field;
    const char* heads; ///< blanks between them
};
constexpr FieldHeads kFieldHeads[] = {
    {kExpTime, "t time zeit timet zeitt r(P) r rate"},
    {1, "c(A) cA A c c(E) conc"},
    {2, "c(B) cB B c(S) cS S"},
    {3, "c(C) cC C c(ES) cES ES"},
    {4, "c(P) cP P product produkt"},
    {5, "c(Q) cQ Q"},
    {kExpLambda, "lambda signal absorbance extinction abs"},
    {kExpTemperature, "T temperature temperatur temp"},
    {kExpRate, "k k1 k(1) rateconstant"},
};

struct KnownUnit {
    const char* words; ///< blanks between them
    double factor, offset;
};
/// Concentrations in mol/L. The sign of micro exists twice.
constexpr KnownUnit kConcentrations[] = {
    {"mol/L mol/l M mol/dm3 mol/dm^3 mol/dm\u00B3 mol*L^-1 molL-1", 1, 0},
    {"mmol/L mmol/l mM mol/m3 mol/m^3 mol/m\u00B3", 1e-3, 0},
    {"\u00B5mol/L \u00B5mol/l \u00B5M \u03BCmol/L \u03BCmol/l \u03BCM umol/L umol/l uM", 1e-6, 0},
    {"nmol/L nmol/l nM", 1e-9, 0},
};
constexpr KnownUnit kTemperatures[] = {
    {"K", 1, 0},
    {"\u00B0C \u2103 C degC", 1, kZeroCelsius},
};
struct TimeWord {
    const char* words;
    const char* unit;
    double factor;
};
constexpr TimeWord kTimes[] = {
    {"s sec seconds", "s", 1},
    {"min minutes", "min", 1},
    {"h hr hours", "h", 1},
    {"d days", "d", 1},
    {"a years", "a", 1},
    {"ms", "s", 1e-3},
    {"\u00B5s \u03BCs us", "s", 1e-6},
};

bool Holds(const char* words, std::string_view word) {
    for (const auto part : std::views::split(std::string_view(words), ' '))
        if (std::string_view(part.begin(), part.end()) == word)
            return true;
    return false;
}

template <class Row> const Row* Find(std::span<const Row> rows, std::string_view word) {
    const auto found =
        std::ranges::find_if(rows, [&](const Row& row) { return Holds(row.words, word); });
    return found == rows.end() ? nullptr : &*found;
}

/// Where the unit begins: at "/", "[", " in ", or a bracket that is not that of a "c(A)".
std::size_t UnitStart(const std::string& head) {
    return std::min({head.find_first_of("/["), head.find('(', 2), head.find(" in ")});
}

std::string NameIn(const std::string& head) {
    std::string name = head.substr(0, UnitStart(head));
    std::erase(name, ' ');
    return name;
}

/// "c(A)/(mmol/L)" gives "mmol/L".
std::string UnitIn(const std::string& head) {
    const std::size_t start = UnitStart(head);
    if (start == std::string::npos)
        return {};
    std::string unit = head.substr(start);
    unit = Trim(unit.starts_with(" in ") ? unit.substr(4) : unit.substr(unit[0] == '/' ? 1 : 0));
    while (unit.size() > 1 && ((unit.front() == '(' && unit.back() == ')') ||
                               (unit.front() == '[' && unit.back() == ']')))
        unit = Trim(unit.substr(1, unit.size() - 2));
    return unit;
}

/// The last word of a unit such as "L/(mol min)" or "s^-1".
std::string LastWord(const std::string& unit) {
    const auto letter = [](char c) {
        return std::isalpha(static_cast<unsigned char>(c)) != 0 || (c & 0x80) != 0;
    };
    std::size_t end = unit.size();
    while (end > 0 && !letter(unit[end - 1]))
        --end;
    std::size_t start = end;
    while (start > 0 && letter(unit[start - 1]))
        --start;
    return unit.substr(start, end - start);
}

void TakeTime(HeadUnit& unit, const std::string& word, int power) {
    const TimeWord* const time = Find(std::span<const TimeWord>(kTimes), word);
    unit.known = time != nullptr;
    if (time == nullptr)
        return;
    unit.timeUnit = time->unit;
    unit.timePower = power;
    unit.factor *= std::pow(time->factor, power);
}

void TakeKnown(HeadUnit& unit, std::span<const KnownUnit> units) {
    std::string word = unit.text;
    std::erase(word, ' ');
    const KnownUnit* const row = Find(units, word);
    unit.known = row != nullptr;
    if (row == nullptr)
        return;
    unit.factor = row->factor;
    unit.offset = row->offset;
}

/// "mmol/(L min)": the concentration in front, the time behind.
void TakeRate(HeadUnit& unit) {
    HeadUnit amount;
    amount.text = unit.text.substr(0, unit.text.find('/')) + "/L";
    TakeKnown(amount, kConcentrations);
    unit.factor = amount.factor;
    TakeTime(unit, LastWord(unit.text), -1);
    unit.known = unit.known && amount.known;
}

double Seconds(const std::string& timeUnit) {
    return kTimeUnitSeconds.at(static_cast<std::size_t>(TimeUnitIndex(timeUnit)));
}

} // namespace

int FieldOfHead(const std::string& head) {
    const std::string name = NameIn(head);
    for (const FieldHeads& row : kFieldHeads)
        for (const auto part : std::views::split(std::string_view(row.heads), ' ')) {
            const std::string_view known(part.begin(), part.end());
            if (known.size() == 1 ? name == known : UpperCase(name) == UpperCase(known))
                return row.field;
        }
    return -1;
}

double HeadUnit::In(const std::string& tableUnit, double number) const {
    const double own = number * factor + offset;
    if (timeUnit.empty() || timeUnit == tableUnit)
        return own;
    return own * std::pow(Seconds(timeUnit) / Seconds(tableUnit), timePower);
}

bool HeadUnit::Converts(const std::string& tableUnit) const {
    return factor != 1 || offset != 0 || (!timeUnit.empty() && timeUnit != tableUnit);
}

HeadUnit UnitOfHead(const std::string& head, int field) {
    HeadUnit unit;
    unit.text = UnitIn(head);
    if (unit.text.empty() || field == kExpLambda) // any quantity proportional to a concentration
        return unit;
    if (field == kExpTime)
        UpperCase(NameIn(head)).starts_with('R') ? TakeRate(unit) : TakeTime(unit, unit.text, 1);
    else if (field == kExpTemperature)
        TakeKnown(unit, kTemperatures);
    else if (field == kExpRate)
        TakeTime(unit, LastWord(unit.text), -1);
    else
        TakeKnown(unit, kConcentrations);
    if (!unit.known)
        unit.factor = 1;
    return unit;
}

} // namespace zorvant
