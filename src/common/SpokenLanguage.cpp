// SPDX-License-Identifier: Apache-2.0
#include "common/SpokenLanguage.h"

namespace zorel {

namespace {
std::string& code() {
    static std::string spoken;
    return spoken;
}
} // namespace

void speakInPane(const std::string& language) {
    code() = language;
}

const std::string& languageOfPane() {
    return code();
}

} // namespace zorel
