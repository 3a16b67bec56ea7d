// zelk-reference on a tree of its own: measured errors where they were published, and no page that leaves a
// function out. That the committed pages are what it prints, the tests reference.* say.
#include "program.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <unistd.h>

namespace zelk::test {
namespace {

namespace fs = std::filesystem;

class Reference : public testing::Test {
protected:
    Reference() : tree_(testing::TempDir() + "zelk_reference." + std::to_string(getpid()))
    {
        fs::create_directories(tree_ / "include");
        fs::create_directories(tree_ / "docs/accuracy");
        fs::copy(fs::path(SOURCE) / "include/zelk", tree_ / "include/zelk");
        fs::copy(fs::path(SOURCE) / "docs/data", tree_ / "docs/data");
    }
    ~Reference() override { fs::remove_all(tree_); }

    Outcome print(const std::string& page) const
    {
        return run(ZELK_REFERENCE " " + tree_.string() + ' ' + page);
    }

    fs::path tree_;
};

TEST_F(Reference, MeasuredErrorsByFunctionAndTarget)
{
    std::ofstream(tree_ / "docs/accuracy/errors_x86_64.csv")
        << "entry,tier,arguments,max_ulp,worst_argument,correctly_rounded_share,path\n"
        << "sin2,L,1000,1.25,0x1.8p+0,0.75,\"|x| < 2, fast\"\n"
        << "sinf4,A,2000,2.5,0x1p-3,0.5,all\n";
    std::ofstream(tree_ / "docs/accuracy/errors_i386.csv")
        << "entry,tier,arguments,max_ulp,worst_argument,correctly_rounded_share,path\n"
        << "__zelk_sinf4,N,3000,2.25,0x1p-4,0.625,all\n";
    const Outcome page = print("trig");
    ASSERT_EQ(page.status, 0) << page.err;
    const auto at = [&](const char* text) {
        const std::size_t where = page.out.find(text);
        EXPECT_NE(where, std::string::npos) << text;
        return where;
    };
    const std::size_t sine = at("### `__zelk_sinf4`");
    const std::size_t next = at("### `__zelk_cosf4`");
    const std::size_t on_64 = at("| x86_64 | A | all | 2000 | 2.5 | 0x1p-3 | 0.5 |");
    const std::size_t on_32 = at("| i386 | N | all | 3000 | 2.25 | 0x1p-4 | 0.625 |");
    EXPECT_TRUE(sine < on_64 && on_64 < on_32 && on_32 < next);
    EXPECT_GT(at("| x86_64 | L | \\|x\\| < 2, fast | 1000 |"), at("### `__zelk_sin2`"));
}

TEST_F(Reference, FunctionWithoutADeclarationIsAnError)
{
    EXPECT_EQ(print("index").status, 0);
    std::ofstream(tree_ / "include/zelk/trig.h") << "/* Nothing. */\n";
    const Outcome index = print("index");
    EXPECT_EQ(index.status, 1);
    EXPECT_NE(index.err.find("declare"), std::string::npos) << index.err;
    fs::remove_all(tree_ / "docs/data");
    EXPECT_EQ(print("explog").status, 1);
    EXPECT_EQ(print("nothing").status, 2);
}

} // namespace
} // namespace zelk::test
