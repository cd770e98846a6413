#include "evaluation/kinetic_problem.h"

#include "engine/akima_curve.h"
#include "engine/arithmetic.h"
#include "engine/closed_forms.h"
#include "engine/side_by_side.h"
#include "evaluation/model_value.h"
#include "evaluation/temperature.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <vector>

namespace zorvant {

namespace {

std::size_t At(int i) {
    return static_cast<std::size_t>(i);
}

/// Whether some of the residuals are no numbers.
bool NotFinite(const double* res, int count) {
    double spoilt = 0; // stays 0 while every difference of a number from itself is 0
    for (int i = 0; i < count; ++i)
        spoilt += res[i] - res[i];
    return spoilt != 0;
}

/// The active rows of an isothermal fit.
struct Measured {
    std::vector<int> slots;     ///< species that count
    std::vector<double> t;      ///< TU
    std::vector<double> values; ///< mol/L, the rows of one species behind those of another

    Measured(const ProjectState& ps, int m) {
        for (int slot = 1; slot <= kSpecies; ++slot) {
            if (ps.FitSpecies[At(slot)])
                slots.push_back(slot);
        }
        if (slots.empty())
            return;
        t.reserve(At(m));
        values.reserve(At(m) * slots.size());
        // No model has a value at a time that is none.
        const auto takesPart = [](const ExpPoint& row) {
            return row.exclude == 0 && std::isfinite(row.t);
        };
        for (int i = 1; i <= m; ++i) {
            if (takesPart(ps.ExpData[At(i)]))
                t.push_back(ps.ExpData[At(i)].t);
        }
        for (const int slot : slots) {
            for (int i = 1; i <= m; ++i) {
                if (takesPart(ps.ExpData[At(i)]))
                    values.push_back(ps.ExpData[At(i)].c(slot));
            }
        }
    }
    int Count() const { return static_cast<int>(t.size()); }
    /// The values of the j-th species that counts.
    const double* Column(std::size_t j) const { return values.data() + j * t.size(); }

    /// Residual of row i against the model's concentrations there.
    double Deviation(int i, const SpeciesArray& c) const {
        double res = 0;
        for (std::size_t j = 0; j < slots.size(); ++j)
            res += std::fabs(c[At(slots[j])] - Column(j)[i]);
        return res;
    }
};

ConstantArray ConstantsOf(const FitVector& b) {
    return {0, b[1], b[2], b[3]};
}

/// Models with a closed form, prepared once for each vector.
class ClosedFormProblem : public KineticProblem {
public:
    ClosedFormProblem(const ProjectState& ps, int m)
        : model_(ps.ModelId), c0_(ps.c0), rows_(ps, m) {}

    int Count() const override { return rows_.Count(); }

    void CalcResiduals(const FitVector& b, double* res) override {
        last_ = b;
        bool err = false;
        try {
            const ClosedForm form(model_, ConstantsOf(b), c0_, err);
            if (!err) {
                form.Visit([&](const auto& at) { Fill(at, res); });
                if (!NotFinite(res, Count()))
                    return;
            }
        } catch (const ArithmeticError&) {
        } catch (const NoSolution&) {
        }
        FillOneByOne(b, res);
    }

private:
    template <class Form> void Fill(const Form& at, double* res) const {
        const int count = rows_.Count();
        if (rows_.slots.size() != 1) {
            for (int i = 0; i < count; ++i) {
                SpeciesArray c{};
                at(rows_.t[At(i)], c);
                res[i] = rows_.Deviation(i, c);
            }
            return;
        }
        switch (rows_.slots[0]) {
        case 1:
            return FillOne<1>(at, res);
        case 2:
            return FillOne<2>(at, res);
        case 3:
            return FillOne<3>(at, res);
        case 4:
            return FillOne<4>(at, res);
        default:
            return FillOne<5>(at, res);
        }
    }

    /// One species: what only the others need is not computed.
    template <std::size_t Slot, class Form>
    [[gnu::flatten]] void FillOne(const Form& prepared, double* res) const {
        const Form at = prepared; // no residual can change it
        const double *t = rows_.t.data(), *measured = rows_.values.data();
        for (int i = 0, count = rows_.Count(); i < count; ++i) {
            SpeciesArray c{};
            at(t[i], c);
            res[i] = std::fabs(c[Slot] - measured[i]);
        }
    }

