// What measurements of errors stand on: MPFR numbers, and reproducible random ones.
#pragma once

#include <mpfr.h>

#include <cstdint>

namespace zelk {

class Exact {
public:
    explicit Exact(mpfr_prec_t precision = 220) { mpfr_init2(value, precision); }
    ~Exact() { mpfr_clear(value); }
    Exact(const Exact&) = delete;
    Exact& operator=(const Exact&) = delete;
    mpfr_t value;
};

// Every sequence is reproducible.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}
    std::uint64_t next();

private:
    std::uint64_t state_;
};

} // namespace zelk
