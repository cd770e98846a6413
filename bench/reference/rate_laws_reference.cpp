#include "bench/reference/rate_laws_reference.h"

#include "engine/numeric_models.h"

namespace zorvant::reference {
namespace {

std::size_t At(int i) {
    return static_cast<std::size_t>(i);
}

/// While a fit looks for the order, the second constant is the order, in double.
double OrderOf(const ProjectState& ps) {
    return ps.FitMode == 2 ? ps.k[2] : static_cast<double>(ps.OrderN);
}

} // namespace

void FuDerivatives(const ProjectState& ps, const Vector& y, Vector& dydt) {
    const double k1 = ps.k[1], k2 = ps.k[2], k3 = ps.k[3];
    switch (ps.ModelId) {
    case 7:
        dydt[1] = -k1 * y[1] * y[2] - k2 * y[1] * y[3];
        dydt[2] = -k1 * y[1] * y[2];
        dydt[3] = k1 * y[1] * y[2] - k2 * y[1] * y[3];
        dydt[4] = k2 * y[1] * y[3];
        break;
    case 9:
        dydt[1] = -k1 * y[1] * y[2];
        dydt[2] = dydt[1];
        dydt[3] = k1 * y[1] * y[2] - k2 * y[3];
        dydt[4] = k2 * y[3];
        break;
    case 10:
        dydt[1] = -k1 * y[1] * y[2] + k2 * y[3] + k3 * y[3];
        dydt[2] = -k1 * y[1] * y[2] + k2 * y[3];
        dydt[3] = k1 * y[1] * y[2] - k2 * y[3] - k3 * y[3];
        dydt[4] = k3 * y[3];
        break;
    case 13:
        dydt[1] = -k1 * y[1] * y[2];
        dydt[2] = dydt[1];
        dydt[3] = k1 * y[1] * y[2] - k2 * y[3] + k3 * y[4];
        dydt[4] = k2 * y[3] - k3 * y[4];
        break;
    case 14:
        dydt[1] = -k1 * y[1];
        dydt[2] = k1 * y[1] - k2 * y[2] + k3 * y[3];
        dydt[3] = k2 * y[2] - k3 * y[3];
        break;
    case 15:
        dydt[1] = -k1 * y[1] + k2 * y[2];
        dydt[2] = k1 * y[1] - k2 * y[2] - k3 * y[2];
        dydt[3] = k3 * y[2];
        break;
    case 18:
        dydt[1] = -k1 * y[1] * y[2] + k2 * y[3];
        dydt[2] = dydt[1];
        dydt[3] = k1 * y[1] * y[2] - k2 * y[3] - k3 * y[3];
        dydt[4] = k3 * y[3];
        break;
    case 20:
        if (y[1] < 0)
            break;
        dydt[1] = OrderRate(-k1, y[1], OrderOf(ps));
        dydt[2] = -dydt[1];
        break;
    default:
        break;
    }
}

void IntegrateRK4(const ProjectState& ps, int n, const Vector& yStart, Vector& yOut, int nSteps,
                  double h, WorkVectors& w) {
    for (int i = 1; i <= n; ++i)
        yOut[At(i)] = yStart[At(i)];
    for (int step = 1; step <= nSteps; ++step) {
        w.dy.fill(0);
        FuDerivatives(ps, yOut, w.dy);
        for (int i = 1; i <= n; ++i) {
            w.k1[At(i)] = h * w.dy[At(i)];
            w.at[At(i)] = yOut[At(i)] + w.k1[At(i)] / 2;
        }
        w.dy.fill(0);
        FuDerivatives(ps, w.at, w.dy);
        for (int i = 1; i <= n; ++i) {
            w.k2[At(i)] = h * w.dy[At(i)];
            w.at[At(i)] = yOut[At(i)] + w.k2[At(i)] / 2;
        }
        w.dy.fill(0);
        FuDerivatives(ps, w.at, w.dy);
        for (int i = 1; i <= n; ++i) {
            w.k3[At(i)] = h * w.dy[At(i)];
            w.at[At(i)] = yOut[At(i)] + w.k3[At(i)];
        }
        w.dy.fill(0);
        FuDerivatives(ps, w.at, w.dy);
        for (int i = 1; i <= n; ++i)
            w.k4[At(i)] = h * w.dy[At(i)];
        for (int i = 1; i <= n; ++i)
            yOut[At(i)] =
                yOut[At(i)] + (w.k1[At(i)] + 2 * w.k2[At(i)] + 2 * w.k3[At(i)] + w.k4[At(i)]) / 6;
    }
}

} // namespace zorvant::reference
