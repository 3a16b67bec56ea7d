// Every scalar routine of the list, over values that take its paths: the calling convention (call_scalar
// checks it at each call), any rounding mode and x87 precision, the result of each tier the dispatcher's.
#include "entries.h"
#include "scalar_call.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace zelk::test {
namespace {

// Ordinary, tiny, huge, at poles and zeros, infinite, NaN and unsupported.
std::vector<Bits80> values()
{
    using namespace encoding;
    std::vector<Bits80> list = {plus_zero,         minus_zero,        plus_one,
                                minus_one,         plus_infinity,     minus_infinity,
                                largest,           minus_largest,     smallest_normal,
                                largest_denormal,  smallest_denormal, minus_smallest_denormal,
                                pseudo_denormal,   quiet_nan,         negative_quiet_nan,
                                signalling_nan,    unnormal,          unnormal_zero,
                                negative_unnormal, pseudo_infinity,   pseudo_nan};
    for (const long double x : {0.3L, 0.9999L, 1.0001L, 2.5L, 45.0L, 90.0L, 300.0L, 11000.0L, 11357.0L, 1e6L,
                                1e12L, 0x1.8p63L, 1e300L, 1e4000L, 1e-4L, 1e-9L, 1e-25L, 1e-4930L})
        for (const long double sign : {1.0L, -1.0L})
            list.push_back(bits80(sign * x));
    return list;
}

Argument argument(const ScalarKernel& kernel, const Bits80& x, const Bits80& imaginary = {})
{
    Argument result(x);
    const char kind = kernel.signature[2];
    if (kind == 'd' || kind == 'z') {
        result.narrow = Argument(static_cast<double>(number(x))).narrow;
        result.imaginary = Argument(static_cast<double>(number(imaginary))).narrow;
    }
    if (kind == 'f' || kind == 'c') {
        result.narrow = Argument(static_cast<float>(number(x))).narrow;
        result.imaginary = Argument(static_cast<float>(number(imaginary))).narrow;
    }
    return result;
}

bool is_complex(const ScalarKernel& kernel)
{
    return kernel.signature[0] == 'z' || kernel.signature[0] == 'c';
}

bool same(const ScalarKernel& kernel, const ScalarResult& a, const ScalarResult& b)
{
    switch (kernel.signature[0]) {
    case 'l':
        return a.extended == b.extended;
    case 'z':
    case 'c':
        return a.complex == b.complex;
    case 'i':
        return a.integer == b.integer && a.stored[0] == b.stored[0];
    case 'v':
        return a.stored[0] == b.stored[0] && a.stored[1] == b.stored[1];
    default:
        return a.narrow == b.narrow;
    }
}

TEST(ScalarAbi, EveryRoutineOnEveryPath)
{
    for (const ScalarEntry& entry : scalar_entries()) {
        for (const ScalarKernel& kernel : scalar_kernels(entry.name)) {
            ASSERT_NE(kernel.address, nullptr) << kernel.symbol;
            // The second of two arguments, or the imaginary part.
            const bool two = is_complex(kernel) || kernel.signature.ends_with("ll") ||
                             kernel.signature.ends_with("dd") || kernel.signature.ends_with("ff");
            unsigned turn = 0;
            for (const Bits80& x : values()) {
                for (const Bits80& y : values()) {
                    for (const unsigned precision : {64u, 53u, 24u}) {
                        const Environment environment{all_roundings[turn % 4], precision, turn / 4 % 4 * 4};
                        call_scalar(kernel, argument(kernel, x, y), argument(kernel, y, x), environment);
                        ++turn;
                    }
                    if (!two) break;
                }
            }
            if (HasFailure()) FAIL() << "stopped after " << kernel.symbol;
        }
    }
}

TEST(ScalarAbi, ThreadsGetTheSameBits)
{
    for (const ScalarEntry& entry : scalar_entries()) {
        const ScalarKernel kernel = scalar_kernels(entry.name).front();
        const auto arguments = values();
        std::vector<ScalarResult> expected;
        for (const Bits80& x : arguments)
            expected.push_back(
                call_scalar(kernel, argument(kernel, x, arguments[22]), argument(kernel, arguments[22])));
        std::vector<std::thread> threads;
        for (int i = 0; i < 8; ++i)
            threads.emplace_back([&] {
                for (std::size_t j = 0; j < arguments.size(); ++j) {
                    const ScalarResult got =
                        call_scalar(kernel, argument(kernel, arguments[j], arguments[22]),
                                    argument(kernel, arguments[22]));
                    EXPECT_TRUE(same(kernel, got, expected[j])) << kernel.symbol << hex(arguments[j]);
                }
            });
        for (std::thread& thread : threads)
            thread.join();
    }
}

} // namespace
} // namespace zelk::test
