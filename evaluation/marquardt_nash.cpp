// Source: J. C. Nash, Compact Numerical Methods for Computers, 2nd ed. (1990), algorithms 7, 8, 23.
#include "evaluation/marquardt_nash.h"

#include "engine/arithmetic.h"
#include "engine/pair.h"

#include <cmath>
#include <stdexcept>
#include <vector>

namespace zorvant {

namespace {

/// lambda grows by this after a rejected step; smaller: more rejections until the step is short.
constexpr double kIncrease = 10;
/// lambda shrinks to kDecrease / kIncrease of itself after an accepted step; larger: the last steps
/// converge more slowly.
constexpr double kDecrease = 4;
/// First damping; larger: the first steps creep down the gradient.
constexpr double kStartLambda = 0.0001;
/// Share of lambda on the diagonal that does not scale with it: keeps a parameter without any
/// influence from making the matrix singular.
constexpr double kPhi = 1;
/// A parameter has not moved when it is unchanged after this was added: steps below 2E-15 count as
/// none. 0 would ask for the last bit of small parameters and not end.
constexpr double kRelTest = 10;
/// Rounding unit of the comparisons with bounds; larger: parameters are held short of the bound.
constexpr double kMachineEps = 3E-16;
/// Relative and least step of the forward difference: about the root of the rounding unit, so that
/// rounding and curvature cost equally many digits of the derivative.
constexpr double kDerivativeShift = 1.7E-7;

constexpr double kFree = 1, kFixed = 0, kAtUpper = -1, kAtLower = -2;

constexpr std::size_t At(int i) {
    return static_cast<std::size_t>(i);
}
constexpr std::size_t At(int i, int j) {
    return static_cast<std::size_t>(i * (i - 1) / 2 + j);
}

struct NormalSystem {
    PackedMatrix a{}; ///< J'J
    FitVector v{};    ///< J'res
};

/// Adds up both in the order of the points.
template <int n>
NormalSystem BuildNormalSystem(int count, const double* res, const JacobianColumns& columns) {
    NormalSystem sums;
    for (int i = 0; i < count; ++i) {
        for (int j = 1; j <= n; ++j) {
            const double derivative = columns[At(j)][i];
            sums.v[At(j)] += res[i] * derivative;
            for (int l = 1; l <= j; ++l)
                sums.a[At(j, l)] += columns[At(l)][i] * derivative;
        }
    }
    return sums;
}

FitVector Shifted(FitVector b, int j) {
    b[At(j)] += DerivativeStep(b[At(j)]);
    return b;
}

/// One run: the state that its steps share.
class Iteration {
public:
    Iteration(int n, int m, const FitLimits& limits, const FitFlags& fixed,
              LeastSquaresProblem& problem, FitVector& param, FitVector& stdDev, FitRun& run)
        : n_(n), m_(m), limits_(limits), problem_(problem), param_(param), stdDev_(stdDev),
          run_(run), count_(problem.Count()), residuals_(static_cast<std::size_t>(count_)),
          columns_(static_cast<std::size_t>(count_ * n)) {
        for (int i = 1; i <= n_; ++i)
            mask_[At(i)] = fixed[At(i)] != 0 ? kFixed : kFree;
    }

    void Run() {
        MoveIntoBounds();
        AnnounceTrial(false);
        double f = 0;
        if (!calcFQS_Marquardt(f))
            return;
        bool moving = true;
        while (moving) {
            lambda_ = lambda_ * kDecrease / kIncrease;
            run_.sumSquares = f;
            if (!BuildJacobian())
                return;
            // Steps from here, each shorter than the last, until one lowers F or none moves.
            bool rejected = false;
            for (bool lowered = false; moving && !lowered; rejected = true) {
                const Trial trial = TrialAt(lambda_);
                if (trial.usable) {
                    param_ = trial.param;
                    moving = trial.unmoved != freeCount_;
                    if (!moving)
                        break;
                    if (problem_.TakesAnnouncements())
                        AnnounceTrial(rejected);
                    if (!calcFQS_Marquardt(f))
                        return;
                    lowered = f < run_.sumSquares;
                }
                if (!lowered)
                    lambda_ = Damped(lambda_);
            }
            if (moving)
                HoldAtBounds();
        }
        StandardDeviations();
        ProbeMinimum();
    }

private:
    void MoveIntoBounds() {
        int masked = n_;
        for (int i = 1; i <= n_; ++i) {
            double& p = param_[At(i)];
            double& mask = mask_[At(i)];
            if (mask != kFixed)
                --masked;
            // Written so that a NaN goes to the lower bound too.
            if (!(p >= limits_.lower[At(i)])) {
                p = limits_.lower[At(i)];
                mask = kAtLower;
            }
            if (p > limits_.upper[At(i)]) {
                if (mask <= kAtLower) { // the bounds exclude each other
                    mask = kFixed;
                    ++masked;
                } else {
                    p = limits_.upper[At(i)];
                    mask = kAtUpper;
                }
            }
        }
        accepted_ = param_;
        freeCount_ = n_ - masked;
    }

