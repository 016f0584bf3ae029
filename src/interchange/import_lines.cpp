#include "interchange/import_lines.h"

#include <string>
#include <utility>

#include "common/msg_id_errors.h"
#include "common/numbers.h"
#include "common/talpena_error.h"

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
  std::string_view line;
  if (Lit(line)) return line;
  const std::int64_t last = Numero();
  const std::string description = "Input past end of file: behind line " + Str(last);
  if (last == 0) {
    throw TalpenaError(ErrorNumber::InputPastEnd, description, {.text = MsgId::FichierVide});
  }
  throw TalpenaError(ErrorNumber::InputPastEnd, description,
                     {.text = MsgId::PointsCoupes, .about = {Str(last)}});
}

double ImportLines::Part() const {
  const std::int64_t size = lines_.Taille();
  return size == 0 ? 1 : static_cast<double>(lines_.Position()) / static_cast<double>(size);
}

}  // namespace talpena
