// Runs a fuzz target over the files of a corpus, so that the corpus is an ordinary test.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

/// The files that an argument names, itself or all below it, in the order of their paths.
std::vector<std::filesystem::path> Fichiers(const std::filesystem::path& argument) {
  if (std::filesystem::is_regular_file(argument)) return {argument};
  std::vector<std::filesystem::path> files;
  std::error_code error;
  std::filesystem::recursive_directory_iterator entry(argument, error);
  for (; !error && entry != std::filesystem::recursive_directory_iterator(); entry.increment(error))
    if (entry->is_regular_file()) files.push_back(entry->path());
  std::sort(files.begin(), files.end());
  return files;
}

std::string Contenu(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace

/// Arguments: files, or folders of files. Ends with 1 when they hold no file at all.
int main(int argc, char** argv) {
  std::size_t count = 0;
  for (int i = 1; i < argc; ++i) {
    for (const auto& path : Fichiers(argv[i])) {
      std::printf("%s\n", path.c_str());
      std::fflush(stdout);  // the last name printed is the one that crashed
      const std::string bytes = Contenu(path);
      // A copy of the exact size, so that a sanitizer sees a read behind its end.
      const auto input = std::make_unique<std::uint8_t[]>(bytes.size());
      std::copy(bytes.begin(), bytes.end(), input.get());
      LLVMFuzzerTestOneInput(input.get(), bytes.size());
      ++count;
    }
  }
  std::printf("%zu inputs\n", count);
  return count == 0 ? 1 : 0;
}
