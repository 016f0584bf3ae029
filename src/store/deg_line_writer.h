// The lines of a .deg file, from values to bytes of code page 1252.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace talpena {

/// What one row line holds. Texts are UTF-8; an empty one fills its columns with blanks.
struct DegLine {
  std::int32_t period = 0;
  float latitude = 0;   ///< decimal degrees, north positive
  float longitude = 0;  ///< decimal degrees, east positive
  std::int32_t n1 = 0;
  std::int32_t n2 = 0;
  std::string_view date = {};
  std::string_view sex = {};
  std::string_view datum = {};
  std::string_view original = {};
  std::string_view comment = {};
};

/// Characters of one text that code page 1252 lacks, each once, in quotes, joined by ", ".
struct LackingCharacters {
  std::string_view column;  ///< "COMMENT", ...
  std::string characters;
};

/// The counts that every file seems to hold; nothing computes or reads them.
inline constexpr std::string_view LigneStatistiques =
    "NIND1=000001 OCC1=000001 CAR1=000001 NIND2=000001 OCC2=000001 CAR2=000001 NIND3=000001 "
    "OCC3=000001 CAR3=000001";

/// Adds a row line and its line end. A text shorter than its columns is padded behind; one that
/// is longer, or a number too large for its columns, shifts what follows. No CR of a value comes
/// into the line, and no LF but those of the comment. A character that the
/// code page lacks becomes "?" and is listed in `lacking`.
void EcritLigne(std::string& bytes, const DegLine& line, std::vector<LackingCharacters>& lacking);

/// A text as the columns and lines of one line hold it: with blanks for its CR and LF, in `kept`;
/// one without any comes back itself.
std::string_view LigneSansSaut(std::string_view text, std::string& kept);

/// Adds a text in code page 1252, padded with blanks to `width` bytes; the characters that the
/// code page lacks become "?" and come back as LackingCharacters lists them, "" for none.
std::string AjouteCp1252(std::string& bytes, std::string_view utf8, std::size_t width = 0);

/// The line that names the periods by their years; empty for a number of pivots that has none.
std::optional<std::string> LignePeriodes(int nbPivots, int pivot1, int pivot2, int anneeCourante);

/// Sets a coordinate's text straight: its first comma becomes a point, and the zeros between the
/// sign and the first place that matters become blanks: "+04.50000" is "+ 4.50000".
void CadreCoord(std::string& texte);

/// Zeros from a position (from 1) on become blanks, up to the first other character. Does nothing
/// unless the position lies before the last character.
void BlanchitZeros(std::string& texte, std::size_t position);

}  // namespace talpena
