#include "declarations.h"

#include <fstream>
#include <regex>
#include <stdexcept>

namespace zelk::reference {

namespace {

// One line of a comment without `/*`, ` *` and `*/`; list items stay on lines of their own.
std::string words_of(std::string line)
{
    line = std::regex_replace(line, std::regex("^/\\* |^ \\*( |$)"), "");
    return std::regex_replace(line, std::regex(" ?\\*/$"), "");
}

void append_line(std::string& comment, const std::string& words)
{
    static const std::regex list_item("^ +- .*");
    if (words.empty()) return;
    const std::size_t last_line = comment.rfind('\n');
    if (std::regex_match(words, list_item))
        comment += '\n';
    else if (last_line != std::string::npos && comment[last_line + 1] == ' ' && comment.ends_with('.'))
        comment += "\n\n"; // the end of the list
    else if (!comment.empty())
        comment += ' ';
    comment += words;
}

bool is_declaration(const std::string& line)
{
    return !line.empty() && line[0] != '#' && !line.starts_with("ZELK_");
}

} // namespace

std::vector<Passage> read_header(const std::filesystem::path& header)
{
    std::ifstream file(header);
    if (!file) throw std::runtime_error(header.string() + " cannot be read");
    std::vector<Passage> passages;
    Passage passage;
    const auto finish = [&] {
        if (!passage.comment.empty() || !passage.declarations.empty()) passages.push_back(passage);
        passage = {};
    };
    bool in_comment = false;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("/* ")) {
            // Declarations end with the comment of the next ones, too.
            if (!passage.declarations.empty()) finish();
            in_comment = true;
        }
        if (in_comment) {
            append_line(passage.comment, words_of(line));
            in_comment = !line.ends_with("*/");
        } else if (line.empty()) {
            finish();
        } else if (is_declaration(line)) {
            passage.declarations += line + '\n';
        }
    }
    finish();
    return passages;
}

std::string markdown(const std::string& comment)
{
    std::string text = std::regex_replace(comment, std::regex("[*<]"), "\\$&");
    text = std::regex_replace(
        text, std::regex("\\b(__zelk_\\w+|_rop_\\w+|rop[sdiu]\\w+|\\w+_scalar|reduce_pi04l)\\b"), "`$1`");
    text = std::regex_replace(text, std::regex(" ?\\b((Error|Special|Method|Overflow)s?( [^.:`]{1,20})?:)"),
                              "\n\n**$1**");
    text = std::regex_replace(text, std::regex("\n +- "), "\n- ");
    text = std::regex_replace(text, std::regex("([^\n])\n- "), "$1\n\n- ",
                              std::regex_constants::format_first_only);
    return std::regex_replace(text, std::regex("^\n+"), "");
}

} // namespace zelk::reference
