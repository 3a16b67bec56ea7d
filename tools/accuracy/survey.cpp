#include "survey.h"

#include "exact.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <mutex>
#include <thread>

namespace zelk::accuracy {

namespace {

constexpr std::size_t block_size = 2048;

// How arguments stand in vectors and results are read from them.
class Layout {
public:
    explicit Layout(const Entry& entry) : entry_(entry) {}
    std::size_t arguments_per_vector() const { return entry_.lanes == Lanes::d2 || is_complex() ? 2 : 4; }
    unsigned results_per_argument() const { return is_complex() || entry_.results != Results::one ? 2 : 1; }

    void set(Vec128& a, Vec128& b, std::size_t place, const Argument& argument) const
    {
        if (is_complex()) {
            a.f[2 * place] = static_cast<float>(argument.x);
            a.f[2 * place + 1] = static_cast<float>(argument.y);
            b = a;
            return;
        }
        set_lane(a, place, argument.x);
        set_lane(b, place, argument.y);
    }
    double get(const Result& result, std::size_t place, unsigned which) const
    {
        if (is_complex()) return static_cast<double>(result.first.f[2 * place + which]);
        const Vec128& v = which == 0 ? result.first : result.second;
        switch (entry_.lanes) {
        case Lanes::d2:
            return v.d[place];
        case Lanes::i4:
            return v.i[place];
        case Lanes::u4:
            return v.u[place];
        default:
            return static_cast<double>(v.f[place]);
        }
    }

private:
    bool is_complex() const { return entry_.lanes == Lanes::c2; }
    void set_lane(Vec128& v, std::size_t lane, double value) const
    {
        switch (entry_.lanes) {
        case Lanes::d2:
            v.d[lane] = value;
            break;
        case Lanes::i4:
            v.i[lane] = static_cast<std::int32_t>(value);
            break;
        case Lanes::u4:
            v.u[lane] = static_cast<std::uint32_t>(value);
            break;
        default:
            v.f[lane] = static_cast<float>(value);
        }
    }
    const Entry& entry_;
};

bool same_number(double a, double b)
{
    return (a == b && std::signbit(a) == std::signbit(b)) || (a != a && b != b);
}

// One thread's work: blocks of arguments, their exact results once for all kernels.
class Worker {
public:
    Worker(const Entry& entry, const Function& function, const std::vector<Kernel>& kernels)
        : layout_(entry), function_(function), format_(format_of(entry.lanes)), kernels_(kernels),
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
            measure_beside_others(i, arguments, count);
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
        const mpfr_prec_t precision = precision_of(format_);
        thread_local Exact x(53);
        thread_local Exact y(53);
        Exact first(precision);
        Exact second(precision);
        const unsigned results = layout_.results_per_argument();
        references_.resize(count * results);
        paths_.resize(count);
        for (std::size_t i = 0; i < count; ++i) {
            mpfr_set_d(x.value, arguments[i].x, MPFR_RNDN);
            mpfr_set_d(y.value, arguments[i].y, MPFR_RNDN);
            function_.evaluate(first.value, second.value, x.value, y.value);
            references_[i * results] = Reference(first.value, format_);
            if (results == 2) references_[i * results + 1] = Reference(second.value, format_);
            paths_[i] = path_of(function_, format_, arguments[i].x, arguments[i].y, references_[i * results]);
        }
    }

    Tally& tally_of(std::size_t kernel, std::size_t argument, unsigned which)
    {
        return tallies_[kernel][which * path_names_.size() + paths_[argument]];
    }

    Result call_vector(std::size_t kernel, const Vec128& a, const Vec128& b, Rounding rounding)
    {
        return call(kernels_[kernel].address, a, b, {}, &stored_, rounding);
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
                    const double got = layout_.get(result, place, which);
                    const Judgement judgement = references_[index].judge(got, format_, to_nearest);
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
              double got, const Judgement& judgement)
    {
        ++tally.arguments;
        tally.rounded_correctly += reference.is_rounded_correctly(got) && !judgement.is_wrong;
        if (judgement.is_wrong && tally.wrong++ == 0) tally.first_wrong = argument;
        tally.note_error(judgement.ulp, argument);
        if (argument.x == 0 || !reference.is_number()) return;
        int exponent = 0;
        const double fraction = std::frexp(std::fabs(argument.x), &exponent);
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
                const double got = layout_.get(result, place, which);
                Tally& tally = tally_of(kernel, i, which);
                if (same_number(got, results_[index])) continue;
                ++tally.changed_beside_others;
                const Judgement judgement = references_[index].judge(got, format_, true);
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
    const std::vector<Kernel>& kernels_;
    std::vector<std::string> path_names_;
    std::vector<std::vector<Tally>> tallies_;
    std::vector<Curve> curves_;
    std::vector<Reference> references_;
    std::vector<std::size_t> paths_;
    std::vector<double> results_; // of the kernel at hand, in round to nearest
    Random random_{1};
    alignas(16) Vec128 stored_; // what the pointer forms store
};

std::vector<std::string> names_of_paths(const Entry& entry, const Function& function)
{
    std::vector<std::string> parts = {""};
    if (entry.lanes == Lanes::c2)
        parts = {"real part: ", "imaginary part: "};
    else if (entry.results != Results::one)
        parts = entry.lanes == Lanes::i4 || entry.lanes == Lanes::u4
                    ? std::vector<std::string>{"quotient: ", "remainder: "}
                    : std::vector<std::string>{"sine: ", "cosine: "};
    std::vector<std::string> names = {"all"};
    for (const std::string& part : parts)
        for (const std::string& path : paths(function))
            names.push_back(part + path);
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
            const Result result = call(kernel.address, a, b, {}, &stored, rounding);
            for (const std::uint64_t bits :
                 {result.first.q[0], entry.results == Results::one ? 0 : result.second.q[0]})
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
