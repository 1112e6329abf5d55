// SPDX-License-Identifier: Apache-2.0
#include "PaneWindow.h"

#include "platform/foundation/Clock.h"
#include "platform/foundation/FileLock.h"
#include "platform/foundation/Locations.h"
#include "platform/uikit/UISearchBar.h"
#include "store/DatabaseFunctions.h"

#include <QFontInfo>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace zorel {

namespace {

/// The desktop's text size in proportion to 10 points at 96 dots per inch, within reason.
double desktopTextScale() {
    constexpr double usualPixels = 40.0 / 3.0;
    const double pixels = QFontInfo(QGuiApplication::font()).pixelSize();
    return std::clamp(pixels / usualPixels, 0.8, 2.5);
}

/// A picture has the usual size unless it is asked for otherwise.
double textScale(const WindowOptions& options) {
    if (options.textScale > 0.0) {
        return options.textScale;
    }
    return options.screenshot.empty() ? desktopTextScale() : 1.0;
}

/// As many points as asked for; a window is no larger than the screen.
QSize windowSize(const WindowOptions& options, double scale) {
    const QSize size = (QSizeF(options.width, options.height) * scale).toSize();
    const QScreen* screen = QGuiApplication::primaryScreen();
    return options.screenshot.empty() && screen != nullptr ? size.boundedTo(screen->availableSize()) : size;
}

} // namespace

PaneWindow::PaneWindow(const WindowOptions& options, const QString& problem) {
    host_.setProblem(problem);
    host_.setTextScale(textScale(options));
    if (!options.appearance.empty()) {
        host_.setDark(options.appearance == "dark");
    }
    const double scale = host_.textScale();
    const QSize size = windowSize(options, scale);
    host_.setScreenSize(std::min(size.width() / scale, kColumnWidth), size.height() / scale);
    controller_ = std::make_unique<ZorelSettingsController>();
    navigation_ = std::make_unique<UINavigationController>(*controller_);
    if (controller_->navigationItem().title().empty()) {
        controller_->navigationItem().setTitle("Zorel");
    }
    host_.show(*navigation_);
    refreshed_ = options.screenshot.empty() && refreshUnlessBusy();
    firstPage_ = std::make_unique<FirstPage>(host_, *controller_, problem.isEmpty());
    host_.setFirstPage(firstPage_.get());
    window_ = std::make_unique<Window>(host_, size);
    window_->setTitle(QStringLiteral("Zorel"));
    // Midnight, a ring, the clock or the command line, while the window is open.
    freshness_ = std::make_unique<Freshness>(
        QString::fromStdString(controller_->dbFuncs().userDBPath()), [this] { return moment(); },
        [this] { controller_->refreshAlarms(); });
    QObject::connect(firstPage_->today(), &TodayModel::ticked, freshness_.get(),
                     [this] { freshness_->look(false); });
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, firstPage_->today(),
                     &TodayModel::tick);
    if (options.screenshot.empty()) {
        askAfterFirstFrame();
    }
}

/// Before anything is shown, so that nothing is drawn twice and no alarm stands there as passed that is only
/// about to be moved. While another program is at work the window does not wait for it.
bool PaneWindow::refreshUnlessBusy() {
    const std::string file = controller_->dbFuncs().userDBPath() + ".lock";
    if (FileLock(file, LockKind::exclusive, FileLock::Deadline()).state() == LockState::busy) {
        return false;
    }
    controller_->refreshAlarms();
    return true;
}

void PaneWindow::askAfterFirstFrame() {
    QObject::connect(
        window_.get(), &QQuickWindow::frameSwapped, &host_,
        [this] {
            host_.desktop().ask();
            if (!refreshed_) {
                controller_->refreshAlarms();
            }
        },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

PaneWindow::~PaneWindow() {
    host_.finish();
}

std::string PaneWindow::moment() const {
    const auto rung = std::ranges::count_if(controller_->alarms().alarms, [](const AlarmStatus& alarm) {
        return alarm.ringsAt && *alarm.ringsAt <= now();
    });
    return almanac::isoDate(controller_->currentDate()) +
           almanac::isoOffset(std::chrono::seconds(utcOffsetSeconds(now()))) + std::to_string(rung);
}

void PaneWindow::openScreen(const std::string& screen, const std::string& searchText) {
    if (screen == "alarm") {
        constexpr int alarms = 1;
        controller_->table().userSelectsRow({alarms, 0});
    } else if (screen == "why") {
        firstPage_->today()->ask(QStringLiteral("next"));
    } else if (screen == "edit") {
        host_.setEditing(true);
    } else if (screen == "search" || screen == "confirm") {
        openSearch(searchText);
        UITableView& found = controller_->addCityView().searchTableView();
        if (screen == "confirm" && found.numberOfRowsInSection(0) > 0) {
            found.userSelectsRow({0, 0});
        }
    }
}

void PaneWindow::openSearch(const std::string& text) {
    controller_->delegateUICityHeaderView_AddTapped(controller_->cityHeaderView().buttonAdd());
    if (!text.empty()) {
        UISearchBar& bar = controller_->addCityView().searchBar();
        bar.setText(text);
        bar.userTapsSearch();
    }
}

void PaneWindow::watchRinging() {
    firstPage_->setRingCheck(std::make_unique<RingCheck>(RingCheck::besideProgram(),
                                                         QString::fromStdString(Locations::current().data)));
}

QImage PaneWindow::picture() {
    window_->grabWindow();
    QCoreApplication::processEvents(); // what only the first drawing has shown to have another size
    return window_->grabWindow();
}

} // namespace zorel
