// SPDX-License-Identifier: Apache-2.0
/// @file
/// A page of HTML as PDF, by the program weasyprint, which Debian has.
#pragma once

#include <string>

namespace zorel::cli {

/// Writes the document to a file of that name; an older one is replaced only when the new one is whole.
/// @throws CliError (data trouble) when weasyprint is not installed, fails, or the file cannot be written.
void writePdf(const std::string& html, const std::string& path);

} // namespace zorel::cli
