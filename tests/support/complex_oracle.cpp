#include "complex_oracle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>

namespace zelk::test {

namespace {

class ExactComplex {
public:
    ExactComplex() { mpc_init2(value, 150); }
    ~ExactComplex() { mpc_clear(value); }
    ExactComplex(const ExactComplex&) = delete;
    ExactComplex& operator=(const ExactComplex&) = delete;
    mpc_t value;
};

template <class T>
void note(WorstPart& part, const std::complex<T>& z, T got, mpfr_srcptr exact)
{
    const double error = ulp_error(got, exact);
    if (error > part.ulp)
        part = {error, static_cast<double>(z.real()), static_cast<double>(z.imag()),
                static_cast<double>(got)};
}

std::complex<double> result_of(const ScalarResult& result, double)
{
    return {std::bit_cast<double>(result.complex.re), std::bit_cast<double>(result.complex.im)};
}
std::complex<float> result_of(const ScalarResult& result, float)
{
    return {std::bit_cast<float>(static_cast<std::uint32_t>(result.complex.re)),
            std::bit_cast<float>(static_cast<std::uint32_t>(result.complex.im))};
}

template <class T>
std::complex<T> evaluate(const ScalarKernel& kernel, const std::complex<T>& z, Rounding rounding, std::size_t)
{
    return result_of(call_scalar(kernel, complex_bits(z.real(), z.imag()), {}, {rounding}), T{});
}
// In the lanes in turn, beside another number: they do not influence each other.
std::complex<float> evaluate(const Kernel& kernel, const std::complex<float>& z, Rounding rounding,
                             std::size_t turn)
{
    Vec128 v = floats(z.imag(), z.real(), z.imag(), z.real());
    const std::size_t re = 2 * (turn % 2);
    v.f[re] = z.real();
    v.f[re + 1] = z.imag();
    const Result result = call(kernel.address, v, {}, {}, nullptr, rounding);
    return {result.first.f[re], result.first.f[re + 1]};
}

template <class AnyKernel, class T>
std::vector<WorstComplex> search(std::span<const AnyKernel> kernels,
                                 std::span<const std::complex<T>> arguments, ComplexFunction exact,
                                 Rounding rounding)
{
    std::vector<WorstComplex> worst;
    for (const AnyKernel& kernel : kernels)
        worst.push_back({kernel.symbol, {}, {}});
    ExactComplex argument;
    ExactComplex value;
    for (std::size_t turn = 0; turn < arguments.size(); ++turn) {
        const auto& z = arguments[turn];
        mpc_set_d_d(argument.value, static_cast<double>(z.real()), static_cast<double>(z.imag()), MPC_RNDNN);
        exact(value.value, argument.value, MPC_RNDNN);
        for (std::size_t i = 0; i < kernels.size(); ++i) {
            const std::complex<T> got = evaluate(kernels[i], z, rounding, turn);
            note(worst[i].re, z, got.real(), mpc_realref(value.value));
            note(worst[i].im, z, got.imag(), mpc_imagref(value.value));
        }
    }
    return worst;
}

std::string text(const WorstPart& part)
{
    char buffer[160];
    std::snprintf(buffer, sizeof buffer, "%.4f ulp at (%a, %a) (got %a)", part.ulp, part.x, part.y, part.got);
    return buffer;
}

} // namespace

std::vector<WorstComplex> worst_errors(std::span<const Kernel> kernels,
                                       std::span<const std::complex<float>> arguments, ComplexFunction exact,
                                       Rounding rounding)
{
    return search(kernels, arguments, exact, rounding);
}
std::vector<WorstComplex> worst_errors(std::span<const ScalarKernel> kernels,
                                       std::span<const std::complex<float>> arguments, ComplexFunction exact,
                                       Rounding rounding)
{
    return search(kernels, arguments, exact, rounding);
}
std::vector<WorstComplex> worst_errors(std::span<const ScalarKernel> kernels,
                                       std::span<const std::complex<double>> arguments, ComplexFunction exact,
                                       Rounding rounding)
{
    return search(kernels, arguments, exact, rounding);
}

void expect_errors_within(double bound_re, double bound_im, std::span<const WorstComplex> worst,
                          const std::string& path)
{
    for (const auto& [symbol, re, im] : worst) {
        std::printf("[ MEASURED ] %s, %s: re %s, im %s\n", symbol.c_str(), path.c_str(), text(re).c_str(),
                    text(im).c_str());
        EXPECT_LE(re.ulp, bound_re) << symbol << ", " << path << ", real part: " << text(re);
        EXPECT_LE(im.ulp, bound_im) << symbol << ", " << path << ", imaginary part: " << text(im);
    }
}

namespace {

std::uint64_t bits_of(const Part& part, bool wide)
{
    if (part.kind == Part::quiet) return wide ? 0x7FF8000000000123 : 0x7FC00123;
    if (part.kind == Part::signalling) return wide ? 0x7FF4000000000123 : 0x7FA00123;
    if (wide) return std::bit_cast<std::uint64_t>(part.value);
    return std::bit_cast<std::uint32_t>(static_cast<float>(part.value));
}

void expect_part(const Part& expected, std::uint64_t got, bool wide, const std::string& context)
{
    const std::uint64_t quiet = wide ? 0x7FF8000000000000 : 0x7FC00000;
    if (expected.kind == Part::number)
        EXPECT_EQ(got, bits_of(expected, wide)) << context << std::hex << got;
    else
        EXPECT_EQ(got & quiet, quiet) << context << std::hex << got;
}

std::string name_of(const SpecialComplex& special)
{
    const auto name = [](const Part& part) {
        char buffer[40];
        std::snprintf(buffer, sizeof buffer, "%a", part.value);
        return std::string(part.kind == Part::quiet        ? "NaN"
                           : part.kind == Part::signalling ? "signalling NaN"
                                                           : buffer);
    };
    return '(' + name(special.x) + ", " + name(special.y) + ')';
}

} // namespace

void check_specials(const ScalarKernel& kernel, std::span<const SpecialComplex> cases,
                    std::span<const Rounding> roundings)
{
    const bool wide = kernel.signature[0] == 'z';
    for (const SpecialComplex& special : cases)
        for (const Rounding rounding : roundings)
            for (const unsigned precision : {64u, 53u, 24u}) {
                const ComplexBits z{bits_of(special.x, wide), bits_of(special.y, wide)};
                const ScalarResult result = call_scalar(kernel, z, {}, {rounding, precision, 0});
                const std::string context = kernel.symbol + ' ' + name_of(special) + ", rounding " +
                                            std::to_string(static_cast<unsigned>(rounding)) + ", precision " +
                                            std::to_string(precision) + ", ";
                expect_part(special.re, result.complex.re, wide, context + "real part ");
                expect_part(special.im, result.complex.im, wide, context + "imaginary part ");
                EXPECT_EQ(flag_names(result.flags & loud_flags), flag_names(special.flags)) << context;
            }
}

void check_specials(const Kernel& kernel, std::span<const SpecialComplex> cases, std::complex<float> ordinary,
                    std::span<const Rounding> roundings)
{
    for (const SpecialComplex& special : cases)
        for (const Rounding rounding : roundings) {
            const Vec128 plain = floats(ordinary.real(), ordinary.imag(), ordinary.real(), ordinary.imag());
            const Result alone = call(kernel.address, plain, {}, {}, nullptr, rounding);
            for (unsigned where = 1; where < 4; ++where) { // number 0, number 1, both
                Vec128 z = plain;
                for (unsigned number = 0; number < 2; ++number) {
                    if (!(where >> number & 1)) continue;
                    z.u[2 * number] = static_cast<std::uint32_t>(bits_of(special.x, false));
                    z.u[2 * number + 1] = static_cast<std::uint32_t>(bits_of(special.y, false));
                }
                const Result result = call(kernel.address, z, {}, {}, nullptr, rounding);
                const std::string context = kernel.symbol + ' ' + name_of(special) + " in " +
                                            std::to_string(where) + ", rounding " +
                                            std::to_string(static_cast<unsigned>(rounding)) + ", ";
                for (unsigned number = 0; number < 2; ++number) {
                    if (where >> number & 1) {
                        expect_part(special.re, result.first.u[2 * number], false, context + "real part ");
                        expect_part(special.im, result.first.u[2 * number + 1], false,
                                    context + "imaginary part ");
                    } else {
                        EXPECT_EQ(result.first.q[number], alone.first.q[number])
                            << context << "the other number";
                    }
                }
                EXPECT_EQ(flag_names(result.flags & loud_flags), flag_names(special.flags)) << context;
            }
        }
}

} // namespace zelk::test
