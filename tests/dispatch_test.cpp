// Which kernel a dispatcher reaches for which feature word. Every kernel of an entry gets a breakpoint as its
// first instruction; the trap handler notes which one was reached, with which arguments, and returns to the
// caller.
#include "call.h"
#include "entries.h"
#include "scalar_call.h"

#include "brava.h"

#include <cpuid.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <ucontext.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstring>
#include <map>
#include <thread>
#include <vector>

namespace zelk::test {
namespace {

// A word that is set for the life of the object.
class Indicator {
public:
    explicit Indicator(std::uint32_t word) : saved_(__brava_cpu_indicator) { __brava_cpu_indicator = word; }
    ~Indicator() { __brava_cpu_indicator = saved_; }

private:
    std::uint32_t saved_;
};

std::uintptr_t reached = 0;

extern "C" void zelk_return_to_caller();
asm(".globl zelk_return_to_caller\n.hidden zelk_return_to_caller\nzelk_return_to_caller: ret");

void on_trap(int, siginfo_t*, void* context)
{
    auto& registers = static_cast<ucontext_t*>(context)->uc_mcontext.gregs;
#if defined(__x86_64__)
    auto& instruction = registers[REG_RIP];
#else
    auto& instruction = registers[REG_EIP];
#endif
    reached = static_cast<std::uintptr_t>(instruction) - 1;
    instruction = static_cast<greg_t>(reinterpret_cast<std::uintptr_t>(&zelk_return_to_caller));
}

class Breakpoints {
public:
    explicit Breakpoints(const Entry& entry)
    {
        for (const Kernel& kernel : entry.kernels) {
            auto* const code = static_cast<unsigned char*>(const_cast<void*>(kernel.address));
            open(code);
            saved_.emplace_back(code, *code);
            *code = 0xCC;
        }
    }
    ~Breakpoints()
    {
        for (const auto& [code, byte] : saved_)
            *code = byte;
    }

private:
    static void open(unsigned char* code)
    {
        const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
        auto* const start = reinterpret_cast<void*>(reinterpret_cast<std::uintptr_t>(code) & ~(page - 1));
        ASSERT_EQ(mprotect(start, page, PROT_READ | PROT_WRITE | PROT_EXEC), 0);
    }
    std::vector<std::pair<unsigned char*, unsigned char>> saved_;
};

char tier_reached(const Entry& entry, const Vec128& a, Result& result)
{
    reached = 0;
    result = call(entry.address, a, quads(5, 6), quads(7, 8));
    for (const Kernel& kernel : entry.kernels)
        if (reinterpret_cast<std::uintptr_t>(kernel.address) == reached) return kernel.tier;
    return '?';
}

class Dispatch : public testing::Test {
protected:
    void SetUp() override
    {
        struct sigaction action = {};
        action.sa_sigaction = on_trap;
        action.sa_flags = SA_SIGINFO;
        ASSERT_EQ(sigaction(SIGTRAP, &action, &saved_), 0);
    }
    void TearDown() override { sigaction(SIGTRAP, &saved_, nullptr); }
    struct sigaction saved_ = {};
};

void expect_tiers_by_level(const Entry& entry)
{
    std::vector<std::uint32_t> words = {0xFFFFFFFF, 0x000001FF, 0x000007FF, 0x00001FFF, 0x00003FFF};
    for (int bit = 0; bit < 32; ++bit)
        words.push_back(1u << bit);
    const Breakpoints breakpoints(entry);
    for (const std::uint32_t word : words) {
        const Indicator indicator(word);
        char expected = '?';
        for (const char tier : entry.tiers) {
            if (!(word & tier_mask(tier))) continue;
            expected = tier;
            break;
        }
        const Vec128 argument = quads(0x0123456789ABCDEF, 0xFEDCBA9876543210);
        Result result;
        EXPECT_EQ(tier_reached(entry, argument, result), expected)
            << entry.symbol << " word " << std::hex << word;
        // Nothing between the caller and the kernel touched the arguments: the breakpoint returned them.
        EXPECT_TRUE(same_bits(result.first, argument)) << entry.symbol;
        EXPECT_TRUE(same_bits(result.second, quads(5, 6))) << entry.symbol;
        EXPECT_EQ(result.flags, 0u) << entry.symbol;
    }
}

TEST_F(Dispatch, EveryEntryForEveryLevel)
{
    for (const Entry& entry : entries())
        expect_tiers_by_level(entry);
}

TEST_F(Dispatch, EveryScalarRoutineForEveryLevel)
{
    for (const ScalarEntry& scalar : scalar_entries()) {
        if (scalar.tiers.empty()) continue;
        std::vector<Kernel> kernels;
        for (const ScalarKernel& kernel : tier_kernels(scalar.name))
            kernels.push_back({kernel.symbol, kernel.tier, kernel.address});
        expect_tiers_by_level({scalar.name,
                               scalar.name,
                               Lanes::d,
                               1,
                               Results::one,
                               scalar.tiers,
                               MaskKind::Z,
                               {0, 0},
                               "",
                               exported(scalar.name),
                               "",
                               kernels});
    }
}

// The landmark rows of the dispatch table, spelled out so that a wrong list is seen.
TEST_F(Dispatch, KnownRows)
{
    struct Known {
        const char* entry;
        std::uint32_t word;
        char tier;
    };
#if defined(__x86_64__)
    const Known known[] = {{"sinf4", 0x800, 'L'},      {"sinf4", 0x80000000, 'L'},
                           {"sinf4", 0x7FF, 'A'},      {"powf4", 0xFFFFFFFF, 'A'},
                           {"sinh2", 0xFFFFFFFF, 'A'}, {"atan22", 0xFFFFFFFF, 'A'}};
#else
    const Known known[] = {{"cosf4", 0x2000, 'N'},      {"cosf4", 0x1800, 'L'}, {"cosf4", 0x600, 'J'},
                           {"cosf4", 0x1FF, 'A'},       {"erff4", 0x2000, 'L'}, {"ceilf4", 0x2000, 'J'},
                           {"sqrtf4", 0xFFFFFFFF, 'A'}, {"tanhf4", 0x600, 'A'}, {"cacosf2", 0xFFFFFFFF, 'A'},
                           {"round2", 0xFFFFFFFF, 'A'}};
#endif
    for (const Known& row : known) {
        if (!exported(std::string("__zelk_") + row.entry)) continue; // not written yet
        const Entry& candidate = entry(row.entry);
        const Breakpoints breakpoints(candidate);
        const Indicator indicator(row.word);
        Result result;
        EXPECT_EQ(tier_reached(candidate, {}, result), row.tier) << row.entry << ' ' << std::hex << row.word;
    }
}

// A process whose first vector call finds the word 0.
TEST(DispatchFirstCall, DeterminesTheFeatures)
{
    __brava_cpu_indicator_init();
    const std::uint32_t word = __brava_cpu_indicator;
    for (const Entry& entry : entries()) {
        const Vec128 a = entry.lanes == Lanes::d2 ? doubles(0.5, 0.25) : floats(0.5f, 0.25f, 0.75f, 0.125f);
        const Vec128 b = entry.lanes == Lanes::d2 ? doubles(2.5, 3.0) : floats(2.0f, 3.0f, 1.5f, 5.0f);
        alignas(16) Vec128 stored[2] = {};
        const Result expected = call(entry.address, a, b, {}, &stored[0]);
        const Indicator indicator(0);
        const Result result = call(entry.address, a, b, {}, &stored[1]);
        EXPECT_EQ(__brava_cpu_indicator, word) << entry.symbol;
        EXPECT_TRUE(same_bits(result.first, expected.first)) << entry.symbol;
        EXPECT_TRUE(same_bits(stored[0], stored[1])) << entry.symbol;
    }
}

TEST(DispatchFirstCall, FromSeveralThreadsAtOnce)
{
    __brava_cpu_indicator_init();
    const Entry& sine = entry("sinf4");
    const Vec128 a = floats(0.5f, 0.25f, 20000.0f, 1e20f);
    const Result expected = call(sine.address, a);
    for (int round = 0; round < 200; ++round) {
        const Indicator indicator(0);
        std::atomic<bool> go = false;
        std::atomic<int> wrong = 0;
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i)
            threads.emplace_back([&] {
                while (!go) {
                }
                for (int j = 0; j < 20; ++j)
                    if (!same_bits(call(sine.address, a).first, expected.first)) ++wrong;
            });
        go = true;
        for (std::thread& thread : threads)
            thread.join();
        ASSERT_EQ(wrong, 0);
    }
}

// The word means what brava.h says, by the processor's own account.
TEST(Brava, BitsMeanTheLevels)
{
    __brava_cpu_indicator_init();
    const std::uint32_t word = __brava_cpu_indicator;
    EXPECT_TRUE(word & 1);
    const std::pair<int, bool> levels[] = {
        {7, __builtin_cpu_supports("sse")},
        {9, __builtin_cpu_supports("sse2")},
        {11, __builtin_cpu_supports("sse3")},
        {12, __builtin_cpu_supports("ssse3")},
        {13, __builtin_cpu_supports("sse4.1")},
        {14, __builtin_cpu_supports("sse4.2") && __builtin_cpu_supports("popcnt")},
        {15, __builtin_cpu_supports("avx")},
    };
    bool lower = true;
    for (const auto& [bit, present] : levels) {
        lower = lower && present;
        EXPECT_EQ((word >> bit & 1) != 0, lower) << bit;
    }
    EXPECT_EQ(word & 0xFFFE0000, 0u);
}

TEST(Brava, InitPreservesTheArgumentRegisters)
{
    const Vec128 a = quads(0x1111111111111111, 0x2222222222222222);
    const Vec128 b = quads(0x3333333333333333, 0x4444444444444444);
    const Result result = call(reinterpret_cast<const void*>(&__brava_cpu_indicator_init), a, b);
    EXPECT_TRUE(same_bits(result.first, a));
    EXPECT_TRUE(same_bits(result.second, b));
#if defined(__x86_64__)
    std::uint64_t rdi = 1, rsi = 2, rdx = 3, rcx = 4;
    asm volatile("subq $128, %%rsp\n\tcall *%[init]\n\taddq $128, %%rsp"
                 : "+D"(rdi), "+S"(rsi), "+d"(rdx), "+c"(rcx)
                 : [init] "b"(&__brava_cpu_indicator_init)
                 : "memory", "cc");
    EXPECT_EQ(rdi, 1u);
    EXPECT_EQ(rsi, 2u);
    EXPECT_EQ(rdx, 3u);
    EXPECT_EQ(rcx, 4u);
#endif
}

} // namespace
} // namespace zelk::test
