// Rows and header of the open distribution are changed by an Edition and by nothing else: what
// goes around it is neither told to the windows nor counted as modified.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "architecture/sources.h"

namespace talpena {
namespace {

using test::Fichiers;
using test::Lignes;

/// Who writes rows by the table engine itself: besides the edition, what fills another program's
/// database.
constexpr std::array<std::string_view, 3> writers = {"store/edition.cpp", "store/open_edit.h",
                                                     "interchange/database_file.cpp"};

/// Who sees the inside of the document.
constexpr std::array<std::string_view, 4> insiders = {"store/document.h", "store/document.cpp",
                                                      "store/edition.h", "store/edition.cpp"};

template <typename Names>
bool Parmi(const Names& names, std::string_view file) {
  return std::find(names.begin(), names.end(), file) != names.end();
}

/// Without comments and without what stands in texts.
std::string Code(const std::vector<std::string>& lines) {
  static const std::regex texts(R"("(\\.|[^"\\])*")");
  static const std::regex comments(R"(//.*$|/\*.*?\*/)");
  std::string code;
  for (std::string line : lines) {
    if (line.find('"') != std::string::npos) line = std::regex_replace(line, texts, "\"\"");
    if (line.find('/') != std::string::npos) line = std::regex_replace(line, comments, "");
    code += line + '\n';
  }
  return code;
}

/// Whether a source may be worth a closer look.
bool ParleDeLignes(const std::string& code) {
  constexpr std::array<const char*, 7> words = {"AddNew", "Edit",       "Update", "Delete",
                                                "Lignes", "InsertRows", "Execute"};
  return std::any_of(words.begin(), words.end(),
                     [&](const char* word) { return code.find(word) != std::string::npos; });
}

/// Names of the editions that a source and its own header declare.
std::set<std::string> Editions(const std::string& file, const std::string& code) {
  static const std::regex declaration(R"(\bEdition\b>?\s*[&*]?\s*(\w+))");
  const std::string stem = file.substr(0, file.rfind('.'));
  const std::string all = Code(Lignes(stem + ".h")) + code;
  std::set<std::string> names;
  for (std::sregex_iterator i(all.begin(), all.end(), declaration), end; i != end; ++i) {
    names.insert((*i)[1]);
  }
  return names;
}

/// The calls in a source by which rows are changed without an Edition.
std::vector<std::string> Contournements(const std::string& file, const std::string& code) {
  // An Edition has the four of the second line too. What an Execute without arguments runs is no
  // statement.
  static const std::regex call(
      R"((\w+|[\])}])\s*(?:\.|->)\s*(?:(AddNew|Edit|Update|Delete|RetablitLignes|InsertRows)|)"
      R"((ModifieLignes|RemplitLignes|RemplaceValeur|SupprimeLignes)|(Execute(?=\s*\(\s*[^\s)])))\s*\()");
  static const std::regex address(
      R"(\b(Recordset|Database)\s*::\s*(AddNew|Edit|Update|Delete|\w+Lignes|RemplaceValeur|InsertRows|Execute)\b)");
  if (!ParleDeLignes(code)) return {};
  const std::set<std::string> editions = Editions(file, code);
  std::vector<std::string> found;
  for (std::sregex_iterator i(code.begin(), code.end(), call), end; i != end; ++i) {
    const bool isEdition = (*i)[3].matched && editions.contains((*i)[1]);
    if (!isEdition) found.push_back(i->str());
  }
  for (std::sregex_iterator i(code.begin(), code.end(), address), end; i != end; ++i) {
    found.push_back(i->str());
  }
  return found;
}

std::vector<std::string> Contournements(const std::string& line) {
  return Contournements("store/some_command.cpp", Code({"Edition edition(document, name);", line}));
}

TEST(Changes, RowsAreWrittenByEditionsAlone) {
  for (const std::string& file : Fichiers()) {
    if (file.starts_with("platform/") || Parmi(writers, file)) continue;
    for (const std::string& call : Contournements(file, Code(Lignes(file)))) {
      ADD_FAILURE() << file << " changes rows without an Edition: " << call;
    }
  }
}

TEST(Changes, EveryWayAroundAnEditionIsSeen) {
  for (const char* line :
       {"rows.AddNew();", "rows->Edit();", "c.Data1.recordset().Update();",
        "rows[0] -> Delete ( );", "clone->SupprimeLignes(chosen);",
        "Curseur().ModifieLignes(pass, change);", "rows.RemplitLignes(a, b, c);",
        "rows.RemplaceValeur(1, a, b, c);", "rows->RetablitLignes(places, values);",
        "base.InsertRows(\"T\", a, b);", "document.Base().Execute(\"DELETE FROM TALPENA\");",
        "base.Execute(sql);", "call(&Recordset::Update);"}) {
    EXPECT_EQ(Contournements(line).size(), 1U) << line;
  }
  for (const char* line :
       {"edition.SupprimeLignes(chosen);", "edition.ModifieLignes(pass, change);",
        "SupprimeLignes(c, chosen);", "load.Execute();", "// rows.AddNew();",
        "Montre(\"rows.Delete()\");", "widget->update();", "rows->CancelUpdate();"}) {
    EXPECT_TRUE(Contournements(line).empty()) << line;
  }
}

TEST(Changes, OneRowIsOpenedByEditionsAlone) {
  for (const std::string& file : Fichiers()) {
    if (Parmi(writers, file)) continue;
    for (const std::string& line : Lignes(file)) {
      EXPECT_EQ(line.find("store/open_edit.h"), std::string::npos) << file;
    }
  }
}

TEST(Changes, TheInsideOfTheDocumentIsItsOwnAndTheEditions) {
  static const std::regex inside(
      R"((\.|->)header_\b|\bconst_cast<(Document|DistributionHeader)\b)");
  for (const std::string& file : Fichiers()) {
    if (file.starts_with("platform/") || Parmi(insiders, file)) continue;
    for (const std::string& line : Lignes(file)) {
      if (line.find("header_") == std::string::npos && line.find("const_cast") == std::string::npos)
        continue;
      EXPECT_FALSE(std::regex_search(line, inside)) << file << ": " << line;
    }
  }
  std::vector<std::string> friends;
  for (const std::string& line : Lignes("store/document.h")) {
    if (line.find("friend ") != std::string::npos) friends.push_back(line);
  }
  EXPECT_EQ(friends, std::vector<std::string>{"  friend class Edition;"});
}

}  // namespace
}  // namespace talpena
