// How often this test program has asked for memory so far.
#pragma once

#include <atomic>

extern std::atomic<long> allocations;
