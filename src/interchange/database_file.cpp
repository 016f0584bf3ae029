#include "interchange/database_file.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/msg_id_export.h"
#include "common/paths.h"
#include "common/string_table.h"
#include "common/text.h"
#include "store/filter.h"

namespace talpena {
namespace {

TalpenaError EstDejaLa(const DatabaseTarget& target, const DatabasePlace& place) {
  if (target.place == TargetPlace::Folder) {
    return {ErrorNumber::TableExists,
            "Table '" + place.table + "' already exists.",
            {.text = MsgId::TableDansDossier, .about = {place.table}}};
  }
  return {ErrorNumber::FileExists,
          "File already exists: '" + place.Chemin() + "'.",
          {.about = {place.Chemin()}}};
}

class DatabaseFile {
 public:
  DatabaseFile(CommandContext c, const DatabaseTarget& target, const DatabasePlace& place,
               const std::vector<std::string>& former)
      : c_(c), target_(target), place_(place) {
    VerifiePlace(former);
    if (target.place != TargetPlace::Folder) SuitLien();
    for (const std::string& path : former) former_.push_back(NomDe(SansLien(path)));
    side_ = c.io.files.CreeDossierACote(place_.Chemin());
  }

  std::optional<TalpenaError> Ecrit(DatabaseRows& rows) {
    std::optional<TalpenaError> faute;
    try {
      faute = EcritACote(rows);
      if (faute && !EstFauteDeRangee(*faute) && !EstLimiteDuFormat(*faute)) {
        faute = FauteDuDisque(*faute, rows.Total());
      }
    } catch (const TalpenaError& failure) {
      throw SousSonNom(failure);
    }
    Place();
    return faute;
  }

 private:
  void VerifiePlace(const std::vector<std::string>& former) {
    std::vector<std::string> standing = FichiersRemplaces(target_, place_, c_.io.files);
    if (c_.io.files.Empreinte(place_.Chemin())) standing.push_back(place_.Chemin());
    const auto mayGo = [&](const std::string& path) {
      return std::find(former.begin(), former.end(), path) != former.end();
    };
    if (!std::all_of(standing.begin(), standing.end(), mayGo)) throw EstDejaLa(target_, place_);
  }

  /// A link to a file stays one, and the file that it leads to is written.
  void SuitLien() {
    const std::string path = SansLien(place_.Chemin());
    place_.folder = DossierDe(path);
    place_.file = NomDe(path);
  }
  std::string SansLien(const std::string& path) {
    return target_.place == TargetPlace::Folder ? path : c_.io.files.SansLiens(path);
  }

  std::optional<TalpenaError> EcritACote(DatabaseRows& rows) {
    const std::unique_ptr<Database> database = Ouvre();
    TableDef table{.name = place_.table, .fields = {}, .indexes = {}};
    for (const ExportColumn& column : rows.Colonnes()) table.fields.push_back(column.field);
    database->CreateTable(table);
    std::vector<std::string_view> names;
    for (const FieldDef& field : table.fields) names.push_back(field.name);
    try {
      database->InsertRows(table.name, names, rows);
    } catch (const TalpenaError& failure) {
      if (failure.number() == ErrorNumber::Cancelled) throw;
      return SousSonNom(rows.Situe(c_.state.Langue, failure));
    }
    return {};
  }

  /// The rows until there are worth more than nothing, and less than a former table. With their
  /// number, where the file tells it.
  TalpenaError FauteDuDisque(const TalpenaError& faute, std::int64_t total) {
    if (!former_.empty()) throw faute;
    const std::optional<std::int64_t> rows = CompteLignes();
    if (!rows) return faute.AvecConseil(MsgId::ExportJusqualors);
    if (*rows == 0) throw faute;
    const std::int16_t langue = c_.state.Langue;
    ErrorWords words = faute.words();
    words.about.push_back(
        AvecNombres(langue, Texte(langue, MsgId::ExportPremieres), {*rows, total}));
    return {faute.number(), faute.description(), std::move(words)};
  }

  std::optional<std::int64_t> CompteLignes() {
    try {
      const std::unique_ptr<Database> database =
          c_.io.engine.OpenDatabase(side_->Chemin() + place_.file, true, target_.connect);
      const std::vector<std::string> tables = database->TableNames();
      if (tables.empty()) return 0;
      return database->OpenRecordset(tables.front())->RecordCount();
    } catch (const TalpenaError&) {  // the failure before this one is told
      return {};
    }
  }

  std::unique_ptr<Database> Ouvre() {
    TableEngine& engine = c_.io.engine;
    switch (target_.place) {
      case TargetPlace::NewFile:
        return engine.CreateForeignDatabase(side_->Chemin() + place_.file, target_.connect, {});
      case TargetPlace::File:
        return engine.OpenDatabase(side_->Chemin() + place_.file, false, target_.connect);
      case TargetPlace::Folder:
        break;
    }
    return engine.OpenDatabase(side_->Chemin(), false, target_.connect);
  }

  void Place() {
    VerifieSansUsager(target_, place_, c_.io.files);
    try {
      side_->MetEnPlace(former_);
    } catch (const TalpenaError& failure) {
      if (failure.number() == ErrorNumber::FileExists) throw EstDejaLa(target_, place_);
      throw SousSonNom(failure);
    }
  }

  /// The user knows the file by the name that it is going to have.
  TalpenaError SousSonNom(const TalpenaError& failure) const {
    ErrorWords words = failure.words();
    for (std::string& about : words.about) about = Remplace(about, side_->Chemin(), place_.folder);
    return {failure.number(), Remplace(failure.description(), side_->Chemin(), place_.folder),
            std::move(words)};
  }

  CommandContext c_;
  const DatabaseTarget& target_;
  DatabasePlace place_;
  std::vector<std::string> former_;
  std::unique_ptr<SideFolder> side_;
};

}  // namespace

std::optional<TalpenaError> EcritBase(CommandContext c, const DatabaseTarget& target,
                                      const DatabasePlace& place,
                                      const std::vector<std::string>& former, DatabaseRows& rows) {
  return DatabaseFile(c, target, place, former).Ecrit(rows);
}

}  // namespace talpena
