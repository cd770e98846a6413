// What must hold before a course, a reactor or a fitted curve is calculated, and what is said
// otherwise: one table of rules for all tasks, in the order in which they are told.
#pragma once

#include "engine/project_state.h"

#include <array>
#include <optional>
#include <string>

namespace zorvant {

/// What is about to be calculated.
enum class InputTask { CourseDiagram, CourseTable, Batch, Tube, Tank, Series, FittedCurve };

/// A quantity that a user gives; its field takes the focus when it is refused.
enum class InputField {
    Order,
    A,
    B,
    P,
    K1,
    K2,
    K3,
    TimeAxis,
    Time, ///< of reaction, or mean residence time
    Conversion,
    Velocity,
    Length,
    Volume,
    Flow,
    Tanks
};

/// What a dialog shows and holds beside the state. A rule asks for nothing that is not shown.
struct GivenInput {
    std::array<bool, kSpecies + 1> species{}; ///< [1..5]
    std::array<bool, 4> constants{};          ///< [1..3]
    /// Which quantities are given: the option of the reactor dialog.
    int given = 0;
    double V = 0;     ///< m^3, volume of a tank
    double vRohr = 0; ///< m/TU
    double lRohr = 0; ///< m
};
/// What is shown for the selected model and task, by the catalogue: the masks of the state belong
/// to the diagram that was drawn last.
GivenInput InputShownFor(const ProjectState& ps);

struct InputCheck {
    std::string text;                ///< of all failed rules; empty: the calculation may begin
    std::optional<InputField> first; ///< the field of the first of them
    bool orderFailed = false;        ///< OrderN is not above 0 and is to be kDefaultOrder
};
/// Taken when an order is not above 0.
inline constexpr float kDefaultOrder = 1.5F;

/// Holds c0, k, OrderN, tMax, UA, tVerweil, VPunkt, NKask of the state and the dialog's own
/// quantities against the rules of a task. NaN fails every rule for what has to be above 0.
InputCheck CheckInput(const ProjectState& ps, InputTask task, const GivenInput& input);

} // namespace zorvant
