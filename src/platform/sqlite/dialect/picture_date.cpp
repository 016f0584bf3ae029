#include <algorithm>
#include <array>
#include <cmath>

#include "common/text.h"
#include "platform/sqlite/columns.h"
#include "platform/sqlite/dialect/picture.h"

namespace talpena::sqlite {
namespace {

struct NamedDate {
  std::string_view name;
  std::string_view picture;
};
constexpr NamedDate namedDates[] = {
    {"general date", "c"},        {"long date", "dddd, mmmm d, yyyy"},
    {"medium date", "dd-mmm-yy"}, {"short date", "yyyy/mm/dd"},
    {"long time", "hh:nn:ss"},    {"medium time", "hh:nn AM/PM"},
    {"short time", "hh:nn"},
};
constexpr std::array<std::string_view, 12> months = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};
constexpr std::array<std::string_view, 7> weekdays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                      "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, 3> halves = {"am/pm", "a/p", "ampm"};

/// True for a letter that shows a part of a date.
bool EstLettre(char sign) {
  return sign != '\0' && std::string_view("dmyhnsqwtc").find(sign) != std::string_view::npos;
}

char Petite(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

std::string Chiffres(int value, std::size_t width) {
  std::string digits = std::to_string(value);
  return std::string(width > digits.size() ? width - digits.size() : 0, '0') + digits;
}

/// A moment, taken apart.
struct Moment {
  CalendarDay date{};
  int weekday = 0;  ///< from Sunday, 0
  int dayOfYear = 1;
  int hour = 0, minute = 0, second = 0;

  explicit Moment(double days) {
    constexpr double secondsOfDay = 86400;
    double day = std::floor(days);
    double seconds = std::nearbyint((days - day) * secondsOfDay);
    if (seconds >= secondsOfDay) {  // the last half second of a day
      ++day;
      seconds = 0;
    }
    date = JourDe(day);
    double first = day;
    JoursDe(date.year, 1, 1, first);
    dayOfYear = static_cast<int>(std::clamp(day - first, 0.0, 365.0)) + 1;
    const double sinceSaturday = std::fmod(day, 7);  // day 0 was a Saturday
    weekday = static_cast<int>(sinceSaturday < 0 ? sinceSaturday + 7 : sinceSaturday) - 1;
    if (weekday < 0) weekday = 6;
    const int whole = static_cast<int>(seconds);
    hour = whole / 3600;
    minute = whole / 60 % 60;
    second = whole % 60;
  }

  int Semaine() const {
    const int firstWeekday = ((weekday - (dayOfYear - 1)) % 7 + 7) % 7;
    return (dayOfYear - 1 + firstWeekday) / 7 + 1;
  }
};

std::string Jour(const Moment& when, std::size_t run) {
  const std::string_view name = weekdays[static_cast<std::size_t>(when.weekday)];
  if (run <= 2) return Chiffres(when.date.day, run);
  return std::string(run == 3 ? name.substr(0, 3) : name);
}

std::string Mois(int month, std::size_t run) {
  const std::string_view name = months[static_cast<std::size_t>(month - 1)];
  if (run <= 2) return Chiffres(month, run);
  return std::string(run == 3 ? name.substr(0, 3) : name);
}

class DateWriter {
 public:
  DateWriter(double days, std::string_view picture)
      : days_(days), when_(days), pieces_(DecoupeImage(picture)) {
    twelve_ = std::any_of(pieces_.begin(), pieces_.end(),
                          [](const PicturePiece& piece) { return EstMoitie(piece); });
  }

  std::string Ecrit() {
    for (const PicturePiece& piece : pieces_) {
      if (EstMoitie(piece)) {
        out_ += Moitie(piece.text);
        continue;
      }
      out_ += piece.sign == '\0' ? std::string(piece.text) : Partie(piece.sign, piece.text);
      if (EstLettre(piece.sign)) last_ = piece.sign;
    }
    return std::move(out_);
  }

 private:
  static bool EstMoitie(const PicturePiece& piece) {
    return piece.sign == 'a' && std::any_of(halves.begin(), halves.end(), [&](std::string_view h) {
             return EgalSansCasse(h, piece.text);
           });
  }

  /// In the letters of the picture.
  std::string_view Moitie(std::string_view text) const {
    const bool afternoon = when_.hour >= 12;
    const std::size_t slash = text.find('/');
    if (slash == std::string_view::npos) return afternoon ? "PM" : "AM";
    return afternoon ? text.substr(slash + 1) : text.substr(0, slash);
  }

  std::string Partie(char sign, std::string_view text) const {
    const std::size_t run = text.size();
    switch (sign) {
      case 'd':
        if (run == 5) return FormateDate(days_, "short date");
        return run > 5 ? FormateDate(days_, "long date") : Jour(when_, run);
      case 'm':
        return last_ == 'h' && run <= 2 ? Chiffres(when_.minute, run) : Mois(when_.date.month, run);
      case 'y':
        if (run == 1) return std::to_string(when_.dayOfYear);
        return run <= 2 ? Chiffres(when_.date.year % 100, 2) : Chiffres(when_.date.year, 4);
      case 'h':
        return Chiffres(twelve_ ? (when_.hour + 11) % 12 + 1 : when_.hour,
                        std::min<std::size_t>(run, 2));
      case 'n':
        return Chiffres(when_.minute, std::min<std::size_t>(run, 2));
      case 's':
        return Chiffres(when_.second, std::min<std::size_t>(run, 2));
      case 'q':
        return std::to_string((when_.date.month + 2) / 3);
      case 'w':
        return std::to_string(run == 1 ? when_.weekday + 1 : when_.Semaine());
      case 't':
        return run == 5 ? FormateDate(days_, "long time") : std::string(text);
      case 'c':
        return Generale();
      default:
        return std::string(text);
    }
  }

  /// The date, and the time of day where there is one.
  std::string Generale() const {
    const bool midnight = when_.hour == 0 && when_.minute == 0 && when_.second == 0;
    const std::string date = FormateDate(days_, "short date");
    return midnight ? date : date + " " + FormateDate(days_, "long time");
  }

  double days_;
  Moment when_;
  std::vector<PicturePiece> pieces_;
  bool twelve_ = false;
  char last_ = '\0';  ///< the letter before: m behind h is a minute
  std::string out_;
};

/// One of the ways to write the half of a day, at the head of a text; 0 for none.
std::size_t LongueurMoitie(std::string_view text) {
  if (Petite(text.front()) != 'a') return 0;
  for (const std::string_view half : halves) {
    if (EgalSansCasse(text.substr(0, half.size()), half)) return half.size();
  }
  return 0;
}

/// Characters at the head of a text that are the same in any case.
std::size_t LongueurSuite(std::string_view text) {
  const auto end = std::find_if(text.begin(), text.end(),
                                [&](char c) { return Petite(c) != Petite(text.front()); });
  return static_cast<std::size_t>(end - text.begin());
}

/// What a "\" or a quotation mark begins; empty when neither does.
std::string_view LitLitteral(std::string_view picture, std::size_t& used) {
  if (picture.front() == '\\' && picture.size() > 1) {
    const std::string_view character = PremiersCaracteres(picture.substr(1), 1);
    used = 1 + character.size();
    return character;
  }
  if (picture.front() != '"') return {};
  const std::size_t close = std::min(picture.find('"', 1), picture.size());
  used = std::min(close + 1, picture.size());
  return picture.substr(1, close - 1);
}

}  // namespace

std::vector<PicturePiece> DecoupeImage(std::string_view picture) {
  std::vector<PicturePiece> pieces;
  while (!picture.empty()) {
    std::size_t used = 0;
    const std::string_view literal = LitLitteral(picture, used);
    if (used > 0) {
      pieces.push_back({'\0', literal});
    } else {
      const char sign = Petite(picture.front());
      used = LongueurMoitie(picture);
      if (used == 0) used = LongueurSuite(picture);
      pieces.push_back({sign, picture.substr(0, used)});
    }
    picture.remove_prefix(used);
  }
  return pieces;
}

std::string FormateDate(double days, std::string_view picture) {
  days = std::fmin(std::fmax(days, -657434), 2958466);  // years 100 to 9999, and a number
  for (const NamedDate& n : namedDates) {
    if (EgalSansCasse(n.name, picture)) return DateWriter(days, n.picture).Ecrit();
  }
  return DateWriter(days, picture).Ecrit();
}

bool EstImageDeDate(std::string_view picture) {
  const auto is = [&](const NamedDate& n) { return EgalSansCasse(n.name, picture); };
  if (std::any_of(std::begin(namedDates), std::end(namedDates), is)) return true;
  if (EstNomDeNombre(picture)) return false;
  bool date = false;
  for (const PicturePiece& piece : DecoupeImage(picture)) {
    if (piece.sign == '0' || piece.sign == '#') return false;
    date = date || EstLettre(piece.sign);
  }
  return date;
}

}  // namespace talpena::sqlite
