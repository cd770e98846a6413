// Diagrams to look at in tests of the view.
#pragma once

#include "diagrams/plot_surface.h"

#include <cmath>
#include <string>

namespace zorvant {

/// An empty diagram with axes from 0 to 10 and 0 to 1, fonts and titles set.
inline PlotSurface EmptyDiagram() {
    PlotSurface surface;
    SetSeriesCount(surface, kLines, kLineSeries);
    SetSeriesCount(surface, kPoints, kPointSets);
    surface.labels.resize(1);
    PlotLabel label;
    label.offset = 10;
    for (int number = 1; number <= kPlotLabels; ++number)
        AddLabel(surface, label);
    for (const int group : {kLines, kPoints})
        for (int series = 1; series <= GetSeriesCount(surface, group); ++series) {
            SetLineStyle(surface, group, series,
                         {.pattern = group == kLines ? LinePattern::Solid : LinePattern::None});
            SetSymbol(
                surface, group, series,
                {.shape = group == kLines ? SymbolShape::Hidden : SymbolShape::Dot, .size = 8});
        }
    SetAxis(surface, AxisId::X, 0, 10, 0, 10);
    SetAxis(surface, AxisId::Y, 0, 1, 0, 1);
    SetAxisTitle(surface, AxisId::X, "t/ s", TextRotation::Horizontal);
    SetAxisTitle(surface, AxisId::Y, "c(A)/ (mol/L)", TextRotation::Vertical);
    SetHeader(surface, "course of concentration for the 1st-order reaction A => P");
    return surface;
}

/// A decay c = exp(-t/tau) in a curve slot, with its label and legend text.
inline void AddDecay(PlotSurface& surface, int slot, double tau, const std::string& name) {
    std::vector<double> t, c;
    for (int i = 0; i <= 200; ++i) {
        t.push_back(i * 0.05);
        c.push_back(std::exp(-t.back() / tau));
    }
    SetPoints(surface, kLines, slot, t, c);
    SetSeriesLabel(surface, kLines, slot, name);
    SetLabelText(surface, slot, name);
    SetLabelVisible(surface, slot, true);
    AttachLabelToPoint(surface, slot, kLines, slot, 100);
}

} // namespace zorvant
