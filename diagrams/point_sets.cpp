#include "diagrams/point_sets.h"

#include "diagrams/curve_points.h"
#include "diagrams/ranges.h"
#include "diagrams/straight_lines.h"
#include "engine/arithmetic.h"
#include "engine/modes.h"
#include "engine/reaction_catalogue.h"
#include "platform/number_text.h"

#include <array>
#include <optional>

namespace zorvant {
namespace {

/// Which sets a kind fills with plain concentrations; false: none.
bool TakesSpecies(const ProjectState& ps, int kind, int slot) {
    if (kind == kKindSingleSpecies)
        return slot == ps.SingleSpecies && ps.ColumnHasData[static_cast<std::size_t>(slot)];
    if (kind == kKindPoints)
        return ps.ColumnHasData[static_cast<std::size_t>(slot)];
    if (kind == kKindFitPoints || (kind >= 1 && kind <= kModels))
        return InMask(ps.SpeciesMask, slot) && ps.ColumnHasData[static_cast<std::size_t>(slot)];
    return false;
}

/// The sets of a kind, whether or not the data have points for them.
bool BelongsToKind(int kind, int set) {
    if (const EvaluationKind* evaluation = FindEvaluation(kind))
        return evaluation->pointSet == set;
    const bool species = kind == kKindSingleSpecies || kind == kKindPoints ||
                         kind == kKindFitPoints || (kind >= 1 && kind <= kModels);
    return species && set <= kSpecies;
}

double Rounded(double value, bool fullWidth) {
    return fullWidth ? Finite(value) : static_cast<double>(ToSingle(value));
}

/// A row as a point of an evaluation; nothing when it is none or can't be transformed.
std::optional<DataPoint> EvaluatedPoint(const ProjectState& ps, const EvaluationKind& evaluation,
                                        const ExpPoint& row) {
    if (!evaluation.drawn(ps, row))
        return std::nullopt;
    try {
        return DataPoint{Rounded(evaluation.x(ps, row), evaluation.fullWidthX),
                         Rounded(evaluation.y(ps, row), evaluation.fullWidthY)};
    } catch (const ArithmeticError&) {
        return std::nullopt;
    }
}

std::optional<DataPoint> SpeciesPoint(const ExpPoint& row, int slot) {
    try {
        return DataPoint{Rounded(row.t, false), Finite(row.c(slot))};
    } catch (const ArithmeticError&) {
        return std::nullopt;
    }
}

/// One set while it is filled: a place for each row, holes at first.
struct SetBuilder {
    std::vector<double> x, y;
    bool any = false;

    void Put(int row, int rows, const DataPoint& point) {
        x.resize(static_cast<std::size_t>(rows), kHole);
        y.resize(static_cast<std::size_t>(rows), kHole);
        x[static_cast<std::size_t>(row - 1)] = point.x;
        y[static_cast<std::size_t>(row - 1)] = point.y;
        any = true;
    }
};

} // namespace

bool HasPointsForDiagram(const ProjectState& ps) {
    for (int slot = 1; slot <= kSpecies; ++slot)
        if (InMask(ps.SpeciesMask, slot) && ps.ColumnHasData[static_cast<std::size_t>(slot)])
            return true;
    return (ps.LambdaMode && ps.HasLambdaData) ||
           (ps.SpeciesMask.size() == 5 && ps.SpeciesMask[4] == '2');
}

void FuPunkteLaden(ProjectState& ps, PlotSurface& surface, bool& anyInside) {
    anyInside = false;
    const int kind = ps.DiagramKind;
    if (kind == kKindFitPoints)
        FuMaskenSetzen(ps, ps.ModelId);
    const EvaluationKind* evaluation = FindEvaluation(kind);

    std::array<SetBuilder, kPointSets + 1> sets;
    const auto take = [&](int set, int row, const std::optional<DataPoint>& point) {
        if (!point)
            return;
        sets[static_cast<std::size_t>(set)].Put(row, ps.ExpPointCount, *point);
        anyInside = anyInside || InsideFrame(ps.Frame, point->x, point->y);
    };
    for (int i = 1; i <= ps.ExpPointCount; ++i) {
        const ExpPoint& row = ps.ExpData.at(static_cast<std::size_t>(i));
        if (row.exclude == -1)
            continue;
        if (evaluation != nullptr)
            take(evaluation->pointSet, i, EvaluatedPoint(ps, *evaluation, row));
        else
            for (int slot = 1; slot <= kSpecies; ++slot)
                if (TakesSpecies(ps, kind, slot))
                    take(slot, i, SpeciesPoint(row, slot));
    }

    const PlotBatch batch(surface);
    for (int set = 1; set < kManualSet; ++set) {
        SetBuilder& built = sets[static_cast<std::size_t>(set)];
        if (built.any) {
            SetPoints(surface, kPoints, set, std::move(built.x), std::move(built.y));
            SetSeriesDisplay(surface, kPoints, set, SeriesDisplay::Shown);
        } else if (BelongsToKind(kind, set)) {
            SetPointCount(surface, kPoints, set, 0);
        }
    }
}

bool IsFunctionOfC(const ProjectState& ps) {
    return Val(ps.SpeciesMask) == 2;
}

bool OffersPointSet(const ProjectState& ps, const PlotSurface& surface, int set) {
    if (set == kManualSet)
        return GetPointCount(surface, kPoints, set) > 0;
    if (set == kPairSet)
        return (ps.DiagramOfTk && ps.nkTPoints > 1) || ps.DiagramOfRc;
    const bool hasData = ps.ColumnHasData[static_cast<std::size_t>(set)];
    if (ps.DiagramKind == kKindSingleSpecies)
        return set == ps.SingleSpecies;
    if (IsFunctionOfC(ps))
        return set == 1 && hasData;
    return InMask(ps.SpeciesMask, set) && hasData;
}

bool HasPoints(const PlotSurface& surface, int set) {
    return GetPointCount(surface, kPoints, set) > 0;
}

bool AnyPoints(const PlotSurface& surface) {
    for (int set = 1; set <= kPointSets; ++set)
        if (HasPoints(surface, set))
            return true;
    return false;
}

void WriteManualSet(PlotSurface& surface, int set, const PointBuffer& manual, Colour colour) {
    CurvePoints points = PointsOf(manual);
    const PlotBatch batch(surface);
    SetSeriesLabel(surface, kPoints, set, kManualName);
    SetSymbolColour(surface, kPoints, set, colour);
    SetPoints(surface, kPoints, set, std::move(points.x), std::move(points.y));
    SetSeriesDisplay(surface, kPoints, set, SeriesDisplay::Shown);
}

void EmptyPointSet(PlotSurface& surface, int set) {
    const PlotBatch batch(surface);
    SetPointCount(surface, kPoints, set, 0);
    SetSeriesLabel(surface, kPoints, set, "");
}

} // namespace zorvant
