// The exported names against data/exports_<target>.txt, a list of its own: it was not made from the list of
// entries that the library is built from, but written out from the function names by these rules, so that a
// wrong row there shows here.
//
//   34 functions on float4 (__zelk_<f>f4) and on double2 (__zelk_<f>2), 18 on complex-float2 (__zelk_c<f>f2),
//   6 integer divisions: 92 dispatchers, each with its _mask
//   the same but erf, erfc, erfinv, hypot, nearbyint, rint, sincos, the complex ones and divrem: aliases
//   rops<F>4 and ropd<F>2, ropi<F>4, ropu<F>4 (58), each with its Mask
//   ropsSinCos4, ropdSinCos2, ropiDivRem4, ropuDivRem4: dispatchers of their own, each with its Mask
//   71 scalar routines, 6 of them with tiers (on i386 7: clogf_scalar)
//   8 tables
//   x86-64: .A and .L of the 96 dispatchers and the tiered scalar routines
//   i386: .L and .N of the 96, .A of the 96 and the scalars, .J of all but the functions on double2
#include "binary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <regex>

namespace zelk::test {
namespace {

std::vector<std::string> listed_names()
{
    std::ifstream file(EXPORTS);
    std::vector<std::string> names;
    for (std::string line; std::getline(file, line);)
        names.push_back(line);
    return names;
}

TEST(Exports, AreTheListedNames)
{
    const std::set<std::string> actual = exports_of(ZELK_LIBRARY, "ZELK_1");
    const std::vector<std::string> names = listed_names();
    const std::set<std::string> expected(names.begin(), names.end());
    for (const std::string& name : expected)
        EXPECT_TRUE(actual.count(name)) << name << " is missing";
    for (const std::string& name : actual)
        EXPECT_TRUE(expected.count(name)) << name << " is not listed";
}

TEST(Exports, ListHasEveryGroupInFull)
{
    const std::vector<std::string> names = listed_names();
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
    EXPECT_EQ(std::adjacent_find(names.begin(), names.end()), names.end());

    const auto count = [&](const char* pattern) {
        const std::regex regex(pattern);
        return std::count_if(names.begin(), names.end(),
                             [&](const std::string& name) { return std::regex_match(name, regex); });
    };
    EXPECT_EQ(count("__zelk_\\w+_mask"), 92);
    EXPECT_EQ(count("__zelk_\\w+") - count("__zelk_\\w+_mask"), 92);
    EXPECT_EQ(count("rop[sdiu]\\w+Mask"), 58 + 4);
    EXPECT_EQ(count("rop[sdiu]\\w+"), 2 * (58 + 4));
    EXPECT_EQ(count("(\\w+_scalar|internal_cexp|reduce_pi04l)"), 71);
    EXPECT_EQ(count("_rop_\\w+"), 8);
    EXPECT_EQ(count("\\w+"), 379 + 8);
#if defined(__x86_64__)
    EXPECT_EQ(count("\\w+\\.A"), 102);
    EXPECT_EQ(count("\\w+\\.L"), 102);
    EXPECT_EQ(names.size(), 591u);
#else
    EXPECT_EQ(count("\\w+\\.A"), 103);
    EXPECT_EQ(count("\\w+\\.L"), 96);
    EXPECT_EQ(count("\\w+\\.N"), 96);
    EXPECT_EQ(count("\\w+\\.J"), 68);
    EXPECT_EQ(names.size(), 750u);
#endif
}

// The last number of the target's row in the table of docs/reference.md.
TEST(Exports, ReferencePageHasTheirNumber)
{
    std::ifstream file(REFERENCE);
    std::string number;
    for (std::string line; std::getline(file, line);) {
        std::smatch match;
        if (std::regex_match(line, match, std::regex("\\| " ZELK_TARGET_NAME " \\|.* ([0-9]+) \\|")))
            number = match[1];
    }
    EXPECT_EQ(number, std::to_string(exports_of(ZELK_LIBRARY, "ZELK_1").size()));
}

} // namespace
} // namespace zelk::test
