#include "survey.h"

#include "exact.h"
#include "scalar_routine.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <mutex>
#include <stdexcept>
#include <thread>

namespace zelk::accuracy {

namespace {

constexpr std::size_t block_size = 2048;

// How arguments stand in vectors and results are read from them. A scalar routine has vectors of one lane,
// whose numbers of 80 bits take a vector each; parts of complex numbers stand side by side.
class Layout {
public:
    explicit Layout(const Entry& entry) : entry_(entry) {}
    std::size_t arguments_per_vector() const
    {
        return entry_.lanes == Lanes::c2 ? 2 : lane_count(entry_.lanes);
    }
    unsigned results_per_argument() const
    {
        return is_complex(entry_.lanes) || entry_.results != Results::one ? 2 : 1;
    }

    void set(Vec128& a, Vec128& b, std::size_t place, const Argument& argument) const
    {
        if (is_complex(entry_.lanes)) {
            set_lane(a, 2 * place, argument.x);
            set_lane(a, 2 * place + 1, argument.y);
            b = a;
            return;
        }
        set_lane(a, place, argument.x);
        set_lane(b, place, argument.y);
    }
    Result call(const Kernel& kernel, const Vec128& a, const Vec128& b, Vec128& stored,
                Rounding rounding) const
    {
        if (!is_scalar(entry_.lanes)) return zelk::call(kernel.address, a, b, {}, &stored, rounding);
        const ScalarResult scalar =
            call_routine(kernel.address, entry_.signature, number_in(a), number_in(b), {rounding});
        if (!scalar.breaches.empty()) throw std::runtime_error(kernel.symbol + ": " + scalar.breaches);
        Result result{};
        switch (entry_.signature[0]) {
        case 'l':
            result.first = as_vector(scalar.extended);
            break;
        case 'v':
            result.first = as_vector(scalar.stored[0]);
            result.second = as_vector(scalar.stored[1]);
            break;
        case 'i': // the leading number, and the integer
            result.first.d[0] = scalar.stored_doubles[0];
            result.second.d[0] = scalar.integer;
            break;
        case 'c':
            result.first.q[0] = scalar.complex.im << 32 | scalar.complex.re;
            break;
        case 'z':
            result.first = quads(scalar.complex.re, scalar.complex.im);
            break;
        default:
            result.first.q[0] = scalar.narrow;
        }
        return result;
    }
    long double get(const Result& result, std::size_t place, unsigned which) const
    {
        if (is_complex(entry_.lanes)) return lane_of(result.first, 2 * place + which);
        return lane_of(which == 0 ? result.first : result.second, place);
    }

private:
    zelk::Argument number_in(const Vec128& v) const
    {
        if (entry_.lanes == Lanes::l) return Bits80{v.q[0], static_cast<std::uint16_t>(v.q[1])};
        if (entry_.lanes == Lanes::z) return ComplexBits{v.q[0], v.q[1]};
        if (entry_.lanes == Lanes::c) return ComplexBits{v.u[0], v.u[1]};
        return zelk::Argument::of_bits(v.q[0]);
    }
    static Vec128 as_vector(const Bits80& bits) { return quads(bits.significand, bits.sign_exponent); }

    void set_lane(Vec128& v, std::size_t lane, long double value) const
    {
        if (is_integer(entry_.lanes))
            v.u[lane] = static_cast<std::uint32_t>(static_cast<std::int64_t>(value));
        else if (entry_.lanes == Lanes::l)
            v = as_vector(bits80(value));
        else if (format_of(entry_.lanes).digits == 53)
            v.d[lane] = static_cast<double>(value);
        else
            v.f[lane] = static_cast<float>(value);
    }
    long double lane_of(const Vec128& v, std::size_t lane) const
    {
        if (entry_.lanes == Lanes::i4) return v.i[lane];
        if (entry_.lanes == Lanes::u4) return v.u[lane];
        const int digits = result_format(entry_).digits;
        if (digits == 64) return number({v.q[0], static_cast<std::uint16_t>(v.q[1])});
        return digits == 53 ? static_cast<long double>(v.d[lane]) : static_cast<long double>(v.f[lane]);
    }
    const Entry& entry_;
};

bool same_number(long double a, long double b)
{
    return (a == b && std::signbit(a) == std::signbit(b)) || (a != a && b != b);
}

// An overflow of MPFR is no infinite value, but one beyond all formats.
void replace_infinity(mpfr_ptr value)
{
    if (!mpfr_inf_p(value)) return;
    const int sign = mpfr_sgn(value);
    mpfr_set_si_2exp(value, sign, 100000, MPFR_RNDN);
}

// One thread's work: blocks of arguments, their exact results once for all kernels.
class Worker {
public:
    Worker(const Entry& entry, const Function& function, const std::vector<Kernel>& kernels)
        : layout_(entry), function_(function), format_(format_of(entry.lanes)),
          result_format_(result_format(entry)), has_neighbours_(!is_scalar(entry.lanes)), kernels_(kernels),
          path_names_(accuracy::paths(function)), tallies_(kernels.size()), curves_(kernels.size())
    {
        for (auto& tallies : tallies_)
            tallies.resize(path_names_.size() * layout_.results_per_argument());
    }

