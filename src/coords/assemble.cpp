// Assembling ORIGINAL: one place for import and the record editor.
#include <array>
#include <string>
#include <vector>

#include "common/numbers.h"
#include "common/text.h"
#include "coords/original.h"

namespace talpena {
namespace {

constexpr std::string_view latitudeMask = "+00.00000;-00.00000";
constexpr std::string_view longitudeMask = "+000.00000;-000.00000";

/// "mgr" of a system.
std::string CodeMinuscule(CoordSystem system) { return Minuscules(InfoDe(system).code); }

}  // namespace

std::string AssembleTextes(CoordSystem system, std::span<const std::string_view> texts) {
  std::string original = CodeMinuscule(system);
  for (const std::string_view text : texts) original.append(" ").append(text);
  return original;
}

std::string AssembleNombres(CoordSystem system, std::span<const double> numbers) {
  const bool angles = InfoDe(system).content == Content::Angles;
  std::string original = CodeMinuscule(system);
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const std::string_view mask = i == 0 ? latitudeMask : longitudeMask;
    original += ' ' + (angles ? Format(numbers[i], mask) : Str(numbers[i]));
  }
  return original;
}

std::string AssembleReference(CoordSystem system, std::string_view reference) {
  const ReferenceCut& cut = InfoDe(system).cut;
  if (cut.atLeast == 0) return AssembleTextes(system, std::array{reference});
  const std::string text = Majuscules(reference);
  std::string_view rest = text;
  if (CompteCaracteres(rest) < cut.atLeast) return {};
  std::vector<std::string_view> tokens;
  for (const std::size_t length : cut.heads) {
    if (length == 0) continue;
    tokens.push_back(PremiersCaracteres(rest, length));
    rest.remove_prefix(tokens.back().size());
  }
  tokens.push_back(rest);
  return AssembleTextes(system, tokens);
}

}  // namespace talpena
