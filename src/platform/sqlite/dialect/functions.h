// The functions that translated statements call. Each bears the prefix "tlp_", so that no user
// can name one: only the translator does.
#pragma once

namespace talpena::sqlite {

class Connection;

void EnregistreFonctions(Connection& connection);
void EnregistreFonctionsTexte(Connection& connection);
void EnregistreFonctionsNombre(Connection& connection);
void EnregistreFormat(Connection& connection);
void EnregistreAgregats(Connection& connection);

}  // namespace talpena::sqlite
