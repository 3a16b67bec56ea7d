#include "arguments.h"

#include "exact.h"
#include "hard_arguments.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>

namespace zelk::accuracy {

namespace {

// Made by tools/hard_to_round.cpp: the exact result is within 2^-30 ulp of a midpoint.
const struct {
    std::string_view entry;
    double x;
} hard_to_round[] = {
#include "hard_to_round.inc"
};

// Numbers of one floating-point format, each made in T, which is that format or a wider one.
template <class T>
class Numbers {
public:
    explicit Numbers(const Format& format) : format_(format) {}

    // Uniform in the binade from 2^(exponent-1); below the normal ones, in all subnormals of that exponent.
    T in_binade(Random& random, int exponent) const
    {
        const int digits = std::min(format_.digits, exponent - format_.min_exponent + format_.digits);
        if (digits <= 0) return std::ldexp(T{1}, format_.min_exponent - format_.digits);
        const std::uint64_t low = std::uint64_t{1} << (digits - 1);
        const std::uint64_t significand = low + (random.next() & (low - 1));
        return std::ldexp(static_cast<T>(significand), exponent - digits);
    }
    T in_interval(Random& random, T from, T to) const { return round(from + (to - from) * unit(random)); }
    T between(Random& random, T from, T to) const // uniform in the bit pattern
    {
        if constexpr (is_wide) { // in the exponent and in the significand
            const T whole = pattern_scale(from) + (pattern_scale(to) - pattern_scale(from)) * unit(random);
            const int exponent = static_cast<int>(std::floor(whole));
            return std::clamp(in_binade(random, exponent + 1), from, to);
        } else {
            const std::int64_t low = pattern(from);
            const auto width = static_cast<std::uint64_t>(pattern(to) - low) + 1;
            return at_pattern(low + static_cast<std::int64_t>(random.next() % width));
        }
    }
    // The positive numbers around x, which may be zero.
    template <class Visit>
    void visit_neighbours(T x, int radius, Visit visit) const
    {
        if constexpr (is_wide) {
            T near = x;
            for (int i = 0; i < radius && near > 0; ++i)
                near = std::nextafter(near, T{0});
            for (const T end = x; near <= end; near = std::nextafter(near, largest()))
                visit(near);
            for (int i = 0; i < radius; ++i, near = std::nextafter(near, largest()))
                visit(near);
        } else {
            const std::int64_t middle = pattern(round(x));
            for (std::int64_t bits = std::max<std::int64_t>(middle - radius, 0); bits <= middle + radius;
                 ++bits)
                visit(at_pattern(bits));
        }
    }
    // On either side of x, at any distance in proportion.
    T approaching(Random& random, T x) const
    {
        const int exponent = -1 - static_cast<int>(random.next() % static_cast<unsigned>(format_.digits));
        const T offset = std::ldexp(x, exponent) * (1 + unit(random));
        return round(random.next() >> 63 ? x + offset : x - offset / 2);
    }
    // Another number of the same sign, from next to it to one of another binade.
    T near(Random& random, T x) const
    {
        if (x == 0) return x;
        if constexpr (is_wide) {
            const int shift = static_cast<int>(random.next() % 63);
            const auto offset =
                static_cast<std::int64_t>(random.next() >> (63 - shift)) - (std::int64_t{1} << shift);
            const int exponent = std::max(std::ilogb(x) + 1, format_.min_exponent) - format_.digits;
            const T moved = std::fabs(x) + std::ldexp(static_cast<T>(offset), exponent);
            return std::copysign(std::clamp(moved, std::numeric_limits<T>::denorm_min(), largest()), x);
        } else {
            const int shift = static_cast<int>(random.next() % static_cast<unsigned>(format_.digits + 1));
            const auto offset =
                static_cast<std::int64_t>(random.next() >> (63 - shift)) - (std::int64_t{1} << shift);
            const std::int64_t bits =
                std::clamp<std::int64_t>(pattern(std::fabs(x)) + offset, 1, pattern(largest()));
            return std::copysign(at_pattern(bits), x);
        }
    }
    T round(T x) const { return format_.digits == 24 ? static_cast<T>(static_cast<float>(x)) : x; }
    T largest() const { return std::ldexp(1 - std::ldexp(T{1}, -format_.digits), format_.max_exponent); }
    int smallest_exponent() const { return format_.min_exponent - format_.digits + 1; }
    int largest_exponent() const { return format_.max_exponent; }

private:
    static constexpr bool is_wide = sizeof(T) > sizeof(double);

