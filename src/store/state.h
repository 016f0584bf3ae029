// The state of the store: the open distribution, and what the commands over it remember.
#pragma once
#include <cstdint>
#include <string>

#include "coords/state.h"
#include "store/document.h"

namespace talpena {

struct StoreState : CoordState {
  Document document;

  std::string DerniereCondition;  ///< of the filter that was on last; offered again
  std::string TexteCherche;       ///< what Find looked for last; "" before the first search
  std::string CritereCherche;     ///< its condition, which Next goes on with
  std::string FichierExporte;     ///< what the last export wrote; "" before the first
  bool RechercheAboutie = false;  ///< a search found a row: Next can be chosen

  std::int16_t CompteurTimer = 0;  ///< ticks of Timer1 since the last automatic save
};

}  // namespace talpena
