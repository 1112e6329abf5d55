// SPDX-License-Identifier: Apache-2.0
#include "commands/Commands.h"

#include "commands/CataloguePlaces.h"
#include "grammar/DateArgument.h"
#include "print/Csv.h"
#include "print/DayJson.h"
#include "print/PlaceText.h"
#include "terminal/Progress.h"

#include "almanac/Almanac.h"
#include "store/CatalogueRow.h"

#include <fmt/format.h>

#include <array>
#include <deque>
#include <future>
#include <limits>
#include <memory>
#include <span>
#include <thread>

namespace zorel::cli {

namespace {
constexpr std::size_t kBlock = 512;
constexpr int kCoordinateDecimals = 5;

/// Numbers of places, by almanac::ClockNotice.
using ByNotice = std::array<std::int64_t, 4>;

/// Places go in, lines come out in the same order: blocks are computed on all processors while the next ones
/// are read.
class Batch {
public:
    Batch(const Context& context, almanac::Date date) : context_(context), date_(date) {}

    void add(ShownPlace place) {
        block_.push_back(std::move(place));
        if (block_.size() == kBlock) {
            launch();
        }
    }
    /// Waits for everything.
    void finish() {
        launch();
        while (!running_.empty()) {
            writeFirst();
        }
    }
    [[nodiscard]] std::int64_t written() const { return written_; }
    [[nodiscard]] std::int32_t lastId() const { return lastId_; }
    [[nodiscard]] const ByNotice& byNotice() const { return byNotice_; }
    [[nodiscard]] bool broken() const { return !context_.streams.out.good(); }

private:
    struct Lines {
        std::string text;
        std::size_t places = 0;
        std::int32_t lastId = 0;
        ByNotice byNotice{};
    };

    [[nodiscard]] std::string jsonLine(const ShownPlace& place, const almanac::Day& day) const {
        const Clockface clock(place.clock(), context_.precision());
        const std::span<const almanac::Prayer> all(almanac::kListedPrayers);
        const bool others = context_.options.others;
        Json document{
            {"schema", "zorel/place-day/1"},
            {"place", placeJson(place)},
            {"date", almanac::isoDate(day.date)},
            {"utc_offset", almanac::isoOffset(day.offset)},
            {"clock", clockJson(place, day.date)},
            {"times", timesJson(day, almanac::kSixPrayers, clock)},
            {"corrections", correctionsJson(day, others ? all : all.first(almanac::kSixPrayers.size()))}};
        if (others) {
            document["other_times"] = timesJson(day, almanac::kOtherPrayers, clock);
        }
        return jsonText(document, -1);
    }

    void appendCsv(std::string& text, const ShownPlace& place, const almanac::Day& day) const {
        text += std::to_string(place.id);
        for (const std::string_view name :
             {std::string_view(place.place.name), std::string_view(place.region),
              std::string_view(countryName(place))}) {
            appendCsvField(text, name);
        }
        appendCsvNumber(text, place.place.latitude, kCoordinateDecimals);
        appendCsvNumber(text, place.place.longitude, kCoordinateDecimals);
        text.append(",").append(almanac::isoDate(day.date));
        appendCsvTimes(text, day, Clockface(place.clock(), context_.precision()), context_.options.others);
    }

    [[nodiscard]] Lines compute(const std::vector<ShownPlace>& places) const {
        almanac::Memory memory;
        Lines lines{{}, places.size(), places.back().id, {}};
        for (const ShownPlace& place : places) {
            const almanac::Day day = almanac::Almanac(place.place).day(date_, memory);
            if (context_.options.json) {
                lines.text += jsonLine(place, day);
            } else {
                appendCsv(lines.text, place, day);
            }
            lines.text += '\n';
            ++lines.byNotice[static_cast<std::size_t>(day.clockNotice)];
        }
        return lines;
    }

    void launch() {
        if (block_.empty()) {
            return;
        }
        running_.push_back(
            std::async(std::launch::async, [this, places = std::move(block_)] { return compute(places); }));
        block_.clear();
        if (running_.size() > std::size_t{2} * std::max(1U, std::thread::hardware_concurrency())) {
            writeFirst();
        }
    }

