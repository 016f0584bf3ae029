#include "platform/foreign/jet_writer.h"

#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <list>
#include <set>
#include <span>
#include <utility>
#include <vector>

#include "common/talpena_error.h"
#include "common/text.h"
#include "platform/foreign/errors.h"
#include "platform/foreign/jet/catalogue.h"
#include "platform/foreign/jet/header.h"
#include "platform/foreign/jet/page_file.h"
#include "platform/foreign/jet/properties.h"
#include "platform/foreign/jet/table_writer.h"
#include "platform/foreign/jet/usage_map.h"
#include "platform/foreign/rows_of_file.h"

namespace talpena {
namespace {

using namespace jet;

constexpr std::uint32_t globalMapPage = 1;

/// Now, by the clock on the wall, in days since 1899-12-30.
double MaintenantEnJours() {
  constexpr double epoch = 25569, secondsOfDay = 86400;
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return epoch + static_cast<double>(now + local.tm_gmtoff) / secondsOfDay;
}

/// Raises what is wrong with a table, before anything is written.
void VerifieDefinition(const TableDef& table) {
  constexpr int longestText = 255;
  if (!EstNomJet(table.name)) throw foreign::NomRefuse(table.name);
  if (!table.indexes.empty()) throw foreign::NonEcrit("an index of a table in an Access file");
  std::set<std::string> names;
  for (const FieldDef& field : table.fields) {
    if (!EstNomJet(field.name)) throw foreign::NomRefuse(field.name);
    const bool sized =
        field.type != FieldType::Text || (field.size >= 1 && field.size <= longestText);
    if (!sized || !names.insert(Minuscules(field.name)).second) throw foreign::DefinitionRefusee();
  }
  if (names.empty()) throw foreign::DefinitionRefusee();
}

bool EstDuCatalogue(std::string_view name) {
  return std::ranges::any_of(SystemTableNames,
                             [&](std::string_view own) { return EgalSansCasse(own, name); });
}

/// A table of the user's with the maps of its own pages.
struct NewTable {
  NewTable(PageFile& file, const TableDef& table)
      : definition(table),
        page(file.Alloue()),
        maps(file, 0),
        writer(file, maps, page, TableKind::User, DisposeColonnes(table.fields)) {}

  void Ecrit() {
    writer.Ecrit();
    maps.Ecrit();
  }

  TableDef definition;
  std::uint32_t page;
  MapRows maps;
  TableWriter writer;
};

class BaseEcrite final : public ForeignDatabase {
 public:
  BaseEcrite(const std::string& path, std::size_t most, JetOpener opener)
      : file_(path, most),
        opener_(std::move(opener)),
        head_(file_.Alloue()),
        globalRows_(file_, globalMapPage),
        freePages_(file_, globalRows_),
        reserved_(file_, globalRows_),
        catalogue_(file_, MaintenantEnJours()) {
    const Page page = PageDeTete();
    file_.Ecrit(head_, {page.data(), page.size()});
    Acheve();
  }

  std::vector<TableDef> Tables() override {
    std::vector<TableDef> definitions;
    for (const NewTable& table : tables_) definitions.push_back(table.definition);
    return definitions;
  }

  std::unique_ptr<RowSource> Rows(std::string_view table) override;
  std::int64_t NombreLignes(std::string_view table) override {
    const NewTable* const found = Trouve(table);
    return found == nullptr ? 0 : found->writer.Lignes();
  }

  void CreeTable(const TableDef& table) override {
    VerifieDefinition(table);
    if (Trouve(table.name) != nullptr || EstDuCatalogue(table.name)) {
      throw foreign::TableExiste(table.name);
    }
    const std::string properties = Proprietes(table.fields);
    tables_.emplace_back(file_, table);
    try {
      catalogue_.AjouteTable(table.name, tables_.back().page, properties);
    } catch (...) {
      tables_.pop_back();
      throw;
    }
    tables_.back().Ecrit();
    Acheve();
  }

  std::int64_t InsereLignes(std::string_view table, RowSource& rows) override;

 private:
  NewTable* Trouve(std::string_view name) {
    const auto found = std::find_if(tables_.begin(), tables_.end(), [&](const NewTable& t) {
      return EgalSansCasse(t.definition.name, name);
    });
    return found == tables_.end() ? nullptr : &*found;
  }

  /// Writes what concerns the whole file: the catalogue, and which pages are free.
  void Acheve() {
    catalogue_.Ecrit();
    freePages_.Utilise(file_.PagesDeBits());
    freePages_.Remplace(file_.Pages(), freePages_.Fin());
    freePages_.Ecrit();
    globalRows_.Ecrit();
    file_.Acheve();
  }

  PageFile file_;
  JetOpener opener_;
  std::uint32_t head_;
  MapRows globalRows_;
  UsageMap freePages_;
  UsageMap reserved_;  ///< stays empty
  SystemCatalogue catalogue_;
  std::list<NewTable> tables_;
};

// The file is read as any other.
std::unique_ptr<RowSource> BaseEcrite::Rows(std::string_view table) {
  return std::make_unique<RowsOfFile>(opener_(file_.Chemin()), table);
}

std::int64_t BaseEcrite::InsereLignes(std::string_view table, RowSource& rows) {
  NewTable* const found = Trouve(table);
  if (found == nullptr) throw foreign::TableIntrouvable(table);
  std::vector<Cell> cells(found->definition.fields.size());
  try {
    while (rows.Suivante(cells)) found->writer.Ajoute(cells);
  } catch (...) {
    found->Ecrit();
    Acheve();
    throw;
  }
  found->Ecrit();
  Acheve();
  return found->writer.Lignes();
}

}  // namespace

bool EstNomJet(std::string_view name) {
  constexpr std::size_t longest = 64;
  const auto refused = [](char c) {
    return static_cast<unsigned char>(c) < ' ' ||
           std::string_view(".!`[]").find(c) != std::string_view::npos;
  };
  return !name.empty() && name.front() != ' ' && CompteCaracteres(name) <= longest &&
         std::none_of(name.begin(), name.end(), refused);
}

std::unique_ptr<ForeignDatabase> CreeBaseJet(const std::string& path, const NewDatabase& settings,
                                             std::size_t most, JetOpener opener) {
  if (settings != NewDatabase{}) {
    throw TalpenaError(ErrorNumber::InvalidArgument, "Invalid argument.");
  }
  // Below 2 GB by a page: programs of 32 bits count no further.
  constexpr std::size_t largest = (std::size_t{2} << 30) - taillePage;
  return std::make_unique<BaseEcrite>(path, std::min(most, largest), std::move(opener));
}

}  // namespace talpena
