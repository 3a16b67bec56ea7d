// The tables of docs/special_values: what every kernel gives for special arguments, in every lane beside
// ordinary ones and in all, and the loud flags that it raises for them.
//
// The tables are written by this program with --write, for review before they are committed: rows that differ
// from IEEE 754 and C's Annex F say so, and the functions' pages say why.
#include "call.h"
#include "entries.h"
#include "exact.h"
#include "functions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <fstream>
#include <limits>
#include <map>
#include <optional>
#include <sstream>

namespace zelk::test {
namespace {

using accuracy::find_function;
using accuracy::Function;

const std::string table_file = SPECIAL_VALUES;
constexpr char separator = ';'; // between arguments of one row

// The lanes' numbers by name. Lanes of binary32 are in the low half.
class Names {
public:
    explicit Names(Lanes lanes) : lanes_(lanes) {}
    bool is_double() const { return lanes_ == Lanes::d2; }
    bool is_integer() const { return lanes_ == Lanes::i4 || lanes_ == Lanes::u4; }

    std::uint64_t bits(const std::string& name) const
    {
        static const std::map<std::string, std::pair<std::uint32_t, std::uint64_t>> nans = {
            {"NaN", {0x7FC00000, 0x7FF8000000000000}},
            {"-NaN", {0xFFC12345, 0xFFF8000012345678}},
            {"sNaN", {0x7FA00000, 0x7FF4000000000000}}};
        const auto nan = nans.find(name);
        if (nan != nans.end()) return is_double() ? nan->second.second : nan->second.first;
        if (is_integer()) return static_cast<std::uint32_t>(std::stoll(name));
        if (is_double()) return std::bit_cast<std::uint64_t>(std::strtod(name.c_str(), nullptr));
        return std::bit_cast<std::uint32_t>(std::strtof(name.c_str(), nullptr));
    }
    std::string name(std::uint64_t bits) const
    {
        char text[40];
        const auto low = static_cast<std::uint32_t>(bits);
        if (is_integer())
            return lanes_ == Lanes::i4 ? std::to_string(std::bit_cast<std::int32_t>(low))
                                       : std::to_string(low);
        if (is_double())
            std::snprintf(text, sizeof text, "%+.17g", std::bit_cast<double>(bits));
        else
            std::snprintf(text, sizeof text, "%+.9g", static_cast<double>(std::bit_cast<float>(low)));
        if (!std::strstr(text, "nan")) return text;
        const std::uint64_t quiet = is_double() ? std::uint64_t{1} << 51 : std::uint64_t{1} << 22;
        return bits & quiet ? "NaN" : "sNaN";
    }

private:
    Lanes lanes_;
};

unsigned parts_of(const Entry& entry) // lanes of one argument
{
    return entry.lanes == Lanes::c2 ? 2 : 1;
}
unsigned places_of(const Entry& entry)
{
    return lane_count(entry.lanes) / parts_of(entry);
}

void set(const Entry& entry, Vec128& v, unsigned lane, std::uint64_t bits)
{
    if (entry.lanes == Lanes::d2)
        v.q[lane] = bits;
    else
        v.u[lane] = static_cast<std::uint32_t>(bits);
}

// "x", "x , y" for two arguments, "x + y i" for complex ones.
struct Special {
    std::string x;
    std::string y;
    std::string text(const Entry& entry) const
    {
        if (parts_of(entry) == 2) return x + ' ' + y + 'i';
        return entry.args == 2 ? x + " , " + y : x;
    }
    static Special read(const Entry& entry, const std::string& text)
    {
        std::istringstream in(text);
        Special special;
        in >> special.x >> special.y;
        if (special.y == ",") in >> special.y;
        if (parts_of(entry) == 2) special.y.pop_back();
        return special;
    }
};

void put(const Entry& entry, Vec128& a, Vec128& b, unsigned place, const Special& special)
{
    const Names names(entry.lanes);
    if (parts_of(entry) == 2) {
        set(entry, a, 2 * place, names.bits(special.x));
        set(entry, a, 2 * place + 1, names.bits(special.y));
        return;
    }
    set(entry, a, place, names.bits(special.x));
    if (entry.args == 2) set(entry, b, place, names.bits(special.y));
}

// An argument in the function's domain that raises nothing loud.
Special ordinary(const Entry& entry)
{
    if (Names(entry.lanes).is_integer()) return {"9", "4"};
    return {entry.substitute[0] > 1 ? "2.5" : "0.75", "0.5"};
}

struct Outcome {
    std::string result;
    std::string flags;
    auto operator<=>(const Outcome&) const = default;
};

// Place beyond the last: the special argument everywhere.
Outcome outcome(const Entry& entry, const Kernel& kernel, const Special& special, unsigned place,
                Rounding rounding)
{
    Vec128 a;
    Vec128 b;
    alignas(16) Vec128 stored;
    for (unsigned i = 0; i < places_of(entry); ++i)
        put(entry, a, b, i, place == places_of(entry) || place == i ? special : ordinary(entry));
    const Result result = call(kernel.address, a, b, {}, &stored, rounding);
    const Names names(entry.lanes);
    const unsigned lane = place % places_of(entry) * parts_of(entry);
    const auto lane_name = [&](const Vec128& v, unsigned i) {
        return names.name(entry.lanes == Lanes::d2 ? v.q[i] : v.u[i]);
    };
    std::string text = lane_name(result.first, lane);
    if (parts_of(entry) == 2) text += ' ' + lane_name(result.first, lane + 1) + 'i';
    if (entry.results != Results::one) text += " , " + lane_name(result.second, lane);
    return {text, flag_names(result.flags & loud_flags)};
}

// What IEEE 754 asks for, where the exact result says it: nothing for other results.
std::optional<Outcome> ideal(const Entry& entry, const Special& special)
{
    const Function& function = *find_function(entry.name);
    const Names names(entry.lanes);
    if (names.is_integer() || parts_of(entry) == 2 || entry.results != Results::one) return {};
    const auto value = [&](const std::string& name) {
        return name.find("NaN") != std::string::npos ? NAN : std::strtod(name.c_str(), nullptr);
    };
    const bool has_signalling = special.x == "sNaN" || special.y == "sNaN";
    Exact x(53);
    Exact y(53);
    Exact exact(accuracy::precision_of(accuracy::format_of(entry.lanes)));
    mpfr_set_d(x.value, value(special.x), MPFR_RNDN);
    mpfr_set_d(y.value, entry.args == 2 ? value(special.y) : 0, MPFR_RNDN);
    function.evaluate(exact.value, exact.value, x.value, y.value);
    const bool has_nan = mpfr_nan_p(x.value) || mpfr_nan_p(y.value);
    const bool is_finite = mpfr_number_p(x.value) && mpfr_number_p(y.value);
    unsigned flags = 0;
    if (has_signalling || (mpfr_nan_p(exact.value) && !has_nan)) flags = flag_invalid;
    // MPFR, too, has a largest number; the functions that reach it by growing have poles at zeros only.
    const std::string_view family = function.family;
    const bool grows =
        family == "exponentials" || family == "hyperbolic" || (family == "powers" && !mpfr_zero_p(x.value));
    if (mpfr_inf_p(exact.value) && is_finite) flags = grows ? flag_overflow : flag_divide_by_zero;
    std::string text = "NaN";
    if (entry.lanes == Lanes::d2) {
        const double rounded = mpfr_get_d(exact.value, MPFR_RNDN);
        if (std::isinf(rounded) && mpfr_number_p(exact.value)) flags = flag_overflow;
        if (!std::isnan(rounded)) text = names.name(std::bit_cast<std::uint64_t>(rounded));
    } else {
        const float rounded = mpfr_get_flt(exact.value, MPFR_RNDN);
        if (std::isinf(rounded) && mpfr_number_p(exact.value)) flags = flag_overflow;
        if (!std::isnan(rounded)) text = names.name(std::bit_cast<std::uint32_t>(rounded));
    }
    return Outcome{text, flag_names(flags)};
}

// ---- The tables

struct Row {
    std::vector<Special> specials;
    Outcome expected;
    bool all_modes;    // or round to nearest alone
    std::string tiers; // letters
};

bool is_special(const std::string& name)
{
    return name.find("NaN") != std::string::npos || name.find("inf") != std::string::npos || name == "+0" ||
           name == "-0";
}

std::vector<Special> candidates(const Entry& entry)
{
    const Names names(entry.lanes);
    std::vector<std::string> values = {"+0", "-0", "+inf", "-inf", "NaN", "-NaN", "sNaN"};
    if (names.is_integer()) values = {"0", "1", "7"};
    if (entry.lanes == Lanes::i4) values.insert(values.end(), {"-1", "-7", "2147483647", "-2147483648"});
    if (entry.lanes == Lanes::u4) values.insert(values.end(), {"2147483648", "4294967295"});
    std::vector<Special> list;
    if (entry.args == 1 && parts_of(entry) == 1) {
        const auto add = [&](double x) {
            const auto bits = entry.lanes == Lanes::d2 ? std::bit_cast<std::uint64_t>(x)
                                                       : std::bit_cast<std::uint32_t>(static_cast<float>(x));
            values.push_back(names.name(bits));
            values.push_back(
                names.name(bits ^ (entry.lanes == Lanes::d2 ? std::uint64_t{1} << 63 : 1u << 31)));
        };
        const bool is_double = entry.lanes == Lanes::d2;
        add(1);
        for (const auto& edge : find_function(entry.name)->edges) {
            const auto value = static_cast<double>(edge.value);
            add(value);
            add(is_double ? std::nextafter(value, HUGE_VAL)
                          : static_cast<double>(std::nextafter(static_cast<float>(value), HUGE_VALF)));
        }
        add(is_double ? std::numeric_limits<double>::denorm_min() : 0x1p-149);
        add(is_double ? std::numeric_limits<double>::max() : 0x1.fffffep127);
        for (const std::string& value : values)
            if (std::ranges::find(list, value, &Special::x) == list.end()) list.push_back({value, ""});
        return list;
    }
    if (!names.is_integer()) values.insert(values.end(), {"+1", "-1", "+0.5", "+2", "-2", "-3", "-2.5"});
    if (parts_of(entry) == 2) values = {"+0", "-0", "+1", "-1", "+inf", "-inf", "NaN"};
    for (const std::string& x : values)
        for (const std::string& y : values)
            list.push_back({x, y});
    return list;
}

std::vector<Row> make_rows(const Entry& entry)
{
    using Key = std::tuple<std::string, bool, Outcome>; // tiers, modes, outcome
    std::vector<std::pair<Key, std::vector<Special>>> groups;
    for (const Special& special : candidates(entry)) {
        std::map<std::pair<bool, Outcome>, std::string> by_tier;
        for (const Kernel& kernel : entry.kernels) {
            const Outcome nearest = outcome(entry, kernel, special, 0, Rounding::nearest);
            bool all_modes = true;
            for (const Rounding rounding : all_roundings)
                all_modes = all_modes && outcome(entry, kernel, special, 0, rounding) == nearest;
            by_tier[{all_modes, nearest}] += kernel.tier;
        }
        for (const auto& [what, tiers] : by_tier) {
            const bool shown = is_special(special.x) || is_special(special.y) ||
                               is_special(what.second.result) || what.second.flags != "none" ||
                               Names(entry.lanes).is_integer();
            if (!shown) continue;
            const Key key{tiers, what.first, what.second};
            auto group = std::ranges::find(groups, key, &std::pair<Key, std::vector<Special>>::first);
            if (group == groups.end()) group = groups.insert(groups.end(), {key, {}});
            group->second.push_back(special);
        }
    }
    std::vector<Row> rows;
    for (const auto& [key, specials] : groups)
        rows.push_back({specials, std::get<2>(key), std::get<1>(key), std::get<0>(key)});
    for (Row& row : rows)
        if (row.tiers.size() == entry.kernels.size()) row.tiers = "all";
    return rows;
}

std::string differences(const Entry& entry, const Row& row)
{
    std::map<std::string, std::string> by_text;
    for (const Special& special : row.specials) {
        const auto wanted = ideal(entry, special);
        const bool is_settled = wanted && (is_special(wanted->result) || is_special(row.expected.result));
        if (!is_settled || *wanted == row.expected) continue;
        std::string text;
        if (wanted->result != row.expected.result) text = wanted->result;
        if (wanted->flags != row.expected.flags) text += (text.empty() ? "" : ", ") + wanted->flags;
        by_text[text] += (by_text[text].empty() ? "" : "; ") + special.text(entry);
    }
    std::string all;
    for (const auto& [text, specials] : by_text)
        all += (all.empty() ? "" : ". ") + text +
               (by_text.size() > 1 || specials.find(';') != std::string::npos || row.specials.size() > 1
                    ? " for " + specials
                    : "");
    return all;
}

std::vector<std::string> cells_of(const std::string& line)
{
    std::vector<std::string> cells;
    for (std::size_t begin = 1, end; (end = line.find(" |", begin)) != std::string::npos; begin = end + 2)
        cells.push_back(line.substr(begin + 1, end - begin - 1));
    return cells;
}

std::map<std::string, std::vector<Row>> read_tables()
{
    std::map<std::string, std::vector<Row>> tables;
    std::ifstream in(table_file);
    std::string line;
    std::string name;
    while (std::getline(in, line)) {
        if (line.starts_with("## ")) name = line.substr(3);
        if (name.empty() || !line.starts_with("| ") || line.starts_with("| arguments")) continue;
        const auto cells = cells_of(line);
        Row row{{}, {cells.at(1), cells.at(2)}, cells.at(3) == "all", cells.at(4)};
        std::istringstream specials(cells.at(0));
        for (std::string text; std::getline(specials, text, separator);)
            row.specials.push_back(Special::read(entry(name), text));
        tables[name].push_back(row);
    }
    return tables;
}

TEST(SpecialValues, AreThoseOfTheTables)
{
    const auto tables = read_tables();
    ASSERT_FALSE(tables.empty()) << table_file;
    for (const Entry& entry : entries()) {
        const auto table = tables.find(entry.name);
        ASSERT_NE(table, tables.end()) << entry.name << " has no table";
        for (const Row& row : table->second)
            for (const Special& special : row.specials)
                for (const Kernel& kernel : entry.kernels)
                    for (const Rounding rounding : all_roundings) {
                        if (row.tiers != "all" && row.tiers.find(kernel.tier) == std::string::npos) continue;
                        if (!row.all_modes && rounding != Rounding::nearest) continue;
                        for (unsigned place = 0; place <= places_of(entry); ++place) {
                            const Outcome got = outcome(entry, kernel, special, place, rounding);
                            ASSERT_EQ(got.result + ", " + got.flags,
                                      row.expected.result + ", " + row.expected.flags)
                                << kernel.symbol << " of " << special.text(entry) << " in place " << place
                                << ", rounding " << static_cast<unsigned>(rounding);
                        }
                    }
    }
}

} // namespace

// Every kernel on every special argument, for a look at how it goes about it.
void make_calls()
{
    for (const Entry& entry : entries())
        for (const Special& special : candidates(entry))
            for (const Kernel& kernel : entry.kernels)
                for (unsigned place = 0; place <= places_of(entry); ++place)
                    outcome(entry, kernel, special, place, Rounding::nearest);
}

void write_tables()
{
    std::ofstream out(table_file);
    out << "# Special values and flags\n\n"
           "Written by `special_values_test --write` and compared with every kernel by the test of that "
           "name: each\n"
           "argument in every lane beside ordinary ones, and in all lanes. Flags are the loud ones "
           "(invalid,\n"
           "divide-by-zero, overflow). NaN stands for any quiet NaN, sNaN for a signalling one. Modes: "
           "whether a row\n"
           "holds in every rounding mode or to nearest alone. The last column says what IEEE 754 and C's "
           "Annex F\n"
           "would give instead; the pages in [functions](../functions) say more.\n";
    for (const Entry& entry : entries()) {
        out << "\n## " << entry.name
            << "\n\n| arguments | result | raises | modes | tiers | IEEE 754 |\n|---|---|---|---|---|---|\n";
        for (const Row& row : make_rows(entry)) {
            out << "| ";
            for (std::size_t i = 0; i < row.specials.size(); ++i)
                out << (i == 0 ? "" : std::string(1, separator) + ' ') << row.specials[i].text(entry);
            out << " | " << row.expected.result << " | " << row.expected.flags << " | "
                << (row.all_modes ? "all" : "nearest") << " | " << row.tiers << " | "
                << differences(entry, row) << " |\n";
        }
    }
}

} // namespace zelk::test

int main(int argc, char** argv)
{
    if (argc > 1 && std::strcmp(argv[1], "--write") == 0) {
        zelk::test::write_tables();
        return 0;
    }
    if (argc > 1 && std::strcmp(argv[1], "--calls") == 0) {
        zelk::test::make_calls();
        return 0;
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
