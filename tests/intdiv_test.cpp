// Integer division against its definition in exact 64-bit arithmetic.
#include "oracle.h"

#include <gtest/gtest.h>

#include <emmintrin.h>

#include <algorithm>
#include <bit>
#include <limits>
#include <type_traits>

namespace zelk::test {
namespace {

// a = q b + r, |r| < |b|, and r has the sign of a: there is one such pair.
template <class Lane>
bool is_quotient(Lane a, Lane b, Lane q, Lane r)
{
    const std::int64_t wide_a = a, wide_b = b, wide_r = r;
    if constexpr (std::is_unsigned_v<Lane>)
        return r < b && std::uint64_t{q} * b + r == a;
    else
        return (wide_r < 0 ? -wide_r : wide_r) < (wide_b < 0 ? -wide_b : wide_b) &&
               (r == 0 || (r < 0) == (a < 0)) && wide_a == q * wide_b + wide_r;
}

template <class Lane>
constexpr bool has_quotient(Lane a, Lane b)
{
    return b != 0 && !(std::is_signed_v<Lane> && b == Lane(-1) && a == std::numeric_limits<Lane>::min());
}

// What is promised of a lane with or without a quotient.
template <class Lane>
bool is_result(Lane a, Lane b, Lane q, Lane r)
{
    if (has_quotient(a, b)) return is_quotient(a, b, q, r);
    const Lane none = std::is_signed_v<Lane> ? std::numeric_limits<Lane>::min() : Lane(-1);
    return q == none && r == (b == 0 ? a : 0);
}

template <class Lane>
const std::string prefix = std::is_signed_v<Lane> ? "i" : "u";

// Pairs of all magnitudes and, where division in floating point would fail first, around exact multiples.
template <class Lane>
void random_pair(Random& random, Lane& a, Lane& b)
{
    constexpr int digits = std::numeric_limits<Lane>::digits;
    const std::uint64_t bits = random.next();
    const std::uint64_t how = random.next();
    const auto at_most_31 = [&](int position) { return static_cast<int>(how >> position & 31); };
    const auto offset = static_cast<std::uint32_t>(how >> 2 & 3) - 1; // -1, 0, 1, 2
    auto dividend = static_cast<std::uint32_t>(bits) >> (32 - digits);
    auto divisor = static_cast<std::uint32_t>(bits >> 32) >> (32 - digits);
    switch (how & 3) {
    case 0: // quotients of a few bits
        break;
    case 1: // any
        dividend >>= at_most_31(4) & at_most_31(9);
        divisor >>= at_most_31(14);
        break;
    case 2: { // about a multiple of the divisor, all sizes of quotient and divisor
        const int divisor_bits = 1 + at_most_31(4) % digits;
        divisor >>= digits - divisor_bits;
        dividend = divisor * (dividend >> std::min(divisor_bits, digits - 1)) + offset;
        break;
    }
    default: // about powers of two
        dividend = (2u << at_most_31(4) % digits) - (dividend & 31);
        divisor = (1u << at_most_31(9) % digits) + offset;
    }
    if (std::is_signed_v<Lane> && (how >> 20 & 1)) dividend = -dividend;
    if (std::is_signed_v<Lane> && (how >> 21 & 1)) divisor = -divisor;
    a = static_cast<Lane>(dividend);
    b = static_cast<Lane>(divisor);
    if (!has_quotient(a, b)) b = 1;
}

template <class Lane>
struct Block {
    static constexpr std::size_t vectors = 1024;
    alignas(16) Lane a[4 * vectors];
    alignas(16) Lane b[4 * vectors];
};

// Called as a program would call them, which is much faster than the trampoline.
struct Kernels {
    char tier;
    __m128i (*quotient)(__m128i, __m128i);
    __m128i (*remainder)(__m128i, __m128i);
    __m128i (*both)(__m128i, __m128i, __m128i*);
};

template <class Lane>
std::vector<Kernels> kernels_by_tier()
{
    std::vector<Kernels> list;
    const std::string p = prefix<Lane>;
    for (const auto& kernel : entry(p + "div4").kernels) {
        const std::string tier = std::string(".") + kernel.tier;
        list.push_back({kernel.tier, std::bit_cast<decltype(Kernels::quotient)>(kernel.address),
                        std::bit_cast<decltype(Kernels::remainder)>(exported("__zelk_" + p + "rem4" + tier)),
                        std::bit_cast<decltype(Kernels::both)>(exported("rop" + p + "DivRem4" + tier))});
    }
    return list;
}

template <class Lane>
void check_block(const Block<Lane>& block, const Kernels& kernels, Rounding rounding)
{
    for (std::size_t i = 0; i < 4 * block.vectors; i += 4) {
        const __m128i a = _mm_load_si128(reinterpret_cast<const __m128i*>(&block.a[i]));
        const __m128i b = _mm_load_si128(reinterpret_cast<const __m128i*>(&block.b[i]));
        __m128i r;
        const __m128i q = kernels.both(a, b, &r);
        const __m128i same = _mm_and_si128(_mm_cmpeq_epi32(q, kernels.quotient(a, b)),
                                           _mm_cmpeq_epi32(r, kernels.remainder(a, b)));
        bool right = _mm_movemask_epi8(same) == 0xFFFF;
        alignas(16) Lane quotients[4];
        alignas(16) Lane remainders[4];
        _mm_store_si128(reinterpret_cast<__m128i*>(quotients), q);
        _mm_store_si128(reinterpret_cast<__m128i*>(remainders), r);
        for (std::size_t lane = 0; lane < 4; ++lane)
            right &= is_quotient(block.a[i + lane], block.b[i + lane], quotients[lane], remainders[lane]);
        ASSERT_TRUE(right) << prefix<Lane> << "div4, tier " << kernels.tier << ", rounding "
                           << static_cast<unsigned>(rounding) << ", lanes " << block.a[i] << '/' << block.b[i]
                           << ' ' << block.a[i + 1] << '/' << block.b[i + 1] << ' ' << block.a[i + 2] << '/'
                           << block.b[i + 2] << ' ' << block.a[i + 3] << '/' << block.b[i + 3];
    }
}

template <class Lane>
void check_random_pairs(std::size_t blocks)
{
    Random random(1);
    const auto tiers = kernels_by_tier<Lane>();
    static Block<Lane> block;
    const unsigned saved = _mm_getcsr();
    for (std::size_t n = 0; n < blocks; ++n) {
        for (std::size_t i = 0; i < 4 * block.vectors; ++i)
            random_pair(random, block.a[i], block.b[i]);
        const Rounding rounding = all_roundings[n % 4];
        _mm_setcsr(0x1F80 | static_cast<unsigned>(rounding) << 13);
        for (const auto& kernels : tiers)
            check_block(block, kernels, rounding);
        _mm_setcsr(saved);
        if (testing::Test::HasFatalFailure()) return;
    }
}

// 16 million pairs each, in the four rounding modes by turns.
TEST(Intdiv, RandomPairs)
{
    check_random_pairs<std::int32_t>(4096);
    check_random_pairs<std::uint32_t>(4096);
}

template <class Lane>
void check_edges()
{
    std::vector<Lane> edges = {0, 1, 2, 3, 5, 7, 10, 641, 46340, 46341, 6700417};
    for (const unsigned power : {15, 16, 23, 24, 25, 30, 31})
        for (const std::uint32_t offset : {-2u, -1u, 0u, 1u, 2u})
            edges.push_back(static_cast<Lane>((1u << power) + offset));
    for (std::size_t i = 0, count = edges.size(); i < count; ++i)
        edges.push_back(static_cast<Lane>(0u - static_cast<std::uint32_t>(edges[i])));

    // All pairs, each of them in each lane.
    const std::size_t pairs = edges.size() * edges.size();
    const std::string p = prefix<Lane>;
    const auto tiers = entry(p + "div4").kernels.size();
    for (std::size_t i = 0; i < pairs; ++i) {
        Vec128 a;
        Vec128 b;
        for (std::size_t lane = 0; lane < 4; ++lane) {
            const std::size_t pair = (i + 37 * lane) % pairs;
            a.u[lane] = static_cast<std::uint32_t>(edges[pair / edges.size()]);
            b.u[lane] = static_cast<std::uint32_t>(edges[pair % edges.size()]);
        }
        const Rounding rounding = all_roundings[i / 4 % 4];
        for (std::size_t tier = 0; tier < tiers; ++tier) {
            const auto& kernel = entry(p + "divrem4").kernels[tier];
            Vec128 stored[3] = {words(1, 2, 3, 4), {}, words(5, 6, 7, 8)};
            const Result quotient =
                call(entry(p + "div4").kernels[tier].address, a, b, {}, nullptr, rounding);
            const Result remainder =
                call(entry(p + "rem4").kernels[tier].address, a, b, {}, nullptr, rounding);
            const Result both = call(kernel.address, a, b, {}, nullptr, rounding);
            const Result storing =
                call(entry("rop" + p + "DivRem4").kernels[tier].address, a, b, {}, &stored[1], rounding);
            const auto context = [&] {
                return kernel.symbol + ' ' + hex(a) + " / " + hex(b) + ", rounding " +
                       std::to_string(static_cast<unsigned>(rounding)) + ", gives " + hex(both.first) +
                       " rem " + hex(both.second);
            };
            for (std::size_t lane = 0; lane < 4; ++lane)
                ASSERT_TRUE(is_result(static_cast<Lane>(a.u[lane]), static_cast<Lane>(b.u[lane]),
                                      static_cast<Lane>(both.first.u[lane]),
                                      static_cast<Lane>(both.second.u[lane])))
                    << context() << " in lane " << lane;
            ASSERT_TRUE(same_bits(quotient.first, both.first)) << context();
            ASSERT_TRUE(same_bits(remainder.first, both.second)) << context();
            ASSERT_TRUE(same_bits(storing.first, both.first)) << context();
            ASSERT_TRUE(same_bits(storing.second, both.second)) << context();
            ASSERT_TRUE(same_bits(stored[1], both.second)) << context();
            ASSERT_TRUE(same_bits(stored[0], words(1, 2, 3, 4)) && same_bits(stored[2], words(5, 6, 7, 8)))
                << context();
            // Lanes without a quotient raise nothing either.
            for (const Result* result : {&quotient, &remainder, &both, &storing})
                ASSERT_EQ(result->flags & ~flag_inexact, 0u) << context();
        }
    }
}

TEST(Intdiv, EdgePairsInEveryLane)
{
    check_edges<std::int32_t>();
    check_edges<std::uint32_t>();
}

} // namespace
} // namespace zelk::test
