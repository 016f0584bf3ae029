#include "store/document.h"

#include <utility>

#include "common/talpena_error.h"

namespace talpena {
namespace {

Aspect AspectDe(DataControl::Change change) {
  switch (change) {
    case DataControl::Change::Rows:
      return Aspect::Rows;
    case DataControl::Change::Values:
      return Aspect::Values;
    case DataControl::Change::Position:
      break;
  }
  return Aspect::Position;
}

}  // namespace

Document::Document() : Data1([this](DataControl::Change change) { Signale(AspectDe(change)); }) {}

Database& Document::Base() {
  if (WorkingDb) return *WorkingDb;
  throw TalpenaError(ErrorNumber::DatabaseNotFound, "The working database is not open.");
}

void Document::MontreLignes(const RowsShown& rows) {
  if (!Data1.EstLie()) Data1.Lie(Base());
  const RowsShown before = std::exchange(shown_, rows);
  try {
    Data1.ChangeSource(rows.Source());
  } catch (...) {
    shown_ = before;
    throw;
  }
}

void Document::Relie(const RowsShown& rows) {
  Data1.Lie(Base());
  const RowsShown before = std::exchange(shown_, rows);
  const std::string source = std::exchange(Data1.RecordSource, rows.Source());
  try {
    Data1.Refresh();
  } catch (...) {
    shown_ = before;
    Data1.RecordSource = source;
    throw;
  }
}

void Document::ChangeTitreFenetre(const std::string& title) {
  display_.titreFenetre = title;
  Signale(Aspect::Title);
}

void Document::ActiveMenus() { Affiche(&Display::menus, true, Aspect::Menus); }

void Document::DesactiveMenus() { Affiche(&Display::menus, false, Aspect::Menus); }

void Document::MontreTitres() { Affiche(&Display::titres, true, Aspect::TitleLines); }

void Document::AjusteGrille() { Affiche(&Display::grille, true, Aspect::Grid); }

void Document::CacheLbl1() { Affiche(&Display::lbl1, false, Aspect::Words); }

void Document::ChangeAvis(const std::string& text) {
  resultat_ = false;
  if (std::exchange(display_.avis, text) != text) Signale(Aspect::Notice);
}

void Document::DitResultat(const std::string& text) {
  if (text.empty() && !resultat_) return;
  ChangeAvis(text);
  resultat_ = !text.empty();
}

void Document::OublieModifications() {
  ChangeModifie(false);
  ChangeAvis({});
}

void Document::Affiche(bool Display::*part, bool shown, Aspect aspect) {
  display_.*part = shown;
  Signale(aspect);
}

void Document::PrendDatumParDefaut(const std::string& code, std::int16_t index) {
  const bool other = header_.DatumFichierCode != code;
  header_.DatumFichierCode = code;
  header_.DatumFichier = index;
  if (other) Signale(Aspect::Header);
}

void Document::ChangeModifie(bool modified) {
  if (std::exchange(modified_, modified) != modified) Signale(Aspect::Modified);
}

void Document::Signale(Changes changes) {
  const bool edited = changes.Touche(Aspect::Rows) || changes.Touche(Aspect::Values);
  if (edited && std::exchange(resultat_, false)) {
    display_.avis.clear();
    changes |= Aspect::Notice;
  }
  observers_.Signale(changes);
}

}  // namespace talpena
