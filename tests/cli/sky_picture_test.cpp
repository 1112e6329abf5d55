// SPDX-License-Identifier: Apache-2.0
// What the pictures of sky and compass are made of: the Moon's face, the unrolled sky, room for names.
#include "CliRunner.h"
#include "draw/CompassRose.h"
#include "draw/LabelBoxes.h"
#include "draw/MoonFace.h"
#include "draw/Panorama.h"
#include "draw/SkyChart.h"
#include "tests/almanac/Days.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace zorel::cli {
namespace {

using namespace std::chrono_literals;

// The Moon's face

/// Part of the disc that is lit, counted.
double litPart(const MoonFace& face) {
    int lit = 0;
    int all = 0;
    for (double x = -0.995; x < 1.0; x += 0.01) {
        for (double y = -0.995; y < 1.0; y += 0.01) {
            if (x * x + y * y <= 1.0) {
                ++all;
                lit += face.isLit({x, y}) ? 1 : 0;
            }
        }
    }
    return static_cast<double>(lit) / all;
}

TEST(CliMoonFace, IsLitInTheRightMeasure) {
    for (const double lit : {0.0, 0.02, 0.25, 0.5, 0.75, 0.99, 1.0}) {
        for (const double side : {0.0, 45.0, 100.0, 270.0}) {
            EXPECT_NEAR(litPart(MoonFace(lit, side)), lit, 0.01) << lit << ' ' << side;
        }
    }
}

TEST(CliMoonFace, IsLitOnTheRightSide) {
    const FacePoint top{0.0, -0.9};
    const FacePoint right{0.9, 0.0};
    const FacePoint bottom{0.0, 0.9};
    const FacePoint left{-0.9, 0.0};
    EXPECT_TRUE(MoonFace(0.3, 0.0).isLit(top));
    EXPECT_FALSE(MoonFace(0.3, 0.0).isLit(right));
    EXPECT_TRUE(MoonFace(0.3, 90.0).isLit(right));
    EXPECT_FALSE(MoonFace(0.3, 90.0).isLit(left));
    EXPECT_TRUE(MoonFace(0.3, 180.0).isLit(bottom));
    EXPECT_TRUE(MoonFace(0.3, 270.0).isLit(left));
    EXPECT_FALSE(MoonFace(0.3, 270.0).isLit({0.0, 0.0}));
    EXPECT_TRUE(MoonFace(0.7, 270.0).isLit({0.0, 0.0}));
    EXPECT_FALSE(MoonFace(1.0, 0.0).isLit({0.8, 0.8})); // beside the disc
}

TEST(CliMoonFace, ItsOutlineHoldsTheLitPart) {
    for (const double lit : {0.1, 0.5, 0.87}) {
        const auto outline = MoonFace(lit, 30.0).outline();
        double area = 0.0;
        for (std::size_t i = 0; i < outline.size(); ++i) {
            const FacePoint& one = outline[i];
            const FacePoint& two = outline[(i + 1) % outline.size()];
            EXPECT_LE(std::hypot(one.x, one.y), 1.0 + 1e-9);
            area += (one.x * two.y - two.x * one.y) / 2.0;
        }
        EXPECT_NEAR(std::abs(area) / std::numbers::pi, lit, 0.01);
    }
}

// The unrolled sky

TEST(CliPanorama, UnrollsFromTheSideOpposite) {
    const Panorama south(180.0);
    EXPECT_DOUBLE_EQ(south.right(180.0), 0.5);
    EXPECT_DOUBLE_EQ(south.right(90.0), 0.25);
    EXPECT_DOUBLE_EQ(south.right(0.0), 0.0);
    EXPECT_DOUBLE_EQ(Panorama(0.0).right(270.0), 0.25);
    EXPECT_DOUBLE_EQ(Panorama(0.0).right(90.0), 0.75);
    EXPECT_EQ(middleOfSky(41.0, 23.4), 180.0);
    EXPECT_EQ(middleOfSky(-33.9, -23.4), 0.0);
    EXPECT_EQ(middleOfSky(4.0, 20.0), 0.0);
}

almanac::SkyMoment sunAt(double altitude, double azimuth) {
    return {{}, {altitude, azimuth}, {}};
}

TEST(CliPanorama, CutsAtTheHorizon) {
    const std::vector course{sunAt(-10.0, 90.0), sunAt(10.0, 100.0), sunAt(20.0, 110.0)};
    const auto pieces = Panorama(180.0).way(course, Body::sun);
    ASSERT_EQ(pieces.size(), 2U);
    EXPECT_FALSE(pieces[0].above);
    EXPECT_TRUE(pieces[1].above);
    EXPECT_DOUBLE_EQ(pieces[0].points.back().altitude, 0.0);
    EXPECT_DOUBLE_EQ(pieces[0].points.back().right, 95.0 / 360.0);
    EXPECT_DOUBLE_EQ(pieces[1].points.front().altitude, 0.0);
    EXPECT_EQ(pieces[1].points.size(), 3U);
}

TEST(CliPanorama, CutsAtTheBottomAndTheEdges) {
    const std::vector deep{sunAt(-40.0, 90.0), sunAt(-10.0, 91.0)};
    const auto rising = Panorama(180.0).way(deep, Body::sun);
    ASSERT_EQ(rising.size(), 1U);
    EXPECT_NEAR(rising[0].points.front().altitude, kBottomOfSky, 1e-9);
    const std::vector round{sunAt(5.0, 350.0), sunAt(15.0, 10.0)};
    const auto over = Panorama(180.0).way(round, Body::sun);
    ASSERT_EQ(over.size(), 2U);
    EXPECT_DOUBLE_EQ(over[0].points.back().right, 1.0);
    EXPECT_DOUBLE_EQ(over[1].points.front().right, 0.0);
    EXPECT_NEAR(over[0].points.back().altitude, 10.0, 1e-9);
    const std::vector steep{sunAt(-40.0, 90.0), sunAt(30.0, 90.0)};
    EXPECT_EQ(Panorama(180.0).way(steep, Body::sun).size(), 2U);
    EXPECT_TRUE(Panorama(180.0).way(std::vector{sunAt(-40.0, 1.0), sunAt(-41.0, 2.0)}, Body::sun).empty());
}

TEST(CliPanorama, StaysInThePictureEverywhere) {
    for (const double latitude : {-90.0, -66.0, -1.0, 0.0, 21.4, 45.0, 66.0, 89.9}) {
        const almanac::Place place = almanac::tests::placeIn(latitude, 33.0, "UTC");
        for (const int month : {3, 6, 12}) {
            const auto course = almanac::Almanac(place).course(2026y / month / 21, 5min);
            for (const Body body : {Body::sun, Body::moon}) {
                for (const PanoramaPiece& piece : Panorama(180.0).way(course, body)) {
                    ASSERT_GE(piece.points.size(), 2U);
                    for (const PanoramaPoint& point : piece.points) {
                        EXPECT_GE(point.right, 0.0);
                        EXPECT_LE(point.right, 1.0);
                        EXPECT_GE(point.altitude, kBottomOfSky - 1e-9);
                        EXPECT_LE(point.altitude, kTopOfSky);
                    }
                }
            }
        }
    }
}

TEST(CliLabels, NoneOnAnother) {
    LabelBoxes boxes({0, 0, 100, 100});
    EXPECT_TRUE(boxes.take({10, 10, 30, 20}));
    EXPECT_FALSE(boxes.take({29, 19, 40, 30}));
    EXPECT_TRUE(boxes.take({30, 10, 40, 20}));
    EXPECT_FALSE(boxes.take({95, 10, 101, 20}));
    boxes.occupy({50, 50, 60, 60});
    EXPECT_FALSE(boxes.take({55, 55, 56, 56}));
}

// The pictures

TEST(CliSkyPicture, NamesThePointsOfTheCompass) {
    EXPECT_EQ(compassPoint(0.0), "N");
    EXPECT_EQ(compassPoint(22.4), "N");
    EXPECT_EQ(compassPoint(22.6), "NE");
    EXPECT_EQ(compassPoint(225.0), "SW");
    EXPECT_EQ(compassPoint(359.9), "N");
}

std::size_t widestLine(const std::string& text) {
    std::size_t widest = 0;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        widest = std::max(widest, displayWidth(line));
    }
    return widest;
}

