#include "zone_table.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace {

bool all_digits(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

int number(std::string_view digits)
{
    int value = 0;
    for (const char digit : digits)
        value = 10 * value + (digit - '0');
    return value;
}

// Degrees from a sign, `degree_digits` digits of degrees, two of minutes and, if they are there, two of
// seconds.
std::optional<double> parse_angle(std::string_view text, std::size_t degree_digits, int largest)
{
    const std::string_view digits = text.substr(1);
    const bool has_seconds = digits.size() == degree_digits + 4;
    if ((!has_seconds && digits.size() != degree_digits + 2) || !all_digits(digits)) return {};
    const int degrees = number(digits.substr(0, degree_digits));
    const int minutes = number(digits.substr(degree_digits, 2));
    const int seconds = has_seconds ? number(digits.substr(degree_digits + 2)) : 0;
    const double angle = degrees + minutes / 60.0 + seconds / 3600.0;
    if (minutes >= 60 || seconds >= 60 || angle > largest) return {};
    return text[0] == '-' ? -angle : angle;
}

std::string parse_row(std::string_view row, Place& place)
{
    const std::size_t first_tab = row.find('\t');
    const std::size_t second_tab = first_tab == row.npos ? row.npos : row.find('\t', first_tab + 1);
    if (second_tab == row.npos) return "needs country codes, coordinates and a zone name with tabs between";

    const std::string_view coordinates = row.substr(first_tab + 1, second_tab - first_tab - 1);
    const auto malformed = [&] {
        return "coordinates '" + std::string(coordinates) +
               "' are not of the form +-DDMM+-DDDMM or +-DDMMSS+-DDDMMSS, or out of range";
    };
    const std::size_t longitude_at = coordinates.find_first_of("+-", 1);
    if (coordinates.find_first_of("+-") != 0 || longitude_at == coordinates.npos) return malformed();
    const auto latitude = parse_angle(coordinates.substr(0, longitude_at), 2, 90);
    const auto longitude = parse_angle(coordinates.substr(longitude_at), 3, 180);
    if (!latitude || !longitude) return malformed();

    const std::string_view rest = row.substr(second_tab + 1);
    const std::string_view name = rest.substr(0, rest.find('\t'));
    if (name.empty()) return "has no zone name";
    place = {std::string(name), *latitude, *longitude};
    return {};
}

} // namespace

ZoneTable read_zone_table(std::istream& input)
{
    ZoneTable table;
    std::string row;
    for (int line = 1; std::getline(input, row); ++line) {
        if (row.ends_with('\r')) row.pop_back();
        if (row.empty() || row.starts_with('#')) continue;
        Place place;
        const std::string problem = parse_row(row, place);
        if (problem.empty())
            table.places.push_back(std::move(place));
        else
            table.bad_rows.push_back({line, problem});
    }
    return table;
}
