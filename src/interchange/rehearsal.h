// An import before it is made: reads the whole file as the import would and tells what would become
// of every record. Nothing of the process changes.
#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "coord_commands/row_point_reader.h"
#include "coords/state.h"
#include "interchange/isolated_points.h"
#include "interchange/known_area.h"
#include "interchange/other_systems.h"
#include "interchange/rehearsal_plan.h"
#include "interchange/rehearsed_rows.h"
#include "interchange/table_points.h"

namespace talpena {

struct RehearsalCounts {
  std::int64_t enter = 0;
  std::int64_t dropped = 0;
  std::int64_t withoutPoint = 0;  ///< of those that enter
  std::int64_t far = 0;           ///< of those with a point: LoinKm from all others and the table's
  std::int64_t doubtful = 0;  ///< of those that enter: what is odd about their texts and numbers
  bool operator==(const RehearsalCounts&) const = default;
};

class Rehearsal {
 public:
  /// @param state         a copy of it is worked with: the current ellipsoid stays
  /// @param datumFichier  index of the datum of the file; 0 when the catalogue lacks it: no row
  ///                      gets a point then
  /// @param database      holds TALPENA
  Rehearsal(const CoordState& state, std::int16_t datumFichier, Database& database,
            RehearsalPlan plan);
  Rehearsal(const Rehearsal&) = delete;
  Rehearsal& operator=(const Rehearsal&) = delete;

  /// Works in small steps, of a row mostly, until `encore` answers false or all is done; false in
  /// the second case. Does not throw what the file or the table raise.
  bool Travaille(const std::function<bool()>& encore);
  /// Counts and rows are final; another system may still be looked for.
  bool EstLue() const { return step_ > Step::Lecture; }
  double Part() const { return reader_ ? reader_->Part() : 0; }  ///< of the file that was read

  const RehearsalCounts& Comptes() const { return counts_; }
  const RehearsedRows& Lignes() const { return rows_; }
  /// What would end the import before the end of the file.
  const std::optional<TalpenaError>& Arret() const { return failure_; }
  /// The line whose byte 1A ends the file though more stands behind it; 0 for none.
  std::int64_t LigneCoupee() const { return cutLine_; }
  /// Base id of what is to be said of a file that holds no record; 0 for nothing.
  int SansFiche() const;
  std::optional<SystemHint> Conseil() const { return others_ ? others_->Conseil() : std::nullopt; }

 private:
  /// The first rows come before those of the table, which may be many, are looked at.
  enum class Step : std::uint8_t { Preparation, Debut, Table, Lecture, Essais, Fin };

  void FaitUnPas();
  void Prepare();
  void LitFiche();
  void ParcourtTable();
  void QuitteTable();
  void CommenceEssais();
  void Interrompt(const TalpenaError& error);
  void Ajoute(const ImportRecord& record);

  CoordState state_;
  RehearsalPlan plan_;
  std::optional<RowPointReader> points_;  ///< none when the file has no datum
  TablePoints table_;
  IsolatedPoints isolated_;
  KnownArea near_;
  std::unique_ptr<ImportReader> reader_;
  std::optional<OtherSystems> others_;
  Step step_ = Step::Preparation;
  bool fileEnded_ = false;
  RehearsalCounts counts_;
  RehearsedRows rows_;
  std::optional<TalpenaError> failure_;
  std::int64_t cutLine_ = 0;
};

}  // namespace talpena
