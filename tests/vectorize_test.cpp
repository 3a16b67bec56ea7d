// libzelk_simd: scalar functions, their vector forms, and loops that GCC has made vector calls of.
#include "call.h"
#include "entries.h"
#include "special_lanes.h"

#include "zelk/vectorize.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <set>

#include <dlfcn.h>

namespace zelk::test {
namespace {

extern "C" {
#define ZELK_LOOPS(variant, name)                                                                            \
    void loop_##variant##_##name##f(const float*, float*, int);                                              \
    void loop_##variant##_##name(const double*, double*, int);
#define ZELK_SIMD(arguments, name, f4, d2)                                                                   \
    ZELK_LOOPS(sse, name) ZELK_LOOPS(avx2, name) ZELK_LOOPS(avx512, name)
#include "../simd/functions.def"
#undef ZELK_SIMD
}

template <class T>
using Loop = void (*)(const T*, T*, int);

// A row for either type: the loops of three instruction sets, and a loop of calls through the scalar
// function.
template <class T>
struct Function {
    int arguments;
    const char* name;
    const char* entry;
    Loop<T> loops[3];
    T (*scalar)(T);
};

#define ZELK_SCALAR_1(name) [](auto x) { return zelk_##name(x); }
#define ZELK_SCALAR_2(name) [](auto x) { return zelk_##name(x, x); }
#define ZELK_SIMD(arguments, name, f4, d2)                                                                   \
    {arguments,                                                                                              \
     #name "f",                                                                                              \
     #f4,                                                                                                    \
     {loop_sse_##name##f, loop_avx2_##name##f, loop_avx512_##name##f},                                       \
     ZELK_SCALAR_##arguments(name##f)},
const Function<float> float_functions[] = {
#include "../simd/functions.def"
};
#undef ZELK_SIMD
#define ZELK_SIMD(arguments, name, f4, d2)                                                                   \
    {arguments,                                                                                              \
     #name,                                                                                                  \
     #d2,                                                                                                    \
     {loop_sse_##name, loop_avx2_##name, loop_avx512_##name},                                                \
     ZELK_SCALAR_##arguments(name)},
const Function<double> double_functions[] = {
#include "../simd/functions.def"
};
#undef ZELK_SIMD

const void* vector_form(std::string prefix, int arguments, const std::string& name)
{
    static void* const library = dlopen("libzelk_simd.so.1", RTLD_NOW);
    return dlsym(library, (prefix + (arguments == 2 ? "vv_zelk_" : "v_zelk_") + name).c_str());
}

// Every floating-point function of the library has its scalar name, but for those that compute something
// else.
TEST(Vectorize, NamesEveryFunction)
{
    std::set<std::string> named;
    for (const auto& function : float_functions)
        named.insert(function.entry);
    for (const auto& function : double_functions)
        named.insert(function.entry);
    for (const Entry& entry : entries()) {
        const bool floating = entry.lanes == Lanes::f4 || entry.lanes == Lanes::d2;
        const bool misnamed = entry.name.starts_with("hypot") || entry.name.starts_with("erfinv");
        EXPECT_EQ(named.contains(entry.symbol), floating && entry.results == Results::one && !misnamed)
            << entry.symbol;
    }
}

// x in every lane; the scalar function and the vector forms give the bits of the entry.
template <class T>
void check_forms(const Function<T>& function)
{
    constexpr int lanes = 16 / sizeof(T);
    const std::string width = std::to_string(lanes);
    const void* const plain = vector_form("_ZGVbN" + width, function.arguments, function.name);
    const void* const masked = vector_form("_ZGVbM" + width, function.arguments, function.name);
    ASSERT_TRUE(plain && masked) << function.name;
    for (const T value : {T(0.75), T(2.5), T(1e6), T(0)}) {
        Vec128 x;
        T elements[lanes];
        std::fill_n(elements, lanes, value);
        std::memcpy(&x, elements, sizeof x);
        const Result expected = call(entry(function.entry).address, x, x, {}, nullptr);
        EXPECT_TRUE(same_bits(call(plain, x, x, {}, nullptr).first, expected.first)) << function.name;
        const T scalar = function.scalar(value);
        EXPECT_EQ(std::memcmp(&scalar, &expected.first, sizeof(T)), 0)
            << function.name << '(' << value << ')';

        // Any mask lane that is not zero is active; the others hold signalling NaNs and raise nothing. The
        // result is the masked entry's, which may differ from the entry's where neighbours count.
        Vec128 poisoned = lanes == 4 ? words(0x7FA00000, 0x7FA00000, 0x7FA00000, 0x7FA00000)
                                     : quads(0x7FF4000000000000, 0x7FF4000000000000);
        std::memcpy(static_cast<void*>(&poisoned), elements, sizeof(T));
        const auto call_masked = [&](const void* address, const Vec128& mask) {
            return function.arguments == 1 ? call(address, poisoned, mask, {}, nullptr)
                                           : call(address, poisoned, poisoned, mask, nullptr);
        };
        const Vec128 full = lanes == 4 ? words(0xFFFFFFFF, 0, 0, 0) : quads(0xFFFFFFFFFFFFFFFF, 0);
        const Result entry_masked = call_masked(exported(entry(function.entry).masked), full);
        for (const Vec128& mask : {full, lanes == 4 ? words(1, 0, 0, 0) : quads(1, 0),
                                   lanes == 4 ? words(0x3F800000, 0, 0, 0) : quads(0x3FF0000000000000, 0)}) {
            const Result result = call_masked(masked, mask);
            EXPECT_TRUE(same_bits(result.first, entry_masked.first)) << function.name << hex(mask);
            EXPECT_EQ(flag_names(result.flags & loud_flags & ~expected.flags), "none") << function.name;
        }
    }
}

TEST(Vectorize, ScalarAndVectorFormsAreTheEntry)
{
    for (const auto& function : float_functions)
        check_forms(function);
    for (const auto& function : double_functions)
        check_forms(function);
}

bool supported(int variant)
{
    __builtin_cpu_init();
    if (variant == 1) return __builtin_cpu_supports("avx2");
    if (variant == 2) return __builtin_cpu_supports("avx512f");
    return true;
}

// The bits of element i where its group of lanes is computed by one call: a few functions hand a whole vector
// over to another path when one of its lanes needs it.
template <class T>
T in_its_group(const Function<T>& function, const T* x, int i)
{
    constexpr int lanes = 16 / sizeof(T);
    Vec128 group;
    std::memcpy(static_cast<void*>(&group), x + i / lanes * lanes, sizeof group);
    group = call(entry(function.entry).address, group, group, {}, nullptr).first;
    T element;
    std::memcpy(&element,
                reinterpret_cast<const char*>(&group) + sizeof(T) * static_cast<std::size_t>(i % lanes),
                sizeof element);
    return element;
}

// Every length has its rest; the loop has the bits of the scalar calls or of the vector entry, in place, too.
template <class T>
void check_loops(const Function<T>& function)
{
    const auto same = [](const T& a, const T& b) { return std::memcmp(&a, &b, sizeof(T)) == 0; };
    for (int variant = 0; variant < 3; ++variant) {
        if (!supported(variant)) continue;
        for (int n = 0; n <= 37; ++n) {
            T x[40], y[40];
            for (int i = 0; i < 40; ++i) {
                x[i] = T(0.125) + T(i) / T(64);
                y[i] = T(-7);
            }
            function.loops[variant](x, y, n);
            for (int i = 0; i < 40; ++i) {
                const T expected = i < n ? function.scalar(x[i]) : T(-7);
                ASSERT_TRUE(same(y[i], expected) || (i < n && same(y[i], in_its_group(function, x, i))))
                    << function.name << ", element " << i << " of " << n << ", variant " << variant;
            }
        }
    }
}

TEST(Vectorize, LoopsOfEveryLength)
{
    for (const auto& function : float_functions)
        check_loops(function);
    for (const auto& function : double_functions)
        check_loops(function);
}

std::set<std::string> called_functions(const std::string& object)
{
    std::set<std::string> names;
    std::FILE* const pipe = popen(("nm --undefined-only --format=posix " + object).c_str(), "r");
    char name[256];
    while (std::fscanf(pipe, "%255s%*[^\n]", name) == 1)
        names.insert(name);
    EXPECT_EQ(pclose(pipe), 0);
    return names;
}

// The loops above would pass with scalar calls alone: the compiled code must call the vector forms.
TEST(Vectorize, CompiledLoopsCallVectorForms)
{
    const struct {
        const char* object;
        std::string isa;
        std::size_t lanes;
    } variants[] = {{ZELK_LOOPS_SSE, "b", 4}, {ZELK_LOOPS_AVX2, "d", 8}, {ZELK_LOOPS_AVX512, "e", 16}};
    for (const auto& [object, isa, lanes] : variants) {
        const auto called = called_functions(object);
        const auto expect_call = [&](const auto& function, std::size_t count) {
            const std::string vectors = function.arguments == 2 ? "vv_zelk_" : "v_zelk_";
            EXPECT_TRUE(called.contains("_ZGV" + isa + 'N' + std::to_string(count) + vectors + function.name))
                << function.name << " in " << object;
            EXPECT_TRUE(called.contains(std::string("zelk_") + function.name))
                << "the rest of " << function.name;
        };
        for (const auto& function : float_functions)
            expect_call(function, lanes);
        for (const auto& function : double_functions)
            expect_call(function, lanes / 2);
    }
}

} // namespace
} // namespace zelk::test
