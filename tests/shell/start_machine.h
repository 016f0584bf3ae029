// A machine that writes down, in one list, everything that starting and stopping does to it.
#pragma once
#include <algorithm>
#include <cstdio>
#include <deque>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "fakes/document_states.h"
#include "fakes/fake_files.h"
#include "fakes/fake_platform.h"
#include "fakes/fake_view.h"
#include "fakes/refusing_rows.h"
#include "shell/start_stop.h"

namespace talpena::test {

using Journal = std::vector<std::string>;

/// A SELECT that found nothing.
class NoRows : public RefusingRows {
 public:
  const std::vector<FieldDef>& Fields() const override { return fields_; }
  int FieldIndex(std::string_view) const override { return 0; }
  bool BOF() const override { return true; }
  bool EOF_() const override { return true; }
  void MoveFirst() override {}
  void MoveLast() override {}
  void MoveNext() override {}
  void MovePrevious() override {}
  std::int64_t RecordCount() override { return 0; }
  Bookmark GetBookmark() const override { return 0; }
  void SetBookmark(Bookmark) override {}
  std::int64_t AbsolutePosition() const override { return -1; }
  void SetAbsolutePosition(std::int64_t) override {}
  Cell Get(int) override { return {}; }
  void AddNew() override {}
  void Edit() override {}
  void Set(int, Cell) override {}
  void Update() override {}
  void CancelUpdate() override {}
  Bookmark LastModified() const override { return 0; }
  void Delete() override {}
  bool FindFirst(std::string_view) override { return false; }
  bool FindNext(std::string_view) override { return false; }
  std::unique_ptr<Recordset> Clone() override { return std::make_unique<NoRows>(); }

 private:
  std::vector<FieldDef> fields_;
};

class JournalDatabase : public Database {
 public:
  explicit JournalDatabase(Journal& journal) : journal_(journal) {}
  void CreateTable(const TableDef& table) override {
    journal_.push_back("CreateTable " + table.name);
  }
  std::vector<std::string> TableNames() override { return {}; }
  TableDef Table(std::string_view) override { return {}; }
  std::vector<TableDef> Tables() override { return {}; }
  std::vector<QueryDef> Queries() override { return {}; }
  QueryDef Query(std::string_view) override { return {}; }
  void SuitImport(ImportProgress) override {}
  void SuitTravail(WorkBeat) override {}
  std::unique_ptr<Recordset> OpenRecordset(std::string_view) override {
    return std::make_unique<NoRows>();
  }
  std::int64_t Execute(std::string_view) override { return 0; }
  std::int64_t InsertRows(std::string_view, std::span<const std::string_view>,
                          RowSource&) override {
    return 0;
  }
  void BeginTrans() override {}
  void CommitTrans() override {}
  void Rollback() override {}
  bool EnTransaction() const override { return false; }

 private:
  Journal& journal_;
};

class JournalEngine : public TableEngine {
 public:
  explicit JournalEngine(Journal& journal) : journal_(journal) {}
  std::deque<int> failures;  ///< error numbers that the next calls of CreateDatabase raise
  WorkBeat attente;

  void SuitAttente(const WorkBeat& wait) override { attente = wait; }

  std::unique_ptr<Database> CreateDatabase(const std::string& path,
                                           const NewDatabase& settings) override {
    char locale[64];
    std::snprintf(locale, sizeof locale, ";LANGID=0x%04X;CP=%d;COUNTRY=%d", settings.langId,
                  settings.codePage, settings.country);
    journal_.push_back("CreateDatabase " + path + " " + locale);
    if (!failures.empty()) {
      const int number = failures.front();
      failures.pop_front();
      throw TalpenaError(number, "refused");
    }
    return std::make_unique<JournalDatabase>(journal_);
  }
  std::unique_ptr<Database> OpenDatabase(const std::string& path, bool, std::string_view) override {
    journal_.push_back("OpenDatabase " + path);
    if (attente && !attente()) throw TalpenaError(ErrorNumber::Cancelled, "given up");
    return std::make_unique<JournalDatabase>(journal_);
  }
  std::unique_ptr<Database> CreateForeignDatabase(const std::string&, std::string_view,
                                                  const NewDatabase&) override {
    return nullptr;
  }

