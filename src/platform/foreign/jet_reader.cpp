#include "platform/foreign/jet_reader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <utility>

#include "common/talpena_error.h"
#include "common/text.h"
#include "platform/foreign/isolated_process.h"
#include "platform/foreign/jet_answer.h"
#include "platform/foreign/jet_extract.h"
#include "platform/foreign/jet_queries.h"
#include "platform/foreign/jet_values.h"

namespace talpena {
namespace {

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

/// Starts a process that reads the file; its answer lasts as long as it is read.
ReponseJet Demande(std::shared_ptr<const Fichier> file, const ProcessusIsole::Travail& work) {
  auto process = std::make_shared<ProcessusIsole>(work, file->limites.processus, *file->attente);
  const std::string path = file->path;
  return {path, [file = std::move(file), process = std::move(process)](
                    char* buffer, std::size_t count) { return process->Lit(buffer, count); }};
}

CatalogueJet LitCatalogue(const std::shared_ptr<const Fichier>& file) {
  ReponseJet answer =
      Demande(file, [&](Tuyau& out) { ExtraitTables(file->Vue(), file->limites, out); });
  return LitCatalogueJet(answer, file->version, file->limites);
}

/// Gives the queries their texts. A file whose tables can be read is not refused for them.
void LitTextes(const std::shared_ptr<const Fichier>& file, CatalogueJet& catalogue) {
  if (catalogue.requetes.empty() || catalogue.pageRequetes == 0) return;
  ReponseJet answer = Demande(file, [&](Tuyau& out) {
    ExtraitTable(file->Vue(), catalogue.pageRequetes, file->limites, out);
  });
  try {
    if (answer.Marque() != TrameJet::Table) return;
    const TableJet table = LitTableJet(answer, file->version, file->limites);
    LignesJet rows(std::move(answer), table.colonnes, file->version);
    DonneTextes(catalogue.requetes, LitLignesRequetes(table.definition, rows));
  } catch (const TalpenaError& error) {
    if (error.number() != ErrorNumber::UnrecognizedFormat) throw;
  }
}

class BaseJet final : public ForeignDatabase {
 public:
  explicit BaseJet(Fichier file)
      : file_(std::make_shared<const Fichier>(std::move(file))), catalogue_(LitCatalogue(file_)) {}

  std::vector<TableDef> Tables() override {
    std::vector<TableDef> definitions;
    for (const TableJet& table : catalogue_.tables) definitions.push_back(table.definition);
    return definitions;
  }

  std::vector<TableDef> SystemTables() override { return catalogue_.systeme; }
  std::vector<QueryDef> Queries() override {
    if (!std::exchange(textesLus_, true)) LitTextes(file_, catalogue_);
    std::vector<QueryDef> definitions;
    for (const RequeteJet& query : catalogue_.requetes) definitions.push_back(query.definition);
    return definitions;
  }

  std::unique_ptr<RowSource> Rows(std::string_view table) override {
    const TableJet& found = Trouve(table);
    const auto work = [&](Tuyau& out) {
      ExtraitLignes(file_->Vue(), found.page, file_->limites, out);
    };
    return std::make_unique<LignesJet>(Demande(file_, work), found.colonnes, file_->version);
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
  bool textesLus_ = false;  ///< of the queries
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
  if (fstat(file.fd.Numero(), &status) != 0 || !S_ISREG(status.st_mode)) EchecFormatJet(path);
  const auto version = LitVersion(file.fd);
  if (!version) EchecFormatJet(path);
  file.version = *version;
  file.taille = static_cast<std::size_t>(status.st_size);
  if (!TailleSensee(file)) EchecFormatJet(path);
  return std::make_unique<BaseJet>(std::move(file));
}

}  // namespace talpena
