// What a public header says: its comments, and the declarations that they stand above.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace zelk::reference {

// A comment and the declarations below it up to the next empty line; without declarations it is about the
// section that it begins.
struct Passage {
    std::string comment;      // words of the lines, without the signs of a comment
    std::string declarations; // lines as they are
};

std::vector<Passage> read_header(const std::filesystem::path& header);

// The comment as Markdown: errors, special arguments and methods as paragraphs of their own, names as code.
std::string markdown(const std::string& comment);

} // namespace zelk::reference
