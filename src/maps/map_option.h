// What the user chose for the map view: line layers and the look of the symbols.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace talpena {

class MapOption {
 public:
  void Add(std::string name);
  std::int16_t Cancel = 0;  ///< -1 when the dialog was left by cancelling
  /// Path of a layer, from 1; "" beyond the list.
  std::string Couche(int index) const;
  std::string DistriName;
  std::int16_t DistriType = 0;
  int LayerCount() const;
  void Raz();
  std::int32_t SymbolColor = 255;  ///< 0xBBGGRR
  std::int32_t SymbolDiameter =
      -1;  ///< metres on the ground, units of a map of code 0; -1: automatic

 private:
  std::vector<std::string> couches_{std::string()};
};

}  // namespace talpena
