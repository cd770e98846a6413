#include "dialogs/diagram/diagram_history.h"

#include <algorithm>

namespace zorvant {
namespace {

constexpr std::size_t kMostSteps = 40;
constexpr double kOneStep = 1; // seconds between two changes of one step

// Parts of a diagram.
constexpr unsigned kData = 1, kLooks = 2, kLabels = 4, kTexts = 8, kLegend = 16, kAxes = 32,
                   kGrounds = 64;

bool SamePoints(const std::vector<PlotSeries>& one, const std::vector<PlotSeries>& other) {
    return std::ranges::equal(one, other, [](const PlotSeries& a, const PlotSeries& b) {
        return a.x == b.x && a.y == b.y && a.display == b.display;
    });
}

unsigned ChangedParts(const PlotContents& a, const PlotContents& b) {
    unsigned parts = 0;
    for (const int group : {kLines, kPoints}) {
        const auto at = static_cast<std::size_t>(group);
        if (a.series[at] == b.series[at])
            continue;
        parts |= SamePoints(a.series[at], b.series[at]) ? kLooks : kData;
    }
    const auto part = [](bool same, unsigned changed) { return same ? 0U : changed; };
    parts |= part(a.labels == b.labels, kLabels) | part(a.legend == b.legend, kLegend) |
             part(a.axes == b.axes, kAxes) |
             part(a.header == b.header && a.footer == b.footer, kTexts);
    PlotContents rest = b; // what is not told apart above
    rest.series = a.series;
    rest.labels = a.labels;
    rest.header = a.header;
    rest.footer = a.footer;
    rest.legend = a.legend;
    rest.axes = a.axes;
    return parts | part(a == rest, kGrounds);
}

DiagramState StateOf(const Diagram& diagram) {
    return {diagram.surface, diagram.draws, diagram.LabelMoved};
}

const DiagramState& MoveStep(std::vector<DiagramState>& from, std::vector<DiagramState>& to,
                             DiagramState& present) {
    to.push_back(std::move(present));
    present = std::move(from.back());
    from.pop_back();
    return present;
}

} // namespace

bool DiagramHistory::Note(const Diagram& diagram, double seconds) {
    if (diagram.surface.revision == revision_)
        return false;
    revision_ = diagram.surface.revision;
    const unsigned parts = ChangedParts(present_.contents, diagram.surface);
    if (parts == 0)
        return false;
    const bool goesOn = parts == lastParts_ && (parts & kData) == 0 && !undo_.empty() &&
                        seconds >= lastSeconds_ && seconds - lastSeconds_ < kOneStep;
    if (!goesOn)
        undo_.push_back(std::move(present_));
    if (undo_.size() > kMostSteps)
        undo_.erase(undo_.begin());
    redo_.clear();
    present_ = StateOf(diagram);
    lastParts_ = parts;
    lastSeconds_ = seconds;
    return true;
}

void DiagramHistory::Begin(const Diagram& diagram) {
    Clear();
    Shown(diagram);
}

const DiagramState& DiagramHistory::Undo() {
    return MoveStep(undo_, redo_, present_);
}

const DiagramState& DiagramHistory::Redo() {
    return MoveStep(redo_, undo_, present_);
}

bool DiagramHistory::LastChangedDesign() const {
    return (lastParts_ & (kLooks | kTexts | kLegend | kGrounds)) != 0 && (lastParts_ & kData) == 0;
}

void DiagramHistory::Shown(const Diagram& diagram) {
    clear_ = false;
    present_ = StateOf(diagram);
    revision_ = diagram.surface.revision;
    lastParts_ = 0;
}

void DiagramHistory::Clear() {
    undo_.clear();
    redo_.clear();
    present_ = {};
    lastParts_ = 0;
    clear_ = true;
}

} // namespace zorvant
