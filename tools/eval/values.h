// Numbers as a user writes and reads them.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "call.h"
#include "entries.h"

namespace zelk::eval {

// What the user got wrong, said so that it can be put right.
struct Error : std::runtime_error {
    using std::runtime_error::runtime_error;
};

std::string lower_case(std::string_view text);

// Floating point: decimal or hexadecimal (0x1.8p3) numbers, rounded to nearest; inf, nan, snan; a bit pattern
// as 0x and all its digits. Integers: decimal, or 0x and up to eight digits. By reference: a signalling NaN
// would not survive the x87 stack.
void parse(const std::string& text, float& value);
void parse(const std::string& text, double& value);
void parse(const std::string& text, long double& value);
void parse(const std::string& text, std::int32_t& value);
void parse(const std::string& text, std::uint32_t& value);

// The shortest decimal number that reads back as the value.
std::string decimal(const float& value);
std::string decimal(const double& value);
std::string decimal(const long double& value);
std::string decimal(std::int32_t value);
std::string decimal(std::uint32_t value);
// All hexadecimal digits, the highest first.
std::string bits(const float& value);
std::string bits(const double& value);
std::string bits(const long double& value);
std::string bits(std::uint32_t value);

void parse_lane(const std::string& text, Lanes lanes, Vec128& v, unsigned lane);
// 1 active, 0 inactive, or a bit pattern.
void parse_mask_lane(const std::string& text, Lanes lanes, Vec128& v, unsigned lane);
std::string lane_decimal(const Vec128& v, Lanes lanes, unsigned lane);
std::string lane_bits(const Vec128& v, Lanes lanes, unsigned lane);

} // namespace zelk::eval
