// Which fields of a table are what a gazetteer is made of, by their names and by what they hold.
#pragma once
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "gazetteer/setup_file.h"
#include "platform/table_engine.h"

namespace talpena {

/// The first rows of a table, one value per field.
using SampleRows = std::vector<std::vector<Value>>;

/// A proposal: nothing of it is set up by itself.
struct FieldGuess {
  PerGeoList<std::string> Noms;  ///< of the fields; "" for no idea, and for the table
  std::optional<int> Option2;    ///< 0 DDMMSS, 1 decimal degrees
};

/// A field is proposed for a list when its name says so, in one of the five languages of the
/// program or as common gazetteers write it, and its values do not speak against it. Without such
/// names two columns of decimal numbers within 90 and 180 are latitude and longitude, and the first
/// column of words is the name. What is searched is the name where no field is made for that.
FieldGuess DevineChamps(std::span<const FieldDef> fields, const SampleRows& rows);

/// How coordinates are written that these two fields hold; empty when both ways are possible.
std::optional<int> DevineCoordonnees(const SampleRows& rows, std::size_t latitude,
                                     std::size_t longitude);

}  // namespace talpena
