// The records of a comma-separated text file in one of the sixteen coordinate systems.
#pragma once
#include <exception>
#include <string>

#include "coords/systems.h"
#include "interchange/import_reader.h"
#include "platform/field_reader.h"

namespace talpena {

/// DatumCode, five characters, that the rows of a text import get. A datum that the catalogue lacks
/// gives its code all the same.
std::string DatumImporte(const CoordState& state, CoordSystem system);

/// A line that begins with "*" where a record may begin is a comment, but not behind another one:
/// of two such lines in a row the second is read as a record. Empty lines are passed over.
/// Held by TextImportReader.TakesTheSecondOfTwoCommentLinesAsARecord.
class TextImportReader final : public ImportReader {
 public:
  /// @param datum  that DatumImporte gives for the system
  TextImportReader(ImportFile file, CoordSystem system, std::string datum);

  bool Suivant(ImportRecord& record) override;
  std::int64_t LigneCoupee() const override { return fields_.LigneCoupee(); }
  double Part() const override { return fields_.Part(); }

 private:
  bool LitFiche(ImportRecord& record);
  bool VaAFiche();
  int LitCoordonnees(std::string& original);
  void LitAngles(std::string& original);
  void LitMetres(std::string& original);
  void LitFuseau(std::string& original);
  int LitReference(std::string& original);
  int DouteDe(const std::string& original) const;

  FieldReader fields_;
  const CoordSystemInfo& info_;
  std::string code_;  ///< at the head of ORIGINAL, with its blank
  std::string datum_;
  bool begun_ = false;  ///< a record was read
  std::exception_ptr failure_;
};

}  // namespace talpena
