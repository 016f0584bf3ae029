#include "maps/eps.h"

#include <memory>

#include "common/text.h"
#include "maps/eps_sink.h"
#include "maps/grid_overlay.h"
#include "maps/plot.h"
#include "platform/busy.h"
#include "platform/commands.h"

namespace talpena {
namespace {

constexpr const char* SignedOrigin[] = {
    "cpr stringwidth pop /maxcpr exch def ",
    "signature stringwidth pop /maxsignature exch def",
    "maxcpr maxsignature gt {/max maxcpr def} {/max maxsignature def} ifelse",
    "gsave ",
    "-1 6 rm max 2 add 0 rl 0 -15 rl max 2 add neg 0 rl 0 15 rl gsave 1 sg fill grestore stroke ",
    "grestore",
    "gsave",
    // clang-format off
    "maxcpr maxsignature gt {cpr stringwidth pop 2 div signature stringwidth pop 2 div sub 0 rm} if",
    "signature show grestore",
    "gsave maxsignature maxcpr gt {signature stringwidth pop 2 div cpr stringwidth pop 2 div sub} {0} ifelse",
    // clang-format on
    "-6 rm cpr show grestore",
};

/// "TLP - 1999" in the lower left corner, with the signature over it when there is one.
void EcritMarque(MapWindow& fenetre, EpsOutput& eps) {
  eps.Ligne("/Courier /Courier scandvec ReEncodeSmall /Courier findfont 6 scalefont setfont");
  eps.Ligne("0 setgray .1 setlinewidth");
  eps.Ligne("Lx 4 add Ly 6 add m");
  eps.Ligne(R"((\124\114\120 \55 \61\71\71\71) /cpr exch def)");
  std::string signature(Rogne(fenetre.Signature()));
  if (signature.empty()) {
    eps.Ligne("gsave cpr false charpath pathbbox Box grestore cpr show");
    return;
  }
  ChangeAccents(signature);
  eps.Ligne("0 6 rm");
  eps.Ligne("(" + signature + ") /signature exch def");
  for (const char* line : SignedOrigin) eps.Ligne(line);
}

void EcritPage(MapContext c, EpsOutput& eps, const std::string& file, int mode) {
  EcritPrologue(c, eps, file);
  eps.Ligne(mode == 1 ? "/coul true def" : "/coul false def");
  eps.Ligne("/PresLeg false def ");
  const Busy busy(c.attente);
  Recopie(c.io, c.carte.FichierPS, eps);
  EpsSink page(c.carte, eps, mode);
  PlotDistri(c, page);
  if (c.carte.Grille) DisplayGrid(c, page, false);
  EcritMarque(c.fenetre, eps);
  eps.Ligne("PresLeg {PutLeg} { } ifelse");
  eps.Ligne("0 sg Lx Ly m Lx Uy l Ux Uy l Ux Ly l c s");
  eps.Ligne("grestore showpage");
  eps.Ligne("clear");
  eps.Ligne("%%Trailer");
}

/// What was written stays, as far as it came.
void GardeCommence(EpsOutput& eps, OutputFile& output) {
  try {
    eps.Vide();
  } catch (const TalpenaError&) {  // no more goes out; what did is kept all the same
  }
  try {
    output.RemplaceTronque();
  } catch (const TalpenaError&) {  // the failure before this one is the one to tell
  }
}

}  // namespace

void FaitEPS(MapContext c, const std::string& file, int mode) {
  const std::unique_ptr<OutputFile> output = c.io.files.Cree(file);
  EpsOutput eps(*output);
  try {
    EcritPage(c, eps, file, mode);
    eps.Vide();
    output->Remplace();
  } catch (...) {
    GardeCommence(eps, *output);
    throw;
  }
  Bip(c.state, c.io);
  c.io.dialogues.Demande(
      {.text = "Fichier " + file + " créé avec succès.", .icon = Icon::Information});
}

void Imprime(MapContext c, int mode) {
  ExecuteCommande(c.state, c.io, {}, [&] {
    FaitEPS(c,
            c.io.dialogues.EnregistreFichier(
                {.filter = "Fichiers EPS (*.eps)|*.eps|Tous les fichiers (*.*)|*.*",
                 .folder = c.io.settings.Lit("TALPENA", "Paths", "Data", ""),
                 .confirmReplace = true}),
            mode);
  });
}

}  // namespace talpena
