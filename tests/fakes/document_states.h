// States of an open document that tests start from.
#pragma once
#include "store/edition.h"

namespace talpena::test {

inline void MarqueModifie(Document& document) {
  Edition edition(document, "a test");
  edition.MarqueModifie();
}

/// `Entete(document)->NbPivots = 2;` changes the header; the file does not count as modified for
/// it.
class Entete {
 public:
  explicit Entete(Document& document) : edition_(document, "a test") {
    edition_.LaisseNonModifie();
  }
  DistributionHeader* operator->() { return &edition_.Entete(); }

 private:
  Edition edition_;
};

/// Binds the data control to any SELECT.
inline void MontreSelect(Document& document, const std::string& select) {
  document.Data1.Lie(document.Base());
  document.Data1.RecordSource = select;
  document.Data1.Refresh();
}

/// What observers are told of rows, values and position, in this order where it comes at once.
template <typename Told>
[[nodiscard]] Subscription ObserveLignes(Document& document, Told told) {
  return document.Observe([told](Changes changes) {
    if (changes.Touche(Aspect::Rows)) told(DataControl::Change::Rows);
    if (changes.Touche(Aspect::Values)) told(DataControl::Change::Values);
    if (changes.Touche(Aspect::Position)) told(DataControl::Change::Position);
  });
}

}  // namespace talpena::test
