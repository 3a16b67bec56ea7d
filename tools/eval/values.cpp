#include "values.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string_view>

namespace zelk::eval {

namespace {

template <class T>
struct Format;
template <>
struct Format<float> {
    static constexpr const char* name = "binary32";
    static constexpr std::size_t bytes = 4;
    static constexpr const char* quiet_nan = "7FC00000";
    static constexpr const char* signalling_nan = "7FA00000";
    static constexpr auto* read = std::strtof;
};
template <>
struct Format<double> {
    static constexpr const char* name = "binary64";
    static constexpr std::size_t bytes = 8;
    static constexpr const char* quiet_nan = "7FF8000000000000";
    static constexpr const char* signalling_nan = "7FF4000000000000";
    static constexpr auto* read = std::strtod;
};
template <>
struct Format<long double> {
    static constexpr const char* name = "extended";
    static constexpr std::size_t bytes = 10;
    static constexpr const char* quiet_nan = "7FFFC000000000000000";
    static constexpr const char* signalling_nan = "7FFFA000000000000000";
    static constexpr auto* read = std::strtold;
};

bool all_hex_digits(std::string_view text)
{
    return !text.empty() && std::ranges::all_of(text, [](unsigned char c) { return std::isxdigit(c) != 0; });
}

bool starts_with_0x(std::string_view text)
{
    return text.starts_with("0x") || text.starts_with("0X");
}

// Digits from the highest byte down; memory has the lowest byte first.
template <class T>
void set_bytes(std::string_view digits, T& value)
{
    unsigned char bytes[sizeof(T)] = {};
    for (std::size_t i = 0; i < digits.size() / 2; ++i) {
        const auto* const pair = digits.data() + digits.size() - 2 * (i + 1);
        std::from_chars(pair, pair + 2, bytes[i], 16);
    }
    std::memcpy(&value, bytes, sizeof value);
}

template <class T>
std::string bytes_of(const T& value, std::size_t count)
{
    static constexpr char digits[] = "0123456789ABCDEF";
    unsigned char bytes[sizeof(T)];
    std::memcpy(bytes, &value, sizeof value);
    std::string text;
    while (count-- > 0) {
        text += digits[bytes[count] >> 4];
        text += digits[bytes[count] & 15];
    }
    return text;
}

// Whether a number is written with no digit but 0 in its significand.
bool written_as_zero(std::string_view magnitude)
{
    const bool hexadecimal = starts_with_0x(magnitude);
    const auto significand = magnitude.substr(0, magnitude.find(hexadecimal ? 'p' : 'e'));
    return significand.find_first_of(hexadecimal ? "123456789abcdef" : "123456789") == std::string_view::npos;
}

template <class T>
void parse_floating(const std::string& text, T& value)
{
    using F = Format<T>;
    std::string magnitude = lower_case(text);
    const bool negative = magnitude.starts_with('-');
    const bool has_sign = negative || magnitude.starts_with('+');
    if (has_sign) magnitude.erase(0, 1);

    if (magnitude == "nan" || magnitude == "snan") {
        std::string pattern = magnitude == "nan" ? F::quiet_nan : F::signalling_nan;
        if (negative) pattern[0] = 'F';
        return set_bytes(pattern, value);
    }
    if (starts_with_0x(magnitude) && magnitude.find('p') == std::string::npos) {
        const auto digits = std::string_view(magnitude).substr(2);
        if (has_sign || digits.size() != 2 * F::bytes || !all_hex_digits(digits))
            throw Error("'" + text +
                        "': a hexadecimal number needs its exponent (0x1.8p3), a bit pattern of " + F::name +
                        " no sign and all its " + std::to_string(2 * F::bytes) + " digits");
        return set_bytes(digits, value);
    }
    if (magnitude.find_first_of("0123456789.i") != 0) throw Error("'" + text + "' is not a number");
    char* end = nullptr;
    value = F::read(magnitude.c_str(), &end);
    if (*end != '\0') throw Error("'" + text + "' is not a number");
    if (std::isinf(value) && magnitude[0] != 'i')
        throw Error("'" + text + "' is beyond the largest " + F::name + " number; write inf for infinity");
    if (value == 0 && !written_as_zero(magnitude))
        throw Error("'" + text + "' is below the smallest " + F::name + " number; write 0 for zero");
    if (negative) value = -value;
}

template <class T>
void parse_integer(const std::string& text, T& value)
{
    const auto* const begin = text.c_str();
    const auto* const end = begin + text.size();
    std::from_chars_result result{};
    if (starts_with_0x(text)) {
        std::uint32_t pattern = 0;
        result = std::from_chars(begin + 2, end, pattern, 16);
        value = static_cast<T>(pattern);
    } else {
        result = std::from_chars(begin + (text.starts_with('+') ? 1 : 0), end, value);
    }
    if (result.ec == std::errc::result_out_of_range)
        throw Error("'" + text + "' is outside " + std::to_string(std::numeric_limits<T>::min()) + " to " +
                    std::to_string(std::numeric_limits<T>::max()));
    if (result.ec != std::errc() || result.ptr != end) {
        const bool unsigned_negative = std::is_unsigned_v<T> && text.starts_with('-');
        throw Error("'" + text + "' is not " + (unsigned_negative ? "an unsigned number" : "an integer"));
    }
}

template <class T>
std::string decimal_floating(const T& value)
{
    if (std::isnan(value)) return std::signbit(value) ? "-nan" : "nan";
    char text[64];
    return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

} // namespace

std::string lower_case(std::string_view text)
{
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](unsigned char c) { return std::tolower(c); });
    return lower;
}

