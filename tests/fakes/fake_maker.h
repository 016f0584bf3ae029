// A maker of databases that tests make rules for. What it writes are files like any other's.
#pragma once
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "fakes/temp_folder.h"
#include "platform/foreign_format.h"

namespace talpena::test {

struct MakerRules {
  std::string connect;
  std::vector<std::string> endings = {};  ///< of a table's files in a folder; empty for one file
  /// Changes what goes into the file: row from 1, column from 0.
  std::function<void(std::int64_t row, std::size_t column, std::string& value)> plie = {};
  std::function<void(std::int64_t row)> avantLigne = {};  ///< may throw
  std::function<void()> avantTable = {};                  ///< may throw
  std::function<void()> avantLecture = {};                ///< may throw
  std::int64_t oublie = 0;                                ///< rows at the end that it loses
};

class FakeMaker final : public ForeignFormat {
 public:
  explicit FakeMaker(MakerRules& rules) : rules_(rules) {}

  bool Reconnait(const std::string&, std::string_view connect) override {
    return EstEcrit(connect);
  }
  std::unique_ptr<ForeignDatabase> Ouvre(const std::string& path) override {
    if (rules_.avantLecture) rules_.avantLecture();
    return std::make_unique<Base>(rules_, path, true);
  }
  bool EstEcrit(std::string_view connect) const override {
    return MemeFormat(connect, rules_.connect);
  }
  std::unique_ptr<ForeignDatabase> OuvrePourEcrire(const std::string& path) override {
    return std::make_unique<Base>(rules_, path, false);
  }
  std::unique_ptr<ForeignDatabase> Cree(const std::string& path, const NewDatabase&) override {
    return std::make_unique<Base>(rules_, path, false);
  }

 private:
  static constexpr char valueEnd = '\x1F', rowEnd = '\x1E';

  class Lines final : public RowSource {
   public:
    Lines(std::vector<std::string> lines, std::vector<FieldDef> fields)
        : lines_(std::move(lines)), fields_(std::move(fields)) {}
    bool Suivante(std::span<Cell> cells) override {
      if (next_ >= lines_.size()) return false;
      values_ = Decoupe(lines_[next_++], valueEnd);
      for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = CelluleDe(i);
      return true;
    }

   private:
    Cell CelluleDe(std::size_t i) const {
      const std::string& value = values_[i];
      if (value == "null") return Cell::Null();
      const FieldType type = fields_[i].type;
      const bool number = type == FieldType::Long || type == FieldType::Single;
      return number ? Cell::Of(Val(value)) : Cell::Of(std::string_view(value));
    }
    std::vector<std::string> lines_;
    std::vector<FieldDef> fields_;
    std::vector<std::string> values_;
    std::size_t next_ = 0;
  };

  class Base final : public ForeignDatabase {
   public:
    Base(MakerRules& rules, std::string path, bool exists) : rules_(rules), path_(std::move(path)) {
      if (exists) Lit();
    }

    std::vector<TableDef> Tables() override {
      if (table_.name.empty()) return {};
      return {table_};
    }
    std::unique_ptr<RowSource> Rows(std::string_view) override {
      return std::make_unique<Lines>(lines_, table_.fields);
    }
    void CreeTable(const TableDef& table) override {
      if (rules_.avantTable) rules_.avantTable();
      table_ = table;
      Ecrit();
    }
    std::int64_t InsereLignes(std::string_view, RowSource& rows) override {
      std::vector<Cell> cells(table_.fields.size());
      std::int64_t row = 0;
      try {
        while (rows.Suivante(cells)) {
          ++row;
          if (rules_.avantLigne) rules_.avantLigne(row);
          lines_.push_back(Ligne(row, cells));
        }
      } catch (...) {
        Ecrit();
        throw;
      }
      lines_.resize(lines_.size() - static_cast<std::size_t>(rules_.oublie));
      Ecrit();
      return row;
    }

   private:
    std::string Ligne(std::int64_t row, const std::vector<Cell>& cells) const {
      std::string line;
      for (std::size_t i = 0; i < cells.size(); ++i) {
        std::string value = cells[i].EstNull() ? "null" : cells[i].Texte();
        if (rules_.plie) rules_.plie(row, i, value);
        line += (i == 0 ? "" : std::string(1, valueEnd)) + value;
      }
      return line;
    }
    void Ecrit() const {
      std::string bytes = table_.name;
      for (const FieldDef& f : table_.fields) {
        bytes += valueEnd + f.name + valueEnd + std::to_string(static_cast<int>(f.type)) +
                 valueEnd + std::to_string(f.size);
      }
      for (const std::string& line : lines_) bytes += rowEnd + line;
      if (rules_.endings.empty()) return EcritFichier(path_, bytes);
      for (const std::string& ending : rules_.endings) {
        EcritFichier(path_ + table_.name + ending, bytes);
      }
    }
    void Lit() {
      lines_ = Decoupe(LitFichier(path_), rowEnd);
      const std::vector<std::string> head = Decoupe(lines_.front(), valueEnd);
      lines_.erase(lines_.begin());
      table_.name = head[0];
      for (std::size_t i = 1; i + 2 < head.size(); i += 3) {
        table_.fields.push_back({.name = head[i],
                                 .type = static_cast<FieldType>(std::stoi(head[i + 1])),
                                 .size = std::stoi(head[i + 2]),
                                 .allowZeroLength = true});
      }
    }

    MakerRules& rules_;
    std::string path_;
    TableDef table_;
    std::vector<std::string> lines_;
  };

  MakerRules& rules_;
};

}  // namespace talpena::test
