// Nearest neighbours and farthest places on the globe, from the coordinates of a zone table.
//
// Every place becomes a unit vector by the sines and cosines of its latitude and longitude, four at a time
// with libzelk; then all pairs are compared. The same sines and cosines are computed one at a time with the C
// library, for speed and for the difference between the two.
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

constexpr double earth_radius_km = 6371.0088;

struct Coordinates { // radians; as many elements as places, filled up with zeros to a multiple of four
    std::vector<float> latitude;
    std::vector<float> longitude;
};

struct SinesAndCosines {
    explicit SinesAndCosines(std::size_t size)
        : sin_latitude(size), cos_latitude(size), sin_longitude(size), cos_longitude(size)
    {
    }
    std::vector<float> sin_latitude;
    std::vector<float> cos_latitude;
    std::vector<float> sin_longitude;
    std::vector<float> cos_longitude;
};

struct UnitVector {
    float x;
    float y;
    float z;
};

Coordinates in_radians(const std::vector<Place>& places)
{
    const std::size_t size = (places.size() + 3) / 4 * 4;
    Coordinates coordinates{std::vector<float>(size), std::vector<float>(size)};
    constexpr double radians_per_degree = std::numbers::pi / 180;
    for (std::size_t i = 0; i < places.size(); ++i) {
        coordinates.latitude[i] = static_cast<float>(places[i].latitude * radians_per_degree);
        coordinates.longitude[i] = static_cast<float>(places[i].longitude * radians_per_degree);
    }
    return coordinates;
}

// Four elements to a call.
struct Zelk {
    static void sines(const std::vector<float>& angles, std::vector<float>& results)
    {
        for (std::size_t i = 0; i < angles.size(); i += 4)
            _mm_storeu_ps(&results[i], __zelk_sinf4(_mm_loadu_ps(&angles[i])));
    }
    static void cosines(const std::vector<float>& angles, std::vector<float>& results)
    {
        for (std::size_t i = 0; i < angles.size(); i += 4)
            _mm_storeu_ps(&results[i], __zelk_cosf4(_mm_loadu_ps(&angles[i])));
    }
};

// One element to a call.
struct Libm {
    static void sines(const std::vector<float>& angles, std::vector<float>& results)
    {
        for (std::size_t i = 0; i < angles.size(); ++i)
            results[i] = std::sin(angles[i]);
    }
    static void cosines(const std::vector<float>& angles, std::vector<float>& results)
    {
        for (std::size_t i = 0; i < angles.size(); ++i)
            results[i] = std::cos(angles[i]);
    }
};

template <class Math>
[[gnu::noinline]] void compute(const Coordinates& coordinates, SinesAndCosines& results)
{
    Math::sines(coordinates.latitude, results.sin_latitude);
    Math::cosines(coordinates.latitude, results.cos_latitude);
    Math::sines(coordinates.longitude, results.sin_longitude);
    Math::cosines(coordinates.longitude, results.cos_longitude);
}

std::vector<UnitVector> unit_vectors(const SinesAndCosines& angles, std::size_t count)
{
    std::vector<UnitVector> vectors(count);
    for (std::size_t i = 0; i < count; ++i)
        vectors[i] = {angles.cos_latitude[i] * angles.cos_longitude[i],
                      angles.cos_latitude[i] * angles.sin_longitude[i], angles.sin_latitude[i]};
    return vectors;
}

// |u - v|^2, and with sign = -1 |u + v|^2: the chord to v and to its antipode. Near 0 both are accurate.
float squared_chord(const UnitVector& u, const UnitVector& v, float sign = 1)
{
    const float x = u.x - sign * v.x;
    const float y = u.y - sign * v.y;
    const float z = u.z - sign * v.z;
    return x * x + y * y + z * z;
}

double distance_km(const UnitVector& u, const UnitVector& v)
{
    return earth_radius_km * 2 *
           std::atan2(std::sqrt(double{squared_chord(u, v)}), std::sqrt(double{squared_chord(u, v, -1)}));
}

struct Extremes {
    std::size_t nearest;
    std::size_t farthest;
};

