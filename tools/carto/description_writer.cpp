#include "carto/description_writer.h"

#include "common/free_decimal.h"
#include "common/text.h"

namespace talpena {
namespace {

std::string Nombre(float value) {
  std::string text = FormeLibre(value);
  return text.front() == ' ' ? text.substr(1) : text;
}

}  // namespace

std::string EcritDescription(const MapRow& row) {
  const std::string name = row.name;
  const auto line = [](const std::string& text) { return text + "\r\n"; };
  const auto pair = [&](float a, float b) { return line(Nombre(a) + ", " + Nombre(b)); };
  std::string text = line(row.title) + line(name + ".ps") + line(name + ".png");
  text += line(std::to_string(row.code));
  text += line(Nombre(row.parallel));
  text += line("\"" + name + "\"");
  text += pair(row.north, row.south) + pair(row.east, row.west);
  text += pair(row.parallel1, row.parallel2);
  text += line("0");
  text += line(Nombre(row.meridian));
  text += line("0, 0");
  text += line("0, 0, 0, 0");  // the frame on the page: every export computes its own
  text += line("0");
  return Utf8VersCp1252(text).value();
}

}  // namespace talpena
