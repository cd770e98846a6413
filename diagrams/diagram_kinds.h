// What each kind of diagram is called, shows and reads its ranges from, as one table.
#pragma once

#include "engine/modes.h"
#include "engine/project_state.h"

#include <span>
#include <string>
#include <string_view>

namespace zorvant {

/// Texts of the kinds 1..20 outside the batch reactor.
struct ReactorTexts {
    const char* cstrHeader = nullptr;
    const char* cascadeHeader = nullptr;
    const char* stageTitle = nullptr; ///< x title of tanks in series by stage
    const char* tubeHeader = nullptr;
    const char* tubeTitle = nullptr; ///< x title in the tube
};

/// In the texts {U} stands for the time unit, {KM} for the Michaelis constant in plain number form,
/// {c} for the letter of the single species.
struct DiagramKindRow {
    int kind;
    int curves;
    const char* header;
    const char* xTitle;
    const char* yTitle;
    /// Where the frame is read from and kept; null: `fixed`.
    Range KoordMemory::*x = nullptr;
    Range KoordMemory::*y = nullptr;
    /// xMin, xMax, yMin, yMax of the kinds that remember nothing.
    std::array<float, 4> fixed{};
    /// Letters of the curves in the order they are drawn; kinds 1..20 only.
    const char* species = "";
    ReactorTexts reactor{};
    bool pointLegend = false;
    bool sideWindow = false;
};

std::span<const DiagramKindRow> DiagramKinds();
/// Null for a kind that does not exist.
const DiagramKindRow* FindDiagramKind(int kind);

/// Header and titles of a diagram.
struct DiagramTexts {
    std::string header, xTitle, yTitle;
    bool operator==(const DiagramTexts&) const = default;
};

/// The texts and the number of curves of a kind in the present context (reactor, fit, lambda data).
/// Returned: false for an unknown kind; then texts and curves stay as they are.
bool DescribeDiagram(const ProjectState& ps, int kind, DiagramTexts& texts, int& curves);

/// Whether a kind shows a course of a model (1..20, rates 51..70); its model, 0 for another kind.
bool IsModelKind(int kind);
int ModelOfKind(int kind);

/// Whether the diagram is the r(P)-c(S) curve of the enzyme model.
bool IsMichaelisMentenCurve(const ProjectState& ps);

/// "c(A)".."c(Q)" of a species slot, for the enzyme model "c(E)", "c(S)", "c(ES)".
std::string PointSetName(const ProjectState& ps, int slot);

} // namespace zorvant
