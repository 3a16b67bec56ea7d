#include "exhaustive.h"

#include "exhaustive_oracle.h"

#include <xmmintrin.h>

#include <algorithm>
#include <atomic>
#include <bit>
#include <cmath>
#include <mutex>
#include <thread>

namespace zelk::accuracy {

namespace {

constexpr std::size_t run_size = std::size_t{1} << 15;
constexpr std::uint32_t infinity_bits = 0x7F800000;
// An error that is larger by less than this is not told from the largest so far: where a function is next to
// constant, every argument would be a little worse than the one before.
constexpr double resolution = 0x1p-20;

float number_of(std::uint32_t pattern)
{
    return std::bit_cast<float>(pattern);
}

class Worker {
public:
    Worker(const Entry& entry, const Function& function, const std::vector<Kernel>& kernels)
        : entry_(entry), function_(function), kernels_(kernels), paths_(paths(function).size()),
          results_(entry.results == Results::one ? 1 : 2), tallies_(kernels.size()), curves_(kernels.size())
    {
        for (unsigned which = 0; which < results_; ++which)
            oracles_.emplace_back(function, which);
        for (auto& tallies : tallies_)
            tallies.resize(paths_ * results_);
        for (auto& result : got_)
            result.resize(run_size);
        path_.resize(run_size);
    }

    void measure_run(std::uint32_t first)
    {
        // Infinity opens a run of NaNs.
        const std::size_t count = (first & ~0x80000000u) == infinity_bits ? 1 : run_size;
        for (unsigned which = 0; which < results_; ++which) {
            oracles_[which].compute(first, count);
            find_paths(first, count, which);
            for (std::size_t i = 0; i < kernels_.size(); ++i) {
                call_kernel(kernels_[i], first, count);
                judge_run(i, which, first, count);
            }
        }
    }

    void add_to(std::vector<std::vector<Tally>>& tallies, std::vector<Curve>& curves) const
    {
        for (std::size_t i = 0; i < kernels_.size(); ++i) {
            for (std::size_t j = 0; j < tallies_[i].size(); ++j)
                tallies[i][j].include(tallies_[i][j]);
            for (const auto& [part, ulp] : curves_[i])
                curves[i][part] = std::max(curves[i][part], ulp);
        }
    }

private:
    void find_paths(std::uint32_t first, std::size_t count, unsigned which)
    {
        const auto& values = oracles_[which].values();
        const Reference ordinary;
        const auto path_at = [&](std::size_t i) {
            const double x = static_cast<double>(number_of(first + static_cast<std::uint32_t>(i)));
            return path_of(function_, binary32, x, 0, ordinary);
        };
        const bool starts_at_zero = first << 1 == 0; // which is no subnormal number
        const std::size_t path_of_first = path_at(1 % count);
        const bool same = path_of_first == path_at(count - 1);
        for (std::size_t i = 0; i < count; ++i) {
            path_[i] = same && !(starts_at_zero && i == 0) ? path_of_first : path_at(i);
            const double magnitude = std::fabs(values[i].value);
            if (magnitude < 0x1p-126 && magnitude > 0 && path_[i] + 2 < paths_) path_[i] = paths_ - 1;
        }
    }

    void call_kernel(const Kernel& kernel, std::uint32_t first, std::size_t count)
    {
        Vec128 a;
        for (std::size_t i = 0; i < count; i += 4) {
            for (std::uint32_t lane = 0; lane < 4; ++lane)
                a.u[lane] = first + (count == 1 ? 0 : static_cast<std::uint32_t>(i) + lane);
            if (results_ == 1) {
                // The standard convention of one vector argument and result, without the cost of checking it.
                const auto function =
                    reinterpret_cast<__m128 (*)(__m128)>(reinterpret_cast<std::uintptr_t>(kernel.address));
                _mm_storeu_ps(&got_[0][i], function(_mm_load_ps(a.f)));
            } else {
                const Result result = call(kernel.address, a, {}, {}, &stored_);
                std::copy(result.first.f, result.first.f + 4, &got_[0][i]);
                std::copy(result.second.f, result.second.f + 4, &got_[1][i]);
            }
        }
    }

