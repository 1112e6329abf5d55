// SPDX-License-Identifier: Apache-2.0
#include "draw/Feasts.h"
#include "draw/Sheet.h"
#include "draw/SheetStyle.h"
#include "draw/SheetTexts.h"
#include "draw/Svg.h"
#include "print/ClockNotices.h"
#include "print/DayMarks.h"
#include "print/DayText.h"
#include "print/PlaceText.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <span>

namespace zorel::cli {

using almanac::Prayer;

namespace {
std::string cell(std::string_view style, std::string_view text) {
    return fmt::format("<td class=\"{}\">{}</td>", style, xmlText(text));
}

/// The rows of a page and what stands above them.
class PageTable {
public:
    PageTable(const Context& context, const Sheet& sheet, const SheetPage& page,
              std::span<const Prayer> prayers)
        : context_(context), sheet_(sheet), page_(page), prayers_(prayers) {}

    [[nodiscard]] std::string text() const {
        std::string rows;
        for (const SheetDay& day : page_.days) {
            rows += row(day);
        }
        return fmt::format("<table>\n<thead><tr>{}</tr></thead>\n<tbody>\n{}</tbody>\n</table>\n", heads(),
                           rows);
    }

private:
    [[nodiscard]] std::string heads() const {
        std::string heads;
        const auto add = [&](std::string_view style, std::string_view name, std::string_view below) {
            heads += fmt::format("<th class=\"{}\">{}{}</th>", style, xmlText(name),
                                 below.empty() ? "" : fmt::format("<small>{}</small>", xmlText(below)));
        };
        if (page_.ramadan) {
            add("d", hijriMonthName(9, context_.language), "");
        }
        add("w", "", "");
        add(page_.ramadan ? "h" : "d", sheet_texts::kDate, "");
        if (!page_.ramadan) {
            add("h", sheet_texts::kHijri, "");
        }
        for (const Prayer prayer : prayers_) {
            const std::string_view below = !page_.ramadan              ? ""
                                           : prayer == Prayer::fajr    ? sheet_texts::kFast
                                           : prayer == Prayer::maghrib ? sheet_texts::kIftar
                                                                       : "";
            add("t", context_.nameOf(prayer), below);
        }
        add("m", "", "");
        return heads;
    }

    [[nodiscard]] std::string row(const SheetDay& day) const {
        const std::chrono::weekday weekday{std::chrono::sys_days(day.day.date)};
        const bool feast = isHoliday(day.calendars);
        const bool friday = weekday == std::chrono::Friday;
        std::string cells;
        if (page_.ramadan) {
            cells += cell("d", fmt::format("{}", day.calendars.hijriDay));
        }
        cells += cell("w", weekdayName(static_cast<int>(weekday.c_encoding()), context_.language));
        cells += dates(day);
        const Clockface clock(sheet_.place.clock(), almanac::Precision::minutes);
        for (const Prayer prayer : prayers_) {
            const ShownTime time = clock.of(day.day[prayer]);
            cells += cell(styleOf(prayer), time ? clockAndDayText(*time, day.day.date, clock.precision(), " ")
                                                : std::string("-"));
        }
        cells += cell("m", remark(day));
        return fmt::format("<tr class=\"{}\">{}</tr>\n", feast ? "feast" : friday ? "friday" : "day", cells);
    }

