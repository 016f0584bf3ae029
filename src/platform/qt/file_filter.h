// File filters: "Distribution (*.deg)|*.deg" and what Qt's file dialog makes of it.
#pragma once
#include <QString>
#include <string_view>
#include <vector>

namespace talpena {

struct FileFilter {
  QString nameFilter;  ///< for QFileDialog::setNameFilters: "Distribution (*.deg)"
  QString suffix;      ///< "deg"; empty when the pattern fixes none
};

/// Pairs of a description and its patterns ("*.txt;*.csv"), all parted by "|". A description
/// without patterns behind it is left out; patterns alone stand for themselves; "*.*" means every
/// file.
std::vector<FileFilter> LitFiltres(std::string_view filter);

}  // namespace talpena