    void measure_block(const Argument* arguments, std::size_t count)
    {
        compute_references(arguments, count);
        for (std::size_t i = 0; i < kernels_.size(); ++i) {
            for (const Rounding rounding : all_roundings) {
                if (rounding != Rounding::nearest && function_.follows_rounding) continue;
                measure_kernel(i, arguments, count, rounding);
            }
            if (has_neighbours_) measure_beside_others(i, arguments, count);
        }
    }

    void add_to(std::vector<Survey>& surveys) const
    {
        for (std::size_t i = 0; i < kernels_.size(); ++i) {
            for (std::size_t j = 0; j < tallies_[i].size(); ++j) {
                surveys[i].tallies[0].include(tallies_[i][j]);
                surveys[i].tallies[j + 1].include(tallies_[i][j]);
            }
            for (const auto& [part, ulp] : curves_[i])
                surveys[i].curve[part] = std::max(surveys[i].curve[part], ulp);
        }
    }

private:
    void compute_references(const Argument* arguments, std::size_t count)
    {
        const mpfr_prec_t precision = precision_of(result_format_);
        Exact x(format_.digits == 64 ? 64 : 53);
        Exact y(format_.digits == 64 ? 64 : 53);
        Exact first(precision);
        Exact second(precision);
        const unsigned results = layout_.results_per_argument();
        references_.resize(count * results);
        paths_.resize(count);
        for (std::size_t i = 0; i < count; ++i) {
            mpfr_set_ld(x.value, arguments[i].x, MPFR_RNDN);
            mpfr_set_ld(y.value, arguments[i].y, MPFR_RNDN);
            mpfr_clear_overflow();
            function_.evaluate(first.value, second.value, x.value, y.value);
            if (mpfr_overflow_p()) {
                replace_infinity(first.value);
                replace_infinity(second.value);
            }
            references_[i * results] = Reference(first.value, result_format_);
            if (results == 2) references_[i * results + 1] = Reference(second.value, result_format_);
            paths_[i] = path_of(function_, format_, arguments[i].x, arguments[i].y, references_[i * results]);
        }
    }

    Tally& tally_of(std::size_t kernel, std::size_t argument, unsigned which)
    {
        return tallies_[kernel][which * path_names_.size() + paths_[argument]];
    }

    Result call_vector(std::size_t kernel, const Vec128& a, const Vec128& b, Rounding rounding)
    {
        return layout_.call(kernels_[kernel], a, b, stored_, rounding);
    }

    void measure_kernel(std::size_t kernel, const Argument* arguments, std::size_t count, Rounding rounding)
    {
        const std::size_t width = layout_.arguments_per_vector();
        const auto mode = static_cast<std::size_t>(rounding);
        const bool to_nearest = rounding == Rounding::nearest;
        if (to_nearest) results_.resize(references_.size());
        for (std::size_t i = 0; i < count; i += width) {
            Vec128 a;
            Vec128 b;
            for (std::size_t place = 0; place < width; ++place)
                layout_.set(a, b, place, arguments[std::min(i + place, count - 1)]);
            const Result result = call_vector(kernel, a, b, rounding);
            for (std::size_t place = 0; place < std::min(width, count - i); ++place)
                for (unsigned which = 0; which < layout_.results_per_argument(); ++which) {
                    const std::size_t index = (i + place) * layout_.results_per_argument() + which;
                    const long double got = layout_.get(result, place, which);
                    const Judgement judgement = references_[index].judge(got, result_format_, to_nearest);
                    Tally& tally = tally_of(kernel, i + place, which);
                    if (!to_nearest) {
                        tally.directed_wrong += judgement.is_wrong;
                        tally.max_ulp[mode] = std::max(tally.max_ulp[mode], judgement.ulp);
                        continue;
                    }
                    results_[index] = got;
                    note(kernel, tally, arguments[i + place], references_[index], got, judgement);
                }
        }
    }