    [[nodiscard]] std::string dates(const SheetDay& day) const {
        if (page_.ramadan) {
            return cell("h", dayAndMonth(day.day.date, context_.language));
        }
        const std::string hijri =
            day.calendars.hijriYear < 1
                ? std::string()
                : fmt::format("{} {}", day.calendars.hijriDay,
                              hijriMonthName(day.calendars.hijriMonth, context_.language));
        return cell("d", fmt::format("{}", static_cast<unsigned>(day.day.date.day()))) + cell("h", hijri);
    }
    [[nodiscard]] std::string styleOf(Prayer prayer) const {
        const bool key = page_.ramadan && (prayer == Prayer::fajr || prayer == Prayer::maghrib);
        return key ? "key" : prayer == Prayer::sunrise ? "sunrise" : "t";
    }
    /// Marks of unusual times, the feast, a change of the clock.
    [[nodiscard]] std::string remark(const SheetDay& day) const {
        std::string text = marksOf(day.day, prayers_);
        const auto add = [&](std::string_view more) { text.append(text.empty() ? "" : " ").append(more); };
        if (const std::string_view feast = feastOf(day.calendars); !feast.empty()) {
            add(feast);
        }
        if (day.clockChange.count() != 0) {
            const double hours = static_cast<double>(day.clockChange.count()) / 3600.0;
            add(fmt::format(fmt::runtime(sheet_texts::kClockChange),
                            fmt::arg("hours", fmt::format("{:+g}", hours))));
        }
        return text;
    }

    const Context& context_;
    const Sheet& sheet_;
    const SheetPage& page_;
    std::span<const Prayer> prayers_;
};

/// What stands below the times: clock, rule, temkin, marks, notices.
class Footer {
public:
    Footer(const Context& context, const Sheet& sheet, const SheetPage& page, std::span<const Prayer> prayers)
        : context_(context), sheet_(sheet), page_(page), prayers_(prayers) {}

    [[nodiscard]] std::string text() const {
        std::string text = paragraph(fmt::format("{} {} {}", clock(), rule(), qibla()));
        for (const std::string& sentence : notices()) {
            text += paragraph(sentence);
        }
        return fmt::format("<footer>\n{}{}</footer>\n", text,
                           paragraph(fmt::format("{} {}", sheet_texts::kHijriNote, sheet_texts::kMadeBy)));
    }

private:
    static std::string paragraph(std::string_view text) { return fmt::format("<p>{}</p>\n", xmlText(text)); }

    [[nodiscard]] std::string clock() const {
        const std::string& zone = sheet_.place.clock().zoneName();
        const std::string offset = almanac::isoOffset(page_.days.front().day.offset);
        return zone.empty() ? fmt::format(fmt::runtime(sheet_texts::kFixedClock), fmt::arg("offset", offset))
                            : fmt::format(fmt::runtime(sheet_texts::kClock), fmt::arg("zone", zone),
                                          fmt::arg("offset", offset));
    }
    [[nodiscard]] std::string rule() const {
        const almanac::Day& day = page_.days.front().day;
        const auto temkin = std::llround(std::abs(day[Prayer::maghrib].why.temkin) * 3600.0);
        const bool high = sheet_.place.place.temkin == almanac::Temkin::upTo500m;
        return fmt::format(fmt::runtime(sheet_texts::kRule),
                           fmt::arg("dawn", std::abs(day[Prayer::fajr].why.targetAltitude)),
                           fmt::arg("night", std::abs(day[Prayer::isha].why.targetAltitude)),
                           fmt::arg("shadow", day[Prayer::asr].why.shadowFactor),
                           fmt::arg("temkin", fmt::format("{}:{:02}", temkin / 60, temkin % 60)),
                           fmt::arg("height", high ? 500 : 250));
    }
    [[nodiscard]] std::string qibla() const {
        const auto bearing = almanac::qiblaBearing(sheet_.place.place.latitude, sheet_.place.place.longitude);
        if (!bearing) {
            return {};
        }
        return fmt::format(fmt::runtime(sheet_texts::kQibla), fmt::arg("bearing", std::lround(*bearing)));
    }
    [[nodiscard]] bool hasOtherDates() const {
        return std::ranges::any_of(page_.days, [&](const SheetDay& day) {
            return std::ranges::any_of(prayers_, [&](Prayer prayer) {
                return day.day[prayer].exists() && day.day[prayer].local.date != day.day.date;
            });
        });
    }
    [[nodiscard]] std::vector<std::string> notices() const {
        std::string marks;
        ClockNotices clock(context_, sheet_.place);
        for (const SheetDay& day : page_.days) {
            marks += marksOf(day.day, prayers_);
            clock.add(day.day.date, day.day.clockNotice);
        }
        std::vector<std::string> sentences = legendOf(context_, marks);
        for (std::string& sentence : clock.sentences()) {
            sentences.push_back(fmt::format("! {}", sentence));
        }
        if (hasOtherDates()) {
            sentences.emplace_back(sheet_texts::kPlusOne);
        }
        return sentences;
    }

