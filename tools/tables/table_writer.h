// What the table generators share: MPFR numbers that clean up after themselves, splits, and the output
// format.
#pragma once

#include <mpfr.h>

#include <bit>
#include <cinttypes>
#include <cstdint>
#include <cstdio>

namespace zelk::generate {

// 1200 bits: enough for 128/pi over all binary64 exponents, and far more than any table needs.
inline constexpr mpfr_prec_t working_precision = 1400;

class Real {
public:
    Real()
    {
        mpfr_init2(value_, working_precision);
        mpfr_set_zero(value_, 1);
    }
    explicit Real(double x) : Real() { mpfr_set_d(value_, x, MPFR_RNDN); }
    Real(const Real& other) : Real() { mpfr_set(value_, other.value_, MPFR_RNDN); }
    Real& operator=(const Real& other)
    {
        mpfr_set(value_, other.value_, MPFR_RNDN);
        return *this;
    }
    ~Real() { mpfr_clear(value_); }

    mpfr_ptr get() { return value_; }
    mpfr_srcptr get() const { return value_; }
    double to_double(mpfr_rnd_t mode = MPFR_RNDN) const { return mpfr_get_d(value_, mode); }
    float to_float(mpfr_rnd_t mode = MPFR_RNDN) const { return mpfr_get_flt(value_, mode); }

    // The leading `bits` significant bits, the rest cut off.
    Real leading(mpfr_prec_t bits) const
    {
        Real head(*this);
        mpfr_prec_round(head.value_, bits, MPFR_RNDZ);
        mpfr_prec_round(head.value_, working_precision, MPFR_RNDZ);
        return head;
    }

    friend Real operator+(const Real& a, const Real& b) { return apply(mpfr_add, a, b); }
    friend Real operator-(const Real& a, const Real& b) { return apply(mpfr_sub, a, b); }
    friend Real operator*(const Real& a, const Real& b) { return apply(mpfr_mul, a, b); }
    friend Real operator/(const Real& a, const Real& b) { return apply(mpfr_div, a, b); }

    template <class Operation>
    static Real apply(Operation operation, const Real& a)
    {
        Real result;
        operation(result.value_, a.value_, MPFR_RNDN);
        return result;
    }
    template <class Operation>
    static Real apply(Operation operation, const Real& a, const Real& b)
    {
        Real result;
        operation(result.value_, a.value_, b.value_, MPFR_RNDN);
        return result;
    }

private:
    mpfr_t value_;
};

inline Real pi()
{
    Real result;
    mpfr_const_pi(result.get(), MPFR_RNDN);
    return result;
}
inline Real sin(const Real& x)
{
    return Real::apply(mpfr_sin, x);
}
inline Real cos(const Real& x)
{
    return Real::apply(mpfr_cos, x);
}

inline std::uint64_t bits(double x)
{
    return std::bit_cast<std::uint64_t>(x);
}
inline std::uint32_t bits(float x)
{
    return std::bit_cast<std::uint32_t>(x);
}

} // namespace zelk::generate
