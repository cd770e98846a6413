// What a diagram is, without the window that shows it: its surface with up to 24 curves, 7 sets of
// measured or manual points, three marks, labels, legend and texts; and which slots are taken.
#pragma once

#include "diagrams/diagram_kinds.h"
#include "diagrams/draw_names.h"
#include "diagrams/plot_surface.h"

#include <array>
#include <string>
#include <vector>

namespace zorvant {

/// Sampling grid of curves: x step = (xMax - xMin)/300.
inline constexpr int kCurveSteps = 300;
/// Points that the curve buffer has room for when a diagram opens.
inline constexpr int kCurveBufferPoints = 2000;

struct Diagram {
    PlotSurface surface;
    std::array<bool, kCurveSlots + 1> CurveSlotFree{}; ///< by slot 1..24
    int CurveSlot = 0;                                 ///< of the curve being drawn
    int CurveSteps = kCurveSteps;
    int ManualSet = kManualSet;
    LinePattern GridPattern = LinePattern::Dotted;
    int GridMode = 3; ///< 0 none, 1 y only, 2 x only, 3 both
    Colour LegendBackColor = kWhite;
    double RegressA = 0; ///< intercept and slope of the last straight line
    double RegressB = 0;
    float RegressR2 = 0; ///< its coefficient of determination
    std::string DrawNote;
    bool DrawError = false;
    /// Rows that met the condition of the last straight line but no logarithm or division takes.
    int RegressLeftOut = 0;
    DiagramTexts GrafText;
    int DrawNumber = 0;           ///< how many draws have made curves
    std::vector<CurveDraw> draws; ///< those of courses whose curves are still there
    std::array<bool, kCurveSlots + 1> LabelMoved{}; ///< by slot: the user has placed its label
    SeriesPoint selected; ///< the curve or point set that the keys walk along
};

/// All series empty, all slots free, nothing noted.
void EmptyDiagram(ProjectState& ps, Diagram& diagram);

/// Lines and symbols of all series as a new diagram has them, in the colour given.
void StyleSeries(PlotSurface& surface, Colour colour);

/// Header and axis titles of the frame, no additional text, a hidden legend.
/// Given: small  smaller fonts, for narrow screens
void WriteFrameTexts(const DiaKoord& frame, Diagram& diagram, bool small);

/// Labels 1..28 hidden and with their usual looks; those of the curves read the slot's number.
void ResetLabels(PlotSurface& surface, bool small);

/// Both axes with a complete dotted grid, origin and numbers in the minima.
void SetUpAxes(Diagram& diagram);

/// Contents from elsewhere get as many series and labels as a diagram has, and no frame series.
void FitContents(PlotContents& contents);

/// Everything of the contents that is look and not content: colours, fonts, styles, legend,
/// margins, grid, where origin and numbers stand. Data, texts, frames and spacings stay.
void TakeLook(PlotSurface& surface, const PlotContents& pattern);

/// Whether a kind is a course or a straight line from which a half-life of A or B can be told.
bool OffersHalfLifeA(const ProjectState& ps, int kind);
bool OffersHalfLifeB(const ProjectState& ps, int kind);
/// Kinds without a curve of their own.
bool ShowsPointsOnly(int kind);
/// Kinds whose curve the residence-time dialogs bring after the diagram is open.
bool IsResidenceKind(int kind);

} // namespace zorvant
