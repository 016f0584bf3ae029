// Comma-separated text, field by field: the end of a line ends a field as a comma does, so that a
// record may go on in the next line, and the rest of a line is the start of the next record.
#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/deg_lines.h"
#include "platform/import_file.h"

namespace talpena {

/// A tab within what a failure shows of a field.
inline constexpr std::string_view TabMontree = "\u2192";

/// Blanks ahead of a field are skipped; a tab is no blank.
///
/// A text in double quotes runs to the next one, also over several lines; what stands between it
/// and the next comma is dropped, and a doubled quote means nothing. Any other text ends at a comma
/// or the end of its line and keeps the blanks behind it. Line breaks within a text are LF.
///
/// A number ends at a comma, a blank or the end of its line. The blank takes a comma or line end
/// with it where nothing but blanks lies between: "1 ,2" are two fields, and so are "1 2".
///
/// Failures name the line and the field, counted within the record from 1: InputPastEnd (62) behind
/// the last field and inside quotes that are not closed, TypeMismatch (13) for a text that is no
/// number, Overflow (6) for a number beyond its range and for texts longer than 16 MB.
class FieldReader {
 public:
  explicit FieldReader(ImportFile file);

  /// False when nothing is left. Else the rest of the current line, which may be empty, or the
  /// next line is what the following calls are about.
  bool Reste();
  /// Passes over a line, or the rest of one, that holds nothing but blanks; false for any other.
  bool SauteLigneVide();
  /// Drops the line, or the rest of one, when it begins with this character, blanks not skipped.
  bool SauteLigneDe(char mark);
  /// A record begins: its fields are counted from 1.
  void CommenceFiche();

  /// An empty field is 0 or, where it may not be empty, TypeMismatch (13).
  enum class Vide : std::uint8_t { Zero, Refuse };
  std::int16_t Entier16(Vide vide = Vide::Zero);
  std::int32_t Entier32(Vide vide = Vide::Zero);
  float Simple(Vide vide = Vide::Zero);
  /// UTF-8; valid until the next call.
  std::string_view Texte();

  std::int64_t Ligne() const { return line_; }  ///< of the field read last, where it begins; from 1
  int Champ() const { return field_; }          ///< its number in the record
  double Part() const;                          ///< of the file that was read, 0 to 1
  /// Where nothing is left: the line that a byte 1A cuts off from what stands behind it; else 0.
  std::int64_t LigneCoupee() const;

  // What the record in hand looks like beside its fields.
  std::string_view LigneCourante() const { return whole_; }  ///< its bytes; valid until the next
  bool EstDecalee() const { return shifted_; }  ///< it began in the rest of a line of another one
  /// It goes on in another line than it began in, without a quote that does.
  bool EstSurPlusieurs() const { return lines_.Numero() > firstLine_ + quotedLines_; }
  bool APerdu() const { return lost_; }  ///< text behind a closing quote was dropped
  /// The same happened in the current line, be it to a record before.
  bool LigneAPerdu() const { return lostLine_ != 0 && lostLine_ == lines_.Numero(); }

 private:
  void Ouvre();
  void SauteBlancs();
  void Prend(std::size_t count) { rest_.remove_prefix(count); }
  void Ferme();
  std::string_view Guillemets();
  void NotePerte(std::string_view dropped);
  void Allonge(std::string_view text);
  std::string_view Nombre();
  double Valeur(std::string_view bytes, Vide vide) const;
  template <typename Number, typename Convert>
  Number Lit(Vide vide, Convert convert);
  [[noreturn]] void Refuse(int number, int text, std::vector<std::string> about,
                           const std::string& what) const;

  DegLines lines_;
  Encodage encodage_;
  std::shared_ptr<const ImportEnd> end_;
  std::string_view whole_;  ///< the current line
  std::string_view rest_;   ///< of it
  std::string_view words_;  ///< the rest of the line from the number on that was read last
  bool open_ = false;       ///< a field or the end of the current line is still to come
  std::int64_t line_ = 0;
  int field_ = 0;
  std::int64_t firstLine_ = 0;    ///< of the record
  std::int64_t quotedLines_ = 0;  ///< line ends within its quotes
  std::int64_t lostLine_ = 0;     ///< where text was dropped last; 0 for nowhere
  bool shifted_ = false;
  bool lost_ = false;
  std::string quoted_;
  std::string kept_;
};

}  // namespace talpena