    /// When some row has no value: each by itself.
    void FillOneByOne(const FitVector& b, double* res) const {
        for (int i = 0; i < rows_.Count(); ++i) {
            SpeciesArray c{};
            bool err = false;
            try {
                const ClosedForm form(model_, ConstantsOf(b), c0_, err);
                if (!err)
                    form.At(rows_.t[At(i)], c, err);
            } catch (const ArithmeticError&) {
                err = true;
            }
            res[i] = err ? 0 : rows_.Deviation(i, c);
        }
    }

    const int model_;
    const SpeciesArray c0_;
    const Measured rows_;
};

/// Integrated models: one course and one spline for each vector.
class NumericProblem : public KineticProblem {
public:
    NumericProblem(const ProjectState& ps, int m)
        : model_(ps.ModelId), fitsOrder_(ps.FitMode == kFitOrder),
          order_(static_cast<double>(ps.OrderN)), c0_(ps.c0), tEnd_(ps.tMax),
          step_(ps.tMax / kCurveIntervals), rows_(ps, m) {
        if (!(step_ > 0) || !std::isfinite(tEnd_))
            return;
        std::vector<double> knots;
        for (double t = 0; t <= tEnd_ + step_; t += step_)
            knots.push_back(t);
        const int all = static_cast<int>(knots.size());
        AkimaTables table;
        table.SplineX = {static_cast<double>(all)};
        table.SplineX.insert(table.SplineX.end(), knots.begin(), knots.end());
        offsets_.reserve(rows_.t.size());
        int interval = 1, last = 0;
        for (const double t : rows_.t) {
            interval = AkimaInterval(table, t, all, interval);
            offsets_.push_back(t - table.SplineX[At(std::max(interval, 1))]);
            if (stretches_.empty() || stretches_.back().piece != interval)
                stretches_.push_back({interval, 0});
            ++stretches_.back().count;
            last = std::max(last, interval);
        }
        // A piece depends on the three knots that follow its first one; the course beyond the last
        // row is not needed.
        knots_ = std::min(all, last + 3);
        knots.resize(At(knots_));
        for (Course& course : courses_)
            course.fill(std::vector<double>(knots.size()));
        curve_ = AkimaCurve(std::move(knots));
    }

    int Count() const override { return rows_.Count(); }

    void CalcResiduals(const FitVector& b, double* res) override {
        last_ = b;
        if (knots_ == 0)
            ThrowArithmetic(kInvalidCall);
        int lane = LaneOfVector(b);
        if (lane < 0) {
            lane = kAlone;
            WithNumericModel(model_, ConstantsOf(b), Order(b),
                             [&](const auto& law) { March(law); });
        }
        const Course& course = courses_[At(lane)];
        for (std::size_t j = 0; j < rows_.slots.size(); ++j) {
            curve_.Lay(course[At(rows_.slots[j])].data());
            AddDeviations(j, res);
        }
        if (NotFinite(res, Count()))
            LeaveOutWithoutValue(course, res);
    }

    bool TakesAnnouncements() const override { return true; }

    void Announce(const FitVector& first, const FitVector& second) override {
        if (knots_ == 0 || LaneOfVector(first) >= 0)
            return;
        knownLanes_ = 0;
        const double n1 = Order(first), n2 = Order(second);
        const PowerKind kind = KindOfPower(n1);
        if (kind == PowerKind::Other ? KindOfPower(n2) != kind : n1 != n2)
            return;
        announced_ = {first, second};
        const std::array<Pair, 4> k{
            {{}, {first[1], second[1]}, {first[2], second[2]}, {first[3], second[3]}}};
        WithNumericModel(model_, k, kind, Pair{n1, n2},
                         [&](const auto& law) { knownLanes_ = MarchSideBySide(law); });
    }

private:
    /// The nodes by species; of one that the model does not have they are 0.
    using Course = std::array<std::vector<double>, kSpecies + 1>;
    static constexpr int kAlone = 2;

    double Order(const FitVector& b) const { return fitsOrder_ ? b[2] : order_; }

