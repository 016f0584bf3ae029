// A change of the open distribution: the one way to write its rows and its header.
#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "store/document.h"

namespace talpena {

/// Lives as long as a command changes the document. It marks the file as modified, and tells the
/// observers once, when it ends.
class Edition {
 public:
  enum class Etendue : std::uint8_t {
    LigneParLigne,  ///< what was changed before a failure stays
    Entiere,        ///< all or nothing: one transaction, taken back unless Valide was called
  };

  /// @param name  what is done, as a menu would say it
  Edition(Document& document, std::string name, Etendue etendue = Etendue::LigneParLigne);
  Edition(const Edition&) = delete;
  Edition& operator=(const Edition&) = delete;
  ~Edition();  ///< as Valide, but for an Entiere that was not validated, which is taken back

  const std::string& Nom() const { return name_; }

  /// Sets the fields of a row that is added or changed. When it throws, the row is as before.
  using Remplissage = std::function<void(Recordset& row)>;

  // The rows, by cursors of the data control's own rows. Failures are those of the engine, thrown
  // on. An added row stands at the end of the rows on show, whatever their order and condition.

  Bookmark AjouteLigne(const Remplissage& remplit = {});
  /// Every row of the source, with one cell per field, in one transaction, which ends also when the
  /// source or a row fails: the rows before it stay. The number of rows.
  std::int64_t AjouteLignes(std::span<const int> fields, RowSource& source);
  /// Empty rows, in one transaction; `avance` is told now and then how far it came. The bookmark of
  /// the last.
  Bookmark AjouteLignesVides(std::int64_t count, const Recordset::Progress& avance = {});
  /// The row on which a cursor stands.
  void ModifieLigne(Recordset& rows, const Remplissage& remplit);
  std::int64_t ModifieLignes(const RowPass& pass, RowChange& change);
  std::int64_t RemplitLignes(std::span<const int> fields, std::span<const Cell> values,
                             const Recordset::Progress& avance);
  std::int64_t RemplaceValeur(int field, const Cell& before, const Cell& value,
                              const Recordset::Progress& avance);
  std::int64_t SupprimeLignes(std::span<const Bookmark> rows);

  // The whole table, beside the cursors: who calls these binds the data control anew.
  void VideTable();
  /// In one transaction, which ends also when the source or a row fails: the rows before it stay.
  std::int64_t InsereLignes(std::span<const std::string_view> columns, RowSource& source);

  DistributionHeader& Entete();  ///< to be changed

  // When it ends:
  /// The row becomes the current one.
  void VaA(Bookmark row);
  /// The current row is the one at a position, or the last where fewer are left.
  void VaAPosition(std::int64_t position);

  /// The file counts as modified whether or not a row or the header was changed.
  void MarqueModifie() { marks_ = modified_ = true; }
  /// What is changed here is no work that could be lost: a file was read, an empty one made.
  void LaisseNonModifie() { marks_ = false; }

  void Valide();

 private:
  void Note(Aspect aspect);
  void Annule();
  Recordset& Curseur();
  void Termine();

  Document& document_;
  std::string name_;
  bool entire_;
  std::optional<Transaction> transaction_;
  std::optional<DistributionHeader> headerBefore_;
  std::unique_ptr<Recordset> cursor_;
  Changes changes_;
  std::function<void(Recordset&)> goTo_;  ///< the current row, once the rest stands
  bool marks_ = true;
  bool modified_ = false;
  bool ended_ = false;
};

}  // namespace talpena
