// The kernels that loop over the lanes in 80 bits (tier A of 32-bit x86): how often the result is the nearest
// number, and what its rounding raises. Their errors by path and special lanes are tested with their
// functions.
#include "oracle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

constexpr float largest = std::numeric_limits<float>::max();
constexpr float smallest = std::numeric_limits<float>::denorm_min();

void reciprocal_cube_root(mpfr_ptr result, mpfr_srcptr x)
{
    mpfr_cbrt(result, x, MPFR_RNDN);
    mpfr_ui_div(result, 1, result, MPFR_RNDN);
}

const struct {
    const char* entry;
    Unary exact;
    float from; // of |x|, or of x if both_signs is false
    float to;
    bool both_signs;
    Unary second = {}; // of two-result kernels
} functions[] = {
    {"sinf4", mpfr_unary(mpfr_sin), smallest, largest, true},
    {"cosf4", mpfr_unary(mpfr_cos), smallest, largest, true},
    {"tanf4", mpfr_unary(mpfr_tan), smallest, largest, true},
    {"sincosf4", mpfr_unary(mpfr_sin), smallest, largest, true, mpfr_unary(mpfr_cos)},
    {"expf4", mpfr_unary(mpfr_exp), smallest, 88.7f, true},
    {"exp2f4", mpfr_unary(mpfr_exp2), 0x1p-126f, 127.9f, true},
    {"logf4", mpfr_unary(mpfr_log), smallest, largest, false},
    {"log2f4", mpfr_unary(mpfr_log2), smallest, largest, false},
    {"log10f4", mpfr_unary(mpfr_log10), smallest, largest, false},
    {"atanf4", mpfr_unary(mpfr_atan), smallest, largest, true},
    {"sinhf4", mpfr_unary(mpfr_sinh), smallest, 89.4f, true},
    {"coshf4", mpfr_unary(mpfr_cosh), smallest, 89.4f, true},
    {"tanhf4", mpfr_unary(mpfr_tanh), smallest, 10, true},
    {"asinhf4", mpfr_unary(mpfr_asinh), smallest, largest, true},
    {"acoshf4", mpfr_unary(mpfr_acosh), 1, largest, false},
    {"atanhf4", mpfr_unary(mpfr_atanh), smallest, 0x1.fffffep-1f, true},
    {"cbrtf4", mpfr_unary(mpfr_cbrt), smallest, largest, true},
    {"invcbrtf4", reciprocal_cube_root, smallest, largest, true},
    {"erff4", mpfr_unary(mpfr_erf), smallest, 4, true},
    {"erfcf4", mpfr_unary(mpfr_erfc), smallest, 10, true},
};

// A result is the nearest number if its error is at most half an ulp.
struct Count {
    std::size_t all = 0;
    std::size_t not_nearest = 0;
    double worst = 0;
    void add(float got, mpfr_srcptr exact)
    {
        const double error = ulp_error(got, exact);
        ++all;
        not_nearest += error > 0.5;
        worst = std::max(worst, error);
    }
    void judge(const std::string& symbol) const
    {
        std::printf("[ MEASURED ] %s: %.7f ulp, %zu of %zu not the nearest number\n", symbol.c_str(), worst,
                    not_nearest, all);
        EXPECT_LE(worst, 0.5001) << symbol;
        // 2^-24 ulp of the 80-bit result's error on either side of each middle.
        EXPECT_LE(static_cast<double>(not_nearest), 1 + 1e-6 * static_cast<double>(all)) << symbol;
    }
};

const Kernel* lane_loop(const char* name)
{
    for (const Kernel& kernel : entry(name).kernels)
        if (kernel.lane_loop) return &kernel;
    return nullptr;
}

