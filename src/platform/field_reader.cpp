#include "platform/field_reader.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "common/field_number.h"
#include "common/line_breaks.h"
#include "common/msg_id_errors.h"
#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"

namespace talpena {
namespace {

constexpr char quote = '"';

/// Texts of failures show so much of a field.
constexpr std::size_t shownCharacters = 40;

std::size_t Chiffres(std::string_view text, std::size_t at) {
  std::size_t count = 0;
  while (at + count < text.size() && text[at + count] >= '0' && text[at + count] <= '9') ++count;
  return count;
}

bool EstSigne(std::string_view text, std::size_t at) {
  return at < text.size() && (text[at] == '+' || text[at] == '-');
}

/// A sign, digits with at most one point, and an exponent behind E or D: nothing else.
bool EstNombre(std::string_view text) {
  std::size_t at = EstSigne(text, 0) ? 1 : 0;
  std::size_t digits = Chiffres(text, at);
  at += digits;
  if (at < text.size() && text[at] == '.') {
    const std::size_t decimals = Chiffres(text, ++at);
    digits += decimals;
    at += decimals;
  }
  if (digits == 0 || at == text.size()) return digits > 0;
  if (std::string_view("eEdD").find(text[at]) == std::string_view::npos) return false;
  ++at;
  if (EstSigne(text, at)) ++at;
  const std::size_t exponent = Chiffres(text, at);
  return exponent > 0 && at + exponent == text.size();
}

/// What a failure shows of a field. A NUL would end the text of a box, and a tab look like a blank.
std::string Extrait(std::string_view bytes, Encodage encodage) {
  constexpr std::string_view nul("\0", 1), shownNul = "\u2400";
  std::string kept;
  const std::string_view head = encodage == Encodage::Utf8
                                    ? PremiersCaracteres(bytes, shownCharacters)
                                    : bytes.substr(0, shownCharacters);
  const std::string text = SurUneLigne(TexteImporte(head, encodage, kept));
  return Remplace(Remplace(text, nul, shownNul), "\t", TabMontree) +
         (head.size() < bytes.size() ? "..." : "");
}

}  // namespace

FieldReader::FieldReader(ImportFile file)
    : lines_(std::move(file.file), DegLines::LineEnd::CrOrLf),
      encodage_(file.encodage),
      end_(std::move(file.fin)) {
  lines_.Limite(MaxRowLine);
}

double FieldReader::Part() const {
  const auto size = static_cast<double>(std::max<std::int64_t>(lines_.Taille(), 1));
  return std::min(static_cast<double>(lines_.Position()) / size, 1.0);
}

std::int64_t FieldReader::LigneCoupee() const {
  if (!end_ || !end_->coupe) return 0;
  return lines_.Numero() + (end_->enTete ? 1 : 0);
}

bool FieldReader::Reste() {
  if (open_) return true;
  try {
    whole_ = {};
    if (!lines_.Lit(whole_)) return false;
    rest_ = whole_;
    return open_ = true;
  } catch (const TalpenaError& error) {
    if (error.number() != ErrorNumber::Overflow) throw;
    const std::vector<std::string> about{Str(std::int64_t{MaxRowLine >> 20})};
    throw TalpenaError(
        error.number(), error.description(),
        {.text = MsgId::LigneImportTropLongue, .about = about, .line = lines_.Numero() + 1});
  }
}

bool FieldReader::SauteLigneVide() {
  if (!Reste() || !RogneGauche(rest_).empty()) return false;
  Ferme();
  return true;
}

bool FieldReader::SauteLigneDe(char mark) {
  if (!Reste() || !rest_.starts_with(mark)) return false;
  Ferme();
  return true;
}

void FieldReader::CommenceFiche() {
  field_ = 0;
  shifted_ = open_ && rest_.size() < whole_.size();
  firstLine_ = lines_.Numero();
  quotedLines_ = 0;
  lost_ = false;
}

void FieldReader::Ferme() { open_ = false; }

/// A field begins, in the next line when the current one is at its end.
void FieldReader::Ouvre() {
  ++field_;
  const bool there = Reste();
  line_ = lines_.Numero();
  if (!there) {
    Refuse(ErrorNumber::InputPastEnd, MsgId::FicheCoupee, {Str(std::int64_t{field_})},
           "Input past end of file");
  }
  SauteBlancs();
}

void FieldReader::SauteBlancs() {
  while (rest_.starts_with(' ')) Prend(1);
}

std::string_view FieldReader::Texte() {
  Ouvre();
  const bool quoted = rest_.starts_with(quote);
  std::string_view value;
  if (quoted) {
    Prend(1);
    value = Guillemets();
  }
  const std::size_t comma = rest_.find(',');
  if (quoted) {
    NotePerte(rest_.substr(0, comma));
  } else {
    value = rest_.substr(0, comma);
  }
  if (comma == std::string_view::npos) {
    Ferme();
  } else {
    Prend(comma + 1);
  }
  return TexteImporte(value, encodage_, kept_);
}

/// The text up to the closing quote, which is taken too.
std::string_view FieldReader::Guillemets() {
  std::size_t end = rest_.find(quote);
  if (end != std::string_view::npos) {
    const std::string_view value = rest_.substr(0, end);
    Prend(end + 1);
    return value;
  }
  quoted_.clear();
  do {
    Allonge(rest_);
    Allonge("\n");
    Ferme();
    ++quotedLines_;
    if (!Reste()) {
      Refuse(ErrorNumber::InputPastEnd, MsgId::GuillemetOuvert, {Str(std::int64_t{field_})},
             "A quote is not closed");
    }
    end = rest_.find(quote);
  } while (end == std::string_view::npos);
  Allonge(rest_.substr(0, end));
  Prend(end + 1);
  return quoted_;
}

/// What stands between a closing quote and the next comma does not enter.
void FieldReader::NotePerte(std::string_view dropped) {
  if (RogneGauche(dropped).empty()) return;
  lost_ = true;
  lostLine_ = lines_.Numero();
}

void FieldReader::Allonge(std::string_view text) {
  if (quoted_.size() + text.size() > MaxRowLine) {
    const auto megabytes = static_cast<std::int64_t>(MaxRowLine >> 20);
    Refuse(ErrorNumber::Overflow, MsgId::ChampTropLong, {Str(std::int64_t{field_}), Str(megabytes)},
           "A text in quotes is longer than " + Str(megabytes) + " MB");
  }
  quoted_ += text;
}

/// The bytes of a number, behind which the field is ended.
std::string_view FieldReader::Nombre() {
  Ouvre();
  words_ = rest_;
  const std::size_t length = std::min(rest_.find_first_of(", "), rest_.size());
  const std::string_view value = rest_.substr(0, length);
  Prend(length);
  SauteBlancs();
  if (rest_.empty()) {
    Ferme();
  } else if (rest_.front() == ',') {
    Prend(1);
  }
  return value;
}

double FieldReader::Valeur(std::string_view bytes, Vide vide) const {
  const std::string field = Str(std::int64_t{field_});
  if (bytes.empty()) {
    if (vide == Vide::Zero) return 0;
    Refuse(ErrorNumber::TypeMismatch, MsgId::ChampVide, {field}, "Type mismatch: nothing");
  }
  if (!EstNombre(bytes)) {
    const std::string text = Extrait(RogneDroite(words_.substr(0, words_.find(','))), encodage_);
    Refuse(ErrorNumber::TypeMismatch, MsgId::ChampSansNombre, {field, text},
           "Type mismatch: " + text);
  }
  return ValChamp(bytes, Comma::EndsNumber);
}

template <typename Number, typename Convert>
Number FieldReader::Lit(Vide vide, Convert convert) {
  const std::string_view bytes = Nombre();
  try {
    return convert(Valeur(bytes, vide));
  } catch (const TalpenaError& error) {
    if (error.number() != ErrorNumber::Overflow) throw;
  }
  const std::string text = Extrait(bytes, encodage_);
  Refuse(ErrorNumber::Overflow, MsgId::ChampTropGrand, {Str(std::int64_t{field_}), text},
         "Overflow: " + text);
}

std::int16_t FieldReader::Entier16(Vide vide) { return Lit<std::int16_t>(vide, Arrondi16); }

std::int32_t FieldReader::Entier32(Vide vide) { return Lit<std::int32_t>(vide, Arrondi32); }

float FieldReader::Simple(Vide vide) { return Lit<float>(vide, EnSimple); }

void FieldReader::Refuse(int number, int text, std::vector<std::string> about,
                         const std::string& what) const {
  throw TalpenaError(number, "Field " + Str(std::int64_t{field_}) + ": " + what,
                     {.text = text, .about = std::move(about)})
      .SurLigne(line_);
}

}  // namespace talpena
