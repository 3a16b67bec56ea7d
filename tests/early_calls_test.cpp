// Calls where little is set up or something else is going on: before main, from constructors of static
// objects, and from a signal handler that interrupts other calls.
#include "call.h"
#include "entries.h"

#include <gtest/gtest.h>
#include <sys/time.h>

#include <atomic>
#include <csignal>
#include <vector>

namespace zelk::test {
namespace {

struct Expectation {
    const void* dispatcher;
    Vec128 a;
    Vec128 b;
    Result result;
};

Vec128 lanes(const Entry& entry, int shift)
{
    switch (entry.lanes) {
    case Lanes::d2:
        return doubles(0.75 + shift, -1e10);
    case Lanes::i4:
    case Lanes::u4:
        return words(1000000007, 77, 0xFFFFFFFF, 12345 + static_cast<std::uint32_t>(shift));
    default:
        return floats(0.75f, -1e10f, 1e-40f,
                      3.0f + static_cast<float>(shift)); // special lanes in most functions
    }
}

std::vector<Expectation> call_everything()
{
    std::vector<Expectation> list;
    alignas(16) Vec128 stored;
    for (const Entry& entry : entries()) {
        const Vec128 a = lanes(entry, 0);
        const Vec128 b = lanes(entry, 2);
        list.push_back({entry.address, a, b, call(entry.address, a, b, {}, &stored)});
    }
    return list;
}

bool gives_the_same(const Expectation& expected)
{
    alignas(16) Vec128 stored;
    const Result result = call(expected.dispatcher, expected.a, expected.b, {}, &stored);
    return same_bits(result.first, expected.result.first) && result.flags == expected.result.flags;
}

// The first calls of the process, before main and before the indicator is known.
const std::vector<Expectation> before_main = call_everything();

TEST(EarlyCalls, ConstructorsOfStaticObjectsMayCall)
{
    const std::vector<Expectation> now = call_everything();
    ASSERT_EQ(before_main.size(), now.size());
    for (std::size_t i = 0; i < now.size(); ++i)
        EXPECT_TRUE(same_bits(before_main[i].result.first, now[i].result.first)) << entries()[i].name;
}

volatile std::sig_atomic_t calls_in_handler = 0;
volatile std::sig_atomic_t failures_in_handler = 0;

extern "C" void call_from_handler(int)
{
    static std::size_t next = 0;
    for (int i = 0; i < 8; ++i) {
        failures_in_handler = failures_in_handler + !gives_the_same(before_main[next++ % before_main.size()]);
        calls_in_handler = calls_in_handler + 1;
    }
}

TEST(EarlyCalls, SignalHandlersMayCall)
{
    struct sigaction action = {};
    action.sa_handler = call_from_handler;
    action.sa_flags = SA_RESTART;
    ASSERT_EQ(sigaction(SIGALRM, &action, nullptr), 0);
    const itimerval often = {{0, 500}, {0, 500}};
    ASSERT_EQ(setitimer(ITIMER_REAL, &often, nullptr), 0);
    std::size_t failures = 0;
    for (int round = 0; round < 100000 && calls_in_handler < 4000; ++round)
        for (const Expectation& expected : before_main)
            failures += !gives_the_same(expected);
    const itimerval never = {};
    setitimer(ITIMER_REAL, &never, nullptr);
    EXPECT_GT(calls_in_handler, 100);
    EXPECT_EQ(failures, 0u);
    EXPECT_EQ(failures_in_handler, 0);
}

} // namespace
} // namespace zelk::test
