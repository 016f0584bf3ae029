#include "store/record/input_boxes.h"

#include <array>
#include <vector>

#include "common/text.h"
#include "coords/original.h"
#include "coords/tokens.h"

namespace talpena {
namespace {

constexpr std::array allBoxes{0, 1, 2};
constexpr std::size_t codeSize = 3;

/// Blanks of every kind that come in with a pasted text.
constexpr std::array<std::string_view, 8> blanks{" ",      "\t",     "\n",     "\r",
                                                 "\u00A0", "\u2007", "\u2009", "\u202F"};

const std::string& Boite(const RecordScreen& ecran, int box) {
  return ecran.EditBox[static_cast<std::size_t>(box)];
}

}  // namespace

std::span<const int> BoitesDe(CoordSystem system) {
  return std::span<const int>(allBoxes).last(InfoDe(system).tokens);
}

bool EstNumeriqueSysteme(CoordSystem system) {
  return InfoDe(system).content != Content::Reference;
}

std::string TexteDeBoite(CoordSystem system, std::string_view typed) {
  std::string text(typed);
  for (const std::string_view blank : blanks) text = Remplace(text, blank, "");
  if (EstNumeriqueSysteme(system)) RemplaceCar(text, ',', '.');
  return Majuscules(text);
}

void NettoieBoites(RecordScreen& ecran) {
  for (std::string& box : ecran.EditBox) box = TexteDeBoite(ecran.system, box);
}

void RemplitBoites(RecordScreen& ecran, std::string_view original) {
  std::string_view first, second, third;
  switch (InfoDe(ecran.system).tokens) {
    case 1: {
      const std::string code = Remplace(original, " ", "");
      if (code.size() > codeSize) ecran.EditBox[2] = code.substr(codeSize);
      return;
    }
    case 2:
      DecoupeDeux(original, second, third);
      break;
    default:
      DecoupeTrois(original, first, second, third);
  }
  ecran.EditBox = {std::string(first), std::string(second), std::string(third)};
}

bool BoitesRemplies(const RecordScreen& ecran) {
  for (const int box : BoitesDe(ecran.system)) {
    if (Boite(ecran, box).empty()) return false;
  }
  return true;
}

std::string OriginalDesBoites(const RecordScreen& ecran) {
  std::vector<std::string_view> texts;
  for (const int box : BoitesDe(ecran.system)) {
    if (!Boite(ecran, box).empty()) texts.push_back(Boite(ecran, box));
  }
  return AssembleTextes(ecran.system, texts);
}

std::string CleReference(const RecordScreen& ecran) {
  return OriginalDesBoites(ecran) + "|" + ecran.lblDatum;
}

}  // namespace talpena