    void note(std::size_t kernel, Tally& tally, const Argument& argument, const Reference& reference,
              long double got, const Judgement& judgement)
    {
        ++tally.arguments;
        tally.rounded_correctly += reference.is_rounded_correctly(got) && !judgement.is_wrong;
        if (judgement.is_wrong && tally.wrong++ == 0) tally.first_wrong = argument;
        tally.note_error(judgement.ulp, argument);
        if (argument.x == 0 || !reference.is_number()) return;
        int exponent = 0;
        const long double fraction = std::frexp(std::fabs(argument.x), &exponent);
        const int part = exponent * curve_parts + static_cast<int>((fraction - 0.5) * 2 * curve_parts);
        double& top = curves_[kernel][part];
        top = std::max(top, judgement.ulp);
    }

    // Every argument once more, in the first place of a vector whose others come from anywhere in the block.
    void measure_beside_others(std::size_t kernel, const Argument* arguments, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i) {
            Vec128 a;
            Vec128 b;
            const std::size_t width = layout_.arguments_per_vector();
            const std::size_t place = i % width;
            for (std::size_t other = 0; other < width; ++other)
                layout_.set(a, b, other, other_argument(arguments, count));
            layout_.set(a, b, place, arguments[i]);
            const Result result = call_vector(kernel, a, b, Rounding::nearest);
            for (unsigned which = 0; which < layout_.results_per_argument(); ++which) {
                const std::size_t index = i * layout_.results_per_argument() + which;
                const long double got = layout_.get(result, place, which);
                Tally& tally = tally_of(kernel, i, which);
                if (same_number(got, results_[index])) continue;
                ++tally.changed_beside_others;
                const Judgement judgement = references_[index].judge(got, result_format_, true);
                tally.max_ulp_beside_others = std::max(tally.max_ulp_beside_others, judgement.ulp);
            }
        }
    }
    // Mostly ordinary neighbours, some from this block, some special in most functions.
    Argument other_argument(const Argument* arguments, std::size_t count)
    {
        static constexpr double special[] = {0, -1, 0x1p40, 1e30, -0x1p-130, HUGE_VAL};
        const std::uint64_t random = random_.next();
        if (format_.is_integer || random % 4 < 2) return arguments[(random >> 8) % count];
        if (random % 4 == 2) return {0.75, 0.5};
        return {special[(random >> 8) % 6], 0.5};
    }

    Layout layout_;
    const Function& function_;
    Format format_;
    Format result_format_;
    bool has_neighbours_;
    const std::vector<Kernel>& kernels_;
    std::vector<std::string> path_names_;
    std::vector<std::vector<Tally>> tallies_;
    std::vector<Curve> curves_;
    std::vector<Reference> references_;
    std::vector<std::size_t> paths_;
    std::vector<long double> results_; // of the kernel at hand, in round to nearest
    Random random_{1};
    alignas(16) Vec128 stored_; // what the pointer forms store
};

std::vector<std::string> names_of_paths(const Entry& entry, const Function& function)
{
    std::vector<std::string> names = {"all"};
    const unsigned results = Layout(entry).results_per_argument();
    for (unsigned which = 0; which < results; ++which)
        for (const std::string& path : paths(function))
            names.push_back((results == 1 ? "" : function.parts[which]) + path);
    return names;
}

void measure_all(const Entry& entry, const Function& function, const std::vector<Kernel>& kernels,
                 const std::vector<Argument>& arguments, unsigned threads,
                 void (*report)(const Entry&, double share), std::vector<Survey>& surveys)
{
    std::atomic<std::size_t> next_block = 0;
    const std::size_t blocks = (arguments.size() + block_size - 1) / block_size;
    std::mutex mutex;
    const auto work = [&] {
        // Block by block into a worker of its own, in an order that does not change the result.
        Worker worker(entry, function, kernels);
        for (std::size_t block; (block = next_block++) < blocks;) {
            const std::size_t first = block * block_size;
            worker.measure_block(&arguments[first], std::min(block_size, arguments.size() - first));
            const std::lock_guard lock(mutex);
            report(entry, static_cast<double>(block + 1) / static_cast<double>(blocks));
        }
        const std::lock_guard lock(mutex);
        worker.add_to(surveys);
        mpfr_free_cache();
    };
    std::vector<std::thread> pool;
    for (unsigned i = 0; i < threads; ++i)
        pool.emplace_back(work);
    for (std::thread& thread : pool)
        thread.join();
}

} // namespace

