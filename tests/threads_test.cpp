// Eight threads call everything at once, each in a rounding mode of its own, from the first call of a process
// on: the bits are those of one thread alone.
#include "call.h"
#include "entries.h"
#include "oracle.h"
#include "scalar_call.h"

#include "brava.h"

#include <gtest/gtest.h>

#include <barrier>
#include <functional>
#include <limits>
#include <string>
#include <thread>
#include <vector>

namespace zelk::test {
namespace {

// One call with its arguments; gives the bits of all its results.
struct Task {
    std::string name;
    std::function<std::vector<std::uint64_t>(Rounding)> bits;
};

// Any pattern, and numbers between 2^-6 and 2^6, where most functions do their work.
Vec128 arguments(Lanes lanes, Random& random, bool ordinary)
{
    const auto next = [&] { return random.next(); };
    if (!ordinary) return quads(next(), next());
    Vec128 v;
    if (lanes == Lanes::d2)
        for (auto& lane : v.q)
            lane = (next() & 1) << 63 | (1017 + next() % 12) << 52 | next() >> 12;
    else
        for (auto& lane : v.u)
            lane = static_cast<std::uint32_t>((next() & 1) << 31 | (121 + next() % 12) << 23 | next() >> 41);
    return v;
}

// `function` is the entry or its masked form, whose mask is then one of the random vectors.
void add_tasks(std::vector<Task>& tasks, const Entry& entry, const std::string& symbol, Random& random)
{
    const void* const function = exported(symbol);
    for (int i = 0; i < 24; ++i) {
        const Vec128 a = arguments(entry.lanes, random, i % 2);
        const Vec128 b = arguments(entry.lanes, random, i % 2);
        tasks.push_back({symbol, [&entry, function, a, b](Rounding rounding) {
                             alignas(16) Vec128 stored = {};
                             const Result result = call(function, a, b, b, &stored, rounding);
                             std::vector bits = {result.first.q[0], result.first.q[1]};
                             if (entry.results == Results::one) return bits;
                             const Vec128& second = entry.results == Results::two ? result.second : stored;
                             bits.insert(bits.end(), {second.q[0], second.q[1]});
                             return bits;
                         }});
    }
}

void add_tasks(std::vector<Task>& tasks, const ScalarKernel& kernel)
{
    const long double infinity = std::numeric_limits<long double>::infinity();
    for (const long double x : {0.3L, -0.9999L, 1.0001L, 2.5L, -45.0L, 300.0L, 0x1.8p63L, 1e300L, 1e-9L,
                                1e-310L, 0.0L, infinity, -std::numeric_limits<long double>::quiet_NaN()})
        tasks.push_back({kernel.symbol, [=](Rounding rounding) {
                             const ScalarResult result =
                                 call_scalar(kernel, argument_of(kernel, bits80(x), bits80(0.7L)),
                                             argument_of(kernel, bits80(1.7L), bits80(x)), {rounding, 64, 0});
                             std::vector<std::uint64_t> bits = {static_cast<std::uint32_t>(result.integer)};
                             if (kernel.signature[0] != 'i') bits.clear();
                             if (kernel.signature[0] == 'l')
                                 bits = {result.extended.significand, result.extended.sign_exponent};
                             if (kernel.signature[0] == 'd' || kernel.signature[0] == 'f')
                                 bits = {result.narrow};
                             if (kernel.signature[0] == 'z' || kernel.signature[0] == 'c')
                                 bits = {result.complex.re, result.complex.im};
                             for (const Bits80& stored : result.stored)
                                 bits.insert(bits.end(), {stored.significand, stored.sign_exponent});
                             return bits;
                         }});
}

std::vector<Task> everything()
{
    std::vector<Task> tasks;
    Random random(1);
    for (const Entry& entry : entries())
        for (const std::string& symbol : {entry.symbol, entry.masked})
            add_tasks(tasks, entry, symbol, random);
    for (const ScalarEntry& scalar : scalar_entries())
        add_tasks(tasks, scalar_kernels(scalar.name).front());
    return tasks;
}

TEST(Threads, SameBitsAsOneThread)
{
    constexpr std::size_t count = 8;
    __brava_cpu_indicator_init();
    const auto tasks = everything();
    std::vector<std::vector<std::uint64_t>> expected[std::size(all_roundings)];
    for (const Rounding rounding : all_roundings)
        for (const Task& task : tasks)
            expected[static_cast<unsigned>(rounding)].push_back(task.bits(rounding));

    // Completed by the last thread to arrive: everyone starts with an undetermined processor.
    std::barrier start(count, []() noexcept { __brava_cpu_indicator = 0; });
    std::vector<std::thread> threads;
    for (std::size_t thread = 0; thread < count; ++thread)
        threads.emplace_back([&, thread] {
            const Rounding rounding = all_roundings[thread % std::size(all_roundings)];
            const auto& own = expected[static_cast<unsigned>(rounding)];
            for (std::size_t round = 0; round < 10; ++round) {
                start.arrive_and_wait();
                // All begin with the same first call, then go on from places of their own.
                for (std::size_t i = 0; i < tasks.size(); ++i) {
                    const std::size_t at = i == 0 ? 0 : (i + thread * tasks.size() / count) % tasks.size();
                    EXPECT_EQ(tasks[at].bits(rounding), own[at]) << tasks[at].name;
                }
            }
        });
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace
} // namespace zelk::test
