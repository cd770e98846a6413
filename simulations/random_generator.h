// Uniform random numbers, repeatable from a seed.
// Source: D. Blackman, S. Vigna, Scrambled linear pseudorandom number generators, ACM Trans. Math.
//         Softw. 47 (2021) 36: xoshiro256++, seeded through splitmix64.
#pragma once

#include <array>
#include <bit>
#include <cstdint>

namespace zorvant {

class RandomGenerator {
public:
    explicit RandomGenerator(std::uint64_t seed) {
        for (std::uint64_t& word : state_) {
            seed += 0x9E3779B97F4A7C15U;
            std::uint64_t z = seed;
            z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
            z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
            word = z ^ (z >> 31);
        }
    }
    /// Goes on from a state as it stands (not all zero).
    explicit RandomGenerator(const std::array<std::uint64_t, 4>& state) : state_(state) {}

    /// 64 random bits.
    std::uint64_t Next() {
        const std::uint64_t result = std::rotl(state_[0] + state_[3], 23) + state_[0];
        const std::uint64_t shifted = state_[1] << 17;
        state_[2] ^= state_[0];
        state_[3] ^= state_[1];
        state_[1] ^= state_[2];
        state_[0] ^= state_[3];
        state_[2] ^= shifted;
        state_[3] = std::rotl(state_[3], 45);
        return result;
    }

    /// Uniform in [0, 1), in steps of 2^-53.
    double Rnd() { return static_cast<double>(static_cast<std::int64_t>(Next() >> 11)) * 0x1p-53; }

private:
    std::array<std::uint64_t, 4> state_{};
};

} // namespace zorvant
