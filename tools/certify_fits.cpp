// Prints how many digits the least-squares fits share with the certified reference sets, as the
// table of docs/numerics.md.
#include "tests/evaluation/certified_courses.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

using namespace zorvant;

namespace {

constexpr int kMostRuns = 3;

std::string Digits(double digits) {
    char text[16];
    std::snprintf(text, sizeof text, "%.1f",
                  std::floor(10 * digits) / 10); // never more than there are
    return text;
}

void PrintRow(const certified::Set& set, const certified::Model& model, std::size_t start) {
    certified::Problem problem(set, model.y);
    FitVector param = set.starts[start], stdDev{};
    int runs = 0, sums = 0, jacobians = 0;
    FitRun run;
    do { // as the message of a stop at a limit advises
        run = MinimiseSquares(set.n, problem.Count(), certified::Limits(set.n), {}, problem, param,
                              stdDev);
        sums += run.ifn;
        jacobians += run.ig;
    } while (run.LimitReached && ++runs < kMostRuns);
    runs += run.LimitReached ? 0 : 1;
    double digits = 11, deviationDigits = 11;
    for (std::size_t j = 1; j <= static_cast<std::size_t>(set.n); ++j) {
        digits = std::min(digits, certified::AgreeingDigits(param[j], set.value[j]));
        deviationDigits =
            std::min(deviationDigits, certified::AgreeingDigits(stdDev[j], set.stdDev[j]));
    }
    const bool found = digits >= 4;
    std::printf("| %s | %d | %zu | %zu | %s | %s | %s | %d | %d | %d |\n", set.name.c_str(), set.n,
                set.x.size(), start + 1, found ? Digits(digits).c_str() : "-",
                found ? Digits(deviationDigits).c_str() : "-",
                found ? Digits(certified::AgreeingDigits(run.sumSquares, set.sumSquares)).c_str()
                      : "-",
                runs, sums, jacobians);
}

} // namespace

int main() {
    std::puts("| set | n | m | start | parameters | standard deviations | sum of squares | "
              "runs | evaluations | Jacobians |");
    std::puts("|---|---|---|---|---|---|---|---|---|---|");
    for (const certified::Model& model : certified::kModels) {
        const certified::Set set = certified::Load(model.name);
        for (std::size_t start = 0; start < set.starts.size(); ++start)
            PrintRow(set, model, start);
    }
    std::puts("\n| set | model | digits of k |\n|---|---|---|");
    for (const certified::Course& course : certified::kCourses)
        std::printf("| %s | %d | %s |\n", course.set, course.model,
                    Digits(certified::FitThroughCatalogue(course)).c_str());
    return 0;
}
