// SPDX-License-Identifier: Apache-2.0
#include "Commands.h"

#include "CataloguePlaces.h"
#include "Csv.h"
#include "DayJson.h"
#include "Progress.h"

#include "store/CatalogueRow.h"

#include <fmt/format.h>

#include <deque>
#include <future>
#include <limits>
#include <memory>
#include <thread>

namespace zorel::cli {

namespace {
constexpr std::size_t kBlock = 512;

/// Places go in, lines come out in the same order: blocks are computed on all processors while the next ones
/// are read.
class Batch {
public:
    Batch(const Context& context, Date date) : context_(context), date_(date) {}

    void add(Place place) {
        block_.push_back(std::move(place));
        if (block_.size() == kBlock)
            launch();
    }
    /// Waits for everything.
    void finish() {
        launch();
        while (!running_.empty())
            writeFirst();
    }
    [[nodiscard]] std::int64_t written() const { return written_; }
    [[nodiscard]] std::int32_t lastId() const { return lastId_; }
    [[nodiscard]] bool broken() const { return !context_.streams.out.good(); }

private:
    struct Lines {
        std::string text;
        std::size_t places = 0;
        std::int32_t lastId = 0;
    };

    [[nodiscard]] std::string line(const Place& place, const Day& day) const {
        if (context_.options.json) {
            return Json{{"schema", "zorel/place-day/1"},
                        {"place", placeJson(context_, place)},
                        {"date", isoDate(day.date)},
                        {"utc_offset", isoOffset(day.offset)},
                        {"times", timesJson(day, kPrayerIndices)}}
                       .dump(-1, ' ', false, Json::error_handler_t::replace) +
                   '\n';
        }
        std::string text = fmt::format("{},{},{},{},{:.5f},{:.5f},{}", place.id, csvField(place.name),
                                       csvField(place.region), csvField(place.country(context_.language)),
                                       place.latitude, place.longitude, isoDate(day.date));
        appendCsvTimes(text, day, precision());
        return text + '\n';
    }

    [[nodiscard]] Precision precision() const {
        return context_.options.seconds ? Precision::seconds : Precision::minutes;
    }

    [[nodiscard]] Lines compute(const std::vector<Place>& places) const {
        DayComputer computer;
        Lines lines{{}, places.size(), places.back().id};
        for (const Place& place : places)
            lines.text += line(place, computer.compute(place, date_, precision()));
        return lines;
    }

    void launch() {
        if (block_.empty())
            return;
        running_.push_back(
            std::async(std::launch::async, [this, places = std::move(block_)] { return compute(places); }));
        block_.clear();
        if (running_.size() > std::size_t{2} * std::max(1U, std::thread::hardware_concurrency()))
            writeFirst();
    }

    void writeFirst() {
        const Lines lines = running_.front().get();
        running_.pop_front();
        context_.streams.out << lines.text << std::flush;
        written_ += static_cast<std::int64_t>(lines.places);
        lastId_ = lines.lastId;
    }

    const Context& context_;
    Date date_;
    std::vector<Place> block_;
    std::deque<std::future<Lines>> running_;
    std::int64_t written_ = 0;
    std::int32_t lastId_ = 0;
};

/// Places of the whole catalogue, or as many as were asked for.
std::int64_t totalOf(const Context& context) {
    if (context.options.count > 0)
        return context.options.count;
    const auto catalogue = Database::openCatalogue(cataloguePath(context.services));
    return catalogue ? static_cast<std::int64_t>(placeCount(*catalogue)) : 0;
}

void refuse(const Options& options) {
    if (!options.words.empty())
        throw CliError(Exit::badUse, "a PLACE and --all do not go together", "leave one of them out");
    if (!options.from.empty() || !options.to.empty())
        throw CliError(Exit::badUse, "--all is for one day", "give the day with --on DATE");
}
} // namespace

Exit runTableAll(const Context& context) {
    const Options& options = context.options;
    refuse(options);
    requireCatalogue(context.services);
    const Date today = ZoneClock(NamedClock{}).dateAt(context.now());
    const Date date = options.on.empty() ? today : requireDate(options.on, today, "--on");
    if (!options.json)
        context.streams.out << "id,name,region,country,latitude,longitude,date" << csvTimesHeader() << '\n';
    Progress progress(context.streams.err, context.streams.errIsTerminal, totalOf(context), "places");
    Batch batch(context, date);
    std::int64_t left = options.count > 0 ? options.count : std::numeric_limits<std::int64_t>::max();
    forEachPlace(context.services, options.fromId, [&](const CataloguePlace& row) {
        batch.add(placeOf(row));
        progress.update(batch.written(), fmt::format("last id {}", batch.lastId()));
        return --left > 0 && !batch.broken();
    });
    batch.finish();
    progress.finish();
    if (batch.written() == 0)
        throw CliError(Exit::noResult, fmt::format("no place has an id of {} or more", options.fromId));
    return Exit::ok;
}

} // namespace zorel::cli
