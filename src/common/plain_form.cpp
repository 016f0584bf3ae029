#include "common/plain_form.h"

#include <algorithm>
#include <array>

#include "common/text.h"

namespace talpena {
namespace {

/// Letters of a block without their accents, in small letters: two places each, filled with "."; a
/// character without such letters has none.
struct LetterBlock {
  char32_t first;
  std::string_view letters;
};

// From the decompositions of the Unicode Character Database; letters with a stroke and ligatures as
// they are written where they cannot be had.
constexpr std::array letterBlocks{
    LetterBlock{
        U'\u00C0',
        "a.a.a.a.a.a.aec.e.e.e.e.i.i.i.i.d.n.o.o.o.o.o...o.u.u.u.u.y.thssa.a.a.a.a.a.aec.e.e.e.e."
        "i.i.i.i.d.n.o.o.o.o.o...o.u.u.u.u.y.thy.a.a.a.a.a.a.c.c.c.c.c.c.c.c.d.d.d.d.e.e.e.e.e.e."
        "e.e.e.e.g.g.g.g.g.g.g.g.h.h.h.h.i.i.i.i.i.i.i.i.i.i.ijijj.j.k.k.k.l.l.l.l.l.l.l.l.l.l.n."
        "n.n.n.n.n.n.ngngo.o.o.o.o.o.oeoer.r.r.r.r.r.s.s.s.s.s.s.s.s.t.t.t.t.t.t.u.u.u.u.u.u.u.u."
        "u.u.u.u.w.w.y.y.y.z.z.z.z.z.z.s.b.b...............d.d.......e.a...f.f.........i.k.k.l..."
        "....n...o.o.....p.p.............t.t...u.u.....y.y.z.z...........................dzdzdzlj"
        "ljljnjnjnja.a.i.i.o.o.u.u.u.u.u.u.u.u.u.u.e.a.a.a.a.aeaeg.g.g.g.k.k.o.o.o.o.....j.dzdzdz"
        "g.g.....n.n.a.a.aeaeo.o.a.a.a.a.e.e.e.e.i.i.i.i.o.o.o.o.r.r.r.r.u.u.u.u.s.s.t.t.....h.h."
        "n.......z.z.a.a.e.e.o.o.o.o.o.o.o.o.y.y...............c.c.l...........b.u..............."
        "........"},
    LetterBlock{U'\u0259', "a."},
    LetterBlock{
        U'\u1E00',
        "a.a.b.b.b.b.b.b.c.c.d.d.d.d.d.d.d.d.d.d.e.e.e.e.e.e.e.e.e.e.f.f.g.g.h.h.h.h.h.h.h.h.h.h."
        "i.i.i.i.k.k.k.k.k.k.l.l.l.l.l.l.l.l.m.m.m.m.m.m.n.n.n.n.n.n.n.n.o.o.o.o.o.o.o.o.p.p.p.p."
        "r.r.r.r.r.r.r.r.s.s.s.s.s.s.s.s.s.s.t.t.t.t.t.t.t.t.u.u.u.u.u.u.u.u.u.u.v.v.v.v.w.w.w.w."
        "w.w.w.w.w.w.x.x.x.x.y.y.z.z.z.z.z.z.h.t.w.y.a.s.....ss..a.a.a.a.a.a.a.a.a.a.a.a.a.a.a.a."
        "a.a.a.a.a.a.a.a.e.e.e.e.e.e.e.e.e.e.e.e.e.e.e.e.i.i.i.i.o.o.o.o.o.o.o.o.o.o.o.o.o.o.o.o."
        "o.o.o.o.o.o.o.o.u.u.u.u.u.u.u.u.u.u.u.u.u.u.y.y.y.y.y.y.y.y.llllv.v.y.y."},
};

/// What a name may be written with or without.
constexpr std::u32string_view passedOver =
    U" \t-'`"
    U"\u00A0\u00AD\u00B4\u02B9\u02BB\u02BC\u02BD\u2007\u2009\u2010\u2011\u2012\u2013\u2014\u2018"
    U"\u2019\u201B\u202F\u2032";

bool EstAccent(char32_t c) { return c >= 0x300 && c <= 0x36F; }

/// The letters of a character; empty when the blocks do not know it.
std::string_view Lettres(char32_t c) {
  for (const LetterBlock& block : letterBlocks) {
    if (c < block.first || c >= block.first + block.letters.size() / 2) continue;
    const std::string_view two = block.letters.substr(std::size_t{2} * (c - block.first), 2);
    return two.substr(0, two.find('.'));
  }
  return {};
}

/// The length of the character that begins here; 1 for what is none.
std::size_t Longueur(std::string_view utf8) {
  const auto lead = static_cast<unsigned char>(utf8.front());
  const std::size_t size = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  return std::min(size, utf8.size());
}

char32_t Point(std::string_view character) {
  constexpr std::array<unsigned char, 5> masks{0, 0x7F, 0x1F, 0x0F, 0x07};
  char32_t point = static_cast<unsigned char>(character[0]) & masks[character.size()];
  for (const char c : character.substr(1))
    point = point << 6 | (static_cast<unsigned char>(c) & 0x3FU);
  return point;
}

}  // namespace

std::string FormeSimple(std::string_view name) {
  std::string plain;
  const std::string small = Minuscules(name);
  for (std::string_view rest = small; !rest.empty();) {
    const std::string_view character = rest.substr(0, Longueur(rest));
    rest.remove_prefix(character.size());
    const char32_t c = Point(character);
    if (c == 0 || EstAccent(c) || passedOver.find(c) != std::u32string_view::npos) continue;
    const std::string_view letters = Lettres(c);
    plain += letters.empty() ? character : letters;
  }
  return plain;
}

}  // namespace talpena
