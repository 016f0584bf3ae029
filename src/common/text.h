// Texts: code page 1252, letter case, blanks, splitting. UTF-8 everywhere but in files.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace talpena {

/// Bytes of code page 1252 as UTF-8. All 256 values have a character; the five that the code
/// page leaves undefined (81, 8D, 8F, 90, 9D hexadecimal) become U+0081 and so on.
std::string Cp1252VersUtf8(std::string_view bytes);

/// UTF-8 as bytes of code page 1252; the inverse of Cp1252VersUtf8. Empty when a character is
/// not in the code page (or the text is no UTF-8), and then `missing`, when given, takes it.
std::optional<std::string> Utf8VersCp1252(std::string_view text, std::string* missing = nullptr);

/// The same with "?" for every character that the code page lacks.
std::string Utf8VersCp1252AvecManques(std::string_view text);

/// True when no byte of the text is 80 (hexadecimal) or above.
bool EstAscii(std::string_view bytes);

/// True when the text is UTF-8 from end to end, NUL and other controls included.
bool EstUtf8(std::string_view bytes);

/// Number of characters (code points) of a UTF-8 text; malformed bytes count one each.
std::size_t CompteCaracteres(std::string_view utf8);

/// The first `count` characters of a UTF-8 text; never cuts one in two.
std::string_view PremiersCaracteres(std::string_view utf8, std::size_t count);

/// Upper and lower case for all letters of code page 1252 (and of Latin Extended-A), whatever
/// the locale: "i" gives "I" for a Turkish user too. Other characters stay.
std::string Majuscules(std::string_view utf8);
std::string Minuscules(std::string_view utf8);

/// Equal without regard to case, by Majuscules.
bool EgalSansCasse(std::string_view a, std::string_view b);

/// Without the blanks (U+0020 only) on the left, on the right, on both sides.
std::string_view RogneGauche(std::string_view text);
std::string_view RogneDroite(std::string_view text);
std::string_view Rogne(std::string_view text);

/// The pieces between separators; an empty text gives one empty piece.
std::vector<std::string> Decoupe(std::string_view text, char separator);

/// Every occurrence of one text replaced by another.
std::string Remplace(std::string_view text, std::string_view search, std::string_view replacement);

}  // namespace talpena
