// What the binutils say of a built library.
#pragma once

#include <set>
#include <string>

namespace zelk::test {

// Standard output of `command library`; a failure of the command is one of the test.
std::string inspect(const std::string& command, const std::string& library);

// The names that a library exports, without their version. Every name must be of the version node `node`.
std::set<std::string> exports_of(const std::string& library, const std::string& node);

// The names that it takes from other libraries, without their version.
std::set<std::string> imports_of(const std::string& library);

} // namespace zelk::test
