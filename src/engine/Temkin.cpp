// SPDX-License-Identifier: Apache-2.0
#include "engine/Temkin.h"

#include "engine/Integers.h"
#include "engine/Single.h"

#include <array>
#include <cmath>

namespace zorel {

namespace {

/// Seconds for the whole degrees of latitude 0 to 60. The rows are not smooth everywhere; they are data.
using TemkinTable = std::array<int, 61>;

constexpr TemkinTable TemkinVakti500M{452, 452, 452, 453,  454,  454,  455,  456,  458, 459, 460, 462, 464,
                                      466, 468, 471, 474,  477,  480,  484,  487,  491, 496, 500, 505, 510,
                                      515, 521, 527, 533,  539,  546,  553,  561,  570, 579, 590, 601, 612,
                                      623, 636, 649, 658,  678,  698,  713,  742,  744, 778, 799, 831, 860,
                                      896, 934, 978, 1028, 1084, 1155, 1230, 1330, 1460};
constexpr TemkinTable TemkinVakti250M{
    385, 385, 385, 385, 385, 386, 386, 387, 388, 390, 391, 392, 395, 397, 399, 401, 404,  406,  409, 412, 414,
    417, 421, 425, 429, 435, 437, 442, 448, 453, 458, 464, 470, 477, 485, 492, 501, 510,  521,  529, 540, 551,
    564, 575, 590, 606, 622, 638, 659, 682, 704, 729, 759, 790, 829, 867, 915, 966, 1028, 1108, 1220};
constexpr double kBeyond60With500M = 0.40555556615193683; // [h]
constexpr double kBeyond60With250M = 0.3388888994852702;  // [h]

/// Minutes, as single precision holds them.
double minutes(const TemkinTable& table, std::int32_t row) {
    return single(table[row] / 60.0);
}

} // namespace

double temkinHours(double latitude, bool elevation) {
    const double degrees = std::fabs(latitude);
    const std::int32_t row = toInt(degrees);
    if (row > 59) {
        return elevation ? kBeyond60With500M : kBeyond60With250M;
    }
    const TemkinTable& table = elevation ? TemkinVakti500M : TemkinVakti250M;
    const double lower = minutes(table, row) / 60.0;
    return lower + (minutes(table, row + 1) / 60.0 - lower) * (degrees - row);
}

} // namespace zorel
