// Every scalar routine of the list, over values that take its paths: the calling convention (call_scalar
// checks it at each call) in any rounding mode and x87 precision.
#include "entries.h"
#include "scalar_call.h"

#include <gtest/gtest.h>

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

bool is_complex(const ScalarKernel& kernel)
{
    return kernel.signature[0] == 'z' || kernel.signature[0] == 'c';
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
                        call_scalar(kernel, argument_of(kernel, x, y), argument_of(kernel, y, x),
                                    environment);
                        ++turn;
                    }
                    if (!two) break;
                }
            }
            if (HasFailure()) FAIL() << "stopped after " << kernel.symbol;
        }
    }
}

} // namespace
} // namespace zelk::test
