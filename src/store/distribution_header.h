// What a .deg file says of its rows as a whole.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace talpena {

/// One free field of the current file.
struct FreeFieldDef {
  std::string Label;       ///< shown beside the field, untrimmed
  std::string Code;        ///< identifier such as "STAT.TOPO", untrimmed
  std::int16_t Width = 0;  ///< numeric parse of the definition's third item
  bool operator==(const FreeFieldDef&) const = default;
};

/// Datum, free fields, periods, title and comment of the open file.
struct DistributionHeader {
  std::string DatumFichierCode = "EUR-M";  ///< datum of LATITUDE and LONGITUDE
  std::int16_t DatumFichier = 0;           ///< its index, 0 when the catalogue lacks it

  std::vector<FreeFieldDef> FreeFieldDefs;
  std::int16_t FreeFieldCount = 0;
  std::string FreeFieldSeparator = "/";
  std::string FreeFieldText;  ///< the header's block: separator line and definitions, CR LF between

  std::int16_t NbPivots = 0;  ///< 0 one period, 1 two, 2 three
  std::int16_t Pivot1 = 0;
  std::int16_t Pivot2 = 0;

  std::string TitreFichier;  ///< title line read last
  std::string BoxTitre;      ///< the title as it stands now, and as a save writes it
  std::string Commentaire;   ///< likewise

  bool operator==(const DistributionHeader&) const = default;
};

}  // namespace talpena
