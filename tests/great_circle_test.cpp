// The example program: distances and bearings known in closed form, broken rows, and the table that comes
// with it.
#include "program.h"

#include <gtest/gtest.h>

namespace zelk::test {
namespace {

const std::string program = GREAT_CIRCLE;

// On the sphere of 6371.0088 km: 1.5, 80, 100 and 180 degrees.
TEST(GreatCircle, KnownDistancesBesideBrokenRows)
{
    const std::string table = TEST_DATA "/broken_zones.tab";
    const Outcome outcome = run(program + ' ' + table + " Sea/Null Sea/East");
    EXPECT_EQ(outcome.status, 0);
    const std::string out = squeezed(outcome.out);
    EXPECT_NE(out.find("5 places, 10 pairs;"), std::string::npos) << out;
    EXPECT_NE(out.find("\nSea/Null Sea/Near 167 km 0 deg Sea/Anti 20015 km "), std::string::npos) << out;
    EXPECT_NE(out.find("\nSea/East Sea/Null 8896 km 270 deg Sea/Anti 11120 km 90 deg\n"), std::string::npos)
        << out;

    std::string lines;
    for (std::size_t at = outcome.err.find(table + ':'); at != std::string::npos;
         at = outcome.err.find(table + ':', at + 1)) {
        const std::size_t number = at + table.size() + 1;
        lines += outcome.err.substr(number, outcome.err.find(':', number) - number) + ' ';
    }
    EXPECT_EQ(lines, "4 6 7 8 9 10 13 15 ") << outcome.err;
    EXPECT_NE(outcome.err.find("coordinates '+9001+00000'"), std::string::npos) << outcome.err;
}

TEST(GreatCircle, ShippedTable)
{
    const Outcome outcome = run(program + " " EXAMPLE_DATA "/zone1970.tab");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_NE(outcome.out.find("Europe/London"), std::string::npos) << outcome.out;
}

TEST(GreatCircle, UnusableInput)
{
    EXPECT_EQ(run(program).status, 2);
    const Outcome missing = run(program + " no/such/table");
    EXPECT_EQ(missing.status, 1);
    EXPECT_NE(missing.err.find("no/such/table: No such file"), std::string::npos) << missing.err;
    const Outcome empty = run(program + " /dev/null");
    EXPECT_EQ(empty.status, 1);
    EXPECT_NE(empty.err.find("fewer than two places"), std::string::npos) << empty.err;
    const Outcome unknown = run(program + " " EXAMPLE_DATA "/zone1970.tab Atlantic/Atlantis");
    EXPECT_EQ(unknown.status, 1);
    EXPECT_NE(unknown.err.find("Atlantic/Atlantis"), std::string::npos) << unknown.err;
}

} // namespace
} // namespace zelk::test
