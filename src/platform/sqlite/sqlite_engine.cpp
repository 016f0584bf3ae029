#include "platform/sqlite/sqlite_engine.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include "platform/sqlite/errors.h"
#include "platform/sqlite/imported_database.h"
#include "platform/sqlite/kept_table.h"
#include "platform/sqlite/private_file.h"
#include "platform/sqlite/sqlite_database.h"

namespace talpena {
namespace {

namespace fs = std::filesystem;
using namespace std::literals;

fs::path Chemin(const std::string& utf8) {
  return fs::path(reinterpret_cast<const char8_t*>(utf8.c_str()));
}

bool Existe(const std::string& path) {
  std::error_code ignored;
  return fs::exists(Chemin(path), ignored);
}

/// A pipe or a device is no database, and opening one may wait for ever.
void RefuseTuyaux(const std::string& path) {
  std::error_code ignored;
  const fs::file_status status = fs::status(Chemin(path), ignored);
  if (!fs::is_regular_file(status) && !fs::is_directory(status)) throw sqlite::FormatInconnu(path);
}

bool EstFichierSqlite(const std::string& path) {
  constexpr std::string_view magic = "SQLite format 3\0"sv;
  char head[16] = {};
  std::ifstream file(Chemin(path), std::ios::binary);
  return file.read(head, sizeof head) && std::string_view(head, sizeof head) == magic;
}

// A journal that a crash left would be played back into the new file.
void EnleveJournal(const std::string& path) {
  for (const char* suffix : {"-journal", "-wal", "-shm"}) {
    std::error_code failed;
    fs::remove(Chemin(path + suffix), failed);
    if (failed) throw sqlite::AccesRefuse(path + suffix);
  }
}

std::unique_ptr<Database> RemplitFichier(const std::string& path) {
  try {
    return sqlite::SqliteDatabase::Cree(path);
  } catch (const TalpenaError& error) {
    std::error_code ignored;
    fs::remove(Chemin(path), ignored);
    if (error.number() != ErrorNumber::PathFileAccess) throw;
    throw sqlite::AccesRefuse(path);
  }
}

void VerifieDossier(const std::string& path) {
  const fs::path folder = Chemin(path).parent_path();
  std::error_code ignored;
  if (!folder.empty() && !fs::is_directory(folder, ignored)) {
    throw TalpenaError(ErrorNumber::PathNotFound, "Path not found: '" + path + "'.",
                       {.about = {path}});
  }
}

class SqliteEngine final : public TableEngine {
 public:
  explicit SqliteEngine(std::vector<std::unique_ptr<ForeignFormat>> formats)
      : formats_(std::move(formats)) {}

  void SuitAttente(const WorkBeat& attente) override {
    for (const auto& format : formats_) format->SuitAttente(attente);
  }

  std::unique_ptr<Database> CreateDatabase(const std::string& path,
                                           const NewDatabase& settings) override {
    if (settings != NewDatabase{}) throw sqlite::ArgumentInvalide();
    VerifiePlace(path);
    EnleveJournal(path);
    sqlite::CreeFichierPrive(path);
    return RemplitFichier(path);
  }

  std::unique_ptr<Database> OpenDatabase(const std::string& path, bool readOnly,
                                         std::string_view connect) override {
    if (!readOnly && !connect.empty()) {
      return std::make_unique<sqlite::ImportedDatabase>(FormatEcrit(connect).OuvrePourEcrire(path),
                                                        true);
    }
    VerifieSource(path);
    if (connect.empty() && EstFichierSqlite(path)) return OuvreLeNotre(path, readOnly);
    return std::make_unique<sqlite::ImportedDatabase>(FormatLu(path, connect).Ouvre(path), false);
  }

  std::unique_ptr<Database> OpenKept(const std::string& path, std::string_view connect,
                                     const KeptTable& kept) override {
    VerifieSource(path);
    if (connect.empty() && EstFichierSqlite(path)) return OuvreLeNotre(path, true);
    if (auto copy = sqlite::OuvreCopie(kept)) return copy;
    return sqlite::OuvreEnGardant(FormatLu(path, connect).Ouvre(path), kept);
  }

  std::unique_ptr<Database> CreateForeignDatabase(const std::string& path, std::string_view connect,
                                                  const NewDatabase& settings) override {
    ForeignFormat& format = FormatEcrit(connect);
    VerifiePlace(path);
    return std::make_unique<sqlite::ImportedDatabase>(format.Cree(path, settings), true);
  }

 private:
  static void VerifiePlace(const std::string& path) {
    VerifieDossier(path);
    if (path.empty() || Existe(path)) {
      throw TalpenaError(ErrorNumber::FileExists, "File already exists: '" + path + "'.",
                         {.about = {path}});
    }
  }

  static void VerifieSource(const std::string& path) {
    if (!Existe(path)) throw sqlite::FichierIntrouvable(path);
    RefuseTuyaux(path);
  }

  ForeignFormat& FormatLu(const std::string& path, std::string_view connect) {
    for (const auto& format : formats_) {
      if (format->Reconnait(path, connect)) return *format;
    }
    throw sqlite::FormatInconnu(path);
  }

  ForeignFormat& FormatEcrit(std::string_view connect) {
    for (const auto& format : formats_) {
      if (format->EstEcrit(connect)) return *format;
    }
    throw sqlite::NonPrevu("tables of the format '" +
                           std::string(connect.empty() ? "MS Access" : connect) +
                           "' cannot be written");
  }

  static std::unique_ptr<Database> OuvreLeNotre(const std::string& path, bool readOnly) {
    try {
      return sqlite::SqliteDatabase::Ouvre(path, readOnly);
    } catch (const TalpenaError& error) {
      if (error.number() == ErrorNumber::UnrecognizedFormat) throw sqlite::FormatInconnu(path);
      throw;
    }
  }

  std::vector<std::unique_ptr<ForeignFormat>> formats_;
};

}  // namespace

std::unique_ptr<TableEngine> CreeMoteurSqlite(std::vector<std::unique_ptr<ForeignFormat>> formats) {
  return std::make_unique<SqliteEngine>(std::move(formats));
}

}  // namespace talpena
