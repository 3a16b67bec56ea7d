#include "arguments.h"

#include "exact.h"
#include "hard_arguments.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

namespace zelk::accuracy {

namespace {

// Numbers of one floating-point format, each made in binary64.
class Numbers {
public:
    explicit Numbers(const Format& format) : format_(format) {}

    // Uniform in the binade from 2^(exponent-1); below the normal ones, in all subnormals of that exponent.
    double in_binade(Random& random, int exponent) const
    {
        const int digits = std::min(format_.digits, exponent - format_.min_exponent + format_.digits);
        if (digits <= 0) return std::ldexp(1.0, format_.min_exponent - format_.digits);
        const std::uint64_t low = std::uint64_t{1} << (digits - 1);
        const std::uint64_t significand = low + (random.next() & (low - 1));
        return std::ldexp(static_cast<double>(significand), exponent - digits);
    }
    double in_interval(Random& random, double from, double to) const
    {
        const double unit = static_cast<double>(random.next() >> 11) * 0x1p-53;
        return round(from + (to - from) * unit);
    }
    double between(Random& random, double from, double to) const // uniform in the bit pattern
    {
        const std::int64_t low = pattern(from);
        const auto width = static_cast<std::uint64_t>(pattern(to) - low) + 1;
        return at_pattern(low + static_cast<std::int64_t>(random.next() % width));
    }
    // The positive numbers around x, which may be zero.
    template <class Visit>
    void visit_neighbours(double x, int radius, Visit visit) const
    {
        const std::int64_t middle = pattern(round(x));
        for (std::int64_t bits = std::max<std::int64_t>(middle - radius, 0); bits <= middle + radius; ++bits)
            visit(at_pattern(bits));
    }
    // On either side of x, at any distance in proportion.
    double approaching(Random& random, double x) const
    {
        const int exponent = -1 - static_cast<int>(random.next() % static_cast<unsigned>(format_.digits));
        const double offset =
            std::ldexp(x, exponent) * (1 + static_cast<double>(random.next() >> 11) * 0x1p-53);
        return round(random.next() >> 63 ? x + offset : x - offset / 2);
    }
    // Another number of the same sign, from next to it to one of another binade.
    double near(Random& random, double x) const
    {
        if (x == 0) return x;
        const int shift = static_cast<int>(random.next() % static_cast<unsigned>(format_.digits + 1));
        const auto offset =
            static_cast<std::int64_t>(random.next() >> (63 - shift)) - (std::int64_t{1} << shift);
        const std::int64_t bits =
            std::clamp<std::int64_t>(pattern(std::fabs(x)) + offset, 1, pattern(largest()));
        return std::copysign(at_pattern(bits), x);
    }
    double round(double x) const
    {
        return format_.digits == 24 ? static_cast<double>(static_cast<float>(x)) : x;
    }
    double largest() const { return std::ldexp(1 - std::ldexp(1.0, -format_.digits), format_.max_exponent); }
    int smallest_exponent() const { return format_.min_exponent - format_.digits + 1; }
    int largest_exponent() const { return format_.max_exponent; }

private:
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

double with_random_sign(Random& random, double x)
{
    return random.next() >> 63 ? -x : x;
}

// Most functions do their work here.
constexpr int ordinary_exponents = 12;

class Collection {
public:
    Collection(const Entry& entry, const Function& function, const Amount& amount)
        : entry_(entry), function_(function), amount_(amount), numbers_(format_of(entry.lanes))
    {
        if (function.pairs == Pairs::division)
            add_divisions();
        else if (entry.lanes == Lanes::c2)
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
        const std::size_t each = total / static_cast<std::size_t>(to - from + 1) + 1;
        for (int exponent = from; exponent <= to; ++exponent)
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
        double from = 0;
        for (std::size_t i = 0; i < intervals; ++i) {
            const bool is_last = i + 1 == intervals;
            const double to = is_last ? std::max(2 * from, 4.0) : function_.edges[i].value;
            const std::size_t each = amount_.samples / 4 / intervals;
            add(3000 + i, each, [&](Random& random) {
                return Argument{with_random_sign(random, numbers_.in_interval(random, from, to)), 0};
            });
            add(4000 + i, each, [&](Random& random) {
                const double end = is_last ? numbers_.largest() : to;
                return Argument{
                    with_random_sign(random, numbers_.between(random, std::max(from, to * 0x1p-30), end)), 0};
            });
            from = to;
        }
        for (std::size_t i = 0; i < function_.edges.size(); ++i)
            add(5000 + i, amount_.samples / 4 / function_.edges.size(), [&](Random& random) {
                return Argument{
                    with_random_sign(random, numbers_.approaching(random, function_.edges[i].value)), 0};
            });
        for (const Edge& edge : function_.edges)
            add_neighbours(edge.value);
        add_neighbours(1);
        add_neighbours(0);
        add_neighbours(std::ldexp(1.0, numbers_.smallest_exponent()));
        add_neighbours(std::ldexp(1.0, format_of(entry_.lanes).min_exponent - 1));
        if (function_.is_circular && entry_.lanes == Lanes::d2)
            for (const double x : near_multiples_of_half_pi())
                list.insert(list.end(), {{x, 0}, {-x, 0}});
        if (function_.is_circular && entry_.lanes == Lanes::f4)
            for (const float x : near_multiples_of_half_pi_f())
                list.insert(list.end(), {{x, 0}, {-x, 0}});
    }