TEST(LaneLoops, ResultsAreTheNearestNumbers)
{
    Exact x;
    Exact value;
    for (const auto& function : functions) {
        const Kernel* const kernel = lane_loop(function.entry);
        if (!kernel) GTEST_SKIP() << "this target has none";
        auto arguments = joined(sample_patterns(function.from, function.to, 3000),
                                sample_interval(function.from, std::min(function.to, 100.0f), 3000));
        if (function.both_signs) arguments = with_negatives(arguments);
        Count count;
        for (std::size_t i = 0; i + 4 <= arguments.size(); i += 4) {
            const float* const at = &arguments[i];
            const Result got = call(kernel->address, floats(at[0], at[1], at[2], at[3]));
            for (std::size_t lane = 0; lane < 4; ++lane) {
                mpfr_set_flt(x.value, at[lane], MPFR_RNDN);
                function.exact(value.value, x.value);
                count.add(got.first.f[lane], value.value);
                if (!function.second) continue;
                function.second(value.value, x.value);
                count.add(got.second.f[lane], value.value);
            }
        }
        count.judge(kernel->symbol);
    }
}

TEST(LaneLoops, ResultsOfTwoArgumentsAreTheNearestNumbers)
{
    const Binary power = mpfr_binary(mpfr_pow);
    const Binary angle = mpfr_binary(mpfr_atan2);
    for (const char* name : {"powf4", "atan2f4"}) {
        const Kernel* const kernel = lane_loop(name);
        if (!kernel) GTEST_SKIP() << "this target has none";
        const bool is_power = std::string_view(name) == "powf4";
        const auto first =
            joined(sample_patterns(is_power ? smallest : 0x1p-60f, is_power ? largest : 0x1p60f, 3000),
                   sample_interval(0.5f, 2.0f, 3000));
        const auto second = with_negatives(joined(sample_patterns(0x1p-60f, is_power ? 40.0f : 0x1p60f, 2000),
                                                  sample_interval(0.1f, 2.0f, 1000)));
        Exact x;
        Exact y;
        Exact value;
        Count count;
        for (std::size_t i = 0; i + 4 <= std::min(first.size(), second.size()); i += 4) {
            const float* const a = &first[i];
            const float* const b = &second[i];
            const Result got =
                call(kernel->address, floats(a[0], a[1], a[2], a[3]), floats(b[0], b[1], b[2], b[3]));
            for (std::size_t lane = 0; lane < 4; ++lane) {
                mpfr_set_flt(x.value, a[lane], MPFR_RNDN);
                mpfr_set_flt(y.value, b[lane], MPFR_RNDN);
                (is_power ? power : angle)(value.value, x.value, y.value);
                if (std::isfinite(mpfr_get_flt(value.value, MPFR_RNDN)))
                    count.add(got.first.f[lane], value.value);
            }
        }
        count.judge(kernel->symbol);
    }
}

// The conversion to binary32 raises what the function's value raises there: overflow beyond the largest
// number, underflow for an inexact result below the smallest normal one, neither otherwise.
TEST(LaneLoops, FlagsOfTheRounding)
{
    const struct {
        const char* entry;
        Unary exact;
        float from;
        float to;
    } ends[] = {
        {"expf4", mpfr_unary(mpfr_exp), -103.9f, -86.0f}, {"exp2f4", mpfr_unary(mpfr_exp2), -149.9f, -125.0f},
        {"sinhf4", mpfr_unary(mpfr_sinh), 88.0f, 90.5f},  {"coshf4", mpfr_unary(mpfr_cosh), -90.5f, -88.0f},
        {"erfcf4", mpfr_unary(mpfr_erfc), 9.0f, 10.5f},
    };
    for (const auto& end : ends) {
        const Kernel* const kernel = lane_loop(end.entry);
        if (!kernel) GTEST_SKIP() << "this target has none";
        Exact x;
        Exact value;
        for (const float argument : sample_patterns(end.from, end.to, 500)) {
            mpfr_set_flt(x.value, argument, MPFR_RNDN);
            end.exact(value.value, x.value);
            const Result got = call(kernel->address, floats(argument, argument, argument, argument));
            const float nearest = got.first.f[0];
            unsigned expected = mpfr_cmp_d(value.value, static_cast<double>(nearest)) ? flag_inexact : 0u;
            if (std::isinf(nearest)) expected |= flag_overflow;
            // The samples have nothing within half a step of 2^-126.
            if (expected && std::fabs(nearest) < 0x1p-126f) expected |= flag_underflow;
            EXPECT_EQ(flag_names(got.flags & (loud_flags | flag_underflow | flag_inexact)),
                      flag_names(expected))
                << kernel->symbol << ' ' << argument << " gives " << nearest;
        }
    }
}

} // namespace
} // namespace zelk::test
