// What the built library says of itself: exported names, what it needs, how it was linked.
#include "entries.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <set>
#include <sstream>

namespace zelk::test {
namespace {

std::string output_of(const std::string& command)
{
    std::string text;
    std::FILE* const pipe = popen(command.c_str(), "r");
    if (!pipe) return text;
    char buffer[4096];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, pipe))
        text.append(buffer, count);
    EXPECT_EQ(pclose(pipe), 0) << command;
    return text;
}

std::string tool(const std::string& command)
{
    return output_of(command + " " ZELK_LIBRARY);
}

TEST(Binary, ExportsExactlyTheList)
{
    std::set<std::string> actual;
    std::istringstream lines(tool("nm -D --defined-only --format=posix"));
    for (std::string line; std::getline(lines, line);) {
        const std::string name = line.substr(0, line.find(' '));
        if (name == "ZELK_1") continue; // the version node itself
        EXPECT_TRUE(name.ends_with("@@ZELK_1")) << name;
        actual.insert(name.substr(0, name.find('@')));
    }
    const auto listed = listed_exports();
    const std::set<std::string> expected(listed.begin(), listed.end());
    EXPECT_EQ(listed.size(), expected.size()) << "a name is listed twice";
    std::vector<std::string> missing;
    std::vector<std::string> unlisted;
    std::set_difference(expected.begin(), expected.end(), actual.begin(), actual.end(),
                        std::back_inserter(missing));
    std::set_difference(actual.begin(), actual.end(), expected.begin(), expected.end(),
                        std::back_inserter(unlisted));
    EXPECT_EQ(missing, std::vector<std::string>{});
    EXPECT_EQ(unlisted, std::vector<std::string>{});
}

TEST(Binary, ImportsOnlyTheFeatureRuntime)
{
    std::set<std::string> imported;
    std::istringstream lines(tool("nm -D --undefined-only --format=posix"));
    for (std::string line; std::getline(lines, line);)
        imported.insert(line.substr(0, line.find(' ')));
    EXPECT_EQ(imported, (std::set<std::string>{"__brava_cpu_indicator", "__brava_cpu_indicator_init"}));

    const std::string dynamic = tool("readelf --dynamic --wide");
    std::size_t needed = 0;
    for (std::size_t at = dynamic.find("(NEEDED)"); at != std::string::npos;
         at = dynamic.find("(NEEDED)", at + 1))
        ++needed;
    EXPECT_EQ(needed, 1u) << dynamic;
    EXPECT_NE(dynamic.find("[libbrava.so.1]"), std::string::npos);
    EXPECT_NE(dynamic.find("[libzelk.so.1]"), std::string::npos) << "soname";
    EXPECT_EQ(dynamic.find("TEXTREL"), std::string::npos);
}

TEST(Binary, StackIsNotExecutable)
{
    std::istringstream lines(tool("readelf --program-headers --wide"));
    bool found = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.find("GNU_STACK") == std::string::npos) continue;
        found = true;
        EXPECT_EQ(line.find("RWE"), std::string::npos) << line;
    }
    EXPECT_TRUE(found);
}

TEST(Binary, ControlFlowProtectionIsMarked)
{
    const std::string notes = tool("readelf --notes --wide");
    EXPECT_NE(notes.find("IBT"), std::string::npos) << notes;
    EXPECT_NE(notes.find("SHSTK"), std::string::npos) << notes;
}

} // namespace
} // namespace zelk::test
