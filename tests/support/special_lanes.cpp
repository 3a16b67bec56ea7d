#include "special_lanes.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <vector>

namespace zelk::test {

namespace {

// By reference and as bits: passing a signalling NaN by value may quiet it.
std::uint32_t pattern(const float& x)
{
    return std::bit_cast<std::uint32_t>(x);
}
std::uint64_t pattern(const double& x)
{
    return std::bit_cast<std::uint64_t>(x);
}
void set(Vec128& v, std::size_t lane, const float& x)
{
    v.u[lane] = pattern(x);
}
void set(Vec128& v, std::size_t lane, const double& x)
{
    v.q[lane] = pattern(x);
}
std::uint32_t lane_bits(const Vec128& v, std::size_t lane, float)
{
    return v.u[lane];
}
std::uint64_t lane_bits(const Vec128& v, std::size_t lane, double)
{
    return v.q[lane];
}

bool is_quiet_nan(std::uint32_t bits)
{
    return (bits & 0x7FC00000) == 0x7FC00000;
}
bool is_quiet_nan(std::uint64_t bits)
{
    return (bits & 0x7FF8000000000000) == 0x7FF8000000000000;
}

template <class T>
void check(const Kernel& kernel, std::span<const Special<T>> cases, T ordinary_x, OrdinaryLanes ordinary,
           std::span<const Rounding> roundings, T ordinary_y)
{
    constexpr std::size_t lanes = 16 / sizeof(T);
    Vec128 plain_x;
    Vec128 plain_y;
    for (std::size_t lane = 0; lane < lanes; ++lane) {
        set(plain_x, lane, ordinary_x);
        set(plain_y, lane, ordinary_y);
    }
    for (const Rounding rounding : roundings) {
        const Result plain = call(kernel.address, plain_x, plain_y, {}, nullptr, rounding);
        for (const auto& special : cases) {
            // The last round has the special argument in all lanes.
            for (std::size_t where = 0; where <= lanes; ++where) {
                Vec128 x = plain_x;
                Vec128 y = plain_y;
                for (std::size_t lane = 0; lane < lanes; ++lane) {
                    if (where != lanes && where != lane) continue;
                    set(x, lane, special.x);
                    set(y, lane, special.y);
                }
                const Result result = call(kernel.address, x, y, {}, nullptr, rounding);
                const std::string context = kernel.symbol + ' ' + special.name + " in lane " +
                                            (where == lanes ? "all" : std::to_string(where)) + ", rounding " +
                                            std::to_string(static_cast<unsigned>(rounding)) + ", x " +
                                            hex(x) + " y " + hex(y) + " gives " + hex(result.first);
                EXPECT_EQ(flag_names(result.flags & loud_flags), flag_names(special.flags)) << context;
                for (std::size_t lane = 0; lane < lanes; ++lane) {
                    const auto got = lane_bits(result.first, lane, T{});
                    if (where == lanes || where == lane) {
                        if (std::isnan(special.expected))
                            EXPECT_TRUE(is_quiet_nan(got)) << context;
                        else
                            EXPECT_EQ(got, pattern(special.expected)) << context;
                    } else if (ordinary == OrdinaryLanes::keep_bits) {
                        EXPECT_EQ(got, lane_bits(plain.first, lane, T{}))
                            << context << ", ordinary lane " << lane;
                    }
                }
            }
        }
    }
}

} // namespace

void check_specials(const Kernel& kernel, std::span<const Special<float>> cases, float ordinary_x,
                    OrdinaryLanes ordinary, std::span<const Rounding> roundings, float ordinary_y)
{
    check<float>(kernel, cases, ordinary_x, ordinary, roundings, ordinary_y);
}
void check_specials(const Kernel& kernel, std::span<const Special<double>> cases, double ordinary_x,
                    OrdinaryLanes ordinary, std::span<const Rounding> roundings, double ordinary_y)
{
    check<double>(kernel, cases, ordinary_x, ordinary, roundings, ordinary_y);
}

void check_lanes_independent(const Kernel& kernel, std::span<const std::uint32_t> arguments,
                             std::span<const Rounding> roundings)
{
    std::vector<std::uint32_t> patterns;
    for (const std::uint32_t argument : arguments)
        for (const std::uint32_t offset : {~0u, 0u, 1u})
            patterns.push_back(argument + offset);
    for (const Rounding rounding : roundings) {
        const auto call_rounding = [&](const Vec128& x) {
            return call(kernel.address, x, {}, {}, nullptr, rounding);
        };
        std::vector<Result> alone;
        for (const std::uint32_t x : patterns)
            alone.push_back(call_rounding(words(x, x, x, x)));
        for (std::size_t first = 0; first < patterns.size(); ++first) {
            for (std::size_t second = 0; second < patterns.size(); ++second) {
                for (unsigned arrangement = 1; arrangement < 15; ++arrangement) {
                    Vec128 x;
                    Vec128 expected;
                    for (std::size_t lane = 0; lane < 4; ++lane) {
                        const std::size_t which = arrangement >> lane & 1 ? first : second;
                        x.u[lane] = patterns[which];
                        expected.u[lane] = alone[which].first.u[lane];
                    }
                    const Result mixed = call_rounding(x);
                    const unsigned flags = (alone[first].flags | alone[second].flags) & loud_flags;
                    ASSERT_TRUE(same_bits(mixed.first, expected) && (mixed.flags & loud_flags) == flags)
                        << kernel.symbol << ' ' << hex(x) << ", rounding " << static_cast<unsigned>(rounding)
                        << ": " << hex(mixed.first) << " raising " << flag_names(mixed.flags & loud_flags)
                        << ", lanes alone give " << hex(expected) << " raising " << flag_names(flags);
                }
            }
        }
    }
}

void check_same_results(std::span<const Kernel> all_kernels, std::span<const float> arguments,
                        std::span<const Rounding> roundings)
{
    const std::vector<Kernel> kernels = without_lane_loops(all_kernels);
    for (const Rounding rounding : roundings) {
        for (std::size_t i = 0; i + 4 <= arguments.size(); i += 4) {
            const Vec128 x = floats(arguments[i], arguments[i + 1], arguments[i + 2], arguments[i + 3]);
            const Result expected = call(kernels[0].address, x, {}, {}, nullptr, rounding);
            for (const Kernel& kernel : std::span(kernels).subspan(1)) {
                const Result got = call(kernel.address, x, {}, {}, nullptr, rounding);
                ASSERT_TRUE(same_bits(got.first, expected.first))
                    << kernel.symbol << ' ' << hex(x) << ", rounding " << static_cast<unsigned>(rounding)
                    << ": " << hex(got.first) << ", " << kernels[0].symbol << ' ' << hex(expected.first);
            }
        }
    }
}

} // namespace zelk::test
