#include "engine/sim_table.h"

#include "engine/reaction_catalogue.h"
#include "platform/number_text.h"

#include <algorithm>
#include <cmath>

namespace zorvant {
namespace {

constexpr int kSlotP = 4, kSlotQ = 5;
constexpr int kLastColumn = 5;
constexpr std::size_t kColumnWidth = 14; ///< characters
constexpr const char* kIndent = "      ";
/// Decimals of the time column; more where the step is smaller than they show.
constexpr int kLeastDecimals = 2, kMostDecimals = 9;

using Cells = std::array<std::string, kLastColumn + 1>; ///< columns 1..5

bool ShowsMichaelisMenten(const ProjectState& ps) {
    return IsEnzymeModel(ps.ModelId) && ps.MMDiagram;
}

void AppendLine(std::string& table, const Cells& cells) {
    table += kIndent;
    for (int column = 1; column <= kLastColumn; ++column) {
        const std::string& cell = cells[static_cast<std::size_t>(column)];
        if (column > 1)
            table += '\t';
        table += cell;
        // Blank-padded by characters; headings longer than a column are not cut.
        table.append(kColumnWidth - std::min(kColumnWidth, cell.size()), ' ');
    }
    table += kCrLf;
}

std::string Heading(const ProjectState& ps, int slot) {
    const std::string species = SpeciesName(ps.ModelId, slot);
    return ps.RateDiagram ? "r(" + species + ")/(mol/L/" + ps.TimeUnitText + ")"
                          : "c" + species + "/(mol/L)";
}

Cells Headings(const ProjectState& ps, const std::array<int, 6>& columns) {
    Cells cells;
    if (ShowsMichaelisMenten(ps)) {
        cells[1] = ps.MMNormalized ? "c(S))/KM (norm.)" : "c(S))/ (mol/L)";
        cells[kLastColumn] = "rP/rP,max";
        return cells;
    }
    cells[1] = " t/" + ps.TimeUnitText;
    for (std::size_t column = 2; column <= kLastColumn; ++column)
        if (columns[column] != 0)
            cells[column] = Heading(ps, columns[column]);
    return cells;
}

/// As many decimals as tell a step: all of its digits when they are few, else two of them.
std::string TimePicture(double step) {
    int decimals = kLeastDecimals;
    if (step > 0 && std::isfinite(step)) {
        const int twoDigits = 1 - static_cast<int>(std::floor(std::log10(step)));
        const auto exact = [step](int places) {
            const double scaled = step * std::pow(10, places);
            return std::abs(scaled - std::round(scaled)) < 1e-6 * scaled;
        };
        while (decimals < std::min(twoDigits, kMostDecimals) && !exact(decimals))
            ++decimals;
    }
    return "#####0." + std::string(static_cast<std::size_t>(decimals), '0');
}

} // namespace

std::array<int, 6> SimTableColumns(int model) {
    const std::string mask = Model(model).speciesMask;
    // The last column is that of P, unless Q takes it and P moves to the place of C.
    const int columnOfP = InMask(mask, kSlotQ) ? kLastColumn - 1 : kLastColumn;
    const std::array<int, kSpecies + 1> columnOf{0, 2, 3, 4, columnOfP, kLastColumn};
    std::array<int, 6> columns{};
    for (int slot = 1; slot <= kSpecies; ++slot)
        if (InMask(mask, slot))
            columns[static_cast<std::size_t>(columnOf[static_cast<std::size_t>(slot)])] = slot;
    return columns;
}

std::string SimTableText(const ProjectState& ps) {
    const bool michaelis = ShowsMichaelisMenten(ps);
    std::array<int, 6> columns = SimTableColumns(ps.ModelId);
    std::string table;
    AppendLine(table, Headings(ps, columns));
    table += kCrLf;
    if (michaelis)
        columns = {0, 0, 0, 0, 0, kSlotP};
    const bool rates = michaelis || ps.RateDiagram;
    const std::string picture = TimePicture(ps.tSim[1] - ps.tSim[0]);
    for (std::size_t i = 0; i <= static_cast<std::size_t>(ps.NPoints); ++i) {
        Cells cells;
        cells[1] = FormatNumber(ps.tSim[i], picture);
        for (std::size_t column = 2; column <= kLastColumn; ++column)
            if (const int slot = columns[column]; slot != 0)
                cells[column] =
                    SingleText(rates ? static_cast<double>(rSim(ps, slot)[i]) : cSim(ps, slot)[i]);
        AppendLine(table, cells);
    }
    return table;
}

} // namespace zorvant
