// SPDX-License-Identifier: Apache-2.0
// {fmt} as a part of the program, from its own header: its shared library would bring the C++ library's with
// it, thousands of symbols to look up at every start.
#include <fmt/format-inl.h>

FMT_BEGIN_NAMESPACE
namespace detail {
template auto thousands_sep_impl<char>(locale_ref) -> thousands_sep_result<char>;
template auto decimal_point_impl<char>(locale_ref) -> char;
} // namespace detail
FMT_END_NAMESPACE
