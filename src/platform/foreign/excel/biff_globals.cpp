#include "platform/foreign/excel/biff_globals.h"

#include <string>
#include <utility>

#include "common/msg_id_errors.h"
#include "common/talpena_error.h"
#include "platform/foreign/excel/biff_cursor.h"

namespace talpena::excel {
namespace {

[[noreturn]] void RefuseProtege(const std::string& path) {
  throw TalpenaError(ErrorNumber::NotSupported,
                     "Operation is not supported: '" + path + "' is protected by a password.",
                     {.text = MsgId::ClasseurProtege, .about = {path}});
}

class GlobalsReader {
 public:
  explicit GlobalsReader(const std::shared_ptr<ByteSource>& stream)
      : path_(stream->Chemin()), cursor_(stream, 0, biffGlobals) {}

  BiffGlobals Lit() {
    read_.unicode = cursor_.Version() == versionBiff8;
    while (cursor_.Avance()) LitFiche();
    read_.texts = std::make_unique<ByteTexts>(codePage_);
    if (!read_.unicode) {
      for (SheetInfo& sheet : read_.sheets) sheet.name = read_.texts->EnUtf8(sheet.name);
    }
    return std::move(read_);
  }

 private:
  void LitFiche() {
    BiffCursor& record = cursor_.Fiche();
    switch (record.Numero()) {
      case Biff::FilePass:
        RefuseProtege(path_);
      case Biff::CodePage:
        codePage_ = record.Mot16(0);
        break;
      case Biff::BoundSheet:
        LitFeuille(record);
        break;
      case Biff::Sst:
        LitTextes(record);
        break;
      default:
        break;
    }
  }

  /// Charts and macros are no tables.
  void LitFeuille(BiffCursor& record) {
    constexpr std::size_t nameAt = 7, mostSheets = 1024;
    if (record.Octet(5) != 0) return;
    if (read_.sheets.size() == mostSheets) record.Refuse();
    read_.places.push_back(record.Mot32(0));
    SheetInfo sheet;
    sheet.hidden = (record.Octet(4) & 3U) != 0;
    const std::size_t length = record.Octet(6);
    if (read_.unicode) {
      ContinuedRecord(record, nameAt).Texte(length, sheet.name);
    } else {
      sheet.name = record.Octets(nameAt, length);
    }
    read_.sheets.push_back(std::move(sheet));
  }

  void LitTextes(BiffCursor& record) {
    const std::uint32_t count = record.Mot32(4);
    ContinuedRecord bytes(record, 8);
    for (std::uint32_t i = 0; i < count && !bytes.Fini(); ++i) {
      const std::size_t length = bytes.Mot16();
      bytes.Texte(length, read_.shared.Suite());
      if (!read_.shared.Finit()) record.Refuse();
    }
  }

  std::string path_;
  SubstreamCursor cursor_;
  BiffGlobals read_;
  int codePage_ = 1252;
};

}  // namespace

BiffGlobals LitGlobales(const std::shared_ptr<ByteSource>& stream) {
  return GlobalsReader(stream).Lit();
}

}  // namespace talpena::excel
