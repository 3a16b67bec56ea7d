// The sine-cosine pairs, single and double precision, in registers and with the cosine stored.
#include "hard_arguments.h"
#include "oracle.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <type_traits>

namespace zelk::test {
namespace {

// What differs between the precisions: the entries, and where lanes leave the fast path and the reduction in
// vectors.
template <class T>
struct Precision;
template <>
struct Precision<float> {
    using Bits = std::uint32_t;
    static constexpr const char* entries[] = {"sincosf4", "ropsSinCos4"};
    static constexpr float last_fast = 10000.0f;
    static constexpr float last_medium = 0x1p30f;
    static constexpr double bound_fast = 2.4;
    static constexpr double bound_huge = 1.55;
    static constexpr double directed_fast = 9.2e-5; // absolute errors
    static constexpr double directed_beyond = 1.2e-7;
    static std::vector<float> hard_arguments() { return near_multiples_of_half_pi_f(); }
};
template <>
struct Precision<double> {
    using Bits = std::uint64_t;
    static constexpr const char* entries[] = {"sincos2", "ropdSinCos2"};
    static constexpr double last_fast = 0x1.f4000ffffffffp16; // the last with the high word of 128000
    static constexpr double last_medium = 0x1.fffffffffffffp29;
    static constexpr double bound_fast = 2.2;
    static constexpr double bound_huge = 1.75;
    static constexpr double directed_fast = 2.6e-10;
    static constexpr double directed_beyond = 2.2e-16;
    static std::vector<double> hard_arguments() { return near_multiples_of_half_pi(); }
};

template <class T>
class Sincos : public testing::Test {
};
using Precisions = testing::Types<float, double>;
TYPED_TEST_SUITE(Sincos, Precisions);

template <class T>
constexpr std::size_t lane_count = 16 / sizeof(T);
template <class T>
constexpr T infinity = std::numeric_limits<T>::infinity();
template <class T>
constexpr T largest = std::numeric_limits<T>::max();
template <class T>
constexpr T a_medium_argument = 200000;

// Lanes as bit patterns: passing a signalling NaN by value may quiet it.
std::uint32_t get(const Vec128& v, std::size_t lane, float)
{
    return v.u[lane];
}
std::uint64_t get(const Vec128& v, std::size_t lane, double)
{
    return v.q[lane];
}
void set(Vec128& v, std::size_t lane, std::uint32_t bits)
{
    v.u[lane] = bits;
}
void set(Vec128& v, std::size_t lane, std::uint64_t bits)
{
    v.q[lane] = bits;
}
template <class T>
auto pattern(const T& x)
{
    return std::bit_cast<typename Precision<T>::Bits>(x);
}

// `bits` in the lanes of the mask, `others` in the others.
template <class Bits>
Vec128 vector(unsigned mask, Bits bits, Bits others)
{
    Vec128 v;
    for (std::size_t lane = 0; lane < 16 / sizeof(Bits); ++lane)
        set(v, lane, mask >> lane & 1 ? bits : others);
    return v;
}
template <class T>
Vec128 everywhere(const T& x)
{
    return vector(0, pattern(x), pattern(x));
}

template <class T>
std::vector<const Kernel*> kernels()
{
    std::vector<const Kernel*> list;
    for (const char* name : Precision<T>::entries)
        for (const auto& kernel : entry(name).kernels)
            list.push_back(&kernel);
    return list;
}

// The kernel that takes single lanes from a table.
bool has_table(const Kernel& kernel)
{
    return kernel.tier != 'A' && kernel.symbol.starts_with("__zelk_sincosf4");
}

// Both results; what a kernel stores must be what the register holds.
Result sincos(const Kernel& kernel, const Vec128& x, Rounding rounding = Rounding::nearest)
{
    Vec128 stored;
    const Result result = call(kernel.address, x, {}, {}, &stored, rounding);
    if (!kernel.symbol.starts_with("__zelk")) {
        EXPECT_TRUE(same_bits(stored, result.second)) << kernel.symbol << ' ' << hex(x);
    }
    return result;
}

template <class T>
void expect_within(const Kernel& kernel, double bound, const std::vector<T>& arguments, const char* path)
{
    const auto both_signs = with_negatives(arguments);
    expect_error_within(bound, worst_error(kernel.address, both_signs, mpfr_unary(mpfr_sin)), kernel.symbol,
                        std::string("sine, ") + path);
    expect_error_within(bound, worst_error_second(kernel.address, both_signs, mpfr_unary(mpfr_cos)),
                        kernel.symbol, std::string("cosine, ") + path);
}

// Every argument in one lane, alternately, and `neighbour` in the others.
template <class T>
std::vector<T> beside(T neighbour, const std::vector<T>& arguments)
{
    std::vector<T> lanes(arguments.size() * lane_count<T>, neighbour);
    for (std::size_t i = 0; i < arguments.size(); ++i)
        lanes[i * lane_count<T> + i % lane_count<T>] = arguments[i];
    return lanes;
}

TYPED_TEST(Sincos, ErrorByPath)
{
    using T = TypeParam;
    using P = Precision<T>;
    const T first_beyond = std::nextafter(P::last_fast, infinity<T>);
    const T first_huge = std::nextafter(P::last_medium, infinity<T>);
    const auto fast = joined(sample_patterns(T(0x1p-20), P::last_fast, 1500),
                             sample_interval(T(0x1p-20), P::last_fast, 6000));
    const auto medium = sample_interval(first_beyond, P::last_medium, 4000);
    const auto huge = joined(sample_patterns(first_huge, largest<T>, 3000),
                             sample_interval(largest<T> / 64, largest<T> / 2, 1000));
    for (const Kernel* kernel : kernels<T>()) {
        expect_within(*kernel, P::bound_fast, fast, "fast");
        expect_within(*kernel, 1.55, medium, "medium");
        expect_within(*kernel, has_table(*kernel) ? 0.56 : P::bound_huge, huge, "huge");
        expect_within(*kernel, P::bound_fast,
                      beside(P::last_medium, sample_interval(T(0x1p-20), P::last_fast, 1000)),
                      "fast, beside a medium lane");
        if (has_table(*kernel))
            expect_within(*kernel, 0.56,
                          beside(largest<T>, sample_interval(first_beyond, P::last_medium, 1000)),
                          "medium, beside a huge lane");
    }
}

// The result that nearly everything of the argument cancels in, for every binary exponent.
TYPED_TEST(Sincos, NearestToMultiplesOfHalfPi)
{
    using T = TypeParam;
    for (const Kernel* kernel : kernels<T>())
        expect_within(*kernel, 0.5, Precision<T>::hard_arguments(), "nearest to multiples of pi/2");
}

enum class Path { fast, medium, huge };

template <class T>
Path path_of(T x)
{
    if (std::fabs(x) <= Precision<T>::last_fast) return Path::fast;
    return std::fabs(x) <= Precision<T>::last_medium ? Path::medium : Path::huge;
}

// Which path a lane takes depends on the paths of the others, on nothing else of them. Finite arguments raise
// only what rounding raises.
TYPED_TEST(Sincos, MixedVectors)
{
    using T = TypeParam;
    using P = Precision<T>;
    const auto candidates = with_negatives<T>(
        {T(0.75), T(1e-30), P::last_fast, std::nextafter(P::last_fast, infinity<T>), T(54321e4),
         P::last_medium, std::nextafter(P::last_medium, infinity<T>), T(1e22), largest<T> / 8, largest<T>});
    for (const Kernel* kernel : kernels<T>()) {
        for (const T a : candidates) {
            const Path path = path_of(a);
            const Result alone = sincos(*kernel, everywhere(a));
            const Result beside_medium =
                sincos(*kernel, vector(1, pattern(a), pattern(a_medium_argument<T>)));
            const Result beside_huge = sincos(*kernel, vector(1, pattern(a), pattern(largest<T>)));
            for (const T b : candidates) {
                const Path other = path_of(b);
                // Tier A reduces every lane of a vector that leaves the fast path. The kernel with the table
                // squares the full r beside a medium lane, and takes medium lanes from the table beside a
                // huge one.
                const bool changes =
                    kernel->tier == 'A'
                        ? path == Path::fast && other != Path::fast
                        : has_table(*kernel) && ((path == Path::fast && other == Path::medium) ||
                                                 (path == Path::medium && other == Path::huge));
                const Result& expected = !changes                ? alone
                                         : other == Path::medium ? beside_medium
                                                                 : beside_huge;
                for (unsigned mask = 1; mask + 1 < 1u << lane_count<T>; ++mask) {
                    const Vec128 x = vector(mask, pattern(a), pattern(b));
                    const Result result = sincos(*kernel, x);
                    EXPECT_EQ(flag_names(result.flags & loud_flags), "none") << kernel->symbol << hex(x);
                    for (std::size_t lane = 0; lane < lane_count<T>; ++lane) {
                        if (!(mask >> lane & 1)) continue;
                        EXPECT_EQ(get(result.first, lane, T{}), get(expected.first, 0, T{}))
                            << kernel->symbol << ' ' << hex(x) << " lane " << lane;
                        EXPECT_EQ(get(result.second, lane, T{}), get(expected.second, 0, T{}))
                            << kernel->symbol << ' ' << hex(x) << " lane " << lane;
                    }
                }
            }
        }
    }
}

// Lanes beside an infinity or a NaN give what they give beside a huge lane.
TYPED_TEST(Sincos, NotFinite)
{
    using T = TypeParam;
    using Bits = typename Precision<T>::Bits;
    const Bits infinite = pattern(infinity<T>);
    const Bits quiet = pattern(std::numeric_limits<T>::quiet_NaN());
    const Bits sign = pattern(T(-0.0));
    const struct {
        const char* name;
        Bits x;
        unsigned flags;
    } cases[] = {
        {"+inf", infinite, flag_invalid},
        {"-inf", infinite | sign, flag_invalid},
        {"NaN", quiet, 0},
        {"-NaN", quiet | sign | 0x1234, 0},
        {"signalling NaN", infinite | 0x1234, flag_invalid},
    };
    for (const Kernel* kernel : kernels<T>())
        for (const T other : {T(1.25), -a_medium_argument<T>, T(1e22)})
            for (const Rounding rounding : all_roundings)
                for (const auto& special : cases)
                    for (unsigned mask = 1; mask < 1u << lane_count<T>; ++mask) {
                        const Vec128 x = vector(mask, special.x, pattern(other));
                        const Result result = sincos(*kernel, x, rounding);
                        const Result reference =
                            sincos(*kernel, vector(mask, pattern(largest<T>), pattern(other)), rounding);
                        const std::string context = kernel->symbol + ' ' + special.name + ' ' + hex(x);
                        EXPECT_EQ(flag_names(result.flags & loud_flags), flag_names(special.flags))
                            << context;
                        for (std::size_t lane = 0; lane < lane_count<T>; ++lane) {
                            const Bits sine = get(result.first, lane, T{});
                            const Bits cosine = get(result.second, lane, T{});
                            if (mask >> lane & 1) {
                                EXPECT_EQ(sine & quiet, quiet) << context;
                                EXPECT_EQ(cosine & quiet, quiet) << context;
                            } else {
                                EXPECT_EQ(sine, get(reference.first, lane, T{})) << context;
                                EXPECT_EQ(cosine, get(reference.second, lane, T{})) << context;
                            }
                        }
                    }
}

// A zero keeps its sign only where it is reduced from |x|: in tier A beside a lane beyond the fast path.
TYPED_TEST(Sincos, Zeros)
{
    using T = TypeParam;
    for (const Kernel* kernel : kernels<T>())
        for (const T other : {T(0), T(1.25), a_medium_argument<T>, -largest<T>}) {
            const Result plus = sincos(*kernel, vector(1, pattern(T(0)), pattern(other)));
            const Result minus = sincos(*kernel, vector(1, pattern(T(-0.0)), pattern(other)));
            const bool keeps_sign = kernel->tier == 'A' && !kernel->lane_loop && path_of(other) != Path::fast;
            EXPECT_EQ(get(plus.first, 0, T{}), pattern(T(0))) << kernel->symbol << ' ' << other;
            EXPECT_EQ(get(minus.first, 0, T{}), pattern(keeps_sign ? T(-0.0) : T(0)))
                << kernel->symbol << ' ' << other;
            EXPECT_EQ(get(plus.second, 0, T{}), pattern(T(1))) << kernel->symbol << ' ' << other;
            EXPECT_EQ(get(minus.second, 0, T{}), pattern(T(1))) << kernel->symbol << ' ' << other;
        }
}

// sin is odd (but for zeros) and cos even. The same bits from every kernel as far as the paths are the same:
// the two forms in one tier, and all of them where the fast path or the reduction in vectors takes all lanes.
TYPED_TEST(Sincos, SymmetryAndTiers)
{
    using T = TypeParam;
    const auto arguments =
        joined(sample_patterns(std::numeric_limits<T>::denorm_min(), Precision<T>::last_fast, 2000),
               sample_patterns(Precision<T>::last_fast, largest<T>, 4000));
    for (const T x : arguments) {
        const Result reference = sincos(*kernels<T>().back(), everywhere(x)); // has no table
        for (const Kernel* kernel : kernels<T>()) {
            const Result got = sincos(*kernel, everywhere(x));
            if (!kernel->lane_loop && (!has_table(*kernel) || path_of(x) != Path::huge)) {
                EXPECT_TRUE(same_bits(got.first, reference.first)) << kernel->symbol << ' ' << x;
                EXPECT_TRUE(same_bits(got.second, reference.second)) << kernel->symbol << ' ' << x;
            }
            Result mirrored = sincos(*kernel, everywhere(-x));
            for (std::size_t lane = 0; lane < lane_count<T>; ++lane)
                set(mirrored.first, lane, get(mirrored.first, lane, T{}) ^ pattern(T(-0.0)));
            EXPECT_TRUE(same_bits(got.first, mirrored.first)) << kernel->symbol << ' ' << x;
            EXPECT_TRUE(same_bits(got.second, mirrored.second)) << kernel->symbol << ' ' << x;
        }
    }
}

// Directed rounding takes the wrong multiple of pi/2 on the fast path, and the polynomials reach past pi/4;
// beyond, only the last places suffer.
TYPED_TEST(Sincos, DirectedRounding)
{
    using T = TypeParam;
    using P = Precision<T>;
    const auto fast = with_negatives(sample_patterns(T(0x1p-60), P::last_fast, 300));
    const auto beyond =
        with_negatives(sample_patterns(std::nextafter(P::last_fast, infinity<T>), largest<T>, 300));
    for (const Kernel* kernel : kernels<T>())
        for (const Rounding rounding : {Rounding::down, Rounding::up, Rounding::zero})
            for (const bool cosine : {false, true}) {
                const Unary exact = mpfr_unary(cosine ? mpfr_cos : mpfr_sin);
                EXPECT_LE(worst_absolute_error(kernel->address, fast, exact, rounding, cosine),
                          P::directed_fast)
                    << kernel->symbol;
                EXPECT_LE(worst_absolute_error(kernel->address, beyond, exact, rounding, cosine),
                          P::directed_beyond)
                    << kernel->symbol;
            }
}

TEST(SincosLandmarks, HalfPi)
{
    for (const Kernel* kernel : kernels<float>()) {
        const Result result = sincos(*kernel, everywhere(0x1.921fb6p0f));
        EXPECT_EQ(result.first.f[0], 1.0f) << kernel->symbol;
        EXPECT_EQ(result.second.f[0], -4.37113883e-08f) << kernel->symbol;
    }
    for (const Kernel* kernel : kernels<double>()) {
        const Result result = sincos(*kernel, everywhere(0x1.921fb54442d18p0));
        EXPECT_EQ(result.first.d[0], 1.0) << kernel->symbol;
        EXPECT_EQ(result.second.d[0], 6.123233995736766e-17) << kernel->symbol;
    }
}

} // namespace
} // namespace zelk::test
