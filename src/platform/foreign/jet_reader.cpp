#include "platform/foreign/jet_reader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <optional>
#include <set>
#include <utility>

#include "common/talpena_error.h"
#include "common/text.h"
#include "platform/foreign/isolated_process.h"
#include "platform/foreign/jet_extract.h"
#include "platform/foreign/jet_values.h"

namespace talpena {
namespace {

constexpr std::size_t octetsNom = 1024;  // of a table or column; the format allows 64 characters
constexpr std::size_t octetsLigne = std::size_t{256} << 20;

[[noreturn]] void EchecFormat(const std::string& path) {
  throw TalpenaError(ErrorNumber::UnrecognizedFormat,
                     "Unrecognized database format '" + path + "'.", {.about = {path}});
}

/// An open file that was found to be one of ours.
struct Fichier {
  std::string path;
  Descripteur fd;
  std::size_t taille = 0;
  JetVersion version = JetVersion::Jet4;
  LimitesJet limites;
  std::shared_ptr<const WorkBeat> attente;  ///< who waits for what is read

  FichierJet Vue() const { return {fd.Numero(), taille}; }
};

struct Colonne {
  JetType type;
  int echelle;  ///< decimals of a Numeric
};

struct TableJet {
  TableDef definition;
  std::vector<Colonne> colonnes;
  std::uint32_t page = 0;
  std::uint32_t lignes = 0;
};

/// What a file holds.
struct CatalogueJet {
  std::vector<TableJet> tables;
  std::vector<TableDef> systeme;
  std::vector<QueryDef> requetes;

  bool Depasse(const LimitesJet& limits) const {
    return tables.size() > limits.tables || systeme.size() + requetes.size() > limits.autres;
  }
};

/// The child's answer, every length in it doubted.
class Reponse {
 public:
  Reponse(const Fichier& file, const ProcessusIsole::Travail& travail)
      : path_(file.path), processus_(travail, file.limites.processus, *file.attente) {}

  TrameJet Marque() {
    auto mark = TrameJet::Vie;
    while (mark == TrameJet::Vie) {
      char byte = 0;
      Lit(&byte, 1);
      mark = static_cast<TrameJet>(byte);
    }
    return mark;
  }
  std::uint32_t Nombre() {
    std::uint32_t value = 0;
    char bytes[sizeof value];
    Lit(bytes, sizeof bytes);
    std::memcpy(&value, bytes, sizeof value);
    return value;
  }
  void Octets(std::string& into, std::size_t most) {
    const std::size_t length = Nombre();
    if (length > most) EchecFormat(path_);
    into.resize(length);
    Lit(into.data(), length);
  }
  std::string Nom() {
    std::string name;
    Octets(name, octetsNom);
    if (name.empty() || !EstUtf8(name)) EchecFormat(path_);
    return name;
  }
  const std::string& Chemin() const { return path_; }

 private:
  void Lit(char* buffer, std::size_t count) {
    if (!processus_.Lit(buffer, count)) EchecFormat(path_);
  }