void Tally::note_error(double ulp, const Argument& argument)
{
    constexpr std::size_t few = 32;
    if (ulp > max_ulp[0]) {
        max_ulp[0] = ulp;
        worst = argument;
    }
    if (ulp == 0) return;
    if (worst_few.size() < few) {
        worst_few.emplace_back(ulp, argument);
        return;
    }
    const auto least = std::ranges::min_element(worst_few, {}, &std::pair<double, Argument>::first);
    if (ulp > least->first) *least = {ulp, argument};
}

void Tally::include(const Tally& other)
{
    for (const auto& [ulp, argument] : other.worst_few)
        note_error(ulp, argument);
    if (wrong == 0) first_wrong = other.first_wrong;
    for (std::size_t mode = 0; mode < max_ulp.size(); ++mode)
        max_ulp[mode] = std::max(max_ulp[mode], other.max_ulp[mode]);
    arguments += other.arguments;
    rounded_correctly += other.rounded_correctly;
    wrong += other.wrong;
    directed_wrong += other.directed_wrong;
    max_ulp_beside_others = std::max(max_ulp_beside_others, other.max_ulp_beside_others);
    changed_beside_others += other.changed_beside_others;
}

std::uint64_t hash_of_results(const Entry& entry, const Kernel& kernel,
                              const std::vector<Argument>& arguments)
{
    const Layout layout(entry);
    const std::size_t stride = arguments.size() / 4096 + 1;
    std::uint64_t hash = 0;
    alignas(16) Vec128 stored;
    for (std::size_t i = 0; i < arguments.size(); i += stride)
        for (const Rounding rounding : all_roundings) {
            Vec128 a;
            Vec128 b;
            for (std::size_t place = 0; place < layout.arguments_per_vector(); ++place)
                layout.set(a, b, place, arguments[i]);
            const Result result = layout.call(kernel, a, b, stored, rounding);
            const std::uint64_t second = entry.results != Results::one ? result.second.q[0]
                                         : is_scalar(entry.lanes)      ? result.first.q[1]
                                                                       : 0;
            for (const std::uint64_t bits : {result.first.q[0], second})
                hash = (hash ^ bits) * 0x9E3779B97F4A7C15 ^ hash >> 29;
        }
    return hash;
}

std::vector<Survey> measure(const Entry& entry, const Function& function, const std::vector<Kernel>& kernels,
                            const std::vector<Argument>& arguments, int refinements, unsigned threads,
                            void (*report)(const Entry&, double share))
{
    Survey empty;
    empty.paths = names_of_paths(entry, function);
    empty.tallies.resize(empty.paths.size());
    std::vector<Survey> surveys(kernels.size(), empty);

    measure_all(entry, function, kernels, arguments, threads, report, surveys);
    for (Survey& survey : surveys)
        for (Tally& tally : survey.tallies)
            tally.sampled = tally.arguments;
    const std::vector<Survey> sampled = surveys;
    for (int round = 0; round < refinements; ++round) {
        std::vector<Argument> worst;
        for (const Survey& survey : surveys)
            for (std::size_t i = 1; i < survey.tallies.size(); ++i)
                for (const auto& [ulp, argument] : survey.tallies[i].worst_few)
                    if (std::ranges::find(worst, argument) == worst.end()) worst.push_back(argument);
        measure_all(entry, function, kernels, surroundings(entry, worst, static_cast<std::uint64_t>(round)),
                    threads, report, surveys);
    }
    for (std::size_t i = 0; i < surveys.size(); ++i)
        for (std::size_t j = 0; j < surveys[i].tallies.size(); ++j)
            surveys[i].tallies[j].rounded_correctly = sampled[i].tallies[j].rounded_correctly;
    return surveys;
}

} // namespace zelk::accuracy