    void add_neighbours(double x)
    {
        numbers_.visit_neighbours(x, amount_.radius, [&](double near) {
            list.insert(list.end(), {{near, 0}, {-near, 0}});
        });
    }

    double in_any_binade(Random& random, int from, int to) const
    {
        const int exponent = from + static_cast<int>(random.next() % static_cast<unsigned>(to - from + 1));
        return with_random_sign(random, numbers_.in_binade(random, exponent));
    }

    void add_pairs()
    {
        const std::size_t third = amount_.samples / 3;
        add_binades(11, numbers_.smallest_exponent(), numbers_.largest_exponent(), third,
                    [&](Random& random, int exponent) {
                        const double x = with_random_sign(random, numbers_.in_binade(random, exponent));
                        return Argument{x, in_any_binade(random, numbers_.smallest_exponent(),
                                                         numbers_.largest_exponent())};
                    });
        add(12, third, [&](Random& random) {
            const double x = in_any_binade(random, -ordinary_exponents, ordinary_exponents);
            return Argument{x, in_any_binade(random, -ordinary_exponents, ordinary_exponents)};
        });
        if (function_.pairs == Pairs::power) return add_powers(third);
        add(13, third, [&](Random& random) { // comparable in size
            const double x =
                in_any_binade(random, numbers_.smallest_exponent(), numbers_.largest_exponent() - 2);
            const double ratio =
                std::ldexp(numbers_.in_binade(random, 0), static_cast<int>(random.next() % 4) - 1);
            return Argument{x, with_random_sign(random, numbers_.round(x * ratio))};
        });
    }

    // Results over the whole range and a little beyond: of bases next to 1, of others, of subnormal ones and,
    // with integer exponents, of negative ones.
    void add_powers(std::size_t count)
    {
        const double range = format_of(entry_.lanes).max_exponent * 1.2;
        const auto exponent_for = [&](Random& random, double x) {
            return numbers_.round(numbers_.in_interval(random, -range, range) / std::log2(std::fabs(x)));
        };
        add(14, count / 2, [&](Random& random) {
            const double x = std::fabs(in_any_binade(random, -ordinary_exponents, ordinary_exponents));
            return Argument{x, exponent_for(random, x)};
        });
        for (std::size_t i = 0; i < function_.edges.size(); ++i)
            add(5000 + i, count / 2 / function_.edges.size(), [&](Random& random) {
                const double x = numbers_.approaching(random, function_.edges[i].value);
                return Argument{x == 1 ? 2 : x, exponent_for(random, x == 1 ? 2 : x)};
            });
        add(16, count / 8, [&](Random& random) {
            const double x = in_any_binade(random, 1, ordinary_exponents);
            return Argument{x, std::rint(exponent_for(random, x))};
        });
        add(17, count / 8, [&](Random& random) {
            const double x = std::fabs(in_any_binade(random, numbers_.smallest_exponent(),
                                                     format_of(entry_.lanes).min_exponent - 1));
            return Argument{x, exponent_for(random, x)};
        });
    }

    void add_complex()
    {
        const std::size_t third = amount_.samples / 3;
        add_binades(21, numbers_.smallest_exponent(), numbers_.largest_exponent(), third,
                    [&](Random& random, int exponent) {
                        const double x = with_random_sign(random, numbers_.in_binade(random, exponent));
                        return Argument{x, in_any_binade(random, numbers_.smallest_exponent(),
                                                         numbers_.largest_exponent())};
                    });
        add(22, third, [&](Random& random) {
            const double x = in_any_binade(random, -ordinary_exponents, ordinary_exponents);
            return Argument{x, in_any_binade(random, -ordinary_exponents, ordinary_exponents)};
        });
        add(23, third, [&](Random& random) { // next to the unit circle, and to 1
            const double angle = numbers_.in_interval(random, -3.2, 3.2);
            const double radius = 1 + in_any_binade(random, -24, -1) * static_cast<double>(random.next() & 1);
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

    const Entry& entry_;
    const Function& function_;
    const Amount& amount_;
    Numbers numbers_;
};

} // namespace

std::vector<Argument> survey_arguments(const Entry& entry, const Function& function, const Amount& amount)
{
    return Collection(entry, function, amount).list;
}

std::vector<Argument> surroundings(const Entry& entry, const std::vector<Argument>& arguments,
                                   std::uint64_t seed)
{
    constexpr int each = 256;
    const Numbers numbers(format_of(entry.lanes));
    Random random(seed);
    std::vector<Argument> list;
    for (const Argument& argument : arguments)
        for (int i = 0; i < each; ++i) {
            const std::uint64_t which = random.next() % 4; // both, or one of a pair
            list.push_back({which == 0 ? argument.x : numbers.near(random, argument.x),
                            which == 1 ? argument.y : numbers.near(random, argument.y)});
        }
    return list;
}

} // namespace zelk::accuracy
