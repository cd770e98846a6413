// The frame of a diagram: where its four limits come from, where they are kept and how they are
// applied to the plot surface.
#pragma once

#include "diagrams/diagram_kinds.h"
#include "diagrams/plot_surface.h"

namespace zorvant {

/// The four limits of the frame from the memory of ranges; an unknown kind leaves them.
void FuKoordLesen(const ProjectState& ps, int kind, const KoordMemory& memory, DiaKoord& frame);

/// The limits back into the memory. Kinds with fixed limits store nothing.
void FuKoordMerken(const ProjectState& ps, int kind, KoordMemory& memory, const DiaKoord& frame);

/// The ranges that measured points need, with a margin of a twentieth of their width.
/// Given:    a negative kind; any other does nothing; all rows count, switched-off ones too
/// Returned: ps.Memory
/// Formula:  m = (upper - lower)/20; RngT, RngC and RngR grow at their upper end only
void FuDatenBereiche(ProjectState& ps, int kind);

/// Applies the frame to the plot surface: axes X, Y and Y2, and the hidden series that spans it.
void FuKoordSetzen(const DiaKoord& frame, PlotSurface& surface);

/// Whether a point lies in the frame, its edges included.
bool InsideFrame(const DiaKoord& frame, double x, double y);

} // namespace zorvant
