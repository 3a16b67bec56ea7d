// Complex names that return their argument, and the routines for magnitudes and signs.
#include "oracle.h"
#include "scalar_oracle.h"

#include <gtest/gtest.h>

#include <bit>

namespace zelk::test {
namespace {

constexpr const char* identities[] = {"cacosh", "casin", "casinh", "catan", "catanh", "ccos", "ccosh",
                                      "clog10", "clog2", "cpow",   "csin",  "csinh",  "ctan", "ctanh"};

// Signalling NaNs, zeros of both signs, subnormals and what not: any change of any bit shows.
constexpr std::uint32_t patterns_f[] = {0x7FA00001, 0xFFC12345, 0x80000000,
                                        0x00000001, 0x7F800000, 0x3F800000};
constexpr std::uint64_t patterns_d[] = {0x7FF4000000000001, 0xFFF8123456789ABC, 0x8000000000000000, 1,
                                        0x7FF0000000000000, 0xBFF0000000000000};

TEST(ComplexIdentity, BitForBit)
{
    for (const std::string name : identities) {
        for (std::size_t i = 0; i < std::size(patterns_f); ++i) {
            const std::uint32_t* const p = patterns_f;
            const std::size_t j = (i + 1) % std::size(patterns_f);
            const Vec128 z = words(p[i], p[j], p[(i + 2) % 6], p[(i + 3) % 6]);
            const Vec128 w = words(p[j], p[i], 0x40000000, 0x7FA00000);
            for (const Kernel& kernel : entry(name + "f2").kernels) {
                const Result result = call(kernel.address, z, w);
                EXPECT_TRUE(same_bits(result.first, z)) << kernel.symbol << hex(z) << hex(result.first);
                EXPECT_EQ(result.flags, 0u) << kernel.symbol << hex(z);
            }
            const ComplexBits single{p[i], p[j]};
            const ScalarResult float_result =
                call_scalar(scalar_kernel(name + "f_scalar"), single, ComplexBits{p[j], p[i]});
            EXPECT_EQ(float_result.complex, single) << name;
            EXPECT_EQ(float_result.flags, 0u) << name;
            const ComplexBits wide{patterns_d[i], patterns_d[j]};
            const ScalarResult double_result =
                call_scalar(scalar_kernel(name + "_scalar"), wide, ComplexBits{patterns_d[j], patterns_d[i]});
            EXPECT_EQ(double_result.complex, wide) << name;
            EXPECT_EQ(double_result.flags, 0u) << name;
        }
    }
}

struct SignCase {
    std::uint64_t x;
    std::uint64_t y;
    std::uint64_t expected;
    unsigned flags;
};
constexpr std::uint64_t minus_zero = 0x8000000000000000;
constexpr std::uint64_t three = 0x4008000000000000;
constexpr std::uint64_t quiet = 0x7FF8000000000123;
constexpr std::uint64_t signalling = 0x7FF4000000000123;
constexpr std::uint64_t quieted = 0x7FFC000000000123;

TEST(ComplexIdentity, CopysignQuietsAndRaises)
{
    const SignCase cases[] = {
        {three, minus_zero, three | minus_zero, 0},
        {three | minus_zero, 0, three, 0},
        {quiet, minus_zero, quiet | minus_zero, 0},
        {three, quiet | minus_zero, three | minus_zero, 0},
        {signalling, minus_zero, quieted | minus_zero, flag_invalid},
        {three, signalling, three, flag_invalid},
        {1, minus_zero, 1 | minus_zero, 0},
    };
    for (const auto& [x, y, expected, flags] : cases)
        for (const Rounding rounding : all_roundings) {
            const ScalarResult result = call_scalar(scalar_kernel("copysign_scalar"), ComplexBits{x, 0},
                                                    ComplexBits{y, 0}, {rounding});
            EXPECT_EQ(result.narrow, expected) << std::hex << x << ' ' << y;
            EXPECT_EQ(flag_names(result.flags & ~flag_denormal), flag_names(flags))
                << std::hex << x << ' ' << y;
        }
}

TEST(ComplexIdentity, CopysignfCopies)
{
    const std::uint32_t cases[][3] = {
        {0x7FC00000, 0xBF800000, 0xFFC00000},
        {0xFFC12345, 0x00000000, 0x7FC12345},
        {0x40400000, 0x80000000, 0xC0400000},
        {0x80000001, 0x7F800000, 0x00000001},
        {0x40400000, 0xFFA00000, 0xC0400000},
#if defined(__x86_64__)
        {0x7FA00001, 0x80000000, 0xFFA00001}, // the x87 of i386 quiets what it returns
#endif
    };
    for (const auto& [x, y, expected] : cases) {
        const ScalarResult result =
            call_scalar(scalar_kernel("copysignf_scalar"), ComplexBits{x, 0}, ComplexBits{y, 0});
        EXPECT_EQ(result.narrow & 0xFFFFFFFF, expected) << std::hex << x << ' ' << y;
        EXPECT_EQ(flag_names(result.flags & ~flag_denormal), "none") << std::hex << x << ' ' << y;
    }
}

// Exact whatever the x87 precision is; the load is what meets a signalling NaN.
TEST(ComplexIdentity, FabsScalar)
{
    const SignCase cases[] = {
        {three | minus_zero, 0, three, 0},
        {minus_zero, 0, 0, 0},
        {0x800FFFFFFFFFFFFF, 0, 0x000FFFFFFFFFFFFF, 0},
        {0xFFEFFFFFFFFFFFFF, 0, 0x7FEFFFFFFFFFFFFF, 0},
        {0xFFF0000000000000, 0, 0x7FF0000000000000, 0},
        {quiet | minus_zero, 0, quiet, 0},
        {signalling | minus_zero, 0, quieted, flag_invalid},
    };
    for (const auto& [x, y, expected, flags] : cases)
        for (const unsigned precision : {64u, 53u, 24u}) {
            const ScalarResult result =
                call_scalar(scalar_kernel("fabs_scalar"), ComplexBits{x, 0}, {}, {Rounding::up, precision});
            EXPECT_EQ(result.narrow, expected) << std::hex << x;
            EXPECT_EQ(flag_names(result.flags & ~flag_denormal), flag_names(flags)) << std::hex << x;
        }
}

} // namespace
} // namespace zelk::test
