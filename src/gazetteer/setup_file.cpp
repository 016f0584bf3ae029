#include "gazetteer/setup_file.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "common/line_breaks.h"
#include "common/msg_id_gazetteer.h"
#include "common/numbers.h"
#include "common/text.h"
#include "platform/field_reader.h"

namespace talpena {
namespace {

constexpr std::string_view magic = "<TALPENA 2.0>";
constexpr std::string_view lineEnd = "\r\n";

/// Longest text that a set-up may hold: paths and names of fields are far shorter.
constexpr std::size_t longestText = 4096;

std::size_t Rang(GeoList list) { return static_cast<std::size_t>(list); }

/// Its texts in the order of the file.
std::vector<std::string*> Textes(SetupFile& setup) {
  std::vector<std::string*> texts{&setup.File, &setup.DbType, &setup.Datum};
  for (std::string& name : setup.Noms) texts.push_back(&name);
  return texts;
}

std::vector<bool*> Options(SetupFile& setup) {
  return {&setup.Option1[0], &setup.Option1[1], &setup.Option2[0], &setup.Option2[1]};
}

std::string LitTexte(FieldReader& fields) {
  std::string text(fields.Texte());
  if (text.size() <= longestText) return text;
  throw TalpenaError(ErrorNumber::Overflow, "A text of the set-up is too long",
                     {.text = MsgId::SetupTexteTropLong});
}

/// The older form has none for the names of country and province.
bool Manque(const SetupRead& read, std::size_t value) {
  return read.ancien && value >= SetupValue::Nom + Rang(GeoList::CountryName) &&
         value < SetupValue::Option;
}

void LitValeurs(FieldReader& fields, SetupRead& read) {
  fields.CommenceFiche();
  const std::string first = LitTexte(fields);
  read.ancien = Majuscules(first) != magic;
  const std::vector<std::string*> texts = Textes(read.setup);
  for (std::size_t i = 0; i < texts.size(); ++i, ++read.valeurs) {
    if (Manque(read, i)) continue;
    *texts[i] = read.ancien && i == 0 ? first : LitTexte(fields);
  }
  for (bool* option : Options(read.setup)) {
    *option = fields.Entier16() != 0;
    ++read.valeurs;
  }
}

TalpenaError FinPrecoce(const FieldReader& fields) {
  const std::string last = Str(fields.Ligne());
  return {ErrorNumber::InputPastEnd,
          "The set-up ends behind line " + last,
          {.text = MsgId::SetupCoupe, .about = {last}}};
}

/// Bytes in memory as a file.
class Memoire final : public InputFile {
 public:
  explicit Memoire(std::string bytes) : bytes_(std::move(bytes)) {}
  std::size_t Lit(std::span<char> buffer) override {
    const std::size_t count = bytes_.copy(buffer.data(), buffer.size(), at_);
    at_ += count;
    return count;
  }
  std::int64_t Taille() const override { return static_cast<std::int64_t>(bytes_.size()); }

 private:
  std::string bytes_;
  std::size_t at_ = 0;
};

}  // namespace

SetupRead LitSetup(ImportFile file) {
  FieldReader fields(std::move(file));
  SetupRead read;
  try {
    LitValeurs(fields, read);
  } catch (const TalpenaError& error) {
    read.echec = error.number() == ErrorNumber::InputPastEnd ? FinPrecoce(fields) : error;
  }
  return read;
}

std::string LignesSetup(const SetupFile& setup) {
  SetupFile copy = setup;
  std::string lines(magic);
  lines += lineEnd;
  for (const std::string* text : Textes(copy)) {
    lines += Utf8VersCp1252AvecManques(SurUneLigne(*text));
    lines += lineEnd;
  }
  for (const bool* option : Options(copy)) {
    lines += *option ? "-1" : "0";
    lines += lineEnd;
  }
  return lines;
}

std::optional<std::string> SetupPerdu(const SetupFile& setup) {
  SetupFile wanted = setup;
  SetupRead read =
      LitSetup(PrendImport(std::make_unique<Memoire>(LignesSetup(setup)), Encodage::Cp1252));
  const std::vector<std::string*> before = Textes(wanted), after = Textes(read.setup);
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (*before[i] != *after[i]) return *before[i];
  }
  return {};
}

}  // namespace talpena
