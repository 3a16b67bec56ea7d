// Radioactive decay over a table of half-lives, with e^x and ln x of libzelk beside the scalar math library:
// over arrays by zelk::apply, and in plain loops that the compiler vectorises.
//
//   decay half_lives.csv
//
// For every nuclide of the table: what remains of it at 4096 times within 40 half-lives, e^(-t ln 2/T); then
// the time again from what remains, ln f, as dating by decay does (in units of the mean life).
#include <zelk/vectorize.h>
#include <zelk/zelk.hpp>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr double ln2 = 0x1.62e42fefa39efp-1;
constexpr double hour = 3600;
constexpr double day = 24 * hour;
constexpr double year = 365.25 * day;

struct Nuclide {
    std::string name;
    double half_life; // s
};

double seconds_per(const std::string& unit)
{
    if (unit == "s") return 1;
    if (unit == "min") return 60;
    if (unit == "h") return hour;
    if (unit == "d") return day;
    return unit == "y" ? year : 0;
}

std::vector<Nuclide> read_table(const char* path)
{
    std::vector<Nuclide> table;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream fields(line);
        std::string name;
        std::string value;
        std::string unit;
        std::getline(std::getline(std::getline(fields, name, ','), value, ','), unit);
        const double half_life = std::strtod(value.c_str(), nullptr) * seconds_per(unit);
        if (!(half_life > 0)) {
            std::fprintf(stderr, "%s: not a half-life: %s\n", path, line.c_str());
            return {};
        }
        table.push_back({name, half_life});
    }
    return table;
}

double half_life(const std::vector<Nuclide>& table, const char* name)
{
    for (const Nuclide& nuclide : table)
        if (nuclide.name == name) return nuclide.half_life;
    return NAN;
}

// One value through both lanes of libzelk.
double exp_of(double x)
{
    return _mm_cvtsd_f64(__zelk_exp2(_mm_set1_pd(x)));
}
double ln_of(double x)
{
    return _mm_cvtsd_f64(__zelk_log2(_mm_set1_pd(x)));
}

void print_known_results(const std::vector<Nuclide>& table)
{
    const auto lambda = [&](const char* name) { return ln2 / half_life(table, name); };
    const auto percent_left = [&](const char* name, double time) {
        return 100 * exp_of(-lambda(name) * time);
    };

    std::printf("iodine 131 after 80 days:                        %6.3f %%\n",
                percent_left("I-131", 80 * day));
    std::printf("cobalt 60 after 10 years:                        %6.2f %%\n",
                percent_left("Co-60", 10 * year));
    std::printf("caesium 137 of April 1986, in April 2026:        %6.2f %%\n",
                percent_left("Cs-137", 40 * year));
    std::printf("age of wood that kept 53 %% of its carbon 14:     %6.0f years\n",
                -ln_of(0.53) / lambda("C-14") / year);
    const double mo = lambda("Mo-99");
    const double tc = lambda("Tc-99m");
    std::printf("technetium generator at its peak after           %6.1f hours\n",
                ln_of(tc / mo) / (tc - mo) / hour);
    // 0.72 % of uranium is the isotope 235 today; with 3 % or more, water makes it a reactor, as at Oklo.
    const double ratio = 0.0072 / 0.9928 * exp_of((lambda("U-235") - lambda("U-238")) * 2e9 * year);
    std::printf("uranium 235 in uranium two billion years ago:    %6.2f %%\n", 100 * ratio / (1 + ratio));
}

// Per element: the exponent of what remains, what remains, the exponent again.
struct Samples {
    std::vector<double> exponent;
    std::vector<double> remaining;
    std::vector<double> recovered;
};

void decay_with_libzelk(Samples& s)
{
    zelk::apply(zelk::exp, s.exponent, s.remaining);
}
void date_with_libzelk(Samples& s)
{
    zelk::apply(zelk::log, s.remaining, s.recovered);
}
// GCC makes calls of two lanes of these loops (-fopenmp-simd).
void decay_in_a_loop(Samples& s)
{
    const std::size_t size = s.exponent.size();
    const double* const x = s.exponent.data();
    double* const y = s.remaining.data();
#pragma omp simd
    for (std::size_t i = 0; i < size; ++i)
        y[i] = zelk_exp(x[i]);
}
void date_in_a_loop(Samples& s)
{
    const std::size_t size = s.remaining.size();
    const double* const x = s.remaining.data();
    double* const y = s.recovered.data();
#pragma omp simd
    for (std::size_t i = 0; i < size; ++i)
        y[i] = zelk_log(x[i]);
}
void decay_with_libm(Samples& s)
{
    for (std::size_t i = 0; i < s.exponent.size(); ++i)
        s.remaining[i] = std::exp(s.exponent[i]);
}
void date_with_libm(Samples& s)
{
    for (std::size_t i = 0; i < s.remaining.size(); ++i)
        s.recovered[i] = std::log(s.remaining[i]);
}

// Best of a few passes, in millions of elements per second.
double rate(void (*pass)(Samples&), Samples& samples)
{
    double best = INFINITY;
    for (int i = 0; i < 7; ++i) {
        const auto start = std::chrono::steady_clock::now();
        pass(samples);
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
        best = std::min(best, time.count());
    }
    return static_cast<double>(samples.exponent.size()) / best / 1e6;
}

double largest_difference(const std::vector<double>& a, const std::vector<double>& b)
{
    double largest = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (a[i] != b[i]) largest = std::max(largest, std::fabs((a[i] - b[i]) / b[i]));
    return largest;
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<Nuclide> table = argc == 2 ? read_table(argv[1]) : std::vector<Nuclide>();
    if (table.empty()) {
        std::fprintf(stderr, "usage: decay half_lives.csv\n");
        return 2;
    }
    std::printf("%zu nuclides\n", table.size());
    print_known_results(table);

    constexpr int times = 4096;
    Samples zelk;
    for (const Nuclide& nuclide : table)
        for (int i = 1; i <= times; ++i)
            zelk.exponent.push_back(-ln2 / nuclide.half_life * (40 * nuclide.half_life * i / times));
    zelk.remaining.resize(zelk.exponent.size());
    zelk.recovered.resize(zelk.exponent.size());
    Samples libm = zelk;

    Samples loop = zelk;

    std::printf("\n%zu samples       zelk::apply  vectorised loop      libm   (million per second)\n",
                zelk.exponent.size());
    std::printf("what remains, e^x    %8.0f         %8.0f  %8.0f\n", rate(decay_with_libzelk, zelk),
                rate(decay_in_a_loop, loop), rate(decay_with_libm, libm));
    const double difference_exp = largest_difference(zelk.remaining, libm.remaining);
    libm.remaining = zelk.remaining; // so that all date the same samples
    loop.remaining = zelk.remaining;
    std::printf("their age, ln x      %8.0f         %8.0f  %8.0f\n", rate(date_with_libzelk, zelk),
                rate(date_in_a_loop, loop), rate(date_with_libm, libm));
    std::printf("largest relative difference: e^x %.2g, ln x %.2g\n", difference_exp,
                largest_difference(zelk.recovered, libm.recovered));
}
