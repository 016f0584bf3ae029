#include "platform/foreign/excel/biff_workbook.h"

#include <array>
#include <numeric>
#include <utility>
#include <vector>

#include "platform/foreign/excel/biff_cells.h"
#include "platform/foreign/excel/biff_globals.h"
#include "platform/foreign/excel/compound_file.h"
#include "platform/foreign/excel/compound_reader.h"

namespace talpena::excel {
namespace {

class BiffWorkbook final : public Workbook {
 public:
  explicit BiffWorkbook(std::shared_ptr<ByteSource> stream)
      : stream_(std::move(stream)),
        globals_(LitGlobales(stream_)),
        bytes_(globals_.sheets.size()) {}

  const std::vector<SheetInfo>& Feuilles() const override { return globals_.sheets; }
  std::unique_ptr<SheetRows> Lignes(std::size_t sheet) override {
    auto rows = LitCellules(stream_, globals_.places[sheet], globals_, bytes_[sheet]);
    // Sheets that lie within each other would take for ever.
    if (std::reduce(bytes_.begin(), bytes_.end()) > stream_->Taille()) Refuse();
    return rows;
  }
  void Refuse() const override { stream_->Refuse(); }

 private:
  std::shared_ptr<ByteSource> stream_;
  BiffGlobals globals_;
  std::vector<std::size_t> bytes_;  ///< of the sheets that have been read
};

/// The stream of the newer format first: some files hold the older one beside it.
std::shared_ptr<ByteSource> FluxDuClasseur(std::shared_ptr<ByteSource> file) {
  std::array<char, 8> head{};
  file->Lit(0, head);
  if (std::string_view(head.data(), head.size()) != compoundMagic) return file;
  CompoundFile compound(file);
  for (const char* name : {"Workbook", "Book"}) {
    if (auto stream = compound.Flux(name)) return stream;
  }
  file->Refuse();
}

}  // namespace

std::unique_ptr<Workbook> OuvreClasseurBiff(std::shared_ptr<ByteSource> file) {
  return std::make_unique<BiffWorkbook>(FluxDuClasseur(std::move(file)));
}

}  // namespace talpena::excel
