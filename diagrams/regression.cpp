#include "diagrams/regression.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zorvant {
namespace {

/// Powers of x that a type has at most: 1, x, .. x^4.
constexpr int kMostTerms = 5;
using Basis = std::array<double, kMostTerms + 2>; // from 1; one place more for noConst

int TermsOfType(int type) {
    return std::clamp(type, 2, kMostTerms);
}

Basis BasisAt(double x, int type, int noConst) {
    Basis basis{};
    double power = 1;
    const int terms = TermsOfType(type);
    for (int j = 1; j <= terms; ++j) {
        basis[static_cast<std::size_t>(j)] = power;
        power *= x;
    }
    if (noConst == 1)
        std::shift_left(basis.begin() + 1, basis.end(), 1);
    return basis;
}

double& At(RegressionMatrix& a, int row, int column) {
    return a[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

/// Gauss-Jordan elimination with the first pivot that is not 0.
bool Solve(RegressionMatrix& a, int n) {
    for (int k = 1; k <= n; ++k) {
        int pivot = k;
        while (pivot <= n && At(a, pivot, k) == 0)
            ++pivot;
        if (pivot > n)
            return false;
        std::swap(a[static_cast<std::size_t>(pivot)], a[static_cast<std::size_t>(k)]);
        const double scale = 1 / At(a, k, k);
        for (int c = 1; c <= n + 1; ++c)
            At(a, k, c) *= scale;
        for (int l = 1; l <= n; ++l) {
            const double factor = At(a, l, k);
            if (l != k && factor != 0)
                for (int c = 1; c <= n + 1; ++c)
                    At(a, l, c) -= factor * At(a, k, c);
        }
    }
    return true;
}

template <class T>
void Fit(const std::vector<T>& x, const std::vector<T>& y, const std::vector<T>& w, int n, int type,
         int noConst, RegressionMatrix& a, T& sd, T& relsd, T& r2, bool& singular) {
    const auto terms = static_cast<std::size_t>(std::clamp(n, 1, TermsOfType(type)));
    n = static_cast<int>(terms);
    a.assign(terms + 1, std::vector<double>(terms + 2, 0));
    for (std::size_t i = 1; i < x.size(); ++i) {
        const Basis f = BasisAt(static_cast<double>(x[i]), type, noConst);
        const auto weight = static_cast<double>(w[i]);
        for (std::size_t j = 1; j <= terms; ++j) {
            for (std::size_t l = 1; l <= j; ++l) {
                a[j][l] += f[j] * f[l] * weight;
                a[l][j] = a[j][l];
            }
            a[j][terms + 1] += static_cast<double>(y[i]) * f[j] * weight;
        }
    }
    singular = !Solve(a, n);
    if (singular)
        return;

    double sumW = 0, sumWy = 0;
    for (std::size_t i = 1; i < x.size(); ++i) {
        sumW += static_cast<double>(w[i]);
        sumWy += static_cast<double>(w[i]) * static_cast<double>(y[i]);
    }
    sd = relsd = r2 = 0;
    if (!(sumW - n > 0))
        return;
    const double mean = sumWy / sumW;
    double explained = 0, total = 0, residual = 0, relative = 0;
    for (std::size_t i = 1; i < x.size(); ++i) {
        const Basis f = BasisAt(static_cast<double>(x[i]), type, noConst);
        const auto weight = static_cast<double>(w[i]);
        const auto measured = static_cast<double>(y[i]);
        double fitted = 0;
        for (std::size_t j = 1; j <= terms; ++j)
            fitted += a[j][terms + 1] * f[j];
        explained += weight * (fitted - mean) * (fitted - mean);
        total += weight * (measured - mean) * (measured - mean);
        residual += weight * (measured - fitted) * (measured - fitted);
        if (measured != 0) {
            const double percent = (measured - fitted) / measured * 100;
            relative += weight * percent * percent;
        }
    }
    sd = static_cast<T>(std::sqrt(residual / (sumW - n)));
    relsd = static_cast<T>(std::sqrt(relative / sumW));
    r2 = static_cast<T>(total > 0 ? explained / total : 0);
}

} // namespace

void FuRegression(const std::vector<float>& x, const std::vector<float>& y,
                  const std::vector<float>& w, int n, int type, int noConst,
                  RegressionMatrix& matrix, float& sd, float& relsd, float& r2, bool& singular) {
    Fit(x, y, w, n, type, noConst, matrix, sd, relsd, r2, singular);
}

void FuRegression(const std::vector<double>& x, const std::vector<double>& y,
                  const std::vector<double>& w, int n, int type, int noConst,
                  RegressionMatrix& matrix, double& sd, double& relsd, double& r2, bool& singular) {
    Fit(x, y, w, n, type, noConst, matrix, sd, relsd, r2, singular);
}

} // namespace zorvant
