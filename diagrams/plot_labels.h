// Labels: texts that stand at a point of a curve or at a place on the axes.
#pragma once

#include "diagrams/plot_contents.h"

namespace zorvant {

/// Adds a label at the end. Returned: its number.
int AddLabel(PlotSurface& surface, const PlotLabel& label = {});
const PlotLabel& GetLabel(const PlotSurface& surface, int label);
void SetLabelText(PlotSurface& surface, int label, const std::string& text);
void SetLabelVisible(PlotSurface& surface, int label, bool on);
/// A point number outside the series is moved to its nearest point.
/// Returned: the point as the label keeps it, at least 1.
int AttachLabelToPoint(PlotSurface& surface, int label, int group, int series, int point);
void AttachLabelToCoord(PlotSurface& surface, int label, double x, double y);
void SetLabelOffset(PlotSurface& surface, int label, int pixels);
void SetLabelAnchor(PlotSurface& surface, int label, LabelAnchor anchor);
void SetLabelFont(PlotSurface& surface, int label, const FontChoice& font);
void SetLabelColours(PlotSurface& surface, int label, const Colours& colours);
void SetLabelBorder(PlotSurface& surface, int label, const Border& border);

/// Where a label stands; nothing when it is hidden or has no point to stand at.
std::optional<DataPoint> LabelPosition(const PlotSurface& surface, int label);

} // namespace zorvant
