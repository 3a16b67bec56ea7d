// zelk-eval from the command line: every form of name, number and call, and what it says to mistakes.
#include "call.h"
#include "entries.h"
#include "program.h"

#include <gtest/gtest.h>

#include <vector>

namespace zelk::test {
namespace {

Outcome eval(const std::string& arguments)
{
    Outcome outcome = run(std::string(ZELK_EVAL " ") + arguments);
    outcome.out = squeezed(outcome.out);
    return outcome;
}

struct Case {
    const char* function; // exported name; the case waits until the library has it
    const char* arguments;
    std::vector<const char*> expected; // in the output, blanks squeezed
};

void check(const std::vector<Case>& cases)
{
    for (const Case& row : cases) {
        if (!exported(row.function)) continue; // not written yet
        const Outcome outcome = eval(row.arguments);
        EXPECT_EQ(outcome.status, 0) << row.arguments << ": " << outcome.err;
        EXPECT_EQ(outcome.err, "") << row.arguments;
        for (const char* const expected : row.expected)
            EXPECT_NE(outcome.out.find(expected), std::string::npos)
                << row.arguments << ": no " << expected << " in\n"
                << outcome.out;
    }
}

TEST(ZelkEval, Numbers)
{
    check({
        {"__zelk_sinf4",
         "sinf4 0x40490FDB 0x1.8p1 -3e0 +.5",
         {"\n0 3.1415927 40490FDB ", "\n1 3 40400000 ", "\n2 -3 C0400000 ", "\n3 0.5 3F000000 "}},
        {"__zelk_sinf4",
         "sinf4 inf -Infinity nan -snan",
         {"\n0 inf 7F800000 ", "\n1 -inf FF800000 ", "\n2 nan 7FC00000 nan 7FC00000\n",
          "\n3 -nan FFA00000 -nan FFE00000\n", "flags: invalid\n"}},
        {"__zelk_sinf4",
         "sinf4 0 -0 0e9 0x0p5",
         {"\n0 0 00000000 ", "\n1 -0 80000000 ", "\n2 0 00000000 ", "\n3 0 00000000 "}},
        {"__zelk_sinf4", "sinf4 1 1e-45", {"\n0 1 ", "\n1 1e-45 00000001", "\n2 1e-45 ", "\n3 1e-45 "}},
        {"__zelk_rint2",
         "rint2 0x4005BF0A8B145769 0x1.8p0",
         {"\n0 2.718281828459045 4005BF0A8B145769 3 4008000000000000\n", "\n1 1.5 3FF8000000000000 2 "}},
        {"__zelk_udiv4",
         "udiv4 0xFFFFFFFF 4294967295 7 7 , 1 0x10 2",
         {"\n0 4294967295 FFFFFFFF 1 00000001 4294967295 FFFFFFFF\n", "\n1 4294967295 FFFFFFFF 16 ",
          "\n3 7 00000007 2 00000002 3 00000003\n"}},
    });
}

TEST(ZelkEval, NamesAndForms)
{
    check({
        {"__zelk_cosf4",
         "cosf4 0",
         {"__zelk_cosf4: tier ", ", the dispatcher's choice of ", "; rounding nearest\nlane x result\n",
          "\n3 0 00000000 1 3F800000\n"}},
        {"__zelk_cosf4", "__zelk_cosf4 0", {"__zelk_cosf4: tier "}},
        {"__zelk_cosf4", "cosf4.L 0", {"__zelk_cosf4.L: tier L; the dispatcher's choice is "}},
        {"__zelk_cosf4", "--tier L cosf4 0", {"__zelk_cosf4.L: tier L; "}},
        {"__zelk_cosf4", "ropsCos4 --tier=L 0", {"__zelk_cosf4.L: tier L; "}},
        {"ropsCos4", "ropsCos4 0", {"ropsCos4: tier "}},
        {"__zelk_cosf4_mask",
         "cosf4_mask snan 0 snan 0 , 0 1 0x00000000 0xFFFFFFFF",
         {"lane x mask result\n", "\n0 nan 7FA00000 00000000 1 3F800000\n", "\n1 0 00000000 FFFFFFFF 1 ",
          "\n2 nan 7FA00000 00000000 1 ", "\n3 0 00000000 FFFFFFFF 1 ", "flags: inexact\n"}},
        {"ropsSin4Mask", "ropsSin4Mask snan 0", {"\n0 nan 7FA00000 00000000 0 00000000\n", "flags: none\n"}},
        {"__zelk_pow2", "pow2 2 10", {"\n0 2 4000000000000000 10 4024000000000000 1024 "}},
        {"__zelk_pow2", "pow2 2 4, 10 -1", {" 1024 ", "\n1 4 4010000000000000 -1 BFF0000000000000 0.25 "}},
        {"__zelk_atan22_mask", "atan22_mask 0 5,1,1 0", {"lane x y mask result\n", "\n1 5 "}},
        {"__zelk_sincosf4",
         "sincosf4 0",
         {"lane x result second result\n", "\n0 0 00000000 0 00000000 1 3F800000\n"}},
        {"ropdSinCos2",
         "ropdSinCos2 0",
         {"lane x result second result stored\n",
          "\n1 0 0000000000000000 0 0000000000000000 1 3FF0000000000000 1 3FF0000000000000\n"}},
        {"__zelk_idivrem4",
         "idivrem4 7 -7 7 -7 , 2 2 -2 -2",
         {"\n1 -7 FFFFFFF9 2 00000002 -3 FFFFFFFD -1 FFFFFFFF\n"}},
        {"ropiDivRem4", "ropiDivRem4 7 2", {" 3 00000003 1 00000001 1 00000001\n"}},
        {"__zelk_csqrtf2",
         "csqrtf2 4 0",
         {"\nre 0 4 40800000 2 ", "\nim 0 0 ", "\nre 1 4 40800000 2 ", "\nim 1 0 "}},
        {"acos_scalar",
         "acos_scalar 1",
         {"acos_scalar: tier ", "\n1 3FF0000000000000 0 0000000000000000\n", "flags: none\n"}},
        {"sqrtf_scalar",
         "sqrtf_scalar -1",
         {"sqrtf_scalar: one implementation without tiers; ", " -nan FFC00000\n", "flags: invalid\n"}},
        {"sinhcoshl_scalar",
         "sinhcoshl_scalar -inf",
         {"\n-inf FFFF8000000000000000 -inf FFFF8000000000000000 inf 7FFF8000000000000000\n"}},
        {"powl_scalar",
         "powl_scalar 2 10",
         {"\n2 40008000000000000000 10 4002A000000000000000 1024 40098000000000000000\n"}},
        {"sqrtl_scalar", "sqrtl_scalar 4", {"\n4 40018000000000000000 2 40008000000000000000\n"}},
    });
}

// The rounding mode holds for the call and for nothing else.
TEST(ZelkEval, Rounding)
{
    for (const Rounding rounding : all_roundings) {
        const char* const names[] = {"nearest", "down", "up", "zero"};
        const std::string name = names[static_cast<unsigned>(rounding)];
        const Result expected =
            call(entry("cosf4").address, words(0x3DCCCCCD, 0x3DCCCCCD, 0x3DCCCCCD, 0x3DCCCCCD), {}, {},
                 nullptr, rounding);
        const Outcome outcome = eval("--rounding " + name + " cosf4 0.1");
        char row[64];
        std::snprintf(row, sizeof row, " %08X\n", static_cast<unsigned>(expected.first.u[2]));
        EXPECT_NE(outcome.out.find("rounding " + name), std::string::npos) << outcome.out;
        EXPECT_NE(outcome.out.find("\n2 0.1 3DCCCCCD "), std::string::npos) << outcome.out;
        EXPECT_NE(outcome.out.find(row), std::string::npos) << name << row << outcome.out;
    }
}

TEST(ZelkEval, ListsEverything)
{
    const Outcome outcome = eval("--list");
    EXPECT_EQ(outcome.status, 0);
    for (const Entry& entry : entries()) {
        const std::string name = entry.symbol.starts_with("__zelk_") ? entry.symbol.substr(7) : entry.symbol;
        EXPECT_NE(outcome.out.find('\n' + name + ' '), std::string::npos) << name;
    }
    for (const ScalarEntry& scalar : scalar_entries())
        EXPECT_NE(outcome.out.find('\n' + scalar.name + " scalar "), std::string::npos) << scalar.name;
    EXPECT_EQ(eval("--help").status, 0);
}

TEST(ZelkEval, Mistakes)
{
    const struct {
        const char* arguments;
        const char* message;
    } mistakes[] = {
        {"", "no function named"},
        {"--colour sinf4 1", "no option --colour"},
        {"sinf4 1 --tier", "--tier needs a value"},
        {"sinf 1", "no function is called 'sinf'; did you mean sinf4"},
        {"snif4_mask 1", "did you mean sinf4_mask"},
        {"__zelk_cosf4.X 1", "did you mean cosf4."},
        {"quaternion 1", "no function is called 'quaternion'; --list shows them all"},
        {"sinf4", "takes 1 argument"},
        {"sinf4 1 , 2", "takes 1 argument"},
        {"sinf4_mask 1", "takes 2 arguments"},
        {"sinf4_mask 1 ,", "takes 2 arguments"},
        {"sinf4 1 2 3 4 5", "5 values for 4 lanes"},
        {"sinf4 one", "'one' is not a number"},
        {"sinf4 1.5x", "'1.5x' is not a number"},
        {"sinf4 ''", "'' is not a number"},
        {"sinf4 --1", "no option --1"},
        {"sinf4 3.5e38", "'3.5e38' is beyond the largest binary32 number"},
        {"sinf4 1e-46", "'1e-46' is below the smallest binary32 number"},
        {"sinf4 0x1p-151", "is below the smallest"},
        {"sinf4 0x12", "a hexadecimal number needs its exponent"},
        {"sinf4 -0x3F800000", "a bit pattern of binary32 no sign"},
        {"sinf4_mask 1 , 2", "'2': a mask lane is 1 (active), 0 (inactive)"},
        {"--tier Q sinf4 1", "there is no __zelk_sinf4.Q"},
        {"--tier LA sinf4 1", "a tier is one letter"},
        {"--tier L sinf4.J 1", "sinf4.J"},
        {"--tier L sinf4_mask 1 1", "always goes through the dispatcher"},
        {"--rounding sideways sinf4 1", "no rounding mode 'sideways'"},
    };
    for (const auto& mistake : mistakes) {
        const Outcome outcome = eval(mistake.arguments);
        EXPECT_EQ(outcome.status, 2) << mistake.arguments;
        EXPECT_EQ(outcome.out, "") << mistake.arguments;
        EXPECT_NE(outcome.err.find(mistake.message), std::string::npos)
            << mistake.arguments << ": " << outcome.err;
    }
    // Integers and complex numbers have mistakes of their own.
    if (exported("__zelk_idiv4")) {
        EXPECT_NE(eval("idiv4 2147483648 1").err.find("outside -2147483648 to 2147483647"),
                  std::string::npos);
        EXPECT_NE(eval("idiv4 1.5 1").err.find("'1.5' is not an integer"), std::string::npos);
        EXPECT_NE(eval("udiv4 -1 1").err.find("'-1' is not an unsigned number"), std::string::npos);
    }
    if (exported("__zelk_csqrtf2")) {
        EXPECT_NE(eval("csqrtf2 1 2 3").err.find("a complex lane is a pair"), std::string::npos);
    }
}

} // namespace
} // namespace zelk::test
