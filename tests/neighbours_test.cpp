// Which kernels compute a lane differently beside other lanes: docs/data/neighbours_<target>.txt has their
// names, each with the first case found, and the reference pages say so. All other kernels give a lane the
// same bits (but for NaNs) whatever stands beside it, over pairs of values from every path of every function.
//
// A change that is meant: run this program with --write and print the reference pages anew.
#include "call.h"
#include "entries.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <fstream>
#include <limits>
#include <map>
#include <set>
#include <vector>

namespace zelk::test {
namespace {

const std::string neighbours_file = NEIGHBOURS;

// A lane of two arguments; of a complex function, real and imaginary parts of both.
struct LaneArguments {
    std::uint64_t part[4];
};

// Zeros, subnormals, the range where functions do their work, huge values of several sizes, infinities, a
// NaN; of either sign, each moved a little by `variant`.
std::vector<std::uint64_t> values(Lanes lanes, int variant)
{
    static const double numbers[] = {0,
                                     1e-310,
                                     1e-41,
                                     1e-38,
                                     1e-30,
                                     1e-9,
                                     1e-4,
                                     0.03,
                                     0.2,
                                     0.4375,
                                     0.5,
                                     0.6,
                                     0.75,
                                     0.97,
                                     1,
                                     1.01,
                                     1.3,
                                     1.7,
                                     2.3,
                                     2.9,
                                     5,
                                     9,
                                     12,
                                     21,
                                     40,
                                     75,
                                     86,
                                     87,
                                     88,
                                     100,
                                     104,
                                     300,
                                     700,
                                     709,
                                     740,
                                     800,
                                     9000,
                                     2e4,
                                     1.3e5,
                                     2e5,
                                     1e6,
                                     3e7,
                                     2e9,
                                     1e10,
                                     1e15,
                                     1e19,
                                     1e30,
                                     3e38,
                                     1e200,
                                     1e308,
                                     std::numeric_limits<double>::infinity(),
                                     std::numeric_limits<double>::quiet_NaN()};
    std::vector<std::uint64_t> bits;
    for (const double number : numbers)
        for (const double sign : {1.0, -1.0}) {
            const double x = number * (1 + 0.0206125 * variant);
            if (lanes == Lanes::d2)
                bits.push_back(std::bit_cast<std::uint64_t>(sign * x));
            else if (lanes == Lanes::i4 || lanes == Lanes::u4)
                bits.push_back(x < 2e9 ? static_cast<std::uint32_t>(static_cast<std::int32_t>(sign * x))
                                       : 0x80000000);
            else
                bits.push_back(std::bit_cast<std::uint32_t>(static_cast<float>(sign * x)));
        }
    return bits;
}

std::vector<LaneArguments> lane_arguments(const Entry& entry, int variant)
{
    const std::vector<std::uint64_t> all = values(entry.lanes, variant);
    const auto value = [&](std::size_t i) { return all[i % all.size()]; };
    std::vector<LaneArguments> list;
    const bool one_number = entry.args == 1 && entry.lanes != Lanes::c2;
    for (std::size_t i = 0; i < all.size() * (one_number ? 1 : 3); ++i)
        list.push_back(
            {{value(i), value(i * 7 + i / all.size() + 5), value(i * 11 + 30), value(i * 5 + 17)}});
    return list;
}

struct Vectors {
    Vec128 x, y;
};

void set_lane(Vectors& v, Lanes lanes, unsigned lane, const LaneArguments& a)
{
    if (lanes == Lanes::d2) {
        v.x.q[lane] = a.part[0];
        v.y.q[lane] = a.part[1];
    } else if (lanes == Lanes::c2) {
        for (unsigned i = 0; i < 2; ++i) {
            v.x.u[2 * lane + i] = static_cast<std::uint32_t>(a.part[i]);
            v.y.u[2 * lane + i] = static_cast<std::uint32_t>(a.part[2 + i]);
        }
    } else {
        v.x.u[lane] = static_cast<std::uint32_t>(a.part[0]);
        v.y.u[lane] = static_cast<std::uint32_t>(a.part[1]);
    }
}

unsigned numbers_in(Lanes lanes)
{
    return lanes == Lanes::d2 || lanes == Lanes::c2 ? 2 : 4;
}

bool same_word(Lanes lanes, std::uint32_t a, std::uint32_t b)
{
    const auto is_nan = [](std::uint32_t x) { return (x & 0x7FFFFFFF) > 0x7F800000; };
    return a == b || (lanes != Lanes::i4 && lanes != Lanes::u4 && is_nan(a) && is_nan(b));
}

bool same_lane(Lanes lanes, unsigned lane, const Vec128& a, const Vec128& b)
{
    if (lanes == Lanes::d2)
        return a.q[lane] == b.q[lane] || (a.d[lane] != a.d[lane] && b.d[lane] != b.d[lane]);
    if (lanes == Lanes::c2)
        return same_word(lanes, a.u[2 * lane], b.u[2 * lane]) &&
               same_word(lanes, a.u[2 * lane + 1], b.u[2 * lane + 1]);
    return same_word(lanes, a.u[lane], b.u[lane]);
}

// The first case found; empty if there is none.
std::string influence(const Entry& entry, const Kernel& kernel)
{
    const std::vector<LaneArguments> neighbours = lane_arguments(entry, 0);
    std::vector<LaneArguments> list;
    for (int variant = 0; variant < 15; ++variant)
        for (const LaneArguments& a : lane_arguments(entry, variant))
            list.push_back(a);
    const unsigned lanes = numbers_in(entry.lanes);
    alignas(16) Vec128 stored;
    for (const LaneArguments& a : list) {
        Vectors everywhere;
        for (unsigned lane = 0; lane < lanes; ++lane)
            set_lane(everywhere, entry.lanes, lane, a);
        const Result alone = call(kernel.address, everywhere.x, everywhere.y, {}, &stored);
        for (std::size_t j = 0; j < neighbours.size(); j += 3) {
            const unsigned lane = static_cast<unsigned>(j) % lanes;
            Vectors mixed;
            for (unsigned other = 0; other < lanes; ++other)
                set_lane(mixed, entry.lanes, other, other == lane ? a : neighbours[j]);
            const Result beside = call(kernel.address, mixed.x, mixed.y, {}, &stored);
            const bool same =
                same_lane(entry.lanes, lane, alone.first, beside.first) &&
                (entry.results == Results::one || same_lane(entry.lanes, lane, alone.second, beside.second));
            if (!same)
                return "lane " + std::to_string(lane) + " of " + hex(mixed.x) +
                       (entry.args == 2 ? hex(mixed.y) : "");
        }
    }
    return "";
}

std::map<std::string, std::string> measured()
{
    std::map<std::string, std::string> influenced;
    for (const Entry& entry : entries())
        for (const Kernel& kernel : entry.kernels) {
            const std::string example = influence(entry, kernel);
            if (!example.empty()) influenced[kernel.symbol] = example;
        }
    return influenced;
}

TEST(Neighbours, InfluenceWhatThePagesSay)
{
    std::ifstream file(neighbours_file);
    ASSERT_TRUE(file) << neighbours_file;
    std::set<std::string> committed;
    for (std::string line; std::getline(file, line);)
        committed.insert(line.substr(0, line.find(' ')));
    const auto actual = measured();
    for (const auto& [symbol, example] : actual)
        EXPECT_TRUE(committed.contains(symbol)) << symbol << ": " << example;
    for (const std::string& symbol : committed)
        EXPECT_TRUE(actual.contains(symbol)) << symbol << " gives every lane the same bits";
}

} // namespace

void write_neighbours()
{
    std::ofstream file(neighbours_file);
    for (const auto& [symbol, example] : measured())
        file << symbol << ' ' << example << '\n';
}

} // namespace zelk::test

int main(int argc, char** argv)
{
    if (argc > 1 && std::strcmp(argv[1], "--write") == 0) {
        zelk::test::write_neighbours();
        return 0;
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
