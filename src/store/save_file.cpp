#include "store/save_file.h"

#include "common/error_words.h"
#include "common/msg_id.h"
#include "common/paths.h"
#include "common/string_table.h"
#include "platform/commands.h"

namespace talpena {

std::string CheminSecours(const std::string& path) {
  const std::string name = NomDe(path);
  return DossierDe(path) + name.substr(0, name.find('.')) + ".BAK";
}

void SaveFile::Termine() {
  file_->Remplace();
  file_.reset();
  if (fichier_.FichierIncomplet == path_) fichier_.FichierIncomplet.clear();
  NoteEmpreinte();
}

void SaveFile::Tronque() {
  try {
    if (file_) PlaceTronque();
  } catch (const TalpenaError& failure) {
    Bip(state_, io_);
    AfficheErreur(io_, failure.number(),
                  DescriptionErreur(state_.Langue, failure) + "\n" +
                      Texte(state_.Langue, MsgId::AncienFichierReste));
  }
  file_.reset();
  if (!io_.files.Existe(path_)) fichier_.FichierIncomplet = path_;
}

void SaveFile::PlaceTronque() {
  const bool former = io_.files.Existe(path_) && fichier_.FichierIncomplet != path_;
  if (former) GardeAncien();
  try {
    file_->RemplaceTronque();
  } catch (const TalpenaError&) {
    if (former && !io_.files.Existe(path_)) io_.files.Renomme(CheminSecours(path_), path_);
    throw;
  }
  fichier_.FichierIncomplet = path_;
  NoteEmpreinte();
}

void SaveFile::GardeAncien() {
  const std::string backup = CheminSecours(path_);
  const auto former = io_.files.Empreinte(path_);
  if (backup == path_ || former == io_.files.Empreinte(backup)) {
    throw TalpenaError(ErrorNumber::FileExists, "File already exists: " + backup,
                       {.about = {backup}});
  }
  if (io_.files.Existe(backup)) io_.files.Supprime(backup);
  io_.files.Renomme(path_, backup);
}

void SaveFile::NoteEmpreinte() {
  if (path_ != fichier_.NomFichier) return;
  fichier_.EmpreinteFichier = io_.files.Empreinte(path_);
  fichier_.LecturePartielle = false;
}

}  // namespace talpena
