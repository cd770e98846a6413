// Everything that a diagram shows, as one plain record, and the operations on it. The record is
// complete in itself: tests read it, a design file is its contents written down, and nearest point
// and pixel to data work on it with the rectangles that the view reports back. A view only paints
// what stands here.
//
// For a view:
// - `revision` goes up once for each repaint that is due (the outermost EndBatch after a change, or
//   a change outside any batch); `onRepaint` is called then. Compare it with the last painted one.
// - Paint with ShownRange(surface, axis) and MarksOf(surface, axis): they settle what a reversed,
//   empty or (on a logarithmic axis) non-positive frame looks like, and where numbers, ticks and
//   grid lines stand.
// - A point whose x or y is kHole is not painted and breaks the line.
// - Labels: LabelPosition gives the point they stand at, offset and anchor say on which side.
// - After laying out, write the rectangles into `layout`.
#pragma once

#include "diagrams/plot_areas.h"
#include "diagrams/plot_axes.h"
#include "diagrams/plot_contents.h"
#include "diagrams/plot_hits.h"
#include "diagrams/plot_labels.h"
#include "diagrams/plot_marks.h"
#include "diagrams/plot_series.h"