    void writeFirst() {
        const Lines lines = running_.front().get();
        running_.pop_front();
        context_.streams.out << lines.text << std::flush;
        written_ += static_cast<std::int64_t>(lines.places);
        lastId_ = lines.lastId;
        for (std::size_t notice = 0; notice < byNotice_.size(); ++notice) {
            byNotice_[notice] += lines.byNotice[notice];
        }
    }

    const Context& context_;
    almanac::Date date_;
    std::vector<ShownPlace> block_;
    std::deque<std::future<Lines>> running_;
    std::int64_t written_ = 0;
    std::int32_t lastId_ = 0;
    ByNotice byNotice_{};
};

/// Places of the whole catalogue, or as many as were asked for.
std::int64_t totalOf(const Context& context) {
    if (context.options.count > 0) {
        return context.options.count;
    }
    const auto catalogue = Database::openCatalogue(cataloguePath(context.services));
    return catalogue ? static_cast<std::int64_t>(placeCount(*catalogue)) : 0;
}

/// How many places are told by a clock of which something is to be known; each says it itself in JSON.
void noteClocks(const Context& context, const ByNotice& byNotice) {
    const auto count = [&](almanac::ClockNotice notice) {
        return static_cast<unsigned long long>(byNotice[static_cast<std::size_t>(notice)]);
    };
    if (const auto places = count(almanac::ClockNotice::ruleOnly); places > 0) {
        context.note(trPlural(
            "{} place by the catalogue's clock rule, because this system has no time zone data of it",
            "{} places by the catalogue's clock rule, because this system has no time zone data of theirs",
            places));
    }
    if (const auto places = count(almanac::ClockNotice::ruleIsNewer); places > 0) {
        context.note(trPlural(
            "{} place by the catalogue's clock rule, because this system's time zone data is older and "
            "says otherwise",
            "{} places by the catalogue's clock rule, because this system's time zone data is older and "
            "says otherwise",
            places));
    }
    if (const auto places = count(almanac::ClockNotice::systemIsOlder); places > 0) {
        context.note(trPlural(
            "{} place by this system's time zone data, although it is older than the catalogue, which "
            "says otherwise",
            "{} places by this system's time zone data, although it is older than the catalogue, which "
            "says otherwise",
            places));
    }
}

void refuse(const Options& options) {
    if (!options.words.empty()) {
        throw CliError(Exit::badUse, tr("a PLACE and --all do not go together"), tr("leave one of them out"));
    }
    if (!options.from.empty() || !options.to.empty()) {
        throw CliError(Exit::badUse, tr("--all is for one day"), tr("give the day with --on DATE"));
    }
}
} // namespace

Exit runTableAll(const Context& context) {
    const Options& options = context.options;
    refuse(options);
    requireCatalogue(context.services);
    const almanac::Date today = almanac::PlaceClock::ofMachine().dateAt(context.now());
    const almanac::Date date = options.on.empty() ? today : requireDate(options.on, today, "--on");
    if (!options.json) {
        context.streams.out << "id,name,region,country,latitude,longitude,date"
                            << csvTimesHeader(options.others) << '\n';
    }
    Progress progress(context.streams.err, context.streams.errIsTerminal, totalOf(context),
                      Progress::Unit::places);
    Batch batch(context, date);
    std::int64_t left = options.count > 0 ? options.count : std::numeric_limits<std::int64_t>::max();
    forEachPlace(context.services, options.fromId, [&](const CataloguePlace& row) {
        batch.add(shownPlace(row));
        progress.update(batch.written(), tr("last id {}", batch.lastId()));
        return --left > 0 && !batch.broken();
    });
    batch.finish();
    progress.finish();
    noteClocks(context, batch.byNotice());
    if (batch.written() == 0) {
        throw CliError(Exit::noResult, tr("no place has an id of {} or more", options.fromId));
    }
    return Exit::ok;
}

} // namespace zorel::cli
