// Whether a file that is read in one coordinate system would suit another one far better.
#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "coord_commands/row_point_reader.h"
#include "interchange/known_area.h"
#include "interchange/rehearsal_plan.h"
#include "interchange/sphere_cells.h"

namespace talpena {

/// Another system in which far more rows lie near those of the table.
struct SystemHint {
  CoordSystem system = CoordSystem::Deg;
  std::int64_t near = 0;   ///< rows that do
  std::int64_t rows = 0;   ///< of so many
  bool beginning = false;  ///< these are only the first ones of the file
};

/// Reads the first rows of a file in the system that was chosen and, unless nearly all of them lie
/// near rows of the table, in the others, row by row.
class OtherSystems {
 public:
  /// @param points  reads rows on the datum of the file
  /// @param near    where the rows of the table lie
  OtherSystems(const RehearsalPlan& plan, RowPointReader& points, const KnownArea& near);

  /// One row, or the opening of the file; false when there is nothing left to do.
  bool Avance();
  const std::optional<SystemHint>& Conseil() const { return hint_; }

 private:
  struct Trial {
    std::int64_t near = 0;
    std::int64_t rows = 0;
    bool ended = false;  ///< by a failure: not all rows came
    bool beginning = false;
    std::optional<SpherePoint> first = {};  ///< point
    std::string original = {};              ///< of its row
    bool several = false;                   ///< rows have another ORIGINAL
    bool apart = false;                     ///< their points are not one place
    bool Complet() const { return near == rows; }
  };

  bool LitFiche();
  void Termine();
  void NotePoint(const ImportedRow& row, SpherePoint point);
  bool Convient() const;
  bool EstMeilleur() const;
  bool Suffit() const { return chosen_.near * 10 >= chosen_.rows * 9 && !chosen_.ended; }

  const RehearsalPlan& plan_;
  RowPointReader& points_;
  const KnownArea& near_;
  int next_ = -1;  ///< system under trial; -1 is the chosen one
  std::unique_ptr<ImportReader> reader_;
  Trial trial_, chosen_;
  std::optional<SystemHint> hint_;
};

}  // namespace talpena
