#include "platform/value.h"

#include "common/numbers.h"

namespace talpena {

double Cell::Nombre() const {
  switch (kind) {
    case Kind::Null:
      return 0;
    case Kind::Integer:
      return static_cast<double>(integer);
    case Kind::Real:
      return real;
    case Kind::Text:
      return Val(text);
  }
  return 0;
}

std::string Cell::Texte() const {
  switch (kind) {
    case Kind::Null:
      return {};
    case Kind::Integer:
      return Str(integer);
    case Kind::Real:
      return Str(real);
    case Kind::Text:
      return std::string(text);
  }
  return {};
}

Value Cell::Garde() const {
  switch (kind) {
    case Kind::Null:
      return std::monostate{};
    case Kind::Integer:
      return integer;
    case Kind::Real:
      return real;
    case Kind::Text:
      return std::string(text);
  }
  return std::monostate{};
}

Cell Cell::Vue(const Value& kept) {
  if (const auto* i = std::get_if<std::int64_t>(&kept)) return Of(*i);
  if (const auto* d = std::get_if<double>(&kept)) return Of(*d);
  if (const auto* s = std::get_if<std::string>(&kept)) return Of(std::string_view(*s));
  return Null();
}

}  // namespace talpena
