// The zone table of the tz database: tab-separated rows of country codes, coordinates, zone name and
// comments.
#pragma once

#include <istream>
#include <string>
#include <vector>

struct Place {
    std::string name;
    double latitude; // degrees, north and east positive
    double longitude;
};

struct BadRow {
    int line;
    std::string reason;
};

struct ZoneTable {
    std::vector<Place> places;
    std::vector<BadRow> bad_rows; // left out of places
};

ZoneTable read_zone_table(std::istream& input);
