// Saved queries of Access files: their rows as a SELECT, and what it gives.
#include "platform/foreign/jet_queries.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/foreign/jet_files.h"
#include "platform/foreign/written_files.h"
#include "platform/sqlite/sqlite_engine.h"

namespace talpena::queriestest {
namespace {

using namespace test;
using Rows = std::vector<QueryRow>;
using enum QueryAttribute;

/// Rows of one query, numbered in the order in which they are given.
class Query {
 public:
  Query& Ligne(QueryAttribute attribute, std::string name1, std::string name2 = {},
               std::string expression = {}, int flag = 0) {
    const char place = static_cast<char>(rows_.size() + 1);
    rows_.push_back({.objet = 1,
                     .attribute = static_cast<int>(attribute),
                     .order = std::string(3, '\0') + place,
                     .name1 = std::move(name1),
                     .name2 = std::move(name2),
                     .expression = std::move(expression),
                     .flag = flag});
    return *this;
  }
  Query& Table(const char* name, const char* alias = "") { return Ligne(Source, name, alias); }
  Query& Champ(const char* expression, const char* alias = "") {
    return Ligne(Column, alias, "", expression);
  }
  Query& Lien(const char* left, const char* right, const char* condition, int kind) {
    return Ligne(Join, left, right, condition, kind);
  }
  Query& Texte(QueryAttribute attribute, const char* expression, const char* name = "") {
    return Ligne(attribute, name, "", expression);
  }
  Query& Drapeaux(int flags, const char* count = "") {
    return Ligne(Options, count, "", "", flags);
  }

  std::string Select() const { return TexteRequete(QueryDef::Select, rows_); }
  std::string Union() const { return TexteRequete(QueryKind::Union, rows_); }
  Rows& Lignes() { return rows_; }

