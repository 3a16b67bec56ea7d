// The errors that the public headers state against the published measurements.
#include "declarations.h"
#include "facts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <regex>

namespace zelk::reference {
namespace {

// The figures of a comment's words on errors; numbers beside a comparison are limits of x.
std::vector<double> stated_errors(const std::string& comment)
{
    static const std::regex words("\\bErrors?[^:]{0,20}:(.*?)(\\b(Special|Method|Overflow|Exact)|$)");
    static const std::regex figure("(^|[^<>=^0-9.])( *)([0-9]{1,3}\\.[0-9]+)(?! *<|[0-9])");
    std::smatch found;
    const std::string flat = std::regex_replace(comment, std::regex("\\s+"), " ");
    if (!std::regex_search(flat, found, words)) return {};
    if (found[1].str().starts_with(" theirs")) return {}; // another function's
    const std::string text = std::regex_replace(found[1].str(), std::regex("[<>=] +"), "<");
    std::vector<double> figures;
    for (std::sregex_iterator match(text.begin(), text.end(), figure), end; match != end; ++match)
        figures.push_back(std::stod((*match)[3]));
    return figures;
}

TEST(HeaderErrors, FiguresAreRead)
{
    using List = std::vector<double>;
    EXPECT_EQ(
        stated_errors("arccos x, |x| <= 1.5. Error: 0.501 ulp; in tier A 1.9 for 0.3827 < |x| < 0.9239 and "
                      "1.01 above. Special: 3.5."),
        (List{0.501, 1.9, 1.01}));
    EXPECT_EQ(stated_errors("Errors: 0.52, 0.503, 0.51 ulp.\nMethod: 1.5."), (List{0.52, 0.503, 0.51}));
    EXPECT_EQ(stated_errors("Error: 2^-93 of the reduced argument; 4.64 beyond 2^0.5."), (List{4.64}));
    EXPECT_EQ(stated_errors("Exact."), List{});
}

// The largest error of a function in all tiers of both targets, as published.
double published_error(const Function& function)
{
    double largest = 0;
    for (const char* const target : {"x86_64", "i386"})
        for (const Measurement& row : measurements(SOURCE, target, function))
            if (row.at("path") == "all") largest = std::max(largest, std::stod(row.at("max_ulp")));
    return largest;
}

// As many "Errors" as functions are one for each of them.
TEST(HeaderErrors, NoneIsBelowThePublishedOne)
{
    std::size_t compared = 0;
    for (const char* const header :
         {"trig", "explog", "invtrig", "hyperbolic", "roots_erf", "complex", "extended"})
        for (const Passage& passage : read_header(std::string(SOURCE) + "/include/zelk/" + header + ".h")) {
            const std::vector<const Function*> declared = declared_in(passage);
            const std::vector<double> figures = stated_errors(passage.comment);
            if (figures.empty()) continue;
            for (std::size_t i = 0; i < declared.size(); ++i) {
                const double published = published_error(*declared[i]);
                const double stated =
                    figures.size() == declared.size() && passage.comment.find("Errors:") != std::string::npos
                        ? figures[i]
                        : *std::ranges::max_element(figures);
                EXPECT_LE(published, stated) << declared[i]->symbol;
                compared += published > 0;
            }
        }
    EXPECT_GT(compared, 80u);
}

} // namespace
} // namespace zelk::reference
