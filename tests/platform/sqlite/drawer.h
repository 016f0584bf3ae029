// A maker's format that is read and written, its tables and queries kept in memory.
#pragma once
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/foreign_format.h"
#include "platform/sqlite/engine_fixture.h"

namespace talpena::enginetest {

using Rows = std::vector<std::vector<Value>>;

/// What a maker keeps on its disk: tables by name.
struct Drawer {
  std::vector<TableDef> tables;
  std::map<std::string, Rows> rows;
  std::vector<QueryDef> queries;
  std::vector<std::string> journal;
};

class DrawerDatabase final : public ForeignDatabase {
 public:
  explicit DrawerDatabase(Drawer& drawer) : drawer_(drawer) {}
  std::vector<TableDef> Tables() override { return drawer_.tables; }
  std::vector<TableDef> SystemTables() override {
    return {
        {.name = "MSysObjects", .fields = {}, .indexes = {}, .attributes = TableAttribute::System}};
  }
  std::vector<QueryDef> Queries() override { return drawer_.queries; }
  std::unique_ptr<RowSource> Rows(std::string_view table) override {
    drawer_.journal.push_back("Rows " + std::string(table));
    return std::make_unique<ListSource>(drawer_.rows.at(std::string(table)));
  }
  std::int64_t NombreLignes(std::string_view table) override {
    return static_cast<std::int64_t>(drawer_.rows.at(std::string(table)).size());
  }
  void CreeTable(const TableDef& table) override {
    drawer_.journal.push_back("CreeTable " + table.name);
    drawer_.tables.push_back(table);
    drawer_.rows[table.name];
  }
  std::int64_t InsereLignes(std::string_view table, RowSource& rows) override {
    auto& into = drawer_.rows[std::string(table)];
    std::vector<Cell> cells(drawer_.tables.back().fields.size());
    while (rows.Suivante(cells)) {
      into.emplace_back();
      for (const Cell& cell : cells) into.back().push_back(cell.Garde());
    }
    return static_cast<std::int64_t>(into.size());
  }

 private:
  Drawer& drawer_;
};

class DrawerFormat final : public ForeignFormat {
 public:
  explicit DrawerFormat(Drawer& drawer) : drawer_(drawer) {}
  bool Reconnait(const std::string&, std::string_view connect) override {
    return MemeFormat(connect, Connect::DBase4);
  }
  std::unique_ptr<ForeignDatabase> Ouvre(const std::string&) override {
    return std::make_unique<DrawerDatabase>(drawer_);
  }
  bool EstEcrit(std::string_view connect) const override {
    return MemeFormat(connect, Connect::DBase4);
  }
  std::unique_ptr<ForeignDatabase> OuvrePourEcrire(const std::string& path) override {
    drawer_.journal.push_back("OuvrePourEcrire " + path);
    return std::make_unique<DrawerDatabase>(drawer_);
  }
  std::unique_ptr<ForeignDatabase> Cree(const std::string&, const NewDatabase& settings) override {
    drawer_.journal.push_back("Cree " + std::to_string(settings.codePage));
    return std::make_unique<DrawerDatabase>(drawer_);
  }

 private:
  Drawer& drawer_;
};

}  // namespace talpena::enginetest
