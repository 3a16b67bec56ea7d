// The order of operations of the trigonometric reductions and polynomials, and which lanes take which path.
#include "call.h"
#include "entries.h"

#include <gtest/gtest.h>

namespace zelk::test {
namespace {

enum Tiers { every_tier, tier_A, above_A };

// The bits that the steps give by a second implementation of them, lane by lane in scalar arithmetic. Chosen
// where another order shows, which no bound on the error does: on the fast paths, arguments at which the
// square of the fully reduced argument gives another result, alone and beside lanes of the other paths; and
// the last and first arguments of every path.
TEST(TrigBits, OrderOfOperations)
{
    const struct {
        const char* entry;
        Tiers tiers;
        Vec128 x;
        Vec128 first;
        Vec128 second = {};
    } rows[] = {
        {"sinf4", every_tier, words(0x44192599, 0xC615769B, 0x45A328A2, 0xC5CAD5BE),
         words(0x3CBD4071, 0xBEF4AF5F, 0xBE7B3F11, 0xBE3EBA29)},
        {"sinf4", every_tier, words(0x461C4001, 0xC640E400, 0x4E0182E8, 0xCE800000),
         words(0xBE9CF359, 0x3F7E67D2, 0x3F09CEFB, 0x3F1E091B)},
        {"sinf4", every_tier, words(0x44192599, 0xC61C4000, 0x461C4001, 0x4E800000),
         words(0x3CBD4071, 0x3E9C797D, 0xBE9CF359, 0xBF1E091B)},
        {"sinf4", every_tier, words(0xC615769B, 0x461C4000, 0xC61C4001, 0x4E800001),
         words(0xBEF4AF5F, 0xBE9C797D, 0x3E9CF359, 0x3F7EB78F)},
        {"sinf4", every_tier, words(0x45A328A2, 0xCE800000, 0x4F32D05E, 0xF149F2CA),
         words(0xBE7B3F11, 0x3F1E091B, 0x3F7CAC5A, 0x3F4A89B0)},
        {"cosf4", every_tier, words(0x44172EFF, 0xC60057A2, 0x4617F284, 0xC59708DC),
         words(0x3CB66F9A, 0xBE59AD7C, 0xBE2E67FD, 0x3E6C50AF)},
        {"cosf4", every_tier, words(0x461C4001, 0xC640E400, 0x4E0182E8, 0xCE800000),
         words(0xBF73ACDE, 0x3DE43873, 0x3F57BE12, 0x3F4965A3)},
        {"cosf4", every_tier, words(0x44172EFF, 0xC61C4000, 0x461C4001, 0x4E800000),
         words(0x3CB66F9A, 0xBF73C074, 0xBF73ACDE, 0x3F4965A3)},
        {"cosf4", every_tier, words(0xC60057A2, 0x461C4000, 0xC61C4001, 0x4E800001),
         words(0xBE59AD7C, 0xBF73C074, 0xBF73ACDD, 0xBDCCC7CC)},
        {"cosf4", every_tier, words(0x4617F284, 0xCE800000, 0x4F32D05E, 0xF149F2CA),
         words(0xBE2E67FD, 0x3F4965A3, 0xBE248BFC, 0xBF1C9222)},
        {"tanf4", above_A, words(0x4410E6AE, 0xC5DF2508, 0x46164FE8, 0xC60F8747),
         words(0x424D5F04, 0x3E5B89B0, 0x3EE48EB6, 0x3E4CFFF2)},
        {"tanf4", above_A, words(0x461C4001, 0xC640E400, 0x4E0182E8, 0xCE800000),
         words(0x3EA4E38F, 0x410EAFA8, 0x3F23860A, 0x3F48E1E1)},
        {"tanf4", above_A, words(0x4410E6AE, 0xC61C4000, 0x461C4001, 0x4E800000),
         words(0x424D5F03, 0xBEA45654, 0x3EA4E38F, 0xBF48E1E1)},
        {"tanf4", above_A, words(0xC5DF2508, 0x461C4000, 0xC61C4001, 0x4E800001),
         words(0x3E5B89B0, 0x3EA45654, 0xBEA4E38F, 0xC11F369E)},
        {"tanf4", above_A, words(0x46164FE8, 0xCE800000, 0x4F32D05E, 0xF149F2CA),
         words(0x3EE48EB6, 0x3F48E1E1, 0xC0C48D94, 0xBFA5943B)},
        {"sincosf4", above_A, words(0x4414D36E, 0xC6173193, 0x45029210, 0xC5E6E883),
         words(0xBF7FE5E9, 0xBE9183E1, 0x3CF76DF3, 0xBD1BC9FC),
         words(0xBCE723A7, 0x3F757171, 0xBF7FE21A, 0x3F7FD094)},
        {"sincosf4", above_A, words(0x461C4001, 0xC640E400, 0x4E0182E8, 0xCE800000),
         words(0xBE9CF359, 0x3F7E67D1, 0x3F09CEFB, 0x3F1E091B),
         words(0xBF73ACDE, 0x3DE43873, 0x3F57BE12, 0x3F4965A3)},
        {"sincosf4", above_A, words(0x4414D36E, 0xC61C4000, 0x461C4001, 0x4E800000),
         words(0xBF7FE5E8, 0x3E9C797D, 0xBE9CF359, 0xBF1E091B),
         words(0xBCE723A7, 0xBF73C074, 0xBF73ACDE, 0x3F4965A3)},
        {"sincosf4", above_A, words(0xC6173193, 0x461C4000, 0xC61C4001, 0x4E800001),
         words(0xBE9183E1, 0xBE9C797D, 0x3E9CF359, 0x3F7EB78F),
         words(0x3F757171, 0xBF73C074, 0xBF73ACDD, 0xBDCCC7CC)},
        {"sincosf4", above_A, words(0x45029210, 0xCE800000, 0x4F32D05E, 0xF149F2CA),
         words(0x3CF76DF3, 0x3F1E091B, 0x3F7CAC5A, 0x3F4A89B0),
         words(0xBF7FE21A, 0x3F4965A3, 0xBE248BFC, 0xBF1C9222)},
        {"ropsSinCos4", above_A, words(0x4425B9B7, 0xC612C769, 0x460EF593, 0xC5B8EA72),
         words(0xBCD2E038, 0xBEF1303F, 0x3F61441C, 0x3F7E4851),
         words(0xBF7FEA48, 0x3F61D0FD, 0x3EF33CFD, 0x3DECD591)},
        {"ropsSinCos4", above_A, words(0x461C4001, 0xC640E400, 0x4E0182E8, 0xCE800000),
         words(0xBE9CF359, 0x3F7E67D1, 0x3F09CEFB, 0x3F1E091B),
         words(0xBF73ACDE, 0x3DE43873, 0x3F57BE12, 0x3F4965A3)},
        {"ropsSinCos4", above_A, words(0x4425B9B7, 0xC61C4000, 0x461C4001, 0x4E800000),
         words(0xBCD2E038, 0x3E9C797D, 0xBE9CF359, 0xBF1E091B),
         words(0xBF7FEA48, 0xBF73C074, 0xBF73ACDE, 0x3F4965A3)},
        {"ropsSinCos4", above_A, words(0xC612C769, 0x461C4000, 0xC61C4001, 0x4E800001),
         words(0xBEF1303F, 0xBE9C797D, 0x3E9CF359, 0x3F7EB78F),
         words(0x3F61D0FD, 0xBF73C074, 0xBF73ACDE, 0xBDCCC7CC)},
        {"ropsSinCos4", above_A, words(0x460EF593, 0xCE800000, 0x4F32D05E, 0xF149F2CA),
         words(0x3F61441C, 0x3F1E091B, 0x3F7CAC5A, 0x3F4A89B0),
         words(0x3EF33CFD, 0x3F4965A3, 0xBE248BFC, 0xBF1C9221)},
        {"sin2", every_tier, quads(0x40F1C181C8AF33A2, 0xC0F631F92B97A71A),
         quads(0x3FCE9ED464E990F1, 0xBFC5040EC76638EE)},
        {"sin2", every_tier, quads(0x40FF4000FFFFFFFF, 0xC0FF4000FFFFFFFF),
         quads(0xBFEABA5358D12D95, 0x3FEABA5358D12D95)},
        {"sin2", every_tier, quads(0x40FF400100000000, 0xC1CFFFFFFFFFFFFF),
         quads(0xBFEABA5358D0140C, 0x3FE3C12385CBF55D)},
        {"sin2", every_tier, quads(0x40F1C181C8AF33A2, 0x40FF400100000000),
         quads(0x3FCE9ED464E990F2, 0xBFEABA5358D0140C)},
        {"sin2", every_tier, quads(0xC1CFFFFFFFFFFFFF, 0xC0F631F92B97A71A),
         quads(0x3FE3C12385CBF55D, 0xBFC5040EC76638EF)},
        {"cos2", every_tier, quads(0x40FE39A35FBA6343, 0xC0F6F4A1C6E09A86),
         quads(0xBFB9F8A72377571A, 0xBFC7B482D3E8598C)},
        {"cos2", every_tier, quads(0x40FF400000000000, 0xC0FF400000000000),
         quads(0x3FDFC8E18180C53E, 0x3FDFC8E18180C53E)},
        {"cos2", every_tier, quads(0x40FF400000000001, 0xC1CFFFFFFFFFFFFF),
         quads(0x3FDFC8E181843E06, 0x3FE92CB4430FBA6A)},
        {"cos2", every_tier, quads(0x40FE39A35FBA6343, 0x40FF400000000001),
         quads(0xBFB9F8A72377571A, 0x3FDFC8E181843E06)},
        {"cos2", every_tier, quads(0xC1CFFFFFFFFFFFFF, 0xC0F6F4A1C6E09A86),
         quads(0x3FE92CB4430FBA6A, 0xBFC7B482D3E8598C)},
        {"tan2", above_A, quads(0x40FE4AD7371030FB, 0xC0F6099FB7645667),
         quads(0x3FD047A356128E4E, 0x40171D52E228D872)},
        {"tan2", above_A, quads(0x40FF4000FFFFFFFF, 0xC0FF4000FFFFFFFF),
         quads(0xBFF84DAC59510D3D, 0x3FF84DAC59510D3D)},
        {"tan2", above_A, quads(0x40FF400100000000, 0xC1CFFFFFFFFFFFFF),
         quads(0xBFF84DAC594DBE97, 0x3FE91C3C79D80B40)},
        {"tan2", above_A, quads(0x40FE4AD7371030FB, 0x40FF400100000000),
         quads(0x3FD047A356128E4D, 0xBFF84DAC594DBE97)},
        {"tan2", above_A, quads(0xC1CFFFFFFFFFFFFF, 0xC0F6099FB7645667),
         quads(0x3FE91C3C79D80B40, 0x40171D52E228D873)},
        {"sincos2", above_A, quads(0x40FA5BF56E7C9D94, 0xC0F1105F39D276ED),
         quads(0xBFCC86B64E66B95B, 0x3FC9A5E097372795), quads(0xBFEF31F912443F68, 0x3FEF59DC60EED475)},
        {"sincos2", above_A, quads(0x40FF4000FFFFFFFF, 0xC0FF4000FFFFFFFF),
         quads(0xBFEABA5358D12D95, 0x3FEABA5358D12D95), quads(0x3FE1989A45201492, 0x3FE1989A45201492)},
        {"sincos2", above_A, quads(0x40FF400100000000, 0xC1CFFFFFFFFFFFFF),
         quads(0xBFEABA5358D0140C, 0x3FE3C12385CBF55D), quads(0x3FE1989A4521C037, 0x3FE92CB4430FBA6A)},
        {"sincos2", above_A, quads(0x40FA5BF56E7C9D94, 0x40FF400100000000),
         quads(0xBFCC86B64E66B95B, 0xBFEABA5358D0140C), quads(0xBFEF31F912443F68, 0x3FE1989A4521C037)},
        {"sincos2", above_A, quads(0xC1CFFFFFFFFFFFFF, 0xC0F1105F39D276ED),
         quads(0x3FE3C12385CBF55D, 0x3FC9A5E097372795), quads(0x3FE92CB4430FBA6A, 0x3FEF59DC60EED475)},
        {"sincos2", above_A, quads(0x40FA5BF56E7C9D94, 0xC1D0000000000000),
         quads(0xBFCC86B64E66B95B, 0x3FE3C12353728CAF), quads(0xBFEF31F912443F68, 0x3FE92CB46A920144)},
        {"sincos2", above_A, quads(0x7E37E43C8800759C, 0x40FF4000FFFFFFFF),
         quads(0xBFEA2C16B010E385, 0xBFEABA5358D12D95), quads(0xBFE2699022ADC4C1, 0x3FE1989A45201492)},
        {"tanf4", tier_A, words(0x3F333333, 0xC039999A, 0x449A5000, 0xC61C4000),
         words(0x3F57A035, 0x3E7C51AC, 0xBE167BF7, 0xBEA45654)},
        {"tanf4", tier_A, words(0x3F333333, 0xC61C4000, 0x461C4400, 0x4F32D05E),
         words(0x3F57A035, 0xBEA45654, 0x40706050, 0xC0C48D94)},
        {"sincosf4", tier_A, words(0x3F333333, 0xC039999A, 0x449A5000, 0xC61C4000),
         words(0x3F24EB73, 0xBE74FDC0, 0x3E14E299, 0x3E9C797D),
         words(0x3F43CCB3, 0xBF7890B7, 0xBF7D4796, 0xBF73C074)},
        {"sincosf4", tier_A, words(0x3F333333, 0xC61C4000, 0x461C4400, 0x4F32D05E),
         words(0x3F24EB73, 0x3E9C797D, 0xBF7761C0, 0x3F7CAC5A),
         words(0x3F43CCB3, 0xBF73C074, 0xBE83BB01, 0xBE248BFC)},
        {"ropsSinCos4", tier_A, words(0x3F333333, 0xC039999A, 0x449A5000, 0xC61C4000),
         words(0x3F24EB73, 0xBE74FDC0, 0x3E14E299, 0x3E9C797D),
         words(0x3F43CCB3, 0xBF7890B7, 0xBF7D4796, 0xBF73C074)},
        {"ropsSinCos4", tier_A, words(0x3F333333, 0xC61C4000, 0x461C4400, 0x4F32D05E),
         words(0x3F24EB73, 0x3E9C797D, 0xBF7761C0, 0x3F7CAC5A),
         words(0x3F43CCB3, 0xBF73C074, 0xBE83BB01, 0xBE248BFC)},
        {"tan2", tier_A, quads(0x3FE6666666666666, 0xC007333333333333),
         quads(0x3FEAF406C2FC78AD, 0x3FCF8A364255739E)},
        {"tan2", tier_A, quads(0x40FE240B33333333, 0xC0FF4000FFFFFFFF),
         quads(0x403ACB44F7298F40, 0x3FF84DAC59510D3D)},
        {"tan2", tier_A, quads(0x3FE6666666666666, 0x7E37E43C8800759C),
         quads(0x3FEAF406C2FC78AD, 0x3FF6BE411F37AC76)},
        {"tan2", tier_A, quads(0xC1B1E1A300000000, 0x4007333333333333),
         quads(0x3FDF51AF0A5408CD, 0xBFCF8A364255739E)},
        {"sincos2", tier_A, quads(0x3FE6666666666666, 0xC007333333333333),
         quads(0x3FE49D6E694619B8, 0xBFCE9FB8D64830E2), quads(0x3FE87996529F9D93, 0xBFEF1216DBA340C9)},
        {"sincos2", tier_A, quads(0x40FE240B33333333, 0xC0FF4000FFFFFFFF),
         quads(0xBFEFFA4CF2BCE7E5, 0x3FEABA5358D12D95), quads(0xBFA3186F285E7651, 0x3FE1989A45201492)},
        {"sincos2", tier_A, quads(0x3FE6666666666666, 0x7E37E43C8800759C),
         quads(0x3FE49D6E694619B8, 0xBFEA2C16B010E385), quads(0x3FE87996529F9D93, 0xBFE2699022ADC4C1)},
        {"sincos2", tier_A, quads(0xC1B1E1A300000000, 0x4007333333333333),
         quads(0x3FDC219EED2E54C5, 0x3FCE9FB8D64830E2), quads(0x3FECBE31D447D1E2, 0xBFEF1216DBA340C9)},
    };
    for (const auto& row : rows)
        for (const Kernel& kernel : entry(row.entry).kernels) {
            if (kernel.lane_loop) continue;
            if (row.tiers != every_tier && (row.tiers == tier_A) != (kernel.tier == 'A')) continue;
            const bool pair = entry(row.entry).results != Results::one;
            Vec128 stored;
            const Result result = call(kernel.address, row.x, {}, {}, &stored);
            EXPECT_EQ(hex(result.first), hex(row.first)) << kernel.symbol << ' ' << hex(row.x);
            if (pair) {
                EXPECT_EQ(hex(result.second), hex(row.second)) << kernel.symbol << ' ' << hex(row.x);
            }
        }
}

} // namespace
} // namespace zelk::test
