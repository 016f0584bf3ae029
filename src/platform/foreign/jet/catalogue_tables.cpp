#include "platform/foreign/jet/catalogue_tables.h"

#include <utility>

namespace talpena::jet {
namespace {

Column Nombre32(const char* name) { return {.name = name, .type = JetType::Long, .bytes = 4}; }
Column Nombre16(const char* name) { return {.name = name, .type = JetType::Integer, .bytes = 2}; }
Column Moment(const char* name) { return {.name = name, .type = JetType::Date, .bytes = 8}; }
Column Texte255(const char* name) { return {.name = name, .type = JetType::Text, .bytes = 510}; }
Column Octets(const char* name) { return {.name = name, .type = JetType::Binary, .bytes = 510}; }
Column Usager(const char* name) {
  return {.name = name, .type = JetType::Binary, .bytes = 510, .userId = true};
}
Column Memo(const char* name) { return {.name = name, .type = JetType::Memo}; }
Column OctetsLongs(const char* name) { return {.name = name, .type = JetType::Ole}; }

SystemTable AvecPlaces(std::vector<Column> columns, std::vector<IndexShape> indexes) {
  DonnePlaces(columns);
  return {std::move(columns), std::move(indexes)};
}

IndexShape Index(const char* name, std::vector<std::size_t> columns, bool primary,
                 std::uint8_t flags) {
  return {.name = name,
          .columns = std::move(columns),
          .primary = primary,
          .flags = static_cast<std::uint8_t>(IndexFlag::Always | flags)};
}

}  // namespace

SystemTable TableDesObjets() {
  return AvecPlaces({Nombre32("Id"), Nombre32("ParentId"), Texte255("Name"), Nombre16("Type"),
                     Moment("DateCreate"), Moment("DateUpdate"), Usager("Owner"), Nombre32("Flags"),
                     Memo("Database"), Memo("Connect"), Texte255("ForeignName"),
                     Octets("RmtInfoShort"), OctetsLongs("RmtInfoLong"), OctetsLongs("Lv"),
                     OctetsLongs("LvProp"), OctetsLongs("LvModule"), OctetsLongs("LvExtra")},
                    {Index("ParentIdName", {1, 2}, false, IndexFlag::Unique),
                     Index("Id", {0}, true, IndexFlag::Unique)});
}

SystemTable TableDesDroits() {
  return AvecPlaces({Nombre32("ObjectId"),
                     Usager("SID"),
                     Nombre32("ACM"),
                     {.name = "FInheritable", .type = JetType::Boolean, .bytes = 1}},
                    {Index("ObjectId", {0}, false, IndexFlag::Required)});
}

SystemTable TableDesRequetes() {
  return AvecPlaces({Nombre32("ObjectId"),
                     {.name = "Attribute", .type = JetType::Byte, .bytes = 1},
                     Octets("Order"),
                     Texte255("Name1"),
                     Texte255("Name2"),
                     Memo("Expression"),
                     Nombre16("Flag"),
                     Nombre32("LvExtra")},
                    {Index("ObjectIdAttribute", {0, 1, 2}, true, IndexFlag::Unique)});
}

SystemTable TableDesLiens() {
  return AvecPlaces({Texte255("szRelationship"), Nombre32("grbit"), Nombre32("ccolumn"),
                     Nombre32("icolumn"), Texte255("szObject"), Texte255("szColumn"),
                     Texte255("szReferencedObject"), Texte255("szReferencedColumn")},
                    {Index("szRelationship", {0}, false, IndexFlag::IgnoreNulls),
                     Index("szObject", {4}, false, IndexFlag::IgnoreNulls),
                     Index("szReferencedObject", {6}, false, IndexFlag::IgnoreNulls)});
}

}  // namespace talpena::jet
