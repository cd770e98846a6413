// The fits beside the least squares of the GNU Scientific Library (Levenberg-Marquardt with forward
// differences) on the same residuals, from the same starts. Built only where the library is
// installed.
#include "bench/ratio.h"
#include "evaluation/kinetic_fit.h"
#include "tests/evaluation/fit_states.h"

#include <gsl/gsl_errno.h>
#include <gsl/gsl_multifit_nlinear.h>

#include <cmath>
#include <cstdio>
#include <vector>

using namespace zorvant;
using namespace zorvant::fit_states;

namespace {

struct Library {
    KineticProblem* problem;
    FitVector fixedPart; ///< parameters behind the fitted ones
    int n;
    std::vector<double> residuals;
};

int Residuals(const gsl_vector* x, void* data, gsl_vector* f) {
    auto& library = *static_cast<Library*>(data);
    FitVector b = library.fixedPart;
    for (int j = 1; j <= library.n; ++j)
        b[static_cast<std::size_t>(j)] = gsl_vector_get(x, static_cast<std::size_t>(j - 1));
    library.problem->CalcResiduals(b, library.residuals.data());
    for (std::size_t i = 0; i < f->size; ++i) // a column of the Jacobian: not in one piece
        gsl_vector_set(f, i, library.residuals[i]);
    return GSL_SUCCESS;
}

struct Solution {
    FitVector b{};
    double sum = 0;
    std::size_t iterations = 0, evaluations = 0;
};

/// To a relative step of 1E-8, as the library's own examples ask.
Solution Solve(const ProjectState& ps, int n, const FitVector& start) {
    const auto problem = MakeKineticProblem(ps, ps.ExpPointCount);
    Library library{problem.get(), start, n,
                    std::vector<double>(static_cast<std::size_t>(problem->Count()))};
    gsl_multifit_nlinear_fdf fdf{};
    fdf.f = Residuals;
    fdf.n = static_cast<std::size_t>(problem->Count());
    fdf.p = static_cast<std::size_t>(n);
    fdf.params = &library;
    const gsl_multifit_nlinear_parameters parameters = gsl_multifit_nlinear_default_parameters();
    gsl_multifit_nlinear_workspace* work =
        gsl_multifit_nlinear_alloc(gsl_multifit_nlinear_trust, &parameters, fdf.n, fdf.p);
    const gsl_vector_const_view x = gsl_vector_const_view_array(start.data() + 1, fdf.p);
    gsl_multifit_nlinear_init(&x.vector, &fdf, work);
    int info = 0;
    gsl_multifit_nlinear_driver(100, 1E-8, 1E-8, 0, nullptr, nullptr, &info, work);
    Solution solution;
    for (int j = 1; j <= n; ++j)
        solution.b[static_cast<std::size_t>(j)] =
            gsl_vector_get(gsl_multifit_nlinear_position(work), static_cast<std::size_t>(j - 1));
    solution.iterations = gsl_multifit_nlinear_niter(work);
    solution.evaluations = fdf.nevalf;
    for (std::size_t i = 0; i < fdf.n; ++i)
        solution.sum += std::pow(gsl_vector_get(gsl_multifit_nlinear_residual(work), i), 2);
    gsl_multifit_nlinear_free(work);
    return solution;
}

void Compare(int model, int m) {
    const auto ps = Selected(model);
    Measure(*ps, m);
    Tick(*ps, false);
    const int n = ParameterCount(*ps);
    const FitVector start{0, 1.3 * ps->k[1], 0.8 * ps->k[2], 1.2 * ps->k[3]};
    FitVector param{}, stdDev{};
    bool limit = false;
    FitRun run;
    const auto own = [&] {
        param = start;
        run = MarquardtNashFitting(*ps, n, m, param, stdDev, limit);
    };
    Solution theirs;
    const auto library = [&] { theirs = Solve(*ps, n, start); };
    const bench::Times times = bench::CompareTimes(own, library);
    std::printf(
        "model %2d  n %d  m %5d   %9.1f us   library %9.1f us   ratio %5.2f   F/F(library) - 1 = "
        "%8.1e   evaluations %d + %d Jacobians, library %zu in %zu steps\n",
        model, n, m, times.fast * 1e6, times.plain * 1e6, times.Ratio(),
        run.sumSquares / theirs.sum - 1, run.ifn, run.ig, theirs.evaluations, theirs.iterations);
}

} // namespace

int main() {
    gsl_set_error_handler_off();
    for (const int m : {20, 1000, 10000}) {
        for (const int model : {2, 6, 17, 7, 9, 10, 13, 14, 15, 18, 20})
            Compare(model, m);
    }
    return 0;
}
