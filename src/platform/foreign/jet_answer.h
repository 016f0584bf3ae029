// What the process that reads an Access file answers (see jet_extract.h), taken apart. No length
// and no byte of it is trusted: all that makes no sense raises UnrecognizedFormat (3343).
#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foreign/jet_extract.h"
#include "platform/foreign/jet_limits.h"
#include "platform/foreign/jet_values.h"
#include "platform/table_engine.h"

namespace talpena {

struct TableJet {
  struct Colonne {
    JetType type;
    int echelle;  ///< decimals of a Numeric
  };

  TableDef definition;
  std::vector<Colonne> colonnes;
  std::uint32_t page = 0;
  std::uint32_t lignes = 0;
};

/// A saved query: its name and kind, and the number that its rows in MSysQueries bear.
struct RequeteJet {
  QueryDef definition;
  std::uint32_t objet = 0;
};

/// What a file holds.
struct CatalogueJet {
  std::vector<TableJet> tables;
  std::vector<TableDef> systeme;
  std::vector<RequeteJet> requetes;
  std::uint32_t pageRequetes = 0;  ///< of MSysQueries; 0 when the file has none

  bool Depasse(const LimitesJet& limits) const {
    return tables.size() > limits.tables || systeme.size() + requetes.size() > limits.autres;
  }
};

/// The failure that a damaged file ends in.
[[noreturn]] void EchecFormatJet(const std::string& path);

/// The bytes of an answer, as numbers and texts.
class ReponseJet {
 public:
  /// Fills the whole buffer; false when there are no more bytes.
  using Lecture = std::function<bool(char* buffer, std::size_t count)>;

  /// @param path  of the file, for the failure
  ReponseJet(std::string path, Lecture lecture)
      : path_(std::move(path)), lecture_(std::move(lecture)) {}

  TrameJet Marque();  ///< the next one that means something
  std::uint32_t Nombre();
  void Octets(std::string& into, std::size_t most);
  std::string Nom();
  [[noreturn]] void Echoue() const { EchecFormatJet(path_); }

 private:
  void Lit(char* buffer, std::size_t count);

  std::string path_;
  Lecture lecture_;
};

/// The whole answer to ExtraitTables.
CatalogueJet LitCatalogueJet(ReponseJet& answer, JetVersion version, const LimitesJet& limits);
/// A table's definition, behind its mark.
TableJet LitTableJet(ReponseJet& answer, JetVersion version, const LimitesJet& limits);

/// The rows of a table, one after the other, as cells.
class LignesJet final : public RowSource {
 public:
  LignesJet(ReponseJet answer, const std::vector<TableJet::Colonne>& columns, JetVersion version)
      : colonnes_(columns),
        version_(version),
        textes_(colonnes_.size()),
        reponse_(std::move(answer)) {}

  bool Suivante(std::span<Cell> cells) override;

 private:
  using Octets = std::optional<std::string_view>;

  Octets Prochaine(std::string_view& rest) const;
  Cell Valeur(std::size_t column, const Octets& bytes);
  Cell Texte(std::size_t column, std::optional<std::string> text);
  template <typename Number>
  Cell Exige(const std::optional<Number>& value) const {
    if (!value) reponse_.Echoue();
    return Cell::Of(*value);
  }

  std::vector<TableJet::Colonne> colonnes_;
  JetVersion version_;
  std::vector<std::string> textes_;  ///< decoded texts, kept until the next row
  std::string ligne_;
  bool finie_ = false;
  ReponseJet reponse_;
};

}  // namespace talpena
