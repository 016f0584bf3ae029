// Set-up files of the gazetteer, .cfg: where it is, what its fields are called and how its
// coordinates are written. 18 lines in code page 1252.
#pragma once
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "common/talpena_error.h"
#include "platform/files.h"
#include "platform/import_file.h"

namespace talpena {

/// Lists of frmGeoSetup: the table, and the fields behind it in the order of the file.
enum class GeoList : std::size_t {
  Table,
  Research,
  FullName,
  Latitude,
  Longitude,
  Fips,
  Province,
  Feature,
  CountryName,
  ProvinceName,
};
inline constexpr std::size_t GeoListCount = 10;
/// Of these, the first are required; the others begin with an empty entry.
inline constexpr std::size_t GeoRequiredCount = 5;

template <typename Element>
using PerGeoList = std::array<Element, GeoListCount>;

struct SetupFile {
  std::string File;    ///< the database, or the folder of the tables
  std::string DbType;  ///< connect string
  std::string Datum;
  PerGeoList<std::string> Noms{};
  std::array<bool, 2> Option1{};  ///< sorted by the locality, by FIPS
  std::array<bool, 2> Option2{};  ///< DDMMSS, decimal degrees

  friend bool operator==(const SetupFile&, const SetupFile&) = default;
};

/// What a file gave. The older form has no first line and no names of country and province, which
/// are empty then.
struct SetupRead {
  SetupFile setup;
  bool ancien = false;
  std::size_t valeurs = 0;            ///< how many of `setup` were read, in the order of the file
  std::optional<TalpenaError> echec;  ///< why not all

  bool Donne(std::size_t value) const { return value < valeurs; }
};

/// Places of values in the order of the newer form, for SetupRead::Donne.
namespace SetupValue {
inline constexpr std::size_t File = 0, DbType = 1, Datum = 2, Nom = 3, Option = Nom + GeoListCount,
                             Count = Option + 4;
}

/// Reads the fields of a set-up. InputPastEnd (62) with words of its own for a file that ends
/// early, and what the field reader raises, are kept in `echec`.
SetupRead LitSetup(ImportFile file);

/// The 18 lines of the newer form, CR LF behind each; "?" for what the code page lacks.
std::string LignesSetup(const SetupFile& setup);

/// The first text that reading would not give back (a comma cuts it, the code page lacks a
/// character ...); empty when all would come back.
std::optional<std::string> SetupPerdu(const SetupFile& setup);

}  // namespace talpena
