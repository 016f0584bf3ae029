#include "store/save_file.h"

#include "common/error_words.h"
#include "common/msg_id.h"
#include "common/paths.h"
#include "common/string_table.h"
#include "common/text.h"
#include "platform/commands.h"

namespace talpena {

std::string CheminSecours(const std::string& path) {
  const std::string name = NomDe(path);
  return DossierDe(path) + name.substr(0, name.find('.')) + ".BAK";
}

void SaveFile::Ouvre() {
  io_.files.SupprimeRestes(path_);
  file_ = io_.files.CreeComme(path_, {.modele = plan_.modele, .memeProtege = plan_.memeProtege});
}

void SaveFile::Termine() {
  if (!plan_.bak.empty() && AncienEntier()) {
    file_->RemplaceEnGardant(plan_.bak);
  } else {
    file_->Remplace();
  }
  file_.reset();
  if (fichier_.FichierIncomplet == path_) fichier_.FichierIncomplet.clear();
  NoteEmpreinte();
  io_.files.SupprimeRestes(path_);  // the file stands again: what was kept for want of it may go
}

void SaveFile::Tronque() {
  try {
    if (file_) PlaceTronque();
  } catch (const TalpenaError& failure) {
    Bip(state_, io_);
    AfficheErreur(io_, failure.number(), DescriptionErreur(state_.Langue, failure) + DitAncien());
  }
  file_.reset();
  if (!io_.files.Existe(path_)) fichier_.FichierIncomplet = path_;
}

void SaveFile::PlaceTronque() {
  file_->Coupe("\r\n");
  if (AncienEntier()) {
    if (io_.files.MemeFichier(path_, Garde())) {
      throw TalpenaError(ErrorNumber::FileExists, "File already exists: " + Garde(),
                         {.about = {Garde()}});
    }
    io_.files.VerifieGarde(path_, Garde());
    file_->RemplaceEnGardant(Garde());
  } else {
    file_->Remplace();
  }
  fichier_.FichierIncomplet = path_;
  NoteEmpreinte();
}

bool SaveFile::AncienEntier() {
  return fichier_.FichierIncomplet != path_ && io_.files.Existe(path_);
}

std::string SaveFile::Garde() const { return plan_.bak.empty() ? CheminSecours(path_) : plan_.bak; }

/// Where the former file is now, behind a failure.
std::string SaveFile::DitAncien() {
  if (io_.files.Existe(path_)) return "\n" + Texte(state_.Langue, MsgId::AncienFichierReste);
  const std::string kept = TexteGarde();
  return kept.empty() ? kept : "\n" + kept;
}

std::string SaveFile::TexteGarde() {
  if (!io_.files.Existe(Garde())) return {};
  return Remplace(Texte(state_.Langue, MsgId::AncienFichierGarde), "%1", Garde());
}

std::string SaveFile::DitGarde() {
  return fichier_.FichierIncomplet == path_ ? TexteGarde() : std::string();
}

void SaveFile::NoteEmpreinte() {
  if (path_ != fichier_.NomFichier) return;
  fichier_.EmpreinteFichier = io_.files.Empreinte(path_);
  fichier_.LecturePartielle = false;
}

}  // namespace talpena
