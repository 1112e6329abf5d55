// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "common/GlobalFuncs.h"
#include "platform/foundation/Locations.h"
#include "tests/support/TemporaryFolder.h"

#include <string>

namespace zorel::test {

inline const std::string kPlaceHeader = "geonameid\tname\tasciiname\talternates\tcountry\tadmin1\tlatitude\tl"
                                        "ongitude\televation\tzone\tpopulation\n";
inline const std::string kZoneHeader =
    "zone\tgmt\tdst\tstartmonth\tstartday\tstopmonth\tstopday\thour\texact\tdays2026\tdays2027\tdays2028\t"
    "days2029\tdays2030\tlawstartmonth\tlawstartday\tlawstopmonth\tlawstopday\tplaces\tdepartfirst\tdepartlas"
    "t\tdepartgmt\n";
inline const std::string kZoneTail = "\tyes\t0\t0\t0\t0\t0\t\t\t\t\t1\t\t\t\n";

/// A small, correct source folder: two countries, three regions, two zones, four places, one credit.
class SourceFolder {
public:
    SourceFolder() {
        write("countries.tsv", "country\tname_en\tname_tr\nCH\tSwitzerland\tİsviçre\nTR\tTürkiye\tTürkiye\n");
        write("regions.tsv",
              "country\tadmin1\tname\tplaces\nCH\tZH\tZurich\t1\nTR\t34\tİstanbul\t2\nTR\t\tTürkiye\t1\n");
        write("zones.tsv", kZoneHeader + "Europe/Istanbul\t3\t0\t0\t0\t0\t0\t0" + kZoneTail +
                               "Europe/Zurich\t1\t1\t2\t35\t9\t35\t1" + kZoneTail);
        write("places.tsv", kPlaceHeader + places());
        write("credits.tsv", "part\tsource\tedition\tlicence\tcredit\tlicence_file\n"
                             "places\tSurvey\t2026\tCC0\tBy the survey.\tNOTICE.txt\n");
        write("country_names.tsv", "country\tnames\nCH\tSchweiz,Suisse\nTR\tTurkey\n");
        write("region_codes.tsv", "country\tadmin1\tcode\nCH\tZH\tZH\n");
        write("alternates_exact.tsv", "geonameid\tnames\n2657896\tTuricum\n");
        write("alternates_more.tsv", "geonameid\tnames\n745044\t伊斯坦布尔,Стамбул\n2657896\t苏黎世\n");
        write("NOTICE.txt", "Keep this notice.\n");
    }

    static std::string places() {
        return "745044\tİstanbul\tIstanbul\tStambul\tTR\t34\t41.01384\t28.94966\t39\tEurope/"
               "Istanbul\t15701602\n"
               "2657896\tZürich\tZurich\t\tCH\tZH\t47.36667\t8.55\t429\tEurope/Zurich\t341730\n"
               "100\tN'Dere\t\t\tTR\t34\t41.2\t29.1\t\tEurope/Istanbul\t20\n"
               "7\tOva\t\t\tTR\t\t39\t-0.5\t375\tEurope/Istanbul\t0\n";
    }

    void write(const std::string& name, const std::string& text) const {
        writeFile(folder_.path(name), text);
    }
    /// Only these places, with no further spellings.
    void setPlaces(const std::string& lines) const {
        write("places.tsv", kPlaceHeader + lines);
        write("alternates_exact.tsv", "geonameid\tnames\n");
        write("alternates_more.tsv", "geonameid\tnames\n");
    }
    void addPlace(const std::string& line) const {
        write("places.tsv", kPlaceHeader + places() + line + "\n");
    }
    [[nodiscard]] const std::string& path() const { return folder_.path(); }

private:
    TemporaryFolder folder_;
};

/// Services over the catalogue that the build has made from the real source data.
class RealCatalogue {
public:
    RealCatalogue() { glbFuncs.appBundlePath = std::string(ZOREL_BINARY_DIR) + "/share/zorel/Zorel.bundle"; }
    TemporaryLocations locations;
    GlobalFuncs glbFuncs;
};

} // namespace zorel::test
