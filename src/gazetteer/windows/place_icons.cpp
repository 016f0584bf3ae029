#include "gazetteer/windows/place_icons.h"

#include <QPixmap>
#include <array>

#include "platform/qt/controls.h"
#include "platform/qt/icons.h"

namespace talpena {
namespace {

constexpr int side = 16;

constexpr std::array imageKeys{PlaceIcon::Stream, PlaceIcon::Mountain, PlaceIcon::Populated,
                               PlaceIcon::Forest, PlaceIcon::Farm};

}  // namespace

void PlaceIcons::Charge(const QPalette& palette) {
  for (const std::string_view key : imageKeys) {
    icons_[EnQt(key)] = Icone(QStringLiteral("place_") + EnQt(key).toLower(), palette);
  }
  QPixmap nothing(side, side);
  nothing.fill(Qt::transparent);
  aucune_ = QIcon(nothing);
}

QIcon PlaceIcons::De(const PlaceItem& item) const {
  return item.icon.empty() ? aucune_ : icons_.value(EnQt(item.icon));
}

}  // namespace talpena
