#include "bench/reference/course_reference.h"

#include "bench/reference/rate_laws_reference.h"
#include "engine/arithmetic.h"
#include "engine/closed_forms.h"
#include "engine/rate_laws.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_course.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

namespace zorvant::reference {
namespace {

std::size_t At(int i) {
    return static_cast<std::size_t>(i);
}

bool IsFinite(const Vector& y, int n) {
    for (int i = 1; i <= n; ++i)
        if (!std::isfinite(y[At(i)]))
            return false;
    return true;
}

bool Agree(const Vector& yPrev, const Vector& yOut, int n) {
    if (!IsFinite(yPrev, n) || !IsFinite(yOut, n))
        return false;
    for (int i = 1; i <= n; ++i) {
        const double sum = std::abs(yOut[At(i)]) + std::abs(yPrev[At(i)]);
        if (sum >= 1e-6 && std::abs(yPrev[At(i)] - yOut[At(i)]) / sum > 0.01)
            return false;
    }
    return true;
}

void IntegrateCourse(ProjectState& ps, int model, double tEnd, double dt) {
    const int n = model == 20 ? 2 : model == 14 || model == 15 ? 3 : 4;
    const bool hasB = n == 4;
    const auto& c0 = ps.c0;
    Vector y{}, yOut{}, yPrev{};
    y[1] = c0[1];
    y[2] = n == 3 ? c0[3] : n == 2 ? c0[4] : c0[2];
    y[3] = n == 3 ? c0[4] : c0[3];
    y[4] = c0[4];
    WorkVectors work;
    int m = 1, j = 0;
    const double step = dt;
    bool foundA = false, foundB = false;
    for (double t = 0; t <= tEnd + dt; t += step) {
        ps.tSim[At(j)] = t;
        ps.cSimA[At(j)] = y[1];
        ps.cSimB[At(j)] = y[2];
        ps.cSimC[At(j)] = n >= 3 ? y[3] : 0;
        ps.cSimP[At(j)] = n >= 4 ? y[4] : 0;
        if (!foundA && j > 0 && c0[1] / 2 > ps.cSimA[At(j)]) {
            foundA = true;
            ps.tHalfA = Interpolate(c0[1] / 2, ps.tSim[At(j)], ps.cSimA[At(j)], ps.tSim[At(j - 1)],
                                    ps.cSimA[At(j - 1)]);
        }
        if (hasB && !foundB && j > 0 && c0[2] / 2 > ps.cSimB[At(j)]) {
            foundB = true;
            ps.tHalfB = Interpolate(c0[2] / 2, ps.tSim[At(j)], ps.cSimB[At(j)], ps.tSim[At(j - 1)],
                                    ps.cSimB[At(j - 1)]);
        }
        double h = step / m;
        IntegrateRK4(ps, n, y, yOut, m, h, work);
        do {
            if (m == 32000 && !IsFinite(yOut, n))
                ThrowArithmetic(kOverflow);
            yPrev = yOut;
            if (m > 16000)
                m = 16000;
            m = 2 * m;
            h = step / m;
            IntegrateRK4(ps, n, y, yOut, m, h, work);
        } while (!Agree(yPrev, yOut, n));
        for (int i = 1; i <= n; ++i) {
            y[At(i)] = yOut[At(i)];
            if (y[At(i)] < 0)
                break;
        }
        m = m / 4;
        if (m == 0)
            m = 1;
        ++j;
    }
    ps.cSimQ = ps.cSimC;
    if (n == 3) {
        ps.cSimC = ps.cSimB;
        ps.cSimP = ps.cSimQ;
    }
    if (n == 2)
        ps.cSimP = ps.cSimB;

    ReserveAkima(ps, j);
    SpeciesArray r{};
    for (int i = 0; i < j; ++i) {
        ps.SplineX[At(i + 1)] = ps.tSim[At(i)];
        for (int s = 1; s <= kSpecies; ++s) {
            ps.SplineY[At(i + 1)][At(s)] = cSim(ps, s)[At(i)];
            ps.cEnd[At(s)] = cSim(ps, s)[At(i)];
        }
        FuReactionRates(ps, model, r, ps.k, ps.cEnd);
        for (int s = 1; s <= kSpecies; ++s)
            rSim(ps, s)[At(i)] = static_cast<float>(r[At(s)]);
    }
    for (int s = 1; s <= kSpecies; ++s)
        if (InMask(ps.SpeciesMask, s))
            reference::AkimaKoeffizienten(ps, s, j, 0);
}

/// exp with its argument clamped.
double E(double x) {
    if (x > 709.782)
        x = 709.782;
    return std::exp(x);
}

/// What the quadratic models compute before their loop.
struct Quadratic {
    double a = 0, b = 0, d = 0, x1 = 0, x2 = 0, D = 0;
};

Quadratic Prepare(const ProjectState& ps, int model, bool& err) {
    const double k1 = ps.k[1], k2 = ps.k[2];
    const double A0 = ps.c0[1], B0 = ps.c0[2], P0 = ps.c0[4], Q0 = ps.c0[5];
    Quadratic x;
    if (model == 12) {
        x.a = k1 - 4 * k2;
        if (x.a == 0)
            x.a = 1e-8;
        const double p = -k1 * A0 - k1 * B0 - 4 * k2 * P0;
        const double q = k1 * A0 * B0 - k2 * P0 * P0;
        const double w = std::sqrt(p * p / (4 * x.a * x.a) - q / x.a);
        x.x1 = -p / (2 * x.a) + w;
        x.x2 = -p / (2 * x.a) - w;
    } else if (model == 17) {
        x.a = k1;
        const double p = (-k1 * A0 - k1 * B0 - k2) / k1;
        const double q = (k1 * A0 * B0 - k2 * P0) / k1;
        const double w = std::sqrt(p * p / 4 - q);
        x.x1 = -p / 2 + w;
        x.x2 = -p / 2 - w;
    } else if (model == 19) {
        const double s = k2 / k1;
        x.a = 1 - s;
        x.b = -((P0 + Q0) * s + (A0 + B0));
        x.d = A0 * B0 - s * P0 * Q0;
        x.D = x.b * x.b - 4 * x.a * x.d;
        err = x.D < 0;
        x.D = -std::sqrt(x.D);
    }
    return x;
}

void CalcPoint(ProjectState& ps, int model, int i, double t, const Quadratic& pre, bool& err) {
    const double k1 = ps.k[1], k2 = ps.k[2];
    const double A0 = ps.c0[1], B0 = ps.c0[2], C0 = ps.c0[3], P0 = ps.c0[4], Q0 = ps.c0[5];
    double &cA = ps.cSimA[At(i)], &cB = ps.cSimB[At(i)], &cC = ps.cSimC[At(i)],
           &cP = ps.cSimP[At(i)], &cQ = ps.cSimQ[At(i)];
    double x = 0, u = 0;
    switch (model) {
    case 1:
        x = k1 * t;
        cA = A0 - x;
        cP = x + P0;
        if (cA < 0) {
            cA = 0;
            cP = P0 + A0;
        }
        break;
    case 2:
        x = (1 - std::exp(-k1 * t)) * A0;
        cA = A0 - x;
        cP = x + P0;
        break;
    case 3:
        x = (1 - 1 / (2 * k1 * A0 * t + 1)) * A0 / 2;
        cA = A0 - 2 * x;
        cP = x + P0;
        break;
    case 4:
        if (A0 == B0) {
            x = (1 - 1 / (k1 * A0 * t + 1)) * A0;
            cA = A0 - x;
            cB = A0 - x;
        } else {
            u = std::exp((A0 - B0) * k1 * t);
            x = B0 * A0 * (1 - u) / (B0 - u * A0);
            cA = A0 - x;
            cB = B0 - x;
        }
        cP = x + P0;
        break;
    case 5:
    case 16:
        u = E((P0 + A0) * k1 * t);
        x = P0 * A0 * (u - 1) / (u * P0 + A0);
        cA = A0 - x;
        cP = x + P0;
        if (model == 16)
            cQ = x + Q0;
        break;
    case 6: {
        const double k2s = k2 + 1e-12;
        cA = std::exp(-k1 * t) * A0;
        cC = (k1 * A0 / (k2s - k1)) * (std::exp(-k1 * t) - std::exp(-k2s * t)) +
             std::exp(-k2s * t) * C0;
        cP = A0 - cA - cC + C0 + P0;
        break;
    }
    case 8:
        u = E(-(k1 + k2) * t);
        x = ((k2 * P0 - k1 * A0) * u - k2 * P0 + k1 * A0) / (k1 + k2);
        cA = A0 - x;
        cP = x + P0;
        break;
    case 11:
        u = E(-(k1 + k2) * t);
        cA = u * A0;
        cP = (k1 * A0 / (k1 + k2)) * (1 - u) + P0;
        cQ = (k2 * A0 / (k1 + k2)) * (1 - u) + Q0;
        break;
    case 12:
    case 17:
        u = E((pre.x1 - pre.x2) * (-pre.a) * t);
        x = pre.x2 * pre.x1 * (1 - u) / (pre.x1 - pre.x2 * u);
        cA = A0 - x;
        cB = B0 - x;
        cP = (model == 12 ? 2 * x : x) + P0;
        break;
    case 19: {
        u = E(t * k1 * pre.D);
        const double N = (-pre.b - pre.D) - (-pre.b + pre.D) * u;
        if (N == 0) {
            err = true;
            return;
        }
        x = (1 - u) * 2 * pre.d / N;
        cA = A0 - x;
        cB = B0 - x;
        cP = x + P0;
        cQ = x + Q0;
        break;
    }
    default:
        break;
    }
}

void Extents(ProjectState& ps, double tEnd) {
    float yMin = 0, yMax = -10000, y2Min = 10000, y2Max = -10000;
    const auto raise = [](float& limit, float value) { limit = value > limit ? value : limit; };
    const auto lower = [](float& limit, float value) { limit = value < limit ? value : limit; };
    if (!ps.ScaleOneSpecies) {
        for (int i = 0; i <= ps.NPoints; ++i)
            for (int s = 1; s <= kSpecies; ++s) {
                raise(yMax, static_cast<float>(cSim(ps, s)[At(i)]));
                raise(y2Max, rSim(ps, s)[At(i)]);
                lower(y2Min, rSim(ps, s)[At(i)]);
            }
    } else {
        yMin = 10000;
        for (int i = 0; i <= ps.NPoints; ++i) {
            raise(yMax, static_cast<float>(cSim(ps, ps.ScaleSpecies)[At(i)]));
            lower(yMin, static_cast<float>(cSim(ps, ps.ScaleSpecies)[At(i)]));
            raise(y2Max, rSim(ps, ps.ScaleSpecies)[At(i)]);
            lower(y2Min, rSim(ps, ps.ScaleSpecies)[At(i)]);
        }
    }
    const auto margin = [](double upper, double low) { return std::abs((upper - low) * 0.02); };
    yMax = static_cast<float>(static_cast<double>(yMax) + margin(yMax, yMin));
    yMin = static_cast<float>(static_cast<double>(yMin) - margin(yMax, yMin));
    y2Max = static_cast<float>(static_cast<double>(y2Max) + margin(y2Max, y2Min));
    y2Min = static_cast<float>(static_cast<double>(y2Min) - margin(y2Max, y2Min));
    if (yMax <= yMin) {
        if (yMax == 0) {
            yMax = 1;
            yMin = 0;
        } else {
            yMax = static_cast<float>(static_cast<double>(yMax) * 1.01);
            yMin = static_cast<float>(static_cast<double>(yMin) -
                                      std::abs(static_cast<double>(yMax) * 0.01));
        }
    }
    ps.Memory.RngT = {0, static_cast<float>(tEnd)};
    ps.Memory.RngC = {yMin, yMax};
    ps.Memory.RngR = {y2Min, y2Max};
}

} // namespace

void calc_diagram_function(ProjectState& ps, int model, double tEnd, bool& err) {
    err = false;
    ps.tSim.assign(451, 0);
    for (int s = 1; s <= kSpecies; ++s) {
        cSim(ps, s).assign(451, 0);
        rSim(ps, s).assign(451, 0);
    }
    ps.NPoints = 200;
    const double dt = tEnd / 200;
    ps.tSim[0] = 0;
    for (int s = 1; s <= kSpecies; ++s)
        if (InMask(ps.SpeciesMask, s))
            cSim(ps, s)[0] = ps.c0[At(s)];
    ps.tHalfA = 0;
    ps.tHalfB = 0;
    if (!HasClosedForm(model)) {
        IntegrateCourse(ps, model, tEnd, dt);
    } else {
        const Quadratic pre = Prepare(ps, model, err);
        if (err)
            return;
        SpeciesArray r{};
        const std::string mask = Model(model).speciesMask;
        for (int i = 0; i <= ps.NPoints; ++i) {
            const double t = i * dt;
            ps.tSim[At(i)] = t;
            CalcPoint(ps, model, i, t, pre, err);
            if (err)
                return;
            for (int s = 1; s <= kSpecies; ++s)
                if (InMask(mask, s))
                    ps.cEnd[At(s)] = cSim(ps, s)[At(i)];
            FuReactionRates(ps, model, r, ps.k, ps.cEnd);
            for (int s = 1; s <= kSpecies; ++s)
                if (InMask(mask, s))
                    rSim(ps, s)[At(i)] = static_cast<float>(r[At(s)]);
        }
    }
    if (ps.FitMode == 0)
        Extents(ps, tEnd);
}

void AkimaKoeffizienten(AkimaTables& tables, int s, int n, float smoothing) {
    (void)smoothing;
    auto& X = tables.SplineX;
    const auto Y = [&](int i) -> double& { return tables.SplineY[At(i)][At(s)]; };
    const auto T = [&](int i) -> double& { return tables.SplineB[At(i)][At(s)]; };
    std::array<double, 2001> m; // slopes of the chords, n + 3 of them

    for (int i = n; i >= 1; --i) {
        X[At(i + 2)] = X[At(i)];
        Y(i + 2) = Y(i);
    }
    X[2] = X[3] + X[4] - X[5];
    X[1] = X[2] + X[3] - X[4];
    X[At(n + 3)] = X[At(n + 1)] + X[At(n + 2)] - X[At(n)];
    X[At(n + 4)] = X[At(n + 2)] + X[At(n + 3)] - X[At(n + 1)];
    for (int i = 3; i <= n + 1; ++i)
        m[At(i)] = (Y(i + 1) - Y(i)) / (X[At(i + 1)] - X[At(i)]);
    Y(2) = (m[4] - 2 * m[3]) * (X[3] - X[2]) + Y(3);
    m[2] = (Y(3) - Y(2)) / (X[3] - X[2]);
    Y(1) = (m[3] - 2 * m[2]) * (X[2] - X[1]) + Y(2);
    m[1] = (Y(2) - Y(1)) / (X[2] - X[1]);
    Y(n + 3) = (2 * m[At(n + 1)] - m[At(n)]) * (X[At(n + 3)] - X[At(n + 2)]) + Y(n + 2);
    m[At(n + 2)] = (Y(n + 3) - Y(n + 2)) / (X[At(n + 3)] - X[At(n + 2)]);
    Y(n + 4) = (2 * m[At(n + 2)] - m[At(n + 1)]) * (X[At(n + 4)] - X[At(n + 3)]) + Y(n + 3);
    m[At(n + 3)] = (Y(n + 4) - Y(n + 3)) / (X[At(n + 4)] - X[At(n + 3)]);

    for (int i = 3; i <= n + 2; ++i) {
        const double p = std::abs(m[At(i + 1)] - m[At(i)]);
        const double q = std::abs(m[At(i - 1)] - m[At(i - 2)]);
        if (m[At(i - 2)] == m[At(i - 1)] && m[At(i)] == m[At(i + 1)])
            T(i) = (m[At(i - 1)] + m[At(i)]) * 0.5;
        else
            T(i) = (p * m[At(i - 1)] + q * m[At(i)]) / (q + p);
    }
    for (int i = 1; i <= n; ++i) {
        X[At(i)] = X[At(i + 2)];
        Y(i) = Y(i + 2);
        T(i) = T(i + 2);
    }
    for (int i = 1; i <= n; ++i) {
        const double d = X[At(i + 1)] - X[At(i)];
        const double mi = m[At(i + 2)];
        tables.SplineA[At(i)][At(s)] = Y(i);
        tables.SplineC[At(i)][At(s)] = (3 * mi - 2 * T(i) - T(i + 1)) / d;
        tables.SplineD[At(i)][At(s)] = (T(i + 1) + T(i) - 2 * mi) / (d * d);
    }
}

double AkimaWert(const AkimaTables& tables, AkimaMode mode, int s, double x, int n) {
    const auto& X = tables.SplineX;
    const auto coefficient = [&](const auto& table, int i) { return table[At(i)][At(s)]; };
    if (x >= X[At(n)])
        return (x - X[At(n)]) * coefficient(tables.SplineB, n) + coefficient(tables.SplineA, n);
    if (x < X[1])
        return (x - X[1]) * coefficient(tables.SplineB, 1) + coefficient(tables.SplineA, 1);
    int i = 1;
    while (x >= X[At(i + 1)])
        ++i;
    const double h = x - X[At(i)];
    const double a = coefficient(tables.SplineA, i), b = coefficient(tables.SplineB, i);
    const double c = coefficient(tables.SplineC, i), d = coefficient(tables.SplineD, i);
    return mode == AkimaMode::Value ? ((d * h + c) * h + b) * h + a : (3 * h * d + 2 * c) * h + b;
}

} // namespace zorvant::reference
