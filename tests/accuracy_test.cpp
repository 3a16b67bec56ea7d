// What zelk-accuracy stands on: its judgement of a result, its arguments, and its exact values of whole runs.
#include "arguments.h"
#include "exact_values.h"
#include "exhaustive_oracle.h"
#include "oracle.h"
#include "program.h"
#include "reference.h"
#include "scalar_routine.h"
#include "survey.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>

namespace zelk::accuracy {
namespace {

// Of 80 bits the exponent and 48 bits of the significand; half of them next to the ends of the range.
long double extended_of(std::uint64_t bits)
{
    unsigned exponent = static_cast<unsigned>(bits >> 48 & 0x7FFF);
    if (exponent & 0x100) exponent = exponent & 0x4000 ? 0x7FFF - (exponent & 0x7F) : exponent & 0x7F;
    const std::uint64_t integer_bit = exponent == 0 ? 0 : 1;
    return number({integer_bit << 63 | (bits & 0xFFFFFFFFFFFF) << 15,
                   static_cast<std::uint16_t>((bits >> 48 & 0x8000) | exponent)});
}

template <class T>
T number_of(std::uint64_t bits)
{
    if constexpr (sizeof(T) == 4)
        return std::bit_cast<float>(static_cast<std::uint32_t>(bits));
    else if constexpr (sizeof(T) == 8)
        return std::bit_cast<double>(bits);
    else
        return extended_of(bits);
}

template <class T>
T nearest(mpfr_srcptr exact)
{
    if constexpr (sizeof(T) == 4)
        return mpfr_get_flt(exact, MPFR_RNDN);
    else if constexpr (sizeof(T) == 8)
        return mpfr_get_d(exact, MPFR_RNDN);
    else
        return mpfr_get_ld(exact, MPFR_RNDN);
}

template <class T>
void compare_judgements(const Format& format)
{
    Random random(1);
    for (int i = 0; i < 200000; ++i) {
        // Every other one within a few ulp of the exact value, which often is next to a power of two.
        std::uint64_t bits = random.next();
        if (i % 8 < 2)
            bits &= sizeof(T) == 4   ? 0xFFFFFFFFFF800000
                    : sizeof(T) == 8 ? 0xFFF0000000000000
                                     : 0xFFFF000000000000;
        const T near = number_of<T>(bits);
        const T got = i % 2 ? near : number_of<T>(random.next());
        Exact exact(precision_of(format));
        mpfr_set_ld(exact.value, static_cast<long double>(near), MPFR_RNDN);
        if (mpfr_regular_p(exact.value)) {
            // Up to a few ulp of normal numbers and of subnormal ones.
            const double offset = (static_cast<double>(random.next() >> 11) * 0x1p-53 - 0.5) * 8;
            const mpfr_exp_t ulp =
                std::max<mpfr_exp_t>(mpfr_get_exp(exact.value), format.min_exponent) - format.digits;
            Exact shift(precision_of(format));
            mpfr_set_d(shift.value, offset, MPFR_RNDN);
            mpfr_mul_2si(shift.value, shift.value, ulp, MPFR_RNDN);
            mpfr_add(exact.value, exact.value, shift.value, MPFR_RNDN);
        }
        const Reference reference(exact.value, format);
        const Judgement judgement = reference.judge(static_cast<long double>(got), format, true);
        const double expected = test::ulp_error(got, exact.value);
        // Zero has no ulp for the tests; beyond 1e200 of them both lose count.
        if (!mpfr_zero_p(exact.value) && !(judgement.ulp > 1e200)) {
            ASSERT_EQ(judgement.is_wrong, std::isinf(expected))
                << std::hexfloat << got << ' ' << mpfr_get_d(exact.value, MPFR_RNDN);
            if (judgement.is_wrong) continue;
            ASSERT_NEAR(judgement.ulp, expected, 1e-9 * (1 + expected))
                << std::hexfloat << got << ' ' << mpfr_get_d(exact.value, MPFR_RNDN);
        }
        ASSERT_EQ(reference.is_rounded_correctly(static_cast<long double>(got)),
                  got == nearest<T>(exact.value) || (std::isnan(got) && mpfr_nan_p(exact.value)));
    }
}

TEST(Reference, JudgesAsTheTestsDo)
{
    compare_judgements<float>(binary32);
    compare_judgements<double>(binary64);
    compare_judgements<long double>(extended80);
}

TEST(Reference, DirectedRoundingMayStopAtTheLargestNumber)
{
    Exact value(precision_of(binary32));
    mpfr_set_d(value.value, 0x1p130, MPFR_RNDN);
    const Reference beyond(value.value, binary32);
    const double largest = 0x1.fffffep127;
    EXPECT_TRUE(beyond.judge(largest, binary32, true).is_wrong);
    EXPECT_FALSE(beyond.judge(largest, binary32, false).is_wrong);
    EXPECT_TRUE(beyond.judge(0x1.fffffcp127, binary32, false).is_wrong);
    EXPECT_TRUE(beyond.judge(-HUGE_VAL, binary32, false).is_wrong);
    mpfr_set_d(value.value, 1, MPFR_RNDN);
    EXPECT_TRUE(Reference(value.value, binary32).judge(HUGE_VAL, binary32, false).is_wrong);
}

TEST(Arguments, EveryEntryHasAFunctionAndASmallerSurveyIsPartOfALarger)
{
    for (const Entry& entry : surveyed()) {
        const Function* const function = find_function(entry.name);
        ASSERT_TRUE(function) << entry.name;
        const auto less = [](const Argument& a, const Argument& b) {
            return a.x != b.x ? a.x < b.x : a.y < b.y;
        };
        const auto small = survey_arguments(entry, *function, {.samples = 300, .radius = 2});
        auto large = survey_arguments(entry, *function, {.samples = 9000, .radius = 5});
        std::ranges::sort(large, less);
        for (const Argument& argument : small)
            ASSERT_TRUE(std::ranges::binary_search(large, argument, less))
                << entry.name << ' ' << argument.x << ' ' << argument.y;
    }
}

TEST(ExactValues, ComplexArcCosineIsThatOfMpc)
{
    Random random(1);
    Exact parts[4] = {Exact(112), Exact(112), Exact(112), Exact(112)};
    mpc_t z;
    mpc_init2(z, 112);
    for (int i = 0; i < 3000; ++i) {
        for (Exact& part : parts) { // on the real axis, too
            const double fraction = static_cast<double>(random.next() >> 11) * 0x1p-52 - 1;
            mpfr_set_d(part.value, i % 16 == 0 && &part == &parts[1] ? std::copysign(0, fraction) : fraction,
                       MPFR_RNDN);
            mpfr_mul_2si(part.value, part.value, static_cast<long>(random.next() % 80) - 40, MPFR_RNDN);
        }
        mpc_set_fr_fr(z, parts[0].value, parts[1].value, MPC_RNDNN);
        mpc_acos(z, z, MPC_RNDNN);
        complex_arc_cosine(parts[2].value, parts[3].value, parts[0].value, parts[1].value);
        for (const auto& [part, exact] :
             {std::pair{parts[2].value, mpc_realref(z)}, std::pair{parts[3].value, mpc_imagref(z)}})
            ASSERT_TRUE(mpfr_equal_p(part, exact) || mpfr_eq(part, exact, 110)) << i;
    }
    mpc_clear(z);
}

// Results that are stored, in two parts or on the x87 stack reach the judgement as what they are: routines
// with errors below 0.51 ulp measure as such, and the results of another routine do not.
TEST(Scalars, EveryFormOfCallIsMeasured)
{
    const auto largest_error = [](const char* routine, const char* computes) {
        const Entry& entry = *find_surveyed(routine);
        const Function& function = *find_function(computes);
        const auto arguments = survey_arguments(entry, function, {.samples = 200, .radius = 3});
        const auto surveys =
            measure(entry, function, {entry.kernels.back()}, arguments, 0, 1, [](const Entry&, double) {});
        const Tally& all = surveys.front().tallies.front();
        EXPECT_GE(all.arguments, arguments.size()) << routine;
        return all.wrong == 0 ? all.max_ulp[0] : HUGE_VAL;
    };
    const struct {
        const char* routine;
        const char* other;
    } cases[] = {
        {"expl_scalar", "logl_scalar"},         {"sincosl_scalar", "sinhcoshl_scalar"},
        {"sinhcoshl_scalar", "sincosl_scalar"}, {"powl_scalar", "atan2l_scalar"},
        {"reduce_pi04l", "sincosl_scalar"},     {"acos_scalar", "log_scalar"},
        {"atan2_scalar", "copysign_scalar"},    {"sqrtf_scalar", "log_scalar"},
        {"csqrtf_scalar", "cexpf_scalar"},      {"csqrt_scalar", "clog_scalar"},
    };
    for (const auto& [routine, other] : cases) {
        EXPECT_LT(largest_error(routine, routine), 0.51) << routine;
        EXPECT_GT(largest_error(routine, other), 1e3) << routine;
    }
}

// As many as asked for on both sides and of both signs.
template <class T>
void expect_neighbours_of_thresholds(const char* name, int radius)
{
    const Entry& entry = *find_surveyed(name);
    const Function& function = *find_function(name);
    auto list = survey_arguments(entry, function, {.samples = 4, .radius = radius});
    std::ranges::sort(list, {}, &Argument::x);
    for (const Edge& edge : function.edges)
        for (const T end : {T{0}, std::numeric_limits<T>::infinity()}) {
            auto x = static_cast<T>(edge.value);
            for (int i = 0; i <= radius; ++i, x = std::nextafter(x, end))
                for (const long double signed_x : {x, -x})
                    ASSERT_TRUE(std::ranges::binary_search(list, signed_x, {}, &Argument::x))
                        << name << ' ' << edge.text << ' ' << i;
        }
}

TEST(Arguments, NeighboursOfEveryThreshold)
{
    expect_neighbours_of_thresholds<float>("tanf4", 65536);
    expect_neighbours_of_thresholds<double>("exp2", 3000);
    expect_neighbours_of_thresholds<long double>("sinhl_scalar", 3000);
}

// Every exponent and sign of every function has a run, whose values are within their margins.
TEST(RunOracle, StaysWithinItsMargins)
{
    for (const Entry& entry : entries()) {
        if (entry.lanes != Lanes::f4 || entry.args != 1) continue;
        const Function& function = *find_function(entry.name);
        for (unsigned which = 0; which < (entry.results == Results::one ? 1u : 2u); ++which) {
            RunOracle oracle(function, which);
            Random random(which + 7);
            for (std::uint32_t exponent = 0; exponent < 512; exponent += 3) {
                if (exponent % 256 == 255) continue;
                const std::size_t count = 1024;
                const auto offset = static_cast<std::uint32_t>(random.next() % (1 << 13) * count);
                const std::uint32_t first = exponent << 23 | offset;
                oracle.compute(first, count);
                for (int i = 0; i < 6; ++i) {
                    const std::size_t place = random.next() % count;
                    const auto [value, margin] = oracle.values()[place];
                    if (margin < 0) continue; // left to MPFR
                    const auto pattern = static_cast<std::uint32_t>(first + place);
                    const Reference reference = oracle.reference(pattern);
                    const Judgement judgement = reference.judge(value, binary32, true);
                    const bool is_far_below = value == 0; // or zero itself
                    const bool is_beyond = std::fabs(value) > 0x1.fffffep127;
                    ASSERT_FALSE(judgement.is_wrong && !is_beyond)
                        << entry.name << ' ' << std::hex << pattern;
                    if (!is_far_below && !is_beyond && std::isfinite(value)) {
                        const double per_ulp = std::ldexp(1.0, 149 - std::max(std::ilogb(value) + 126, 0));
                        ASSERT_LE(judgement.ulp, margin * per_ulp + 1e-9)
                            << entry.name << ' ' << std::hex << pattern;
                    }
                }
            }
        }
    }
}

std::string read(const std::filesystem::path& file)
{
    std::ifstream in(file);
    return {std::istreambuf_iterator<char>(in), {}};
}

TEST(Program, GoesOnWhereItStoppedAndMeasuresOtherQuestionsAnew)
{
    const auto state = std::filesystem::path(testing::TempDir()) / "accuracy_test_state";
    std::filesystem::remove_all(state);
    const std::string command = ZELK_ACCURACY " --entry floorf4 --tier L --state " + state.string();
    const auto first = test::run(command + " --samples 500");
    ASSERT_EQ(first.status, 0) << first.err;
    const auto kept = state / "floorf4.L.csv";
    ASSERT_TRUE(std::filesystem::exists(kept));

    // A mark in the kept rows shows whether they are used.
    std::string text = read(kept);
    const std::size_t place = text.find("floorf4,L,");
    text.replace(place, 10, "floorf4,L,kept");
    std::ofstream(kept) << text;
    EXPECT_NE(test::run(command + " --samples 500").out.find("floorf4,L,kept"), std::string::npos);
    EXPECT_EQ(test::run(command + " --samples 501").out.find("floorf4,L,kept"), std::string::npos);
    EXPECT_EQ(test::run(command + " --samples 500").out, first.out);
}

TEST(Program, ComparesWithWhatIsPublished)
{
    const auto directory = std::filesystem::path(testing::TempDir()) / "accuracy_test_check";
    std::filesystem::remove_all(directory);
    std::filesystem::create_directories(directory);
    const std::string table = (directory / "table.csv").string();
    const std::string command = ZELK_ACCURACY " --entry expf4 --samples 2000 --state " + directory.string();
    ASSERT_EQ(test::run(command + " --refine 2 --csv " + table).status, 0);
    EXPECT_EQ(test::run(command + " --refine 0 --check " + table).status, 0);

    // With the published figures at a tenth the same survey is above them.
    std::ifstream in(table);
    std::string line;
    std::getline(in, line);
    std::string scaled = line + '\n';
    while (std::getline(in, line)) {
        std::size_t at = 0;
        for (int i = 0; i < 3; ++i)
            at = line.find(',', at) + 1;
        scaled += line.replace(at, line.find(',', at) - at, "0.05") + '\n';
    }
    std::ofstream(table) << scaled;
    const auto outcome = test::run(command + " --refine 0 --check " + table);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.err.find("expf4."), std::string::npos) << outcome.err;
}

TEST(Program, RefusesWhatItCannotDo)
{
    for (const char* const options :
         {"--entry nothing", "--samples x", "--samples", "--frequency 3", "--tier AL"}) {
        const auto outcome = test::run(std::string(ZELK_ACCURACY " ") + options);
        EXPECT_EQ(outcome.status, 2) << options;
        EXPECT_FALSE(outcome.err.empty()) << options;
    }
}

} // namespace
} // namespace zelk::accuracy
