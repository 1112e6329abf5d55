// SPDX-License-Identifier: Apache-2.0
// The functions of ICU that the program uses.
#include "on_demand/OnDemand.h"

#include <unicode/ucal.h>
#include <unicode/uchar.h>
#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>
#include <unicode/udat.h>
#include <unicode/unorm2.h>
#include <unicode/uscript.h>
#include <unicode/ustring.h>
#include <unicode/utf8.h>

namespace {
constexpr zorel::cli::LibraryOnDemand kText("libicuuc.so." ZOREL_REPLACED_TEXT_OF(U_ICU_VERSION_MAJOR_NUM));
constexpr zorel::cli::LibraryOnDemand
    kLocales("libicui18n.so." ZOREL_REPLACED_TEXT_OF(U_ICU_VERSION_MAJOR_NUM));
} // namespace

#define IN_TEXT(Result, name, parameters, arguments)                                                         \
    ZOREL_ON_DEMAND(kText, Result, name, parameters, arguments)
#define IN_LOCALES(Result, name, parameters, arguments)                                                      \
    ZOREL_ON_DEMAND(kLocales, Result, name, parameters, arguments)

IN_LOCALES(UDateFormat*, udat_open,
           (UDateFormatStyle a, UDateFormatStyle b, const char* c, const UChar* d, int32_t e, const UChar* f,
            int32_t g, UErrorCode* h),
           (a, b, c, d, e, f, g, h))
IN_LOCALES(void, udat_close, (UDateFormat * a), (a))
IN_LOCALES(int32_t, udat_getSymbols,
           (const UDateFormat* a, UDateFormatSymbolType b, int32_t c, UChar* d, int32_t e, UErrorCode* f),
           (a, b, c, d, e, f))
IN_LOCALES(int32_t, ucal_getCanonicalTimeZoneID,
           (const UChar* a, int32_t b, UChar* c, int32_t d, UBool* e, UErrorCode* f), (a, b, c, d, e, f))

IN_TEXT(UChar*, u_strFromUTF8WithSub,
        (UChar * a, int32_t b, int32_t* c, const char* d, int32_t e, UChar32 f, int32_t* g, UErrorCode* h),
        (a, b, c, d, e, f, g, h))
IN_TEXT(char*, u_strToUTF8WithSub,
        (char* a, int32_t b, int32_t* c, const UChar* d, int32_t e, UChar32 f, int32_t* g, UErrorCode* h),
        (a, b, c, d, e, f, g, h))
IN_TEXT(int32_t, u_strToLower,
        (UChar * a, int32_t b, const UChar* c, int32_t d, const char* e, UErrorCode* f), (a, b, c, d, e, f))
IN_TEXT(int32_t, u_strToUpper,
        (UChar * a, int32_t b, const UChar* c, int32_t d, const char* e, UErrorCode* f), (a, b, c, d, e, f))
IN_TEXT(UChar32, utf8_nextCharSafeBody, (const uint8_t* a, int32_t* b, int32_t c, UChar32 d, UBool e),
        (a, b, c, d, e))
IN_TEXT(int8_t, u_charType, (UChar32 a), (a))
IN_TEXT(UBool, u_isUWhiteSpace, (UChar32 a), (a))
IN_TEXT(UScriptCode, uscript_getScript, (UChar32 a, UErrorCode* b), (a, b))
IN_TEXT(const UNormalizer2*, unorm2_getNFKCCasefoldInstance, (UErrorCode * a), (a))
IN_TEXT(const UNormalizer2*, unorm2_getNFDInstance, (UErrorCode * a), (a))
IN_TEXT(const UNormalizer2*, unorm2_getNFCInstance, (UErrorCode * a), (a))
IN_TEXT(int32_t, unorm2_normalize,
        (const UNormalizer2* a, const UChar* b, int32_t c, UChar* d, int32_t e, UErrorCode* f),
        (a, b, c, d, e, f))
IN_TEXT(UConverter*, ucnv_open, (const char* a, UErrorCode* b), (a, b))
IN_TEXT(void, ucnv_close, (UConverter * a), (a))
IN_TEXT(int32_t, ucnv_toUChars,
        (UConverter * a, UChar* b, int32_t c, const char* d, int32_t e, UErrorCode* f), (a, b, c, d, e, f))
IN_TEXT(int32_t, ucnv_fromUChars,
        (UConverter * a, char* b, int32_t c, const UChar* d, int32_t e, UErrorCode* f), (a, b, c, d, e, f))
IN_TEXT(void, ucnv_setFromUCallBack,
        (UConverter * a, UConverterFromUCallback b, const void* c, UConverterFromUCallback* d, const void** e,
         UErrorCode* f),
        (a, b, c, d, e, f))
IN_TEXT(void, UCNV_FROM_U_CALLBACK_STOP,
        (const void* a, UConverterFromUnicodeArgs* b, const UChar* c, int32_t d, UChar32 e,
         UConverterCallbackReason f, UErrorCode* g),
        (a, b, c, d, e, f, g))
