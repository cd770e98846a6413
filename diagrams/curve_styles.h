// The looks that curves and points begin with, so that they can be told apart.
#pragma once

#include "diagrams/plot_styles.h"
#include "engine/project_state.h"

namespace zorvant {

/// A cycle of seven colours that the colour-blind can tell apart.
/// Source: M. Okabe, K. Ito, Color Universal Design, J*FLY 2008; its yellow is too pale for lines.
Colour PaletteColour(int number);

/// Given:    place  among the curves of one draw, from 0: it has a dash of its own, so that species
///                  can be told apart in grey as well
///           draw   from 0: its curves take the next colours; draws of one curve take the next
///                  dashes too
///           curves to one draw
///           chosen the colour that the user wants; black leaves the choice to the palette
LineStyle DefaultLine(int place, int draw, int curves, Colour chosen);

/// The colour of a point set: that of the curve of its species in the first draw.
Colour PointColour(const ProjectState& ps, int kind, int set);

} // namespace zorvant
