// What diagrams and calculations hand each other through the project state.
#pragma once

#include <string>
#include <vector>

namespace zorvant {

/// A range of an axis. Single, as the axis limits that users see are.
struct Range {
    float lower = 0;
    float upper = 0;
    bool operator==(const Range&) const = default;
};

/// One range per family of diagrams, kept for the whole run: a diagram opened again starts where
/// the user left it, and calculations deliver their extents here.
struct KoordMemory {
    Range RngT;    ///< t, TU
    Range RngC;    ///< c, mol/L
    Range RngR;    ///< r, mol/(L TU)
    Range RngTemp; ///< T, K
    Range RngK;    ///< k
    Range RngInvT; ///< 1/T, 1/K
    Range RngLnK;  ///< ln k
    Range RngLnKT; ///< ln(k/T)
    Range RngLnC;  ///< ln c(A)
    Range RngInvC; ///< 1/c(A); enzyme model: 1/c(S); L/mol
    Range RngWilk; ///< t/U
    Range RngLnAB; ///< ln(c(A)/c(B))
    Range RngLam1; ///< first-order lambda ordinate
    Range RngLam2; ///< second-order lambda ordinate
    Range RngInvR; ///< 1/r(P)
    Range RngCR;   ///< c(S)/r(P)
    Range RngRC;   ///< r(P)/c(S)
};

/// The frame of the open diagram.
struct DiaKoord {
    float xMin = 0, yMin = 0, xMax = 0, yMax = 0;
    std::string xTitle, yTitle, Header;
    bool SideWindow = false; ///< narrow window at the right edge of the screen
};

struct CurvePoint {
    float x = 0;
    float y = 0;
};
/// A point list whose element 0 holds the count in x; elements 1..n are the points.
using PointBuffer = std::vector<CurvePoint>;

} // namespace zorvant
