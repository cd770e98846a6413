// Every function of the reactors against input that the dialogs refuse or never see: each ends by
// its flag or its error, and nothing that is not a number leaves it.
#include "engine/arithmetic.h"
#include "engine/project_state.h"
#include "reactors/batch.h"
#include "reactors/cascade.h"
#include "reactors/cstr.h"
#include "reactors/equilibrium.h"
#include "reactors/half_life.h"
#include "reactors/tubular.h"
#include "tests/reactors/support.h"

#include <cmath>
#include <functional>
#include <limits>

namespace zorvant {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// What one function made of its input.
struct Outcome {
    bool failed = false;         ///< flag, error, or "nothing"
    std::vector<double> results; ///< what counts where it did not fail
    std::vector<double> left;    ///< what must be a number in any case
};

void Append(std::vector<double>& to, const SpeciesArray& c) {
    to.insert(to.end(), c.begin() + 1, c.end());
}

using Function = std::function<Outcome(ProjectState&)>;
struct NamedFunction {
    const char* name;
    Function call;
};

Outcome OfTank(ProjectState& ps, int mode) {
    Outcome outcome;
    double V = ps.UA * 2, Vdot = ps.VPunkt;
    bool bBTooLow = false, bNoSolution = false;
    std::vector<MessageBox> messages;
    CalcRuehrkessel(ps, ps.ModelId, mode, ps.c0, ps.UA, V, Vdot, ps.tVerweil, ps.cEnd, ps.Ksi,
                    bBTooLow, bNoSolution, messages);
    outcome.failed = bBTooLow || bNoSolution;
    outcome.results = {ps.UA, V, Vdot, ps.tVerweil};
    Append(outcome.left, ps.cEnd);
    outcome.left.insert(outcome.left.end(), ps.Ksi.begin(), ps.Ksi.end());
    return outcome;
}

Outcome OfCurve(const ProjectState& ps, bool drawn) {
    Outcome outcome;
    outcome.failed = !drawn;
    if (!drawn)
        return outcome;
    for (int slot = 1; slot <= kSpecies; ++slot)
        outcome.left.insert(outcome.left.end(), cSim(ps, slot).begin(), cSim(ps, slot).end());
    for (const Range& range : {ps.Memory.RngT, ps.Memory.RngC}) {
        outcome.left.push_back(static_cast<double>(range.lower));
        outcome.left.push_back(static_cast<double>(range.upper));
        EXPECT_LT(range.lower, range.upper);
    }
    return outcome;
}

Outcome OfSearch(const ProjectState& ps, const TimeSearch& search) {
    Outcome outcome{search.err, {search.t, ps.tVerweil}, {}};
    Append(outcome.left, ps.cEnd);
    return outcome;
}

Outcome OfSeries(ProjectState& ps, int mode) {
    Outcome outcome;
    TankSeries series;
    SizeSeries(series, 3);
    double V = 0.3;
    const SeriesResult result = RunCascade(ps, series, mode, V);
    outcome.failed = result.bBTooLow || result.bNoSolution;
    outcome.results = {result.U, V, ps.VPunkt, ps.tVerweil, ps.UA};
    for (std::size_t j = 1; j <= 3; ++j) {
        Append(outcome.left, series.cKask[j]);
        outcome.left.push_back(series.UKask[j]);
    }
    return outcome;
}

const std::vector<NamedFunction>& Functions() {
    static const std::vector<NamedFunction> functions{
        {"CalcBatchKessel",
         [](ProjectState& ps) {
             Outcome outcome;
             std::vector<MessageBox> messages;
             CalcBatchKessel(ps, ps.ModelId, ps.tVerweil, ps.cEnd, outcome.failed, messages);
             Append(outcome.left, ps.cEnd);
             return outcome;
         }},
        {"SearchBatchTime", [](ProjectState& ps) { return OfSearch(ps, SearchBatchTime(ps)); }},
        {"SearchTubeTime", [](ProjectState& ps) { return OfSearch(ps, SearchTubeTime(ps)); }},
        {"tank, mode 0", [](ProjectState& ps) { return OfTank(ps, 0); }},
        {"tank, mode 1", [](ProjectState& ps) { return OfTank(ps, 1); }},
        {"tank, mode 2", [](ProjectState& ps) { return OfTank(ps, 2); }},
        {"tank, mode 3", [](ProjectState& ps) { return OfTank(ps, 3); }},
        {"tank, mode 4", [](ProjectState& ps) { return OfTank(ps, 4); }},
        {"series, mode 2", [](ProjectState& ps) { return OfSeries(ps, 2); }},
        {"series, mode 3", [](ProjectState& ps) { return OfSeries(ps, 3); }},
        {"series, mode 4", [](ProjectState& ps) { return OfSeries(ps, 4); }},
        {"CalcTankCurve", [](ProjectState& ps) { return OfCurve(ps, CalcTankCurve(ps)); }},
        {"CascadeTimeCurve", [](ProjectState& ps) { return OfCurve(ps, CascadeTimeCurve(ps, 3)); }},
        {"CascadeStaircase",
         [](ProjectState& ps) {
             TankSeries series;
             SizeSeries(series, 3);
             double V = 1;
             RunCascade(ps, series, 3, V);
             return OfCurve(ps, CascadeStaircase(ps, series));
         }},
    };
    return functions;
}

bool AllNumbers(const std::vector<double>& values) {
    for (const double value : values)
        if (!std::isfinite(value))
            return false;
    return true;
}

/// One field of the input that is spoilt.
struct Field {
    const char* name;
    std::function<bool(const ProjectState&)> used; ///< whether the model reads it
    std::function<void(ProjectState&, double)> spoil;
};

const std::vector<Field>& Fields() {
    static const std::vector<Field> fields = [] {
        std::vector<Field> list;
        static constexpr const char* kConstants[]{"", "k1", "k2", "k3"};
        for (std::size_t j = 1; j <= 3; ++j)
            list.push_back({kConstants[j],
                            [j](const ProjectState& ps) { return ps.RateMask[j - 1] == '1'; },
                            [j](ProjectState& ps, double x) { ps.k[j] = x; }});
        static constexpr const char* kSlots[]{"", "c(A)", "c(B)", "c(C)", "c(P)", "c(Q)"};
        for (std::size_t s = 1; s <= kSpecies; ++s)
            list.push_back({kSlots[s],
                            [s](const ProjectState& ps) {
                                return InMask(ps.SpeciesMask, static_cast<int>(s));
                            },
                            [s](ProjectState& ps, double x) { ps.c0[s] = x; }});
        list.push_back({"n", [](const ProjectState& ps) { return ps.ModelId == 20; },
                        [](ProjectState& ps, double x) { ps.OrderN = static_cast<float>(x); }});
        const auto always = [](const ProjectState&) { return true; };
        list.push_back({"t", always, [](ProjectState& ps, double x) { ps.tVerweil = x; }});
        list.push_back({"V*", always, [](ProjectState& ps, double x) { ps.VPunkt = x; }});
        list.push_back({"U", always, [](ProjectState& ps, double x) { ps.UA = x; }});
        return list;
    }();
    return fields;
}

ProjectState Sound(int model) {
    ProjectState ps = StateOfModel(model);
    ps.UA = 0.1;
    ps.tVerweil = 3;
    ps.VPunkt = 0.2;
    return ps;
}

TEST(BadInput, IsToldByTheFlagAndLeavesNumbers) {
    for (const int model : AllModels())
        for (const NamedFunction& function : Functions())
            for (const Field& field : Fields())
                for (const double bad : {kNaN, kInfinity, -kInfinity, -1.0, 0.0, 1e300, 1e-300}) {
                    ProjectState ps = Sound(model);
                    const bool slow = ps.NumericModel && (bad == 1e300 || bad == 1e-300) &&
                                      std::string(function.name).starts_with("Search");
                    const bool noAxis = bad == 1e-300 && field.name == std::string("t");
                    if (!field.used(ps) || slow || noAxis) // at the end of a search's patience
                        continue;
                    field.spoil(ps, bad);
                    const Outcome outcome = function.call(ps);
                    const std::string where = std::string(function.name) + ", model " +
                                              std::to_string(model) + ", " + field.name + " = " +
                                              std::to_string(bad);
                    EXPECT_TRUE(AllNumbers(outcome.left)) << where;
                    EXPECT_TRUE(outcome.failed || AllNumbers(outcome.results)) << where;
                    const bool isConstant = field.name[0] == 'k' || field.name[0] == 'n';
                    const bool isConcentration = field.name[0] == 'c';
                    if ((isConstant && bad < 0) ||
                        (!std::isfinite(bad) && (isConstant || isConcentration))) {
                        EXPECT_TRUE(outcome.failed) << where;
                    }
                }
}

TEST(BadInput, InNumbersOfTanksAndModelsIsToldByTheFlag) {
    ProjectState ps = Sound(2);
    for (const int N : {0, -3}) {
        TankSeries series;
        SizeSeries(series, N);
        double V = 1;
        EXPECT_TRUE(RunCascade(ps, series, 3, V).bNoSolution);
        EXPECT_FALSE(CascadeTimeCurve(ps, N));
        EXPECT_FALSE(CascadeStaircase(ps, series));
    }
    TankSeries series;
    SizeSeries(series, 2);
    for (const int tank : {-1, 0, 3, 99}) {
        double V = 1, VPunkt = 1;
        bool bBTooLow = false, bNoSolution = false;
        CalcCascade(ps, tank, 2, 3, 1, series.cZulauf, series.UKask, V, VPunkt, 1, series.cKask,
                    bBTooLow, bNoSolution);
        EXPECT_TRUE(bNoSolution) << tank;
    }
    for (const int model : {-1, 0, 21, 500}) {
        bool err = false;
        std::vector<MessageBox> messages;
        CalcBatchKessel(ps, model, 1, ps.cEnd, err, messages);
        EXPECT_TRUE(err);
        ps.ModelId = model;
        EXPECT_TRUE(SearchTubeTime(ps).err) << model;
        EXPECT_FALSE(FindEquilibriumLimit(ps, Reactor::Batch));
        CalcKsi(ps, ps.Ksi);
        EXPECT_EQ(ps.Ksi[1], 0);
    }
}

} // namespace
} // namespace zorvant
