#include "platform/foreign/excel/xlsx_package.h"

#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "platform/foreign/excel/xml_part.h"

namespace talpena::excel {
namespace {

constexpr std::size_t mostSheets = 1024, mostLinks = 65536;

/// What a part refers to.
struct Link {
  std::string id, kind, target;
};

class LinkHandler final : public XmlHandler {
 public:
  void Debut(std::string_view name, const XmlAttributes& attributes) override {
    if (name != "Relationship") return;
    const auto id = attributes.Valeur("Id"), kind = attributes.Valeur("Type"),
               target = attributes.Valeur("Target");
    if (!id || !kind || !target || links.size() == mostLinks) return Echoue();
    // The kind is an address, of which the last word counts.
    links.push_back(
        {std::string(*id), std::string(kind->substr(kind->rfind('/') + 1)), std::string(*target)});
  }

  std::vector<Link> links;
};

/// A sheet of the workbook and the id of its part.
class SheetHandler final : public XmlHandler {
 public:
  void Debut(std::string_view name, const XmlAttributes& attributes) override {
    if (name != "sheet") return;
    const auto sheet = attributes.Valeur("name"), id = attributes.Valeur("id");
    if (!sheet || !id || sheets.size() == mostSheets) return Echoue();
    const std::string_view state = attributes.Valeur("state").value_or("visible");
    sheets.push_back(
        {{.name = std::string(*sheet), .hidden = state != "visible"}, std::string(*id)});
  }

  std::vector<std::pair<SheetInfo, std::string>> sheets;
};

/// A target as the name of a part; it may lead from the folder of the part that names it.
std::string NomDePartie(const std::string& folder, std::string_view target) {
  if (target.starts_with('/')) return std::string(target.substr(1));
  std::string from = folder;
  while (target.starts_with("../") && !from.empty()) {
    target.remove_prefix(3);
    from.resize(from.size() - 1);
    from.resize(from.rfind('/') == std::string::npos ? 0 : from.rfind('/') + 1);
  }
  if (target.starts_with("./")) target.remove_prefix(2);
  return from + std::string(target);
}

/// The links of a part, their targets as names of parts.
std::vector<Link> LitLiens(const ZipFile& file, const std::string& part) {
  const std::size_t slash = part.rfind('/');
  const std::string folder = slash == std::string::npos ? "" : part.substr(0, slash + 1);
  LinkHandler handler;
  XmlPart(file, file.Partie(folder + "_rels/" + part.substr(folder.size()) + ".rels"), handler)
      .LitTout();
  for (Link& link : handler.links) link.target = NomDePartie(folder, link.target);
  return std::move(handler.links);
}

std::string PartieDuClasseur(const ZipFile& file) {
  for (const Link& link : LitLiens(file, "")) {
    if (link.kind == "officeDocument") return link.target;
  }
  file.Refuse();
}

}  // namespace

XlsxPackage LitPaquet(const ZipFile& file) {
  const std::string workbook = PartieDuClasseur(file);
  XlsxPackage package;
  std::map<std::string, std::string> sheetParts;
  for (const Link& link : LitLiens(file, workbook)) {
    if (link.kind == "worksheet") sheetParts[link.id] = link.target;
    if (link.kind == "sharedStrings") package.texts = link.target;
  }
  SheetHandler handler;
  XmlPart(file, file.Partie(workbook), handler).LitTout();
  std::set<std::string> seen;
  for (auto& [sheet, id] : handler.sheets) {
    const auto part = sheetParts.find(id);
    if (part == sheetParts.end()) continue;  // a chart
    if (!seen.insert(part->second).second) file.Refuse();
    package.sheets.push_back(std::move(sheet));
    package.parts.push_back(part->second);
  }
  return package;
}

}  // namespace talpena::excel
