// Assembling ORIGINAL: one place for import and the record editor.
#include <initializer_list>
#include <string>

#include "common/numbers.h"
#include "common/text.h"
#include "coords/original.h"

namespace talpena {
namespace {

constexpr std::string_view latitudeMask = "+00.00000;-00.00000";
constexpr std::string_view longitudeMask = "+000.00000;-000.00000";

/// "mgr" of a system.
std::string CodeMinuscule(CoordSystem system) { return Minuscules(InfoDe(system).code); }

std::string Joint(CoordSystem system, std::initializer_list<std::string_view> texts) {
  return AssembleTextes(system, {texts.begin(), texts.size()});
}

}  // namespace

std::string AssembleTextes(CoordSystem system, std::span<const std::string_view> texts) {
  std::string original = CodeMinuscule(system);
  for (const std::string_view text : texts) original.append(" ").append(text);
  return original;
}

std::string AssembleNombres(CoordSystem system, std::span<const double> numbers) {
  const bool angles = InfoDe(system).notation == Notation::TwoAngles;
  std::string original = CodeMinuscule(system);
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const std::string_view mask = i == 0 ? latitudeMask : longitudeMask;
    original += ' ' + (angles ? Format(numbers[i], mask) : Str(numbers[i]));
  }
  return original;
}

std::string AssembleReference(CoordSystem system, std::string_view reference) {
  const Notation notation = InfoDe(system).notation;
  if (notation == Notation::Square) return Joint(system, {reference});
  const std::string text = Majuscules(reference);
  const std::string_view whole = text;
  const bool mgrs = notation == Notation::Mgrs;
  if (CompteCaracteres(whole) < (mgrs ? 5U : 4U)) return {};
  const std::string_view head = PremiersCaracteres(whole, 2);
  const std::string_view rest = whole.substr(head.size());
  if (!mgrs) return Joint(system, {head, rest});
  const std::string_view band = PremiersCaracteres(rest, 1);
  return Joint(system, {head, band, rest.substr(band.size())});
}

}  // namespace talpena
