#include "abqinp/Normalisation.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace abqinp {
namespace {

struct CharacterTable {
  std::array<char, 256> upper{};
  std::array<bool, 256> isKept{};
};

constexpr CharacterTable makeCharacterTable() noexcept {
  CharacterTable table;
  for (std::size_t i = 0; i < table.upper.size(); ++i) {
    const bool isLower = i >= 'a' && i <= 'z';
    table.upper[i] = static_cast<char>(isLower ? i - 'a' + 'A' : i);
    table.isKept[i] = i != ' ' && (i < '\t' || i > '\r');
  }
  return table;
}

constexpr CharacterTable kCharacters = makeCharacterTable();

/// Normalises text that is not quoted to `out`, which has room for it; returns its end there.
char* normaliseTo(char* out, const std::string_view text) noexcept {
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    *out = kCharacters.upper[code];
    out += kCharacters.isKept[code] ? 1 : 0;
  }
  return out;
}

}  // namespace

std::string_view withoutCarriageReturn(const std::string_view line) noexcept {
  const bool hasReturn = !line.empty() && line.back() == '\r';
  return line.substr(0, line.size() - (hasReturn ? 1 : 0));
}

bool isCommentLine(const std::string_view line) noexcept {
  const std::size_t star = line.find('*');
  return star != std::string_view::npos && star + 1 < line.size() && line[star + 1] == '*';
}

void normalise(const std::string_view line, std::string& normalised) {
  std::string_view rest = withoutCarriageReturn(line);
  normalised.resize(rest.size());
  char* out = normalised.data();
  while (!rest.empty()) {
    const std::size_t open = std::min(rest.find('"'), rest.size());
    out = normaliseTo(out, rest.substr(0, open));
    rest.remove_prefix(open);
    const std::size_t close = rest.find('"', 1);
    const std::string_view quoted =
        rest.substr(0, close == std::string_view::npos ? close : close + 1);
    out += quoted.copy(out, quoted.size());
    rest.remove_prefix(quoted.size());
  }
  normalised.resize(static_cast<std::size_t>(out - normalised.data()));
}

}  // namespace abqinp
