// SPDX-License-Identifier: Apache-2.0
/// @file
/// How a sheet looks, whatever the paper.
#pragma once

#include <string_view>

namespace zorel::cli {

/// On a screen a page is a card on a grey ground; printed, it fills the paper within its margins.
inline constexpr std::string_view kSheetStyle =
    "*{box-sizing:border-box}body{margin:0;background:#e9e9ec;color:#1a1a1a;"
    "font-family:'DejaVu Sans','Noto Sans',Verdana,sans-serif;font-size:9.4pt}\n"
    "section{background:#fff;margin:8mm auto;padding:12mm;page-break-after:always}"
    "section:last-of-type{page-break-after:auto}\n"
    "h1{font-size:20pt;margin:0;font-weight:bold;letter-spacing:-.2pt}h1 "
    "small{font-size:10pt;font-weight:normal;"
    "color:#666;display:block;letter-spacing:0;margin-top:1mm}\n"
    ".month{float:right;text-align:right;font-size:16pt;color:#14532d}.month "
    "small{display:block;font-size:9.5pt;"
    "color:#666;margin-top:1mm}\n"
    "table{border-collapse:collapse;width:100%;margin-top:5mm}th,td{padding:0 1.6mm;text-align:right;"
    "white-space:nowrap}\n"
    "th{font-weight:bold;color:#14532d;border-bottom:1.2pt solid "
    "#14532d;padding-bottom:1.2mm;vertical-align:bottom}"
    "th small{display:block;font-weight:normal;font-size:7pt;color:#666}\n"
    "td{border-bottom:.3pt solid #d7dcd8}td.w,td.h,td.m,th.w,th.h,th.m{text-align:start}"
    "[dir=rtl] .month{float:left;text-align:left}"
    "td.d{font-weight:bold}td.h{color:#555}td.m{color:#14532d;font-size:7.6pt}\n"
    "tr.friday td{background:#e3f0e6;font-weight:bold}tr.feast td{background:#fdecc4}"
    "td.key{font-weight:bold}td.sunrise{color:#777}\n"
    "footer{margin-top:4mm;font-size:7.4pt;line-height:1.45;color:#444}footer p{margin:0 0 .6mm}\n"
    "@media screen{section{box-shadow:0 1mm 4mm #0003}}\n"
    "@media print{body{background:#fff}section{margin:0;padding:0}"
    "tr{-webkit-print-color-adjust:exact;print-color-adjust:exact}}\n";

} // namespace zorel::cli
