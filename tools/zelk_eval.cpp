// zelk-eval: calls any entry of the library by name and shows what comes back, bit for bit.
#include "catalogue.h"
#include "columns.h"
#include "command.h"
#include "scalar_call.h"
#include "values.h"

#include "brava.h"

#include <algorithm>
#include <cstdio>

namespace zelk::eval {

namespace {

std::string spaced(std::string_view letters)
{
    std::string text;
    for (const char letter : letters)
        text += std::string(text.empty() ? "" : " ") + letter;
    return text;
}

const char* lanes_name(Lanes lanes)
{
    static constexpr const char* names[] = {"f4", "d2", "c2", "i4", "u4", "scalar"};
    return names[static_cast<unsigned>(lanes)];
}

void list_functions()
{
    std::vector<Column> columns = {{"name", {}},  {"lanes", {}},   {"arguments", {}}, {"results", {}},
                                   {"tiers", {}}, {"kernels", {}}, {"alias", {}},     {"masked", {}}};
    const auto add_row = [&](const Words& cells) {
        for (std::size_t i = 0; i < cells.size(); ++i)
            columns[i].cells.push_back(cells[i].empty() ? "-" : cells[i]);
    };
    for (const Entry& entry : entries()) {
        std::string kernels;
        for (const Kernel& kernel : entry.kernels)
            kernels += kernel.tier;
        static constexpr const char* results[] = {"1", "2", "1 + stored"};
        add_row({std::string(short_name(entry.symbol)), lanes_name(entry.lanes), std::to_string(entry.args),
                 results[static_cast<unsigned>(entry.results)], spaced(entry.tiers), spaced(kernels),
                 entry.alias, std::string(short_name(entry.masked))});
    }
    for (const ScalarEntry& scalar : scalar_entries())
        add_row({scalar.name, "scalar", scalar.signature.substr(2), scalar.signature.substr(0, 1),
                 spaced(scalar.tiers), spaced(scalar.tiers), "", ""});
    print(columns);
    std::puts("\ntiers: what the dispatcher tries, in this order. Lanes: f4 four binary32, d2 two binary64,\n"
              "c2 two complex binary32, i4 and u4 four 32-bit integers; scalars: f binary32, d binary64, l "
              "extended.");
}

// The values of each argument. Commas separate arguments, as words of their own or within one.
std::vector<Words> split_arguments(std::span<const std::string> words, std::size_t count,
                                   const std::string& name)
{
    std::vector<Words> arguments(1);
    for (const std::string& word : words) {
        std::size_t begin = 0;
        for (std::size_t comma = word.find(','); comma != std::string::npos; comma = word.find(',', begin)) {
            if (comma > begin) arguments.back().push_back(word.substr(begin, comma - begin));
            arguments.emplace_back();
            begin = comma + 1;
        }
        if (begin < word.size() || word.empty()) arguments.back().push_back(word.substr(begin));
    }
    if (count > 1 && arguments.size() == 1 && words.size() == count) {
        arguments.clear();
        for (const std::string& word : words)
            arguments.push_back({word});
    }
    const bool complete = std::ranges::none_of(arguments, [](const Words& values) { return values.empty(); });
    if (arguments.size() != count || !complete)
        throw Error(name + " takes " + std::to_string(count) +
                    (count == 1 ? " argument: one value or one for each lane"
                                : " arguments: one value each, or the lanes of each with a comma between"));
    return arguments;
}

using LaneReader = void (*)(const std::string&, Lanes, Vec128&, unsigned);

Vec128 read_lanes(const Words& values, Lanes lanes, LaneReader read)
{
    const unsigned count = lane_count(lanes);
    if (values.size() > count)
        throw Error(std::to_string(values.size()) + " values for " + std::to_string(count) + " lanes");
    const unsigned step = lanes == Lanes::c2 && values.size() > 1 ? 2 : 1;
    const auto given = static_cast<unsigned>(values.size());
    if (given % step != 0) throw Error("a complex lane is a pair: real part, imaginary part");
    Vec128 v;
    for (unsigned lane = 0; lane < count; ++lane)
        read(values[lane < given ? lane : given - step + lane % step], lanes, v, lane);
    return v;
}

// What to call: under which name, and in words which tier runs.
struct Choice {
    std::string symbol;
    std::string tier;
};

Choice choose(const Callable& callable, char wanted_tier)
{
    if (wanted_tier && callable.masked)
        throw Error(callable.symbol +
                    " always goes through the dispatcher; --tier is for the plain function");
    if (wanted_tier && callable.tier && callable.tier != wanted_tier)
        throw Error(callable.symbol + " is a kernel of tier " + callable.tier);
    const std::string& tiers = callable.entry ? callable.entry->tiers : callable.scalar->tiers;
    if (tiers.empty() && !wanted_tier) return {callable.symbol, "one implementation without tiers"};

    const char tier = wanted_tier ? wanted_tier : callable.tier;
    const std::string& function = callable.entry ? callable.entry->symbol : callable.scalar->name;
    const std::string kernel = function + '.' + tier;
    if (tier && !exported(kernel))
        throw Error("there is no " + kernel + "; zelk-eval --list shows the kernels of each function");
    if (tier && !(__brava_cpu_indicator & tier_mask(tier)))
        throw Error(std::string("this processor lacks the instructions of tier ") + tier);

    char word[16];
    std::snprintf(word, sizeof word, "0x%08X", static_cast<unsigned>(__brava_cpu_indicator));
    const std::string selected(1, selected_tier(tiers, __brava_cpu_indicator));
    const std::string of_which = " of " + spaced(tiers) + " for feature word " + word;
    if (!tier) return {callable.symbol, "tier " + selected + ", the dispatcher's choice" + of_which};
    return {kernel, std::string("tier ") + tier + "; the dispatcher's choice is " + selected + of_which};
}

void print_heading(const Choice& choice, Rounding rounding)
{
    std::printf("%s: %s; rounding %s\n", choice.symbol.c_str(), choice.tier.c_str(), rounding_name(rounding));
}

// Two columns: decimal and bits.
void add_lanes(std::vector<Column>& columns, const char* heading, const Vec128& v, Lanes lanes)
{
    Column decimals{heading, {}};
    Column patterns{"", {}};
    for (unsigned lane = 0; lane < lane_count(lanes); ++lane) {
        decimals.cells.push_back(lane_decimal(v, lanes, lane));
        patterns.cells.push_back(lane_bits(v, lanes, lane));
    }
    columns.push_back(std::move(decimals));
    columns.push_back(std::move(patterns));
}

void evaluate_vector(const Callable& callable, const Choice& choice, const Command& command)
{
    const Entry& entry = *callable.entry;
    const auto values = std::span(command.words).subspan(1);
    const auto count = static_cast<std::size_t>(entry.args) + callable.masked;
    const auto arguments = split_arguments(values, count, callable.symbol);

    static constexpr const char* complex_lanes[] = {"re 0", "im 0", "re 1", "im 1"};
    Vec128 in[3];
    std::vector<Column> columns(1, {"lane", {}});
    for (unsigned lane = 0; lane < lane_count(entry.lanes); ++lane)
        columns[0].cells.push_back(entry.lanes == Lanes::c2 ? complex_lanes[lane] : std::to_string(lane));
    for (std::size_t i = 0; i < count; ++i) {
        const bool is_mask = callable.masked && i == count - 1;
        in[i] = read_lanes(arguments[i], entry.lanes, is_mask ? parse_mask_lane : parse_lane);
        add_lanes(columns, i == 0 ? "x" : "y", in[i], entry.lanes);
        if (!is_mask) continue;
        columns.erase(columns.end() - 2);
        columns.back().heading = "mask";
    }

    alignas(16) Vec128 stored;
    const Result result = call(exported(choice.symbol), in[0], in[1], in[2], &stored, command.rounding);
    add_lanes(columns, "result", result.first, entry.lanes);
    if (entry.results != Results::one) add_lanes(columns, "second result", result.second, entry.lanes);
    if (entry.results == Results::pointer) add_lanes(columns, "stored", stored, entry.lanes);
    print_heading(choice, command.rounding);
    print(columns);
    std::printf("flags: %s\n", flag_names(result.flags).c_str());
}

void evaluate_scalar(const Callable& callable, const Choice& choice, const Command& command)
{
    const std::string& signature = callable.scalar->signature;
    const auto count = scalar_arguments(signature);
    if (!count) throw Error(callable.symbol + " has the form " + signature + ", which zelk-eval cannot call");
    Words values;
    for (const Words& argument :
         split_arguments(std::span(command.words).subspan(1), *count, callable.symbol)) {
        if (argument.size() != 1)
            throw Error(callable.symbol + " is a scalar routine: one value for each argument");
        values.push_back(argument[0]);
    }
    const ScalarOutcome outcome = call_scalar(exported(choice.symbol), signature, values, command.rounding);
    std::vector<Column> columns;
    const auto add = [&](const char* heading, const Shown& value) {
        columns.push_back({heading, {value.decimal}});
        columns.push_back({"", {value.bits}});
    };
    for (std::size_t i = 0; i < *count; ++i)
        add(i == 0 ? "x" : "y", outcome.arguments[i]);
    static constexpr const char* headings[] = {"result", "second result", "third result"};
    for (std::size_t i = 0; i < outcome.results.size(); ++i)
        add(headings[i], outcome.results[i]);
    print_heading(choice, command.rounding);
    print(columns);
    std::printf("flags: %s\n", flag_names(outcome.flags).c_str());
}

void evaluate(const Command& command)
{
    const std::string& name = command.words[0];
    const Callable* const callable = find(name);
    if (!callable) {
        std::string message = "no function is called '" + name + "'";
        const auto similar = similar_names(name);
        for (std::size_t i = 0; i < similar.size(); ++i)
            message += (i == 0 ? "; did you mean " : i + 1 == similar.size() ? " or " : ", ") + similar[i];
        throw Error(message + (similar.empty() ? "; --list shows them all" : "?"));
    }
    const Choice choice = choose(*callable, command.tier);
    callable->entry ? evaluate_vector(*callable, choice, command)
                    : evaluate_scalar(*callable, choice, command);
}

} // namespace

} // namespace zelk::eval

int main(int argc, char** argv)
{
    using namespace zelk::eval;
    try {
        __brava_cpu_indicator_init();
        const Command command = read_command(argc, argv);
        if (command.help) {
            std::fputs(help, stdout);
        } else if (command.list) {
            list_functions();
        } else if (command.words.empty()) {
            throw Error("no function named; see zelk-eval --help");
        } else {
            evaluate(command);
        }
    } catch (const Error& error) {
        std::fprintf(stderr, "zelk-eval: %s\n", error.what());
        return 2;
    }
    return 0;
}
