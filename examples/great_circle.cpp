// Nearest neighbours and farthest places on the globe, from the coordinates of a zone table.
//
// For every pair of places the great-circle distance by the haversine formula,
//   h = sin^2((lat2 - lat1)/2) + cos lat1 cos lat2 sin^2((lon2 - lon1)/2),   distance = 2 R asin(sqrt h),
// and the initial bearing,
//   atan2(sin(lon2 - lon1) cos lat2, cos lat1 sin lat2 - sin lat1 cos lat2 cos(lon2 - lon1)),
// four pairs at a time with libzelk. The same loop runs one pair at a time on the C library, for speed and
// for the difference between the two. In binary32 the formula is good to a few metres for near places and,
// since asin is steep at 1, to two kilometres or so next to the antipode.
#include "zone_table.h"

#include <zelk/zelk.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <numbers>
#include <string_view>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr float earth_radius_km = 6371.0088f;

// Radians; as many elements as places, filled up with zeros to a multiple of four.
struct Coordinates {
    explicit Coordinates(std::size_t size)
        : latitude(size), longitude(size), sin_latitude(size), cos_latitude(size)
    {
    }
    std::vector<float> latitude;
    std::vector<float> longitude;
    std::vector<float> sin_latitude;
    std::vector<float> cos_latitude;
};

// From one place to all others: kilometres, and radians clockwise from north.
struct Row {
    explicit Row(std::size_t size) : distance(size), bearing(size) {}
    std::vector<float> distance;
    std::vector<float> bearing;
};

// What the formulas are written in: four floats and libzelk, or one float and the C library.
struct Zelk {
    using Lanes = zelk_float4;
    static constexpr std::size_t lanes = 4;
    static Lanes load(const float* from) { return _mm_loadu_ps(from); }
    static void store(float* to, Lanes x) { _mm_storeu_ps(to, x); }
    static Lanes all(float x) { return _mm_set1_ps(x); }
    static Lanes at_most_one(Lanes x) { return _mm_min_ps(x, _mm_set1_ps(1)); }
    static Lanes sin(Lanes x) { return __zelk_sinf4(x); }
    static Lanes cos(Lanes x) { return __zelk_cosf4(x); }
    static Lanes sqrt(Lanes x) { return __zelk_sqrtf4(x); }
    static Lanes asin(Lanes x) { return __zelk_asinf4(x); }
    static Lanes atan2(Lanes y, Lanes x) { return __zelk_atan2f4(y, x); }
};

struct Libm {
    using Lanes = float;
    static constexpr std::size_t lanes = 1;
    static Lanes load(const float* from) { return *from; }
    static void store(float* to, Lanes x) { *to = x; }
    static Lanes all(float x) { return x; }
    static Lanes at_most_one(Lanes x) { return std::min(x, 1.0f); }
    static Lanes sin(Lanes x) { return std::sin(x); }
    static Lanes cos(Lanes x) { return std::cos(x); }
    static Lanes sqrt(Lanes x) { return std::sqrt(x); }
    static Lanes asin(Lanes x) { return std::asin(x); }
    static Lanes atan2(Lanes y, Lanes x) { return std::atan2(y, x); }
};

Coordinates in_radians(const std::vector<Place>& places)
{
    Coordinates all((places.size() + 3) / 4 * 4);
    constexpr double radians_per_degree = std::numbers::pi / 180;
    for (std::size_t i = 0; i < places.size(); ++i) {
        all.latitude[i] = static_cast<float>(places[i].latitude * radians_per_degree);
        all.longitude[i] = static_cast<float>(places[i].longitude * radians_per_degree);
    }
    return all;
}

template <class Math>
[[gnu::noinline]] void prepare(Coordinates& all)
{
    for (std::size_t i = 0; i < all.latitude.size(); i += Math::lanes) {
        Math::store(&all.sin_latitude[i], Math::sin(Math::load(&all.latitude[i])));
        Math::store(&all.cos_latitude[i], Math::cos(Math::load(&all.latitude[i])));
    }
}

template <class Math>
[[gnu::noinline]] void measure_from(std::size_t place, const Coordinates& all, Row& row)
{
    const auto latitude = Math::all(all.latitude[place]);
    const auto longitude = Math::all(all.longitude[place]);
    const auto sin_latitude = Math::all(all.sin_latitude[place]);
    const auto cos_latitude = Math::all(all.cos_latitude[place]);
    const auto half = Math::all(0.5f);
    for (std::size_t i = 0; i < all.latitude.size(); i += Math::lanes) {
        const auto sin_other = Math::load(&all.sin_latitude[i]);
        const auto cos_other = Math::load(&all.cos_latitude[i]);
        const auto east = Math::load(&all.longitude[i]) - longitude;

        const auto sin_half_north = Math::sin((Math::load(&all.latitude[i]) - latitude) * half);
        const auto sin_half_east = Math::sin(east * half);
        const auto h =
            sin_half_north * sin_half_north + cos_latitude * cos_other * (sin_half_east * sin_half_east);
        const auto angle = Math::asin(Math::sqrt(Math::at_most_one(h)));
        Math::store(&row.distance[i], Math::all(2 * earth_radius_km) * angle);

        const auto y = Math::sin(east) * cos_other;
        const auto x = cos_latitude * sin_other - sin_latitude * cos_other * Math::cos(east);
        Math::store(&row.bearing[i], Math::atan2(y, x));
    }
}

struct Extremes {
    std::size_t nearest;
    std::size_t farthest;
};

