// H. Akima, "A new method of interpolation and smooth curve fitting based on local procedures",
// J. ACM 17 (1970) 589-602.
#include "engine/akima_spline.h"

#include "engine/akima_rows.h"
#include "engine/arithmetic.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <stdexcept>
#include <string>
#include <vector>

namespace zorvant {
namespace {

/// Knots laid beyond each end.
constexpr int kExtension = 2;
/// Room that the tables keep behind the last knot.
constexpr int kSpareRows = 5;
/// Neighbours on each side that take part in smoothing.
constexpr int kSmoothingReach = 3;

std::size_t At(int i) {
    return static_cast<std::size_t>(i);
}

/// One pass of a weighted moving average over the knots and two more on each side.
void Smooth(AkimaTables& tables, int s, int n, double exponent) {
    const auto slot = At(s);
    const auto& X = tables.SplineX;
    auto& Y = tables.SplineY;
    const int extended = n + 2 * kExtension;
    std::vector<double> x(At(extended + 1)), y(At(extended + 1));
    for (int i = 1; i <= n; ++i) {
        x[At(i + kExtension)] = X[At(i)];
        y[At(i + kExtension)] = Y[At(i)][slot];
    }
    const auto chord = [&](int i) {
        return Divide(y[At(i + 1)] - y[At(i)], x[At(i + 1)] - x[At(i)]);
    };
    const int first = kExtension + 1, last = n + kExtension;
    const Beyond<double> left(x[At(first)], y[At(first)], x[At(first + 1)], x[At(first + 2)],
                              chord(first), chord(first + 1));
    const Beyond<double> right(x[At(last)], y[At(last)], x[At(last - 1)], x[At(last - 2)],
                               chord(last - 1), chord(last - 2));
    x[1] = left.x2, y[1] = left.y2;
    x[2] = left.x1, y[2] = left.y1;
    x[At(last + 1)] = right.x1, y[At(last + 1)] = right.y1;
    x[At(last + 2)] = right.x2, y[At(last + 2)] = right.y2;

    const double spacing = (x[At(extended)] - x[1]) / (extended - 1);
    for (int i = first; i <= last; ++i) {
        int reach = kSmoothingReach;
        while (i + reach > extended || i - reach < 1)
            --reach;
        double sum = 0, weights = 0;
        for (int j = i - reach; j <= i + reach; ++j) {
            double weight = 1;
            if (j != i) {
                const double distance = std::abs(x[At(i)] - x[At(j)]) / spacing;
                weight = std::max(0.0, 1 - std::pow(distance * (1.0 / 3.0), exponent));
            }
            sum += weight * y[At(j)];
            weights += weight;
        }
        Y[At(i - kExtension)][slot] = Finite(sum / weights);
    }
}

} // namespace

void ReserveAkima(AkimaTables& tables, int n) {
    const std::size_t rows = At(n + kSpareRows + 1);
    tables.SplineX.assign(rows, 0);
    tables.SplineX[0] = n;
    tables.SplineY.assign(rows, {});
    tables.SplineA.assign(rows, {});
    tables.SplineB.assign(rows, {});
    tables.SplineC.assign(rows, {});
    tables.SplineD.assign(rows, {});
}

void AkimaKoeffizienten(AkimaTables& tables, int s, int n, float smoothing) {
    if (n < 3)
        throw std::invalid_argument("a spline curve needs at least 3 points, there are " +
                                    std::to_string(std::max(n, 0)));
    assert(tables.SplineD.size() >= At(n + kSpareRows + 1));
    if (smoothing != 0)
        Smooth(tables, s, n, static_cast<double>(smoothing));

    AkimaRows<OneSlot> rows(tables, OneSlot{At(s)});
    for (int i = 1; i <= n; ++i)
        rows.Add(tables.SplineX[At(i)], tables.SplineY[At(i)][At(s)]);
    rows.Finish();
}

double AkimaWert(const AkimaTables& tables, AkimaMode mode, int s, double x, int n) {
    return AkimaWertIn(tables, mode, s, x, n, AkimaInterval(tables, x, n, 0));
}

} // namespace zorvant
