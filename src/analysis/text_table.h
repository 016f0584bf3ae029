// Tables of texts as other programs take them: with tabs from the clipboard, with commas from
// files.
#pragma once
#include <string>
#include <vector>

#include "platform/chart.h"

namespace talpena {

using TextTable = std::vector<std::vector<std::string>>;

/// Lines of fields with tabs between them; a tab or line break of a field becomes a blank.
std::string AvecTabulations(const TextTable& table);

/// Comma-separated, lines ended by CR LF; a field with a comma, a quote or a line break stands in
/// double quotes (RFC 4180).
std::string AvecVirgules(const TextTable& table);

/// The numbers of a chart: headings, then a line for each point at which something was charted.
TextTable NombresDe(const ChartPicture& picture);

}  // namespace talpena
