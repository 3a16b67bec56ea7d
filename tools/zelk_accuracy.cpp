// zelk-accuracy: measures the errors of the library's functions against exact results.
#include "exhaustive.h"
#include "report.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <thread>

namespace zelk::accuracy {

namespace {

constexpr const char* help = R"(usage: zelk-accuracy [OPTION]...

Measures the errors of every function, or of those named, against MPFR, and prints the largest.

  --entry NAME      only this entry or scalar routine (sinf4, expl_scalar); may be given several times
  --tier T          only kernels of this tier; - for scalar routines without tiers
  --samples N       random arguments of each entry (100000)
  --radius N        neighbours on each side of every threshold (256)
  --refine N        times that the surroundings of the worst arguments are searched (3); 0 searches none
  --exhaustive      round to nearest over every argument, where an argument is one binary32 number
  --exhaustive-entry NAME  so for this entry only; may be given several times
  --threads N       threads (one for each processor)
  --state DIR       keep what is done there and skip what is found complete (accuracy-state)
  --csv FILE        write the table of all kernels and paths
  --markdown FILE   write it as Markdown
  --check FILE      fail where an error is above that of this table
  --families        print the families: file name, title and entries, with tabs between
  --help
)";

struct Error : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Options {
    std::vector<std::string> entries;
    char tier = 0;
    Amount amount;
    unsigned threads = std::max(1u, std::thread::hardware_concurrency());
    std::string state = "accuracy-state";
    std::string csv;
    std::string markdown;
    std::string check;
    std::vector<std::string> exhausted_entries;
    bool exhaustive = false;
    bool families = false;
    bool help = false;
};

template <class T>
void read_number(const std::string& text, T& value)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value < T{0})
        throw Error("'" + text + "' is not a number that fits");
}

Options read_options(int argc, char** argv)
{
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string name = argv[i];
        if (name == "--help") {
            options.help = true;
            continue;
        }
        if (name == "--exhaustive" || name == "--families") {
            (name == "--exhaustive" ? options.exhaustive : options.families) = true;
            continue;
        }
        const auto is_any_of = [&](auto... names) { return ((name == names) || ...); };
        if (!is_any_of("--entry", "--tier", "--samples", "--radius", "--refine", "--threads", "--state",
                       "--csv", "--markdown", "--check", "--exhaustive-entry"))
            throw Error("no option " + name + "; see --help");
        if (++i == argc) throw Error(name + " needs a value");
        const std::string value = argv[i];
        if (name == "--entry" || name == "--exhaustive-entry") {
            if (!find_function(value)) throw Error("no entry " + value);
            (name == "--entry" ? options.entries : options.exhausted_entries).push_back(value);
        }
        if (name == "--tier")
            options.tier = value.size() == 1 ? value[0] : throw Error("a tier is one letter");
        if (name == "--samples") read_number(value, options.amount.samples);
        if (name == "--radius") read_number(value, options.amount.radius);
        if (name == "--refine") read_number(value, options.amount.refinements);
        if (name == "--threads") {
            read_number(value, options.threads);
            options.threads = std::max(1u, options.threads);
        }
        if (name == "--state") options.state = value;
        if (name == "--csv") options.csv = value;
        if (name == "--markdown") options.markdown = value;
        if (name == "--check") options.check = value;
    }
    return options;
}

void show_progress(const Entry& entry, double share)
{
    static auto last = std::chrono::steady_clock::time_point{};
    const auto now = std::chrono::steady_clock::now();
    if (share < 1 && now - last < std::chrono::milliseconds(500)) return;
    last = now;
    std::fprintf(stderr, "\r%-14s %5.1f %%%s", entry.name.c_str(), 100 * share, share < 1 ? "" : "\n");
}

bool is_exhaustive(const Options& options, const Entry& entry)
{
    const bool is_named =
        std::ranges::find(options.exhausted_entries, entry.name) != options.exhausted_entries.end();
    return (options.exhaustive || is_named) && can_be_exhausted(entry);
}

std::string question(const Options& options, const Entry& entry, const Kernel& kernel)
{
    const auto arguments =
        survey_arguments(entry, *find_function(entry.name), {.samples = 20000, .radius = 4});
    return (is_exhaustive(options, entry)
                ? "exhaustive"
                : "samples " + std::to_string(options.amount.samples) + ", radius " +
                      std::to_string(options.amount.radius) + ", refined " +
                      std::to_string(options.amount.refinements) + " times") +
           ", results " + std::to_string(hash_of_results(entry, kernel, arguments));
}

