#include "bench/reference/fit_reference.h"

#include "bench/reference/course_reference.h"
#include "engine/arithmetic.h"
#include "engine/closed_forms.h"

#include <cmath>

namespace zorvant::reference {
namespace {

constexpr double kGas = 8.3145;

std::size_t At(int i) {
    return static_cast<std::size_t>(i);
}
std::size_t Packed(int i, int j) {
    return static_cast<std::size_t>(i * (i - 1) / 2 + j);
}

void FuModellWert(const ProjectState& ps, double t, SpeciesArray& c, bool& err) {
    err = false;
    try {
        Finite(t);
        if (HasClosedForm(ps.ModelId)) {
            const ClosedForm form(ps.ModelId, ps.k, ps.c0, err);
            if (!err)
                form.At(t, c, err);
            return;
        }
        const int n = static_cast<int>(ps.SplineX[0]);
        for (int s = 1; s <= kSpecies; ++s)
            if (InMask(ps.SpeciesMask, s))
                c[At(s)] = Finite(reference::AkimaWert(ps, AkimaMode::Value, s, t, n));
    } catch (const ArithmeticError&) {
        err = true;
    }
}

void TakeParameters(ProjectState& ps, const FitVector& B) {
    ps.k = {0, B[1], B[2], B[3]};
    if (ps.FitMode == 2)
        ps.OrderN = static_cast<float>(B[2]); // the derivative takes the order from k(2)
}

void Course(ProjectState& ps) {
    bool err = false;
    reference::calc_diagram_function(ps, ps.ModelId, ps.tMax, err);
}

void CalcResiduals(ProjectState& ps, int i, const FitVector& B, double& res, bool inFQS) {
    const ExpPoint& point = ps.ExpData[At(i)];
    res = 0;
    if (ps.FitMode < 6) {
        TakeParameters(ps, B);
        if (ps.NumericModel && !inFQS)
            Course(ps);
        for (int j = 1; j <= kSpecies; ++j) {
            if (!ps.FitSpecies[At(j)] || point.exclude != 0)
                continue;
            SpeciesArray c{};
            bool err = false;
            FuModellWert(ps, point.t, c, err);
            if (!err)
                res = res + std::abs(c[At(j)] - point.c(j));
        }
        return;
    }
    if (point.exclude != 0 || !(point.T > 0))
        return;
    const double t = point.t, T = point.T;
    const double e = CheckedExp(Divide(-B[2], T * kGas));
    if (ps.FitMode == 6 && ps.kTFunction == 1)
        res = CheckedExp(-B[1] * t * e) - point.cA;
    else if (ps.FitMode == 6)
        res = CheckedExp(-B[1] * t * T * e) - point.cA;
    else if (ps.kTFunction == 1)
        res = Divide(1, Divide(1, static_cast<double>(ps.c0Data[1])) + 2 * B[1] * e * t) - point.cA;
    else
        res = Divide(1, 2 * t * B[1] * T * e + Divide(1, static_cast<double>(ps.c0Data[1]))) -
              point.cA;
}

void CholeskyFactor(int n, PackedMatrix& a, const FitVector& mask, bool& singular) {
    for (int j = 1; j <= n; ++j) {
        const int q = j * (j + 1) / 2;
        if (j > 1) {
            for (int i = j; i <= n; ++i) {
                const int r = i * (i - 1) / 2 + j;
                double s = a[At(r)];
                for (int l = 1; l <= j - 1; ++l)
                    s = s - a[At(r - l)] * a[At(q - l)];
                a[At(r)] = s;
            }
        }
        double s = 0;
        if (mask[At(j)] > 0) {
            if (!(a[At(q)] > 0)) {
                singular = true;
                return;
            }
            s = 1 / std::sqrt(a[At(q)]);
        } else {
            a[At(q)] = 0;
        }
        for (int i = j; i <= n; ++i) {
            const int r = i * (i - 1) / 2 + j;
            a[At(r)] = a[At(r)] * s;
        }
    }
}

void CholeskySolve(int n, const PackedMatrix& a, const FitVector& mask, FitVector& x) {
    const auto d = [&](int i) { return mask[At(i)] > 0 ? 1 / a[At(i * (i + 1) / 2)] : 0.0; };
    x[1] = x[1] * d(1);
    int q = 1;
    for (int i = 2; i <= n; ++i) {
        for (int j = 1; j <= i - 1; ++j) {
            q = q + 1;
            x[At(i)] = x[At(i)] - a[At(q)] * x[At(j)];
        }
        q = q + 1;
        x[At(i)] = x[At(i)] * d(i);
    }
    x[At(n)] = x[At(n)] * d(n);
    for (int i = n; i >= 2; --i) {
        q = i * (i - 1) / 2;
        for (int j = 1; j <= i - 1; ++j)
            x[At(j)] = x[At(j)] - a[At(q + j)] * x[At(i)];
        x[At(i - 1)] = x[At(i - 1)] * d(i - 1);
    }
}

void Run(ProjectState& ps, int n, int m, FitVector& FitParam, FitVector& FitStdDev, FitRun& run) {
    const bool ofT = ps.FitMode >= 6;
    const int mostSums = (ofT ? 200 : 100) * n, mostJacobians = ofT ? 250 : 125;
    const FitVector lower{0, 1E-7, 1E-7, 1E-7};
    const FitVector upper{0, ofT ? 1E18 : 1E5, 2E5, 1E5};
    FitVector mask{}, X{}, v{}, delta{};
    PackedMatrix a{}, c{};
    int masked = n;
    for (int i = 1; i <= n; ++i) {
        mask[At(i)] = ps.FitFixed[At(i)] != 0 ? 0 : 1;
        if (mask[At(i)] != 0)
            masked = masked - 1;
        if (!(FitParam[At(i)] >= lower[At(i)])) {
            FitParam[At(i)] = lower[At(i)];
            mask[At(i)] = -2;
        }
        if (FitParam[At(i)] > upper[At(i)]) {
            if (mask[At(i)] <= -2) {
                mask[At(i)] = 0;
                masked = masked + 1;
            } else {
                FitParam[At(i)] = upper[At(i)];
                mask[At(i)] = -1;
            }
        }
    }
    X = FitParam;
    const int freeCount = n - masked;
    double lambda = 0.0001, F = 0;
    double& p = run.sumSquares;
    const auto sumSquares = [&] {
        calcFQS_Marquardt(ps, m, FitParam, F, run.ifn);
        run.LimitReached = run.ifn > mostSums;
        return !run.LimitReached;
    };
    if (!sumSquares())
        return;
    bool moving = true;
    while (moving) {
        lambda = lambda * 4 / 10;
        p = F;
        a.fill(0);
        v.fill(0);
        for (int i = 1; i <= m; ++i) {
            double res = 0;
            FitVector J{};
            CalcAbleitungen(ps, n, i, FitParam, res, J);
            for (int j = 1; j <= n; ++j) {
                v[At(j)] = v[At(j)] + res * J[At(j)];
                for (int l = 1; l <= j; ++l)
                    a[Packed(j, l)] = a[Packed(j, l)] + J[At(l)] * J[At(j)];
            }
        }
        for (const double sum : a)
            Finite(sum);
        for (const double sum : v)
            Finite(sum);
        run.ig = run.ig + 1;
        run.LimitReached = run.ig > mostJacobians;
        if (run.LimitReached)
            return;
        c = a;
        X = FitParam;
        for (int i = 1; i <= n; ++i) {
            if (mask[At(i)] < 0) {
                if ((mask[At(i)] + 1.5) * v[At(i)] > 0)
                    mask[At(i)] = 1;
                else
                    v[At(i)] = 0;
            }
        }
        bool lowered = false;
        while (!lowered) {
            FitVector held = mask;
            bool singular = false, uphill = true, outward = true;
            while (!singular && outward) {
                for (int i = 1; i <= n; ++i) {
                    const int q = i * (i + 1) / 2;
                    a[At(q)] = Finite((lambda + 1) * c[At(q)] + lambda * 1);
                    delta[At(i)] = -v[At(i)];
                    for (int j = 1; j <= i - 1; ++j)
                        a[At(q - j)] = c[At(q - j)];
                }
                CholeskyFactor(n, a, held, singular);
                if (singular)
                    break;
                CholeskySolve(n, a, held, delta);
                outward = false;
                for (int i = 1; i <= n; ++i) {
                    if (held[At(i)] != 1)
                        delta[At(i)] = 0;
                    if ((Finite(delta[At(i)]) < 0 && X[At(i)] == lower[At(i)]) ||
                        (delta[At(i)] > 0 && X[At(i)] == upper[At(i)])) {
                        held[At(i)] = delta[At(i)] < 0 ? -2 : -1;
                        outward = true;
                    }
                }
            }
            if (!singular) {
                double g = 0;
                for (int i = 1; i <= n; ++i)
                    g = g + delta[At(i)] * v[At(i)];
                uphill = Finite(g) > 0;
            }
            if (!singular && !uphill) {
                double w = 1;
                FitVector s{};
                for (int i = 1; i <= n; ++i) {
                    if (delta[At(i)] == 0)
                        continue;
                    if (delta[At(i)] > 0)
                        s[At(i)] = (upper[At(i)] - X[At(i)]) / delta[At(i)];
                    else
                        s[At(i)] = (lower[At(i)] - X[At(i)]) / delta[At(i)];
                    if (s[At(i)] <= w)
                        w = s[At(i)];
                }
                int eq = 0;
                for (int i = 1; i <= n; ++i) {
                    if (mask[At(i)] == 0)
                        continue;
                    FitParam[At(i)] = X[At(i)] + w * delta[At(i)];
                    if (delta[At(i)] != 0 && s[At(i)] <= w)
                        FitParam[At(i)] = delta[At(i)] > 0 ? upper[At(i)] : lower[At(i)];
                    if (X[At(i)] + 10 == FitParam[At(i)] + 10) {
                        FitParam[At(i)] = X[At(i)];
                        eq = eq + 1;
                    }
                }
                if (eq == freeCount) {
                    moving = false;
                    break;
                }
                if (!sumSquares())
                    return;
                lowered = F < p;
            }
            if (!lowered) {
                lambda = Finite(lambda * 10);
                if (lambda <= 0)
                    lambda = 3E-16;
            }
        }
        if (!moving)
            break;
        for (int i = 1; i <= n; ++i) {
            if (!(mask[At(i)] > 0))
                continue;
            if (FitParam[At(i)] - lower[At(i)] <= (std::abs(lower[At(i)]) + 3E-16) * 3E-16)
                mask[At(i)] = -2;
            if (upper[At(i)] - FitParam[At(i)] <= (std::abs(upper[At(i)]) + 3E-16) * 3E-16)
                mask[At(i)] = -1;
        }
    }

    a = c;
    bool singular = m <= freeCount;
    if (!singular)
        CholeskyFactor(n, a, mask, singular);
    for (int i = 1; i <= n; ++i) {
        FitStdDev[At(i)] = -10000;
        if (singular)
            continue;
        FitVector unit{};
        unit[At(i)] = 1;
        CholeskySolve(n, a, mask, unit);
        FitStdDev[At(i)] = CheckedSqrt(std::abs(p / (m - freeCount)) * Finite(unit[At(i)]));
    }

    const double h = 10 * std::sqrt(3E-16);
    for (int i = 1; i <= n; ++i) {
        if (mask[At(i)] == 0)
            continue;
        const double s = (std::abs(X[At(i)]) + h) * h;
        for (const double sign : {-1.0, 1.0}) {
            FitParam[At(i)] = X[At(i)] + sign * s;
            if (FitParam[At(i)] < lower[At(i)] || FitParam[At(i)] > upper[At(i)])
                continue;
            if (!sumSquares())
                return;
            if (F < p) {
                for (int j = 1; j <= i; ++j)
                    X[At(j)] = FitParam[At(j)];
            }
        }
        FitParam[At(i)] = X[At(i)];
    }
}

} // namespace

void calcFQS_Marquardt(ProjectState& ps, int m, const FitVector& B, double& F, int& ifn) {
    ifn = ifn + 1;
    TakeParameters(ps, B);
    if (ps.FitMode < 6 && ps.NumericModel)
        Course(ps);
    F = 0;
    for (int i = 1; i <= m; ++i) {
        double res = 0;
        CalcResiduals(ps, i, B, res, true);
        F = F + res * res;
    }
    Finite(F);
}

void CalcAbleitungen(ProjectState& ps, int n, int i, FitVector& B, double& res, FitVector& J) {
    const ExpPoint& point = ps.ExpData[At(i)];
    if (ps.FitMode == 6 && ps.kTFunction == 1) {
        if (point.exclude == 0 && point.T > 0) {
            const double e = CheckedExp(Divide(-B[2], point.T * kGas));
            const double E = CheckedExp(-B[1] * point.t * e);
            J[1] = -point.t * e * E;
            J[2] = -B[1] * J[1] / (point.T * kGas);
        }
        CalcResiduals(ps, i, B, res, false);
        return;
    }
    for (int j = 1; j <= n; ++j) {
        const double p = B[At(j)];
        const double h = (std::abs(p) + 1.7E-7) * 1.7E-7;
        CalcResiduals(ps, i, B, res, false);
        B[At(j)] = p + h;
        double res2 = 0;
        CalcResiduals(ps, i, B, res2, false);
        J[At(j)] = (res2 - res) / h;
        B[At(j)] = p;
    }
}

FitRun MarquardtNashFitting(ProjectState& ps, int n, int m, FitVector& FitParam,
                            FitVector& FitStdDev, bool& LimitReached) {
    FitRun run;
    try {
        Run(ps, n, m, FitParam, FitStdDev, run);
    } catch (const ArithmeticError& error) {
        run.error = error.what();
    }
    LimitReached = run.LimitReached;
    if (LimitReached || !run.error.empty())
        for (int i = 1; i <= n; ++i)
            FitStdDev[At(i)] = -10000;
    return run;
}

} // namespace zorvant::reference
