#include "interchange/imported_lists.h"

#include <algorithm>

#include "common/numbers.h"

namespace talpena {
namespace {

/// A bookmark is the row's key, and the rows of an import follow each other.
bool ARangees(Document& document, const ImportedList& list) {
  return document.Base()
             .OpenRecordset("SELECT COUNT(*) FROM TALPENA WHERE Counter >= " + Str(list.firstRow) +
                            " AND Counter <= " + Str(list.lastRow))
             ->Get(0)
             .integer > 0;
}

}  // namespace

void NoteListe(InterchangeState& interchange, const Document& document,
               const std::optional<FileStamp>& list, const std::vector<Bookmark>& added) {
  if (!list || added.empty()) return;
  interchange.ListesImportees.push_back(
      {*list, document.NumeroContenu(), added.front(), added.back()});
}

bool EstDejaImportee(const InterchangeState& interchange, Document& document,
                     const std::optional<FileStamp>& list) {
  return list && std::ranges::any_of(interchange.ListesImportees, [&](const ImportedList& former) {
           return former.list == *list && former.contents == document.NumeroContenu() &&
                  ARangees(document, former);
         });
}

}  // namespace talpena
