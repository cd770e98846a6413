// Arithmetic that says so when it fails. The processor's own yields infinities and NaNs in silence;
// routines that must stop there use these, and whoever shows an error catches ArithmeticError.
#pragma once

#include <cmath>
#include <stdexcept>

namespace zorvant {

inline constexpr const char* kOverflow = "Overflow";
inline constexpr const char* kDivisionByZero = "Division by zero";
inline constexpr const char* kInvalidCall = "Invalid procedure call or argument";

/// An overflow, a division by zero, a root or logarithm that does not exist.
struct ArithmeticError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

[[noreturn]] inline void ThrowArithmetic(const char* text) {
    throw ArithmeticError(text);
}

/// The value itself. Errors: "Overflow" when it is infinite or NaN.
inline double Finite(double x) {
    if (!std::isfinite(x))
        ThrowArithmetic(kOverflow);
    return x;
}
/// a/b. Errors: "Division by zero", "Overflow".
inline double Divide(double a, double b) {
    if (b == 0)
        ThrowArithmetic(kDivisionByZero);
    return Finite(a / b);
}
/// exp(x). Errors: "Overflow".
inline double CheckedExp(double x) {
    return Finite(std::exp(x));
}
/// ln(x). Errors: "Invalid procedure call or argument" for x <= 0 or NaN.
inline double CheckedLn(double x) {
    if (!(x > 0))
        ThrowArithmetic(kInvalidCall);
    return Finite(std::log(x));
}
/// sqrt(x). Errors: "Invalid procedure call or argument" for x < 0 or NaN.
inline double CheckedSqrt(double x) {
    if (!(x >= 0))
        ThrowArithmetic(kInvalidCall);
    return Finite(std::sqrt(x));
}
/// x^y. Errors: "Invalid procedure call or argument" for a negative base with a broken exponent or
/// 0 to a negative power, "Overflow".
inline double CheckedPow(double x, double y) {
    if ((x < 0 && y != std::floor(y)) || (x == 0 && y < 0))
        ThrowArithmetic(kInvalidCall);
    return Finite(std::pow(x, y));
}
/// The value as Single. Errors: "Overflow" beyond its range.
inline float ToSingle(double x) {
    const float single = static_cast<float>(Finite(x));
    if (!std::isfinite(single))
        ThrowArithmetic(kOverflow);
    return single;
}
/// A typed number as Single: beyond its range the largest one, 0 for NaN.
inline float NearestSingle(double x) {
    constexpr double kLargest = 3.4028234663852886e38;
    if (std::isnan(x))
        return 0;
    return static_cast<float>(x > kLargest ? kLargest : x < -kLargest ? -kLargest : x);
}
/// For arguments of exp that are large on purpose: the largest one without overflow.
inline constexpr double kMaxExpArgument = 709.782;
inline double ClampedExp(double x) {
    return std::exp(x > kMaxExpArgument ? kMaxExpArgument : x);
}

} // namespace zorvant
