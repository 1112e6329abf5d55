// SPDX-License-Identifier: Apache-2.0
#include "draw/Feasts.h"
#include "draw/Sheet.h"
#include "draw/SheetStyle.h"
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

/// What a time of a day of Ramadan is known for, below its name; empty for most.
std::string meaningInRamadan(Prayer prayer) {
    return prayer == Prayer::fajr ? tr("fast begins") : prayer == Prayer::maghrib ? tr("iftar") : "";
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
            add("d", hijriMonthName(9), "");
        }
        add("w", "", "");
        add(page_.ramadan ? "h" : "d", tr("Date"), "");
        if (!page_.ramadan) {
            add("h", tr("Hijri"), "");
        }
        for (const Prayer prayer : prayers_) {
            add("t", context_.nameOf(prayer), page_.ramadan ? meaningInRamadan(prayer) : "");
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
        cells += cell("w", weekdayName(day.day.date));
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
            return cell("h", dayAndMonth(day.day.date));
        }
        return cell("d", fmt::format("{}", static_cast<unsigned>(day.day.date.day()))) +
               cell("h", hijriDayAndMonth(day.calendars));
    }
    [[nodiscard]] std::string styleOf(Prayer prayer) const {
        const bool key = page_.ramadan && (prayer == Prayer::fajr || prayer == Prayer::maghrib);
        return key ? "key" : prayer == Prayer::sunrise ? "sunrise" : "t";
    }
    /// Marks of unusual times, the feast, a change of the clock.
    [[nodiscard]] std::string remark(const SheetDay& day) const {
        std::string text = marksOf(day.day, prayers_);
        const auto add = [&](std::string_view more) { text.append(text.empty() ? "" : " ").append(more); };
        if (const std::string feast = feastOf(day.calendars); !feast.empty()) {
            add(feast);
        }
        if (day.clockChange.count() != 0) {
            add(clockChangeText(day.clockChange));
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
        return fmt::format(
            "<footer>\n{}{}</footer>\n", text,
            paragraph(
                tr("Hijri dates are computed from the Moon's visibility; an announced month may begin a day "
                   "earlier or later. A Hijri day begins at the sunset before.") +
                ' ' + tr("Made by zorel.")));
    }

private:
    static std::string paragraph(std::string_view text) { return fmt::format("<p>{}</p>\n", xmlText(text)); }

    [[nodiscard]] std::string clock() const {
        const std::string& zone = sheet_.place.clock().zoneName();
        const std::string offset = almanac::isoOffset(page_.days.front().day.offset);
        return zone.empty() ? tr("Times by a clock of UTC{}.", offset)
                            : tr("Times by the clock of {0} (UTC{1}).", zone, offset);
    }
    [[nodiscard]] std::string rule() const {
        const almanac::Day& day = page_.days.front().day;
        const auto temkin = std::llround(std::abs(day[Prayer::maghrib].why.temkin) * 3600.0);
        const bool high = sheet_.place.place.temkin == almanac::Temkin::upTo500m;
        // translators: {0} and {1} are degrees, {2} is 1 or 2, {3} minutes and seconds ("7:30"), {4} metres;
        // temkin is the margin of safety of the times
        return tr(
            "Dawn: Sun {0}° below the horizon; nightfall: {1}°; Asr: shadows longer than at noon by {2} "
            "times "
            "the staff. Temkin {3} min, by the table for up to {4} m; all minutes are on the safe side.",
            std::abs(day[Prayer::fajr].why.targetAltitude), std::abs(day[Prayer::isha].why.targetAltitude),
            day[Prayer::asr].why.shadowFactor, fmt::format("{}:{:02}", temkin / 60, temkin % 60),
            high ? 500 : 250);
    }
    [[nodiscard]] std::string qibla() const {
        const auto bearing = almanac::qiblaBearing(sheet_.place.place.latitude, sheet_.place.place.longitude);
        if (!bearing) {
            return {};
        }
        return tr("Qibla {}° from true north.", std::lround(*bearing));
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
        std::vector<std::string> sentences = legendOf(marks);
        for (std::string& sentence : clock.sentences()) {
            sentences.push_back(fmt::format("! {}", sentence));
        }
        if (hasOtherDates()) {
            sentences.push_back(tr("+1: after midnight, -1: before it."));
        }
        return sentences;
    }

    const Context& context_;
    const Sheet& sheet_;
    const SheetPage& page_;
    std::span<const Prayer> prayers_;
};

/// "21 Jumada II - 21 Rajab 1448", or the civil dates of a Ramadan.
std::string spanText(const SheetPage& page) {
    const SheetDay& first = page.days.front();
    const SheetDay& last = page.days.back();
    if (page.ramadan) {
        return fmt::format("{} - {} {}", dayAndMonth(first.day.date), dayAndMonth(last.day.date),
                           static_cast<int>(last.day.date.year()));
    }
    if (first.calendars.hijriYear < 1) {
        return {};
    }
    return fmt::format("{} - {}", hijriText(first.calendars), hijriText(last.calendars));
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
                       xmlText(page.title), xmlText(spanText(page)), xmlText(placeText(sheet.place)),
                       xmlText(tr("Prayer times")), xmlText(pointText(place.latitude, place.longitude))) +
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
        "<!DOCTYPE html>\n<html lang=\"{}\"{}>\n<head>\n<meta charset=\"utf-8\"/>\n<title>{}: {}</title>\n"
        "<style>\n{}</style>\n</head>\n<body>\n{}</body>\n</html>\n",
        languageInUse(), isRightToLeft(languageInUse()) ? " dir=\"rtl\"" : "",
        xmlText(placeText(sheet.place)), xmlText(sheet.pages.front().title), styleOf(sheet), pages);
}

} // namespace zorel::cli