    /// The nodes of a course.
    template <class Law> void March(const Law& law) {
        StateOf<Law> y = Packed<Law>(c0_);
        const auto nodes = Nodes<Law>(kAlone);
        int m = 1;
        for (int j = 0; j < knots_; ++j) {
            for (std::size_t i = 0; i < y.size(); ++i)
                nodes[i][j] = y[i];
            IntegrateInterval(law, y, step_, m);
            m = SubStepsAfter(m);
        }
    }

    /// The nodes of two courses. Returned: how many came through.
    template <class Law> [[gnu::noinline]] int MarchSideBySide(const Law& law) {
        const StateOf<Law> start = Packed<Law>(c0_);
        StatesOf<Law> y = SideBySide<Law>(start, start);
        const auto first = Nodes<Law>(0), second = Nodes<Law>(1);
        bool both = true;
        int m = 1;
        for (int j = 0; j < knots_; ++j) {
            for (std::size_t i = 0; i < y.size(); ++i) {
                first[i][j] = y[i][0];
                second[i][j] = y[i][1];
            }
            if (!IntegrateSideBySide(law, y, step_, m, both))
                return 0;
            m = SubStepsAfter(m);
        }
        return both ? 2 : 1;
    }

    template <class Law> auto Nodes(int lane) {
        std::array<double*, Law::kSlots.size()> nodes;
        for (std::size_t i = 0; i < nodes.size(); ++i)
            nodes[i] = courses_[At(lane)][At(Law::kSlots[i])].data();
        return nodes;
    }

    int LaneOfVector(const FitVector& b) const {
        for (int lane = 0; lane < knownLanes_; ++lane) {
            if (announced_[At(lane)] == b)
                return lane;
        }
        return -1;
    }

    /// Rows behind each other that lie on one piece.
    struct Stretch {
        int piece, count;
    };

    /// Adds the deviations of the j-th selected species, whose curve is laid.
    void AddDeviations(std::size_t j, double* res) const {
        const double *h = offsets_.data(), *measured = rows_.Column(j);
        for (const Stretch& stretch : stretches_) {
            const AkimaPiece piece = curve_.Piece(stretch.piece);
            int i = 0;
            for (; i + 2 <= stretch.count; i += 2)
                Store(res + i, Magnitude(piece.At(Load(h + i)) - Load(measured + i)) +
                                   (j == 0 ? Pair{} : Load(res + i)));
            for (; i < stretch.count; ++i)
                res[i] = Magnitude(piece.At(h[i]) - measured[i]) + (j == 0 ? 0 : res[i]);
            h += i, measured += i, res += i;
        }
    }

    /// A row far outside the course, where the straight continuation overflows, has residual 0.
    void LeaveOutWithoutValue(const Course& course, double* res) {
        for (const int slot : rows_.slots) {
            curve_.Lay(course[At(slot)].data());
            int i = 0;
            for (const Stretch& stretch : stretches_) {
                for (const int end = i + stretch.count; i < end; ++i) {
                    if (!std::isfinite(curve_.Piece(stretch.piece).At(offsets_[At(i)])))
                        res[i] = 0;
                }
            }
        }
    }

    const int model_;
    const bool fitsOrder_;
    const double order_;
    const SpeciesArray c0_;
    const double tEnd_;
    const double step_; ///< of the grid, TU
    const Measured rows_;
    std::vector<Stretch> stretches_;
    std::vector<double> offsets_;   ///< t less the first knot of the piece, by row
    std::array<Course, 3> courses_; ///< of the announced vectors, and of one alone
    std::array<FitVector, 2> announced_{};
    int knownLanes_ = 0; ///< how many of them have their courses
    AkimaCurve curve_;
    int knots_ = 0;
};

/// A curve that does not depend on the constants, or no model at all.
class ConstantProblem : public KineticProblem {
public:
    ConstantProblem(const ProjectState& ps, int m) : rows_(ps, m) {
        for (int i = 0; i < rows_.Count(); ++i) {
            SpeciesArray c{};
            bool err = false;
            FuModellWert(ps, ps.ModelId, rows_.t[At(i)], c, err);
            residuals_.push_back(err ? 0 : rows_.Deviation(i, c));
        }
    }
    int Count() const override { return rows_.Count(); }
    void CalcResiduals(const FitVector& b, double* res) override {
        last_ = b;
        std::ranges::copy(residuals_, res);
    }

private:
    const Measured rows_;
    std::vector<double> residuals_;
};

/// Fits of k(T): c(t) of first or second order along the temperatures of the rows.
class TemperatureProblem : public KineticProblem {
public:
    TemperatureProblem(const ProjectState& ps, int m)
        : secondOrder_(ps.FitMode == kFitSecondOrderT), eyring_(ps.kTFunction == kEyring),
          c0_(static_cast<double>(ps.c0Data[1])) {
        for (int i = 1; i <= m; ++i) {
            const ExpPoint& row = ps.ExpData[At(i)];
            if (row.exclude != 0 || !(row.T > 0))
                continue;
            t_.push_back(row.t);
            T_.push_back(row.T);
            TR_.push_back(row.T * kGasConstant);
            measured_.push_back(row.cA);
        }
        factor_.resize(t_.size());
        left_.resize(t_.size());
    }

