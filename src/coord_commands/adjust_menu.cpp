// The adjust commands of the menu: the two meshes in degrees are asked for here.
#include <cmath>
#include <optional>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "coord_commands/adjust.h"
#include "coords/snap.h"
#include "coords/tokens.h"
#include "platform/commands.h"

namespace talpena {
namespace {

/// A mesh by input box, asked for until it is allowed; empty for 0, which cancels. SansMaille is
/// always allowed.
template <typename Allowed>
std::optional<double> DemandeMaille(CommandContext c, const InputBox& box, Allowed allowed) {
  for (;;) {
    const double mesh = std::fabs(NombreDe(c.io.dialogues.Saisie(box)));
    if (mesh == 0) return std::nullopt;
    if (mesh == SansMaille || allowed(mesh)) return mesh;
    Bip(c.state, c.io);
  }
}

void AjusteDegresDemandes(CommandContext c) {
  const std::int16_t langue = c.state.Langue;
  const auto meshLat = DemandeMaille(c,
                                     {.prompt = Texte(langue, MsgId::MailleLatitudes),
                                      .title = Texte(langue, MsgId::AjusterDegres)},
                                     [](double mesh) { return mesh > -90 && mesh < 90; });
  if (!meshLat) return;
  // The upper bound looks at the latitude mesh: a longitude mesh of 200 is taken as long as that
  // is below 180, and none beside a latitude mesh of 999. The title is the one that users have
  // always seen. Held by MnuAjustGrid.TakesALongitudeMeshOf200,
  // MnuAjustGrid.RefusesAnyLongitudeMeshBesideALatitudeOf999 and MnuAjustGrid.AsksForBothMeshes.
  const auto meshLon = DemandeMaille(
      c, {.prompt = Texte(langue, MsgId::MailleLongitudes), .title = "LoadResString(167 + Langue)"},
      [&](double mesh) { return mesh > -180 && *meshLat < 180; });
  if (!meshLon) return;
  AjusteDegres(c, *meshLat, *meshLon);
}

}  // namespace

void mnuAjustGrid_Click(CommandContext c, int index) {
  ExecuteCommande(c.state, c.io, {}, [&] {
    switch (index) {
      case 0:
        return AjusteCoor(c);
      case 1:
        return AjusteDegresDemandes(c);
      case 2:
        return AjusteGrades(c);
      default:
        return;
    }
  });
}

}  // namespace talpena
