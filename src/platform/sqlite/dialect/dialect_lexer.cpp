#include "platform/sqlite/dialect/dialect_lexer.h"

#include <array>
#include <charconv>

#include "common/text.h"
#include "platform/sqlite/columns.h"

namespace talpena::sqlite {
namespace {

bool EstChiffre(char c) { return c >= '0' && c <= '9'; }
bool EstBlanc(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

bool EstLettre(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

class Lexer {
 public:
  explicit Lexer(std::string_view text) : text_(text) {}

  std::vector<Token> Tout() {
    std::vector<Token> tokens;
    do {
      tokens.push_back(Suivant());
    } while (tokens.back().kind != Token::Kind::End && tokens.back().kind != Token::Kind::Error);
    return tokens;
  }

 private:
  char Ici(std::size_t ahead = 0) const {
    return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0';
  }

  Token Fait(Token::Kind kind, std::size_t start, std::string text = {}) const {
    return {kind, std::move(text), 0, start, at_};
  }

  Token Erreur(std::size_t start) const { return Fait(Token::Kind::Error, start); }

  Token Suivant() {
    while (at_ < text_.size() && EstBlanc(text_[at_])) ++at_;
    const std::size_t start = at_;
    if (at_ == text_.size()) return Fait(Token::Kind::End, start);
    const char c = Ici();
    if (c == '\'' || c == '"') return Texte(start, c);
    if (c == '[') return Crochets(start);
    if (c == '#') return Date(start);
    if (EstChiffre(c) || (c == '.' && EstChiffre(Ici(1)))) return Nombre(start);
    if (EstLettre(c)) return Mot(start);
    return Symbole(start);
  }

  Token Texte(std::size_t start, char quote) {
    std::string value;
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] == '\0') break;
      if (text_[at_] != quote) {
        value.push_back(text_[at_]);
      } else if (Ici(1) == quote) {
        value.push_back(quote);
        ++at_;
      } else {
        ++at_;
        return Fait(Token::Kind::Text, start, std::move(value));
      }
    }
    return Erreur(start);
  }

  Token Crochets(std::size_t start) {
    const std::size_t close = text_.find(']', at_);
    if (close == std::string_view::npos) return Erreur(start);
    std::string name(Rogne(text_.substr(at_ + 1, close - at_ - 1)));
    if (name.empty() || name.find('\0') != std::string::npos) return Erreur(start);
    at_ = close + 1;
    return Fait(Token::Kind::Name, start, std::move(name));
  }

  Token Mot(std::size_t start) {
    while (EstLettre(Ici()) || EstChiffre(Ici())) ++at_;
    if (Ici() == '$') ++at_;  // Left$ and the like
    return Fait(Token::Kind::Word, start, Majuscules(text_.substr(start, at_ - start)));
  }

  Token Nombre(std::size_t start) {
    std::string digits;
    const auto take = [&] {
      while (EstChiffre(Ici())) digits.push_back(text_[at_++]);
    };
    take();
    if (Ici() == '.') {
      digits.push_back(text_[at_++]);
      take();
    }
    const char mark = Ici();
    if (mark == 'e' || mark == 'E' || mark == 'd' || mark == 'D') Exposant(digits, take);
    Token token = Fait(Token::Kind::Number, start);
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), token.number);
    if (error != std::errc{} || EstLettre(Ici())) return Erreur(start);
    return token;
  }

  template <typename Take>
  void Exposant(std::string& digits, Take take) {
    const std::size_t sign = Ici(1) == '+' || Ici(1) == '-' ? 1 : 0;
    if (!EstChiffre(Ici(1 + sign))) return;
    digits.push_back('e');
    if (Ici(1) == '-') digits.push_back('-');
    at_ += 1 + sign;
    take();
  }

  // #yyyy-mm-dd#, #yyyy/mm/dd# or, month first, #mm/dd/yyyy#; a time of day may follow.
  Token Date(std::size_t start) {
    const std::size_t close = text_.find('#', at_ + 1);
    if (close == std::string_view::npos || close - at_ > 40) return Erreur(start);
    const std::string_view inner = Rogne(text_.substr(at_ + 1, close - at_ - 1));
    at_ = close + 1;
    Token token = Fait(Token::Kind::Date, start);
    if (LitDate(inner, token.number) || LitDate(AnneeDevant(inner), token.number)) return token;
    at_ = start;
    return Erreur(start);
  }

  // "5/9/1987" as "1987/05/09".
  static std::string AnneeDevant(std::string_view date) {
    const std::size_t blank = date.find(' ');
    const std::string_view time = blank == std::string_view::npos ? "" : date.substr(blank);
    const std::string day(date.substr(0, blank));
    const std::vector<std::string> parts = Decoupe(day, day.find('/') < day.size() ? '/' : '-');
    if (parts.size() != 3 || parts[2].size() != 4) return {};
    const auto two = [](const std::string& part) { return (part.size() < 2 ? "0" : "") + part; };
    return parts[2] + "/" + two(parts[0]) + "/" + two(parts[1]) + std::string(time);
  }

  Token Symbole(std::size_t start) {
    static constexpr std::array<std::string_view, 22> symbols = {
        "<>", "<=", ">=", "=", "<", ">", "+", "-", "*",  "/",  "\\",
        "^",  "&",  "(",  ")", ",", ".", "!", ";", "=<", "=>", "><"};
    std::string_view best;
    for (const std::string_view symbol : symbols) {
      if (symbol.size() > best.size() && text_.substr(at_).starts_with(symbol)) best = symbol;
    }
    if (best.empty()) return Erreur(start);
    at_ += best.size();
    if (best == "=<") best = "<=";
    if (best == "=>") best = ">=";
    if (best == "><") best = "<>";
    return Fait(Token::Kind::Symbol, start, std::string(best));
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace

std::vector<Token> Decompose(std::string_view statement) { return Lexer(statement).Tout(); }

}  // namespace talpena::sqlite
