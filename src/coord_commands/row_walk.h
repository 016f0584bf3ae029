// The frame around every command that goes over the rows of the table.
#pragma once
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/table_engine.h"
#include "store/command_context.h"
#include "store/edition.h"

namespace talpena {

/// Runs a change over the rows of the pass under the hourglass, with the bar and with the grid not
/// drawn; its own Avance is not called. The edition goes on.
void ModifieEnMontrant(CommandContext c, Edition& edition, const RowPass& pass, RowChange& change);

/// Runs a change over the rows that the grid shows, or over those of the pass, under the hourglass
/// and with the grid not drawn; its own Avance is not called. Then the bar is reset, the edition
/// ends, by which the grid shows the new values and FichierModifie is set if a row was changed, and
/// a beep sounds unless Silence is on. A failure is thrown on after the bar was reset.
void ParcourtLignes(CommandContext c, Edition& edition, const RowPass& pass, RowChange& change);

/// The same in an edition of its own, all or nothing: behind a failure all rows are as before.
/// @param name  of the command
void ParcourtLignes(CommandContext c, const std::string& name, const RowPass& pass,
                    RowChange& change);

/// How the DATUM of a row is read.
enum class DatumCodes : std::uint8_t {
  AnyCase,  ///< without regard to case; blank means "WGS84"
  AsWritten
};

/// Indices of datum codes in the catalogue, looked up once each.
class DatumsDesLignes {
 public:
  explicit DatumsDesLignes(const DatumCatalogue& catalogue, DatumCodes codes = DatumCodes::AnyCase)
      : catalogue_(catalogue), codes_(codes) {}

  /// 0 for a code that the catalogue lacks, which is then among Inconnus().
  std::int16_t Indice(std::string_view stored);
  const std::vector<std::string>& Inconnus() const { return unknown_; }

 private:
  const DatumCatalogue& catalogue_;
  DatumCodes codes_;
  std::unordered_map<std::string, std::int16_t> known_;
  std::vector<std::string> unknown_;
  std::string last_;
  std::int16_t lastIndex_ = 0;
  bool hasLast_ = false;
};

}  // namespace talpena