Extremes extremes_of(const Row& row, std::size_t place, std::size_t count)
{
    Extremes extremes{place == 0 ? std::size_t{1} : 0, place == 0 ? std::size_t{1} : 0};
    for (std::size_t i = 0; i < count; ++i) {
        if (i == place) continue;
        if (row.distance[i] < row.distance[extremes.nearest]) extremes.nearest = i;
        if (row.distance[i] > row.distance[extremes.farthest]) extremes.farthest = i;
    }
    return extremes;
}

template <class Math>
double seconds_for_all_pairs(Coordinates& all, Row& row, std::size_t count)
{
    const auto start = Clock::now();
    prepare<Math>(all);
    for (std::size_t place = 0; place < count; ++place)
        measure_from<Math>(place, all, row);
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// The largest difference between the two, over all pairs.
struct Difference {
    float distance = 0;
    float bearing = 0;

    void include(const Row& zelk, const Row& libm, std::size_t place, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i) {
            if (i == place) continue;
            distance = std::max(distance, std::fabs(zelk.distance[i] - libm.distance[i]));
            const float turn = std::fabs(zelk.bearing[i] - libm.bearing[i]);
            bearing = std::max(bearing, std::min(turn, std::fabs(2 * std::numbers::pi_v<float> - turn)));
        }
    }
};

void report_speed(Coordinates& all, std::size_t count)
{
    Row zelk_row(all.latitude.size());
    Row libm_row(all.latitude.size());
    double zelk_seconds = HUGE_VAL;
    double libm_seconds = HUGE_VAL;
    int rounds = 0;
    const auto end = Clock::now() + std::chrono::milliseconds(600);
    for (; Clock::now() < end || rounds < 3; ++rounds) {
        zelk_seconds = std::min(zelk_seconds, seconds_for_all_pairs<Zelk>(all, zelk_row, count));
        libm_seconds = std::min(libm_seconds, seconds_for_all_pairs<Libm>(all, libm_row, count));
    }
    const auto pairs = static_cast<double>(count) * static_cast<double>(all.latitude.size());
    std::printf("\ndistance and bearing of %.0f pairs, seven functions each, best of %d rounds\n", pairs,
                rounds);
    std::printf("  libzelk  %8.1f million pairs per second\n", pairs / zelk_seconds * 1e-6);
    std::printf("  libm     %8.1f million pairs per second\n", pairs / libm_seconds * 1e-6);
    std::printf("  libzelk is %.2f times as fast\n", libm_seconds / zelk_seconds);

    Difference difference;
    Coordinates libm_all = all;
    prepare<Zelk>(all);
    prepare<Libm>(libm_all);
    for (std::size_t place = 0; place < count; ++place) {
        measure_from<Zelk>(place, all, zelk_row);
        measure_from<Libm>(place, libm_all, libm_row);
        difference.include(zelk_row, libm_row, place, count);
    }
    std::printf("  largest difference between the two: %.3g km, %.3g radians\n", double{difference.distance},
                double{difference.bearing});
}

double compass_degrees(float bearing)
{
    const double degrees = double{bearing} * 180 / std::numbers::pi;
    return degrees < 0 ? degrees + 360 : degrees;
}

void print_place(const ZoneTable& table, const Row& row, std::size_t i)
{
    const auto [nearest, farthest] = extremes_of(row, i, table.places.size());
    std::printf("%-20s  %-22s %6.0f km %4.0f deg    %-22s %6.0f km %4.0f deg\n", table.places[i].name.c_str(),
                table.places[nearest].name.c_str(), double{row.distance[nearest]},
                compass_degrees(row.bearing[nearest]), table.places[farthest].name.c_str(),
                double{row.distance[farthest]}, compass_degrees(row.bearing[farthest]));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2 || std::strcmp(argv[1], "--help") == 0) {
        std::fprintf(argc < 2 ? stderr : stdout, "usage: great_circle ZONE_TABLE [PLACE]...\n");
        return argc < 2 ? 2 : 0;
    }
    const char* const path = argv[1];
    std::ifstream file(path);
    if (!file) {
        std::fprintf(stderr, "great_circle: cannot read %s: %s\n", path, std::strerror(errno));
        return 1;
    }
    const ZoneTable table = read_zone_table(file);
    for (const BadRow& row : table.bad_rows)
        std::fprintf(stderr, "%s:%d: row skipped: %s\n", path, row.line, row.reason.c_str());
    if (table.places.size() < 2) {
        std::fprintf(stderr, "great_circle: %s has fewer than two places\n", path);
        return 1;
    }

    std::vector<std::string_view> wanted(argv + 2, argv + argc);
    if (wanted.empty())
        wanted = {"Europe/London",    "Africa/Cairo",     "Asia/Kolkata",     "Asia/Tokyo",
                  "Australia/Sydney", "Pacific/Auckland", "Pacific/Honolulu", "America/Los_Angeles",
                  "America/New_York", "America/Sao_Paulo"};

    Coordinates all = in_radians(table.places);
    prepare<Zelk>(all);

    const std::size_t count = table.places.size();
    std::printf("%zu places, %zu pairs; distance and initial bearing\n\n", count, count * (count - 1) / 2);
    std::printf("%-20s  %-41s    %s\n", "place", "nearest", "farthest");
    Row row(all.latitude.size());
    int status = 0;
    for (const std::string_view name : wanted) {
        const auto place = std::ranges::find(table.places, name, &Place::name);
        if (place == table.places.end()) {
            std::fprintf(stderr, "great_circle: no place %.*s in the table\n", static_cast<int>(name.size()),
                         name.data());
            status = 1;
            continue;
        }
        const auto i = static_cast<std::size_t>(place - table.places.begin());
        measure_from<Zelk>(i, all, row);
        print_place(table, row, i);
    }
    report_speed(all, count);
    return status;
}
