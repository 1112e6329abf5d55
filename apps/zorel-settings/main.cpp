// SPDX-License-Identifier: Apache-2.0
// zorel-settings: the settings pane in a window.
#include "DisplayTrouble.h"
#include "PaneWindow.h"
#include "SingleInstance.h"
#include "WindowOptions.h"

#include "almanac/PlaceClock.h"
#include "common/GlobalFuncs.h"
#include "common/SpokenLanguage.h"
#include "platform/eventkit/EKEventStore.h"
#include "platform/eventkit/FolderCalendar.h"
#include "platform/foundation/Clock.h"
#include "platform/foundation/Locations.h"
#include "platform/foundation/NumberText.h"
#include "platform/foundation/ProgramLocations.h"
#include "platform/foundation/Utf8.h"
#include "store/Database.h"
#include "store/DatabaseFunctions.h"
#include "words/Language.h"
#include "words/Tr.h"

#include <QGuiApplication>
#include <QIcon>
#include <QLoggingCategory>
#include <QTimer>

#include <clocale>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string_view>
#include <unistd.h>

namespace {

using namespace zorel;

constexpr int kDataTrouble = 3;

void setLocations(const WindowOptions& options) {
    Locations& places = Locations::current();
    places.bundle = options.bundle.empty() ? bundleBesideProgram() : options.bundle;
    places.ringtones = options.ringtones.empty() ? ringtonesBesideBundle(places.bundle) : options.ringtones;
    places.data = options.dataDir.empty() ? userDataDirectory().value_or("") : options.dataDir;
    if (!options.calendar.empty()) {
        EKEventStore::setCalendar(std::make_shared<FolderCalendar>(options.calendar));
    }
}

/// What keeps the pane from working, with the remedy; "" when nothing does.
std::string troubleAtStart() {
    const Locations& places = Locations::current();
    const std::string catalogue = places.bundle + "/database/cities.sqlite";
    if (!fileExistsAtPath(catalogue)) {
        return tr("The city catalogue is missing: {}. Install Zorel again, or name the folder that holds it "
                  "with --bundle.",
                  catalogue);
    }
    if (places.data.empty()) {
        return tr("There is no home folder to keep your cities in. Name one with --data-dir.");
    }
    if (!createDirectoryAtPath(places.data) || access(places.data.c_str(), W_OK | X_OK) != 0) {
        return tr("The folder of your cities and alarms cannot be written: {}. Make it writable for "
                  "yourself, or name another "
                  "with --data-dir.",
                  places.data);
    }
    const GlobalFuncs functions;
    DatabaseFunctions store(functions);
    store.generateUserDatabaseFile();
    const auto database = Database::openUser(store.userDBPath());
    if (!database || !database->prepare("SELECT ID FROM USER_CITY").isPrepared()) {
        return tr("The file of your cities and alarms cannot be used: {}. Make room if the disk is full; "
                  "move the file away if "
                  "it is damaged.",
                  store.userDBPath());
    }
    return {};
}

/// The window is drawn in software: nothing in it moves for long, and a graphics driver costs twice the
/// memory and time. Whoever wants one sets QT_QUICK_BACKEND=rhi. A picture needs no display and is the same
/// on every machine.
void chooseRenderer(bool forPicture) {
    setenv("QT_QUICK_BACKEND", "software", forPicture ? 1 : 0);
    // Else Qt loads a graphics driver under Wayland that is then not used, 50 MB of it. It says so once.
    if (std::string_view(getenv("QT_QUICK_BACKEND")) == "software" &&
        setenv("QT_WAYLAND_CLIENT_BUFFER_INTEGRATION", "none", 0) == 0) {
        QLoggingCategory::setFilterRules(QStringLiteral("qt.qpa.wayland.warning=false"));
    }
    if (forPicture) {
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
    }
}

/// The moment of the picture, by its own offset or this machine's clock.
Instant instantAt(const std::string& text) {
    const auto moment = almanac::parseMoment(text).value();
    const almanac::Date date = moment.date.value();
    const auto instant = moment.offset ? std::chrono::sys_days(date) + moment.timeOfDay - *moment.offset
                                       : almanac::PlaceClock::ofMachine().instantOf(date, moment.timeOfDay);
    return instant;
}

int drawPicture(PaneWindow& pane, const WindowOptions& options) {
    pane.window().show();
    pane.openScreen(options.screen, options.searchText);
    int code = kDataTrouble;
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        if (pane.picture().save(QString::fromStdString(options.screenshot))) {
            code = 0;
        } else {
            std::cerr << "zorel-settings: "
                      << tr("the picture could not be written to {}. Does the folder exist, may you write "
                            "there, does the "
                            "name end in .png?",
                            cleanText(options.screenshot))
                      << '\n';
        }
        QGuiApplication::quit();
    });
    // Long enough for the new screen to have slid in.
    timer.start(options.screen == "cities" ? 50 : 500);
    QGuiApplication::exec();
    return code;
}