    static T unit(Random& random)
    {
        if constexpr (is_wide) return static_cast<T>(random.next() >> 1) * T{0x1p-63};
        return static_cast<T>(random.next() >> 11) * T{0x1p-53};
    }
    // The logarithm, linear within a binade.
    T pattern_scale(T x) const
    {
        if (x == 0) return static_cast<T>(smallest_exponent() - 1);
        const int exponent = std::ilogb(x);
        return static_cast<T>(exponent) + (std::ldexp(x, -exponent) - 1);
    }
    std::int64_t pattern(double x) const
    {
        return format_.digits == 24 ? std::bit_cast<std::int32_t>(static_cast<float>(x))
                                    : std::bit_cast<std::int64_t>(x);
    }
    double at_pattern(std::int64_t bits) const
    {
        return format_.digits == 24
                   ? static_cast<double>(std::bit_cast<float>(static_cast<std::int32_t>(bits)))
                   : std::bit_cast<double>(bits);
    }
    Format format_;
};

template <class T>
T with_random_sign(Random& random, T x)
{
    return random.next() >> 63 ? -x : x;
}

template <class T>
class Collection {
public:
    Collection(const Entry& entry, const Function& function, const Amount& amount)
        : entry_(entry), function_(function), amount_(amount), numbers_(format_of(entry.lanes))
    {
        if (function.pairs == Pairs::division)
            add_divisions();
        else if (is_complex(entry.lanes))
            add_complex();
        else if (entry.args == 2)
            add_pairs();
        else
            add_single();
    }
    std::vector<Argument> list;

private:
    template <class Make>
    void add(std::uint64_t stratum, std::size_t count, Make make)
    {
        Random random(stratum * 0x9E3779B97F4A7C15 + 1);
        for (std::size_t i = 0; i < count; ++i)
            list.push_back(make(random));
    }

    template <class Make>
    void add_binades(std::uint64_t stratum, int from, int to, std::size_t total, Make make)
    {
        const std::size_t binades = static_cast<std::size_t>(to - from) + 1;
        const std::size_t each = total / binades + 1;
        // Of more binades than arguments every second, every fourth and so on.
        int step = 1;
        while (is_wide && binades / static_cast<std::size_t>(step) > total + 64)
            step *= 2;
        for (int exponent = from; exponent <= to; exponent += step)
            add(stratum * 10000 + static_cast<std::uint64_t>(exponent + 5000), each,
                [&](Random& random) { return make(random, exponent); });
    }

    void add_single()
    {
        const auto in_binade = [&](Random& random, int exponent) {
            return Argument{with_random_sign(random, numbers_.in_binade(random, exponent)), 0};
        };
        add_binades(1, numbers_.smallest_exponent(), numbers_.largest_exponent(), amount_.samples / 4,
                    in_binade);
        add_binades(2, -ordinary_exponents, ordinary_exponents, amount_.samples / 4, in_binade);
        // Between the edges, and one interval of the same kind beyond the last.
        const std::size_t intervals = function_.edges.size() + 1;
        T from = 0;
        for (std::size_t i = 0; i < intervals; ++i) {
            const bool is_last = i + 1 == intervals;
            const T to = is_last ? std::max<T>(2 * from, 4) : edge(i);
            const std::size_t each = amount_.samples / 4 / intervals;
            add(3000 + i, each, [&](Random& random) {
                return Argument{with_random_sign(random, numbers_.in_interval(random, from, to)), 0};
            });
            add(4000 + i, each, [&](Random& random) {
                const T end = is_last ? numbers_.largest() : to;
                return Argument{
                    with_random_sign(random, numbers_.between(random, std::max(from, to * T{0x1p-30}), end)),
                    0};
            });
            from = to;
        }
        for (std::size_t i = 0; i < function_.edges.size(); ++i)
            add(5000 + i, amount_.samples / 4 / function_.edges.size(), [&](Random& random) {
                return Argument{with_random_sign(random, numbers_.approaching(random, edge(i))), 0};
            });
        for (std::size_t i = 0; i < function_.edges.size(); ++i)
            add_neighbours(edge(i));
        add_neighbours(1);
        add_neighbours(0);
        add_neighbours(std::ldexp(T{1}, numbers_.smallest_exponent()));
        add_neighbours(std::ldexp(T{1}, format_of(entry_.lanes).min_exponent - 1));
        for (const auto& [entry, x] : hard_to_round)
            if (entry == entry_.name) list.insert(list.end(), {{x, 0}, {-x, 0}});
        if (function_.is_circular && entry_.lanes == Lanes::d2) add_both_signs(near_multiples_of_half_pi());
        if (function_.is_circular && entry_.lanes == Lanes::f4) add_both_signs(near_multiples_of_half_pi_f());
        if (function_.is_circular && entry_.lanes == Lanes::l)
            add_both_signs(near_multiples_of_half_pi_l(amount_.samples < 200000 ? 16 : 1));
        if (function_.is_in_degrees) add_near_multiples_of_90();
    }

