// A map that can be exported: prologue and drawing lie beside it, in memory.
#pragma once
#include <string>
#include <vector>

#include "maps/eps.h"
#include "maps/map_world.h"

namespace talpena::test {

struct EpsWorld : MapWorld {
  EpsWorld() {
    OuvrePlate(0, 0, 10, 20);
    files.Pose("/carto/proltlp.ps", "%!PS\r\n%%BoundingBox: x\r\n/x 1 def\r\n");
    files.Pose("/carto/map.ps", "% the map\r\n");
    state.Silence = true;
  }
  /// The prologue that ships.
  void PrendVraiPrologue() {
    files.Pose("/carto/proltlp.ps", LitFichier(TALPENA_SOURCE_DIR "/data/carto/proltlp.ps"));
  }
  /// Exports and answers the bytes of the file.
  std::string Exporte(int mode = 1, const std::string& path = "/out/map.eps") {
    FaitEPS(Contexte(), path, mode);
    DitCree(path);
    return files.Contenu(path);
  }
  /// The last box told the user of the file.
  void DitCree(const std::string& path = "/out/map.eps") {
    ASSERT_FALSE(dialogues.boxes.empty());
    EXPECT_EQ(dialogues.boxes.back().text, "Fichier " + path + " créé avec succès.");
  }
  /// The same as lines; each has to end with CR LF.
  std::vector<std::string> Lignes(int mode = 1) { return EnLignes(Exporte(mode)); }
  static std::vector<std::string> EnLignes(const std::string& bytes) {
    std::vector<std::string> lines;
    for (std::size_t from = 0; from < bytes.size();) {
      const std::size_t end = bytes.find("\r\n", from);
      if (end == std::string::npos) {
        ADD_FAILURE() << "no line end: " << bytes.substr(from);
        break;
      }
      lines.push_back(bytes.substr(from, end - from));
      EXPECT_EQ(lines.back().find_first_of("\r\n"), std::string::npos);
      from = end + 2;
    }
    return lines;
  }
  /// The lines that end with a text.
  static std::vector<std::string> Avec(const std::vector<std::string>& lines,
                                       const std::string& end) {
    std::vector<std::string> found;
    for (const std::string& line : lines) {
      if (line.ends_with(end)) found.push_back(line);
    }
    return found;
  }
};

}  // namespace talpena::test
