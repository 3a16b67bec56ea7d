// Roundings to integral values: results and all flags against the definition, in all rounding modes.
#include "oracle.h"
#include "special_lanes.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <type_traits>

namespace zelk::test {
namespace {

// Lanes are handled as bit patterns: the sign of a zero, the payload of a NaN and its signalling bit count.
template <class T>
struct Format {
    using Bits = std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint64_t>;
    static constexpr unsigned fraction_bits = std::numeric_limits<T>::digits - 1;
    static constexpr unsigned bias = std::numeric_limits<T>::max_exponent - 1;
    static constexpr Bits sign = Bits{1} << (8 * sizeof(T) - 1);
    static constexpr Bits unit = Bits{1} << fraction_bits; // the lowest exponent bit
    static constexpr Bits exponent_field = Bits{2 * bias + 1} << fraction_bits;
    static constexpr Bits quiet = unit >> 1;
    static constexpr std::size_t lanes = 16 / sizeof(T);
    static bool is_nan(Bits x) { return (x & ~sign) > exponent_field; }
    static Bits& lane(Vec128& v, std::size_t i)
    {
        if constexpr (sizeof(T) == 4)
            return v.u[i];
        else
            return v.q[i];
    }
};

enum class Function { ceil, floor, trunc, round, in_current_mode };
constexpr struct {
    const char* name;
    Function function;
    int (*exact)(mpfr_ptr, mpfr_srcptr); // null: by the rounding mode
} functions[] = {
    {"ceil", Function::ceil, mpfr_ceil},          {"floor", Function::floor, mpfr_floor},
    {"trunc", Function::trunc, mpfr_trunc},       {"round", Function::round, mpfr_round},
    {"rint", Function::in_current_mode, nullptr}, {"nearbyint", Function::in_current_mode, nullptr}};
using Row = decltype(functions[0]);

mpfr_rnd_t mpfr_mode(Rounding rounding)
{
    constexpr mpfr_rnd_t modes[] = {MPFR_RNDN, MPFR_RNDD, MPFR_RNDU, MPFR_RNDZ};
    return modes[static_cast<unsigned>(rounding)];
}

struct Expected {
    std::uint64_t bits;
    bool integral;
};

template <class T>
Expected expected(Row row, typename Format<T>::Bits bits, Rounding rounding)
{
    using F = Format<T>;
    if (F::is_nan(bits)) {
        // The quieted argument, but for the binary32 trunc, which returns it as it is.
        const bool untouched = sizeof(T) == 4 && row.function == Function::trunc;
        return {untouched ? bits : bits | F::quiet, true};
    }
    if ((bits & ~F::sign) == F::exponent_field) return {bits, true};
    static Exact x;
    static Exact result;
    mpfr_set_d(x.value, static_cast<double>(std::bit_cast<T>(bits)), MPFR_RNDN);
    if (row.exact)
        row.exact(result.value, x.value);
    else
        mpfr_rint(result.value, x.value, mpfr_mode(rounding));
    auto value = std::bit_cast<typename F::Bits>(static_cast<T>(mpfr_get_d(result.value, MPFR_RNDN)));
    // In round-down mode a last step of +0 - 0 or 1 - 1 makes it a -0.
    const bool last_step =
        row.function == Function::trunc ? sizeof(T) == 8 && bits == 0 : row.function != Function::round;
    if (rounding == Rounding::down && value == 0 && last_step) value = F::sign;
    return {value, mpfr_integer_p(x.value) != 0};
}

// The flags that a lane raises, the denormal flag apart.
template <class T>
unsigned expected_flags(Function function, char tier, typename Format<T>::Bits bits, bool integral)
{
    using F = Format<T>;
    const bool nan = F::is_nan(bits);
    const bool signalling = nan && (bits & F::quiet) == 0;
    const bool infinite = (bits & ~F::sign) == F::exponent_field;
    if (function == Function::in_current_mode)
        return (signalling ? flag_invalid : 0u) | (integral ? 0u : flag_inexact);
    if constexpr (sizeof(T) == 8) {
        return signalling || (infinite && function == Function::round) ? flag_invalid : 0u;
    } else {
        // What cvttps2dq converts: |x| in round, x in the others, which tier A spares what is out of range.
        const typename F::Bits beyond = 0x4F000000; // 2^31
        bool invalid = (bits & ~F::sign) >= beyond;
        if (function != Function::round) {
            if (bits == (beyond | F::sign)) invalid = false;
            if (tier == 'A') invalid = signalling && function != Function::trunc;
        }
        return (invalid ? flag_invalid : 0u) | (integral ? 0u : flag_inexact);
    }
}

constexpr unsigned checked_flags = loud_flags | flag_underflow | flag_inexact;

// One function in one rounding mode on all its kernels: vectors of consecutive arguments.
template <class T>
void check(Row row, Rounding rounding, const std::vector<typename Format<T>::Bits>& arguments)
{
    using F = Format<T>;
    std::vector<Expected> results;
    for (const auto bits : arguments)
        results.push_back(expected<T>(row, bits, rounding));
    const auto& kernels = entry(std::string(row.name) + (sizeof(T) == 4 ? "f4" : "2")).kernels;
    for (const auto& kernel : kernels) {
        for (std::size_t i = 0; i + F::lanes <= arguments.size(); i += F::lanes) {
            Vec128 x;
            unsigned flags = 0;
            for (std::size_t lane = 0; lane < F::lanes; ++lane) {
                F::lane(x, lane) = arguments[i + lane];
                flags |= expected_flags<T>(row.function, kernel.tier, arguments[i + lane],
                                           results[i + lane].integral);
            }
            Result got = call(kernel.address, x, {}, {}, nullptr, rounding);
            const auto context = [&] {
                return kernel.symbol + ' ' + hex(x) + ", rounding " +
                       std::to_string(static_cast<unsigned>(rounding)) + ", gives " + hex(got.first);
            };
            ASSERT_EQ(flag_names(got.flags & checked_flags), flag_names(flags)) << context();
            for (std::size_t lane = 0; lane < F::lanes; ++lane) {
                ASSERT_EQ(F::lane(got.first, lane), results[i + lane].bits)
                    << context() << " in lane " << lane;
            }
        }
    }
}

template <class T>
void check_all(const std::vector<typename Format<T>::Bits>& arguments)
{
    for (const auto& row : functions)
        for (const Rounding rounding : all_roundings)
            ASSERT_NO_FATAL_FAILURE(check<T>(row, rounding, arguments));
}

// Every exponent, zero's included, with both signs: random fractions, integers, halfway cases, and the
// neighbours of these.
template <class T>
std::vector<typename Format<T>::Bits> every_exponent(int repetitions)
{
    using F = Format<T>;
    using Bits = typename F::Bits;
    Random random(1);
    std::vector<Bits> arguments;
    for (unsigned exponent = 0; exponent <= 2 * F::bias; ++exponent) {
        for (int i = 0; i < repetitions; ++i) {
            const Bits lowest = Bits{exponent} << F::fraction_bits;
            const Bits any = lowest | (static_cast<Bits>(random.next()) & (F::unit - 1));
            std::vector<Bits> patterns = {lowest, lowest | 1, any, any ^ 1, any, lowest | (F::unit - 1)};
            const unsigned bits_below_one = F::bias + F::fraction_bits - exponent;
            if (exponent >= F::bias && exponent < F::bias + F::fraction_bits) {
                const Bits integer = any >> bits_below_one << bits_below_one;
                const Bits half = integer | Bits{1} << (bits_below_one - 1);
                for (const Bits middle : {integer, half})
                    patterns.insert(patterns.end(), {middle, middle + 1, middle - 1});
            }
            for (const Bits pattern : patterns)
                arguments.push_back(pattern | (random.next() & 1 ? F::sign : 0));
        }
    }
    return arguments;
}

TEST(Rounding, EveryExponent)
{
    check_all<float>(every_exponent<float>(40));
    check_all<double>(every_exponent<double>(6));
}

template <class T>
std::vector<typename Format<T>::Bits> edges()
{
    using F = Format<T>;
    using Bits = typename F::Bits;
    std::vector<Bits> list = {0,
                              1,
                              F::unit - 1,                  // the largest subnormal
                              F::unit,                      // the smallest normal
                              F::exponent_field - 1,        // the largest finite
                              F::exponent_field,            // infinity
                              F::exponent_field | 1,        // signalling NaNs
                              F::exponent_field | 0x12345,  //
                              F::exponent_field | F::quiet, // quiet NaNs
                              F::exponent_field | F::quiet | 0x12345};
    std::vector<T> numbers = {T(0.3), T(0.7), T(2.5), T(3.5), T(4.5)};
    for (const T threshold : {T(0.5), T(1), T(1.5), T(0x1p22), T(0x1p23), T(0x1p24), T(0x1p31), T(0x1p32),
                              T(0x1p51), T(0x1p52), T(0x1p53), T(0x1p63)})
        numbers = joined(numbers, neighbours(threshold, 2));
    for (const T number : numbers)
        list.push_back(std::bit_cast<Bits>(number));
    for (std::size_t i = 0, count = list.size(); i < count; ++i)
        list.push_back(list[i] | F::sign);
    return list;
}

// Each edge in each lane, beside integers and beside each other.
template <class T>
void check_edges()
{
    using F = Format<T>;
    const auto list = edges<T>();
    const auto one = std::bit_cast<typename F::Bits>(T(1));
    std::vector<typename F::Bits> arguments;
    for (std::size_t i = 0; i < list.size(); ++i) {
        for (std::size_t where = 0; where < F::lanes; ++where) {
            for (std::size_t lane = 0; lane < F::lanes; ++lane)
                arguments.push_back(lane == where ? list[i] : one);
            for (std::size_t lane = 0; lane < F::lanes; ++lane)
                arguments.push_back(list[(lane == where ? i : 7 * i + 11 * lane + where) % list.size()]);
        }
    }
    check_all<T>(arguments);
}

TEST(Rounding, EdgesInEveryLane)
{
    check_edges<float>();
    check_edges<double>();
}

// The results that users try first.
TEST(Rounding, Landmarks)
{
    const struct {
        const char* name;
        float x[4];
        float expected[4];
    } cases[] = {
        {"ceil", {-0.5f, 0x1p-149f, -0.0f, 2.1f}, {-0.0f, 1.0f, -0.0f, 3.0f}},
        {"floor", {0.5f, -0.5f, -0x1p-149f, -2.1f}, {0.0f, -1.0f, -1.0f, -3.0f}},
        {"trunc", {-0.7f, 0x1p-149f, -2.9f, 8388607.5f}, {-0.0f, 0.0f, -2.0f, 8388607.0f}},
        {"round", {0.5f, -2.5f, 0x1.fffffep-2f, -0.3f}, {1.0f, -3.0f, 0.0f, -0.0f}},
        {"rint", {2.5f, 3.5f, -0.4f, 0x1p23f}, {2.0f, 4.0f, -0.0f, 0x1p23f}},
        {"nearbyint", {0.5f, 1.5f, -0.5f, -8388606.5f}, {0.0f, 2.0f, -0.0f, -8388606.0f}},
    };
    for (const auto& [name, x, expected] : cases) {
        for (const auto& kernel : entry(std::string(name) + "f4").kernels)
            EXPECT_TRUE(same_bits(call(kernel.address, floats(x[0], x[1], x[2], x[3])).first,
                                  floats(expected[0], expected[1], expected[2], expected[3])))
                << kernel.symbol;
        for (const auto& kernel : entry(std::string(name) + "2").kernels)
            EXPECT_TRUE(
                same_bits(call(kernel.address, doubles(x[0], x[1])).first, doubles(expected[0], expected[1])))
                << kernel.symbol;
    }
}

} // namespace
} // namespace zelk::test
