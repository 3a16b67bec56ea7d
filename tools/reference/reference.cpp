// zelk-reference: prints a page of docs/reference from the list of functions, the comments of the public
// headers and the measured errors of docs/accuracy.
//
// usage: zelk-reference SOURCE_DIRECTORY index | HEADER
#include "declarations.h"
#include "facts.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iostream>
#include <regex>
#include <stdexcept>

namespace zelk::reference {

namespace {

namespace fs = std::filesystem;

constexpr const char* headers[] = {"trig",      "explog",          "invtrig", "hyperbolic",
                                   "roots_erf", "rounding_intdiv", "complex", "extended"};
constexpr const char* not_by_hand =
    "<!-- Printed by zelk-reference (docs/tools.md); not edited by hand. -->\n";

std::string code(const std::string& text)
{
    return text.empty() ? "—" : '`' + text + '`';
}

// "LA" as "L A".
std::string spaced(const std::string& letters)
{
    std::string text;
    for (const char letter : letters)
        text += (text.empty() ? "" : " ") + std::string(1, letter);
    return text;
}

std::string lanes(const Function& function)
{
    static const std::map<std::string, std::string> names = {
        {"f4", "float4"}, {"d2", "double2"}, {"c2", "complex-float2"}, {"i4", "int4"}, {"u4", "uint4"}};
    return names.at(function.lanes);
}

std::string results(const Function& function)
{
    if (function.results == "P") return "2, second stored";
    return function.results == "2" ? "2, XMM0 and XMM1" : "1";
}

// Kind of the masked entry and what inactive lanes hold.
std::string masking(const Function& function)
{
    const bool two = function.args == 2;
    return function.mask + ": " + function.substitutes[0] + (two ? ", " + function.substitutes[1] : "");
}

bool is_vector(const Function& function)
{
    return !function.mask.empty();
}

std::vector<const Function*> declared_in(const std::vector<Passage>& passages)
{
    std::vector<const Function*> found;
    for (const Passage& passage : passages)
        for (const Function* function : declared_in(passage))
            found.push_back(function);
    return found;
}

std::string page_link(const fs::path& source, const Function& function)
{
    const std::string page = page_of(source, function.name);
    return page.empty() ? "—" : '[' + page + "](../functions/" + page + ".md)";
}

// The tiers in which a lane's bits depend on the lanes beside it.
std::string influenced(const fs::path& source, const Function& function)
{
    const std::string on_64 = influenced_tiers(source, function, "x86_64");
    const std::string on_32 = influenced_tiers(source, function, "i386");
    if (on_64.empty() && on_32.empty()) return "—";
    return "x86-64 " + (on_64.empty() ? "—" : spaced(on_64)) + ", i386 " +
           (on_32.empty() ? "—" : spaced(on_32));
}

void print_vector_table(const fs::path& source, const std::vector<const Function*>& list)
{
    std::cout
        << "| entry | lanes | arguments | results | tries, x86-64 | tries, i386 | masked entry | kind: "
           "inactive "
           "lanes hold | alias | neighbours matter | page |\n|---|---|---|---|---|---|---|---|---|---|---|\n";
    for (const Function* f : list)
        if (is_vector(*f))
            std::cout << "| " << code(f->symbol) << " | " << lanes(*f) << " | " << f->args << " | "
                      << results(*f) << " | " << spaced(f->dispatch_x86_64) << " | "
                      << spaced(f->dispatch_i386) << " | " << code(f->masked()) << " | " << masking(*f)
                      << " | " << code(f->alias) << " | " << influenced(source, *f) << " | "
                      << page_link(source, *f) << " |\n";
    std::cout << '\n';
}

void print_scalar_table(const fs::path& source, const std::vector<const Function*>& list)
{
    std::cout << "| scalar routine | tries, x86-64 | tries, i386 | page |\n|---|---|---|---|\n";
    const auto tries = [](const std::string& tiers) {
        return tiers == "plain" ? "—" : spaced(tiers.substr(0, tiers.find('_')));
    };
    for (const Function* f : list)
        if (f->lanes == "scalar")
            std::cout << "| " << code(f->symbol) << " | " << tries(f->dispatch_x86_64) << " | "
                      << tries(f->dispatch_i386) << " | " << page_link(source, *f) << " |\n";
    std::cout << '\n';
}

// Text of a table's cell, where a bar would end the cell.
std::string cell(const std::string& text)
{
    return std::regex_replace(text, std::regex("\\|"), "\\|");
}

void print_measurements(const fs::path& source, const Function& function)
{
    bool heading = false;
    for (const char* const target : {"x86_64", "i386"}) {
        for (Measurement row : measurements(source, target, function)) {
            if (!heading)
                std::cout << "Measured, " << code(function.symbol)
                          << ":\n\n| target | tier | path | arguments | largest error, ulp | at | correctly "
                             "rounded "
                             "|\n|---|---|---|---|---|---|---|\n";
            heading = true;
            std::cout << "| " << target << " | " << row["tier"] << " | " << cell(row["path"]) << " | "
                      << row["arguments"] << " | " << row["max_ulp"] << " | " << row["worst_argument"]
                      << " | " << row["correctly_rounded_share"] << " |\n";
        }
    }
    if (heading) std::cout << '\n';
}

// What a header says above a group of functions; its first words are the heading if they are few.
void print_section(const Passage& passage)
{
    const std::size_t end = passage.comment.find_first_of(".:");
    std::string text = passage.comment;
    if (end != std::string::npos && end <= 70) {
        std::cout << "## " << text.substr(0, end) << "\n\n";
        text.erase(0, text.find_first_not_of(".: ", end));
        if (!text.empty()) text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
    }
    if (!text.empty()) std::cout << markdown(text) << "\n\n";
    if (!passage.declarations.empty()) std::cout << "```c\n" << passage.declarations << "```\n\n";
}

void print_header_page(const fs::path& source, const std::string& header)
{
    const std::vector<Passage> passages = read_header(source / "include/zelk" / (header + ".h"));
    const std::vector<const Function*> list = declared_in(passages);
    std::string title = passages.front().comment;
    title = title.substr(0, title.find_first_of(".:"));
    std::cout << not_by_hand << "# `zelk/" << header << ".h`: " << title << "\n\n"
              << "Columns, mask kinds and the names of kernels: [reference](../reference.md). Errors are the "
                 "largest "
                 "found in round to\nnearest, in units in the last place of the exact result.\n\n";
    print_vector_table(source, list);
    const bool scalars = std::any_of(list.begin(), list.end(), [](auto* f) { return f->lanes == "scalar"; });
    if (scalars) print_scalar_table(source, list);

    for (std::size_t i = 1; i < passages.size(); ++i) {
        const Passage& passage = passages[i];
        const std::vector<const Function*> declared = declared_in(passage);
        if (declared.empty()) {
            print_section(passage);
            continue;
        }
        std::cout << "### ";
        for (const Function* f : declared)
            std::cout << (f == declared.front() ? "" : ", ") << code(f->symbol);
        std::cout << "\n\n";
        if (!passage.comment.empty()) std::cout << markdown(passage.comment) << "\n\n";
        std::cout << "```c\n" << passage.declarations << "```\n\n";
        for (const Function* f : declared)
            print_measurements(source, *f);
    }
}

void print_index(const fs::path& source)
{
    std::cout << not_by_hand << R"(# Reference

Every exported name, by the header that declares it. Each page has the functions with their errors, special arguments
and flags; the method pages that they link to tell how results come about.

**Names.** Beside the entry `__zelk_sinf4` stand its masked entry `__zelk_sinf4_mask`, its kernels `__zelk_sinf4.A`,
`__zelk_sinf4.L` (in C `__zelk_sinf4_A`, `zelk/entries.h`), and, where the column *alias* has one, `ropsSin4` and
`ropsSin4Mask`, which are the same two functions.

**Tiers.** The entry tries the tiers of its target in the order given, and calls the first that the processor has.
Every vector function has kernels of all tiers of the target, also those that its entry never calls: A and L on x86-64;
on i386 A, J, L and N, double2 functions A, L and N. (On i386 tier A of the float4 functions has methods of its
own, [i386.md](i386.md).) Scalar routines with tiers have A and L, on i386 A and J.

**Neighbours.** Most kernels give a lane the same bits whatever stands beside it. Some hand a whole vector over to
another method when one lane asks for it; the column *neighbours matter* names their tiers, measured over pairs of
values from all paths (`tests/neighbours_test.cpp`). The other method is within the stated error, too.

**Masked entries.** The mask follows the arguments. Lanes that it leaves inactive are computed at the values named, and
raise nothing.

| kind | with no active lane the result is |
|---|---|
| Z | the argument with its inactive lanes zeroed; for a pair of results, the second is the mask, and nothing is stored |
| S | the argument with its inactive lanes replaced |
| D, D2 | the (first) argument as it is |
| T | the first argument with its inactive lanes zeroed |
| P | the first argument with its inactive lanes replaced |
| I | the dividend with its inactive lanes zeroed; for a pair of results, the second is the divisor with them replaced, and nothing is stored |

)";
    std::cout << "| page | entries | scalar routines, tables |\n|---|---|---|\n";
    std::size_t count = 0;
    for (const char* const header : headers) {
        std::string cells[2];
        for (const Function* f :
             declared_in(read_header(source / "include/zelk" / (std::string(header) + ".h")))) {
            const int kind = is_vector(*f) ? 0 : 1;
            cells[kind] += (cells[kind].empty() ? "" : ", ") + code(f->symbol);
            ++count;
        }
        std::cout << "| [" << header << "](reference/" << header << ".md) | " << cells[0] << " | " << cells[1]
                  << " |\n";
    }
    if (count != functions().size())
        throw std::runtime_error("the headers do not declare every function once");

