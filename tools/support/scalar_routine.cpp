#include "scalar_routine.h"

#include "entries.h"

#include <algorithm>
#include <bit>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace zelk {

Bits80 bits80(const long double& x)
{
    Bits80 bits;
    std::memcpy(&bits.significand, &x, 8);
    std::memcpy(&bits.sign_exponent, reinterpret_cast<const char*>(&x) + 8, 2);
    return bits;
}

long double number(const Bits80& bits)
{
    long double x = 0;
    std::memcpy(&x, &bits.significand, 8);
    std::memcpy(reinterpret_cast<char*>(&x) + 8, &bits.sign_exponent, 2);
    return x;
}

std::string hex(const Bits80& bits)
{
    char text[40];
    std::snprintf(text, sizeof text, "%04X:%016" PRIX64, bits.sign_exponent, bits.significand);
    return text;
}

ComplexBits complex_bits(const double& re, const double& im)
{
    return {std::bit_cast<std::uint64_t>(re), std::bit_cast<std::uint64_t>(im)};
}
ComplexBits complex_bits(const float& re, const float& im)
{
    return {std::bit_cast<std::uint32_t>(re), std::bit_cast<std::uint32_t>(im)};
}

Argument::Argument(const double& x) : narrow(std::bit_cast<std::uint64_t>(x)) {}
Argument::Argument(const float& x) : narrow(std::bit_cast<std::uint32_t>(x)) {}

Argument Argument::of_bits(std::uint64_t bits)
{
    Argument result;
    result.narrow = bits;
    return result;
}

double ScalarResult::value_d() const
{
    return std::bit_cast<double>(narrow);
}

std::vector<ScalarKernel> scalar_kernels(const std::string& name)
{
    for (const ScalarEntry& entry : scalar_entries()) {
        if (entry.name != name) continue;
        std::vector<ScalarKernel> kernels = {{name, entry.signature, exported(name)}};
        for (const char tier : entry.tiers) {
            const std::string symbol = name + '.' + tier;
            kernels.push_back({symbol, entry.signature, exported(symbol), tier});
        }
        return kernels;
    }
    std::fprintf(stderr, "no scalar routine %s\n", name.c_str());
    std::abort();
}

namespace {

#if defined(__x86_64__)
constexpr bool is_64_bit = true;
constexpr std::size_t extended_slot = 16;
#else
constexpr bool is_64_bit = false;
constexpr std::size_t extended_slot = 12;
#endif

constexpr unsigned char guard = 0xA5;

// Where results go that are stored through pointers, with guards around each.
struct Destination {
    Destination() { std::memset(bytes, guard, sizeof bytes); }
    unsigned char* at() { return bytes + 16; }
    std::uintptr_t address() { return reinterpret_cast<std::uintptr_t>(at()); }
    Bits80 extended() const
    {
        Bits80 x;
        std::memcpy(&x.significand, bytes + 16, 8);
        std::memcpy(&x.sign_exponent, bytes + 24, 2);
        return x;
    }
    bool written(std::size_t size) const
    {
        const auto intact = [](unsigned char byte) { return byte == guard; };
        return std::all_of(bytes, bytes + 16, intact) &&
               std::all_of(bytes + 16 + size, bytes + sizeof bytes, intact);
    }
    alignas(16) unsigned char bytes[48];
};

unsigned precision_field(unsigned bits)
{
    return bits == 64 ? 3u : bits == 53 ? 2u : 0u;
}

// Puts arguments where the platform's convention has them.
class ArgumentWriter {
public:
    explicit ArgumentWriter(ScalarFrame& frame) : frame_(frame) {}
    void extended(const Bits80& x)
    {
        std::memcpy(frame_.stack + used_, &x.significand, 8);
        std::memcpy(frame_.stack + used_ + 8, &x.sign_exponent, 2);
        used_ += extended_slot;
    }
    void narrow(std::uint64_t bits, std::size_t size)
    {
        if (is_64_bit)
            frame_.xmm_in[registers_++] = bits;
        else
            push(bits, size);
    }
    void complex(const Argument& z, char kind)
    {
        if (kind == 'c') {
            narrow(z.imaginary << 32 | z.narrow, 8);
        } else {
            narrow(z.narrow, 8);
            narrow(z.imaginary, 8);
        }
    }
    void pointer(std::uintptr_t address)
    {
        if (is_64_bit)
            frame_.pointers[pointers_++] = address;
        else
            push(address, 4);
    }

private:
    void push(std::uint64_t bits, std::size_t size)
    {
        std::memcpy(frame_.stack + used_, &bits, size);
        used_ += size;
    }
    ScalarFrame& frame_;
    std::size_t used_ = 0;
    std::size_t registers_ = 0;
    std::size_t pointers_ = 0;
};

} // namespace

