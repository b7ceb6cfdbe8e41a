// one_pair_road.h - a project of one pair, ready to be inverted, for tests that only need something to work on.
#pragma once

namespace sondera::test {

/// Script in a folder with the site's records (support/site_records.h): a masked curve, its representative curves and a
/// starting model of six layers, saved as Site.da.
inline constexpr const char* kOnePairRoad = R"(*sondera 2
read tim id=site files=rec1.tim,rec2.tim,rec3.tim,rec4.tim,rec5.tim,rec6.tim source=0 at=10,14,22,30,42,54
pair site 1 3
mask 0 7
mask 48 500
disperse
save Site.da overwrite=yes
calcVel
preInversion 0 0 2 0.5 6 2 2 3 2 2 100
)";

}  // namespace sondera::test
