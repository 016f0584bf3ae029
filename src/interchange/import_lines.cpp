#include "interchange/import_lines.h"

#include <utility>

namespace talpena {

ImportLines::ImportLines(ImportFile file)
    : lines_(std::move(file.file), DegLines::LineEnd::CrOrLf), encodage_(file.encodage) {
  lines_.Limite(MaxRowLine);
}

bool ImportLines::Lit(std::string_view& line) {
  if (!lines_.Lit(line)) return false;
  line = TexteImporte(line, encodage_, kept_);
  return true;
}

std::string_view ImportLines::LitObligatoire() {
  return TexteImporte(lines_.LitObligatoire(), encodage_, kept_);
}

double ImportLines::Part() const {
  const std::int64_t size = lines_.Taille();
  return size == 0 ? 1 : static_cast<double>(lines_.Position()) / static_cast<double>(size);
}

}  // namespace talpena
