// .xlsx files: as they are, or, where there is no zip file, the XML of a sheet (behind a line end
// that of its shared texts) in a sound one.
#include <zlib.h>

#include <cstdint>
#include <memory>
#include <string>

#include "platform/foreign/excel/xlsx_workbook.h"
#include "platform/foreign/little_endian.h"
#include "workbook_check.h"

namespace {

using namespace talpena;

/// A zip file whose parts are not packed.
class StoredZip {
 public:
  void Ajoute(const std::string& name, std::string_view bytes) {
    std::string head;
    AjouteNombre(head, std::uint16_t{20});
    AjouteNombre(head, std::uint32_t{0});  // flags, method
    AjouteNombre(head, std::uint32_t{0});  // time
    AjouteNombre(head,
                 static_cast<std::uint32_t>(crc32(0, reinterpret_cast<const Bytef*>(bytes.data()),
                                                  static_cast<uInt>(bytes.size()))));
    AjouteNombre(head, static_cast<std::uint32_t>(bytes.size()));
    AjouteNombre(head, static_cast<std::uint32_t>(bytes.size()));
    AjouteNombre(head, static_cast<std::uint32_t>(name.size()));  // and no more of it
    directory_ += "PK\1\2";
    AjouteNombre(directory_, std::uint16_t{20});
    directory_ += head;
    directory_.append(10, '\0');
    AjouteNombre(directory_, static_cast<std::uint32_t>(parts_.size()));
    directory_ += name;
    parts_ += "PK\3\4" + head + name;
    parts_ += bytes;
    ++count_;
  }
  std::string Octets() const {
    std::string all = parts_ + directory_ + "PK\5\6";
    AjouteNombre(all, std::uint32_t{0});
    AjouteNombre(all, count_);
    AjouteNombre(all, count_);
    AjouteNombre(all, static_cast<std::uint32_t>(directory_.size()));
    AjouteNombre(all, static_cast<std::uint32_t>(parts_.size()));
    return all + std::string(2, '\0');
  }

 private:
  std::string parts_, directory_;
  std::uint16_t count_ = 0;
};

std::string Lien(const std::string& id, const std::string& kind, const std::string& target) {
  return "<Relationship Id=\"" + id + "\" Type=\"x/" + kind + "\" Target=\"" + target + "\"/>";
}

std::string EnClasseur(std::string_view xml) {
  const std::size_t end = xml.find('\n');
  StoredZip zip;
  zip.Ajoute("_rels/.rels", "<r>" + Lien("a", "officeDocument", "xl/w.xml") + "</r>");
  zip.Ajoute("xl/w.xml", "<w><sheet name=\"S\" id=\"s\"/></w>");
  zip.Ajoute("xl/_rels/w.xml.rels", "<r>" + Lien("s", "worksheet", "s.xml") +
                                        Lien("t", "sharedStrings", "t.xml") + "</r>");
  zip.Ajoute("xl/s.xml", xml.substr(0, end));
  if (end != std::string_view::npos) zip.Ajoute("xl/t.xml", xml.substr(end + 1));
  return zip.Octets();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string bytes(reinterpret_cast<const char*>(data), size);
  if (!bytes.starts_with("PK")) bytes = EnClasseur(bytes);
  fuzz::VerifieClasseur([&] {
    return excel::OuvreClasseurXlsx(std::make_shared<excel::MemoryBytes>("fuzz.xlsx", bytes));
  });
  return 0;
}
