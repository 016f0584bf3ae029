#include "platform/foreign/jet/properties.h"

#include <array>
#include <string_view>

#include "platform/foreign/jet/bytes.h"
#include "platform/foreign/jet/text.h"

namespace talpena::jet {
namespace {

constexpr std::string_view head{"MR2\0", 4};
constexpr std::uint16_t namesBlock = 0x0080;
constexpr std::uint16_t columnBlock = 0x0001;

enum Property : std::uint16_t { Required, AllowZeroLength };
constexpr std::array<std::string_view, 2> propertyNames = {"Required", "AllowZeroLength"};

void AjouteTexteCompte(std::string& out, std::string_view text) {
  std::string wide;
  AjouteTexte(wide, text, TextForm::Wide);
  Ajoute16(out, wide.size());
  out += wide;
}

void AjouteBloc(std::string& out, std::uint16_t kind, const std::string& content) {
  constexpr std::size_t own = 6;
  Ajoute32(out, static_cast<std::uint32_t>(own + content.size()));
  Ajoute16(out, kind);
  out += content;
}

void AjouteOuiNon(std::string& out, Property property, bool value) {
  constexpr std::size_t length = 9;
  constexpr char definesTable = 1, yesNo = 1;
  Ajoute16(out, length);
  out += definesTable;
  out += yesNo;
  Ajoute16(out, property);
  Ajoute16(out, 1);
  out += static_cast<char>(value ? 1 : 0);
}

std::string ProprietesDe(const FieldDef& field) {
  std::string values;
  if (field.type == FieldType::Text || field.type == FieldType::Memo) {
    AjouteOuiNon(values, Required, field.required);
    AjouteOuiNon(values, AllowZeroLength, field.allowZeroLength);
  } else if (field.required) {
    AjouteOuiNon(values, Required, true);
  }
  return values;
}

std::string Nom(const FieldDef& field) {
  std::string name;
  AjouteTexteCompte(name, field.name);
  std::string counted;
  Ajoute32(counted, static_cast<std::uint32_t>(4 + name.size()));
  return counted + name;
}

}  // namespace

std::string Proprietes(const std::vector<FieldDef>& fields) {
  std::string blocks;
  for (const FieldDef& field : fields) {
    const std::string values = ProprietesDe(field);
    if (!values.empty()) AjouteBloc(blocks, columnBlock, Nom(field) + values);
  }
  if (blocks.empty()) return {};
  std::string names;
  for (const std::string_view name : propertyNames) AjouteTexteCompte(names, name);
  std::string all(head);
  AjouteBloc(all, namesBlock, names);
  return all + blocks;
}

}  // namespace talpena::jet
