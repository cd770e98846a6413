// Numbers side by side, two (or four Singles) worked on by one instruction. Each lane gives the
// same digits as a number alone.
#pragma once

#include <cmath>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace zorvant {

using Pair = double __attribute__((vector_size(16)));
using Quad = float __attribute__((vector_size(16)));

inline double SquareRoot(double x) {
    return std::sqrt(x);
}
inline Pair SquareRoot(Pair x) {
#ifdef __SSE2__
    return _mm_sqrt_pd(x);
#else
    return Pair{std::sqrt(x[0]), std::sqrt(x[1])};
#endif
}

inline double Magnitude(double x) {
    return std::abs(x);
}
inline Pair Magnitude(Pair x) {
#ifdef __SSE2__
    return _mm_andnot_pd(_mm_set1_pd(-0.0), x);
#else
    return Pair{std::abs(x[0]), std::abs(x[1])};
#endif
}

/// The lane by lane smaller or larger of the values of two pairs or quads.
#ifdef __SSE2__
inline Pair Smaller(Pair a, Pair b) {
    return _mm_min_pd(a, b);
}
inline Pair Larger(Pair a, Pair b) {
    return _mm_max_pd(a, b);
}
inline Quad Smaller(Quad a, Quad b) {
    return _mm_min_ps(a, b);
}
inline Quad Larger(Quad a, Quad b) {
    return _mm_max_ps(a, b);
}
#else
template <class Lanes> Lanes Smaller(Lanes a, Lanes b) {
    return a < b ? a : b;
}
template <class Lanes> Lanes Larger(Lanes a, Lanes b) {
    return a > b ? a : b;
}
#endif

inline bool AnyBelowZero(double x) {
    return x < 0;
}
inline bool AnyBelowZero(Pair x) {
#ifdef __SSE2__
    return _mm_movemask_pd(_mm_cmplt_pd(x, _mm_setzero_pd())) != 0;
#else
    return x[0] < 0 || x[1] < 0;
#endif
}

/// a where the lane of `condition` holds, else b.
inline double Select(bool condition, double a, double b) {
    return condition ? a : b;
}
template <class Mask> inline Pair Select(Mask condition, Pair a, Pair b) {
    return condition ? a : b;
}

inline bool IsZero(double x) {
    return x == 0;
}
inline bool IsZero(Pair x) {
    return x[0] == 0 && x[1] == 0;
}

/// Two neighbours in memory.
inline Pair Load(const double* at) {
    Pair x;
    std::memcpy(&x, at, sizeof x);
    return x;
}
inline void Store(double* at, Pair x) {
    std::memcpy(at, &x, sizeof x);
}

/// One lane; a number alone stands in every lane.
inline double Lane(double x, int) {
    return x;
}
inline double Lane(Pair x, int lane) {
    return x[lane];
}
inline void SetLane(double& x, int, double value) {
    x = value;
}
inline void SetLane(Pair& x, int lane, double value) {
    x[lane] = value;
}
template <class Real> inline constexpr int kLanes = sizeof(Real) / sizeof(double);

} // namespace zorvant
