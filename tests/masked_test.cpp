// Masked entries and aliases of the whole list: active lanes are the function's, inactive lanes are the
// function at the substitute and raise nothing whatever they hold, and no call is made when no lane is
// active.
#include "call.h"
#include "entries.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <vector>

namespace zelk::test {
namespace {

constexpr std::uint64_t all_ones = ~std::uint64_t{0};

unsigned lane_count(const Entry& entry)
{
    return entry.lanes == Lanes::d2 ? 2 : 4;
}

void set_lane(const Entry& entry, Vec128& v, unsigned lane, std::uint64_t bits)
{
    if (entry.lanes == Lanes::d2)
        v.q[lane] = bits;
    else
        v.u[lane] = static_cast<std::uint32_t>(bits);
}

std::uint64_t lane_bits(const Entry& entry, double value)
{
    switch (entry.lanes) {
    case Lanes::d2:
        return std::bit_cast<std::uint64_t>(value);
    case Lanes::i4:
    case Lanes::u4:
        return static_cast<std::uint32_t>(value);
    default:
        return std::bit_cast<std::uint32_t>(static_cast<float>(value));
    }
}

Vec128 splat(const Entry& entry, double value)
{
    Vec128 v;
    for (unsigned lane = 0; lane < lane_count(entry); ++lane)
        set_lane(entry, v, lane, lane_bits(entry, value));
    return v;
}

Vec128 blended(const Vec128& a, const Vec128& mask, const Vec128& substitute)
{
    Vec128 v;
    for (int i = 0; i < 2; ++i)
        v.q[i] = (a.q[i] & mask.q[i]) | (substitute.q[i] & ~mask.q[i]);
    return v;
}

Vec128 mask_of(const Entry& entry, unsigned active)
{
    Vec128 mask;
    for (unsigned lane = 0; lane < lane_count(entry); ++lane)
        set_lane(entry, mask, lane, active >> lane & 1 ? all_ones : 0);
    return mask;
}

// The mask is the argument after the last one.
Result call_masked(const Entry& entry, const Vec128& a, const Vec128& b, const Vec128& mask, void* pointer)
{
    const void* const address = exported(entry.masked);
    return entry.args == 1 ? call(address, a, mask, {}, pointer) : call(address, a, b, mask, pointer);
}

// Values that raise something in most functions.
std::vector<std::uint64_t> poison(const Entry& entry)
{
    if (entry.lanes == Lanes::d2)
        return {0x7FF4000000000000, 0x7FF0000000000000, 0xFFF0000000000000, 0,
                0x8000000000000000, 0xC000000000000000, 0x7FEFFFFFFFFFFFFF, 1};
    return {0x7FA00000, 0x7F800000, 0xFF800000, 0, 0x80000000, 0xC0000000, 0x7F7FFFFF, 1};
}

TEST(Masked, ActiveLanesOnly)
{
    for (const Entry& entry : entries()) {
        ASSERT_NE(exported(entry.masked), nullptr) << entry.masked;
        const Vec128 fill_a = splat(entry, entry.substitute[0]);
        const Vec128 fill_b = splat(entry, entry.substitute[1]);
        const double inside_domain = entry.name.starts_with("acosh") ? 1.75 : 0.75;
        const Vec128 ordinary_a =
            splat(entry, entry.lanes == Lanes::i4 || entry.lanes == Lanes::u4 ? 100 : inside_domain);
        const Vec128 ordinary_b = splat(entry, 3.0);
        for (unsigned active = 1; active < 1u << lane_count(entry); ++active) {
            const Vec128 mask = mask_of(entry, active);
            for (const std::uint64_t bits : poison(entry)) {
                Vec128 a = ordinary_a;
                Vec128 b = ordinary_b;
                for (unsigned lane = 0; lane < lane_count(entry); ++lane) {
                    if (active >> lane & 1) continue;
                    set_lane(entry, a, lane, bits);
                    set_lane(entry, b, lane, entry.lanes == Lanes::i4 || entry.lanes == Lanes::u4 ? 0 : bits);
                }
                alignas(16) Vec128 stored[2] = {};
                const Result expected =
                    call(entry.address, blended(a, mask, fill_a), blended(b, mask, fill_b), {}, &stored[0]);
                const Result result = call_masked(entry, a, b, mask, &stored[1]);
                EXPECT_TRUE(same_bits(result.first, expected.first)) << entry.masked << hex(a) << hex(mask);
                if (entry.results != Results::one) {
                    EXPECT_TRUE(same_bits(result.second, expected.second))
                        << entry.masked << hex(a) << hex(mask);
                }
                EXPECT_TRUE(same_bits(stored[0], stored[1])) << entry.masked << hex(a) << hex(mask);
                // The ordinary lanes are inside every domain: nothing but rounding may show.
                EXPECT_EQ(flag_names(result.flags & (loud_flags | flag_denormal)), "none")
                    << entry.masked << hex(a) << hex(mask);
            }
        }
    }
}

// Masks that are active in every lane and yet not all ones: the blend takes them bit by bit.
TEST(Masked, BlendsOnBits)
{
    for (const Entry& entry : entries())
        for (const Vec128& mask : {words(0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFE),
                                   words(0xFFFF7FFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF),
                                   words(0x80000000, 0x80000000, 0x80000000, 0x80000000)}) {
            const Vec128 a = splat(entry, 7);
            const Vec128 b = splat(entry, 3);
            alignas(16) Vec128 stored[2] = {};
            const Result expected = call(entry.address, blended(a, mask, splat(entry, entry.substitute[0])),
                                         blended(b, mask, splat(entry, entry.substitute[1])), {}, &stored[0]);
            const Result result = call_masked(entry, a, b, mask, &stored[1]);
            EXPECT_TRUE(same_bits(result.first, expected.first)) << entry.masked << hex(mask);
            EXPECT_TRUE(same_bits(stored[0], stored[1])) << entry.masked << hex(mask);
        }
}

TEST(Masked, NoActiveLane)
{
    for (const Entry& entry : entries()) {
        const Vec128 a = quads(0x7FA00000FF800001, 0x7FF4000000000001);
        const Vec128 b = quads(0x0000000080000000, 0x123456789ABCDEF0);
        const Vec128 sentinel = quads(0xAAAAAAAAAAAAAAAA, 0x5555555555555555);
        // No sign bit is set: no lane is active, though the blend mixes bits.
        for (const Vec128& mask : {Vec128{}, words(0x7FFFFFFF, 0x00000001, 0x40000000, 0x0F0F0F0F)}) {
            alignas(16) Vec128 stored = sentinel;
            const Result result = call_masked(entry, a, b, mask, &stored);
            const Vec128 filled_a = blended(a, mask, splat(entry, entry.substitute[0]));
            Vec128 expected = filled_a; // kinds Z, S, T, P, I: the argument as it was blended
            if (entry.mask == MaskKind::D || entry.mask == MaskKind::D2) expected = a;
            EXPECT_TRUE(same_bits(result.first, expected)) << entry.masked << hex(result.first);
            if (entry.mask == MaskKind::Z && entry.results != Results::one) {
                EXPECT_TRUE(same_bits(result.second, mask)) << entry.masked;
            }
            if (entry.mask == MaskKind::I && entry.results != Results::one) {
                EXPECT_TRUE(same_bits(result.second, blended(b, mask, splat(entry, entry.substitute[1]))))
                    << entry.masked;
            }
            EXPECT_TRUE(same_bits(stored, sentinel)) << entry.masked;
            EXPECT_EQ(result.flags, 0u) << entry.masked;
        }
    }
}

// Substitutes that users meet first, by value.
TEST(Masked, Landmarks)
{
    struct Landmark {
        const char* entry;
        double active; // lane 0
        double second;
        double inactive_result;
    };
    const Landmark landmarks[] = {
        {"cosf4", 0, 0, 1},  {"sinf4", 0, 0, 0},     {"exp2", 0, 0, 1},    {"expf4", 0, 0, 1},
        {"powf4", 2, 4, 1},  {"pow2", 2, 4, 1},      {"atan2f4", 1, 1, 0}, {"atan22", 1, 1, 0},
        {"sqrtf4", 4, 0, 0}, {"invsqrtf4", 4, 0, 1}, {"log2f4", 8, 0, -1}, {"log22", 8, 0, -1},
        {"rintf4", 2, 0, 1}, {"hypotf4", 1, 2, 2},
    };
    for (const Landmark& landmark : landmarks) {
        const std::string symbol = std::string("__zelk_") + landmark.entry;
        if (!exported(symbol)) continue; // not written yet
        const Entry& function = entry(landmark.entry);
        const Result result = call_masked(function, splat(function, landmark.active),
                                          splat(function, landmark.second), mask_of(function, 1), nullptr);
        const Vec128 expected = splat(function, landmark.inactive_result);
        for (unsigned lane = 1; lane < lane_count(function); ++lane) {
            if (function.lanes == Lanes::d2)
                EXPECT_EQ(result.first.q[lane], expected.q[lane]) << landmark.entry;
            else
                EXPECT_EQ(result.first.u[lane], expected.u[lane]) << landmark.entry;
        }
    }
}

TEST(Aliases, ForwardToTheirEntries)
{
    for (const Entry& entry : entries()) {
        if (entry.alias.empty()) continue;
        const void* const alias = exported(entry.alias);
        const void* const masked_alias = exported(entry.alias + "Mask");
        ASSERT_NE(alias, nullptr) << entry.alias;
        ASSERT_NE(masked_alias, nullptr) << entry.alias;
        // endbr, then one direct jump to the entry.
        for (const auto& [from, to] :
             {std::pair{alias, entry.address}, std::pair{masked_alias, exported(entry.masked)}}) {
            const auto* code = static_cast<const unsigned char*>(from) + 4;
            std::ptrdiff_t distance = 0;
            if (*code == 0xE9) {
                std::int32_t offset = 0;
                std::memcpy(&offset, code + 1, sizeof offset);
                distance = 5 + offset;
            } else {
                ASSERT_EQ(*code, 0xEB) << entry.alias;
                distance = 2 + static_cast<signed char>(code[1]);
            }
            EXPECT_EQ(static_cast<const void*>(code + distance), to) << entry.alias;
        }
    }
}

} // namespace
} // namespace zelk::test
