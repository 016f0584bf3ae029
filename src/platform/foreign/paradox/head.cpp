#include "platform/foreign/paradox/head.h"

#include <algorithm>
#include <set>
#include <string>

#include "common/text.h"
#include "platform/foreign/code_page.h"
#include "platform/foreign/little_endian.h"

namespace talpena::paradox {
namespace {

constexpr unsigned firstNewVersion = 5;
constexpr unsigned firstLongName = 12;  // level 7
constexpr std::size_t longNameBytes = 261;

/// The head byte by byte, every place in it doubted.
class HeadBytes {
 public:
  explicit HeadBytes(const Input& file) : file_(file) {
    bytes_.resize(oldHead);
    file.Exige(0, bytes_);
    const std::size_t size = Mot(2);
    if (size < Fixe() || size > file.Taille()) Echec();
    bytes_.resize(size);
    file.Exige(0, bytes_);
  }

  [[noreturn]] void Echec() const { file_.Echec(); }

  unsigned Octet(std::size_t place) const {
    if (place >= bytes_.size()) Echec();
    return static_cast<unsigned char>(bytes_[place]);
  }
  unsigned Mot(std::size_t place) const { return Lu<std::uint16_t>(place); }
  std::uint32_t Nombre(std::size_t place) const { return Lu<std::uint32_t>(place); }

  /// A text up to its zero byte; the place moves behind that.
  std::string_view Texte(std::size_t& place) const {
    const std::size_t end = bytes_.find('\0', place);
    if (end == std::string::npos) Echec();
    const std::string_view text = std::string_view(bytes_).substr(place, end - place);
    place = end + 1;
    return text;
  }

  unsigned Version() const { return Octet(0x39); }
  bool Ancien() const { return Version() < firstNewVersion; }
  std::size_t Fixe() const { return Ancien() ? oldHead : newHead; }
  std::size_t Taille() const { return bytes_.size(); }

 private:
  template <typename Number>
  Number Lu(std::size_t place) const {
    if (place + sizeof(Number) > bytes_.size()) Echec();
    return NombreLu<Number>(bytes_.data() + place);
  }

  const Input& file_;
  std::string bytes_;
};

bool EstDeTable(const HeadBytes& head) {
  constexpr unsigned oldest = 3, newest = 12, keyed = 0, heap = 2, largestBlock = 32;
  const unsigned kind = head.Octet(4), units = head.Octet(5);
  return (kind == keyed || kind == heap) && units >= 1 && units <= largestBlock &&
         head.Version() >= oldest && head.Version() <= newest;
}

/// The code page that the texts are in; that of the first machines when none is known.
int PageDesTextes(const HeadBytes& head) {
  constexpr int usual = 437;
  const int given = head.Ancien() ? 0 : static_cast<int>(head.Mot(0x6A));
  return given != CodePage::utf8 && CodePage::Connue(given) ? given : usual;
}

void LitColonnes(const HeadBytes& head, TableHead& table) {
  constexpr std::size_t mostColumns = 255;
  const std::size_t count = head.Mot(0x21);
  if (count < 1 || count > mostColumns) head.Echec();
  std::size_t place = head.Fixe();
  for (std::size_t i = 0; i < count; ++i, place += 2) {
    auto column = ColonneDe(head.Octet(place), head.Octet(place + 1));
    if (!column) head.Echec();
    table.columns.push_back(std::move(*column));
  }
  place += pointerBytes * (count + 1);
  place += head.Version() >= firstLongName ? longNameBytes : nameBytes;
  const CodePage page(table.codePage);
  for (Column& column : table.columns) column.name = page.EnUtf8(head.Texte(place));
}

/// No two of one name, as in any table that was not damaged, and none without.
bool NomsValables(const std::vector<Column>& columns) {
  std::set<std::string> names;
  return std::ranges::all_of(columns, [&](const Column& column) {
    return !column.name.empty() && names.insert(Minuscules(column.name)).second;
  });
}

/// That the numbers of the head go together.
bool EstPossible(const TableHead& table, std::uint64_t fileBytes) {
  std::size_t bytes = 0;
  for (const Column& column : table.columns) bytes += column.bytes;
  if (bytes != table.recordBytes || bytes + blockHead > table.blockBytes) return false;
  if (table.blocks > (fileBytes - table.headBytes) / table.blockBytes) return false;
  const std::size_t inBlock = (table.blockBytes - blockHead) / table.recordBytes;
  return table.records <= table.blocks * inBlock &&
         (table.records == 0 || (table.firstBlock >= 1 && table.firstBlock <= table.blocks));
}

}  // namespace

TableHead LitTete(const Input& file) {
  const HeadBytes head(file);
  if (!EstDeTable(head)) head.Echec();
  TableHead table{.recordBytes = head.Mot(0),
                  .headBytes = head.Taille(),
                  .blockBytes = head.Octet(5) * blockUnit,
                  .records = head.Nombre(6),
                  .blocks = head.Mot(0x0C),
                  .firstBlock = head.Mot(0x0E),
                  .codePage = PageDesTextes(head),
                  .columns = {}};
  table.protege = head.Nombre(head.Ancien() ? 0x25 : 0x5C) != 0;
  LitColonnes(head, table);
  if (!NomsValables(table.columns) || !EstPossible(table, file.Taille())) head.Echec();
  return table;
}

}  // namespace talpena::paradox
