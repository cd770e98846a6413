// The chart by keys: the points of the selected curve or point set one after the other, with their
// values in the readout.
#pragma once

#include "diagrams/chart_walk.h"
#include "dialogs/diagram/diagram_document.h"

namespace zorvant {

/// Walks over the curves 1..24 and the point sets, as far as they can be seen in the frame.
/// Returned: false where there is nothing to walk to; the key is then nobody's
bool KeyOnChart(Workspace& ps, DiagramDocument& doc, ChartKey key);

/// The curve or point set that the keys begin with: drawn, clicked, or brought to the front of its
/// panel last.
void SelectSeries(DiagramDocument& doc, int group, int series, int point = 0);

/// The readout as a sentence: "curve 2, B: X =  50;      Y =  0.5", for those who hear it.
std::string SpokenReadout(const DiagramDocument& doc);

} // namespace zorvant
