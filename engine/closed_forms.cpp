#include "engine/closed_forms.h"

#include <algorithm>
#include <initializer_list>

namespace zorvant {
namespace closed_forms {
namespace {

/// Terms for full precision up to kSeriesBelow.
constexpr int kSeriesTerms = 17;

/// 2^e, within the range of doubles.
double PowerOfTwo(int e) {
    return std::ldexp(1.0, e);
}

/// The binary exponent of the largest of some values; of 1 when all are 0 or one is no number.
int LargestExponent(std::initializer_list<double> values) {
    double largest = 0;
    for (const double value : values)
        largest = std::max(largest, std::abs(value));
    return largest == 0 || !std::isfinite(largest) ? 0 : std::ilogb(largest);
}

} // namespace

double SharePassedSeries(double a, double b) {
    double sum = 0, homogeneous = 1, power = 1, factorial = 2, sign = 1;
    for (int n = 1; n <= kSeriesTerms; ++n) {
        sum += sign * homogeneous / factorial;
        power *= b;
        homogeneous = a * homogeneous + power;
        factorial *= n + 2;
        sign = -sign;
    }
    return a * b * sum;
}

Reversible2::Reversible2(int modelId, const ConstantArray& k, const SpeciesArray& c0, bool& err)
    : model(modelId) {
    // Units of this mixture. Powers of two, so that nothing is rounded.
    const int c2 = LargestExponent({c0[1], c0[2], c0[4], model == 19 ? c0[5] : 0});
    const int backward2 = model == 17 ? 0 : c2; // what the backward reaction has beside k2
    int r2 = c2 + LargestExponent({k[1]});
    if (k[2] != 0)
        r2 = std::max(r2, backward2 + LargestExponent({k[2]}));
    concentration = PowerOfTwo(c2);
    rate = PowerOfTwo(r2);
    const double k1 = std::ldexp(k[1], c2 - r2), k2 = std::ldexp(k[2], backward2 - r2);
    for (std::size_t s = 1; s < start.size(); ++s)
        start[s] = std::ldexp(c0[s], -c2);
    const double A0 = start[1], B0 = start[2], P0 = start[4], Q0 = model == 19 ? start[5] : 0;

    const double sumAB = A0 + B0;
    const double e = k1 * (B0 - A0);
    double restAB; // D^2 - e^2, without a difference
    double extraA, extraB;
    if (model == 12) {
        frozen = k1 * A0 * B0 == k2 * P0 * P0;
        b = k1 * sumAB + 4 * k2 * P0;
        restAB = 4 * k1 * k2 * (P0 + 2 * A0) * (P0 + 2 * B0);
        extraA = 2 * k2 * P0 * (P0 + 2 * A0);
        extraB = 2 * k2 * P0 * (P0 + 2 * B0);
    } else if (model == 17) {
        frozen = k1 * A0 * B0 == k2 * P0;
        b = k1 * sumAB + k2;
        restAB = k2 * (k2 + 2 * k1 * (sumAB + 2 * P0));
        extraA = k2 * (A0 + 2 * P0);
        extraB = k2 * (B0 + 2 * P0);
    } else {
        frozen = k1 * A0 * B0 == k2 * P0 * Q0;
        b = k1 * sumAB + k2 * (P0 + Q0);
        const double f = k2 * (Q0 - P0);
        restAB = f * f + 2 * k1 * k2 * (sumAB * (P0 + Q0) + 2 * (A0 * B0 + P0 * Q0));
        extraA = k2 * (A0 * (P0 + Q0) + 2 * P0 * Q0);
        extraB = k2 * (B0 * (P0 + Q0) + 2 * P0 * Q0);
    }
    const double square = e * e + restAB;
    if (model == 19 && square < 0) {
        err = true;
        return;
    }
    discriminant = CheckedSqrt(square);

    // D - y where D^2 - y^2 is known without a difference
    const auto gap = [D = discriminant](double y, double rest) {
        return y > 0 ? rest / (D + y) : D - y;
    };
    g[1] = A0 * gap(e, restAB) + extraA;
    g[2] = B0 * gap(-e, restAB) + extraB;
    if (model == 12) {
        g[4] = P0 * (discriminant + k1 * sumAB) + 4 * k1 * A0 * B0;
    } else if (model == 17) {
        const double rest = e * e + 2 * k1 * k2 * (sumAB + 2 * P0);
        g[4] = P0 * (gap(k2, rest) + k1 * sumAB) + 2 * k1 * A0 * B0;
    } else {
        const double f = k2 * (Q0 - P0);
        const double rest = e * e + 2 * k1 * k2 * (sumAB * (P0 + Q0) + 2 * (A0 * B0 + P0 * Q0));
        g[4] = P0 * gap(f, rest) + k1 * (P0 * sumAB + 2 * A0 * B0);
        g[5] = Q0 * gap(-f, rest) + k1 * (Q0 * sumAB + 2 * A0 * B0);
    }
}

} // namespace closed_forms

bool HasClosedForm(int model) {
    switch (model) {
    case 1:
    case 2:
    case 3:
    case 4:
    case 5:
    case 6:
    case 8:
    case 11:
    case 12:
    case 16:
    case 17:
    case 19:
        return true;
    default:
        return false;
    }
}

ClosedForm::Form ClosedForm::Prepare(int model, const ConstantArray& k, const SpeciesArray& c0,
                                     bool& err) {
    using namespace closed_forms;
    const double k1 = k[1], k2 = k[2];
    const double A0 = c0[1], B0 = c0[2], C0 = c0[3], P0 = c0[4], Q0 = c0[5];
    switch (model) {
    case 1:
        return Order0{k1, A0, P0};
    case 2:
        return Order1{k1, A0, P0};
    case 3:
        return Order2{k1, A0, P0};
    case 4:
        return TwoReactants{k1, A0, B0, P0};
    case 5:
        return Autocatalysis{k1, A0, P0, Q0, false};
    case 6:
        return Consecutive{k1, k2, A0, C0, P0};
    case 8:
        return Reversible1{k1, k2, A0, P0};
    case 11:
        return Competing{k1, k2, A0, P0, Q0};
    case 16:
        return Autocatalysis{k1, A0, P0, Q0, true};
    case 12:
    case 17:
    case 19:
        return Reversible2(model, k, c0, err);
    default:
        return NoForm{};
    }
}

ClosedForm::ClosedForm(int model, const ConstantArray& k, const SpeciesArray& c0, bool& err)
    : form_(Prepare(model, k, c0, err = false)) {}

void ClosedForm::At(double t, SpeciesArray& c, bool& err) const {
    err = false;
    try {
        std::visit([&](const auto& form) { form(t, c); }, form_);
    } catch (const NoSolution&) {
        err = true;
        return;
    }
    for (std::size_t s = 1; s < c.size(); ++s)
        Finite(c[s]);
}

} // namespace zorvant
