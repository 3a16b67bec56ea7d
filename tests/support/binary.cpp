#include "binary.h"

#include "program.h"

#include <gtest/gtest.h>

#include <sstream>

namespace zelk::test {

std::string inspect(const std::string& command, const std::string& library)
{
    const Outcome outcome = run(command + ' ' + library);
    EXPECT_EQ(outcome.status, 0) << command << ' ' << library << '\n' << outcome.err;
    return outcome.out;
}

std::set<std::string> exports_of(const std::string& library, const std::string& node)
{
    std::set<std::string> names;
    std::istringstream lines(inspect("nm -D --defined-only --format=posix", library));
    for (std::string line; std::getline(lines, line);) {
        const std::string name = line.substr(0, line.find(' '));
        if (name == node) continue; // the node itself
        EXPECT_TRUE(name.ends_with("@@" + node)) << name;
        EXPECT_TRUE(names.insert(name.substr(0, name.find('@'))).second) << name << " in two versions";
    }
    return names;
}

std::set<std::string> imports_of(const std::string& library)
{
    std::set<std::string> names;
    std::istringstream lines(inspect("nm -D --undefined-only --format=posix", library));
    for (std::string line; std::getline(lines, line);)
        names.insert(line.substr(0, line.find_first_of(" @")));
    return names;
}

} // namespace zelk::test
