// The names of added curves: what was changed between the draws of a diagram.
#pragma once

#include "engine/project_state.h"

#include <array>
#include <string>
#include <vector>

namespace zorvant {

/// The inputs of a course that a user changes from draw to draw.
struct DrawInputs {
    int model = 0;
    std::array<double, 4> k{};  ///< 1..3
    std::array<double, 6> c0{}; ///< 1..5, mol/L
    bool operator==(const DrawInputs&) const = default;
};
DrawInputs InputsOf(const ProjectState& ps);

/// One press of "draw" and the curves that it has made.
struct CurveDraw {
    DrawInputs inputs;
    struct Curve {
        int slot;
        std::string name; ///< "c(A)"
        std::string text; ///< as it was given to the label last
    };
    std::vector<Curve> curves;
};

/// The text behind a curve's name: ", k1 = 0.05" for each input in which any two of the draws
/// differ, up to three; beyond that the number of the draw.
/// Returned: by draw; empty where nothing was changed or the models differ
std::vector<std::string> WhatChanged(const std::vector<CurveDraw>& draws);

} // namespace zorvant
