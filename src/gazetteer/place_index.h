// The names of a gazetteer in memory, for the search while typing.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "gazetteer/nearest_record.h"

namespace talpena {

/// How a name meets what was typed, the best first.
enum class PlaceMatch : std::uint8_t {
  Begins,    ///< begins with it, without regard to case
  Contains,  ///< contains it
  Plain,     ///< contains it without accents, blanks, hyphens and apostrophes
};

struct PlaceHit {
  std::size_t row = 0;  ///< in the order of Ajoute
  PlaceMatch match = PlaceMatch::Plain;
  std::optional<double>
      km;  ///< from the point asked about; empty without one or a place of its own
};

/// Some 50 bytes a place. Searching changes nothing.
class PlaceIndex {
 public:
  /// The next row: its name as it is shown, and where it is. Call Termine behind the last.
  void Ajoute(std::string_view name, std::optional<GeoPoint> point);
  void Termine();

  /// Behind Termine: how far the next `count` places are from the nearest of these records. False
  /// once all are measured; from then on searches without a point give the nearest first.
  bool Mesure(const NearestRecord& records, std::size_t count);
  void OublieMesures() { kms_.clear(); }

  std::size_t Nombre() const { return points_.size(); }

  /// The fewest letters, as FormeSimple has them, that are looked for.
  static constexpr std::size_t FewestLetters = 2;

  /// The best `most` places for a text as it was typed: by their match, of each kind those first
  /// that are called exactly so, then those that begin so; then the nearest to `near` first,
  /// without a point by their measures or in alphabetical order. Places without a point go last.
  std::vector<PlaceHit> Cherche(std::string_view typed, std::optional<GeoPoint> near,
                                std::size_t most = 50) const;

 private:
  struct Candidate;
  struct Search;

  bool EstMesure() const { return !rows_.empty() && kms_.size() == rows_.size(); }
  void Trouve(Search& search, std::uint32_t rank) const;
  std::string_view Simple(std::uint32_t rank) const;
  std::string_view Nom(std::uint32_t rank) const;
  PlaceMatch Correspond(std::uint32_t rank, const Search& search) const;
  void AjouteDebuts(Search& search) const;
  void AjouteContenus(Search& search) const;
  std::pair<std::uint32_t, std::uint32_t> Debuts(const std::string& plain) const;

  // By rows while rows are added; by ranks, the order of the plain forms, behind Termine.
  std::string plain_;                    ///< plain forms, each with a NUL behind it
  std::vector<std::uint32_t> starts_;    ///< of each in plain_; one more for the end
  std::string names_;                    ///< small letters, of the names that differ from these
  std::vector<std::uint32_t> nameAt_;    ///< where in names_; SameAsPlain when it does not
  std::vector<SphereDirection> points_;  ///< NaN for none
  std::vector<std::uint32_t> rows_;      ///< by ranks
  std::vector<float> kms_;               ///< to the nearest record, by ranks, as far as measured
};

}  // namespace talpena
