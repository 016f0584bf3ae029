// The grammar of ORIGINAL: tokens, packed degrees, grid digits. Pure text, nothing fails.
#pragma once
#include <string>
#include <string_view>

namespace talpena {

/// What a character beyond ASCII is read as: one character without a meaning, behind every letter.
inline constexpr char Illisible = '\x7f';

/// No-break blanks, of any width (U+00A0, U+2007, U+202F), as ordinary ones.
std::string AvecBlancsSimples(std::string_view text);

/// A stored ORIGINAL as it is read: without blanks on both sides, in upper case, one byte for each
/// character: a blank for a no-break blank, Illisible for any other beyond ASCII.
/// @param text  takes it; its memory is used again
void OriginalLisible(std::string_view stored, std::string& text);

/// Tokens 1 and 2, or 1 to 3, the code being token 0. They are separated by one blank; each pair
/// of blanks counts as one, so that three in a row enclose an empty token. Any other number of
/// tokens gives empty ones. The views are of the text.
void DecoupeDeux(std::string_view text, std::string_view& first, std::string_view& second);
void DecoupeTrois(std::string_view text, std::string_view& first, std::string_view& second,
                  std::string_view& third);

/// Every occurrence of a character replaced by another.
void RemplaceCar(std::string& text, char search, char replacement);

/// The numeric parse of a token whose decimal sign is a point or a comma; blanks, no-break ones
/// too, are passed over. 0 when there is no number. Beyond the range of a double: Overflow (6).
double NombreDe(std::string_view token);

/// A coordinate packed as degrees, point, two digits of minutes, two of seconds, digits of a
/// fraction. Kept over from one coordinate to the next: what a text does not give stays.
struct Dms {
  float degrees = 0;
  float minutes = 0;
  float seconds = 0;
  char sign = '+';
};

/// An empty text changes nothing. One without digits behind its point keeps its minus in the
/// degrees and sets minutes and seconds to 0; one with up to two such digits leaves the seconds
/// as they were; see DmsVersDegres for what that makes of "-12".
void DecoupeDms(std::string_view text, Dms& dms);

/// Decimal degrees. With any sign but "+" all three count negative: the degrees -12 that
/// DecoupeDms makes of "-12" become +12, as in all stored data.
double DmsVersDegres(const Dms& dms);

/// Puts a truncated grid reference ("SU1234", "31UES12") at the centre of its cell by filling up
/// each half of its 2, 4, 6 or 8 digits to five: 4999, 499, 49 or 4. All blanks go. With a digit
/// at its head the reference has a prefix of five characters, else of two. Any other number of
/// digits stays as it is.
void CompleteGrille(std::string& reference);

/// For a column of fixed width: a comma becomes a point, zeros that lead the number become
/// blanks ("+003.50000" is "+  3.50000"). The first character, the sign, stays.
void NombrePourGrille(std::string& text);

}  // namespace talpena