  std::string path_;
  ProcessusIsole processus_;
};

std::optional<FieldType> TypeDeChamp(JetType type) {
  switch (type) {
    case JetType::Boolean:
      return FieldType::Boolean;
    case JetType::Byte:
      return FieldType::Byte;
    case JetType::Integer:
      return FieldType::Integer;
    case JetType::Long:
      return FieldType::Long;
    case JetType::Currency:
      return FieldType::Currency;
    case JetType::Single:
      return FieldType::Single;
    case JetType::Double:
    case JetType::Numeric:
      return FieldType::Double;
    case JetType::Date:
      return FieldType::Date;
    case JetType::Text:
    case JetType::Guid:
      return FieldType::Text;
    case JetType::Memo:
      return FieldType::Memo;
    case JetType::Binary:
    case JetType::Ole:
      return FieldType::Binary;
  }
  return {};
}

/// Characters that a column of a size in bytes can hold; 0 for all but texts.
int Caracteres(JetType type, JetVersion version, std::uint32_t bytes) {
  constexpr int guid = 38, longest = 255;
  if (type == JetType::Guid) return guid;
  if (type != JetType::Text) return 0;
  const std::uint32_t characters = version == JetVersion::Jet3 ? bytes : bytes / 2;
  return std::clamp(static_cast<int>(characters), 1, longest);
}

void LitColonne(Reponse& answer, JetVersion version, TableJet& table) {
  const auto type = static_cast<JetType>(answer.Nombre());
  const std::uint32_t size = answer.Nombre();
  const auto scale = static_cast<int>(answer.Nombre());
  const bool automatic = answer.Nombre() != 0;
  const auto fieldType = TypeDeChamp(type);
  if (!fieldType) EchecFormat(answer.Chemin());
  table.colonnes.push_back({type, scale});
  table.definition.fields.push_back({.name = answer.Nom(),
                                     .type = *fieldType,
                                     .size = Caracteres(type, version, size),
                                     .allowZeroLength = true,
                                     .autoIncrement = automatic && type == JetType::Long});
}

/// A sound table has none: such a name would stand for one column or the other.
bool NomEnDouble(const std::vector<FieldDef>& fields) {
  std::set<std::string> names;
  return !std::all_of(fields.begin(), fields.end(), [&](const FieldDef& field) {
    return names.insert(Minuscules(field.name)).second;
  });
}

TableJet LitTable(const Fichier& file, Reponse& answer) {
  TableJet table;
  table.page = answer.Nombre();
  table.definition.attributes = answer.Nombre();
  table.definition.name = answer.Nom();
  table.lignes = answer.Nombre();
  const std::size_t columns = answer.Nombre();
  if (columns == 0 || columns > file.limites.colonnes) EchecFormat(file.path);
  for (std::size_t i = 0; i < columns; ++i) LitColonne(answer, file.version, table);
  if (NomEnDouble(table.definition.fields)) EchecFormat(file.path);
  return table;
}

/// A catalogue that does not list itself has lost rows.
bool EstEntier(const CatalogueJet& catalogue) {
  return std::any_of(catalogue.systeme.begin(), catalogue.systeme.end(),
                     [](const TableDef& table) { return table.name == "MSysObjects"; });
}

CatalogueJet LitCatalogue(const Fichier& file) {
  constexpr std::uint32_t kind = 0xF0;  // of a query, among its attributes
  Reponse answer(file, [&](Tuyau& out) { ExtraitTables(file.Vue(), file.limites, out); });
  CatalogueJet catalogue;
  while (!catalogue.Depasse(file.limites)) {
    const TrameJet mark = answer.Marque();
    if (mark == TrameJet::Fin && EstEntier(catalogue)) return catalogue;
    if (mark == TrameJet::Table) {
      catalogue.tables.push_back(LitTable(file, answer));
      continue;
    }
    if (mark != TrameJet::Systeme && mark != TrameJet::Requete) break;
    const std::uint32_t attributes = answer.Nombre();
    const std::string name = answer.Nom();
    if (mark == TrameJet::Systeme) {
      catalogue.systeme.push_back(
          {.name = name, .fields = {}, .indexes = {}, .attributes = attributes});
    } else {
      catalogue.requetes.push_back(
          {.name = name, .kind = static_cast<int>(attributes & kind), .sql = {}, .fields = {}});
    }
  }
  EchecFormat(file.path);
}

class LignesJet final : public RowSource {
 public:
  LignesJet(std::shared_ptr<const Fichier> file, const TableJet& table)
      : file_(std::move(file)),
        colonnes_(table.colonnes),
        textes_(colonnes_.size()),
        reponse_(*file_, [this, page = table.page](Tuyau& out) {
          ExtraitLignes(file_->Vue(), page, file_->limites, out);
        }) {}

  bool Suivante(std::span<Cell> cells) override {
    if (finie_) return false;
    const TrameJet mark = reponse_.Marque();
    if (mark == TrameJet::Fin) {
      finie_ = true;
      return false;
    }
    if (mark != TrameJet::Ligne) EchecFormat(file_->path);
    reponse_.Octets(ligne_, octetsLigne);
    std::string_view rest = ligne_;
    for (std::size_t i = 0; i < colonnes_.size(); ++i) {
      const Cell cell = Valeur(i, Prochaine(rest));
      if (i < cells.size()) cells[i] = cell;
    }
    for (std::size_t i = colonnes_.size(); i < cells.size(); ++i) cells[i] = Cell::Null();
    return true;
  }

 private:
  using Octets = std::optional<std::string_view>;

  /// Takes one value off the row; empty for Null.
  Octets Prochaine(std::string_view& rest) const {
    std::uint32_t length = 0;
    if (rest.size() < sizeof length) EchecFormat(file_->path);
    std::memcpy(&length, rest.data(), sizeof length);
    rest.remove_prefix(sizeof length);
    if (length == absentJet) return {};
    if (length > rest.size()) EchecFormat(file_->path);
    const std::string_view bytes = rest.substr(0, length);
    rest.remove_prefix(length);
    return bytes;
  }

  template <typename Number>
  Cell Exige(const std::optional<Number>& value) const {
    if (!value) EchecFormat(file_->path);
    return Cell::Of(*value);
  }

