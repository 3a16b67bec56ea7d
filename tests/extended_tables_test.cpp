// The exported tables as a program that links the library sees them: size, alignment, landmarks.
#include "entries.h"

#include "zelk/zelk.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace zelk::test {
namespace {

TEST(ExtendedTables, AlignedAndAsLongAsListed)
{
    ASSERT_EQ(data_entries().size(), 8u);
    for (const DataEntry& data : data_entries()) {
        const void* const address = exported(data.name);
        ASSERT_NE(address, nullptr) << data.name;
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(address) % 16, 0u) << data.name;
    }
}

TEST(ExtendedTables, Landmarks)
{
    EXPECT_EQ(_rop_rcp_table_256[0], 0.998046875f);
    EXPECT_EQ(_rop_rcp_table_256[255], 0.50048828125f);
    for (int j = 0; j < 256; ++j)
        ASSERT_EQ(_rop_double_rcp_table_256[j], static_cast<double>(_rop_rcp_table_256[j])) << j;
    EXPECT_EQ(_rop_expl_table_256[0][0], 0x1.6a09e667f3bcdp-1);
    EXPECT_EQ(_rop_expl_table_256[128][0], 1.0);
    EXPECT_EQ(_rop_expl_table_256[128][1], 0.0);
    EXPECT_EQ(_rop_expl_table_256[256][0], 0x1.6a09e667f3bcdp0);
    EXPECT_EQ(_rop_log_table_256[0][1], 0x1.00401p-9);
    EXPECT_EQ(_rop_logl_table_256[0][0], 0x1.0040155d5889ep-9);
    const struct {
        int index;
        double degrees;
        double radians;
    } angles[] = {{0, 0, 0},
                  {128, 45, 0x1.921fb54442d18p-1},
                  {256, 90, 0x1.921fb54442d18p0},
                  {384, 135, 0x1.2d97c7f3321d2p1},
                  {512, 180, 0x1.921fb54442d18p1}};
    for (const auto& [index, degrees, radians] : angles) {
        EXPECT_EQ(_rop_atandl_table_128[index][0], degrees);
        EXPECT_EQ(_rop_atandl_table_128[index][1], 0.0);
        EXPECT_EQ(_rop_atanl_table_128[index][0], radians);
    }
    EXPECT_EQ(_rop_sindl_cosdl_table[0][2], 1.0);
    EXPECT_EQ(_rop_sindl_cosdl_table[30][0], 0.5);
    EXPECT_EQ(_rop_sindl_cosdl_table[30][1], 0.0);
    EXPECT_EQ(_rop_sindl_cosdl_table[60][2], 0.5);
}

} // namespace
} // namespace zelk::test