    /// F at the present parameters. Returned: false when the limit of evaluations is passed.
    bool calcFQS_Marquardt(double& f) {
        ++run_.ifn;
        problem_.CalcResiduals(param_, residuals_.data());
        f = 0;
        for (const double res : residuals_)
            f += res * res;
        Finite(f);
        return !Passed(run_.ifn, limits_.sums);
    }

    /// Beside the residuals at param_ will be wanted: after a step that was accepted, as most are,
    /// the derivatives; after a rejected one the next trial, as rejections come in rows.
    void AnnounceTrial(bool rejected) const {
        if (rejected) {
            try {
                if (const Trial next = TrialAt(Damped(lambda_)); next.usable)
                    problem_.Announce(param_, next.param);
            } catch (const ArithmeticError&) { // met again should the iteration come there
            }
            return;
        }
        for (int j = 1; j <= n_; ++j) {
            if (mask_[At(j)] != kFixed) {
                problem_.Announce(param_, Shifted(param_, j));
                return;
            }
        }
    }

    bool Passed(int used, int limit) {
        run_.LimitReached = used > limit;
        return run_.LimitReached;
    }

    /// The residuals at the present parameters stand from the sum of squares that led here.
    bool BuildJacobian() {
        JacobianColumns columns{};
        for (int j = 1; j <= n_; ++j)
            columns[At(j)] = columns_.data() + static_cast<std::ptrdiff_t>(j - 1) * count_;
        // A fixed parameter has no part in the step: its column stays 0.
        JacobianColumns wanted = columns;
        for (int j = 1; j <= n_; ++j) {
            if (mask_[At(j)] == kFixed)
                wanted[At(j)] = nullptr;
        }
        problem_.CalcAbleitungen(n_, param_, residuals_.data(), wanted);
        const NormalSystem sums = n_ == 1 ? BuildNormalSystem<1>(count_, residuals_.data(), columns)
                                  : n_ == 2
                                      ? BuildNormalSystem<2>(count_, residuals_.data(), columns)
                                      : BuildNormalSystem<3>(count_, residuals_.data(), columns);
        normal_ = sums.a;
        gradient_ = sums.v;
        for (int j = 1; j <= n_; ++j) {
            Finite(gradient_[At(j)]);
            for (int l = 1; l <= j; ++l)
                Finite(normal_[At(j, l)]);
        }
        ++run_.ig;
        if (Passed(run_.ig, limits_.jacobians))
            return false;
        accepted_ = param_;
        for (int i = 1; i <= n_; ++i) {
            double& mask = mask_[At(i)];
            if (mask >= 0)
                continue;
            if ((mask + 1.5) * gradient_[At(i)] > 0)
                mask = kFree; // the gradient points inward: released
            else
                gradient_[At(i)] = 0;
        }
        return true;
    }

    /// A damped step from the accepted point.
    struct Trial {
        bool usable = false; ///< not where the matrix is singular or the step leads uphill
        int unmoved = 0;     ///< parameters that stay
        FitVector param{};
    };
    Trial TrialAt(double lambda) const {
        PackedMatrix damped = normal_;
        for (int i = 1; i <= n_; ++i)
            damped[At(i, i)] = Finite((lambda + 1) * normal_[At(i, i)] + lambda * kPhi);
        Trial trial;
        FitVector delta{};
        FitVector mask = mask_;
        do { // a parameter that would leave its bound at once is held, and the others solved for
            PackedMatrix a = damped;
            bool singular = false;
            FuCholZerlegung(n_, a, mask, singular);
            if (singular)
                return trial;
            for (int i = 1; i <= n_; ++i)
                delta[At(i)] = -gradient_[At(i)];
            FuCholLoesung(n_, a, mask, delta);
            for (int i = 1; i <= n_; ++i) {
                if (mask[At(i)] != kFree)
                    delta[At(i)] = 0;
                Finite(delta[At(i)]);
            }
        } while (HoldOutward(delta, mask));
        double slope = 0;
        for (int i = 1; i <= n_; ++i)
            slope += delta[At(i)] * gradient_[At(i)];
        trial.usable = !(Finite(slope) > 0);
        Move(delta, trial);
        return trial;
    }