    template <class Number>
    void add_both_signs(const std::vector<Number>& numbers)
    {
        for (const Number x : numbers)
            list.insert(list.end(), {{x, 0}, {-x, 0}});
    }

    // Of all sizes at which a multiple is a number and its neighbours are no whole degrees; next to it and
    // near.
    void add_near_multiples_of_90()
    {
        add(6000, amount_.samples / 4, [&](Random& random) {
            const T multiple = 90 * static_cast<T>(random.next() >> (7 + random.next() % 57));
            const std::uint64_t which = random.next() % 4;
            const T near = which == 0   ? multiple
                           : which == 1 ? std::nextafter(multiple, T{0})
                           : which == 2 ? std::nextafter(multiple, numbers_.largest())
                                        : numbers_.near(random, multiple);
            return Argument{with_random_sign(random, near), 0};
        });
    }

    void add_neighbours(T x)
    {
        numbers_.visit_neighbours(x, amount_.radius, [&](T near) {
            list.insert(list.end(), {{near, 0}, {-near, 0}});
        });
    }

    T in_any_binade(Random& random, int from, int to) const
    {
        const int exponent = from + static_cast<int>(random.next() % static_cast<unsigned>(to - from + 1));
        return with_random_sign(random, numbers_.in_binade(random, exponent));
    }

    void add_pairs()
    {
        const std::size_t third = amount_.samples / 3;
        add_binades(11, numbers_.smallest_exponent(), numbers_.largest_exponent(), third,
                    [&](Random& random, int exponent) {
                        const T x = with_random_sign(random, numbers_.in_binade(random, exponent));
                        return Argument{x, in_any_binade(random, numbers_.smallest_exponent(),
                                                         numbers_.largest_exponent())};
                    });
        add(12, third, [&](Random& random) {
            const T x = in_any_binade(random, -ordinary_exponents, ordinary_exponents);
            return Argument{x, in_any_binade(random, -ordinary_exponents, ordinary_exponents)};
        });
        if (function_.pairs == Pairs::power) return add_powers(third);
        add(13, third, [&](Random& random) { // comparable in size
            const T x = in_any_binade(random, numbers_.smallest_exponent(), numbers_.largest_exponent() - 2);
            const T ratio =
                std::ldexp(numbers_.in_binade(random, 0), static_cast<int>(random.next() % 4) - 1);
            return Argument{x, with_random_sign(random, numbers_.round(x * ratio))};
        });
    }

