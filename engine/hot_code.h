// What the hot loops ask of the compiler beyond its own judgement.
#pragma once

/// Into every caller, however large: the model is known there, and its state stays in registers.
#define ZORVANT_INLINE [[gnu::always_inline]] inline

/// Before a loop over the components of a state, of which there are four at most: written out, so
/// that each component is a variable of its own.
#ifdef __clang__
#define ZORVANT_UNROLL _Pragma("unroll")
#else
#define ZORVANT_UNROLL _Pragma("GCC unroll 4")
#endif