    std::cout << "\n## Exported names\n\n| target | without a tier |";
    for (const char tier : {'A', 'J', 'L', 'N'})
        std::cout << " `." << tier << "` |";
    std::cout << " all |\n|---|---|---|---|---|---|---|\n";
    for (const char* const target : {"x86_64", "i386"}) {
        std::map<char, int> by_tier;
        std::size_t names = 0;
        for (const Function& f : functions()) {
            names += 1 + is_vector(f) + (f.alias.empty() ? 0 : 2);
            for (const char tier : tiers(f, target))
                ++by_tier[tier];
        }
        std::cout << "| " << target << " | " << names << " |";
        for (const char tier : {'A', 'J', 'L', 'N'}) {
            std::cout << ' ' << by_tier[tier] << " |";
            names += static_cast<std::size_t>(by_tier[tier]);
        }
        std::cout << ' ' << names << " |\n";
    }
}

} // namespace

} // namespace zelk::reference

int main(int argc, char** argv)
{
    using namespace zelk::reference;
    const bool known = argc == 3 && (std::strcmp(argv[2], "index") == 0 ||
                                     std::find(std::begin(headers), std::end(headers),
                                               std::string(argv[2])) != std::end(headers));
    if (!known) {
        std::fprintf(stderr, "usage: zelk-reference SOURCE_DIRECTORY index | HEADER\n");
        return 2;
    }
    try {
        if (std::strcmp(argv[2], "index") == 0)
            print_index(argv[1]);
        else
            print_header_page(argv[1], argv[2]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "zelk-reference: %s\n", error.what());
        return 1;
    }
}
