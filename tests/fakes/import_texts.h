// Files of imports in memory.
#pragma once
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/talpena_error.h"
#include "fakes/memory_input.h"
#include "platform/import_file.h"

namespace talpena::test {

/// Keeps its bytes, unlike MemoryInput.
class TextInput final : public InputFile {
 public:
  explicit TextInput(std::string bytes, std::size_t block = 1 << 20)
      : bytes_(std::move(bytes)), input_(bytes_, block) {}
  std::size_t Lit(std::span<char> buffer) override { return input_.Lit(buffer); }
  std::int64_t Taille() const override { return input_.Taille(); }

 private:
  std::string bytes_;
  MemoryInput input_;
};

/// A text as OuvreImport would give it, read in blocks of so many bytes.
inline ImportFile Fichier(const std::string& bytes, std::size_t block = 1 << 20) {
  return PrendImport(std::make_unique<TextInput>(bytes, block),
                     ChercheEncodage(std::make_unique<TextInput>(bytes, block)));
}

/// What a body ends with: number, and line and words of the failure.
struct Faute {
  int number = 0;
  std::int64_t line = 0;
  int text = 0;
  std::vector<std::string> about;
  bool operator==(const Faute&) const = default;
};

template <typename Body>
Faute FauteDe(Body&& body) {
  try {
    body();
  } catch (const TalpenaError& error) {
    return {error.number(), error.words().line, error.words().text, error.words().about};
  }
  return {};
}

}  // namespace talpena::test
