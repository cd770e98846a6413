#include "dialogs/diagram/diagram_points.h"

#include "diagrams/straight_lines.h"
#include "dialogs/common/names.h"
#include "dialogs/diagram/coordinates.h"
#include "dialogs/diagram/diagram_legend.h"
#include "engine/arithmetic.h"
#include "engine/modes.h"
#include "engine/reaction_catalogue.h"
#include "platform/host.h"
#include "platform/number_text.h"

#include <optional>

namespace zorvant {
namespace {

/// Which sets a kind fills with plain concentrations; false: none.
bool TakesSpecies(const Workspace& ps, int kind, int slot) {
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
std::optional<DataPoint> EvaluatedPoint(const Workspace& ps, const EvaluationKind& evaluation,
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

bool HasPoints(const DiagramDocument& doc, int set) {
    return GetPointCount(doc.surface, kPoints, set) > 0;
}

void EmptyPointSet(DiagramDocument& doc, int set) {
    SetPointCount(doc.surface, kPoints, set, 0);
    // The field keeps its text, so that points loaded again have their legend.
    SetSeriesLabel(doc.surface, kPoints, set, "");
    ShowPage(doc.tabPunkte, set - 1, false);
}

} // namespace

bool HasPointsForDiagram(const Workspace& ps) {
    for (int slot = 1; slot <= kSpecies; ++slot)
        if (InMask(ps.SpeciesMask, slot) && ps.ColumnHasData[static_cast<std::size_t>(slot)])
            return true;
    return (ps.LambdaMode && ps.HasLambdaData) ||
           (ps.SpeciesMask.size() == 5 && ps.SpeciesMask[4] == '2');
}

void FuPunkteLaden(Workspace& ps, DiagramDocument& doc, bool& anyInside) {
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

    const PlotBatch batch(doc.surface);
    for (int set = 1; set < kManualSet; ++set) {
        SetBuilder& built = sets[static_cast<std::size_t>(set)];
        if (built.any) {
            SetPoints(doc.surface, kPoints, set, std::move(built.x), std::move(built.y));
            SetSeriesDisplay(doc.surface, kPoints, set, SeriesDisplay::Shown);
        } else if (BelongsToKind(kind, set)) {
            SetPointCount(doc.surface, kPoints, set, 0);
        }
    }
}

void LoadPointSets(Workspace& ps, DiagramDocument& doc, bool& anyInside) {
    const PlotBatch batch(doc.surface);
    doc.mnuDelPoints.enabled = doc.mnuDelTotal.enabled = true;
    FuPunkteLaden(ps, doc, anyInside);
    for (int set = 1; set <= kPointSets; ++set) {
        const bool shown = HasPoints(doc, set);
        ShowPage(doc.tabPunkte, set - 1, shown);
        doc.mnuSubDelPoints(set).enabled = shown;
        if (!shown)
            continue;
        SetSeriesLabel(doc.surface, kPoints, set, doc.txtLegendPoints(set).text);
        SetSymbolColour(doc.surface, kPoints, set, ps.PresetColor);
        doc.cmdPunktFarbe(set).backColour = ps.PresetColor;
    }
}

void mnuAddPunkte_Click(Workspace& ps, DiagramDocument& doc) {
    doc.mnuDelPoints.enabled = doc.mnuDelTotal.enabled = true;
    if (!ps.DiagramOfTk && !IsEnzymeModel(ps.ModelId) && !HasPointsForDiagram(ps)) {
        ShowMessage(
            JoinLines({"For this diagram no c-t points are loaded.",
                       "Load concentration data from file or use the Data Editor for manual "
                       "input."}),
            "Execution not possible", Icon::Critical);
        return;
    }
    bool anyInside = false;
    LoadPointSets(ps, doc, anyInside);
    if (!anyInside)
        WarnPointsOutside("Enlarge the range of coordinates.");
}

void WarnPointsOutside(const std::string& advice) {
    ShowMessage(
        JoinLines(
            {"all experimental points are outside the coordinate range of the diagram", advice}),
        "WARNING", Icon::Warning);
}

void cmdManuPoints_Click(Workspace& ps, DiagramDocument& doc) {
    const int set = doc.ManualSet;
    if (HasPoints(doc, set) && Ask("Overwright the loaded data set?", "WARNING", Icon::Warning,
                                   Buttons::YesNo, Answer::No) != Answer::Yes) {
        // The editor that the points come from must not cover the diagram.
        if (Form* editor = FindForm(ps.desktop, name::kXYEditor))
            HideForm(*editor);
        return;
    }
    const PlotBatch batch(doc.surface);
    doc.mnuDelTotal.enabled = true;
    ShowPage(doc.tabPunkte, set - 1, true);
    doc.tabPunkte.selected = set - 1;
    doc.txtLegendPoints(set).text = "manual";
    SetSeriesLabel(doc.surface, kPoints, set, "manual");
    doc.cmdPunktFarbe(set).backColour = ps.PresetColor;
    SetSymbolColour(doc.surface, kPoints, set, ps.PresetColor);
    std::vector<double> x, y;
    for (int i = 1; i <= BufferCount(ps.ManualBuf); ++i) {
        x.push_back(static_cast<double>(ps.ManualBuf[static_cast<std::size_t>(i)].x));
        y.push_back(static_cast<double>(ps.ManualBuf[static_cast<std::size_t>(i)].y));
    }
    SetPoints(doc.surface, kPoints, set, std::move(x), std::move(y));
    SetSeriesDisplay(doc.surface, kPoints, set, SeriesDisplay::Shown);
    doc.mnuDelPoints.enabled = doc.mnuSubDelPoints(set).enabled = true;
}

void mnuSubDelPoints_Click(DiagramDocument& doc, int set) {
    doc.fraKurven.visible = doc.fraTabs.visible = doc.fraPunkte.visible = false;
    const PlotBatch batch(doc.surface);
    if (set > 0) {
        EmptyPointSet(doc, set);
        doc.mnuSubDelPoints(set).enabled = false;
        return;
    }
    ClearSeriesLabels(doc.surface, kPoints);
    for (int i = 1; i <= kPointSets; ++i)
        EmptyPointSet(doc, i);
}

void cmdDelPoints_Click(DiagramDocument& doc, int set) {
    mnuSubDelPoints_Click(doc, set);
}

// --- design

void ShowPointDesign(DiagramDocument& doc) {
    for (int set = 1; set <= kPointSets; ++set) {
        const bool shown = HasPoints(doc, set);
        const SymbolStyle& symbol = GetSymbol(doc.surface, kPoints, set);
        doc.cmdPunktFarbe(set).backColour = shown ? symbol.colour : doc.ps.PresetColor;
        doc.cmbPunktStil(set).index = static_cast<int>(symbol.shape);
        doc.UpDown1_PointSize(set).value = symbol.size;
        doc.Label56(set).text = std::to_string(symbol.size);
        if (!shown)
            continue;
        doc.txtLegendPoints(set).text = GetSeriesLabel(doc.surface, kPoints, set);
        TabPage& page = doc.tabPunkte.pages[static_cast<std::size_t>(set - 1)];
        if (page.text.empty())
            page.text = set == kManualSet ? "manual" : "set " + std::to_string(set);
    }
}

void mnuPunktDesign_Click(Workspace&, DiagramDocument& doc) {
    FuPanelsZu(doc);
    ShowPointDesign(doc);
    int front = -1;
    for (int set = 1; set <= kPointSets; ++set) {
        const bool shown = HasPoints(doc, set);
        ShowPage(doc.tabPunkte, set - 1, shown);
        if (shown && (front < 0 || doc.tabPunkte.selected == set - 1))
            front = set - 1;
    }
    if (front >= 0)
        doc.tabPunkte.selected = front;
    doc.fraPunkte.visible = true;
    doc.setFocus = &doc.tabPunkte;
}

void cmbPunktStil_Click(DiagramDocument& doc, int set) {
    SymbolStyle symbol = GetSymbol(doc.surface, kPoints, set);
    symbol.shape = static_cast<SymbolShape>(
        std::clamp(doc.cmbPunktStil(set).index, 0, static_cast<int>(SymbolShape::Hidden)));
    SetSymbol(doc.surface, kPoints, set, symbol);
}

void UpDown1_PointSize_Change(DiagramDocument& doc, int set) {
    SymbolStyle symbol = GetSymbol(doc.surface, kPoints, set);
    symbol.size = doc.UpDown1_PointSize(set).value;
    doc.Label56(set).text = std::to_string(symbol.size);
    SetSymbol(doc.surface, kPoints, set, symbol);
}

void cmdPunktFarbe_Click(DiagramDocument& doc, int set) {
    const auto colour = host().chooseColour(GetSymbol(doc.surface, kPoints, set).colour);
    if (!colour)
        return;
    doc.cmdPunktFarbe(set).backColour = *colour;
    SetSymbolColour(doc.surface, kPoints, set, *colour);
}

} // namespace zorvant
