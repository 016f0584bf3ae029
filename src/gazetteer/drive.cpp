#include "gazetteer/drive.h"

#include <cstddef>
#include <optional>
#include <string_view>

#include "common/paths.h"

namespace talpena {
namespace {

constexpr std::int16_t french = 0;
constexpr std::string_view rootOfDrive = ":\\";

bool EstLettre(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

/// The letter of a path that begins with one and a colon.
std::optional<char> LettreDe(std::string_view path) {
  if (path.size() < 2 || !EstLettre(path[0]) || path[1] != ':') return {};
  return path[0];
}

/// Behind the letter in the message, with both of its backslashes.
/// Held by Drive.TheLetterStandsBeforeTwoBackslashes.
constexpr std::string_view behindLetter = ":\\\\";

/// What has to be there: the drive, or the folder that holds the file.
std::string Racine(const std::string& path) {
  if (const auto letter = LettreDe(path)) return *letter + std::string(rootOfDrive);
  return DossierDe(path);
}

}  // namespace

bool LecteurPret(FileSystem& files, const std::string& path) {
  const bool lettered = LettreDe(path).has_value();
  if (lettered && SeparateurChemin() != '\\') return false;
  const std::string root = Racine(path);
  return root.empty() || files.Empreinte(root).has_value();
}

void DemandeLecteur(const SharedState& state, Platform& io, const std::string& path) {
  const std::string_view words = state.Langue == french
                                     ? "Veuillez insérer le CD-ROM dans le lecteur "
                                     : "Please insert CD-ROM in drive ";
  const auto letter = LettreDe(path);
  const std::string place = letter ? *letter + std::string(behindLetter) : DossierDe(path);
  io.dialogues.Demande({.text = std::string(words) + place, .icon = Icon::Exclamation});
}

}  // namespace talpena
