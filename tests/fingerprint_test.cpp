// The bits of every kernel and scalar routine over a fixed set of arguments, as one hash a line in
// tests/data/fingerprints_<target>.txt: a change of a single bit of a single result in any rounding mode
// shows here by the kernel's name. Kernels that start from the processor's estimate instructions are left
// out: their last bit is the processor's.
//
// A change that is meant: run this program with --write and commit the file with the reason.
#include "call.h"
#include "entries.h"
#include "scalar_call.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cinttypes>
#include <cmath>
#include <cstring>
#include <fstream>
#include <limits>
#include <map>
#include <sstream>
#include <vector>

namespace zelk::test {
namespace {

const std::string fingerprint_file = FINGERPRINTS;

bool starts_from_an_estimate(const std::string& entry)
{
    static const char* const names[] = {"sqrtf4",  "invsqrtf4", "invsqrt2", "powf4",        "asinhf4",
                                        "acoshf4", "atanhf4",   "csqrtf2",  "csqrtf_scalar"};
    return std::ranges::find(names, entry) != std::end(names);
}

class Hash {
public:
    void include(std::uint64_t word)
    {
        state_ = (state_ ^ word) * 0x9E3779B97F4A7C15;
        state_ ^= state_ >> 29;
    }
    void include(const Vec128& v)
    {
        for (const std::uint64_t half : v.q)
            include(half);
    }
    std::uint64_t value() const { return state_; }

private:
    std::uint64_t state_ = 0x243F6A8885A308D3;
};

// Every exponent with several significands, in an order that mixes them; integers for the integer functions.
std::vector<std::uint64_t> lane_values(Lanes lanes)
{
    std::vector<std::uint64_t> values;
    std::uint64_t significand = 0x0123456789ABCDEF;
    const auto next = [&] { return significand = significand * 6364136223846793005u + 1442695040888963407u; };
    if (lanes == Lanes::d2) {
        for (int round = 0; round < 3; ++round)
            for (std::uint64_t exponent = 0; exponent < 4096; ++exponent) {
                const std::uint64_t mixed = exponent * 1789 % 4096;
                values.push_back(mixed << 52 | next() >> 12);
            }
        // Most functions do their work between 2^-10 and 2^10.
        for (int i = 0; i < 12000; ++i)
            values.push_back((next() & 1) << 63 | (1013 + (next() >> 33) % 21) << 52 | next() >> 12);
    } else {
        for (int round = 0; round < 12; ++round)
            for (std::uint64_t exponent = 0; exponent < 512; ++exponent) {
                const std::uint64_t mixed = exponent * 181 % 512;
                values.push_back(mixed << 23 | next() >> 41);
            }
        for (int i = 0; i < 12000; ++i)
            values.push_back((next() & 1) << 31 | (117 + (next() >> 33) % 21) << 23 | next() >> 41);
    }
    return values;
}

// The default NaN's sign and payload stand for every NaN: which of two operands a NaN comes from is the
// compiler's.
Vec128 without_nan_payloads(const Entry& entry, Vec128 v)
{
    if (entry.lanes == Lanes::d2) {
        for (auto& lane : v.q)
            if ((lane & 0x7FFFFFFFFFFFFFFF) > 0x7FF0000000000000) lane = 0x7FF8000000000000;
    } else if (entry.lanes == Lanes::f4 || entry.lanes == Lanes::c2) {
        for (auto& lane : v.u)
            if ((lane & 0x7FFFFFFF) > 0x7F800000) lane = 0x7FC00000;
    }
    return v;
}

Vec128 gather(const std::vector<std::uint64_t>& values, std::size_t first, Lanes lanes)
{
    Vec128 v;
    for (std::size_t lane = 0; lane < (lanes == Lanes::d2 ? 2u : 4u); ++lane) {
        const std::uint64_t bits = values[(first + lane) % values.size()];
        if (lanes == Lanes::d2)
            v.q[lane] = bits;
        else
            v.u[lane] = static_cast<std::uint32_t>(bits);
    }
    return v;
}

std::uint64_t fingerprint(const Entry& entry, const Kernel& kernel)
{
    static std::map<Lanes, std::vector<std::uint64_t>> all_values;
    auto& values = all_values[entry.lanes];
    if (values.empty()) values = lane_values(entry.lanes);
    const std::size_t step = entry.lanes == Lanes::d2 ? 2 : 4;
    Hash hash;
    for (const Rounding rounding : all_roundings)
        for (std::size_t i = 0; i < values.size(); i += step) {
            alignas(16) Vec128 stored;
            const Vec128 b = gather(values, i * 7 + 3, entry.lanes);
            const Result result =
                call(kernel.address, gather(values, i, entry.lanes), b, {}, &stored, rounding);
            hash.include(without_nan_payloads(entry, result.first));
            if (entry.results != Results::one) hash.include(without_nan_payloads(entry, result.second));
        }
    return hash.value();
}

// The 80-bit format has its exponents too, mixed alike, and the other formats' values are those of the
// vectors.
std::vector<Bits80> extended_values()
{
    std::vector<Bits80> values;
    const auto doubles = lane_values(Lanes::d2);
    for (std::size_t i = 0; i < doubles.size(); ++i) {
        const auto sign_exponent = static_cast<std::uint16_t>(doubles[i] >> 52);
        const std::uint64_t significand = doubles[i] << 11 | i % 2048 | integer_bit;
        const auto ordinary = (sign_exponent & 0x8000) | (16383 - 1023 + (sign_exponent & 0x7FF));
        const auto any = static_cast<std::uint16_t>(i * 40503);
        const bool denormal_or_any = i < doubles.size() / 2;
        if (denormal_or_any && (any & 0x7FFF) == 0)
            values.push_back({significand & ~integer_bit, any});
        else
            values.push_back({significand, denormal_or_any ? any : static_cast<std::uint16_t>(ordinary)});
    }
    return values;
}

Argument argument(char kind, std::size_t i)
{
    static const std::vector<Bits80> extended = extended_values();
    static const auto doubles = lane_values(Lanes::d2), floats = lane_values(Lanes::f4);
    const auto& narrow = kind == 'f' || kind == 'c' ? floats : doubles;
    if (kind == 'l') return extended[i % extended.size()];
    return ComplexBits{narrow[i % narrow.size()], narrow[(i * 5 + 2) % narrow.size()]};
}

Bits80 without_nan_payload(const Bits80& x)
{
    return is_nan(x) ? Bits80{0xC000000000000000, 0x7FFF} : x;
}
std::uint64_t without_nan_payload(double x)
{
    return std::bit_cast<std::uint64_t>(std::isnan(x) ? std::numeric_limits<double>::quiet_NaN() : x);
}
std::uint64_t without_nan_payload(std::uint32_t bits)
{
    return (bits & 0x7FFFFFFF) > 0x7F800000 ? 0x7FC00000 : bits;
}

// The result and what is stored through pointers, each in its format.
void include(Hash& hash, const ScalarKernel& kernel, const ScalarResult& result)
{
    const auto include_extended = [&](const Bits80& x) {
        hash.include(without_nan_payload(x).significand);
        hash.include(without_nan_payload(x).sign_exponent);
    };
    const auto include_number = [&](char kind, std::uint64_t bits) {
        const bool is_double = kind == 'd' || kind == 'z';
        hash.include(is_double ? without_nan_payload(std::bit_cast<double>(bits))
                               : without_nan_payload(static_cast<std::uint32_t>(bits)));
    };
    const char kind = kernel.signature[0];
    if (kind == 'l') include_extended(result.extended);
    if (kind == 'd' || kind == 'f') include_number(kind, result.narrow);
    if (kind == 'i') hash.include(static_cast<std::uint32_t>(result.integer));
    if (kind == 'z' || kind == 'c') {
        include_number(kind, result.complex.re);
        include_number(kind, result.complex.im);
    }
    if (kernel.signature.find('D') != std::string::npos)
        for (const double x : result.stored_doubles)
            hash.include(without_nan_payload(x));
    for (std::ptrdiff_t i = 0; i < std::ranges::count(kernel.signature, 'L'); ++i)
        include_extended(result.stored[i]);
}

std::uint64_t fingerprint(const ScalarKernel& kernel)
{
    constexpr std::size_t calls = 3000;
    const char kind = kernel.signature[2];
    Hash hash;
    for (const Rounding rounding : all_roundings)
        for (std::size_t i = 0; i < calls; ++i) {
            const std::size_t n = i * 11 + static_cast<std::size_t>(rounding);
            include(hash, kernel,
                    call_scalar(kernel, argument(kind, n), argument(kind, n * 7 + 3), {rounding}));
        }
    return hash.value();
}

std::map<std::string, std::string> measured()
{
    std::map<std::string, std::string> lines;
    const auto add = [&](const std::string& symbol, std::uint64_t hash) {
        char text[20];
        std::snprintf(text, sizeof text, "%016" PRIx64, hash);
        lines[symbol] = text;
    };
    for (const Entry& entry : entries())
        for (const Kernel& kernel : entry.kernels)
            if (!starts_from_an_estimate(entry.name)) add(kernel.symbol, fingerprint(entry, kernel));
    for (const ScalarEntry& entry : scalar_entries())
        for (const ScalarKernel& kernel : scalar_kernels(entry.name))
            // The dispatchers are one of their tiers.
            if (!starts_from_an_estimate(entry.name) && (entry.tiers.empty() || kernel.tier))
                add(kernel.symbol, fingerprint(kernel));
    return lines;
}

TEST(Fingerprints, EveryKernel)
{
    std::map<std::string, std::string> committed;
    std::ifstream file(fingerprint_file);
    for (std::string symbol, hash; file >> symbol >> hash;)
        committed[symbol] = hash;
    ASSERT_FALSE(committed.empty()) << fingerprint_file;
    const auto actual = measured();
    for (const auto& [symbol, hash] : actual)
        EXPECT_EQ(hash, committed[symbol]) << symbol;
    for (const auto& [symbol, hash] : committed)
        EXPECT_TRUE(actual.contains(symbol)) << symbol << " is gone";
}

} // namespace

void write_fingerprints()
{
    std::ofstream file(fingerprint_file);
    for (const auto& [symbol, hash] : measured())
        file << symbol << ' ' << hash << '\n';
}

} // namespace zelk::test

int main(int argc, char** argv)
{
    if (argc > 1 && std::strcmp(argv[1], "--write") == 0) {
        zelk::test::write_fingerprints();
        return 0;
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
