// SPDX-License-Identifier: Apache-2.0
// Views and the whole pane: built and torn down, tapped, and the first city added while six alarms are on.
#include "common/GlobalFuncs.h"
#include "platform/coregraphics/RecordingContext.h"
#include "platform/foundation/Locale.h"
#include "platform/foundation/Locations.h"
#include "platform/uikit/RunLoop.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UITouch.h"
#include "settings/ZorelSettingsController.h"
#include "store/CitySearch.h"
#include "store/DatabaseFunctions.h"
#include "views/MessageView.h"
#include "views/Settings.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <random>
#include <stdexcept>
#include <stdlib.h>
#include <string>

namespace zorel {
namespace {

constexpr CGRect kScreen = {0.0, 0.0, 320.0, 568.0};

/// The build tree's catalogue with the source tree's texts and tones; the user's data in a new folder below
/// `parent`.
class Folders {
public:
    explicit Folders(const std::string& parent) {
        std::string pattern = parent + "/bench-views-XXXXXX";
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("cannot make " + pattern);
        }
        path_ = pattern;
        const std::string source = std::string(ZOREL_SOURCE_DIR) + "/resources";
        std::filesystem::copy(source + "/Zorel.bundle", path_ + "/Zorel.bundle",
                              std::filesystem::copy_options::recursive);
        std::filesystem::create_directory_symlink(std::string(ZOREL_BINARY_DIR) +
                                                      "/share/zorel/Zorel.bundle/database",
                                                  path_ + "/Zorel.bundle/database");
        Locations::current() = {path_ + "/Zorel.bundle", path_, source + "/Ringtones"};
        UIScreen::mainScreen().setBounds(kScreen);
    }
    Folders(const Folders&) = delete;
    Folders& operator=(const Folders&) = delete;
    ~Folders() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

private:
    std::string path_;
};

std::string disk() {
    return std::filesystem::current_path().string();
}

void cityRow(benchmark::State& state) {
    const Folders folders(disk());
    const GlobalFuncs glbFuncs;
    const Settings settings;
    for (auto _ : state) {
        const UICityView view({0.0, 0.0, 302.0, 60.0}, glbFuncs, settings);
        benchmark::DoNotOptimize(&view);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(cityRow)->Unit(benchmark::kMicrosecond);

void alarmEditor(benchmark::State& state) {
    const Folders folders(disk());
    const GlobalFuncs glbFuncs;
    const Settings settings;
    DatabaseFunctions dbFuncs(glbFuncs);
    dbFuncs.generateUserDatabaseFile();
    for (auto _ : state) {
        AlarmView view(kScreen, glbFuncs, settings, dbFuncs);
        view.setAlarmInfo(202);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(alarmEditor)->Unit(benchmark::kMicrosecond);

void message(benchmark::State& state) {
    const Folders folders(disk());
    UIView target(kScreen);
    for (auto _ : state) {
        MessageView::toastInView(target, "Please add a city first");
        RunLoop::main().advance(5.0);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(message)->Unit(benchmark::kMicrosecond);

/// The whole pane with its three screens, the database on the disk and five cities in it.
void pane(benchmark::State& state) {
    const Folders folders(disk());
    {
        ZorelSettingsController first;
        for (const FoundCity& city : searchCities(first.glbFuncs(), "ankara")) {
            if (first.userCities().size() < 5) {
                first.delegateAddCityView_AddTapped(cityOf(first.glbFuncs(), city));
            }
        }
    }
    for (auto _ : state) {
        const ZorelSettingsController controller;
        benchmark::DoNotOptimize(&controller);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(pane)->Unit(benchmark::kMillisecond);

/// A finger anywhere on a drawn button, its state changed and the button drawn each time.
void randomTaps(benchmark::State& state) {
    const Folders folders(disk());
    UIButtonX button({0.0, 0.0, 70.0, 30.0}, GlobalFuncs(), Settings());
    button.setSelectable(true);
    UITouchDispatcher finger(button);
    std::mt19937 random(1);
    std::uniform_real_distribution<double> place(-20.0, 90.0);
    int shape = 0;
    for (auto _ : state) {
        finger.tap({place(random), place(random)});
        button.setButtonType(shape % 5);
        button.setButtonShape(shape++ % 13);
        RecordingContext context;
        button.drawRect(context);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(randomTaps)->Unit(benchmark::kMicrosecond);

/// Rows of the pane tapped at random: alarms opened, wheels turned, screens left; nothing is written.
void randomPaneTaps(benchmark::State& state) {
    const Folders folders(disk());
    ZorelSettingsController controller;
    UINavigationController navigation(controller);
    std::mt19937 random(1);
    std::uniform_int_distribution<int> row(0, 5);
    for (auto _ : state) {
        controller.table().userSelectsRow({1, row(random)});
        controller.alarmView().pickerTime().userPicksRow(20 * row(random));
        navigation.popViewControllerAnimated(true);
    }
    state.SetItemsProcessed(3 * state.iterations());
}
BENCHMARK(randomPaneTaps)->Unit(benchmark::kMicrosecond);

/// Every fsync is carried out on the disk that holds the present folder.
void firstCityWithSixAlarms(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        {
            const Folders folders(disk());
            ZorelSettingsController controller;
            const City city =
                cityOf(controller.glbFuncs(), searchCities(controller.glbFuncs(), "ankara").at(0));
            for (std::int32_t prayer = 200; prayer <= 205; ++prayer) {
                controller.dbFuncs().updateAlarmDefinitions(prayer, 0, 12.0, "Dawn Bell.wav", 1);
            }
            state.ResumeTiming();
            controller.delegateAddCityView_AddTapped(city);
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
}
BENCHMARK(firstCityWithSixAlarms)->Unit(benchmark::kMillisecond);

/// The home city changed with six alarms on: six events removed and six placed, every fsync carried out.
void homeCityWithSixAlarms(benchmark::State& state) {
    const Folders folders(disk());
    ZorelSettingsController controller;
    UINavigationController navigation(controller);
    for (const char* name : {"ankara", "berlin"}) {
        controller.delegateAddCityView_AddTapped(
            cityOf(controller.glbFuncs(), searchCities(controller.glbFuncs(), name).at(0)));
    }
    for (int row = 0; row < 6; ++row) {
        controller.table().userSelectsRow({1, row});
        controller.alarmView().alarmEnabled().userToggles();
    }
    int next = 1;
    for (auto _ : state) {
        UIView& view = *controller.table().cellForRowAtIndexPath({0, next})->accessoryView();
        UITouchDispatcher(view).tap({267.0, 30.0});
        next = 1 - next;
    }
}
BENCHMARK(homeCityWithSixAlarms)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace zorel

BENCHMARK_MAIN();
