#include "bench/reference/reactors_reference.h"

#include "bench/reference/rate_laws_reference.h"
#include "reactors/tank_search.h"

#include <algorithm>
#include <cmath>

namespace zorvant::reference {
namespace {

std::size_t At(int i) {
    return static_cast<std::size_t>(i);
}

bool Agree(const Vector& yPrev, const Vector& yOut, int n) {
    for (int i = 1; i <= n; ++i)
        if (!std::isfinite(yPrev[At(i)]) || !std::isfinite(yOut[At(i)]))
            return false;
    for (int i = 1; i <= n; ++i) {
        const double sum = std::abs(yOut[At(i)]) + std::abs(yPrev[At(i)]);
        if (sum >= 1e-6 && std::abs(yPrev[At(i)] - yOut[At(i)]) / sum > 0.01)
            return false;
    }
    return true;
}

/// One tank of model 20.
void OrderTankState(const ProjectState& ps, double A0, double P0, double t, int passLimit,
                    double& cA, double& cP) {
    bool noSolution = false;
    const double n = static_cast<double>(ps.OrderN);
    const double x = SearchOrderTank(A0, t, ps.k[1], n, passLimit, noSolution);
    cA = A0 - x;
    cP = P0 + x;
    if (noSolution) { // what follows the steps is the same in both forms
        const auto bracketed = zorvant::SearchOrderTank({A0, t, ps.k[1], n}, passLimit);
        cA = bracketed.left;
        cP = P0 + bracketed.x;
    }
}

} // namespace

void CalcBatchKessel(const ProjectState& ps, double t, SpeciesArray& cOut, bool& err) {
    err = false;
    const int n = ps.ModelId == 20 ? 2 : ps.ModelId == 14 || ps.ModelId == 15 ? 3 : 4;
    const auto& c0 = ps.c0;
    Vector y{}, yNow{}, yOut{}, yPrev{};
    y[1] = c0[1];
    y[2] = n == 3 ? c0[3] : n == 2 ? c0[4] : c0[2];
    y[3] = n == 3 ? c0[4] : c0[3];
    y[4] = c0[4];
    double S = t / 150;
    if (S > 1)
        S = 0.4;
    WorkVectors work;
    int m = 1;
    for (double tau = 0; tau <= t + S; tau += S) {
        yNow = y;
        double h = S / m / 5;
        IntegrateRK4(ps, n, y, yOut, m, h, work);
        do {
            yPrev = yOut;
            m = 2 * m;
            if (m > 32767) {
                err = true;
                return;
            }
            h = S / m;
            IntegrateRK4(ps, n, y, yOut, m, h, work);
        } while (!Agree(yPrev, yOut, n));
        for (int i = 1; i <= n; ++i)
            y[At(i)] = yOut[At(i)];
        m = m / 4;
        if (m == 0)
            m = 1;
    }
    cOut[1] = yNow[1];
    if (n == 4) {
        cOut[2] = yNow[2];
        cOut[3] = yNow[3];
        cOut[4] = yNow[4];
    } else if (n == 3) {
        cOut[3] = yNow[2];
        cOut[4] = yNow[3];
    } else {
        cOut[4] = yNow[2];
    }
}

void SearchBatchTime(ProjectState& ps, bool& err) {
    double t = 0.001;
    const double dt = t / 1000;
    for (int pass = 1; pass <= 1000; ++pass) {
        ps.tVerweil = t;
        CalcBatchKessel(ps, t, ps.cEnd, err);
        if (err)
            return;
        const double f1 = ps.UA - (ps.c0[1] - ps.cEnd[1]) / ps.c0[1];
        CalcBatchKessel(ps, t + dt, ps.cEnd, err);
        if (err)
            return;
        const double f2 = ps.UA - (ps.c0[1] - ps.cEnd[1]) / ps.c0[1];
        if (f2 - f1 == 0) {
            err = true;
            return;
        }
        const double delta = -f1 * dt / (f2 - f1);
        t = t + delta;
        if (t < 0)
            t = -t + dt;
        ps.tVerweil = t;
        if (std::abs(delta / t) < 1e-11)
            return;
    }
    err = true;
}

double SearchOrderTank(double cA, double t, double k1, double n, int passLimit, bool& noSolution) {
    double step = cA / 100;
    double x = -step + 1e-8;
    double f = 1;
    double fPrev = -1;
    int counter = 0;
    bool passed = false;
    noSolution = false;
    do {
        x = x + step;
        counter = counter + 1;
        if (x > cA && step > 0) {
            x = x - step;
            step = step / 2;
            x = x + step;
        }
        if (cA - x <= 0 || x <= 0)
            noSolution = true;
        else
            f = std::log(x) - std::log(t) - std::log(k1) - n * std::log(cA - x);
        if (f == 0)
            return x;
        if (fPrev / f < 0) {
            step = step * -0.1;
            passed = counter > 1;
        }
        fPrev = f;
    } while (std::abs(step) >= 1e-8 && counter <= passLimit && !noSolution);
    if (counter > passLimit || !passed)
        noSolution = true;
    return x;
}

void CascadeTimeCurve(ProjectState& ps, int N) {
    ps.NPoints = 200;
    ps.tSim.assign(451, 0);
    for (int slot = 1; slot <= kSpecies; ++slot) {
        cSim(ps, slot).assign(451, 0);
        rSim(ps, slot).assign(451, 0);
    }
    const double dt = 2 * ps.tVerweil / 200;
    for (int j = 0; j <= 200; ++j) {
        const double t = j * dt + 1e-8;
        double cA = ps.c0[1], cP = ps.c0[4];
        for (int tank = 1; tank <= N; ++tank)
            OrderTankState(ps, cA, cP, t / N, 10000, cA, cP);
        ps.tSim[At(j)] = t;
        ps.cSimA[At(j)] = cA;
        ps.cSimP[At(j)] = cP;
    }
}

void CalcTankCurve(ProjectState& ps) {
    ps.tSim.assign(451, 0);
    for (int slot = 1; slot <= kSpecies; ++slot)
        cSim(ps, slot).assign(451, 0);
    const double dt = 2 * ps.tVerweil / 200;
    for (int j = 0; j <= 200; ++j) {
        const double t = j * dt + 1e-6;
        ps.tSim[At(j)] = t;
        OrderTankState(ps, ps.c0[1], ps.c0[4], t, 1000, ps.cSimA[At(j)], ps.cSimP[At(j)]);
    }
}

} // namespace zorvant::reference