    /// Masks the parameters that stand on a bound and would step over it. Returned: whether any
    /// did.
    bool HoldOutward(const FitVector& delta, FitVector& mask) const {
        bool any = false;
        for (int i = 1; i <= n_; ++i) {
            const double p = accepted_[At(i)];
            const bool below = delta[At(i)] < 0 && p == limits_.lower[At(i)];
            const bool above = delta[At(i)] > 0 && p == limits_.upper[At(i)];
            if (below || above) {
                mask[At(i)] = below ? kAtLower : kAtUpper;
                any = true;
            }
        }
        return any;
    }

    /// Goes along the step as far as the bounds allow. Who limits it ends on its bound, not a
    /// rounding beside it, where it would stop every further step.
    void Move(const FitVector& delta, Trial& trial) const {
        FitVector bound{}, toBound{};
        double length = 1;
        for (int i = 1; i <= n_; ++i) {
            if (delta[At(i)] == 0)
                continue;
            bound[At(i)] = delta[At(i)] > 0 ? limits_.upper[At(i)] : limits_.lower[At(i)];
            toBound[At(i)] = (bound[At(i)] - accepted_[At(i)]) / delta[At(i)];
            if (toBound[At(i)] <= length)
                length = toBound[At(i)];
        }
        trial.param = accepted_;
        for (int i = 1; i <= n_; ++i) {
            if (mask_[At(i)] == kFixed)
                continue;
            const double old = accepted_[At(i)];
            const bool limiting = delta[At(i)] != 0 && toBound[At(i)] <= length;
            const double moved = limiting ? bound[At(i)] : old + length * delta[At(i)];
            if (old + kRelTest == moved + kRelTest)
                ++trial.unmoved;
            else
                trial.param[At(i)] = moved;
        }
    }

    static double Damped(double lambda) {
        const double raised = Finite(lambda * kIncrease);
        return raised <= 0 ? kMachineEps : raised;
    }

    void HoldAtBounds() {
        const auto near = [](double gap, double bound) {
            return gap <= (std::fabs(bound) + kMachineEps) * kMachineEps;
        };
        for (int i = 1; i <= n_; ++i) {
            double& mask = mask_[At(i)];
            if (!(mask > 0))
                continue;
            if (near(param_[At(i)] - limits_.lower[At(i)], limits_.lower[At(i)]))
                mask = kAtLower;
            if (near(limits_.upper[At(i)] - param_[At(i)], limits_.upper[At(i)]))
                mask = kAtUpper;
        }
    }

    /// Roots of the diagonal of the inverse, undamped normal matrix times the residual variance.
    void StandardDeviations() {
        FitVector result;
        result.fill(kNoStdDev);
        bool singular = false;
        PackedMatrix a = normal_;
        if (m_ > freeCount_)
            FuCholZerlegung(n_, a, mask_, singular);
        if (m_ > freeCount_ && !singular) {
            const double variance = run_.sumSquares / (m_ - freeCount_);
            for (int i = 1; i <= n_; ++i) {
                FitVector unit{};
                unit[At(i)] = 1;
                FuCholLoesung(n_, a, mask_, unit);
                result[At(i)] = CheckedSqrt(std::fabs(variance) * Finite(unit[At(i)]));
            }
        }
        for (int i = 1; i <= n_; ++i)
            stdDev_[At(i)] = result[At(i)];
    }

    /// Looks a little to both sides of the minimum and keeps what lies lower.
    void ProbeMinimum() {
        const double shift = kRelTest * std::sqrt(kMachineEps);
        double f = 0;
        const auto probe = [&](int i) {
            if (!calcFQS_Marquardt(f))
                return false;
            if (f < run_.sumSquares) {
                for (int j = 1; j <= i; ++j)
                    accepted_[At(j)] = param_[At(j)];
            }
            return true;
        };
        for (int i = 1; i <= n_; ++i) {
            if (mask_[At(i)] == kFixed)
                continue;
            const double step = (std::fabs(accepted_[At(i)]) + shift) * shift;
            FitVector below = param_, above = param_;
            below[At(i)] = accepted_[At(i)] - step;
            above[At(i)] = accepted_[At(i)] + step;
            problem_.Announce(below, above);
            param_[At(i)] = accepted_[At(i)] - step;
            if (!(param_[At(i)] < limits_.lower[At(i)]) && !probe(i))
                return;
            param_[At(i)] = step + accepted_[At(i)];
            if (!(param_[At(i)] > limits_.upper[At(i)]) && !probe(i))
                return;
            param_[At(i)] = accepted_[At(i)];
        }
    }