    void judge_run(std::size_t kernel, unsigned which, std::uint32_t first, std::size_t count)
    {
        const auto& values = oracles_[which].values();
        double run_max = 0;
        for (std::size_t i = 0; i < count; ++i) {
            const float got = got_[which][i];
            const double value = values[i].value;
            Tally& tally = tallies_[kernel][which * paths_ + path_[i]];
            // The ulp from the exponent field; a margin that reaches another binade is not small.
            const auto exponent =
                static_cast<std::int64_t>(std::bit_cast<std::uint64_t>(value) >> 52 & 0x7FF);
            const double per_ulp =
                std::bit_cast<double>((2046 + 23 - std::max<std::int64_t>(exponent, 897)) << 52);
            const double error = std::fabs(static_cast<double>(got) - value) * per_ulp;
            const double margin = values[i].margin * per_ulp;
            const double largest = 0x1.fffffep127;
            const bool is_ordinary = margin >= 0 && margin < 0x1p-8 && std::fabs(value) < largest &&
                                     value != 0 && std::fabs(got) <= static_cast<float>(largest);
            const auto low = static_cast<float>(value - values[i].margin);
            const auto high = static_cast<float>(value + values[i].margin);
            // Below the largest error so far, and errors next to none are not told apart.
            const double bound =
                std::max(tally.max_ulp[0], 0x1p-8) * (is_far_from_power_of_two(value) ? 1 : 0.5);
            if (is_ordinary && low == high && error + margin < bound + resolution) {
                ++tally.arguments;
                tally.rounded_correctly += got == low;
                run_max = std::max(run_max, error);
                continue;
            }
            if (values[i].margin == 0 && (!std::isfinite(value) || value == 0) &&
                is_same_special(value, got)) {
                ++tally.arguments;
                ++tally.rounded_correctly;
                continue;
            }
            run_max =
                std::max(run_max, judge_exactly(tally, which, first + static_cast<std::uint32_t>(i), got));
        }
        if ((first & ~0x80000000u) >= infinity_bits) return;
        int exponent = 0;
        const double fraction = std::frexp(std::fabs(number_of(first | 1)), &exponent);
        const int part = exponent * curve_parts + static_cast<int>((fraction - 0.5) * 2 * curve_parts);
        double& top = curves_[kernel][part];
        top = std::max(top, run_max);
    }

    static bool is_far_from_power_of_two(double value)
    {
        const std::uint64_t fraction = std::bit_cast<std::uint64_t>(value) << 12;
        return fraction > std::uint64_t{1} << 30 && fraction < -(std::uint64_t{1} << 30);
    }
    static bool is_same_special(double value, float got)
    {
        if (std::isnan(value)) return std::isnan(got);
        return static_cast<double>(got) == value && std::signbit(got) == std::signbit(value);
    }

    double judge_exactly(Tally& tally, unsigned which, std::uint32_t pattern, float got)
    {
        const Reference reference = oracles_[which].reference(pattern);
        const double x = static_cast<double>(number_of(pattern));
        const Judgement judgement = reference.judge(static_cast<double>(got), binary32, true);
        ++tally.arguments;
        tally.rounded_correctly +=
            reference.is_rounded_correctly(static_cast<double>(got)) && !judgement.is_wrong;
        if (judgement.is_wrong && tally.wrong++ == 0) tally.first_wrong = {x, 0};
        tally.note_error(judgement.ulp, {x, 0});
        return judgement.ulp;
    }

    const Entry& entry_;
    const Function& function_;
    const std::vector<Kernel>& kernels_;
    std::size_t paths_;
    unsigned results_;
    std::vector<RunOracle> oracles_;
    std::vector<std::vector<Tally>> tallies_;
    std::vector<Curve> curves_;
    std::vector<float> got_[2];
    std::vector<std::size_t> path_;
    alignas(16) Vec128 stored_;
};

} // namespace

bool can_be_exhausted(const Entry& entry)
{
    return entry.lanes == Lanes::f4 && entry.args == 1;
}

void measure_exhaustively(const Entry& entry, const Function& function, const std::vector<Kernel>& kernels,
                          unsigned threads, void (*report)(const Entry&, double share),
                          std::vector<Survey>& surveys)
{
    const std::size_t paths_and_results = surveys.front().tallies.size() - 1;
    std::vector<std::vector<Tally>> tallies(kernels.size(), std::vector<Tally>(paths_and_results));
    std::vector<Curve> curves(kernels.size());
    constexpr std::uint32_t runs_per_sign = infinity_bits / run_size + 1;
    std::atomic<std::uint32_t> next_run = 0;
    std::mutex mutex;
    const auto work = [&] {
        Worker worker(entry, function, kernels);
        for (std::uint32_t run; (run = next_run++) < 2 * runs_per_sign;) {
            const std::uint32_t sign = run < runs_per_sign ? 0 : 0x80000000u;
            worker.measure_run(sign | (run % runs_per_sign * static_cast<std::uint32_t>(run_size)));
            if (run % 256 != 0) continue;
            const std::lock_guard lock(mutex);
            report(entry, static_cast<double>(run + 1) / (2 * runs_per_sign));
        }
        const std::lock_guard lock(mutex);
        worker.add_to(tallies, curves);
        mpfr_free_cache();
    };
    std::vector<std::thread> pool;
    for (unsigned i = 0; i < threads; ++i)
        pool.emplace_back(work);
    for (std::thread& thread : pool)
        thread.join();
    report(entry, 1);

    for (std::size_t i = 0; i < kernels.size(); ++i) {
        surveys[i].is_exhaustive = true;
        surveys[i].curve = curves[i];
        Tally all;
        for (const Tally& tally : tallies[i])
            all.include(tally);
        for (std::size_t j = 0; j <= paths_and_results; ++j) {
            const Tally& complete = j == 0 ? all : tallies[i][j - 1];
            Tally& tally = surveys[i].tallies[j];
            tally.arguments = complete.arguments;
            tally.sampled = complete.arguments;
            tally.rounded_correctly = complete.rounded_correctly;
            tally.max_ulp[0] = complete.max_ulp[0];
            tally.worst = complete.worst;
            tally.wrong = complete.wrong;
            tally.first_wrong = complete.first_wrong;
        }
    }
}

} // namespace zelk::accuracy
