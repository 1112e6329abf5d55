// SPDX-License-Identifier: Apache-2.0
/// @file
/// Libraries that are loaded when the first of their functions is called. Most runs of the program need
/// neither ICU nor libical, and loading both takes longer than all the rest of such a run. The sources beside
/// this one define those functions that the program uses; each of them asks the library for its own. A
/// function that is used and not defined there brings its library back among those that are loaded at the
/// start (tests/cli/libraries_test.sh looks).
#pragma once

namespace zorel::cli {

/// One library. Loaded once, by whichever thread comes first, and never unloaded.
class LibraryOnDemand {
public:
    /// @param file its name as the dynamic linker knows it ("libical.so.3"); must last.
    explicit constexpr LibraryOnDemand(const char* file) : file_(file) {}
    /// The address of a function. Throws std::runtime_error when the library or the function is missing: the
    /// command then ends with its text.
    [[nodiscard]] void* find(const char* function) const;

private:
    const char* file_;
};

} // namespace zorel::cli

#define ZOREL_TEXT_OF(name) #name
/// The name after macros have been replaced: ICU's functions carry its version in their names.
#define ZOREL_REPLACED_TEXT_OF(name) ZOREL_TEXT_OF(name)

/// Defines a function of a library: its result, name, parameters in brackets, arguments in brackets.
#define ZOREL_ON_DEMAND(library, Result, name, parameters, arguments)                                        \
    extern "C" Result name parameters {                                                                      \
        static auto* const function =                                                                        \
            reinterpret_cast<decltype(&name)>((library).find(ZOREL_REPLACED_TEXT_OF(name)));                 \
        return function arguments;                                                                           \
    }
