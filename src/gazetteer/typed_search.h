// The search while typing: the whole gazetteer in memory, read in steps that nobody waits for.
#pragma once
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "gazetteer/file_records.h"
#include "gazetteer/gazetteer_context.h"
#include "gazetteer/gazetteer_file.h"
#include "gazetteer/place_index.h"
#include "gazetteer/place_list.h"
#include "store/record/record_screen.h"

namespace talpena {

/// One line of what was found.
struct TypedPlace {
  PlaceItem lieu;
  PlaceMatch match = PlaceMatch::Plain;
  std::optional<GeoPoint> point;
  std::optional<double> km;  ///< to the nearest record of the file
};

class TypedSearch {
 public:
  /// Begins to read the gazetteer of the settings, and takes the records of the open file. What was
  /// read is kept as long as neither changed. A table that was never read before is taken over by
  /// the engine first, which shows how far it is and may be given up. Raises what is raised there;
  /// nothing is found then.
  void Commence(GazetteerContext c);

  /// The next step, of some milliseconds at most but for the one that puts the names in their
  /// order; false when nothing is left to do.
  bool Avance();

  /// All names are there. Distances may follow: once they are known searches have another order.
  bool EstPret() const { return etape_ > Step::Read; }

  /// What was read is no longer what the settings and the disk say: Commence reads it anew.
  bool EstPerime(GazetteerContext c) const;

  /// The first places for a text as it was typed; none before EstPret. Nearest first by the point
  /// `near`, or else by the nearest record of the file; without both in alphabetical order.
  std::vector<TypedPlace> Cherche(std::string_view typed, std::optional<GeoPoint> near);

  const FileRecords& Lignes() const { return lignes_; }

 private:
  enum class Step { Nothing, Read, Measure, Done };

  void Ouvre(GazetteerContext c);
  void LitLignes(GazetteerContext c);
  bool LitNoms();

  Step etape_ = Step::Nothing;
  OpenGazetteer base_;
  std::string lu_;  ///< what was read: the gazetteer's stamp and the names of its fields
  PlaceList liste_;
  std::size_t prochain_ = 0;  ///< row
  PlaceIndex index_;
  FileRecords lignes_;
  Subscription suivi_;
  bool lignesChangees_ = true;
};

/// The point of a record form; empty as long as it has none.
std::optional<GeoPoint> PointDeLaFiche(const RecordScreen& fiche);

}  // namespace talpena
