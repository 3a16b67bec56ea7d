#include "program.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>

namespace zelk::test {

Outcome run(const std::string& command)
{
    const std::string error_file = testing::TempDir() + "zelk_stderr." + std::to_string(getpid());
    Outcome outcome{-1, {}, {}};
    std::FILE* const pipe = popen((command + " 2>" + error_file).c_str(), "r");
    if (!pipe) return outcome;
    char buffer[4096];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, pipe))
        outcome.out.append(buffer, count);
    const int status = pclose(pipe);
    if (WIFEXITED(status)) outcome.status = WEXITSTATUS(status);
    std::ifstream errors(error_file);
    outcome.err.assign(std::istreambuf_iterator<char>(errors), {});
    std::remove(error_file.c_str());
    return outcome;
}

std::string squeezed(const std::string& text)
{
    std::string result;
    std::ranges::unique_copy(text, std::back_inserter(result),
                             [](char a, char b) { return a == ' ' && b == ' '; });
    return result;
}

} // namespace zelk::test
