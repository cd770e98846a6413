// How the operations on a diagram reach into its record and tell that a repaint is due.
#pragma once

#include "diagrams/plot_contents.h"

#include <cmath>
#include <stdexcept>

namespace zorvant {

/// A number that counts from 1 as an index of a list whose element 0 is unused.
/// Errors: std::out_of_range below 1
inline std::size_t PlotIndex(int number) {
    if (number < 1)
        throw std::out_of_range("numbers of series, points and labels start at 1");
    return static_cast<std::size_t>(number);
}

inline double FiniteOrHole(double value) {
    return std::isfinite(value) ? value : kHole;
}

/// The data of a group have changed: painted at once unless the group or everything is held.
void MarkDataChanged(PlotSurface& surface, int group);

/// Writes a part of the record; a repaint is due where it was something else.
template <class T> void Assign(PlotSurface& surface, T& target, const T& value) {
    if (target == value)
        return;
    target = value;
    MarkChanged(surface);
}

} // namespace zorvant