void survey_entry(const Options& options, const Entry& entry, Rows& rows)
{
    const Function* const function = find_function(entry.name);
    if (!function) throw Error(entry.name + " has no row in the list of exact functions");
    const Store store(options.state);
    std::vector<Kernel> missing;
    for (const Kernel& kernel : entry.kernels)
        if ((!options.tier || kernel.tier == options.tier) &&
            store.read(entry, kernel, question(options, entry, kernel)).empty())
            missing.push_back(kernel);
    if (!missing.empty()) {
        const int refinements = is_exhaustive(options, entry) ? 0 : options.amount.refinements;
        // What all arguments show needs no neighbours; the sample is for the directed modes.
        Amount amount = options.amount;
        if (is_exhaustive(options, entry)) amount.radius = std::min(amount.radius, 1024);
        const auto arguments = survey_arguments(entry, *function, amount);
        auto surveys =
            measure(entry, *function, missing, arguments, refinements, options.threads, show_progress);
        if (is_exhaustive(options, entry))
            measure_exhaustively(entry, *function, missing, options.threads, show_progress, surveys);
        for (std::size_t i = 0; i < missing.size(); ++i)
            store.write(entry, missing[i], question(options, entry, missing[i]), surveys[i]);
    }
    for (const Kernel& kernel : entry.kernels)
        if (!options.tier || kernel.tier == options.tier) {
            const Rows kept = store.read(entry, kernel, question(options, entry, kernel));
            rows.insert(rows.end(), kept.begin(), kept.end());
        }
}

Rows survey(const Options& options)
{
    Rows rows;
    for (const Entry& entry : surveyed())
        if (options.entries.empty() ||
            std::ranges::find(options.entries, entry.name) != options.entries.end())
            survey_entry(options, entry, rows);
    if (rows.empty()) throw Error("no such kernels are built");
    return rows;
}

template <class Write>
void write_file(const std::string& name, const Rows& rows, Write write)
{
    if (name.empty()) return;
    std::ofstream out(name);
    write(out, rows);
    if (!out.flush()) throw Error("cannot write " + name);
}

// A smaller survey's arguments are among those of the published one, so that its errors cannot be larger
// unless something has changed; neighbours differ at the ends of its parts, for which a hundredth is allowed.
void check(const std::string& name, const Rows& rows)
{
    std::ifstream in(name);
    const Rows published = read_csv(in);
    if (published.empty()) throw Error(name + " is not a table of this kind");
    std::string failures;
    for (const auto& row : rows) {
        const auto same = std::ranges::find_if(published, [&](const auto& other) {
            return other[column_entry] == row[column_entry] && other[column_tier] == row[column_tier] &&
                   other[column_path] == row[column_path];
        });
        const std::string what = row[column_entry] + '.' + row[column_tier] + ", " + row[column_path] + ": ";
        if (same == published.end()) {
            failures += what + "not published\n";
            continue;
        }
        const auto is_larger = [&](std::size_t column) {
            return row[column] != "-" && std::stod(row[column]) > std::stod((*same)[column]) * 1.01 + 0.001;
        };
        // Errors of many ulp in a directed mode are those next to a zero of the function, and no two samples'
        // the same.
        constexpr double most_that_counts = 16;
        for (const std::size_t column : {column_max_ulp, column_down, column_up, column_zero})
            if (is_larger(column) &&
                (column == column_max_ulp || std::stod((*same)[column]) < most_that_counts))
                failures +=
                    what + headings()[column] + ' ' + row[column] + ", published " + (*same)[column] + '\n';
        if (row[column_wrong] != "0" && (*same)[column_wrong] == "0")
            failures += what + "a NaN, an infinity or a sign at " + row[column_wrong_argument] + '\n';
        if (row[column_changed] != "0" && row[column_changed] != "-" && (*same)[column_changed] == "0")
            failures += what + "bits that depend on the neighbours\n";
    }
    if (!failures.empty()) throw Error("errors that are not published\n" + failures);
}

// Those with an axis of arguments.
void print_families()
{
    const char* family = "";
    for (const Function& function : functions()) {
        const bool is_single_argument = function.pairs == Pairs::none;
        const Entry* const entry = find_surveyed(function.entry);
        const bool has_errors = std::string_view(function.family) != "rounding";
        if (!is_single_argument || !has_errors || !entry || is_complex(entry->lanes) ||
            is_scalar(entry->lanes))
            continue;
        if (std::string(family) != function.family) {
            std::string file = function.family;
            std::ranges::replace(file, ' ', '_');
            std::printf("%s%s\t%c%s\t", *family ? "\n" : "", file.c_str(), std::toupper(function.family[0]),
                        function.family + 1);
        }
        family = function.family;
        std::printf("%s ", function.entry);
    }
    std::puts("");
}

void run(const Options& options)
{
    const Rows rows = survey(options);
    write_file(options.csv, rows, write_csv);
    write_file(options.markdown, rows, write_markdown);
    if (options.csv.empty() && options.markdown.empty() && options.check.empty()) write_csv(std::cout, rows);
    if (!options.check.empty()) check(options.check, rows);
}

} // namespace

} // namespace zelk::accuracy

int main(int argc, char** argv)
{
    using namespace zelk::accuracy;
    try {
        const Options options = read_options(argc, argv);
        if (options.help)
            std::fputs(help, stdout);
        else if (options.families)
            print_families();
        else
            run(options);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "zelk-accuracy: %s\n", error.what());
        return 2;
    }
    return 0;
}