TEST(CliSkyPicture, FitsTheTerminal) {
    test::CliRunner run;
    for (const std::string place : {"Istanbul", "Quito", "Tromsø", "Sydney"}) {
        for (const std::size_t width : {40U, 60U, 80U, 120U}) {
            const std::string options = " --chart --width " + std::to_string(width);
            const test::CliResult sky = run("sky " + place + options);
            EXPECT_EQ(sky.code, 0) << sky.err;
            EXPECT_LE(widestLine(sky.out), width) << sky.out;
            const test::CliResult rose = run("compass " + place + options);
            EXPECT_EQ(rose.code, 0) << rose.err;
            EXPECT_NE(rose.out.find("◆"), std::string::npos);
        }
    }
}

TEST(CliSkyPicture, IsPlainAsciiWhereItIsAskedFor) {
    test::CliRunner run;
    const auto drawn = [](const std::string& text) { return text.find("\xE2") != std::string::npos; };
    EXPECT_TRUE(drawn(run("sky Istanbul --chart").out));
    EXPECT_FALSE(drawn(run("sky Istanbul --chart --ascii").out));
    EXPECT_TRUE(drawn(run("compass Istanbul --chart").out));
    EXPECT_FALSE(drawn(run("compass Istanbul --chart --ascii").out));
}

