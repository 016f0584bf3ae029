#include "places/gzip_file.h"

#include <zlib.h>

#include <array>
#include <memory>
#include <stdexcept>

namespace talpena {
namespace {

struct Closer {
  void operator()(gzFile file) const { gzclose(file); }
};
using GzipHandle = std::unique_ptr<gzFile_s, Closer>;

[[noreturn]] void Echec(const std::string& path, const std::string& fault) {
  throw std::runtime_error(path + ": " + fault);
}

}  // namespace

std::string LitGzip(const std::string& path) {
  const GzipHandle file(gzopen(path.c_str(), "rb"));
  if (!file) Echec(path, "cannot be read");
  std::string text;
  std::array<char, 1 << 16> block;
  int read = 0;
  while ((read = gzread(file.get(), block.data(), static_cast<unsigned>(block.size()))) > 0)
    text.append(block.data(), static_cast<std::size_t>(read));
  int status = Z_OK;
  gzerror(file.get(), &status);  // a file that ends early shows here alone
  if (read < 0 || status != Z_OK) Echec(path, "is damaged");
  return text;
}

void EcritGzip(const std::string& path, std::string_view text) {
  GzipHandle file(gzopen(path.c_str(), "wb9"));
  if (!file) Echec(path, "cannot be written");
  const auto size = static_cast<unsigned>(text.size());
  if (size != 0 && gzwrite(file.get(), text.data(), size) != static_cast<int>(size))
    Echec(path, "cannot be written");
  if (gzclose(file.release()) != Z_OK) Echec(path, "cannot be written");
}

}  // namespace talpena
