#include "binary64_call.h"

#include <bit>
#include <cfenv>

#include <xmmintrin.h>

namespace zelk::test {

std::vector<Kernel> binary64_kernels(const std::string& name)
{
    std::vector<Kernel> kernels;
    for (const ScalarEntry& scalar : scalar_entries()) {
        if (scalar.name != name) continue;
        for (const char tier : scalar.tiers) {
            const std::string symbol = name + '.' + tier;
            kernels.push_back({symbol, tier, exported(symbol)});
        }
    }
    return kernels;
}

namespace {

constexpr int modes[] = {FE_TONEAREST, FE_DOWNWARD, FE_UPWARD, FE_TOWARDZERO};

struct X87Environment {
    std::uint32_t control;
    std::uint32_t status;
    std::uint32_t tag;
    std::uint32_t rest[4];
};
X87Environment x87_environment()
{
    X87Environment environment;
    asm volatile("fnstenv %0\n\tfldenv %0" : "+m"(environment) : : "memory");
    return environment;
}

template <class Call>
ScalarResult observe(Rounding rounding, Call call)
{
    constexpr unsigned flag_bits = 0x3F;
    std::fesetround(modes[static_cast<unsigned>(rounding)]);
    _mm_setcsr(_mm_getcsr() & ~flag_bits);
    asm volatile("fnclex");
    const std::uint32_t control = x87_environment().control;
    const unsigned mxcsr = _mm_getcsr();
    volatile double result = call();
    const X87Environment after = x87_environment();
    const bool kept = after.control == control && (after.tag & 0xFFFF) == 0xFFFF &&
                      (_mm_getcsr() & ~flag_bits) == (mxcsr & ~flag_bits);
    const unsigned flags = (after.status | _mm_getcsr()) & flag_bits;
    std::fesetround(FE_TONEAREST);
    return {std::bit_cast<std::uint64_t>(static_cast<double>(result)), flags, kept};
}

} // namespace

#if defined(__x86_64__)
ScalarResult call_scalar(const void* routine, std::uint64_t x, Rounding rounding)
{
    return observe(rounding,
                   [&] { return reinterpret_cast<double (*)(double)>(routine)(std::bit_cast<double>(x)); });
}
ScalarResult call_scalar(const void* routine, std::uint64_t x, std::uint64_t y, Rounding rounding)
{
    return observe(rounding, [&] {
        return reinterpret_cast<double (*)(double, double)>(routine)(std::bit_cast<double>(x),
                                                                     std::bit_cast<double>(y));
    });
}
#else
// A double lies on the stack just as an integer of its size does, and integers travel as they are.
ScalarResult call_scalar(const void* routine, std::uint64_t x, Rounding rounding)
{
    return observe(rounding, [&] { return reinterpret_cast<double (*)(std::uint64_t)>(routine)(x); });
}
ScalarResult call_scalar(const void* routine, std::uint64_t x, std::uint64_t y, Rounding rounding)
{
    return observe(rounding,
                   [&] { return reinterpret_cast<double (*)(std::uint64_t, std::uint64_t)>(routine)(x, y); });
}
#endif

ScalarResult call_scalar(const void* routine, double x, Rounding rounding)
{
    return call_scalar(routine, std::bit_cast<std::uint64_t>(x), rounding);
}
ScalarResult call_scalar(const void* routine, double x, double y, Rounding rounding)
{
    return call_scalar(routine, std::bit_cast<std::uint64_t>(x), std::bit_cast<std::uint64_t>(y), rounding);
}

Worst worst_scalar_error(const void* routine, std::span<const double> xs, const Unary& exact,
                         Rounding rounding)
{
    Worst worst;
    Exact x;
    Exact value;
    for (const double argument : xs) {
        const double got = call_scalar(routine, argument, rounding).value();
        mpfr_set_d(x.value, argument, MPFR_RNDN);
        exact(value.value, x.value);
        const double error = ulp_error(got, value.value);
        if (error > worst.ulp) worst = {error, argument, 0, got};
    }
    return worst;
}

Worst worst_scalar_error(const void* routine, std::span<const double> xs, std::span<const double> ys,
                         const Binary& exact, Rounding rounding)
{
    Worst worst;
    Exact x;
    Exact y;
    Exact value;
    for (std::size_t i = 0; i < xs.size(); ++i) {
        const double got = call_scalar(routine, xs[i], ys[i], rounding).value();
        mpfr_set_d(x.value, xs[i], MPFR_RNDN);
        mpfr_set_d(y.value, ys[i], MPFR_RNDN);
        exact(value.value, x.value, y.value);
        const double error = ulp_error(got, value.value);
        if (error > worst.ulp) worst = {error, xs[i], ys[i], got};
    }
    return worst;
}

} // namespace zelk::test
