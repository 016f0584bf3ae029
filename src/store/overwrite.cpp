#include "store/overwrite.h"

#include <optional>

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/paths.h"
#include "common/string_table.h"
#include "common/text.h"
#include "platform/commands.h"

namespace talpena {
namespace {

/// What the file on the disk holds beyond what this process knows of it, as a question; 0 when
/// there is no such thing.
int ContenuAutre(CommandContext c, const std::string& path) {
  const FileOnDisk& open = c.document().Fichier;
  if (!c.io.files.MemeFichier(path, open.NomFichier)) return 0;
  const auto now = c.io.files.Empreinte(path);
  if (!now) return 0;
  if (open.LecturePartielle) return MsgId::FichierPartiel;
  const bool changed = open.EmpreinteFichier && now != open.EmpreinteFichier;
  return changed ? MsgId::FichierChange : 0;
}

bool Accepte(CommandContext c, const std::string& question, const std::string& path = {}) {
  Bip(c.state, c.io);
  return c.io.dialogues.Demande({.text = question,
                                 .icon = Icon::Exclamation,
                                 .buttons = Buttons::YesNo,
                                 .defaultButton = Answer::No,
                                 .detail = path}) == Answer::Yes;
}

/// "bees.deg" of half past eight is "bees 2011-07-04 08-30-00.deg". No point may come into it: a
/// name ends at its first one where a backup of it is made.
std::string NomDate(CommandContext c, const std::string& path) {
  const auto deux = [](int n) { return Format(n, "00"); };
  const CalendarDate date = c.io.clock.DateCourante();
  const DayTime time = c.io.clock.HeureCourante();
  const std::string name = NomDe(path);
  const std::size_t dot = std::min(name.find('.'), name.size());
  return DossierDe(path) + name.substr(0, dot) + " " + Str(std::int64_t{date.year}) + "-" +
         deux(date.month) + "-" + deux(date.day) + " " + deux(time.hour) + "-" + deux(time.minute) +
         "-" + deux(time.second);
}

/// A path for the copy that nothing has yet.
std::string CheminDeCopie(CommandContext c, const std::string& path) {
  const std::string name = NomDe(path);
  const std::size_t dot = std::min(name.find('.'), name.size());
  const std::string start = NomDate(c, path);
  std::string copy = start + name.substr(dot);
  for (std::int64_t n = 2; c.io.files.Existe(copy); ++n) {
    copy = start + " (" + Str(n) + ")" + name.substr(dot);
  }
  return copy;
}

bool GardeContenuAutre(CommandContext c, const std::string& path, int question) {
  const std::string copy = CheminDeCopie(c, path);
  const std::string kept = Remplace(Texte(c.state.Langue, MsgId::FichierGarde), "%1", NomDe(copy));
  if (!Accepte(c, Texte(c.state.Langue, question) + "\n\n" + kept)) return false;
  c.io.files.Double(path, copy);
  return true;
}

}  // namespace

bool FautDemander(CommandContext c, const std::string& path) {
  return ContenuAutre(c, path) != 0 || c.io.files.EstProtege(path);
}

bool PeutEcraser(CommandContext c, const std::string& path) {
  if (c.io.files.EstProtege(path) &&
      !Accepte(c, Texte(c.state.Langue, MsgId::FichierProtege), path)) {
    return false;
  }
  const int question = ContenuAutre(c, path);
  return question == 0 || GardeContenuAutre(c, path, question);
}

}  // namespace talpena
