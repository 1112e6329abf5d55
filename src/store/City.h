// SPDX-License-Identifier: Apache-2.0
/// @file
/// One city of the user: its catalogue details, its prayer times of today, its widget summary.
#pragma once

#include "engine/Records.h"

#include <cstdint>
#include <string>

namespace zorel {

class Bundle;

/// A city. Catalogue values are texts exactly as read and become numbers where they are used.
class City {
public:
    explicit City(const Bundle& bundle) : bundle_(&bundle) {}

    double qAngle = 0.0;     ///< qibla angle [deg], anticlockwise from north; set by the owner
    double mVariation = 0.0; ///< magnetic declination [deg], east positive; set by the owner
    PrayerTimes aNamazVakitleri;
    WidgetAstroInfo someInfoForZorelWidget;

    std::string cityId; ///< catalogue id
    std::string name;
    std::string nameParent; ///< region
    std::string latitude;   ///< decimal degrees, six decimals, north positive
    std::string longitude;  ///< decimal degrees, six decimals, east positive
    std::string countryId;
    std::string setAsHome;  ///< "1" for the home city
    std::string setAsAlarm; ///< this and the next four are not filled
    std::string alter_Lat;
    std::string alter_Lon;
    std::string countryId1;
    std::string countryId2;
    std::string countryNameEn;
    std::string countryNameTr;
    std::string GMT;    ///< standard offset [h], may be fractional
    std::string GMTStr; ///< not filled
    // Daylight-saving rule, coded as for AstroGlobalFuncs::IsDSTDay.
    std::string DST; ///< "1": there is a rule
    std::string startMonth;
    std::string startDay;
    std::string stopMonth;
    std::string stopDay;
    std::string hour;         ///< daylight-saving shift [h]
    std::string temkin;       ///< "0" (250 m) or "1" (500 m)
    std::string latitudeStr;  ///< not filled
    std::string longitudeStr; ///< not filled

    /// Fills `city` from the catalogue row of its `cityId`; without such a row it stays as it is.
    void getAllCityInfo(City& city) const;
    /// One time by prayer id, 200 to 208 [h]; 0 for any other id.
    [[nodiscard]] double getRelevantPrayerTime(std::int32_t prayerId) const;
    /// 250 m to 500 m and back.
    void changeTemkin();
    void setPrayerTimes(const PrayerTimes& times) { aNamazVakitleri = times; }
    void setSomeAstroIfo(const WidgetAstroInfo& info) { someInfoForZorelWidget = info; }
    [[nodiscard]] WidgetAstroInfo getSomeAstroInfo() const { return someInfoForZorelWidget; }
    [[nodiscard]] double getQiblaAngle() const { return qAngle; }
    void setQiblaAngle(double degrees) { qAngle = degrees; }
    [[nodiscard]] double getMagneticVariation() const { return mVariation; }
    void setMagneticVariation(double degrees) { mVariation = degrees; }

private:
    const Bundle* bundle_;
};

} // namespace zorel
