// What the built libraries say of themselves: exported names, what they need, how they were linked.
#include "binary.h"
#include "entries.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace zelk::test {
namespace {

struct Library {
    const char* path;
    const char* soname;
    const char* node;                // version of its names
    std::vector<const char*> needed; // other libraries
};

const Library zelk_library = {ZELK_LIBRARY, "libzelk.so.1", "ZELK_1", {"libbrava.so.1"}};
const Library libraries[] = {
    zelk_library,
    {BRAVA_LIBRARY, "libbrava.so.1", "BRAVA_1", {}},
    {SIMD_LIBRARY, "libzelk_simd.so.1", "ZELK_SIMD_1", {"libzelk.so.1"}},
};

TEST(Binary, ExportsExactlyTheList)
{
    const std::set<std::string> actual = exports_of(zelk_library.path, zelk_library.node);
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

TEST(Binary, FeatureRuntimeExportsTwoNames)
{
    const std::set<std::string> names = {"__brava_cpu_indicator", "__brava_cpu_indicator_init"};
    EXPECT_EQ(exports_of(BRAVA_LIBRARY, "BRAVA_1"), names);
    EXPECT_EQ(imports_of(BRAVA_LIBRARY), std::set<std::string>{});
    EXPECT_EQ(imports_of(ZELK_LIBRARY), names);
}

// Per function and type the scalar one, and vector forms for SSE (plain and masked), AVX, AVX2 and AVX-512;
// libzelk and nothing else is called.
TEST(Binary, SimdLibraryExportsItsForms)
{
    struct Function {
        int arguments;
        const char* name;
    };
    const Function functions[] = {
#define ZELK_SIMD(arguments, name, f4, d2) {arguments, #name},
#include "../simd/functions.def"
#undef ZELK_SIMD
    };
    std::set<std::string> expected;
    for (const Function& function : functions) {
        const std::string arguments = function.arguments == 2 ? "vv_" : "v_";
        for (const std::string type : {"f", ""}) {
            const std::string name = std::string("zelk_") + function.name + type;
            expected.insert(name);
            const std::initializer_list<const char*> floats = {"bN4", "bM4", "cN8", "dN8", "eN16"};
            const std::initializer_list<const char*> doubles = {"bN2", "bM2", "cN4", "dN4", "eN8"};
            for (const char* const form : type.empty() ? doubles : floats)
                expected.insert("_ZGV" + (form + arguments) + name);
        }
    }
    EXPECT_EQ(exports_of(SIMD_LIBRARY, "ZELK_SIMD_1"), expected);
    const std::set<std::string> entries = exports_of(ZELK_LIBRARY, "ZELK_1");
    for (const std::string& name : imports_of(SIMD_LIBRARY))
        EXPECT_TRUE(entries.count(name)) << name;
}

TEST(Binary, SonamesAndNeededLibraries)
{
    for (const Library& library : libraries) {
        const std::string dynamic = inspect("readelf --dynamic --wide", library.path);
        std::multiset<std::string> sonames;
        std::multiset<std::string> needed;
        std::istringstream lines(dynamic);
        for (std::string line; std::getline(lines, line);) {
            const std::string name = line.substr(line.find('[') + 1, line.find(']') - line.find('[') - 1);
            if (line.find("(SONAME)") != std::string::npos) sonames.insert(name);
            if (line.find("(NEEDED)") != std::string::npos) needed.insert(name);
        }
        EXPECT_EQ(sonames, std::multiset<std::string>{library.soname});
        EXPECT_EQ(needed, std::multiset<std::string>(library.needed.begin(), library.needed.end()))
            << library.soname;
        EXPECT_EQ(dynamic.find("TEXTREL"), std::string::npos) << library.soname;
    }
}

TEST(Binary, StackIsNotExecutable)
{
    for (const Library& library : libraries) {
        std::istringstream lines(inspect("readelf --program-headers --wide", library.path));
        bool found = false;
        for (std::string line; std::getline(lines, line);) {
            if (line.find("GNU_STACK") == std::string::npos) continue;
            found = true;
            EXPECT_EQ(line.find("RWE"), std::string::npos) << line;
        }
        EXPECT_TRUE(found) << library.soname;
    }
}

TEST(Binary, ControlFlowProtectionIsMarked)
{
    for (const Library& library : libraries) {
        const std::string notes = inspect("readelf --notes --wide", library.path);
        EXPECT_NE(notes.find("IBT"), std::string::npos) << library.soname << notes;
        EXPECT_NE(notes.find("SHSTK"), std::string::npos) << library.soname << notes;
    }
}

} // namespace
} // namespace zelk::test
