// The maker's own tables of an Access file (Jet 4): what objects there are, and who may do what.
#pragma once
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/foreign/jet/page_file.h"
#include "platform/foreign/jet/table_writer.h"
#include "platform/foreign/jet/usage_map.h"

namespace talpena::jet {

/// Their names. Saved queries and relationships have their tables too, which stay empty.
inline constexpr std::array<std::string_view, 4> SystemTableNames{
    "MSysObjects", "MSysACEs", "MSysQueries", "MSysRelationships"};

class SystemCatalogue {
 public:
  /// Makes the catalogue of an empty database; its first table is defined on page 2, so two pages
  /// have to be given out before.
  ///
  /// @param now  the moment that objects are said to be made at, days since 1899-12-30
  SystemCatalogue(PageFile& file, double now);

  /// Enters a user's table. NotSupported (3251) when the catalogue has no place for it.
  ///
  /// @param page        of its definition
  /// @param properties  as Proprietes gives them
  void AjouteTable(std::string_view name, std::uint32_t page, std::string_view properties);
  void Ecrit();

 private:
  struct Object;

  void AjouteObjet(const Object& object);
  void AjouteDroit(std::int32_t object, std::int32_t rights, bool inherited, std::string_view who);

  double now_;
  std::array<std::uint32_t, SystemTableNames.size()> pages_;  ///< of the definitions
  MapRows maps_;
  TableWriter objects_;
  TableWriter rights_;
  TableWriter queries_;
  TableWriter relationships_;
};

}  // namespace talpena::jet