    int Count() const override { return static_cast<int>(t_.size()); }

    void CalcResiduals(const FitVector& b, double* res) override {
        last_ = b;
        BoltzmannFactors(b[2]);
        if (secondOrder_)
            SecondOrder(b[1], res);
        else
            FirstOrder(b[1], res);
    }

    void CalcAbleitungen(int n, const FitVector& b, const double* res,
                         const JacobianColumns& columns) override {
        if (secondOrder_ || eyring_ || b != last_) {
            LeastSquaresProblem::CalcAbleitungen(n, b, res, columns);
            return;
        }
        // e and E stand from the residuals at b.
        for (int i = 0; i < Count(); ++i) {
            const double byFactor = -t_[At(i)] * factor_[At(i)] * left_[At(i)];
            if (columns[1] != nullptr)
                columns[1][i] = byFactor;
            if (n > 1 && columns[2] != nullptr)
                columns[2][i] = -b[1] * byFactor / TR_[At(i)];
        }
    }

private:
    /// e = exp(-energy/(R T)), once for rows of one temperature in a row.
    void BoltzmannFactors(double energy) {
        for (int i = 0; i < Count(); ++i) {
            factor_[At(i)] = i > 0 && TR_[At(i)] == TR_[At(i - 1)]
                                 ? factor_[At(i - 1)]
                                 : CheckedExp(Divide(-energy, TR_[At(i)]));
        }
    }
    void FirstOrder(double b1, double* res) {
        for (int i = 0; i < Count(); ++i) {
            const double exponent = eyring_ ? -b1 * t_[At(i)] * T_[At(i)] * factor_[At(i)]
                                            : -b1 * t_[At(i)] * factor_[At(i)];
            left_[At(i)] = CheckedExp(exponent);
            res[i] = left_[At(i)] - measured_[At(i)];
        }
    }
    void SecondOrder(double b1, double* res) const {
        const double start = Count() > 0 ? Divide(1, c0_) : 0;
        for (int i = 0; i < Count(); ++i) {
            const double inverse = eyring_ ? 2 * t_[At(i)] * b1 * T_[At(i)] * factor_[At(i)] + start
                                           : start + 2 * b1 * factor_[At(i)] * t_[At(i)];
            res[i] = Divide(1, inverse) - measured_[At(i)];
        }
    }

    const bool secondOrder_;
    const bool eyring_;
    const double c0_; ///< c(A,0), mol/L
    std::vector<double> t_, T_, TR_, measured_;
    std::vector<double> factor_; ///< e by row
    std::vector<double> left_;   ///< E = exp(-k(T) t) by row
};

} // namespace

std::unique_ptr<KineticProblem> MakeKineticProblem(const ProjectState& ps, int m) {
    if (m < 0 || m > ps.ExpPointCount || At(m) >= ps.ExpData.size())
        throw std::invalid_argument("a fit takes rows of the table of measured values");
    if (ps.FitMode >= kFirstTemperatureMode)
        return std::make_unique<TemperatureProblem>(ps, m);
    if (HasClosedForm(ps.ModelId))
        return std::make_unique<ClosedFormProblem>(ps, m);
    if (ps.MMDiagram && ps.ModelId == 10)
        return std::make_unique<ConstantProblem>(ps, m);
    return std::make_unique<NumericProblem>(ps, m);
}

} // namespace zorvant
