// What comes of the pages of an Access file, as the process that reads them hands it on: any bytes
// are tables, rows and texts, or a damaged file. The pages themselves are not made up here. The
// library that reads them does not bear it: of 660 real files with up to 1,024 changed bytes it
// ended five in a fault and 21 in an endless loop, which is why it has a process of its own
// (jet_extract.h). That process and its end are what tests/platform/foreign/jet_damage_test looks
// at.
#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "check.h"
#include "common/talpena_error.h"
#include "platform/foreign/jet_answer.h"
#include "platform/foreign/jet_queries.h"

using namespace talpena;
using fuzz::Verifie;

namespace {

/// The bytes of an answer, which ends where they end.
class Answer {
 public:
  Answer(const std::uint8_t* data, std::size_t size)
      : rest_(reinterpret_cast<const char*>(data), size) {}
  bool Lit(char* buffer, std::size_t count) {
    if (count > rest_.size()) return false;
    std::memcpy(buffer, rest_.data(), count);
    rest_.remove_prefix(count);
    return true;
  }
  ReponseJet Reponse() {
    return {"x.mdb", [this](char* buffer, std::size_t count) { return Lit(buffer, count); }};
  }

 private:
  std::string_view rest_;
};

void VerifieChamp(const FieldDef& field) {
  Verifie(!field.name.empty() && EstUtf8(field.name));
  Verifie((field.type == FieldType::Text) == (field.size > 0));
}

void LitLignes(Answer& answer, const TableJet& table, JetVersion version) {
  LignesJet rows(answer.Reponse(), table.colonnes, version);
  std::vector<Cell> cells(table.colonnes.size() + 1);
  while (rows.Suivante(cells)) {
    for (std::size_t i = 0; i < table.colonnes.size(); ++i) {
      const JetType type = table.colonnes[i].type;
      const bool text = type == JetType::Text || type == JetType::Memo || type == JetType::Guid;
      if (text && !cells[i].EstNull()) Verifie(EstUtf8(cells[i].text));
    }
    Verifie(cells.back().EstNull());
  }
}

/// The table of saved queries.
TableJet TableDesRequetes() {
  TableJet table;
  const auto column = [&](const char* name, JetType type, FieldType fieldType) {
    table.colonnes.push_back({type, 0});
    table.definition.fields.push_back({.name = name, .type = fieldType});
  };
  column("ObjectId", JetType::Long, FieldType::Long);
  column("Attribute", JetType::Byte, FieldType::Byte);
  column("Order", JetType::Binary, FieldType::Binary);
  column("Name1", JetType::Text, FieldType::Text);
  column("Name2", JetType::Text, FieldType::Text);
  column("Expression", JetType::Memo, FieldType::Memo);
  column("Flag", JetType::Integer, FieldType::Integer);
  return table;
}

void Essaie(Answer& answer, JetVersion version) {
  const LimitesJet limits;
  ReponseJet reponse = answer.Reponse();
  CatalogueJet catalogue = LitCatalogueJet(reponse, version, limits);
  for (const TableJet& table : catalogue.tables) {
    Verifie(table.colonnes.size() == table.definition.fields.size());
    Verifie(!table.colonnes.empty() && table.colonnes.size() <= limits.colonnes);
    for (const FieldDef& field : table.definition.fields) VerifieChamp(field);
  }
  const TableJet queries = TableDesRequetes();
  if (catalogue.requetes.empty()) {
    LitLignes(answer, catalogue.tables.empty() ? queries : catalogue.tables.front(), version);
    return;
  }
  LignesJet rows(answer.Reponse(), queries.colonnes, version);
  DonneTextes(catalogue.requetes, LitLignesRequetes(queries.definition, rows));
  for (const RequeteJet& query : catalogue.requetes) Verifie(EstUtf8(query.definition.name));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  Answer answer(data + 1, size - 1);
  try {
    Essaie(answer, (data[0] & 1) != 0 ? JetVersion::Jet3 : JetVersion::Jet4);
  } catch (const TalpenaError& error) {
    Verifie(error.number() == ErrorNumber::UnrecognizedFormat);
  }
  return 0;
}
