// Turns the text files of data/strings into the C++ source of the string table.
//
// Usage: make_string_table OUTPUT LANGUE=FILE...
// LANGUE is 1000 x language index. What is wrong in a file is reported as "file:line: reason"
// and ends the program with 1, before anything is written.
#include <algorithm>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int HighestId = 999;  // base ids lie below the distance of two blocks

struct Entry {
  int id;
  std::string text;
  int line;
};

struct Block {
  std::string langue;
  std::string file;
  std::vector<Entry> entries;  // ids ascend
};

[[noreturn]] void Refuse(const std::string& file, int line, const std::string& reason) {
  throw std::runtime_error(file + ":" + std::to_string(line) + ": " + reason);
}

/// True when the bytes are UTF-8 of the Basic Multilingual Plane, without control characters.
bool EstTexteUtf8(std::string_view bytes) {
  std::size_t i = 0;
  const auto next = [&] { return i < bytes.size() ? static_cast<unsigned char>(bytes[i++]) : 0U; };
  while (i < bytes.size()) {
    const unsigned lead = next();
    if (lead < 0x20 || lead == 0x7F) return false;
    if (lead < 0x80) continue;
    if (lead < 0xC2 || lead > 0xEF) return false;
    unsigned c = lead & (lead < 0xE0 ? 0x1FU : 0x0FU);
    for (int following = lead < 0xE0 ? 1 : 2; following > 0; --following) {
      const unsigned byte = next();
      if ((byte & 0xC0) != 0x80) return false;
      c = (c << 6) | (byte & 0x3FU);
    }
    if ((lead >= 0xE0 && c < 0x800) || (c >= 0xD800 && c <= 0xDFFF) || c < 0xA0) return false;
  }
  return true;
}

/// What an escape letter stands for; empty for one that means nothing.
std::string_view SensEchappement(char letter) {
  switch (letter) {
    case 'n':
      return "\n";
    case 's':
      return " ";
    case '_':
      return "\u00A0";
    case '\\':
      return "\\";
    default:
      return {};
  }
}

/// The text of a line, its escapes resolved.
std::string LitTexte(const std::string& file, int line, std::string_view raw) {
  if (raw.empty()) Refuse(file, line, "the text is empty");
  if (raw.front() == ' ' || raw.back() == ' ') {
    Refuse(file, line, "a blank at an end of the text is written \\s");
  }
  if (!EstTexteUtf8(raw)) Refuse(file, line, "not UTF-8 text, or a control character");
  std::string text;
  for (std::size_t i = 0; i < raw.size(); ++i) {
    if (raw[i] != '\\') {
      text += raw[i];
      continue;
    }
    const std::string_view meaning = ++i < raw.size() ? SensEchappement(raw[i]) : "";
    if (meaning.empty()) Refuse(file, line, "an escape is one of \\n \\s \\_ \\\\");
    text += meaning;
  }
  return text;
}

/// The entry of one line, "id = text".
Entry LitLigne(const std::string& file, int line, std::string_view content) {
  int id = 0;
  const char* end = content.data() + content.size();
  const auto [behind, failure] = std::from_chars(content.data(), end, id);
  if (failure != std::errc() || id < 1 || id > HighestId) {
    Refuse(file, line, "a line begins with an id from 1 to " + std::to_string(HighestId));
  }
  content.remove_prefix(static_cast<std::size_t>(behind - content.data()));
  constexpr std::string_view equals = " = ";
  if (!content.starts_with(equals)) Refuse(file, line, "expected \"id = text\"");
  content.remove_prefix(equals.size());
  return {id, LitTexte(file, line, content), line};
}

std::vector<Entry> LitFichier(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw std::runtime_error(file + ": cannot be read");
  std::vector<Entry> entries;
  std::string content;
  for (int line = 1; std::getline(in, content); ++line) {
    if (content.ends_with('\r')) content.pop_back();
    if (content.empty() || content.front() == '#') continue;
    Entry entry = LitLigne(file, line, content);
    if (!entries.empty() && entry.id <= entries.back().id) {
      Refuse(file, line, "id " + std::to_string(entry.id) + " does not ascend");
    }
    entries.push_back(std::move(entry));
  }
  if (entries.empty()) throw std::runtime_error(file + ": holds no text");
  return entries;
}

/// Ends at the first id of one block that the other lacks.
void VerifieIds(const Block& block, const Block& other) {
  const auto before = [](const Entry& a, const Entry& b) { return a.id < b.id; };
  for (const Entry& entry : block.entries) {
    if (std::binary_search(other.entries.begin(), other.entries.end(), entry, before)) continue;
    Refuse(block.file, entry.line,
           "id " + std::to_string(entry.id) + " is absent from " + other.file);
  }
}

/// "LANGUE=FILE" of the command line, read.
Block LitBloc(std::string_view argument) {
  const std::size_t equals = argument.find('=');
  if (equals == std::string_view::npos) {
    throw std::runtime_error("expected LANGUE=FILE, not " + std::string(argument));
  }
  Block block{
      std::string(argument.substr(0, equals)), std::string(argument.substr(equals + 1)), {}};
  block.entries = LitFichier(block.file);
  return block;
}

/// A string literal of ASCII characters only.
std::string Litteral(std::string_view text) {
  std::string literal = "\"";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') literal += '\\';
    if (byte >= 0x20 && byte < 0x7F) {
      literal += c;
      continue;
    }
    literal += '\\';  // three octal digits: no character behind them can join the escape
    for (const int shift : {6, 3, 0}) literal += static_cast<char>('0' + ((byte >> shift) & 7));
  }
  return literal + '"';
}

std::string EcritSource(const std::vector<Block>& blocks) {
  std::string source =
      "// Made by make_string_table from data/strings; changes belong there.\n"
      "#include \"common/string_blocks.h\"\n\nnamespace talpena {\nnamespace {\n";
  for (const Block& block : blocks) {
    source += "\nconstexpr StringEntry block" + block.langue + "[] = {\n";
    for (const Entry& entry : block.entries) {
      source += "    {" + std::to_string(entry.id) + ", " + Litteral(entry.text) + "},\n";
    }
    source += "};\n";
  }
  source += "\nconstexpr StringBlock blocks[] = {\n";
  for (const Block& block : blocks) {
    source += "    {" + block.langue + ", block" + block.langue + "},\n";
  }
  return source +
         "};\n\n}  // namespace\n\n"
         "std::span<const StringBlock> TousLesBlocs() { return blocks; }\n\n"
         "}  // namespace talpena\n";
}

void EcritFichier(const std::string& path, const std::string& source) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << source;
  out.close();
  if (!out) throw std::runtime_error(path + ": cannot be written");
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc < 3) throw std::runtime_error("usage: make_string_table OUTPUT LANGUE=FILE...");
  std::vector<Block> blocks;
  for (int i = 2; i < argc; ++i) blocks.push_back(LitBloc(argv[i]));
  for (const Block& block : blocks) {
    VerifieIds(block, blocks.front());
    VerifieIds(blocks.front(), block);
  }
  EcritFichier(argv[1], EcritSource(blocks));
  return 0;
} catch (const std::exception& e) {
  std::fprintf(stderr, "%s\n", e.what());
  return 1;
}
