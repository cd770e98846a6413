// A diagram made ready for a figure of a certain size: what can be read on the screen is too large
// in a column of print and too small on a slide.
#pragma once

#include "diagrams/plot_contents.h"

#include <array>

namespace zorvant {

struct FigurePreset {
    const char* name;
    double width, height; ///< cm; 0: as typed
    double scale;         ///< of fonts, lines and symbols
};
inline constexpr std::array<FigurePreset, 4> kFigures{{{"as on the screen", 0, 0, 1},
                                                       {"one column", 8.5, 6.4, 0.73},
                                                       {"two columns", 17.5, 11, 0.9},
                                                       {"slide", 25.4, 14.3, 1.8}}};

/// The same diagram with fonts, lines, symbols and distances of another size.
PlotSurface ScaledFigure(const PlotContents& contents, double scale);

} // namespace zorvant
