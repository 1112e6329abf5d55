// SPDX-License-Identifier: Apache-2.0
#include "words/Catalogue.h"
#include "words/Tr.h"

#include <libintl.h>

namespace zorel::words {

namespace {
/// What gettext writes between the context and the text of a key.
constexpr char kEndOfContext = '\004';
} // namespace

const char* translation(const char* english) {
    return speaksEnglish() || *english == '\0' ? english : dgettext(kDomain, english);
}

const char* translationIn(const char* context, const char* english) {
    if (speaksEnglish()) {
        return english;
    }
    const std::string key = std::string(context) + kEndOfContext + english;
    const char* found = dgettext(kDomain, key.c_str());
    return found == key.c_str() ? english : found;
}

const char* translationOf(const char* one, const char* many, unsigned long long count) {
    if (speaksEnglish()) {
        return count == 1 ? one : many;
    }
    return dngettext(kDomain, one, many, count);
}

} // namespace zorel::words
