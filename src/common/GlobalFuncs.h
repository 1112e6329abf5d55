// SPDX-License-Identifier: Apache-2.0
/// @file
/// Services handed to every class of the pane: language texts, formatting, dates, deciphering, labels, the
/// log.
#pragma once

#include "common/Bundle.h"
#include "common/UIComboboxItem.h"
#include "engine/AstroGlobalFuncs.h"
#include "engine/Records.h"
#include "platform/foundation/PropertyList.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorel {

class CGContext;
struct CGPoint;
struct CGRect;
struct CGSize;
class UIColor;
class UILabel;
class UIView;

/// The services object. One is made by the settings controller and lent to the other classes; buttons, the
/// search screen and messages have their own.
class GlobalFuncs : public Bundle {
public:
    /// Takes the bundle folder from Locations, the AM and PM symbols from the locale, chooses Turkish when
    /// they are the Turkish ones and English otherwise, and loads the language file.
    GlobalFuncs();

    std::int32_t ssDebugId = 0;  ///< 0: no debugging; carried for the owner
    bool is24Hour = false;       ///< carried for the owner
    std::int32_t languageId = 1; ///< 0 Turkish, 1 English, 2 French, 3 German
    std::string amSym;           ///< lower case
    std::string pmSym;           ///< lower case

    [[nodiscard]] std::int32_t getDebugState() const { return ssDebugId; }
    void setDebugState(std::int32_t state) { ssDebugId = state; }

    // Language texts (GlobalFuncs_Language.cpp).

    /// Loads the texts of `languageId`; a missing or unreadable file is logged and the earlier texts stay.
    void loadLanguageFile();
    /// The "COMMON" text of a key; nothing when there is none.
    [[nodiscard]] std::optional<std::string> GetKeyValue(std::int32_t key) const;
    /// The name of a prayer, id 200 to 208; nothing when there is none.
    [[nodiscard]] std::optional<std::string> GetTextPrayLabels(std::int32_t prayerId) const;
    /// @param items in, out: one more at the end.
    void addComboItem(std::vector<UIComboboxItem>& items, const std::string& displayText,
                      const std::string& originalText, std::int32_t itemId) const;

    // Formatting (GlobalFuncs_Text.cpp); deciphering is the bundle's.

    /// Whether a file or folder exists.
    [[nodiscard]] bool fileExists(const std::string& path) const;
    /// "05:07:09".
    [[nodiscard]] std::string timeLeadingZeroWithSeconds(std::int32_t hour, std::int32_t minute,
                                                         std::int32_t second) const;

    // Dates (GlobalFuncs_Dates.cpp): the functions of AstroGlobalFuncs, and the clock of the platform.
    [[nodiscard]] double CalculateJulianDay(std::int32_t year, std::int32_t month, std::int32_t day,
                                            std::int32_t hour, std::int32_t minute,
                                            std::int32_t second) const;
    [[nodiscard]] double GregorianDateToJulian(const DateTimeRecord& record) const;
    [[nodiscard]] DateTimeRecord JulianToGregorian(double julianDay) const;
    [[nodiscard]] int DayOfWeek(std::int32_t year, std::int32_t month, std::int32_t day) const;
    bool IsDSTDay(std::int32_t startDay, std::int32_t startMonth, std::int32_t stopDay,
                  std::int32_t stopMonth, std::int32_t year, std::int32_t month, std::int32_t day,
                  std::int32_t& startDayOut, std::int32_t& stopDayOut) const;
    /// The current local date and time with the fraction of the second.
    [[nodiscard]] DateTimeRecord GetCurrentDateTime() const;
    void GetCurrentDateTime(DateTimeRecord& record) const;

    // Log (GlobalFuncs_Log.cpp): one line per call in "SettingsLog.txt" of the data folder, with the local
    // date and time before it. A file of 128 KiB becomes "SettingsLog.1.txt" in place of the one before. A
    // line that cannot be written is lost.
    void NSLogToFile(std::string_view message) const;
    void NSLogToFileStrInt(std::string_view message, std::int32_t value) const;
    void NSLogToFileStrIntInt(std::string_view message, std::int32_t first, std::int32_t second) const;
    void NSLogToFileStrFloat(std::string_view message, double value) const;
    void NSLogToFileStrFloatFloat(std::string_view message, double first, double second) const;

    // Drawing and labels (GlobalFuncs_Views.cpp).

    /// Adds a closed rounded-rectangle path to the context; the caller fills or strokes it. @param radius
    /// [pt]
    void drawRoundedRectangle(CGContext& context, const CGRect& rectangle, double radius) const;
    /// Makes a one-line label that shrinks its text to fit, adds it to the parent (whose owner keeps the
    /// returned object alive) and hands it over. @param center, widthHeight, fontSize [pt]. @param textAlign
    /// a UITextAlignment. @param shadow black, one point to the right and down.
    std::unique_ptr<UILabel> addLabel_IOS7(UIView& parent, CGPoint center, CGSize widthHeight,
                                           const std::string& fontName, double fontSize,
                                           const std::string& text, const UIColor& textColor, int textAlign,
                                           bool hidden, bool shadow, std::int32_t tag) const;

private:
    AstroGlobalFuncs dates_;
    std::optional<PropertyList> langPack_;
};

} // namespace zorel
