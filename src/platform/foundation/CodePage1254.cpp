// SPDX-License-Identifier: Apache-2.0
#include "platform/foundation/CodePage1254.h"

#include "platform/foundation/Utf16.h"

#include <algorithm>
#include <memory>
#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>

namespace zorel {
namespace {

struct CloseConverter {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

Converter openConverter() {
    UErrorCode error = U_ZERO_ERROR;
    Converter converter(ucnv_open("windows-1254", &error));
    if (U_FAILURE(error) != 0) {
        converter.reset();
    }
    return converter;
}

} // namespace

std::string utf8FromCodePage1254(std::string_view bytes) {
    if (std::ranges::all_of(bytes, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; })) {
        return std::string(bytes); // ASCII, the same in both
    }
    const Converter converter = openConverter();
    if (converter == nullptr) {
        return {};
    }
    return utf8FromUtf16(
        filledText(bytes.size(), [&](char16_t* buffer, std::int32_t capacity, UErrorCode& status) {
            return ucnv_toUChars(converter.get(), buffer, capacity, bytes.data(),
                                 static_cast<std::int32_t>(bytes.size()), &status);
        }));
}

std::optional<std::string> codePage1254FromUtf8(std::string_view text) {
    const Converter converter = openConverter();
    if (converter == nullptr) {
        return std::nullopt;
    }
    UErrorCode error = U_ZERO_ERROR;
    ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
    const std::u16string wide = utf16FromUtf8(text);
    std::string bytes(wide.size() + 1, '\0');
    const std::int32_t length =
        ucnv_fromUChars(converter.get(), bytes.data(), static_cast<std::int32_t>(bytes.size()), wide.data(),
                        static_cast<std::int32_t>(wide.size()), &error);
    if (U_FAILURE(error) != 0) {
        return std::nullopt;
    }
    bytes.resize(static_cast<std::size_t>(length));
    return bytes;
}

} // namespace zorel
