#include "places/place_list.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <stdexcept>
#include <tuple>
#include <utility>

#include "places/place_key.h"

namespace talpena {
namespace {

constexpr std::string_view commonFeature = "PPL";
constexpr char headingMark = '=';

auto Rang(const Place& p) {
  return std::tie(p.country, p.province, p.latitude, p.longitude, p.name, p.feature, p.key);
}

/// What stands before the next tabulator, which is cut off with it.
std::string_view Champ(std::string_view& line) {
  const std::size_t end = line.find('\t');
  const std::string_view field = line.substr(0, end);
  line.remove_prefix(end == std::string_view::npos ? line.size() : end + 1);
  return field;
}

int Nombre(std::string_view field) {
  int value = 0;
  const char* const end = field.data() + field.size();
  const auto [stop, error] = std::from_chars(field.data(), end, value);
  if (error != std::errc{} || stop != end) throw std::runtime_error("no number");
  return value;
}

bool EstSurTerre(const Place& p) {
  return std::abs(p.latitude) <= 90 * Place::UnitsOfDegree &&
         std::abs(p.longitude) <= 180 * Place::UnitsOfDegree;
}

class ListReader {
 public:
  void LitLigne(std::string_view line) {
    if (line.front() == headingMark) {
      line.remove_prefix(1);
      country_ = Champ(line);
      province_ = line;
      latitude_ = 0;
    } else {
      places_.push_back(LitLieu(line));
    }
  }
  std::vector<Place> Rend() { return std::move(places_); }

 private:
  Place LitLieu(std::string_view line) {
    if (country_.empty()) throw std::runtime_error("a place without a country");
    Place p;
    p.name = Champ(line);
    p.latitude = latitude_ += Nombre(Champ(line));
    p.longitude = Nombre(Champ(line));
    p.feature = line.empty() ? commonFeature : Champ(line);
    p.key = line.empty() ? CleDeLieu(p.name) : std::string(line);
    p.country = country_;
    p.province = province_;
    if (p.name.empty() || p.key.empty()) throw std::runtime_error("a place without a name");
    if (!EstSurTerre(p)) throw std::runtime_error("no point on the earth");
    return p;
  }

  std::string country_, province_;
  int latitude_ = 0;
  std::vector<Place> places_;
};

}  // namespace

std::string EcritLieux(std::vector<Place> places) {
  std::sort(places.begin(), places.end(),
            [](const Place& a, const Place& b) { return Rang(a) < Rang(b); });
  std::string text;
  const Place* before = nullptr;
  for (const Place& p : places) {
    const bool same = before && p.country == before->country && p.province == before->province;
    if (!same) text += headingMark + p.country + '\t' + p.province + '\n';
    text += p.name + '\t' + std::to_string(p.latitude - (same ? before->latitude : 0)) + '\t' +
            std::to_string(p.longitude);
    const bool derived = p.key == CleDeLieu(p.name);
    if (!derived || p.feature != commonFeature) text += '\t' + p.feature;
    if (!derived) text += '\t' + p.key;
    text += '\n';
    before = &p;
  }
  return text;
}

std::vector<Place> LitLieux(std::string_view text) {
  ListReader reader;
  for (int number = 1; !text.empty(); ++number) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    try {
      if (!line.empty()) reader.LitLigne(line);
    } catch (const std::runtime_error& e) {
      throw std::runtime_error("line " + std::to_string(number) + ": " + e.what());
    }
  }
  return reader.Rend();
}

}  // namespace talpena