void parse(const std::string& text, float& value)
{
    parse_floating(text, value);
}
void parse(const std::string& text, double& value)
{
    parse_floating(text, value);
}
void parse(const std::string& text, long double& value)
{
    parse_floating(text, value);
}
void parse(const std::string& text, std::int32_t& value)
{
    parse_integer(text, value);
}
void parse(const std::string& text, std::uint32_t& value)
{
    parse_integer(text, value);
}

std::string decimal(const float& value)
{
    return decimal_floating(value);
}
std::string decimal(const double& value)
{
    return decimal_floating(value);
}
std::string decimal(const long double& value)
{
    return decimal_floating(value);
}
std::string decimal(std::int32_t value)
{
    return std::to_string(value);
}
std::string decimal(std::uint32_t value)
{
    return std::to_string(value);
}

std::string bits(const float& value)
{
    return bytes_of(value, Format<float>::bytes);
}
std::string bits(const double& value)
{
    return bytes_of(value, Format<double>::bytes);
}
std::string bits(const long double& value)
{
    return bytes_of(value, Format<long double>::bytes);
}
std::string bits(std::uint32_t value)
{
    return bytes_of(value, sizeof value);
}

void parse_lane(const std::string& text, Lanes lanes, Vec128& v, unsigned lane)
{
    switch (lanes) {
    case Lanes::d2:
        return parse(text, v.d[lane]);
    case Lanes::i4:
        return parse(text, v.i[lane]);
    case Lanes::u4:
        return parse(text, v.u[lane]);
    default:
        return parse(text, v.f[lane]);
    }
}

std::string lane_decimal(const Vec128& v, Lanes lanes, unsigned lane)
{
    switch (lanes) {
    case Lanes::d2:
        return decimal(v.d[lane]);
    case Lanes::i4:
        return decimal(v.i[lane]);
    case Lanes::u4:
        return decimal(v.u[lane]);
    default:
        return decimal(v.f[lane]);
    }
}

void parse_mask_lane(const std::string& text, Lanes lanes, Vec128& v, unsigned lane)
{
    const std::size_t digits = lanes == Lanes::d2 ? 16 : 8;
    const bool is_pattern =
        starts_with_0x(text) && text.size() == 2 + digits && all_hex_digits(text.substr(2));
    if (text != "0" && text != "1" && !is_pattern)
        throw Error("'" + text + "': a mask lane is 1 (active), 0 (inactive) or a bit pattern of " +
                    std::to_string(digits) + " digits");
    const std::string pattern = is_pattern ? text.substr(2) : std::string(digits, text == "1" ? 'F' : '0');
    lanes == Lanes::d2 ? set_bytes(pattern, v.q[lane]) : set_bytes(pattern, v.u[lane]);
}

std::string lane_bits(const Vec128& v, Lanes lanes, unsigned lane)
{
    return lanes == Lanes::d2 ? bits(v.d[lane]) : bits(v.u[lane]);
}

} // namespace zelk::eval