 private:
  Rows rows_;
};

struct TextCase {
  const char* name;
  Query query;
  const char* select;
};

// The tables are those of indexTestV1997.mdb, over which each text is run as well.
std::vector<TextCase> Cas() {
  return {
      {"a table with all its columns", Query().Table("Table1"), "SELECT * FROM [Table1];"},
      {"all columns behind others", Query().Drapeaux(1).Table("Table1").Champ("id+1", "next id"),
       "SELECT id+1 AS [next id], * FROM [Table1];"},
      {"columns and aliases",
       Query().Table("Table1", "t").Champ("t.id").Champ("[t].[data] & \"]'\"", "My data"),
       "SELECT t.id, [t].[data] & \"]'\" AS [My data] FROM [Table1] AS [t];"},
      {"every clause",
       Query()
           .Table("Table1")
           .Champ("Table1.otherfk1")
           .Champ("Count(Table1.id)", "n")
           .Texte(Where, "((Table1.id)>0)")
           .Texte(GroupBy, "Table1.otherfk1")
           .Texte(Having, "Count(Table1.id)>0")
           .Texte(OrderBy, "Count(Table1.id)", "D")
           .Texte(OrderBy, "Table1.otherfk1"),
       "SELECT Table1.otherfk1, Count(Table1.id) AS [n] FROM [Table1] WHERE ((Table1.id)>0) "
       "GROUP BY Table1.otherfk1 HAVING Count(Table1.id)>0 ORDER BY Count(Table1.id) DESC, "
       "Table1.otherfk1;"},
      {"distinct", Query().Drapeaux(2).Table("Table1").Champ("otherfk1"),
       "SELECT DISTINCT otherfk1 FROM [Table1];"},
      {"distinct rows", Query().Drapeaux(8).Table("Table1").Champ("otherfk1"),
       "SELECT DISTINCTROW otherfk1 FROM [Table1];"},
      {"another file that is none", Query().Ligne(Database, "").Table("Table1"),
       "SELECT * FROM [Table1];"},
      {"the owner's rights change nothing", Query().Drapeaux(4).Table("Table1"),
       "SELECT * FROM [Table1];"},
      {"the first rows",
       Query().Drapeaux(2 + 16, "2").Table("Table1").Champ("id").Texte(OrderBy, "id"),
       "SELECT DISTINCT TOP 2 id FROM [Table1] ORDER BY id;"},
      {"a part of the rows",
       Query().Drapeaux(16 + 32, "50").Table("Table1").Champ("id").Texte(OrderBy, "id"),
       "SELECT TOP 50 PERCENT id FROM [Table1] ORDER BY id;"},
      {"sources side by side", Query().Table("Table1").Table("Table2", "b").Champ("b.id"),
       "SELECT b.id FROM [Table1], [Table2] AS [b];"},
      {"an inner join",
       Query()
           .Table("Table1")
           .Table("Table2")
           .Champ("Table2.id")
           .Lien("Table1", "Table2", "Table1.otherfk1 = Table2.id", 1),
       "SELECT Table2.id FROM [Table1] INNER JOIN [Table2] ON Table1.otherfk1 = Table2.id;"},
      {"two conditions, one the other way round",
       Query()
           .Table("Table1")
           .Table("Table2")
           .Champ("Table2.id")
           .Lien("Table1", "Table2", "Table1.otherfk1 = Table2.id", 2)
           .Lien("Table2", "Table1", "Table2.id = Table1.id", 3),
       "SELECT Table2.id FROM [Table1] LEFT JOIN [Table2] ON (Table1.otherfk1 = Table2.id) AND "
       "(Table2.id = Table1.id);"},
      {"joins one in the other, and a source beside them",
       Query()
           .Table("Table2")
           .Table("Table1")
           .Table("Table3")
           .Table("Table3", "other")
           .Champ("Table1.id")
           .Lien("Table2", "table1", "Table2.id = Table1.otherfk1", 1)
           .Lien("Table1", "Table3", "Table1.otherfk2 = Table3.id", 3),
       "SELECT Table1.id FROM [Table3] AS [other], ([Table2] INNER JOIN [Table1] ON Table2.id = "
       "Table1.otherfk1) RIGHT JOIN [Table3] ON Table1.otherfk2 = Table3.id;"},
      {"two trees that a third join makes one",
       Query()
           .Table("Table1")
           .Table("Table2")
           .Table("Table3")
           .Table("Table1", "b")
           .Champ("b.id")
           .Lien("Table1", "Table2", "Table1.otherfk1 = Table2.id", 1)
           .Lien("Table3", "b", "Table3.id = b.otherfk2", 2)
           .Lien("Table2", "Table3", "Table2.id = Table3.id", 2),
       "SELECT b.id FROM ([Table1] INNER JOIN [Table2] ON Table1.otherfk1 = Table2.id) LEFT JOIN "
       "([Table3] LEFT JOIN [Table1] AS [b] ON Table3.id = b.otherfk2) ON Table2.id = Table3.id;"},
  };
}

TEST(JetQueries, RowsBecomeASelect) {
  for (const TextCase& c : Cas()) EXPECT_EQ(c.query.Select(), c.select) << c.name;
}

TEST(JetQueries, RowsStandInTheirOrderWhateverTheFileHas) {
  Query query;
  query.Table("b").Champ("x").Table("a").Champ("y");
  std::reverse(query.Lignes().begin(), query.Lignes().end());
  EXPECT_EQ(query.Select(), "SELECT x, y FROM [b], [a];");
}

std::unique_ptr<talpena::Database> OuvreReel(const char* name) {
  std::vector<std::unique_ptr<ForeignFormat>> formats;
  formats.push_back(CreeFormatJet());
  static std::vector<std::unique_ptr<TableEngine>> engines;
  engines.push_back(CreeMoteurSqlite(std::move(formats)));
  return engines.back()->OpenDatabase((mdbFolder / name).string(), true);
}

TEST(JetQueries, TheEngineRunsEachText) {
  NEEDS_SHARED_DATA();
  const auto database = OuvreReel("indexTestV1997.mdb");
  for (const TextCase& c : Cas()) {
    SCOPED_TRACE(c.select);
    EXPECT_NO_THROW(EXPECT_GT(database->OpenRecordset(c.select)->RecordCount(), 0));
  }
}

TEST(JetQueries, PartsOfAUnionAreJoined) {
  const auto query = [](int flags) {
    return Query()
        .Drapeaux(flags)
        .Ligne(Source, "", "X7YZ_____1", "SELECT id FROM Table1\r\n")
        .Ligne(Source, "", "X7YZ_____2", "SELECT id FROM Table2;\r\n");
  };
  EXPECT_EQ(query(1).Union(), "SELECT id FROM Table1 UNION ALL SELECT id FROM Table2;");
  EXPECT_EQ(query(2).Texte(OrderBy, "id", "D").Union(),
            "SELECT id FROM Table1 UNION SELECT id FROM Table2 ORDER BY id DESC;");
}

TEST(JetQueries, WhatMakesNoSenseHasNoText) {
  const std::vector<std::pair<const char*, Query>> cases = {
      {"no source", Query().Champ("1")},
      {"another file", Query().Ligne(Database, "C:\\x.mdb").Table("a")},
      {"an unknown source", Query().Table("a").Lien("a", "b", "a.x=b.x", 1)},
      {"an unknown join", Query().Table("a").Table("b").Lien("a", "b", "a.x=b.x", 4)},
      {"a join with itself", Query().Table("a").Lien("a", "a", "a.x=a.x", 1)},
      {"two joins at odds",
       Query().Table("a").Table("b").Lien("a", "b", "a.x=b.x", 1).Lien("a", "b", "a.y=b.y", 2)},
      {"no condition", Query().Table("a").Table("b").Lien("a", "b", "", 1)},
      {"a name that cannot be one", Query().Table("a]")},
      {"a blank name", Query().Table(" ")},
      {"no expression", Query().Table("a").Champ("")},
      {"first rows without a number", Query().Drapeaux(16, "x").Table("a")},
  };
  for (const auto& [name, query] : cases) EXPECT_EQ(query.Select(), "") << name;
  EXPECT_EQ(TexteRequete(QueryDef::Select, {}), "");
  EXPECT_EQ(TexteRequete(0x10, Query().Table("a").Lignes()), "") << "a crosstab";
  Query large;
  large.Table("a").Champ(std::string(70'000, '1').c_str());
  EXPECT_EQ(large.Select(), "");
  Query many;
  for (int i = 0; i < 300; ++i) many.Table(("t" + std::to_string(i)).c_str());
  EXPECT_EQ(many.Select(), "");
}

TEST(JetQueries, TextsGoToTheQueriesWhoseRowsTheyAre) {
  Rows rows = Query().Table("a").Lignes();
  rows[0].objet = 0x80000007;
  std::vector<RequeteJet> queries(2);
  queries[0].objet = 8;
  queries[1].objet = 7;
  DonneTextes(queries, rows);
  EXPECT_EQ(queries[0].definition.sql, "");
  EXPECT_EQ(queries[1].definition.sql, "SELECT * FROM [a];");
}

constexpr const char* selectQuery =
    "SELECT DISTINCT Table1.*, Table2.col1, Table2.col2, Table3.col3 FROM ([Table1] LEFT JOIN "
    "[Table3] ON Table1.col1 = Table3.col1) INNER JOIN [Table2] ON (Table3.col1 = Table2.col1) "
    "AND (Table3.col1 = Table2.col2) WHERE (((Table2.col2)=\"foo\" Or (Table2.col2) In "
    "(\"buzz\",\"bazz\"))) ORDER BY Table2.col1;";

TEST(JetQueries, RealFilesTellTheirTexts) {
  NEEDS_SHARED_DATA();
  for (const char* file : {"queryTestV1997.mdb", "queryTestV2003.mdb"}) {
    SCOPED_TRACE(file);
    std::map<std::string, std::string> texts;
    for (const QueryDef& query : CreeFormatJet()->Ouvre((mdbFolder / file).string())->Queries()) {
      texts[query.name] = query.sql;
    }
    EXPECT_EQ(texts.size(), 9U);
    EXPECT_EQ(texts["SelectQuery"], selectQuery);
    EXPECT_TRUE(texts["UnionQuery"].find("UNION ALL Select Table3.col1") != std::string::npos)
        << texts["UnionQuery"];
    for (const char* other : {"AppendQuery", "CrosstabQuery", "DataDefinitionQuery", "DeleteQuery",
                              "MakeTableQuery", "PassthroughQuery", "UpdateQuery"}) {
      EXPECT_EQ(texts[other], "") << other;
    }
  }
}

TEST(JetQueries, ASavedQueryOfARealFileRuns) {
  NEEDS_SHARED_DATA();
  for (const char* file : {"queryTestV1997.mdb", "queryTestV2003.mdb"}) {
    SCOPED_TRACE(file);
    const auto database = OuvreReel(file);
    EXPECT_EQ(database->OpenRecordset("SelectQuery")->RecordCount(), 0);
    std::string names;
    for (const FieldDef& field : database->Query("SelectQuery").fields) names += field.name + " ";
    EXPECT_EQ(names, "col1 col2 col3 col1_2 col2_2 col3_2 ");
    EXPECT_EQ(Numero([&] { database->OpenRecordset("UpdateQuery"); }), ErrorNumber::NotSupported);
    EXPECT_EQ(Numero([&] { database->OpenRecordset("UnionQuery"); }), ErrorNumber::SyntaxError)
        << "its parts name no table";
  }
}

}  // namespace
}  // namespace talpena::queriestest
