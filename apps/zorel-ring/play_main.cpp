// SPDX-License-Identifier: Apache-2.0
// zorel-ring-play --seconds N FILE...: plays the first file that can be played for so long.
#include "Playback.h"

#include <gst/gst.h>

#include <charconv>
#include <csignal>
#include <cstdio>
#include <optional>
#include <string_view>
#include <sys/prctl.h>

namespace zorel::ring {
namespace {

constexpr int kLongest = 3600; // [s]

std::optional<int> wantedSeconds(std::string_view text) {
    int seconds = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    const bool isNumber = error == std::errc() && end == text.data() + text.size();
    return isNumber && seconds > 0 && seconds <= kLongest ? std::optional(seconds) : std::nullopt;
}

PlayResult play(int argc, char** argv) {
    const auto seconds =
        argc > 3 && std::string_view(argv[1]) == "--seconds" ? wantedSeconds(argv[2]) : std::nullopt;
    if (!seconds) {
        std::fputs("zorel-ring-play --seconds N FILE...\n", stderr);
        return PlayResult::badUse;
    }
    // Nobody could stop the sound of a service that died.
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    gst_init(nullptr, nullptr);
    return playTone({argv + 3, argv + argc}, std::chrono::seconds(*seconds));
}

} // namespace
} // namespace zorel::ring

int main(int argc, char** argv) {
    return static_cast<int>(zorel::ring::play(argc, argv));
}
