#include "call.h"

#include <cinttypes>
#include <cstdio>

namespace zelk {

Vec128 floats(float a, float b, float c, float d)
{
    Vec128 v;
    v.f[0] = a;
    v.f[1] = b;
    v.f[2] = c;
    v.f[3] = d;
    return v;
}

Vec128 doubles(double a, double b)
{
    Vec128 v;
    v.d[0] = a;
    v.d[1] = b;
    return v;
}

Vec128 words(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d)
{
    return Vec128{.u = {a, b, c, d}};
}

Vec128 quads(std::uint64_t a, std::uint64_t b)
{
    return Vec128{.q = {a, b}};
}

std::string hex(const Vec128& v)
{
    char text[64];
    std::snprintf(text, sizeof text, "(%08" PRIX32 " %08" PRIX32 " %08" PRIX32 " %08" PRIX32 ")", v.u[0],
                  v.u[1], v.u[2], v.u[3]);
    return text;
}

std::string flag_names(unsigned flags)
{
    static constexpr const char* names[] = {"invalid",  "denormal",  "divide-by-zero",
                                            "overflow", "underflow", "inexact"};
    std::string text;
    for (unsigned bit = 0; bit < 6; ++bit) {
        if (!(flags >> bit & 1)) continue;
        if (!text.empty()) text += ' ';
        text += names[bit];
    }
    return text.empty() ? "none" : text;
}

Result call(const void* target, const Vec128& a, const Vec128& b, const Vec128& mask, void* pointer,
            Rounding rounding)
{
    CallFrame frame{};
    frame.in[0] = a;
    frame.in[1] = b;
    frame.in[2] = mask;
    frame.target = reinterpret_cast<std::uintptr_t>(target);
    frame.pointer = reinterpret_cast<std::uintptr_t>(pointer);
    frame.mxcsr_in = 0x1F80 | static_cast<unsigned>(rounding) << 13;
    zelk_call(&frame);
    return {frame.out[0], frame.out[1], frame.mxcsr_out & 0x3F};
}

} // namespace zelk
