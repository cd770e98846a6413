// The texts of the window of the Arrhenius and Eyring calculators.
#pragma once

#include "engine/project_state.h"

#include <string>

namespace zorvant {

/// The texts for the present kTFunction, FitMode and time unit.
struct CalculatorFace {
    std::string caption, lblFormel;
    bool kBhVisible = false;          ///< lblk0Eyring and txtInpArrh(3)
    std::string lblk0Eyring, kBhText; ///< kB/h in 1/(K s)
    std::string lblk0, lblEA, lblUnitEA, lblUnitk0, lblRO;
    std::string inp0, inp1, inp2; ///< contents of the input boxes
    std::string lblkEinheit, lblkEinheitsec;
};
CalculatorFace FaceOfCalculator(const ProjectState& ps);

} // namespace zorvant
