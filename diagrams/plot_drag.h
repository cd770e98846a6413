// Texts, legend and labels that are dragged over the picture.
#pragma once

#include "diagrams/diagram.h"

namespace zorvant {

/// What the mouse has hold of, and where.
struct PlotDrag {
    enum class Part { None, Header, Footer, Legend, Label };
    Part part = Part::None;
    int label = 0;
    double x = 0, y = 0; ///< from the upper left corner of the part, pixels
    bool moved = false;
};

/// What can be dragged at a place; Part::None where nothing can.
PlotDrag Grab(const PlotSurface& surface, double px, double py);

/// The part follows the pointer: texts and legend inside the picture, a label along its curve.
void DragTo(Diagram& diagram, PlotDrag& drag, double px, double py);

} // namespace zorvant