    const int n_;
    const int m_;
    const FitLimits& limits_;
    LeastSquaresProblem& problem_;
    FitVector& param_;
    FitVector& stdDev_;
    FitRun& run_;
    const int count_;
    std::vector<double> residuals_; ///< at param_
    std::vector<double> columns_;   ///< the Jacobian, one parameter behind the other
    FitVector mask_{};
    FitVector accepted_{};
    FitVector gradient_{};
    PackedMatrix normal_{};
    int freeCount_ = 0;
    double lambda_ = kStartLambda;
};

} // namespace

double DerivativeStep(double p) {
    return (std::fabs(p) + kDerivativeShift) * kDerivativeShift;
}

void LeastSquaresProblem::CalcAbleitungen(int n, const FitVector& b, const double* res,
                                          const JacobianColumns& columns) {
    const int count = Count();
    for (int j = 1; j <= n; ++j) {
        double* column = columns[At(j)];
        if (column == nullptr)
            continue;
        const double h = DerivativeStep(b[At(j)]);
        const FitVector shifted = Shifted(b, j);
        for (int next = j + 1; next <= n; ++next) {
            if (columns[At(next)] != nullptr) {
                Announce(shifted, Shifted(b, next));
                break;
            }
        }
        CalcResiduals(shifted, column);
        int i = 0;
        for (; i + 2 <= count; i += 2)
            Store(column + i, (Load(column + i) - Load(res + i)) / h);
        for (; i < count; ++i)
            column[i] = (column[i] - res[i]) / h;
    }
}

void FuCholZerlegung(int n, PackedMatrix& a, const FitVector& mask, bool& singularFlag) {
    for (int j = 1; j <= n; ++j) {
        const std::size_t q = At(j, j);
        for (int i = j; i <= n && j > 1; ++i) {
            double s = a[At(i, j)];
            for (int l = 1; l < j; ++l)
                s -= a[At(i, j - l)] * a[q - At(l)];
            a[At(i, j)] = s;
        }
        double scale = 0;
        if (mask[At(j)] > 0) {
            if (!(a[q] > 0)) {
                singularFlag = true;
                return;
            }
            scale = 1 / std::sqrt(a[q]);
        } else {
            a[q] = 0;
        }
        for (int i = j; i <= n; ++i)
            a[At(i, j)] *= scale;
    }
}

void FuCholLoesung(int n, const PackedMatrix& a, const FitVector& mask, FitVector& x) {
    const auto reciprocal = [&](int i) { return mask[At(i)] > 0 ? 1 / a[At(i, i)] : 0.0; };
    for (int i = 1; i <= n; ++i) {
        for (int j = 1; j < i; ++j)
            x[At(i)] -= a[At(i, j)] * x[At(j)];
        x[At(i)] *= reciprocal(i);
    }
    for (int i = n; i >= 1; --i) {
        x[At(i)] *= reciprocal(i);
        for (int j = 1; j < i; ++j)
            x[At(j)] -= a[At(i, j)] * x[At(i)];
    }
}

FitRun MinimiseSquares(int n, int m, const FitLimits& limits, const FitFlags& fixed,
                       LeastSquaresProblem& problem, FitVector& FitParam, FitVector& FitStdDev) {
    if (n < 1 || n > kMaxFitParameters)
        throw std::invalid_argument("a fit has one to three parameters");
    FitRun run;
    for (int i = 1; i <= n; ++i)
        FitStdDev[At(i)] = kNoStdDev;
    try {
        Iteration(n, m, limits, fixed, problem, FitParam, FitStdDev, run).Run();
    } catch (const ArithmeticError& error) {
        run.error = error.what();
    }
    if (run.LimitReached || !run.error.empty()) {
        for (int i = 1; i <= n; ++i)
            FitStdDev[At(i)] = kNoStdDev;
    }
    return run;
}

} // namespace zorvant