std::vector<Extremes> compare_all_pairs(const std::vector<UnitVector>& vectors)
{
    std::vector<Extremes> extremes(vectors.size());
    for (std::size_t i = 0; i < vectors.size(); ++i) {
        float nearest = 8;
        float nearest_to_antipode = 8;
        for (std::size_t j = 0; j < vectors.size(); ++j) {
            if (j == i) continue;
            const float chord = squared_chord(vectors[i], vectors[j]);
            const float chord_to_antipode = squared_chord(vectors[i], vectors[j], -1);
            if (chord < nearest) {
                nearest = chord;
                extremes[i].nearest = j;
            }
            if (chord_to_antipode < nearest_to_antipode) {
                nearest_to_antipode = chord_to_antipode;
                extremes[i].farthest = j;
            }
        }
    }
    return extremes;
}

// Seconds for one pass over all coordinates, from a number of passes short enough to escape interruption.
template <class Math>
double seconds_per_pass(const Coordinates& coordinates, SinesAndCosines& results)
{
    constexpr int passes = 50;
    const auto start = Clock::now();
    for (int i = 0; i < passes; ++i)
        compute<Math>(coordinates, results);
    return std::chrono::duration<double>(Clock::now() - start).count() / passes;
}

struct Difference {
    float absolute = 0;
    float ulp = 0;

    void include(const std::vector<float>& values, const std::vector<float>& references)
    {
        for (std::size_t i = 0; i < values.size(); ++i) {
            const float difference = std::fabs(values[i] - references[i]);
            const float magnitude = std::fabs(references[i]);
            absolute = std::max(absolute, difference);
            ulp = std::max(ulp, difference / (std::nextafter(magnitude, 2.0f) - magnitude));
        }
    }
};

void report_speed(const Coordinates& coordinates, SinesAndCosines& zelk)
{
    SinesAndCosines libm(coordinates.latitude.size());
    double zelk_seconds = HUGE_VAL;
    double libm_seconds = HUGE_VAL;
    int rounds = 0;
    const auto end = Clock::now() + std::chrono::milliseconds(400);
    for (; Clock::now() < end; ++rounds) {
        zelk_seconds = std::min(zelk_seconds, seconds_per_pass<Zelk>(coordinates, zelk));
        libm_seconds = std::min(libm_seconds, seconds_per_pass<Libm>(coordinates, libm));
    }
    const auto elements = static_cast<double>(4 * coordinates.latitude.size());
    std::printf("\nsines and cosines of all coordinates, %.0f elements a pass, best of %d rounds\n", elements,
                rounds);
    std::printf("  libzelk  %8.1f million elements per second\n", elements / zelk_seconds * 1e-6);
    std::printf("  libm     %8.1f million elements per second\n", elements / libm_seconds * 1e-6);
    std::printf("  libzelk is %.2f times as fast\n", libm_seconds / zelk_seconds);

    Difference difference;
    difference.include(zelk.sin_latitude, libm.sin_latitude);
    difference.include(zelk.cos_latitude, libm.cos_latitude);
    difference.include(zelk.sin_longitude, libm.sin_longitude);
    difference.include(zelk.cos_longitude, libm.cos_longitude);
    std::printf("  largest difference between the two: %.3g, in units in the last place: %.3g\n",
                double{difference.absolute}, double{difference.ulp});
}

void print_place(const ZoneTable& table, const std::vector<UnitVector>& vectors,
                 const std::vector<Extremes>& extremes, std::size_t i)
{
    const auto [nearest, farthest] = extremes[i];
    std::printf("%-20s  %-22s %6.0f km    %-22s %6.0f km\n", table.places[i].name.c_str(),
                table.places[nearest].name.c_str(), distance_km(vectors[i], vectors[nearest]),
                table.places[farthest].name.c_str(), distance_km(vectors[i], vectors[farthest]));
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

    const Coordinates coordinates = in_radians(table.places);
    SinesAndCosines angles(coordinates.latitude.size());
    compute<Zelk>(coordinates, angles);
    const std::vector<UnitVector> vectors = unit_vectors(angles, table.places.size());
    const std::vector<Extremes> extremes = compare_all_pairs(vectors);

    std::printf("%zu places, %zu pairs\n\n%-20s  %-22s %9s    %-22s %9s\n", vectors.size(),
                vectors.size() * (vectors.size() - 1) / 2, "place", "nearest", "", "farthest", "");
    int status = 0;
    for (const std::string_view name : wanted) {
        const auto place = std::ranges::find(table.places, name, &Place::name);
        if (place == table.places.end()) {
            std::fprintf(stderr, "great_circle: no place %.*s in the table\n", static_cast<int>(name.size()),
                         name.data());
            status = 1;
            continue;
        }
        print_place(table, vectors, extremes, static_cast<std::size_t>(place - table.places.begin()));
    }
    report_speed(coordinates, angles);
    return status;
}
