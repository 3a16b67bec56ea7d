// The command line of zelk-eval.
#pragma once

#include <string>
#include <vector>

#include "call.h"

namespace zelk::eval {

using Words = std::vector<std::string>;

struct Command {
    Rounding rounding = Rounding::nearest;
    char tier = 0;
    bool list = false;
    bool help = false;
    Words words;
};

extern const char help[];
// Throws Error.
Command read_command(int argc, char** argv);
const char* rounding_name(Rounding rounding);

} // namespace zelk::eval