    const Context& context_;
    const Sheet& sheet_;
    const SheetPage& page_;
    std::span<const Prayer> prayers_;
};

/// "21 Jumada II - 21 Rajab 1448", or the civil dates of a Ramadan.
std::string spanText(const Context& context, const SheetPage& page) {
    const SheetDay& first = page.days.front();
    const SheetDay& last = page.days.back();
    if (page.ramadan) {
        return fmt::format("{} - {} {}", dayAndMonth(first.day.date, context.language),
                           dayAndMonth(last.day.date, context.language),
                           static_cast<int>(last.day.date.year()));
    }
    if (first.calendars.hijriYear < 1) {
        return {};
    }
    return fmt::format("{} - {}", hijriText(first.calendars, context.language),
                       hijriText(last.calendars, context.language));
}

std::string styleOf(const Sheet& sheet) {
    const bool a4 = sheet.paper == Paper::a4;
    const std::string_view name = a4 ? "A4" : "letter";
    const int width = a4 ? 210 : 216;  // [mm]
    const int height = a4 ? 297 : 279; // [mm]
    if (sheet.others) {                // fourteen times on a line: lying paper, smaller letters
        return fmt::format("{}@page{{size:{} landscape;margin:12mm}}td{{height:{}mm}}body{{font-size:6.9pt}}"
                           "th,td{{padding:0 .6mm}}th{{white-space:normal}}\n"
                           "@media screen{{section{{width:{}mm;min-height:{}mm}}}}\n",
                           kSheetStyle, name, a4 ? 3.9 : 4.0, height, width);
    }
    return fmt::format("{}@page{{size:{};margin:12mm}}td{{height:{}mm}}\n"
                       "@media screen{{section{{width:{}mm;min-height:{}mm}}}}\n",
                       kSheetStyle, name, a4 ? 6.6 : 5.8, width, height);
}

std::string pageHtml(const Context& context, const Sheet& sheet, const SheetPage& page,
                     std::span<const Prayer> prayers) {
    const almanac::Place& place = sheet.place.place;
    return fmt::format("<section>\n<div class=\"month\">{}<small>{}</small></div>\n<h1>{}<small>{}, "
                       "{}</small></h1>\n",
                       xmlText(page.title), xmlText(spanText(context, page)),
                       xmlText(placeText(sheet.place, context.language)), xmlText(sheet_texts::kTitle),
                       xmlText(pointText(place.latitude, place.longitude))) +
           PageTable(context, sheet, page, prayers).text() + Footer(context, sheet, page, prayers).text() +
           "</section>\n";
}
} // namespace

std::string sheetHtml(const Context& context, const Sheet& sheet) {
    const std::span<const Prayer> all(almanac::kListedPrayers);
    const auto prayers = sheet.others ? all : all.first(almanac::kSixPrayers.size());
    std::string pages;
    for (const SheetPage& page : sheet.pages) {
        pages += pageHtml(context, sheet, page, prayers);
    }
    return fmt::format(
        "<!DOCTYPE html>\n<html lang=\"{}\">\n<head>\n<meta charset=\"utf-8\"/>\n<title>{}: {}</title>\n"
        "<style>\n{}</style>\n</head>\n<body>\n{}</body>\n</html>\n",
        context.language == Language::turkish ? "tr" : "en",
        xmlText(placeText(sheet.place, context.language)), xmlText(sheet.pages.front().title), styleOf(sheet),
        pages);
}

} // namespace zorel::cli
