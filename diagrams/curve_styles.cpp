#include "diagrams/curve_styles.h"

#include "diagrams/diagram_kinds.h"
#include "engine/modes.h"

#include <array>
#include <string_view>

namespace zorvant {
namespace {

constexpr std::array<Colour, 7> kPalette{0x000000,  // black
                                         0x0072B2,  // blue
                                         0xD55E00,  // vermillion
                                         0x009E73,  // bluish green
                                         0xCC79A7,  // reddish purple
                                         0x56B4E9,  // sky blue
                                         0xE69F00}; // orange
constexpr std::array<LinePattern, 4> kDashes{LinePattern::Solid, LinePattern::Dashed,
                                             LinePattern::DashDot, LinePattern::Dotted};
constexpr std::string_view kSpeciesLetters = "ABCPQ";

template <class T, std::size_t n> T InCycle(const std::array<T, n>& cycle, int number) {
    return cycle[static_cast<std::size_t>(number) % n];
}

} // namespace

Colour PaletteColour(int number) {
    return InCycle(kPalette, number);
}

LineStyle DefaultLine(int place, int draw, int curves, Colour chosen) {
    const int dash = curves > 1 ? place : draw;
    const LinePattern pattern = InCycle(kDashes, dash);
    return {.pattern = pattern,
            .width = pattern == LinePattern::Dotted ? 2 : 1, // grid lines are dotted too
            .colour = chosen == kBlack ? PaletteColour(place + draw) : chosen};
}

Colour PointColour(const ProjectState& ps, int kind, int set) {
    if (ps.PresetColor != kBlack)
        return ps.PresetColor;
    if (kind == kKindPoints && set <= kSpecies)
        return PaletteColour(set - 1);
    const DiagramKindRow* row = FindDiagramKind(kind == kKindFitPoints ? ps.ModelId : kind);
    if (row == nullptr || set > kSpecies)
        return kBlack;
    const std::string_view species = row->species;
    const auto place = species.find(kSpeciesLetters[static_cast<std::size_t>(set - 1)]);
    return place == std::string_view::npos ? kBlack : PaletteColour(static_cast<int>(place));
}

} // namespace zorvant
