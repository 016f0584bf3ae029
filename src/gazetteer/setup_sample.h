// The first rows of a table, as the gazetteer that is being set up would read them.
#pragma once
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "gazetteer/field_guess.h"
#include "gazetteer/gazetteer_file.h"
#include "gazetteer/geo_setup.h"
#include "gazetteer/place_item.h"

namespace talpena {

struct SampleRow {
  PlaceItem lieu;
  bool utilisable = false;  ///< it has a name and a point
};

/// Rows with a name and a point, of all.
struct SampleTally {
  std::int64_t utilisables = 0;
  std::int64_t lignes = 0;
};

/// They are read through the copy of the table that the query keeps too: once a table was looked
/// at here, the first search finds it read.
class SetupSample {
 public:
  static constexpr std::size_t most = 20;  ///< rows that are kept

  SetupSample(CommandContext c, const GeoSetup& setup) : c_(c), setup_(setup) {}

  /// Nothing is read, nothing proposed.
  void Oublie();
  /// Reads the first rows of the chosen table and thinks of fields for the lists in which none is
  /// chosen. What cannot be read is told in the common box and shows nothing.
  void Lit();

  /// What is proposed for a list; "" where a field is chosen or none comes to mind.
  std::string Propose(GeoList list) const;
  bool Propose() const;  ///< for any list
  /// How coordinates are written, where fields are proposed for them.
  std::optional<int> ProposeOption2() const;

  /// The rows by the fields that are chosen or proposed; none as long as name and coordinates have
  /// no field.
  std::vector<SampleRow> Lignes() const;
  /// Name and coordinates have fields.
  bool PeutEssayer() const { return Champs(champs_).has_value(); }
  /// Reads the whole table for that, and the first rows when they were not read; empty when it
  /// cannot be read, which is told, when the user gives up and when name or coordinates have no
  /// field.
  std::optional<SampleTally> Essaie();

 private:
  void LitLignes(Database& base);
  std::optional<SampleTally> Compte(Database& base);
  SharedState Reglages() const;
  std::string Champ(GeoList list) const;
  std::optional<PlaceFields> Champs(const std::vector<FieldDef>& given) const;
  std::int16_t CoordType() const;

  CommandContext c_;
  const GeoSetup& setup_;
  SharedState lus_;  ///< the settings under which the table was read
  OpenGazetteer base_;
  std::vector<FieldDef> champs_;  ///< of the rows
  SampleRows rows_;
  FieldGuess guess_;
};

}  // namespace talpena
