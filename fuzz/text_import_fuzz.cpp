// A whole file of a text import, from its first byte to the columns of its rows. The first input
// byte gives the system, or fields of all kinds without one; the second the size of the blocks in
// which the file is read.
#include <cmath>
#include <cstdint>

#include "check.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "fakes/memory_input.h"
#include "interchange/text_import_reader.h"

namespace {

using namespace talpena;
using talpena::fuzz::Verifie;

ImportFile Ouvre(std::string_view bytes, std::size_t block) {
  const Encodage encodage = ChercheEncodage(std::make_unique<test::MemoryInput>(bytes, block));
  return PrendImport(std::make_unique<test::MemoryInput>(bytes, block), encodage);
}

void VerifieTexte(std::string_view text) {
  Verifie(EstUtf8(text));
  Verifie(text.find('\r') == std::string_view::npos);
}

void VerifieUneLigne(std::string_view text) {
  VerifieTexte(text);
  Verifie(text.find('\n') == std::string_view::npos);
}

void VerifieFiche(const ImportRecord& record, CoordSystem system) {
  const ImportedRow& row = record.row;
  const std::string& original = row.original.value();
  Verifie(row.n1 && row.n2 && row.datum == "WGS84");
  VerifieUneLigne(original);
  VerifieUneLigne(row.date.value());
  VerifieTexte(row.comment.value());
  Verifie(original.find(',') == std::string::npos);
  if (record.dropped != 0) return Verifie(original.empty() && InfoDe(system).cut.atLeast > 0);
  Verifie(original.size() >= 4 && original[3] == ' ');
  Verifie(SystemeDe(Majuscules(original.substr(0, 3))) == system);
}

/// What ends an import names its line, and does so again.
void VerifieEchec(const TalpenaError& error) {
  Verifie(error.number() == ErrorNumber::InputPastEnd || error.number() == ErrorNumber::Overflow ||
          error.number() == ErrorNumber::TypeMismatch);
  Verifie(error.words().line > 0 && error.words().text != 0 && !error.description().empty());
}

void LitFiches(std::string_view bytes, CoordSystem system, std::size_t block) {
  TextImportReader reader(Ouvre(bytes, block), system, "WGS84");
  ImportRecord record;
  std::int64_t line = 0;
  std::size_t count = 0;
  try {
    while (reader.Suivant(record)) {
      VerifieFiche(record, system);
      Verifie(record.line >= line);
      line = record.line;
      ++count;
      Verifie(reader.Part() >= 0 && reader.Part() <= 1);
    }
    Verifie(!reader.Suivant(record));
  } catch (const TalpenaError& error) {
    VerifieEchec(error);
    Verifie(error.words().line >= line);
    try {
      Verifie(reader.Suivant(record));
      Verifie(false);
    } catch (const TalpenaError& again) {
      Verifie(again.number() == error.number());
    }
  }
  Verifie(count <= bytes.size());
}

/// Fields whose kinds the input itself gives.
void LitChamps(std::string_view bytes, std::size_t block) {
  FieldReader reader(Ouvre(bytes, block));
  std::size_t fields = 0;
  try {
    for (std::size_t at = 0; reader.Reste(); at = (at + 1) % bytes.size(), ++fields) {
      const auto vide = (bytes[at] & 8) == 0 ? FieldReader::Vide::Zero : FieldReader::Vide::Refuse;
      switch (bytes[at] & 7) {
        case 0:
          reader.Entier16(vide);
          break;
        case 1:
          reader.Entier32(vide);
          break;
        case 2:
          Verifie(std::isfinite(reader.Simple(vide)));
          break;
        case 3:
          reader.SauteLigneVide();
          break;
        case 4:
          reader.SauteLigneDe('*');
          break;
        default:
          VerifieTexte(reader.Texte());
      }
      if (fields > 4 * bytes.size() + 8) break;  // what is not passed over is asked for again
    }
  } catch (const TalpenaError& error) {
    VerifieEchec(error);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data) + 2, size - 2);
  const int choice = data[0] % (CoordSystemCount + 1);
  const std::size_t block = std::size_t{1} << (data[1] % 13);
  if (choice == CoordSystemCount) {
    LitChamps(bytes, block);
  } else {
    LitFiches(bytes, static_cast<CoordSystem>(choice), block);
  }
  return 0;
}
