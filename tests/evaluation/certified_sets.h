// The certified reference sets for non-linear least squares of the NIST/ITL Statistical Reference
// Datasets (StRD), read as they were issued (public domain): tests/data/certified/*.dat.
#pragma once

#include "evaluation/kinetic_fit.h"
#include "evaluation/kinetic_problem.h"
#include "evaluation/marquardt_nash.h"
#include "platform/number_text.h"

#include <cmath>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace zorvant::certified {

struct Set {
    std::string name;
    int n = 0;                        ///< parameters
    std::vector<FitVector> starts{2}; ///< the two published ones
    FitVector value{}, stdDev{};      ///< certified, 11 digits
    double sumSquares = 0;            ///< certified
    std::vector<double> x, y;
};

/// The model of a set: y at x for the parameters b.
using Function = double (*)(double x, const FitVector& b);

struct Model {
    const char* name;
    Function y;
};

inline constexpr Model kModels[] = {
    {"Misra1a", [](double x, const FitVector& b) { return b[1] * (1 - std::exp(-b[2] * x)); }},
    {"Misra1b",
     [](double x, const FitVector& b) { return b[1] * (1 - std::pow(1 + b[2] * x / 2, -2)); }},
    {"Misra1c",
     [](double x, const FitVector& b) { return b[1] * (1 - std::pow(1 + 2 * b[2] * x, -0.5)); }},
    {"Misra1d", [](double x, const FitVector& b) { return b[1] * b[2] * x / (1 + b[2] * x); }},
    {"Chwirut2",
     [](double x, const FitVector& b) { return std::exp(-b[1] * x) / (b[2] + b[3] * x); }},
    {"DanWood", [](double x, const FitVector& b) { return b[1] * std::pow(x, b[2]); }},
    {"BoxBOD", [](double x, const FitVector& b) { return b[1] * (1 - std::exp(-b[2] * x)); }},
    {"Rat42", [](double x, const FitVector& b) { return b[1] / (1 + std::exp(b[2] - b[3] * x)); }},
    {"MGH10", [](double x, const FitVector& b) { return b[1] * std::exp(b[2] / (x + b[3])); }},
    {"Eckerle4",
     [](double x, const FitVector& b) {
         const double u = (x - b[3]) / b[2];
         return b[1] / b[2] * std::exp(-0.5 * u * u);
     }},
};

/// Reads a set. Errors: std::runtime_error when the file is not one.
inline Set Load(const std::string& name) {
    std::ifstream file(std::string(SOURCE_DIR "/tests/data/certified/") + name + ".dat");
    Set set;
    set.name = name;
    bool data = false;
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line);
        std::string first, second;
        words >> first >> second;
        if (data) {
            if (!first.empty()) {
                set.y.push_back(Val(first));
                set.x.push_back(Val(second));
            }
        } else if (first.size() == 2 && first[0] == 'b' && second == "=") {
            std::string start1, start2, value, stdDev;
            words >> start1 >> start2 >> value >> stdDev;
            const auto j = static_cast<std::size_t>(first[1] - '0');
            set.starts[0].at(j) = Val(start1);
            set.starts[1].at(j) = Val(start2);
            set.value.at(j) = Val(value);
            set.stdDev.at(j) = Val(stdDev);
            set.n = static_cast<int>(j);
        } else if (line.starts_with("Residual Sum of Squares:")) {
            set.sumSquares = Val(line.substr(line.find(':') + 1));
        } else if (first == "Data:" && second == "y") {
            data = true;
        }
    }
    if (set.n == 0 || set.x.size() < 3 || set.sumSquares <= 0)
        throw std::runtime_error(name + " is not a certified set");
    return set;
}

/// The points of a set as a problem of least squares.
class Problem : public LeastSquaresProblem {
public:
    Problem(const Set& set, Function y) : set_(set), y_(y) {}
    int Count() const override { return static_cast<int>(set_.x.size()); }
    void CalcResiduals(const FitVector& b, double* res) override {
        for (std::size_t i = 0; i < set_.x.size(); ++i)
            res[i] = y_(set_.x[i], b) - set_.y[i];
    }

private:
    const Set& set_;
    Function y_;
};

/// The bounds and limits that the fits of rate constants have.
inline FitLimits Limits(int n) {
    return LimitsOfFit(kFitConstants, n);
}

/// How many digits agree: -log10 of the relative deviation, at most the 11 that are certified.
inline double AgreeingDigits(double found, double right) {
    const double deviation = std::fabs(found - right) / std::fabs(right);
    return deviation < 1E-11 ? 11 : std::fmax(0, -std::log10(deviation));
}

} // namespace zorvant::certified