TEST(CliSkyPicture, ShowsTheSameFiguresAsTheTable) {
    test::CliRunner run;
    const std::string table = run("sky Istanbul").out;
    const std::string picture = run("sky Istanbul --svg").out;
    const std::string lines = run("sky Istanbul --chart").out;
    for (const std::string fact : {"07:59", "12:50", "17:41", "85 %, waxing"}) {
        EXPECT_NE(table.find(fact), std::string::npos) << fact << '\n' << table;
        EXPECT_NE(picture.find(fact), std::string::npos) << fact;
        EXPECT_NE(lines.find(fact), std::string::npos) << fact;
    }
}

TEST(CliSkyPicture, IsNotJson) {
    test::CliRunner run;
    EXPECT_EQ(run("sky Istanbul --chart --json").code, 2);
    EXPECT_EQ(run("sky Istanbul --svg --json").code, 2);
    EXPECT_EQ(run("compass Istanbul --svg --json").code, 2);
}

TEST(CliRose, PointsToTheKaabaByBothNorths) {
    test::CliRunner run;
    const std::string svg = run("compass Istanbul --svg").out;
    EXPECT_NE(svg.find("Qibla 151.6° from true north, 145.5° by the compass"), std::string::npos) << svg;
    EXPECT_NE(svg.find("east"), std::string::npos);
}

TEST(CliRose, HasNoArrowAtTheKaabaItself) {
    test::CliRunner run;
    const std::string svg = run("compass 21.4225,39.8262,Asia/Riyadh --svg").out;
    EXPECT_EQ(svg.find("class=\"qibla\""), std::string::npos);
    EXPECT_NE(svg.find("every direction is the qibla"), std::string::npos);
    EXPECT_EQ(run("compass 21.4225,39.8262,Asia/Riyadh --chart").out.find("◆"),
              run("compass 21.4225,39.8262,Asia/Riyadh --chart").out.rfind("◆")); // the legend only
}

} // namespace
} // namespace zorel::cli