ScalarResult call_routine(const void* address, std::string_view signature, const Argument& x,
                          const Argument& y, const Environment& environment)
{
    ScalarFrame frame{};
    Destination destinations[2];
    std::memset(frame.stack, guard, sizeof frame.stack);
    ArgumentWriter arguments(frame);
    const Argument* next = &x;
    std::size_t pointers = 0;
    // i386 returns a double _Complex through a pointer before the arguments, which the callee takes off the
    // stack.
    const bool by_hidden_pointer = !is_64_bit && signature[0] == 'z';
    if (by_hidden_pointer) arguments.pointer(destinations[0].address());
    for (const char kind : signature.substr(2)) {
        if (kind == 'L' || kind == 'D') {
            arguments.pointer(destinations[pointers++].address());
            continue;
        }
        if (kind == 'l')
            arguments.extended(next->extended);
        else if (kind == 'z' || kind == 'c')
            arguments.complex(*next, kind);
        else
            arguments.narrow(next->narrow, kind == 'd' ? 8 : 4);
        next = &y;
    }
    frame.target = reinterpret_cast<std::uintptr_t>(address);
    frame.mxcsr_in = 0x1F80 | static_cast<unsigned>(environment.rounding) << 13;
    frame.control_in = 0x7F | precision_field(environment.precision) << 8 |
                       static_cast<unsigned>(environment.rounding) << 10;
    frame.stack_shift = environment.stack_shift;
    zelk_call_scalar(&frame);

    ScalarResult result{};
    const char kind = signature[0];
    const auto require = [&](bool holds, const char* what) {
        if (!holds) result.breaches += std::string(result.breaches.empty() ? "" : "; ") + what;
    };
    const bool on_x87_stack = kind == 'l' || (!is_64_bit && (kind == 'd' || kind == 'f'));
    unsigned occupied = 0;
    for (unsigned i = 0; i < 8; ++i)
        occupied += (frame.tag_out >> 2 * i & 3) != 3;
    require(occupied == (on_x87_stack ? 1u : 0u), "registers on the x87 stack");
    // fninit sets bit 6, which has no meaning.
    require((frame.control_out & 0xFFBF) == (frame.control_in & 0xFFBF), "x87 control word");
    require((frame.mxcsr_out & ~0x3Fu) == frame.mxcsr_in, "MXCSR");
    require(frame.stack_delta == (by_hidden_pointer ? -4u : 0u), "stack pointer");
    require((frame.status_out & 0x40) == 0, "x87 stack fault");

    std::memcpy(&result.extended.significand, frame.result, 8);
    std::memcpy(&result.extended.sign_exponent, frame.result + 8, 2);
    result.narrow = frame.xmm_out[0];
    if (on_x87_stack && kind == 'd') {
        const double narrow = static_cast<double>(number(result.extended));
        require(narrow != narrow || number(result.extended) == static_cast<long double>(narrow),
                "more than a double returned");
        result.narrow = std::bit_cast<std::uint64_t>(narrow);
    } else if (on_x87_stack && kind == 'f') {
        result.narrow = std::bit_cast<std::uint32_t>(static_cast<float>(number(result.extended)));
    }
    result.integer = static_cast<std::int32_t>(frame.integer_out[0]);
    for (std::size_t i = 0; i < pointers; ++i) {
        const bool doubles = signature.find('D') != signature.npos;
        require(destinations[i].written(doubles ? 16 : 10), "wrote beside a result");
        result.stored[i] = destinations[i].extended();
        if (doubles) std::memcpy(result.stored_doubles, destinations[i].at(), 16);
    }
    if (by_hidden_pointer) {
        require(destinations[0].written(16), "wrote beside the result");
        require(frame.integer_out[0] == static_cast<std::uint32_t>(destinations[0].address()),
                "address of the result");
        std::memcpy(&result.complex, destinations[0].at(), 16);
    } else if (kind == 'z') {
        result.complex = {frame.xmm_out[0], frame.xmm_out[1]};
    } else if (kind == 'c' && is_64_bit) {
        result.complex = {frame.xmm_out[0] & 0xFFFFFFFF, frame.xmm_out[0] >> 32};
    } else if (kind == 'c') {
        result.complex = {frame.integer_out[0], frame.integer_out[1]};
    }
    result.x87_flags = frame.status_out & 0x3F;
    result.sse_flags = frame.mxcsr_out & 0x3F;
    result.flags = result.x87_flags | result.sse_flags;
    return result;
}

} // namespace zelk
