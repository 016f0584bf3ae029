#include "platform/foreign/jet/catalogue.h"

#include <span>
#include <vector>

#include "platform/foreign/errors.h"
#include "platform/foreign/jet/catalogue_tables.h"

namespace talpena::jet {
namespace {

// Objects that every database has. Tables have the page of their definition as their number.
constexpr std::int32_t racine = 0x0F000000;
constexpr std::int32_t lesTables = 0x0F000001;
constexpr std::int32_t lesBases = 0x0F000002;
constexpr std::int32_t lesLiens = 0x0F000003;
constexpr std::int32_t laBase = 0x10000000;

constexpr auto system = static_cast<std::int32_t>(0x80000000);

// User ids, scrambled by the stamp of the first page (header.cpp).
constexpr std::string_view engine = "\xA7\x31";
constexpr std::string_view admin = "\xA6\x33";
constexpr std::string_view users = "\xA7\x33";
constexpr std::string_view creator = "\xA7\x36";

struct Right {
  std::int32_t object;
  std::int32_t rights;
  bool inherited;
  std::string_view who;
};

// As a database has them when nobody has locked anything.
constexpr Right firstRights[] = {
    {lesTables, 0x0F00FE, true, creator}, {lesTables, 0x0EFFFF, true, admin},
    {lesTables, 0x0EFFFF, true, users},   {lesBases, 0x060000, false, admin},
    {lesLiens, 0x0F00FE, true, creator},  {lesLiens, 0x060001, false, admin},
    {lesLiens, 0x0FFFFF, true, users},    {laBase, 0x06000E, false, admin},
    {laBase, 0x00000E, false, users},     {2, 0x060000, false, admin},
    {2, 0x000014, false, users},          {3, 0x060000, false, admin},
    {4, 0x060000, false, admin},          {4, 0x000014, false, users},
    {5, 0x0E0000, false, admin},          {5, 0x000014, false, users},
};
constexpr std::int32_t allRights = 0x0FFEFF;  // on a table of the user's

std::array<std::uint32_t, 4> AlloueQuatre(PageFile& file) {
  std::array<std::uint32_t, 4> pages{};
  for (std::uint32_t& page : pages) page = file.Alloue();
  return pages;
}

void Entre(TableWriter& table, std::span<const Cell> row) {
  if (!table.Tient(row)) throw foreign::NonEcrit("a file with so many tables");
  table.Ajoute(row);
}

Cell Nombre(std::int32_t value) { return Cell::Of(std::int64_t{value}); }

}  // namespace

struct SystemCatalogue::Object {
  enum Type : std::int16_t { ATable = 1, ADatabase = 2, AContainer = 3 };

  std::int32_t id = 0;
  std::int32_t parent = 0;
  Type type = ATable;
  std::string_view name;
  std::string_view owner = engine;
  std::int32_t flags = system;
  std::string_view properties = {};
};

SystemCatalogue::SystemCatalogue(PageFile& file, double now)
    : now_(now),
      pages_(AlloueQuatre(file)),
      maps_(file, 0),
      objects_(file, maps_, pages_[0], TableKind::System, TableDesObjets().columns,
               TableDesObjets().indexes),
      rights_(file, maps_, pages_[1], TableKind::System, TableDesDroits().columns,
              TableDesDroits().indexes),
      queries_(file, maps_, pages_[2], TableKind::System, TableDesRequetes().columns,
               TableDesRequetes().indexes),
      relationships_(file, maps_, pages_[3], TableKind::System, TableDesLiens().columns,
                     TableDesLiens().indexes) {
  AjouteObjet({lesTables, racine, Object::AContainer, "Tables"});
  AjouteObjet({lesBases, racine, Object::AContainer, "Databases"});
  AjouteObjet({lesLiens, racine, Object::AContainer, "Relationships"});
  AjouteObjet({laBase, lesBases, Object::ADatabase, "MSysDb", admin});
  for (std::size_t i = 0; i < SystemTableNames.size(); ++i) {
    AjouteObjet(
        {static_cast<std::int32_t>(pages_[i]), lesTables, Object::ATable, SystemTableNames[i]});
  }
  for (const Right& r : firstRights) AjouteDroit(r.object, r.rights, r.inherited, r.who);
}

void SystemCatalogue::AjouteObjet(const Object& object) {
  std::vector<Cell> row = {Nombre(object.id),      Nombre(object.parent), Cell::Of(object.name),
                           Nombre(object.type),    Cell::Of(now_),        Cell::Of(now_),
                           Cell::Of(object.owner), Nombre(object.flags)};
  constexpr std::size_t columns = 17, propertiesColumn = 14;
  row.resize(columns);
  if (!object.properties.empty()) row[propertiesColumn] = Cell::Of(object.properties);
  Entre(objects_, row);
}

void SystemCatalogue::AjouteDroit(std::int32_t object, std::int32_t rights, bool inherited,
                                  std::string_view who) {
  const Cell row[] = {Nombre(object), Cell::Of(who), Nombre(rights), Nombre(inherited ? -1 : 0)};
  Entre(rights_, row);
}

void SystemCatalogue::AjouteTable(std::string_view name, std::uint32_t page,
                                  std::string_view properties) {
  const auto id = static_cast<std::int32_t>(page);
  for (const std::string_view who : {admin, users}) AjouteDroit(id, allRights, false, who);
  AjouteObjet(
      {id, lesTables, Object::ATable, name, admin, 0, properties});  // last: it may be refused
}

void SystemCatalogue::Ecrit() {
  for (TableWriter* table : {&objects_, &rights_, &queries_, &relationships_}) table->Ecrit();
  maps_.Ecrit();
}

}  // namespace talpena::jet
