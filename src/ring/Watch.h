// SPDX-License-Identifier: Apache-2.0
/// @file
/// Notices that the alarms, their calendar or the machine's time zone changed.
#pragma once

#include "platform/foundation/Descriptor.h"

#include <string>
#include <vector>

namespace zorel::ring {

/// Files that matter, in the folders that hold them. Uses no processor time while nothing changes.
class Watch {
public:
    /// A folder and what matters in it.
    struct Place {
        std::string folder;
        std::vector<std::string> names; ///< of files in it
        std::string ending;             ///< or names that end with this; empty: none
    };

    /// @throws std::system_error when the system gives no watch.
    explicit Watch(std::vector<Place> places);

    /// Becomes readable when something happens in one of the folders.
    [[nodiscard]] int descriptor() const { return descriptor_.get(); }
    /// Watches the folders that came into being, or came anew, since the last call.
    void renew();
    /// Takes all that happened; whether any of it matters.
    [[nodiscard]] bool take();

private:
    [[nodiscard]] bool matters(int watch, const char* name) const;

    Descriptor descriptor_;
    std::vector<Place> places_;
    std::vector<int> watches_; ///< one for each place; -1: its folder is not there
};

} // namespace zorel::ring