/// Time since this process was started [ms], to the kernel's clock tick.
double processAge() {
    std::ifstream stat("/proc/self/stat");
    const std::string line(std::istreambuf_iterator<char>(stat), {});
    std::istringstream fields(line.substr(line.rfind(')') + 2));
    std::string field;
    constexpr int startTime = 20; // field 22 of proc(5), counted from the one after the name
    for (int index = 0; index < startTime; ++index) {
        fields >> field;
    }
    const double start = doubleValue(field) / static_cast<double>(sysconf(_SC_CLK_TCK));
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    return (static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9 - start) * 1000.0;
}

/// Resident memory [MB].
double residentMemory() {
    std::ifstream statm("/proc/self/statm");
    double size = 0.0;
    double resident = 0.0;
    statm >> size >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

int timeStart(PaneWindow& pane) {
    QObject::connect(
        &pane.window(), &QQuickWindow::frameSwapped, &pane.window(),
        [] {
            std::cout << static_cast<int>(processAge()) << " ms to the first frame, "
                      << static_cast<int>(residentMemory()) << " MB resident\n";
            QGuiApplication::quit();
        },
        Qt::SingleShotConnection);
    pane.window().show();
    return QGuiApplication::exec();
}

int openWindow(PaneWindow& pane, SingleInstance& instance) {
    instance.listen();
    pane.watchRinging();
    QObject::connect(&instance, &SingleInstance::raiseRequested, &pane.window(), [&pane] {
        pane.window().show();
        pane.window().raise();
        pane.window().requestActivate();
    });
    pane.window().show();
    return QGuiApplication::exec();
}

int runProgram(int argc, char** argv, const WindowOptions& options) {
    auto guard = std::make_optional<DisplayGuard>();
    const QGuiApplication application(argc, argv);
    guard.reset();
    std::setlocale(LC_NUMERIC, "C");
    useLanguageOfEnvironment(); // once more: Qt has set the locale
    speakInPane(languageInUse());
    QGuiApplication::setDesktopFileName(QStringLiteral("org.zorel.Settings"));
    QGuiApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("org.zorel.Settings")));
    std::optional<ClockOverride> clock;
    if (!options.at.empty()) {
        clock.emplace(instantAt(options.at));
    }
    setLocations(options);
    const std::string trouble = troubleAtStart();
    if (!trouble.empty()) {
        std::cerr << "zorel-settings: " << cleanText(trouble) << '\n';
    }
    SingleInstance instance(QString::fromStdString(Locations::current().data));
    const bool forUse = options.screenshot.empty() && !options.timeStart;
    if (forUse && instance.askOther()) {
        std::cout << "zorel-settings: "
                  << tr("the window is open already; it has been asked to come forward.") << '\n';
        return 0;
    }
    PaneWindow pane(options, QString::fromStdString(trouble));
    if (pane.window().status() == QQuickView::Error) {
        std::cerr << "zorel-settings: "
                  << tr("a part of Qt that draws the window is missing (its own message is above). On "
                        "Debian: sudo apt install "
                        "qml6-module-qtqml-workerscript")
                  << '\n';
        return kDataTrouble;
    }
    if (options.timeStart) {
        return timeStart(pane);
    }
    return forUse ? openWindow(pane, instance) : drawPicture(pane, options);
}

} // namespace

int main(int argc, char** argv) {
    useLanguageOfEnvironment();
    WindowOptions options;
    int exitCode = 0;
    if (!readWindowOptions(argc, argv, options, exitCode)) {
        return exitCode;
    }
    chooseRenderer(!options.screenshot.empty());
    return runProgram(argc, argv, options);
}
