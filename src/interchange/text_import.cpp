#include "interchange/text_import.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <string_view>

#include "common/error_words.h"
#include "common/grouped_number.h"
#include "common/msg_id_errors.h"
#include "common/msg_id_import.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "common/text.h"
#include "coords/systems.h"
#include "interchange/import_end.h"
#include "interchange/import_notes.h"
#include "interchange/imported_lists.h"
#include "interchange/text_import_reader.h"
#include "interchange/waypoint_commands.h"
#include "platform/commands.h"

namespace talpena {
namespace {

constexpr std::size_t previewLines = 3, previewCharacters = 500;
/// So much of a file is looked at for its first lines.
constexpr std::size_t previewBytes = 1 << 18;

std::string Debut(InputFile& file) {
  std::string bytes(previewBytes, '\0');
  std::size_t count = 0;
  while (const std::size_t read = file.Lit({bytes.data() + count, bytes.size() - count})) {
    count += read;
  }
  bytes.resize(count);
  return bytes;
}

/// Takes the first line and its end off a text.
std::string_view PrendLigne(std::string_view& text) {
  const std::size_t length = std::min(text.find_first_of("\r\n"), text.size());
  const std::string_view line = text.substr(0, length);
  text.remove_prefix(length);
  text.remove_prefix(text.starts_with("\r\n") ? 2 : std::min<std::size_t>(text.size(), 1));
  return line;
}

void ExigeSysteme(std::int16_t type) {
  if (type >= 0 && type < CoordSystemCount) return;
  throw TalpenaError(ErrorNumber::SubscriptOutOfRange, "Subscript out of range");
}

/// The line at which a byte 1A cut the list; 0 for none.
std::int64_t Importe(ImportContext c, std::int16_t type, ImportedRows& rows) {
  ExigeSysteme(type);
  const auto system = static_cast<CoordSystem>(type);
  TextImportReader reader(OuvreImport(c.io.files, c.interchange.FichierImportation), system,
                          DatumImporte(c.state, system));
  AjouteImportees(c, "Import", reader, rows);
  return reader.LigneCoupee();
}

/// In the status bar, and in a box: not all of the list came in.
void DitCoupe(ImportContext c, std::int64_t line) {
  const std::string note = NoteDeCoupe(c.state.Langue, line);
  c.document().DitResultat(c.document().Montre().avis + ". " + note);
  c.io.dialogues.Demande({.text = note, .icon = Icon::Information});
}

void DitEchec(ImportContext c, const TalpenaError& error, const ImportedRows& rows) {
  const std::int16_t langue = c.state.Langue;
  Bip(c.state, c.io);
  c.io.dialogues.Demande(
      {.text = Texte(langue, MsgId::ErreurImport) + "\r" + DescriptionEchec(langue, error, rows)});
}

}  // namespace

std::string TroisPremieresLignes(FileSystem& files, const std::string& path) {
  EncodageCherche search(files.Ouvre(path));
  search.Avance(previewBytes);
  const Encodage encodage = search.Resultat();
  const std::string bytes = Debut(*PrendImport(files.Ouvre(path), encodage).file);
  if (bytes.empty()) {
    throw TalpenaError(ErrorNumber::InputPastEnd, "Input past end of file",
                       {.text = MsgId::FichierVide});
  }
  std::string_view text = bytes;
  std::string shown, kept;
  for (std::size_t line = 0; line < previewLines; ++line) {
    if (line > 0) shown += '\r';
    shown += PremiersCaracteres(TexteImporte(PrendLigne(text), encodage, kept), previewCharacters);
  }
  return shown;
}

void ImportCoord(ImportContext c, std::int16_t type) {
  if (c.interchange.FichierImportation.empty()) return;
  const auto list = c.io.files.Empreinte(c.interchange.FichierImportation);
  ImportedRows rows;
  std::int64_t cut = 0;
  try {
    cut = Importe(c, type, rows);
  } catch (const TalpenaError& error) {
    if (error.number() != ErrorNumber::Cancelled) DitEchec(c, error, rows);
    return;
  }
  c.state.UtmAjust = c.state.GridAjust = 0;
  c.interchange.Variable = "1";
  NoteListe(c.interchange, c.document(), list, rows.added);
  TermineImport(c, "Import", rows);
  if (cut > 0) DitCoupe(c, cut);
}

void mnuImport_Click(ImportContext c, int index) {
  ExecuteCommande(c.state, c.io, {}, [&] {
    if (index == 1) return ImportGarmin(c);
    c.dialogs.MontreImportation();
    const std::int16_t type = Arrondi16(Val(c.interchange.Variable));
    if (type > -1) ImportCoord(c, type);
  });
}

}  // namespace talpena
