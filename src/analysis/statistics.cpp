#include "analysis/statistics.h"

#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>

#include "common/numbers.h"
#include "common/talpena_error.h"
#include "coord_commands/row_walk.h"
#include "platform/busy.h"
#include "platform/commands.h"
#include "store/edition.h"
#include "store/table.h"

namespace talpena {
namespace {

struct Parameters {
  std::optional<double> mean, deviation;
};

/// Of N1 and N2, in this order.
using BothParameters = std::array<Parameters, 2>;

std::optional<double> LitNombre(Document& document, const char* statement, const char* field) {
  const Cell cell = document.Base().OpenRecordset(statement)->Get(field);
  if (cell.EstNull()) return {};
  return cell.Nombre();
}

BothParameters LitParametres(Document& document) {
  BothParameters both;
  both[0].mean = LitNombre(document, "SELECT AVG(N1) as AVG1 from TALPENA", "AVG1");
  both[1].mean = LitNombre(document, "SELECT AVG(N2) as AVG2 from TALPENA", "AVG2");
  both[0].deviation = LitNombre(document, "SELECT stdev(N1) as STD1 from TALPENA", "std1");
  both[1].deviation = LitNombre(document, "SELECT stdev(N2) as STD2 from TALPENA", "std2");
  return both;
}

void Dit(CommandContext c, const std::string& text, Icon icon) {
  Bip(c.state, c.io);
  c.io.dialogues.Demande({.text = text, .icon = icon});
}

/// Those of the whole table; empty, and said, when N1 has no deviation. N2 is not looked at.
std::optional<BothParameters> ParametresOuMessage(CommandContext c) {
  BothParameters both;
  {
    Busy busy(c.attente);
    busy.Annulable();
    both = LitParametres(c.document());
  }
  if (both[0].deviation) return both;
  Dit(c, "Erreur de calcul dans l'écart-type\rAttention aux lignes vides!", Icon::Stop);
  return {};
}

std::string EnMasque(const std::optional<double>& value) {
  return value ? Format(*value, "######.##") : std::string();
}

/// The shortest text that is this number, never with an exponent.
std::string EnDecimales(double value) {
  std::array<char, 400> buffer{};
  return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                       std::chars_format::fixed)
                             .ptr};
}

double UnPlusLogarithme(const Cell& number) {
  const double value = number.Nombre();
  if (number.EstNull() || value <= 0) {
    throw TalpenaError(ErrorNumber::InvalidCall, "Invalid procedure call or argument");
  }
  // Single, as it is kept: from some millions on halves come up that are none in double.
  // Held by Mnustd.TheLogarithmIsASingle.
  const double single = static_cast<float>(value);
  return 1 + static_cast<double>(static_cast<float>(std::log(single) / std::log(10.0)));
}

double Reduite(double value, const Parameters& column) {
  return (value - column.mean.value_or(0)) / *column.deviation;
}

class Logarithmes final : public RowChange {
 public:
  bool Modifie(Bookmark, std::span<const Cell> given, std::span<Cell> changed) override {
    for (std::size_t i = 0; i < given.size(); ++i) {
      changed[i] = Cell::Of(std::int64_t{Arrondi32(UnPlusLogarithme(given[i]))});
    }
    return true;
  }
};

class ValeursReduites final : public RowChange {
 public:
  explicit ValeursReduites(const BothParameters& columns) : columns_(columns) {}

  bool Modifie(Bookmark, std::span<const Cell> given, std::span<Cell> changed) override {
    for (std::size_t i = 0; i < given.size(); ++i) {
      changed[i] = given[i];
      if (given[i].EstNull() || columns_[i].deviation.value_or(0) == 0) continue;
      changed[i] = Cell::Of(std::int64_t{Arrondi32(Reduite(given[i].Nombre(), columns_[i]))});
    }
    return true;
  }

 private:
  BothParameters columns_;
};

/// The rows on show are those of their condition, in their order, as the numbers are now.
void Reecrit(CommandContext c, const std::string& name, RowChange& change) {
  Edition edition(c.document(), name, Edition::Etendue::Entiere);
  const RowPass pass{{Column::N1, Column::N2}, {Column::N1, Column::N2}};
  ModifieEnMontrant(c, edition, pass, change);
  edition.MarqueModifie();
  edition.Valide();
  const RowsShown shown = c.document().LignesMontrees();
  c.document().MontreLignes(shown);
}

}  // namespace

void MnuParametres_Click(CommandContext c) {
  const auto both = ParametresOuMessage(c);
  if (!both) return;
  std::string text;
  const auto ajoute = [&text](const std::string& label, const Parameters& column) {
    if (!text.empty()) text += '\r';
    text += "Moyenne " + label + "=" + EnMasque(column.mean) + '\r';
    text += "STD " + label + "=" + EnMasque(column.deviation);
  };
  ajoute(c.state.LabelNumeric1, both->front());
  ajoute(c.state.LabelNumeric2, both->back());
  Dit(c, text, Icon::Information);
}

void mnustd_Click(CommandContext c, int index) {
  Document& document = c.document();
  if (!document.Data1.EstLie() || document.Data1.recordset().RecordCount() == 0) return;
  if (index != ValeursNormalesReduites) {
    Logarithmes change;
    return Reecrit(c, "Logarithme", change);
  }
  const auto both = ParametresOuMessage(c);
  if (!both) return;
  // N1 by this name, whatever its label, and nothing of N2.
  // Held by Mnustd.TheBoxTellsOfN1AloneUnderThatName.
  Dit(c,
      "Moyenne N1=" + EnDecimales(both->front().mean.value_or(0)) +
          "\rSTD N1=" + EnDecimales(*both->front().deviation),
      Icon::None);
  ValeursReduites change(*both);
  Reecrit(c, "Valeurs normales réduites", change);
}

}  // namespace talpena
