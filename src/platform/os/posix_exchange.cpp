#include "platform/os/posix_exchange.h"

#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "platform/os/posix_error.h"
#include "platform/os/posix_paths.h"

namespace talpena {
namespace {

constexpr const char* formerFolder = "former";
constexpr const char* replacedFolder = "replaced";

void SupprimeFichiers(const std::string& folder) {
  for (const std::string& name : FichiersDe(folder)) unlink((folder + "/" + name).c_str());
}

}  // namespace

std::vector<std::string> FichiersDe(const std::string& folder) {
  std::vector<std::string> names = NomsDe(folder);
  std::erase_if(names, [&](const std::string& name) { return EstDossier(folder + "/" + name); });
  std::sort(names.begin(), names.end());
  return names;
}

/// Never over another file.
void Exchange::Deplace(const std::string& from, const std::string& to) {
  const int error = RenommeSansEcraser(from, to);
  if (error != 0) LanceErreurFichier(error, error == EEXIST ? to : from);
}

void Exchange::Fait(const std::vector<std::string>& former) {
  try {
    MetDeCote(former);
    PlaceNouveaux();
  } catch (...) {
    RendAnciens();
    throw;
  }
  SynchroniseDossier(place_);
  SupprimeFichiers(side_ + replacedFolder);
}

void Exchange::MetDeCote(const std::vector<std::string>& former) {
  const std::string aside = side_ + formerFolder;
  const auto verifie = [this](int error) {  // in the name of a file that the user knows
    if (error != 0) LanceErreurFichier(error, place_ + FichiersDe(side_).front());
  };
  verifie(mkdir(aside.c_str(), modeDossier) == 0 ? 0 : errno);
  for (const std::string& name : former) Deplace(place_ + name, aside + "/" + name);
  verifie(RenommeSansEcraser(aside, side_ + replacedFolder));
}

void Exchange::PlaceNouveaux() {
  std::vector<std::string> done;
  try {
    for (const std::string& name : FichiersDe(side_)) {
      Deplace(side_ + name, place_ + name);
      done.push_back(name);
    }
  } catch (...) {
    for (const std::string& name : done) RenommeSansEcraser(place_ + name, side_ + name);
    RenommeSansEcraser(side_ + replacedFolder, side_ + formerFolder);
    throw;
  }
}

void Exchange::RendAnciens() {
  const std::string aside = side_ + formerFolder;
  for (const std::string& name : FichiersDe(aside)) {
    RenommeSansEcraser(aside + "/" + name, place_ + name);
  }
}

bool Exchange::Commence() const {
  const bool placing = EstDossier(side_ + replacedFolder);
  return !FichiersDe(placing ? side_ : side_ + formerFolder).empty();
}

bool Exchange::TousLibres(const std::vector<std::string>& names) const {
  return std::none_of(names.begin(), names.end(), [this](const std::string& name) {
    struct stat there {};
    return lstat((place_ + name).c_str(), &there) == 0;
  });
}

void Exchange::Avance(const std::vector<std::string>& names, const std::string& from, bool nouveau,
                      std::vector<PlacedFile>& placed) {
  for (const std::string& name : names) {
    if (RenommeSansEcraser(from + name, place_ + name) != 0) return;
    placed.push_back({place_ + name, nouveau});
  }
  SynchroniseDossier(place_);
  Vide();
}

void Exchange::Acheve(std::vector<PlacedFile>& placed) {
  const bool nouveau = EstDossier(side_ + replacedFolder);
  const std::string from = nouveau ? side_ : side_ + formerFolder + "/";
  const std::vector<std::string> names = FichiersDe(from);
  if (TousLibres(names)) Avance(names, from, nouveau, placed);
}

void Exchange::Vide() {
  for (const char* folder : {formerFolder, replacedFolder}) {
    SupprimeFichiers(side_ + folder);
    rmdir((side_ + folder).c_str());
  }
  SupprimeFichiers(side_);
  rmdir(side_.c_str());
}

}  // namespace talpena
