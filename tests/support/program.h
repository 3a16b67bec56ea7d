// Running a program of the build and looking at what it says.
#pragma once

#include <string>

namespace zelk::test {

struct Outcome {
    int status; // exit status; -1 if it did not exit by itself
    std::string out;
    std::string err;
};

// `command` as a shell would read it.
Outcome run(const std::string& command);

// Runs of blanks become one, so that expectations do not depend on the widths of columns.
std::string squeezed(const std::string& text);

} // namespace zelk::test
