// A .deg file as a whole: bytes in, header and rows out, and the other way round. Nobody is asked
// or told anything here; the commands that load and save do that.
#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "coords/state.h"
#include "platform/deg_lines.h"
#include "platform/files.h"
#include "store/deg_file_rows.h"
#include "store/deg_row_reader.h"
#include "store/deg_sink.h"
#include "store/distribution_header.h"

namespace talpena {

/// Reads a file from its first line on: header, then rows. Faults are TalpenaErrors whose
/// description names the line where one is to blame.
class DegFileReader {
 public:
  /// Reads the first line. InputPastEnd (62) for an empty file.
  explicit DegFileReader(std::unique_ptr<InputFile> file,
                         DegLines::LineEnd end = DegLines::LineEnd::Cr);

  /// Form 2, with a header of its own. A file of form 1 has neither datum nor free fields.
  bool EstForme2() const { return form2_; }

  /// The header up to the rows, into `entete`, which holds what the table has now: a form 1 file
  /// and one without free fields leave parts of it. BoxTitre and Commentaire are the file's own.
  /// What was read before a failure stands in `entete`.
  void LitEnTete(DistributionHeader& entete, const DatumCatalogue& catalogue);
  /// The same for a file whose rows are added to others: FreeFieldText and TitreFichier alone
  /// change, BoxTitre and Commentaire get the file's behind theirs.
  void LitEnTeteFusion(DistributionHeader& entete);

  /// The lines that were read look like those of a file that ends its lines by LF alone.
  bool FinsLf() const { return lines_.FinsLf(); }

  /// The rows behind the header.
  DegFileRows Lignes(const DistributionHeader& entete) { return DegFileRows(entete, lines_); }

 private:
  struct Behind {
    std::string comment;
    std::string periods;  ///< in the bytes of the file
  };
  Behind LitSuite();

  DegLines lines_;
  std::string first_;
  bool form2_ = false;
};

/// What a whole file holds, as far as it could be read.
struct DegContents {
  struct Fault {
    std::int64_t line = 0;  ///< from 1; 0 when none is to blame
    int number = 0;
    std::string description;
  };
  bool forme2 = false;
  DistributionHeader entete;
  std::vector<DegRow> lignes;
  std::optional<Fault> faute;  ///< what ended the reading
};
DegContents LitFichierDeg(std::unique_ptr<InputFile> file, const DatumCatalogue& catalogue);

/// The lines before the first row.
void EcritEnTete(const DistributionHeader& entete, int anneeCourante, DegSink& sink);

}  // namespace talpena
