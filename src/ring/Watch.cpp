// SPDX-License-Identifier: Apache-2.0
#include "ring/Watch.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>
#include <sys/inotify.h>
#include <system_error>
#include <utility>

namespace zorel::ring {
namespace {

// Opening, closing and locking are left out: whoever only reads would be noticed by those.
constexpr std::uint32_t kChanges =
    IN_MODIFY | IN_CREATE | IN_DELETE | IN_MOVED_TO | IN_MOVED_FROM | IN_ONLYDIR;

} // namespace

Watch::Watch(std::vector<Place> places)
    : descriptor_(inotify_init1(IN_CLOEXEC | IN_NONBLOCK)), places_(std::move(places)),
      watches_(places_.size(), -1) {
    if (descriptor_.get() < 0) {
        throw std::system_error(errno, std::generic_category(), "inotify_init1");
    }
    renew();
}

void Watch::renew() {
    for (std::size_t index = 0; index < places_.size(); ++index) {
        watches_[index] = inotify_add_watch(descriptor_.get(), places_[index].folder.c_str(), kChanges);
    }
}

bool Watch::take() {
    alignas(inotify_event) std::array<char, 8192> buffer;
    bool didMatter = false;
    for (ssize_t size = 0; (size = read(descriptor_.get(), buffer.data(), buffer.size())) > 0;) {
        for (const char* at = buffer.data(); at < buffer.data() + size;) {
            const auto* const event = reinterpret_cast<const inotify_event*>(at);
            const char* const name = event->len > 0 ? event->name : "";
            didMatter = didMatter || (event->mask & IN_Q_OVERFLOW) != 0 || matters(event->wd, name);
            at += sizeof(inotify_event) + event->len;
        }
    }
    return didMatter;
}

bool Watch::matters(int watch, const char* name) const {
    const std::string_view text(name);
    for (std::size_t index = 0; index < places_.size(); ++index) {
        const Place& place = places_[index];
        if (watches_[index] == watch && (std::ranges::find(place.names, text) != place.names.end() ||
                                         (!place.ending.empty() && text.ends_with(place.ending)))) {
            return true;
        }
    }
    return false;
}

} // namespace zorel::ring
