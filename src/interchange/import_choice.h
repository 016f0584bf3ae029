// What frmImportation asks for: a text file and the coordinate system that it is written in.
#pragma once
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "coords/systems.h"
#include "interchange/rehearsal_plan.h"
#include "interchange/state.h"
#include "platform/platform.h"
#include "store/state.h"

namespace talpena {

/// The state of the dialog beside its controls. Opens on the choice of before.
class ImportChoice {
 public:
  using Texts = std::array<std::string, CoordSystemCount>;  ///< one per system, in their order

  ImportChoice(StoreState& state, InterchangeState& interchange, Platform& io);

  Texts Systemes() const;  ///< captions of the list
  /// What a line of the file should hold, per system.
  Texts StructureAttendue() const;

  int Indice() const { return index_; }  ///< of the list, 0 to 15
  void ChoisitSysteme(int index) { index_ = index; }
  const std::string& Fichier() const { return path_; }  ///< full path; "" for none
  /// Its first three lines, joined by CR; "" when it cannot be read.
  const std::string& Apercu() const { return preview_; }

  /// Asks for the file; false when the user gave up. A failure of the preview is shown.
  bool Parcourt();
  /// Notes the choice: from now on it is that of the next opening, and the answer to the command.
  void Ok();
  /// The system alone is kept.
  void Annule();

  /// True once when the file is another one than at the last call, or gone; its preview is new.
  bool FichierAChange();
  /// The import that OK would make; no file: nothing to rehearse.
  std::optional<RehearsalPlan> Plan() const;
  /// The open file holds rows of the list as it stands, which came in since the program began.
  bool DejaImportee() const;
  /// What is to be said of the list and the system, in the language of the interface.
  std::vector<std::string> Notes() const;

 private:
  CoordSystem Systeme() const { return static_cast<CoordSystem>(index_); }
  void UpdateInfoFile();
  void Repond(int index);

  StoreState& state_;
  InterchangeState& interchange_;
  Platform& io_;
  int index_;
  std::string path_;
  std::string preview_;
  std::optional<FileStamp> stamp_;
};

}  // namespace talpena