    // Results over the whole range and a little beyond: of bases next to 1, of others, of subnormal ones and,
    // with integer exponents, of negative ones.
    void add_powers(std::size_t count)
    {
        const T range = format_of(entry_.lanes).max_exponent * 1.2;
        const auto exponent_for = [&](Random& random, T x) {
            return numbers_.round(numbers_.in_interval(random, -range, range) / std::log2(std::fabs(x)));
        };
        add(14, count / 2, [&](Random& random) {
            const T x = std::fabs(in_any_binade(random, -ordinary_exponents, ordinary_exponents));
            return Argument{x, exponent_for(random, x)};
        });
        for (std::size_t i = 0; i < function_.edges.size(); ++i)
            add(5000 + i, count / 2 / function_.edges.size(), [&](Random& random) {
                const T x = numbers_.approaching(random, edge(i));
                return Argument{x == 1 ? 2 : x, exponent_for(random, x == 1 ? 2 : x)};
            });
        add(16, count / 8, [&](Random& random) {
            const T x = in_any_binade(random, 1, ordinary_exponents);
            return Argument{x, std::rint(exponent_for(random, x))};
        });
        add(17, count / 8, [&](Random& random) {
            const T x = std::fabs(in_any_binade(random, numbers_.smallest_exponent(),
                                                format_of(entry_.lanes).min_exponent - 1));
            return Argument{x, exponent_for(random, x)};
        });
    }

    void add_complex()
    {
        const std::size_t third = amount_.samples / 3;
        add_binades(21, numbers_.smallest_exponent(), numbers_.largest_exponent(), third,
                    [&](Random& random, int exponent) {
                        const T x = with_random_sign(random, numbers_.in_binade(random, exponent));
                        return Argument{x, in_any_binade(random, numbers_.smallest_exponent(),
                                                         numbers_.largest_exponent())};
                    });
        add(22, third, [&](Random& random) {
            const T x = in_any_binade(random, -ordinary_exponents, ordinary_exponents);
            return Argument{x, in_any_binade(random, -ordinary_exponents, ordinary_exponents)};
        });
        add(23, third, [&](Random& random) { // next to the unit circle, and to 1
            const T angle = numbers_.in_interval(random, -3.2, 3.2);
            const T radius = 1 + in_any_binade(random, -24, -1) * static_cast<T>(random.next() & 1);
            return Argument{numbers_.round(radius * std::cos(angle)),
                            numbers_.round(radius * std::sin(angle))};
        });
    }

    // Both of any length in bits. Zero divisors and the overflowing quotient have no exact result.
    void add_divisions()
    {
        const bool is_signed = entry_.lanes == Lanes::i4;
        add(31, amount_.samples, [&](Random& random) {
            const auto any = [&] {
                const auto bits = static_cast<std::uint32_t>(random.next());
                const unsigned shift = static_cast<unsigned>(random.next() % 32);
                return is_signed ? static_cast<double>(static_cast<std::int32_t>(bits) >> shift)
                                 : static_cast<double>(bits >> shift);
            };
            Argument pair{any(), any()};
            if (pair.y == 0 || (pair.y == -1 && pair.x == -0x1p31)) pair.y = 1;
            return pair;
        });
    }

    T edge(std::size_t i) const { return static_cast<T>(function_.edges[i].value); }

    static constexpr bool is_wide = sizeof(T) > sizeof(double);
    // Most functions do their work here.
    static constexpr int ordinary_exponents = is_wide ? 64 : 12;

    const Entry& entry_;
    const Function& function_;
    const Amount& amount_;
    Numbers<T> numbers_;
};

template <class T>
std::vector<Argument> near_each(const Numbers<T>& numbers, const std::vector<Argument>& arguments,
                                std::uint64_t seed)
{
    constexpr int each = 256;
    Random random(seed);
    std::vector<Argument> list;
    for (const Argument& argument : arguments)
        for (int i = 0; i < each; ++i) {
            const auto x = static_cast<T>(argument.x);
            const auto y = static_cast<T>(argument.y);
            const std::uint64_t which = random.next() % 4; // both, or one of a pair
            list.push_back(
                {which == 0 ? x : numbers.near(random, x), which == 1 ? y : numbers.near(random, y)});
        }
    return list;
}

} // namespace

std::vector<Argument> survey_arguments(const Entry& entry, const Function& function, const Amount& amount)
{
    return entry.lanes == Lanes::l ? Collection<long double>(entry, function, amount).list
                                   : Collection<double>(entry, function, amount).list;
}

std::vector<Argument> surroundings(const Entry& entry, const std::vector<Argument>& arguments,
                                   std::uint64_t seed)
{
    const Format format = format_of(entry.lanes);
    return entry.lanes == Lanes::l ? near_each(Numbers<long double>(format), arguments, seed)
                                   : near_each(Numbers<double>(format), arguments, seed);
}

} // namespace zelk::accuracy
