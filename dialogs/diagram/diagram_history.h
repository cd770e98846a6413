// Undo and redo in the diagram: what it shows, step by step.
#pragma once

#include "diagrams/diagram.h"

#include <vector>

namespace zorvant {

/// All that an undo brings back.
struct DiagramState {
    PlotContents contents;
    std::vector<CurveDraw> draws;
    std::array<bool, kCurveSlots + 1> LabelMoved{};
};

/// Steps are noted after they were made, by comparing what is shown with what was shown before:
/// no command needs to tell that it changes something.
class DiagramHistory {
public:
    /// Notes a step where the contents are no longer those noted last. Typing and dragging, which
    /// change the same part again within a second, are one step.
    /// Returned: whether something has changed
    bool Note(const Diagram& diagram, double seconds);
    /// The contents are those of the start; nothing to take back.
    void Begin(const Diagram& diagram);
    bool CanUndo() const { return !undo_.empty(); }
    bool CanRedo() const { return !redo_.empty(); }
    /// The state to show; its steps are moved from one list to the other.
    const DiagramState& Undo();
    const DiagramState& Redo();
    /// What was just shown came from here.
    void Shown(const Diagram& diagram);
    void Clear();
    bool IsClear() const { return clear_; }
    /// Whether the step noted last has changed looks, texts or legend, not only what is drawn.
    bool LastChangedDesign() const;

private:
    std::vector<DiagramState> undo_, redo_;
    DiagramState present_;
    std::uint64_t revision_ = 0;
    unsigned lastParts_ = 0; ///< which parts the last step has changed
    double lastSeconds_ = -1;
    bool clear_ = true;
};

} // namespace zorvant
