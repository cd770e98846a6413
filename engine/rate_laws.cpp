#include "engine/rate_laws.h"

#include "engine/numeric_models.h"

namespace zorvant {

void FuReactionRates(const ProjectState& ps, int model, SpeciesArray& r, const ConstantArray& kArr,
                     const SpeciesArray& c) {
    const double k1 = kArr[1], k2 = kArr[2];
    const double cA = c[1], cB = c[2], cC = c[3], cP = c[4], cQ = c[5];
    double &rA = r[1], &rB = r[2], &rC = r[3], &rP = r[4], &rQ = r[5];
    rA = rB = rC = rP = rQ = 0;
    switch (model) {
    case 1: // whatever the concentration, 0 included
        rA = -k1;
        rP = k1;
        break;
    case 2:
        rA = -k1 * cA;
        rP = k1 * cA;
        break;
    case 3:
        rA = -2 * k1 * cA * cA;
        rP = rA * -0.5;
        break;
    case 4:
        rA = -k1 * cA * cB;
        rB = rA;
        rP = k1 * cA * cB;
        break;
    case 5:
    case 16:
        rP = k1 * cA * cP;
        rA = -rP;
        rQ = model == 16 ? rP : 0;
        break;
    case 6:
        rA = -k1 * cA;
        rC = k1 * cA - k2 * cC;
        rP = k2 * cC;
        break;
    case 8:
        rA = -k1 * cA + k2 * cP;
        rP = k1 * cA - k2 * cP;
        break;
    case 11:
        rA = -(k1 + k2) * cA;
        rP = k1 * cA;
        rQ = k2 * cA;
        break;
    case 12:
        rA = -k1 * cA * cB + k2 * cP * cP;
        rB = rA;
        rP = 2 * k1 * cA * cB - 2 * k2 * cP * cP;
        break;
    case 17:
        rA = -k1 * cA * cB + k2 * cP;
        rB = rA;
        rP = k1 * cA * cB - k2 * cP;
        break;
    case 19:
        rA = -k1 * cA * cB + k2 * cP * cQ;
        rB = rA;
        rP = k1 * cA * cB - k2 * cP * cQ;
        rQ = rP;
        break;
    default: // what the integrator knows, by its own right-hand side
        WithNumericModel(
            model, kArr, static_cast<double>(ps.OrderN),
            [&]<class Law>(const Law& law) { Unpack<Law>(NodeRates(law, Packed<Law>(c)), r); });
        break;
    }
}

} // namespace zorvant
