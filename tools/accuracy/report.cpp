#include "report.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>

namespace zelk::accuracy {

namespace {

template <class T>
std::string number(const char* format, T value)
{
    char text[64];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

// Rounded up, so that it is a bound of what was measured.
std::string ulp_text(double ulp)
{
    if (ulp >= 1e5) return number("%.2e", ulp);
    return number("%.4f", std::ceil(ulp * 1e4) / 1e4);
}

std::string argument_text(const Entry& entry, const Argument& argument)
{
    const auto part = [&](long double x) {
        if (entry.lanes == Lanes::l) return number("%La", x);
        return number(is_integer(entry.lanes) ? "%.0f" : "%a", static_cast<double>(x));
    };
    return entry.args == 2 || is_complex(entry.lanes) ? part(argument.x) + ' ' + part(argument.y)
                                                      : part(argument.x);
}

std::vector<std::string> split(const std::string& line, char separator)
{
    std::vector<std::string> cells(1);
    for (const char c : line)
        if (c == separator)
            cells.emplace_back();
        else
            cells.back() += c;
    return cells;
}

std::string joined(const std::vector<std::string>& cells, const std::string& separator)
{
    std::string line;
    for (const std::string& cell : cells)
        line += (line.empty() && &cell == &cells.front() ? "" : separator) + cell;
    return line;
}

std::string for_markdown(std::string text)
{
    for (std::size_t i = 0; (i = text.find('|', i)) != std::string::npos; i += 2)
        text.insert(i, 1, '\\');
    return text;
}

} // namespace

const std::vector<std::string>& headings()
{
    static const std::vector<std::string> list = {"entry",
                                                  "tier",
                                                  "arguments",
                                                  "max_ulp",
                                                  "worst_argument",
                                                  "correctly_rounded_share",
                                                  "path",
                                                  "max_ulp_down",
                                                  "max_ulp_up",
                                                  "max_ulp_zero",
                                                  "wrong",
                                                  "wrong_argument",
                                                  "wrong_directed",
                                                  "changed_beside_others",
                                                  "max_ulp_changed",
                                                  "sampling"};
    return list;
}

Rows rows_of(const Entry& entry, const Kernel& kernel, const Survey& survey)
{
    const Function& function = *find_function(entry.name);
    Rows rows;
    for (std::size_t i = 0; i < survey.paths.size(); ++i) {
        const Tally& tally = survey.tallies[i];
        if (tally.arguments == 0) continue;
        const bool has_modes = !function.follows_rounding;
        const bool has_neighbours = !is_scalar(entry.lanes);
        const auto mode = [&](std::size_t m) { return has_modes ? ulp_text(tally.max_ulp[m]) : "-"; };
        const double share = static_cast<double>(tally.rounded_correctly) /
                             static_cast<double>(std::max<std::uint64_t>(tally.sampled, 1));
        rows.push_back(
            {entry.name, std::string(1, kernel.tier), std::to_string(tally.arguments),
             ulp_text(tally.max_ulp[0]), tally.max_ulp[0] == 0 ? "-" : argument_text(entry, tally.worst),
             number("%.6f", std::floor(share * 1e6) / 1e6), survey.paths[i], mode(1), mode(2), mode(3),
             std::to_string(tally.wrong), tally.wrong == 0 ? "-" : argument_text(entry, tally.first_wrong),
             has_modes ? std::to_string(tally.directed_wrong) : "-",
             has_neighbours ? std::to_string(tally.changed_beside_others) : "-",
             has_neighbours ? ulp_text(tally.max_ulp_beside_others) : "-",
             survey.is_exhaustive ? "exhaustive" : "sample"});
    }
    return rows;
}

std::filesystem::path Store::file(const Entry& entry, const Kernel& kernel, const char* extension) const
{
    return directory_ / (entry.name + '.' + kernel.tier + extension);
}

Rows Store::read(const Entry& entry, const Kernel& kernel, const std::string& question) const
{
    std::ifstream in(file(entry, kernel, ".csv"));
    std::string kept;
    if (!std::getline(in, kept) || kept != question) return {};
    return read_csv(in);
}

void Store::write(const Entry& entry, const Kernel& kernel, const std::string& question,
                  const Survey& survey) const
{
    std::filesystem::create_directories(directory_);
    {
        std::ofstream out(file(entry, kernel, ".curve"));
        for (const auto& [part, ulp] : survey.curve) {
            const int exponent = static_cast<int>(std::floor(static_cast<double>(part) / curve_parts));
            const long double fraction = 0.5L + (part - exponent * curve_parts + 0.5) / (2 * curve_parts);
            out << number("%.6Le", std::ldexp(fraction, exponent)) << ' ' << number("%.4f", ulp) << '\n';
        }
    }
    // The table appears under its name when it is complete.
    const auto unfinished = file(entry, kernel, ".unfinished");
    {
        std::ofstream out(unfinished);
        out << question << '\n';
        write_csv(out, rows_of(entry, kernel, survey));
    }
    std::filesystem::rename(unfinished, file(entry, kernel, ".csv"));
}

void write_csv(std::ostream& out, const Rows& rows)
{
    out << joined(headings(), ",") << '\n';
    for (const auto& row : rows)
        out << joined(row, ",") << '\n';
}

Rows read_csv(std::istream& in)
{
    Rows rows;
    std::string line;
    if (!std::getline(in, line) || line != joined(headings(), ",")) return {};
    while (std::getline(in, line))
        rows.push_back(split(line, ','));
    return rows;
}

void write_markdown(std::ostream& out, const Rows& rows)
{
    const auto print_row = [&](const std::vector<std::string>& cells) {
        out << "| " << joined(cells, " | ") << " |\n";
    };
    std::vector<const char*> families;
    for (const Function& function : functions())
        if (std::string(function.family) != (families.empty() ? "" : families.back()))
            families.push_back(function.family);
    for (const char* const family : families) {
        const auto is_of_family = [&](const std::vector<std::string>& row) {
            const Function* const function = find_function(row[column_entry]);
            return function && function->family == std::string(family);
        };
        bool is_empty = true;
        for (const auto& row : rows)
            is_empty = is_empty && !is_of_family(row);
        if (is_empty) continue;
        out << "\n### " << static_cast<char>(std::toupper(family[0])) << family + 1 << "\n\n";
        print_row({"entry", "tier", "arguments", "max ulp", "at", "correctly rounded", "down", "up",
                   "to zero", "beside others"});
        out << "|---|---|---|---|---|---|---|---|---|---|\n";
        for (const auto& row : rows) {
            if (!is_of_family(row) || row[column_path] != "all") continue;
            const bool is_exhaustive = row[column_sampling] == "exhaustive";
            print_row({'`' + row[column_entry] + '`', row[column_tier],
                       is_exhaustive ? "every one" : row[column_arguments], row[column_max_ulp],
                       row[column_worst],
                       number("%.2f %%", std::floor(std::stod(row[column_share]) * 1e4) / 100),
                       row[column_down], row[column_up], row[column_zero],
                       row[column_changed] == "-"   ? "-"
                       : row[column_changed] == "0" ? "same bits"
                                                    : "may differ, " + row[column_max_beside] + " ulp"});
        }
        out << "\nBy path, round to nearest:\n\n| entry | tier | path | max ulp | at "
               "|\n|---|---|---|---|---|\n";
        for (const auto& row : rows)
            if (is_of_family(row) && row[column_path] != "all")
                print_row({'`' + row[column_entry] + '`', row[column_tier], for_markdown(row[column_path]),
                           row[column_max_ulp], row[column_worst]});
    }
    out << "\n### NaNs, infinities and signs of zero that are not the exact result's\n\n"
        << "| entry | tier | path | results | first at |\n|---|---|---|---|---|\n";
    for (const auto& row : rows)
        if (row[column_path] != "all" && row[column_wrong] != "0")
            print_row({'`' + row[column_entry] + '`', row[column_tier], for_markdown(row[column_path]),
                       row[column_wrong], row[column_wrong_argument]});
}

} // namespace zelk::accuracy
