#include "platform/foreign/paradox/head_writer.h"

#include <algorithm>

#include "common/text.h"
#include "platform/foreign/little_endian.h"

namespace talpena::paradox {
namespace {

constexpr std::size_t roundedTo = 2048;

// Code page 1252 in the order of the language driver that genuine tables name with it.
constexpr std::uint16_t codePage = 1252;
constexpr std::uint8_t sortOrder = 0x11;
constexpr std::string_view sortOrderId = "ANSII850";

/// Places of what stands behind the fixed part.
struct Places {
  std::size_t numbers;  ///< of the columns
  std::size_t order;    ///< name of the sort order
  std::size_t end;
};

void AjouteTableDesColonnes(std::string& head, const std::vector<WrittenColumn>& columns) {
  for (const WrittenColumn& c : columns) {
    head += static_cast<char>(c.column.type);
    head += static_cast<char>(c.column.bytes);
  }
  head.append(pointerBytes * (columns.size() + 1), '\0');  // they mean something in memory only
}

Places AjouteNoms(std::string& head, const std::vector<WrittenColumn>& columns,
                  std::string_view name) {
  std::string known = Utf8VersCp1252AvecManques(name);
  known.resize(std::min(known.size(), nameBytes - 1));
  known.resize(nameBytes, '\0');
  head += known;
  for (const WrittenColumn& c : columns) (head += c.column.name) += '\0';
  Places places{.numbers = head.size(), .order = 0, .end = 0};
  for (std::size_t i = 1; i <= columns.size(); ++i) {
    AjouteNombre(head, static_cast<std::uint16_t>(i));
  }
  places.order = head.size();
  (head += sortOrderId) += '\0';
  places.end = head.size();
  return places;
}

template <std::unsigned_integral Number>
void Pose(std::string& head, std::size_t place, std::size_t value) {
  PoseNombre(head.data() + place, static_cast<Number>(value));
}

/// What all levels have in common.
void PosePartieCommune(std::string& head, const std::vector<WrittenColumn>& columns,
                       const WrittenHead& what) {
  constexpr std::uint8_t heap = 2;
  Pose<std::uint16_t>(head, 0x00, OctetsParLigne(columns));
  Pose<std::uint16_t>(head, 0x02, head.size());
  Pose<std::uint8_t>(head, 0x04, heap);
  Pose<std::uint8_t>(head, 0x05, what.units);
  Pose<std::uint32_t>(head, 0x06, what.records);
  Pose<std::uint16_t>(head, 0x0A, what.blocks);               // in use
  Pose<std::uint16_t>(head, 0x0C, what.blocks);               // in the file
  Pose<std::uint16_t>(head, 0x0E, what.blocks == 0 ? 0 : 1);  // the first
  Pose<std::uint16_t>(head, 0x10, what.blocks);               // the last
  Pose<std::uint16_t>(head, 0x21, columns.size());
  Pose<std::uint32_t>(head, 0x25, 0xFF00FF00);  // whether it is encrypted stands further behind
  Pose<std::uint8_t>(head, 0x29, sortOrder);
  Pose<std::uint16_t>(head, 0x3A, what.blocks);
  Pose<std::uint16_t>(head, 0x3E, 0x0F1F);
}

/// What came with level 4.
void PosePartieNouvelle(std::string& head, std::size_t columns, const WrittenHead& what,
                        const Places& places) {
  const std::uint8_t version = what.level5 ? 0x0B : 0x09;
  Pose<std::uint8_t>(head, 0x39, version);
  Pose<std::uint16_t>(head, 0x51, places.end);
  Pose<std::uint8_t>(head, 0x56, 0x20);
  Pose<std::uint16_t>(head, 0x58, 0x0100U + version);
  Pose<std::uint16_t>(head, 0x5A, 0x0100U + version);
  Pose<std::uint32_t>(head, 0x60, what.moment);
  Pose<std::uint16_t>(head, 0x64, columns + 1);
  Pose<std::uint16_t>(head, 0x66, places.numbers - oldHead);
  Pose<std::uint16_t>(head, 0x6A, codePage);
  Pose<std::uint16_t>(head, 0x6C, 0x0101);
  Pose<std::uint16_t>(head, 0x6E, places.order - oldHead);
}

}  // namespace

std::string Tete(const std::vector<WrittenColumn>& columns, std::string_view name,
                 const WrittenHead& what) {
  std::string head(newHead, '\0');
  AjouteTableDesColonnes(head, columns);
  const Places places = AjouteNoms(head, columns, name);
  head.resize((head.size() + roundedTo - 1) / roundedTo * roundedTo, '\0');
  PosePartieCommune(head, columns, what);
  PosePartieNouvelle(head, columns.size(), what, places);
  return head;
}

}  // namespace talpena::paradox
