#include "platform/free_input.h"

#include <utility>

#include "common/numbers.h"
#include "common/talpena_error.h"
#include "common/text.h"

namespace talpena {
namespace {

constexpr int endMark = 0x1A;  ///< old editors put it behind the last line

bool EstBlanc(int c) { return c == ' ' || c == '\t'; }

void Ajoute(std::string& text, int c) {
  if (text.size() < FreeInput::longest) text += static_cast<char>(c);
}

}  // namespace

FreeInput::FreeInput(std::unique_ptr<InputFile> file) : file_(std::move(file)) {}

int FreeInput::Voit() {
  if (next_ == filled_) {
    next_ = 0;
    filled_ = file_->Lit(buffer_);
    if (filled_ == 0) return end;
  }
  const int c = static_cast<unsigned char>(buffer_[next_]);
  return c == endMark ? end : c;
}

void FreeInput::Avance() { ++next_; }

void FreeInput::PrendFinDeLigne() {
  if (Voit() == '\r') {
    Avance();
    if (Voit() == '\n') Avance();
  } else if (Voit() == '\n') {
    Avance();
  }
}

void FreeInput::SauteBlancs() {
  while (EstBlanc(Voit())) Avance();
}

void FreeInput::SauteLignes() {
  while (EstBlanc(Voit()) || FinDeLigne(Voit())) Avance();
}

bool FreeInput::Fini() {
  SauteLignes();
  return Voit() == end;
}

void FreeInput::Exige() {
  if (Voit() == end) throw TalpenaError(ErrorNumber::InputPastEnd, "Input past end of file");
}

/// Behind an item: blanks, then the one separator that it may have.
void FreeInput::FermeElement() {
  SauteBlancs();
  if (Voit() == ',') {
    Avance();
  } else {
    PrendFinDeLigne();
  }
}

std::string FreeInput::Ligne() {
  Exige();
  std::string bytes;
  for (; Voit() != end && !FinDeLigne(Voit()); Avance()) Ajoute(bytes, Voit());
  PrendFinDeLigne();
  return Cp1252VersUtf8(bytes);
}

std::string FreeInput::Chaine() {
  SauteBlancs();
  Exige();
  std::string bytes;
  if (Voit() == '"') {
    for (Avance(); Voit() != end && Voit() != '"'; Avance()) Ajoute(bytes, Voit());
    if (Voit() == '"') Avance();
  } else {
    for (; Voit() != end && Voit() != ',' && !FinDeLigne(Voit()); Avance()) Ajoute(bytes, Voit());
  }
  FermeElement();
  return Cp1252VersUtf8(bytes);
}

double FreeInput::Nombre() {
  SauteLignes();
  Exige();
  std::string text;
  for (int c = Voit(); c != end && c != ',' && !EstBlanc(c) && !FinDeLigne(c); c = Voit()) {
    Ajoute(text, c);
    Avance();
  }
  FermeElement();
  if (text.empty()) return 0;
  if (!EstNumerique(text)) {
    throw TalpenaError(ErrorNumber::TypeMismatch, "Type mismatch: " + Cp1252VersUtf8(text),
                       {.about = {Cp1252VersUtf8(text)}});
  }
  return Val(text);
}

float FreeInput::Simple() { return EnSimple(Nombre()); }

std::int16_t FreeInput::Entier() { return Arrondi16(Nombre()); }

}  // namespace talpena
