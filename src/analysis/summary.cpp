#include "analysis/summary.h"

#include <cmath>
#include <map>
#include <optional>
#include <utility>

#include "analysis/analysed_rows.h"
#include "common/msg_id_analysis.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/text.h"
#include "store/table.h"

namespace talpena {
namespace {

using Counts = std::array<ValueCounts, SummedValues>;
using Period = std::optional<std::int64_t>;  ///< empty for Null

/// Rows of one period and one sex, "" for blank and Null. Every row falls into one of these; groups
/// are sums of them.
using Key = std::pair<Period, std::string>;

class Collector {
 public:
  void Ajoute(std::span<const Cell> cells) {
    Counts& counts = CompteDe(cells[Column::PERIOD], Rogne(cells[Column::SEX].text));
    Nombre(counts[0], cells[Column::N1]);
    Nombre(counts[1], cells[Column::N2]);
    const Cell& date = cells[Column::DATE];
    const DateParts parts = date.EstNull() ? DateParts{} : LitDate(date.text);
    Partie(counts[2], parts.year);
    Partie(counts[3], parts.month);
  }
  const std::map<Key, Counts>& Cases() const { return cases_; }

 private:
  Counts& CompteDe(const Cell& periodCell, std::string_view sex) {
    const Period period = periodCell.EstNull() ? Period() : Period(periodCell.integer);
    for (Known& known : known_) {
      if (known.counts != nullptr && known.period == period && known.sex == sex) {
        return *known.counts;
      }
    }
    Counts& counts = cases_[{period, std::string(sex)}];
    known_[next_++ % known_.size()] = {period, std::string(sex), &counts};
    return counts;
  }
  static void Nombre(ValueCounts& counts, const Cell& cell) {
    cell.EstNull() ? counts.AjouteNull() : counts.Ajoute(cell.integer);
  }
  static void Partie(ValueCounts& counts, int part) {
    part == 0 ? counts.AjouteNull() : counts.Ajoute(part);
  }

  struct Known {
    Period period;
    std::string sex;
    Counts* counts = nullptr;
  };
  std::map<Key, Counts> cases_;
  std::array<Known, 8> known_;  ///< those found last: most tables have no more
  std::size_t next_ = 0;
};

void AjouteA(Counts& sum, const Counts& more) {
  for (std::size_t i = 0; i < sum.size(); ++i) sum[i].Ajoute(more[i]);
}

SummaryGroup Groupe(std::string name, const Counts& counts) {
  SummaryGroup group{std::move(name), {}};
  for (std::size_t i = 0; i < counts.size(); ++i) group.values[i] = counts[i].Resume();
  return group;
}

/// The rows put together by a part of their key; none where all fall into one.
template <typename Part, typename Name>
void AjouteGroupes(Summary& summary, const std::map<Key, Counts>& cases, Part part, Name name) {
  std::map<std::decay_t<std::invoke_result_t<Part, const Key&>>, Counts> groups;
  for (const auto& [key, counts] : cases) AjouteA(groups[part(key)], counts);
  if (groups.size() < 2) return;
  for (const auto& [value, counts] : groups) summary.groups.push_back(Groupe(name(value), counts));
}

std::string NomDeSexe(std::int16_t langue, const std::string& sex) {
  if (sex.empty()) return Texte(langue, MsgId::SansSexe);
  return Remplace(Texte(langue, MsgId::SexeN), "%1", sex);
}

std::string Arrondie(const std::optional<double>& value) {
  constexpr double fourDecimals = 10000;
  if (!value) return {};
  return Str(std::round(*value * fourDecimals) / fourDecimals);
}

}  // namespace

Summary ResumeLignes(CommandContext c) {
  const std::int16_t langue = c.state.Langue;
  const AnalysedRows rows(c);
  Collector collector;
  rows.Parcourt([&collector](Bookmark, std::span<const Cell> cells) { collector.Ajoute(cells); });

  Summary summary;
  summary.lignes = rows.Lesquelles();
  summary.names = {c.state.LabelNumeric1, c.state.LabelNumeric2, Texte(langue, MsgId::Annee),
                   Texte(langue, MsgId::Mois)};
  Counts all;
  for (const auto& [key, counts] : collector.Cases()) AjouteA(all, counts);
  summary.groups.push_back(Groupe(Texte(langue, MsgId::ToutesLignes), all));
  AjouteGroupes(
      summary, collector.Cases(), [](const Key& key) { return key.first; },
      [langue](const Period& period) {
        return NomDePeriode(langue, period ? Cell::Of(*period) : Cell::Null());
      });
  AjouteGroupes(
      summary, collector.Cases(), [](const Key& key) { return key.second; },
      [langue](const std::string& sex) { return NomDeSexe(langue, sex); });
  return summary;
}

TextTable TableDuResume(const Summary& summary, std::int16_t langue) {
  TextTable table{Decoupe(Texte(langue, MsgId::ResumeColonnes), '|')};
  for (const SummaryGroup& group : summary.groups) {
    for (std::size_t i = 0; i < SummedValues; ++i) {
      const ValueSummary& value = group.values[i];
      table.push_back({group.name, summary.names[i], Str(value.count), Str(value.nulls),
                       Arrondie(value.minimum), Arrondie(value.quartile1), Arrondie(value.median),
                       Arrondie(value.quartile3), Arrondie(value.maximum), Arrondie(value.mean),
                       Arrondie(value.deviation)});
    }
  }
  return table;
}

}  // namespace talpena
