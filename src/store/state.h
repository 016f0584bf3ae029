// The open distribution, as process globals.
#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "coords/state.h"
#include "platform/files.h"
#include "platform/table_engine.h"
#include "store/data_control.h"

namespace talpena {

/// One free field of the current file.
struct FreeFieldDef {
  std::string Label;       ///< shown beside the field, untrimmed
  std::string Code;        ///< identifier such as "STAT.TOPO", untrimmed
  std::int16_t Width = 0;  ///< numeric parse of the definition's third item
};

struct StoreState : CoordState {
  std::unique_ptr<Database> WorkingDb;
  DataControl Data1;
  std::string SqlCourant = "SELECT * FROM TALPENA ORDER BY Counter";

  std::string DerniereCondition;  ///< of the filter that was on last; offered again

  bool FichierModifie = false;     ///< the table differs from the file on disk
  std::string NomFichier;          ///< full path of the open file; empty when it has none yet
  std::string TitreFichier;        ///< title line read last
  std::string CommentaireFichier;  ///< comment line read last
  bool NouveauEnCours = false;     ///< only while New shows the periods dialog
  /// Path that a save of this process left cut short or missing; its .BAK is the last whole state.
  std::string FichierIncomplet;
  bool LignesHorsFichier = false;  ///< the last save left out rows that a filter hid
  bool LecturePartielle = false;   ///< reading NomFichier failed: the table holds only part of it
  std::optional<FileStamp> EmpreinteFichier;  ///< NomFichier as this process read or wrote it

  std::vector<FreeFieldDef> FreeFieldDefs;
  std::int16_t FreeFieldCount = 0;
  std::string FreeFieldSeparator = "/";
  std::string FreeFieldText;  ///< the header's block: separator line and definitions, CR LF between

  std::int16_t NbPivots = 0;  ///< 0 one period, 1 two, 2 three
  std::int16_t Pivot1 = 0;
  std::int16_t Pivot2 = 0;

  std::string TexteCherche;    ///< what Find looked for last; "" before the first search
  std::string CritereCherche;  ///< its condition, which Next goes on with

  std::int16_t CompteurTimer = 0;  ///< ticks of Timer1 since the last automatic save
};

}  // namespace talpena
