// Single precision asinh, acosh and atanh.
#include "oracle.h"
#include "special_lanes.h"
#include "symmetry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zelk::test {
namespace {

constexpr float largest = std::numeric_limits<float>::max();
constexpr float huge = 0x1.158e46p+63f; // 1e19, where the square is no longer taken
const float above_1 = std::nextafter(1.0f, 2.0f);
const float above_1_5 = std::nextafter(1.5f, 2.0f);
const float above_quarter = std::nextafter(0.25f, 1.0f);
const float below_1 = std::nextafter(1.0f, 0.0f); // atanh: the scalar routine's, like 1 itself

struct Function {
    const char* name;
    Unary exact;
    float scalar_lane; // an argument that sends its whole vector to the scalar routine
};
const Function asinh_function = {"asinhf4", mpfr_unary(mpfr_asinh), 0.5f};
const Function acosh_function = {"acoshf4", mpfr_unary(mpfr_acosh), 1.25f};
const Function atanh_function = {"atanhf4", mpfr_unary(mpfr_atanh), 0.125f};

TEST(InverseHyperbolicf4, ErrorOfVectorPath)
{
    const struct {
        const Function& function;
        std::vector<float> arguments;
        double bound;
    } paths[] = {
        {asinh_function,
         with_negatives(joined(joined(sample_patterns(above_1, largest, 4000), neighbours(huge, 20)),
                               sample_patterns(above_1, 2.0f, 4000))),
         2.3},
        {acosh_function,
         joined(joined(sample_patterns(above_1_5, largest, 4000), neighbours(huge, 20)),
                sample_patterns(above_1_5, 2.0f, 4000)),
         2.2},
        {atanh_function, with_negatives(sample_patterns(above_quarter, std::nextafter(below_1, 0.0f), 10000)),
         2.8},
    };
    for (const auto& path : paths)
        for (const auto& kernel : entry(path.function.name).kernels)
            expect_error_within(path.bound, worst_error(kernel.address, path.arguments, path.function.exact),
                                kernel.symbol, "vector");
}

// Every fourth lane sends its vector to the scalar routine, which then serves any argument.
TEST(InverseHyperbolicf4, ErrorOfScalarRoutine)
{
    const struct {
        const Function& function;
        const char* name;
        std::vector<float> arguments;
        double bound;
    } paths[] = {
        {asinh_function, "below 2^-9", with_negatives(sample_patterns(0x1p-149f, 0x1p-9f, 4000)), 0.53},
        // The first row of the table is a Taylor polynomial, whose error is largest just below 2^-8.
        {asinh_function, "2^-9 to 2^-8", with_negatives(sample_patterns(0x1p-9f, 0x1p-8f, 4000)), 0.75},
        {asinh_function, "from 2^-8",
         with_negatives(joined(sample_patterns(0x1p-8f, largest, 4000), neighbours(1.0f, 20))), 0.51},
        {acosh_function, "below 1.00001", sample_patterns(1.0f, 1.00001f, 100), 0.62},
        {acosh_function, "from 1.00001",
         joined(sample_patterns(1.00001f, largest, 4000), sample_patterns(1.00001f, above_1_5, 4000)), 0.53},
        {atanh_function, "below 2^-20", with_negatives(sample_patterns(0x1p-149f, 0x1p-20f, 4000)), 1.01},
        {atanh_function, "from 2^-20",
         with_negatives(joined(sample_patterns(0x1p-20f, below_1, 4000), neighbours(0.25f, 20))), 0.53},
    };
    for (const auto& path : paths) {
        auto arguments = path.arguments;
        for (std::size_t i = 0; i < arguments.size(); i += 4)
            arguments[i] = path.function.scalar_lane;
        for (const auto& kernel : entry(path.function.name).kernels)
            expect_error_within(path.bound, worst_error(kernel.address, arguments, path.function.exact),
                                kernel.symbol, std::string("scalar, ") + path.name);
    }
}

// Results of special arguments, bit for bit, in every lane and every rounding mode. None raises a loud flag.
TEST(InverseHyperbolicf4, SpecialLanes)
{
    struct Case {
        std::uint32_t x;
        std::uint32_t expected;
    };
    const struct {
        const char* name;
        std::vector<Case> cases;
    } functions[] = {
        {"asinhf4",
         {{0x00000000, 0x00000000},
          {0x80000000, 0x80000000},
          {0x00000001, 0x00000001},
          {0x807FFFFF, 0x807FFFFF},
          {0x317FFFFF, 0x317FFFFF}, // the last below 2^-28
          {0xB17FFFFF, 0xB17FFFFF},
          {0x7F800000, 0x7F800000},
          {0xFF800000, 0xFF800000},
          {0x7FC12345, 0x7FC12345},
          {0xFFC12345, 0xFFC12345},
          {0x7F812345, 0x7F812345}, // a signalling NaN stays one
          {0xFF800001, 0xFF800001}}},
        {"acoshf4",
         {{0x3F800000, 0x00000000}, // acosh 1
          {0x3F7FFFFF, 0x7FFFFFFF},
          {0x3F000000, 0x7FFFFFFF},
          {0x00000000, 0x7FFFFFFF},
          {0x80000000, 0x7FFFFFFF},
          {0x00000001, 0x7FFFFFFF},
          {0xBF800000, 0x7FFFFFFF},
          {0xFF7FFFFF, 0x7FFFFFFF},
          {0xFF800000, 0x7FFFFFFF},
          {0xFFC12345, 0x7FFFFFFF},
          {0xFF812345, 0x7FFFFFFF},
          {0x7F800000, 0x7F800000},
          {0x7FC12345, 0x7FC12345},
          {0x7F812345, 0x7F812345}}},
        {"atanhf4",
         {{0x00000000, 0x00000000},
          {0x80000000, 0x80000000},
          {0x00000001, 0x00000001},
          {0x807FFFFF, 0x807FFFFF},
          {0x307FFFFF, 0x307FFFFF}, // the last below 2^-30
          {0xB07FFFFF, 0xB07FFFFF},
          {0x3F800000, 0x7F800000}, // atanh 1
          {0xBF800000, 0xFF800000},
          {0x3F800001, 0x7FFFFFFF},
          {0xBF800001, 0xFFFFFFFF},
          {0x7F7FFFFF, 0x7FFFFFFF},
          {0x7F800000, 0x7FFFFFFF},
          {0xFF800000, 0xFFFFFFFF},
          {0x7FC12345, 0x7FFFFFFF},
          {0xFFC12345, 0xFFFFFFFF},
          {0x7F812345, 0x7FFFFFFF}}},
    };
    for (const auto& function : functions)
        for (const auto& kernel : entry(function.name).kernels)
            for (const Rounding rounding : all_roundings)
                for (const auto& [x, expected] : function.cases)
                    for (int where = 0; where < 4; ++where) {
                        const float ordinary = function.name[1] == 't' ? 0.75f : 3.0f;
                        Vec128 argument = floats(ordinary, ordinary, ordinary, ordinary);
                        argument.u[where] = x;
                        const Result result = call(kernel.address, argument, {}, {}, nullptr, rounding);
                        EXPECT_EQ(result.first.u[where], expected) << kernel.symbol << hex(argument);
                        EXPECT_EQ(flag_names(result.flags & loud_flags), flag_names(0))
                            << kernel.symbol << hex(argument);
                    }
}

// A lane outside the vector path's interval sends its whole vector to the scalar routine: ordinary lanes then
// give the same in any company of that kind, and not always what the vector path gives.
TEST(InverseHyperbolicf4, WholeVectorTakesScalarRoutine)
{
    const struct {
        const Function& function;
        float outside; // the last argument outside the vector path's interval
        float direction;
    } edges[] = {{asinh_function, 1.0f, 1},
                 {acosh_function, 1.5f, 1},
                 {atanh_function, 0.25f, 1},
                 {atanh_function, below_1, -1}};
    for (const auto& edge : edges)
        for (const auto& kernel : without_lane_loops(entry(edge.function.name).kernels)) {
            const auto differs = [&](float x) {
                const Result alike = call(kernel.address, floats(x, x, x, x));
                int different = 0;
                for (int lane = 0; lane < 4; ++lane) {
                    Vec128 mixed = floats(x, x, x, x);
                    mixed.f[lane] = edge.function.scalar_lane;
                    const Result result = call(kernel.address, mixed);
                    const std::uint32_t scalar = result.first.u[(lane + 1) % 4];
                    for (int other = 1; other < 4; ++other)
                        EXPECT_EQ(result.first.u[(lane + other) % 4], scalar) << kernel.symbol << hex(mixed);
                    different += scalar != alike.first.u[0];
                }
                return different != 0;
            };
            EXPECT_FALSE(differs(edge.outside)) << kernel.symbol << edge.outside;
            bool seen = false;
            float x = edge.outside;
            for (int i = 0; i < 200; ++i)
                seen |= differs(x = std::nextafter(x, x + edge.direction));
            EXPECT_TRUE(seen) << kernel.symbol << ": no vector path next to " << edge.outside;
        }
}

// Finite results raise nothing loud, though squares of huge arguments would overflow.
TEST(InverseHyperbolicf4, NoFlagsFromOrdinaryArguments)
{
    const Vec128 vectors[] = {floats(largest, huge, std::nextafter(huge, 0.0f), 2.0f),
                              floats(largest, huge, 1e38f, 1.0f)};
    for (const char* name : {"asinhf4", "acoshf4"})
        for (const auto& kernel : entry(name).kernels)
            for (const auto& x : vectors)
                for (const Rounding rounding : all_roundings)
                    EXPECT_EQ(call(kernel.address, x, {}, {}, nullptr, rounding).flags & loud_flags, 0u)
                        << kernel.symbol << hex(x);
    for (const auto& kernel : entry("atanhf4").kernels)
        EXPECT_EQ(call(kernel.address, floats(below_1, 0.5f, -below_1, 1e-38f)).flags & loud_flags, 0u);
}

// Of either path.
TEST(InverseHyperbolicf4, SymmetryAndTiers)
{
    check_symmetry(entry("asinhf4").kernels, Symmetry::odd,
                   joined(sample_patterns(1e-10f, 1.0f, 2000), sample_patterns(1.5f, 1e20f, 2000)));
    check_symmetry(entry("acoshf4").kernels, Symmetry::none,
                   joined(sample_patterns(1.0f, 1.5f, 2000), sample_patterns(1.6f, 1e20f, 2000)));
    check_symmetry(entry("atanhf4").kernels, Symmetry::odd,
                   joined(sample_patterns(1e-10f, 0.25f, 2000), sample_patterns(0.3f, 0.99f, 2000)));
}

TEST(InverseHyperbolicf4, DirectedRounding)
{
    const struct {
        const Function& function;
        std::vector<float> vector_path;
        std::vector<float> scalar_path;
    } functions[] = {
        {asinh_function, sample_patterns(above_1, 1e30f, 1000), sample_patterns(0x1p-28f, 1.0f, 1000)},
        {acosh_function, sample_patterns(above_1_5, 1e30f, 1000), sample_patterns(1.0f, 1.5f, 1000)},
        {atanh_function, sample_patterns(above_quarter, 0.99f, 1000), sample_patterns(0x1p-30f, 0.25f, 1000)},
    };
    for (const auto& [function, vector_path, scalar_path] : functions)
        for (const auto& kernel : entry(function.name).kernels) {
            expect_directed_error_within(3.7, kernel, vector_path, function.exact);
            expect_directed_error_within(2.1, kernel, scalar_path, function.exact);
        }
}

} // namespace
} // namespace zelk::test
