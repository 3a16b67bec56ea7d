// The C++ header: overloads by lane type and by name, and functions over arrays up to their very ends.
#include "zelk/zelk.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfenv>
#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>
#include <vector>

#include <sys/mman.h>
#include <unistd.h>

namespace {

constexpr int loud = FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW;

float lane(zelk::float4 v)
{
    return _mm_cvtss_f32(v);
}
double lane(zelk::double2 v)
{
    return _mm_cvtsd_f64(v);
}

// Where <cmath> and the C entries differ in names, <cmath> wins: values by which each function is known.
TEST(Cpp, NamesFollowCmath)
{
    const zelk::float4 x = _mm_set1_ps(4.0f);
    const zelk::double2 w = _mm_set1_pd(4.0);
    EXPECT_EQ(lane(zelk::exp2(x)), 16.0f);
    EXPECT_EQ(lane(zelk::exp2(w)), 16.0);
    EXPECT_EQ(lane(zelk::log2(x)), 2.0f);
    EXPECT_EQ(lane(zelk::log2(w)), 2.0);
    EXPECT_NEAR(lane(zelk::exp(x)), 54.59815f, 1e-4f);
    EXPECT_NEAR(lane(zelk::exp(w)), 54.598150033144236, 1e-12);
    EXPECT_NEAR(lane(zelk::log(x)), 1.3862944f, 1e-6f);
    EXPECT_NEAR(lane(zelk::log(w)), 1.3862943611198906, 1e-14);
    EXPECT_NEAR(lane(zelk::log10(w)), 0.6020599913279624, 1e-14);
    EXPECT_EQ(lane(zelk::pow(w, _mm_set1_pd(3.0))), 64.0);
    EXPECT_EQ(lane(zelk::pow(x, _mm_set1_ps(3.0f))), 64.0f);
    EXPECT_EQ(lane(zelk::invsqrt(w)), 0.5);
    EXPECT_EQ(lane(zelk::floor(_mm_set1_pd(-1.5))), -2.0);
}

TEST(Cpp, MasksAndPairs)
{
    const zelk::float4 x = _mm_setr_ps(0.0f, std::numeric_limits<float>::infinity(), 0.0f, 0.0f);
    const zelk::float4 mask = _mm_castsi128_ps(_mm_setr_epi32(-1, 0, -1, -1));
    std::feclearexcept(FE_ALL_EXCEPT);
    const auto [sine, cosine] = zelk::sincos(x, mask);
    const zelk::float4 other = zelk::cos(x, mask);
    EXPECT_EQ(std::fetestexcept(loud), 0);
    EXPECT_EQ(_mm_movemask_ps(_mm_cmpeq_ps(sine, _mm_setzero_ps())), 15);
    EXPECT_EQ(_mm_movemask_ps(_mm_cmpeq_ps(cosine, _mm_set1_ps(1.0f))), 15);
    EXPECT_EQ(_mm_movemask_ps(_mm_cmpeq_ps(cosine, other)), 15);
    EXPECT_NEAR(lane(zelk::sincos(_mm_set1_pd(1.0)).second), 0.5403023058681398, 1e-15);
}

// Complex numbers by the overload, not four floats; inactive ones raise nothing.
TEST(Cpp, ComplexLanes)
{
    const auto part = [](zelk::cfloat2 z, int i) {
        float parts[4];
        _mm_storeu_ps(parts, z.v);
        return parts[i];
    };
    const zelk::cfloat2 z = {_mm_setr_ps(-4.0f, 0.0f, 0.0f, 2.0f)};
    const zelk::cfloat2 root = zelk::sqrt(z);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(part(root, i), (i == 0 ? 0.0f : i == 1 ? 2.0f : 1.0f)) << i;
    EXPECT_EQ(part(zelk::exp(zelk::cfloat2{_mm_setzero_ps()}), 2), 1.0f);
    EXPECT_EQ(part(zelk::acos(zelk::cfloat2{_mm_set1_ps(0.0f)}), 0), 1.57079637f);

    const zelk::float4 mask = _mm_castsi128_ps(_mm_setr_epi32(-1, -1, 0, 0));
    const float signalling = __builtin_nansf("");
    std::feclearexcept(FE_ALL_EXCEPT);
    const zelk::cfloat2 ln = zelk::log(zelk::cfloat2{_mm_setr_ps(-1.0f, 0.0f, signalling, 0.0f)}, mask);
    EXPECT_EQ(std::fetestexcept(loud), 0);
    EXPECT_EQ(part(ln, 0), 0.0f);
    EXPECT_EQ(part(ln, 1), 3.14159274f);
}

TEST(Cpp, IntegerLanesKeepTheirSign)
{
    const __m128i minus_seven = _mm_set1_epi32(-7);
    const __m128i two = _mm_set1_epi32(2);
    const auto first = [](const auto v) { return _mm_cvtsi128_si32(v.v); };
    EXPECT_EQ(first(zelk::div(zelk::int4{minus_seven}, zelk::int4{two})), -3);
    EXPECT_EQ(first(zelk::rem(zelk::int4{minus_seven}, zelk::int4{two})), -1);
    EXPECT_EQ(first(zelk::div(zelk::uint4{minus_seven}, zelk::uint4{two})), 0x7FFFFFFC);
    EXPECT_EQ(first(zelk::rem(zelk::uint4{minus_seven}, zelk::uint4{two})), 1);
    const auto [quotient, remainder] = zelk::divrem(zelk::uint4{minus_seven}, zelk::uint4{two});
    EXPECT_EQ(first(quotient), 0x7FFFFFFC);
    EXPECT_EQ(first(remainder), 1);
}

// Elements between two pages that trap: a range ends right at the upper one or starts right at the lower one.
template <class T>
class GuardedArray {
public:
    GuardedArray()
    {
        page_ = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        memory_ = static_cast<char*>(
            mmap(nullptr, 3 * page_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        mprotect(memory_, page_, PROT_NONE);
        mprotect(memory_ + 2 * page_, page_, PROT_NONE);
        std::memset(memory_ + page_, canary, page_);
    }
    ~GuardedArray() { munmap(memory_, 3 * page_); }
    GuardedArray(const GuardedArray&) = delete;
    GuardedArray& operator=(const GuardedArray&) = delete;

    T* last(std::size_t n) const { return reinterpret_cast<T*>(memory_ + 2 * page_) - n; }
    T* first() const { return reinterpret_cast<T*>(memory_ + page_); }
    // Whether nothing was written to but the n elements from `written`.
    bool intact_but(const T* written, std::size_t n) const
    {
        const char* const begin = reinterpret_cast<const char*>(written);
        const char* const end = reinterpret_cast<const char*>(written + n);
        const auto is_canary = [](char byte) { return byte == canary; };
        return std::all_of(static_cast<const char*>(memory_ + page_), begin, is_canary) &&
               std::all_of(end, static_cast<const char*>(memory_ + 2 * page_), is_canary);
    }

private:
    static constexpr char canary = 0x5A;
    std::size_t page_;
    char* memory_;
};

template <class T>
T argument(std::size_t i)
{
    return static_cast<T>(i % 2 ? 3 * i + 5 : 7 * i + 90);
}

template <>
std::complex<float> argument(std::size_t i)
{
    return {argument<float>(i), -argument<float>(i + 3)};
}

// One argument, one result: every length up to two vectors and a rest, at both ends of memory.
template <class T, class F, class Single>
void check_unary(F f, Single single)
{
    for (std::size_t n = 0; n <= 9; ++n) {
        for (const bool at_end : {false, true}) {
            const GuardedArray<T> in, out;
            T* const x = at_end ? in.last(n) : in.first();
            T* const y = at_end ? out.first() : out.last(n);
            for (std::size_t i = 0; i < n; ++i)
                x[i] = argument<T>(i);
            std::feclearexcept(FE_ALL_EXCEPT);
            zelk::apply(f, zelk::range(x, n), zelk::range(y, n));
            EXPECT_EQ(std::fetestexcept(loud), 0) << n;
            for (std::size_t i = 0; i < n; ++i)
                EXPECT_EQ(y[i], single(x[i])) << n << ", element " << i;
            EXPECT_TRUE(out.intact_but(y, n)) << n;
        }
    }
}

TEST(Apply, EveryLengthAtTheEndsOfMemory)
{
    // Roots and logarithms raise where an inactive lane would be taken as 0.
    check_unary<float>(zelk::log, [](float x) { return lane(zelk::log(_mm_set1_ps(x))); });
    check_unary<float>(zelk::invsqrt, [](float x) { return lane(zelk::invsqrt(_mm_set1_ps(x))); });
    check_unary<float>(zelk::invcbrt, [](float x) { return lane(zelk::invcbrt(_mm_set1_ps(x))); });
    check_unary<double>(zelk::invcbrt, [](double x) { return lane(zelk::invcbrt(_mm_set1_pd(x))); });
    check_unary<double>(zelk::sin, [](double x) { return lane(zelk::sin(_mm_set1_pd(x))); });
}

TEST(Apply, ComplexNumbersAtTheEndsOfMemory)
{
    using Complex = std::complex<float>;
    const auto single = [](auto f) {
        return [f](const Complex& z) {
            float parts[4];
            _mm_storeu_ps(parts, f(zelk::cfloat2{_mm_setr_ps(z.real(), z.imag(), z.real(), z.imag())}).v);
            return Complex(parts[0], parts[1]);
        };
    };
    check_unary<Complex>(zelk::log, single(zelk::log));
    check_unary<Complex>(zelk::sqrt, single(zelk::sqrt));
}

template <class T>
void check_integers()
{
    for (std::size_t n = 0; n <= 9; ++n) {
        const GuardedArray<T> a, b, q, r;
        for (std::size_t i = 0; i < n; ++i) {
            a.last(n)[i] = static_cast<T>(0xF0000000u + argument<std::uint32_t>(i));
            b.last(n)[i] = argument<T>(i);
        }
        zelk::apply(zelk::divrem, zelk::range(a.last(n), n), zelk::range(b.last(n), n),
                    zelk::range(q.last(n), n), zelk::range(r.last(n), n));
        for (std::size_t i = 0; i < n; ++i) {
            EXPECT_EQ(q.last(n)[i], static_cast<T>(a.last(n)[i] / b.last(n)[i])) << n;
            EXPECT_EQ(r.last(n)[i], static_cast<T>(a.last(n)[i] % b.last(n)[i])) << n;
        }
        EXPECT_TRUE(q.intact_but(q.last(n), n));
        zelk::apply(zelk::rem, zelk::range(a.last(n), n), zelk::range(b.last(n), n),
                    zelk::range(a.last(n), n));
        EXPECT_EQ(std::memcmp(a.last(n), r.last(n), n * sizeof(T)), 0) << "in place";
    }
}

TEST(Apply, IntegersOfEitherSign)
{
    check_integers<std::int32_t>();
    check_integers<std::uint32_t>();
}

TEST(Apply, EveryAlignmentInPlaceAndContainers)
{
    std::vector<float> source(40);
    std::iota(source.begin(), source.end(), 1.0f);
    for (std::size_t offset = 0; offset < 4; ++offset) {
        std::vector<float> x = source;
        zelk::apply(zelk::sqrt, zelk::range(x.data() + offset, 30), zelk::range(x.data() + offset, 30));
        EXPECT_EQ(x[offset + 15], lane(zelk::sqrt(_mm_set1_ps(16.0f + static_cast<float>(offset)))));
        EXPECT_EQ(x[offset + 30], source[offset + 30]) << "beyond the end";
    }
    // The shortest range decides.
    float sines[3] = {-5, -5, -5};
    std::vector<float> cosines(7, -5.0f);
    zelk::apply(zelk::sincos, source, sines, cosines);
    EXPECT_NEAR(sines[2], std::sin(3.0f), 1e-6f);
    EXPECT_NEAR(cosines[2], std::cos(3.0f), 1e-6f);
    EXPECT_EQ(cosines[3], -5.0f);
    std::vector<double> powers(3);
    zelk::apply(zelk::pow, std::vector<double>{2, 3, 4}, std::vector<double>{3, 2, 1}, powers);
    EXPECT_EQ(powers, (std::vector<double>{8, 9, 4}));
}

// The rest raises what its own elements raise.
TEST(Apply, TheRestKeepsItsExceptions)
{
    std::vector<float> x{1, 1, 1, 1, -1, 0};
    std::vector<float> y(6);
    std::feclearexcept(FE_ALL_EXCEPT);
    zelk::apply(zelk::invsqrt, x, y);
    EXPECT_EQ(std::fetestexcept(loud), FE_INVALID | FE_DIVBYZERO);
}

} // namespace
