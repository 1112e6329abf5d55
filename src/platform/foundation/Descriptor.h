// SPDX-License-Identifier: Apache-2.0
/// @file
/// An open file descriptor.
#pragma once

#include <unistd.h>

namespace zorel {

/// Closes the descriptor at its end; a negative number stands for a file that could not be opened.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0) {
            ::close(number_);
        }
    }
    [[nodiscard]] int get() const { return number_; }

private:
    int number_;
};

} // namespace zorel
