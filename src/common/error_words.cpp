#include "common/error_words.h"

#include <algorithm>

#include "common/msg_id_errors.h"
#include "common/string_table.h"
#include "common/text.h"

namespace talpena {
namespace {

struct NumberWords {
  int number;
  int text;
};

/// Every number that a user can meet, the program's own and the table engine's.
// clang-format off
constexpr NumberWords numberWords[] = {
    {ErrorNumber::InvalidCall,         MsgId::EchecAppel},
    {ErrorNumber::Overflow,            MsgId::EchecDebordement},
    {ErrorNumber::OutOfMemory,         MsgId::EchecMemoire},
    {ErrorNumber::SubscriptOutOfRange, MsgId::EchecIndice},
    {ErrorNumber::DivisionByZero,      MsgId::EchecDivision},
    {ErrorNumber::TypeMismatch,        MsgId::EchecType},
    {ErrorNumber::InternalError,       MsgId::EchecInterne},
    {ErrorNumber::FileNotFound,        MsgId::EchecFichierAbsent},
    {ErrorNumber::DeviceFault,         MsgId::EchecAppareil},
    {ErrorNumber::FileExists,          MsgId::EchecFichierPresent},
    {ErrorNumber::DiskFull,            MsgId::EchecDisquePlein},
    {ErrorNumber::InputPastEnd,        MsgId::EchecFin},
    {ErrorNumber::PermissionDenied,    MsgId::EchecAcces},
    {ErrorNumber::PathFileAccess,      MsgId::EchecChemin},
    {ErrorNumber::PathNotFound,        MsgId::EchecDossierAbsent},
    {ErrorNumber::InvalidPattern,      MsgId::EchecMotif},
    {ErrorNumber::InvalidNull,         MsgId::EchecNull},
    {ErrorNumber::EngineFault,         MsgId::EchecMoteur},
    {ErrorNumber::InvalidArgument,     MsgId::EchecArgument},
    {ErrorNumber::TableExists,         MsgId::EchecTablePresente},
    {ErrorNumber::NoCurrentRecord,     MsgId::EchecSansLigne},
    {ErrorNumber::DuplicateKey,        MsgId::EchecDouble},
    {ErrorNumber::DatabaseNotFound,    MsgId::EchecBaseAbsente},
    {ErrorNumber::ReadOnly,            MsgId::EchecLectureSeule},
    {ErrorNumber::FileInUse,           MsgId::EchecEnUsage},
    {ErrorNumber::RecordTooLarge,      MsgId::EchecLigneLongue},
    {ErrorNumber::TooFewParameters,    MsgId::EchecColonne},
    {ErrorNumber::SyntaxError,         MsgId::EchecSyntaxe},
    {ErrorNumber::TableNotFound,       MsgId::EchecTable},
    {ErrorNumber::AmbiguousField,      MsgId::EchecAmbigu},
    {ErrorNumber::UndefinedFunction,   MsgId::EchecFonction},
    {ErrorNumber::AggregateNotAllowed, MsgId::EchecAgregat},
    {ErrorNumber::TextAfterEnd,        MsgId::EchecSuite},
    {ErrorNumber::InvalidName,         MsgId::EchecNomDeTable},
    {ErrorNumber::InvalidBookmark,     MsgId::EchecLignePartie},
    {ErrorNumber::FieldTooSmall,       MsgId::EchecTropLong},
    {ErrorNumber::FieldNotUpdatable,   MsgId::EchecChampFige},
    {ErrorNumber::RecordDeleted,       MsgId::EchecLignePartie},
    {ErrorNumber::NotSupported,        MsgId::EchecNonPrevu},
    {ErrorNumber::ItemNotFound,        MsgId::EchecChampAbsent},
    {ErrorNumber::NullNotAllowed,      MsgId::EchecValeurVoulue},
    {ErrorNumber::ZeroLength,          MsgId::EchecTexteVide},
    {ErrorNumber::UnrecognizedFormat,  MsgId::EchecFormat},
    {ErrorNumber::QueryTooComplex,     MsgId::EchecComplexe},
    {ErrorNumber::DataConversion,      MsgId::EchecType},
    {ErrorNumber::SpreadsheetFull,     MsgId::FeuillePleine},
};
// clang-format on

int TexteDuNumero(int number) {
  const auto* const found = std::ranges::find(numberWords, number, &NumberWords::number);
  return found == std::end(numberWords) ? 0 : found->text;
}

/// False when the words have a place for something that the failure does not tell.
bool Suffit(const std::string& words, const std::vector<std::string>& about) {
  return words.find("%" + std::to_string(about.size() + 1)) == std::string::npos;
}

/// The words with what they are about in its places, or below.
std::string Complete(std::string words, const std::vector<std::string>& about) {
  int place = 0;
  for (const std::string& what : about) {
    const std::string mark = "%" + std::to_string(++place);
    if (words.find(mark) == std::string::npos) {
      words += "\n" + what;
    } else {
      words = Remplace(words, mark, what);
    }
  }
  return words;
}

std::string SansLigne(std::int16_t langue, const TalpenaError& error) {
  const ErrorWords& words = error.words();
  const int text = words.text != 0 ? words.text : TexteDuNumero(error.number());
  std::string said = text == 0 ? std::string() : Texte(langue, text);
  said =
      text == 0 || !Suffit(said, words.about) ? error.description() : Complete(said, words.about);
  if (words.hint != 0) said += "\n" + Texte(langue, words.hint);
  return said;
}

}  // namespace

std::string DescriptionErreur(std::int16_t langue, const TalpenaError& error) {
  try {
    std::string words = SansLigne(langue, error);
    const std::int64_t line = error.words().line;
    if (line == 0 || words == error.description()) return words;
    return Complete(Texte(langue, MsgId::EchecDeLigne), {std::to_string(line), words});
  } catch (const TalpenaError&) {  // the language lacks the text
    return error.description();
  }
}

}  // namespace talpena
