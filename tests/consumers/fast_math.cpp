// A program built and linked with -ffast-math, which turns flush to zero and denormals are zero on for it
// all. Bits are compared as integers: the compiler takes NaNs and infinities for impossible here.
#include <zelk/zelk.h>

#include <xmmintrin.h>

#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

int failures = 0;

template <class Vector, class Bits>
void expect(const char* what, Vector got, Bits first, Bits second)
{
    Bits bits[2];
    std::memcpy(bits, &got, sizeof bits);
    if (bits[0] == first && bits[1] == second) return;
    std::printf("%s gives %llx %llx\n", what, static_cast<unsigned long long>(bits[0]),
                static_cast<unsigned long long>(bits[1]));
    ++failures;
}

zelk_float4 floats(std::uint32_t first, std::uint32_t second)
{
    const std::uint32_t bits[4] = {first, second, first, second};
    zelk_float4 v;
    std::memcpy(&v, bits, sizeof v);
    return v;
}
zelk_double2 doubles(std::uint64_t first, std::uint64_t second)
{
    const std::uint64_t bits[2] = {first, second};
    zelk_double2 v;
    std::memcpy(&v, bits, sizeof v);
    return v;
}

} // namespace

int main()
{
    if ((_mm_getcsr() & 0x8040) != 0x8040) {
        std::puts("flush to zero and denormals are zero are off: this tests nothing");
        return 1;
    }
    const std::uint32_t infinity = 0x7F800000;
    expect<zelk_float4, std::uint32_t>("sin (0.5, 0)", __zelk_sinf4(floats(0x3F000000, 0)), 0x3EF57744, 0);
    expect<zelk_float4, std::uint32_t>("exp (0, -infinity)", __zelk_expf4(floats(0, 0xFF800000)), 0x3F800000,
                                       0);
    expect<zelk_float4, std::uint32_t>("exp (infinity, 0)", __zelk_expf4(floats(infinity, 0)), infinity,
                                       0x3F800000);
    expect<zelk_float4, std::uint32_t>("log (1, 0)", __zelk_logf4(floats(0x3F800000, 0)), 0, 0xFF800000);
    // 2^4 and infinity^0.5
    expect<zelk_float4, std::uint32_t>(
        "pow", __zelk_powf4(floats(0x40000000, infinity), floats(0x40800000, 0x3F000000)), 0x41800000,
        infinity);
    expect<zelk_double2, std::uint64_t>("sqrt (4, infinity)",
                                        __zelk_sqrt2(doubles(0x4010000000000000, 0x7FF0000000000000)),
                                        0x4000000000000000, 0x7FF0000000000000);
    expect<zelk_double2, std::uint64_t>("exp2 (1, -1)",
                                        __zelk_exp22(doubles(0x3FF0000000000000, 0xBFF0000000000000)),
                                        0x4000000000000000, 0x3FE0000000000000);
    return failures == 0 ? 0 : 1;
}