 private:
  Journal& journal_;
};

class JournalSettings : public FakeSettings {
 public:
  explicit JournalSettings(Journal& journal) : journal_(journal) {}
  std::string Lit(std::string_view a, std::string_view s, std::string_view k,
                  std::string_view defaultText) override {
    if (k == "WorkingDir" && a == "Talpena") journal_.push_back("WorkingDir");
    if (k == "Language") journal_.push_back("ChargeReglages");
    return FakeSettings::Lit(a, s, k, defaultText);
  }
  void Ecrit(std::string_view a, std::string_view s, std::string_view k,
             std::string_view text) override {
    Note(k);
    FakeSettings::Ecrit(a, s, k, text);
  }
  bool refuse = false;  ///< nothing can be stored

 private:
  void Note(std::string_view key) {
    if (refuse) throw TalpenaError(ErrorNumber::PathFileAccess, "read-only");
    if (key == "Language") journal_.push_back("SauveReglages");
  }
  Journal& journal_;
};

class JournalFiles : public FakeFiles {
 public:
  explicit JournalFiles(Journal& steps) : steps_(steps) {}
  void Supprime(const std::string& path) override {
    steps_.push_back("Supprime " + path);
    FakeFiles::Supprime(path);
  }
  std::vector<std::string> nettoyes;  ///< paths beside which left-overs were cleared away
  void SupprimeRestes(const std::string& path) noexcept override { nettoyes.push_back(path); }
  std::vector<PlacedFile> places;  ///< by what a killed export left
  std::vector<PlacedFile> AcheveEchanges(const std::string&) noexcept override {
    return std::exchange(places, {});
  }

 private:
  Journal& steps_;
};

class JournalView : public FakeView {
 public:
  void ChangeSablier(bool hourglass) override {
    FakeView::ChangeSablier(hourglass);
    calls.push_back(hourglass ? "Sablier" : "Pointeur");
  }
};

class JournalShell : public ShellView {
 public:
  JournalShell(Journal& journal, ProcessState& state) : journal_(journal), state_(state) {}
  bool termine = false;
  std::string echecDe;  ///< name of the step that fails

  ScreenSize TailleEcran() const override { return {15360, 11520}; }
  void DesactiveMenus() override { Note("DesactiveMenus"); }
  void FondGrilleSysteme() override { Note("FondGrilleSysteme"); }
  void AppliqueReglages() override { Note("AppliqueReglages"); }
  void ReleveReglages() override { Note("ReleveReglages"); }
  void AppliqueLangue() override {
    Note("AppliqueLangue");
    // What the last steps set: another value before them shows that they are run, and when.
    MarqueModifie(state_.document);
    state_.document.ChangeOrdre({3, Direction::Descending});
  }
  void InitFenetres() override { Note("InitFenetres"); }
  void InitTDBgrid() override { Note("InitTDBgrid"); }
  void ColoreOptTri() override { Note("ColoreOptTri"); }
  void MontreFenetre() override { Note("MontreFenetre"); }
  void ColoreFenetres() override { Note("ColoreFenetres"); }
  void FermeSplash() override { Note("FermeSplash"); }
  void Termine() override {
    termine = true;
    Note("Termine");
  }

 private:
  void Note(const std::string& name) {
    journal_.push_back(name);
    if (name == echecDe) throw TalpenaError(ErrorNumber::DeviceFault, "the step failed");
  }
  Journal& journal_;
  ProcessState& state_;
};

/// A fresh process on a machine of its own, with DATUM.MDB where it is looked for.
struct StartMachine {
  StartMachine() {
    environment.variables["TEMP"] = "/tmp";
    state.AppDir = "/opt/talpena";
    files.Pose("/opt/talpena/DATUM.MDB", "there");
    vue.Suit(state.document);
  }
  void Charge(const std::string& commandLine = {}) { ChargeForm1(contexte, commandLine); }
  bool AFait(const std::string& step) const {
    return std::find(journal.begin(), journal.end(), step) != journal.end();
  }

  JournalView vue;
  Journal& journal = vue.calls;
  JournalEngine engine{journal};
  JournalFiles files{journal};
  JournalSettings settings{journal};
  FakeDialogues dialogues;
  FakeClock clock;
  FakeEnvironment environment;
  FakeSound sound;
  Platform io{engine, files, settings, dialogues, clock, environment, sound};
  ProcessState state;
  JournalShell shell{journal, state};
  ShellContext contexte{state, io, vue, vue, vue, shell};
};

}  // namespace talpena::test
