// The user's settings as process globals; read and written as a whole by the shell.
#pragma once
#include <array>
#include <cstdint>
#include <string>

namespace talpena {

struct SettingsState {
  std::int16_t Langue = 1000;  ///< 1000 x language index, added to every text id

  // Grid: the window's place in twips, the widths of grid columns 0 to 9, colours as 0xBBGGRR or
  // a system colour number (0x80000000 and above).
  float GrilleHauteur = 0;
  float GrilleLargeur = 0;
  float GrilleHaut = 0;
  float GrilleGauche = 0;
  std::int16_t EtatFenetre = 2;  ///< 0 normal, 1 minimised, 2 maximised
  std::array<float, 10> LargeurColonnes{734, 945, 1035, 375, 450, 500, 810, 2400, 1110, 3570};
  std::uint32_t CouleurFondGrille = 0xE0FFFF;
  std::uint32_t CouleurTexteGrille = 0x80000008;  ///< the system's window text

  std::string LabelNumeric1 = "Number 1";
  std::string LabelNumeric2 = "Number 2";
  std::string SeparateurChamps = ",";
  std::int16_t EllipsoideReglage = 15;
  std::int16_t InputMode = 3;
  std::int16_t UtmAjust = 0;
  std::int16_t GridAjust = 0;
  std::int16_t ExportPeriod = 1;
  std::int16_t ExportLatitude = 1;
  std::int16_t ExportLongitude = 1;
  std::int16_t ExportNumber1 = 1;
  std::int16_t ExportNumber2 = 1;
  std::int16_t ExportEllipsoid = 1;
  std::int16_t ExportOriginalCoord = 1;
  std::int16_t ExportDate = 1;
  std::int16_t ExportFreeField = 1;
  std::int16_t ExportSex = 1;
  std::int16_t ExportCoordSystem = -1;
  bool Silence = false;
  std::int16_t SaveInterval = 5;  ///< ticks of Timer1 between two automatic saves
  bool AutoSave = false;

  std::array<std::uint32_t, 3> SymbolColor{255, 65535, 65280};
  std::uint32_t StrokeColor = 0;
  float DiamPoints = -1;  ///< negative: automatic

  // Gazetteer.
  std::string GeoFile;
  std::int16_t GeoSort = 0;
  std::string GeoTable = "TLPGazet_Decoding";
  std::string GeoResearchField = "Sort_Name";
  std::string GeoLatitudeField = "Latitude";
  std::string GeoLongitudeField = "Longitude";
  std::string GeoFullNameField = "Full_Name";
  std::string GeoFipsField = "FIPS_QRN";
  std::string GeoProvinceField;
  std::string GeoFeatureField = "Feature_Desig_Code";
  std::int16_t GeoCoordType = 1;
  std::string GeoCountryName = "Country_Name";
  std::string GeoProvinceName = "Province_Name";
  std::string GeoDatum = "WGS84";
  std::string GeoDbType;

  std::array<std::string, 4> LastFiles;  ///< newest first
  std::string LastDeg;  ///< folder of the last opened file, as the start found it; Open keeps it
};

/// What every subsystem reads: the settings and the program's folders.
struct SharedState : SettingsState {
  std::string AppDir;         ///< folder of the program's own files, without a separator behind
  std::string WorkingDir;     ///< folder of the working database, separator behind it unless empty
  std::string WorkingDbPath;  ///< WorkingDir + "talpena_tmp.mdb"
};

}  // namespace talpena
