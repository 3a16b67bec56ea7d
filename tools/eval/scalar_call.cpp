#include "scalar_call.h"

#include "values.h"

#include <cfenv>
#include <tuple>
#include <xmmintrin.h>

namespace zelk::eval {

namespace {

// The flags of both floating-point units: long double, and every result on 32-bit x86, goes through the x87.
void clear_flags()
{
    _mm_setcsr(_mm_getcsr() & ~0x3Fu);
    asm volatile("fnclex");
}

unsigned raised_flags()
{
    unsigned short x87 = 0;
    asm volatile("fnstsw %0" : "=am"(x87));
    return (_mm_getcsr() | x87) & 0x3F;
}

constexpr int modes[] = {FE_TONEAREST, FE_DOWNWARD, FE_UPWARD, FE_TOWARDZERO};

template <class Result, class... Arguments>
ScalarOutcome evaluate(const void* address, std::span<const std::string> texts, Rounding rounding)
{
    std::tuple<Arguments...> arguments;
    ScalarOutcome outcome{};
    std::apply(
        [&](auto&... argument) {
            std::size_t i = 0;
            (parse(texts[i++], argument), ...);
            (outcome.arguments.push_back({decimal(argument), bits(argument)}), ...);
        },
        arguments);

    const auto function =
        reinterpret_cast<Result (*)(Arguments...)>(reinterpret_cast<std::uintptr_t>(address));
    std::fesetround(modes[static_cast<unsigned>(rounding)]);
    clear_flags();
    const Result result = std::apply(function, arguments);
    outcome.flags = raised_flags();
    std::fesetround(FE_TONEAREST);
    outcome.results = {{decimal(result), bits(result)}};
    return outcome;
}

// Routines of one extended argument that store two results.
template <class Number, class Call>
ScalarOutcome evaluate_storing(std::span<const std::string> texts, Rounding rounding, Call call)
{
    long double x = 0;
    Number stored[2] = {};
    parse(texts[0], x);
    ScalarOutcome outcome{{{decimal(x), bits(x)}}, {}, 0};
    std::fesetround(modes[static_cast<unsigned>(rounding)]);
    clear_flags();
    call(x, stored, outcome.results);
    outcome.flags = raised_flags();
    std::fesetround(FE_TONEAREST);
    for (const Number& number : stored)
        outcome.results.push_back({decimal(number), bits(number)});
    return outcome;
}

ScalarOutcome evaluate_v_lLL(const void* address, std::span<const std::string> texts, Rounding rounding)
{
    using Function = void (*)(long double, long double*, long double*);
    return evaluate_storing<long double>(texts, rounding, [&](long double x, long double* stored, auto&) {
        reinterpret_cast<Function>(reinterpret_cast<std::uintptr_t>(address))(x, &stored[0], &stored[1]);
    });
}
ScalarOutcome evaluate_v_LLl(const void* address, std::span<const std::string> texts, Rounding rounding)
{
    using Function = void (*)(long double*, long double*, long double);
    return evaluate_storing<long double>(texts, rounding, [&](long double x, long double* stored, auto&) {
        reinterpret_cast<Function>(reinterpret_cast<std::uintptr_t>(address))(&stored[0], &stored[1], x);
    });
}
ScalarOutcome evaluate_i_lD(const void* address, std::span<const std::string> texts, Rounding rounding)
{
    using Function = int (*)(long double, double*);
    return evaluate_storing<double>(texts, rounding, [&](long double x, double* stored, auto& results) {
        const std::int32_t n =
            reinterpret_cast<Function>(reinterpret_cast<std::uintptr_t>(address))(x, stored);
        results.push_back({decimal(n), bits(static_cast<std::uint32_t>(n))});
    });
}

struct Form {
    const char* signature;
    std::size_t arguments;
    ScalarOutcome (*evaluate)(const void*, std::span<const std::string>, Rounding);
};

constexpr Form forms[] = {
    {"f_f", 1, evaluate<float, float>},
    {"f_ff", 2, evaluate<float, float, float>},
    {"d_d", 1, evaluate<double, double>},
    {"d_dd", 2, evaluate<double, double, double>},
    {"l_l", 1, evaluate<long double, long double>},
    {"l_ll", 2, evaluate<long double, long double, long double>},
    {"v_lLL", 1, evaluate_v_lLL},
    {"v_LLl", 1, evaluate_v_LLl},
    {"i_lD", 1, evaluate_i_lD},
};

const Form* form_of(const std::string& signature)
{
    for (const Form& form : forms)
        if (signature == form.signature) return &form;
    return nullptr;
}

} // namespace

std::optional<std::size_t> scalar_arguments(const std::string& signature)
{
    const Form* const form = form_of(signature);
    return form ? std::optional(form->arguments) : std::nullopt;
}

ScalarOutcome call_scalar(const void* address, const std::string& signature,
                          std::span<const std::string> arguments, Rounding rounding)
{
    return form_of(signature)->evaluate(address, arguments, rounding);
}

} // namespace zelk::eval
