// Every entry and every kernel of the list against the calling convention: preserved registers, control
// words, the x87 stack, the stack pointer, and what pointer entries store, on fast and special paths.
#include "call.h"
#include "entries.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <vector>

namespace zelk::test {
namespace {

struct Target {
    const Entry* entry;
    std::string symbol;
    const void* address;
};

std::vector<Target> targets()
{
    std::vector<Target> list;
    for (const Entry& entry : entries()) {
        list.push_back({&entry, entry.symbol, entry.address});
        for (const Kernel& kernel : entry.kernels)
            list.push_back({&entry, kernel.symbol, kernel.address});
    }
    return list;
}

// Lane values that between them take every path of every function: ordinary, zero, subnormal, negative, tiny,
// huge (several sizes), infinite, NaN, signalling.
std::vector<std::uint64_t> lane_values(Lanes lanes)
{
    std::vector<std::uint64_t> values;
    const double ordinary[] = {0.5,    1.0,     -0.75, 3.0,  -20.0, 90.0, -700.0, 800.0,
                               9999.0, 20000.0, 1e6,   -3e9, 1e-30, 1e30, 0.0,    -0.0};
    for (const double x : ordinary)
        values.push_back(lanes == Lanes::d2 ? std::bit_cast<std::uint64_t>(x)
                                            : std::bit_cast<std::uint32_t>(static_cast<float>(x)));
    if (lanes == Lanes::d2)
        values.insert(values.end(),
                      {1, 0x8000000000000001, 0x7FF0000000000000, 0xFFF0000000000000, 0x7FF8000000000000,
                       0x7FF4000000000000, 0x7FEFFFFFFFFFFFFF, 0x7E00000000000000});
    else
        values.insert(values.end(),
                      {1, 0x80000001, 0x7F800000, 0xFF800000, 0x7FC00000, 0x7FA00000, 0x7F7FFFFF, 7});
    return values;
}

Vec128 make_vector(Lanes lanes, std::uint64_t background, std::uint64_t special, unsigned where)
{
    Vec128 v;
    const bool wide = lanes == Lanes::d2;
    for (unsigned lane = 0; lane < (wide ? 2u : 4u); ++lane) {
        const std::uint64_t bits = where >> lane & 1 ? special : background;
        if (wide)
            v.q[lane] = bits;
        else
            v.u[lane] = static_cast<std::uint32_t>(bits);
    }
    return v;
}

class Guarded {
public:
    Guarded() { std::memset(bytes_, guard, sizeof bytes_); }
    void* destination() { return bytes_ + 64; }
    Vec128 stored() const
    {
        Vec128 v;
        std::memcpy(&v, bytes_ + 64, sizeof v);
        return v;
    }
    bool surroundings_intact() const
    {
        const auto intact = [](unsigned char byte) { return byte == guard; };
        return std::all_of(bytes_, bytes_ + 64, intact) &&
               std::all_of(bytes_ + 80, bytes_ + sizeof bytes_, intact);
    }

private:
    static constexpr unsigned char guard = 0xA5;
    alignas(16) unsigned char bytes_[144];
};

void check_call(const Target& target, const Vec128& a, const Vec128& b, unsigned stack_shift)
{
    CallFrame frame{};
    Guarded memory;
    frame.in[0] = a;
    frame.in[1] = b;
    frame.in[2] = quads(0x1122334455667788, 0x99AABBCCDDEEFF00);
    frame.target = reinterpret_cast<std::uintptr_t>(target.address);
    frame.pointer = reinterpret_cast<std::uintptr_t>(memory.destination());
    for (unsigned i = 0; i < 8; ++i)
        frame.kept_in[i] = quads(0x0101010101010101 * (i + 1), 0xF0E0D0C0B0A09080 + i);
    for (unsigned i = 0; i < 6; ++i)
        frame.general_in[i] = 0x5A5A0000 + i;
    // Round up, in both units, so that a routine that changes the mode and does not restore it is seen.
    frame.mxcsr_in = 0x1F80 | 2u << 13;
    frame.stack_shift = stack_shift;
    zelk_call(&frame);

    const std::string context = target.symbol + ' ' + hex(a) + ' ' + hex(b);
    EXPECT_EQ(frame.stack_delta, 0u) << context;
    EXPECT_EQ(frame.mxcsr_out & ~0x3Fu, frame.mxcsr_in) << context;
    EXPECT_EQ(frame.x87_control_out & 0xFFFF, 0x37Fu | 2u << 10) << context;
    EXPECT_EQ(frame.x87_tag_out & 0xFFFF, 0xFFFFu) << context << ": the x87 stack is not empty";
#if defined(__x86_64__)
    for (unsigned i = 0; i < 8; ++i)
        EXPECT_TRUE(same_bits(frame.kept_in[i], frame.kept_out[i])) << context << ": xmm" << i + 8;
    for (unsigned i = 0; i < 6; ++i)
        EXPECT_EQ(frame.general_in[i], frame.general_out[i]) << context << ' ' << i;
#else
    for (unsigned i = 0; i < 4; ++i)
        EXPECT_EQ(static_cast<std::uint32_t>(frame.general_in[i]),
                  static_cast<std::uint32_t>(frame.general_out[i]))
            << context << ' ' << i;
#endif
    EXPECT_TRUE(memory.surroundings_intact()) << context;
    const Vec128 expected = target.entry->results == Results::pointer
                                ? frame.out[1]
                                : quads(0xA5A5A5A5A5A5A5A5, 0xA5A5A5A5A5A5A5A5);
    EXPECT_TRUE(same_bits(memory.stored(), expected)) << context << ": stored " << hex(memory.stored());
}

TEST(Abi, EveryEntryOnEveryPath)
{
    for (const Target& target : targets()) {
        ASSERT_NE(target.address, nullptr) << target.symbol;
        const Lanes lanes = target.entry->lanes;
        const auto values = lane_values(lanes);
        const unsigned all = lanes == Lanes::d2 ? 3 : 15;
        unsigned turn = 0;
        for (const std::uint64_t x : values) {
            for (const std::uint64_t y : values) {
                if (target.entry->args == 1 && y != values[0]) break;
                // In one lane beside ordinary ones (each in turn), and in all.
                for (const unsigned where : {1u << (turn % (all == 3 ? 2 : 4)), all}) {
#if defined(__x86_64__)
                    const unsigned shift = 0;
#else
                    const unsigned shift = 4 * (turn % 4);
#endif
                    check_call(target, make_vector(lanes, values[0], x, where),
                               make_vector(lanes, values[1], y, where), shift);
                    ++turn;
                }
            }
        }
        if (HasFailure()) FAIL() << "stopped after " << target.symbol;
    }
}

// A dispatcher gives what the kernel gives that it selects on this processor: arguments and results pass
// through.
TEST(Abi, DispatcherIsItsKernel)
{
    for (const Entry& entry : entries()) {
        const auto values = lane_values(entry.lanes);
        const char tier = entry.tiers.front(); // every processor that runs this has SSE4.1
        const auto kernel = std::find_if(entry.kernels.begin(), entry.kernels.end(),
                                         [&](const Kernel& k) { return k.tier == tier; });
        ASSERT_NE(kernel, entry.kernels.end()) << entry.symbol;
        for (std::size_t i = 0; i + 1 < values.size(); ++i) {
            alignas(16) Vec128 stored[2] = {};
            const Vec128 a = make_vector(entry.lanes, values[i], values[i + 1], 1);
            const Vec128 b = make_vector(entry.lanes, values[i + 1], values[i], 2);
            const Result through = call(entry.address, a, b, {}, &stored[0]);
            const Result direct = call(kernel->address, a, b, {}, &stored[1]);
            EXPECT_TRUE(same_bits(through.first, direct.first)) << entry.symbol << hex(a) << hex(b);
            EXPECT_EQ(through.flags, direct.flags) << entry.symbol << hex(a) << hex(b);
            if (entry.results != Results::one) {
                EXPECT_TRUE(same_bits(through.second, direct.second)) << entry.symbol;
            }
            EXPECT_TRUE(same_bits(stored[0], stored[1])) << entry.symbol;
        }
    }
}

} // namespace
} // namespace zelk::test