  Cell Valeur(std::size_t column, const Octets& bytes) {
    if (!bytes) return Cell::Null();
    switch (colonnes_[column].type) {
      case JetType::Boolean:
        return Cell::Of(std::int64_t{*bytes == std::string_view("\1") ? -1 : 0});
      case JetType::Byte:  // the only unsigned one
        return Cell::Of(Exige(EntierJet(*bytes, 1)).integer & 0xFF);
      case JetType::Integer:
        return Exige(EntierJet(*bytes, 2));
      case JetType::Long:
        return Exige(EntierJet(*bytes, 4));
      case JetType::Currency:
        return Exige(MonnaieJet(*bytes));
      case JetType::Single:
        return Exige(SimpleJet(*bytes));
      case JetType::Double:
      case JetType::Date:
        return Exige(DoubleJet(*bytes));
      case JetType::Numeric:
        return Exige(NumeriqueJet(*bytes, colonnes_[column].echelle));
      case JetType::Guid:
        return Texte(column, GuidJet(*bytes));
      case JetType::Text:
      case JetType::Memo:
        return Texte(column, TexteJet(file_->version, *bytes));
      case JetType::Binary:
      case JetType::Ole:
        return Cell::Of(*bytes);
    }
    EchecFormat(file_->path);
  }

  /// Keeps a decoded text until the next row.
  Cell Texte(std::size_t column, std::optional<std::string> text) {
    if (!text) EchecFormat(file_->path);
    textes_[column] = std::move(*text);
    return Cell::Of(std::string_view(textes_[column]));
  }

  std::shared_ptr<const Fichier> file_;
  std::vector<Colonne> colonnes_;
  std::vector<std::string> textes_;
  std::string ligne_;
  bool finie_ = false;
  Reponse reponse_;
};

class BaseJet final : public ForeignDatabase {
 public:
  explicit BaseJet(Fichier file)
      : file_(std::make_shared<const Fichier>(std::move(file))), catalogue_(LitCatalogue(*file_)) {}

  std::vector<TableDef> Tables() override {
    std::vector<TableDef> definitions;
    for (const TableJet& table : catalogue_.tables) definitions.push_back(table.definition);
    return definitions;
  }

  std::vector<TableDef> SystemTables() override { return catalogue_.systeme; }
  /// Names and kinds: what they ask for is kept elsewhere in the file.
  std::vector<QueryDef> Queries() override { return catalogue_.requetes; }

  std::unique_ptr<RowSource> Rows(std::string_view table) override {
    return std::make_unique<LignesJet>(file_, Trouve(table));
  }

  std::int64_t NombreLignes(std::string_view table) override { return Trouve(table).lignes; }

 private:
  const TableJet& Trouve(std::string_view name) const {
    const auto& tables = catalogue_.tables;
    const auto found = std::find_if(tables.begin(), tables.end(), [&](const TableJet& t) {
      return EgalSansCasse(t.definition.name, name);
    });
    if (found == tables.end()) {
      throw TalpenaError(ErrorNumber::TableNotFound,
                         "The database engine cannot find the table '" + std::string(name) + "'.",
                         {.about = {std::string(name)}});
    }
    return *found;
  }

  std::shared_ptr<const Fichier> file_;
  CatalogueJet catalogue_;
};

/// Not blocking, so that a pipe or a device in a file's place cannot hold the program.
Descripteur OuvreEnLecture(const std::string& path) {
  return Descripteur(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
}

std::optional<JetVersion> LitVersion(const Descripteur& fd) {
  std::array<char, JetHeadBytes> head{};
  if (pread(fd.Numero(), head.data(), head.size(), 0) != static_cast<ssize_t>(head.size())) {
    return {};
  }
  return VersionJet({head.data(), head.size()});
}

/// Whole pages, and at least those that hold the catalogue of tables.
bool TailleSensee(const Fichier& file) {
  constexpr std::size_t fewestPages = 16;  // those of a database without tables
  const std::size_t page = TaillePageJet(file.version);
  return file.taille <= file.limites.octetsFichier && file.taille >= fewestPages * page &&
         file.taille % page == 0;
}

}  // namespace

bool EstFichierJet(const std::string& path) {
  const Descripteur fd = OuvreEnLecture(path);
  return fd.Ouvert() && LitVersion(fd).has_value();
}

std::unique_ptr<ForeignDatabase> OuvreJet(const std::string& path, const LimitesJet& limits,
                                          std::shared_ptr<const WorkBeat> attente) {
  Fichier file{
      .path = path, .fd = OuvreEnLecture(path), .limites = limits, .attente = std::move(attente)};
  if (!file.fd.Ouvert() && errno == EACCES) {
    throw TalpenaError(ErrorNumber::PermissionDenied, "Permission denied: '" + path + "'.",
                       {.about = {path}});
  }
  if (!file.fd.Ouvert()) {
    throw TalpenaError(ErrorNumber::DatabaseNotFound, "Could not find file '" + path + "'.",
                       {.about = {path}});
  }
  struct stat status {};
  if (fstat(file.fd.Numero(), &status) != 0 || !S_ISREG(status.st_mode)) EchecFormat(path);
  const auto version = LitVersion(file.fd);
  if (!version) EchecFormat(path);
  file.version = *version;
  file.taille = static_cast<std::size_t>(status.st_size);
  if (!TailleSensee(file)) EchecFormat(path);
  return std::make_unique<BaseJet>(std::move(file));
}

}  // namespace talpena
