#include "engine/native/pdf/cff_characters.h"

#include <map>

namespace pagivo::native {
namespace {

// Two-byte operators of a dictionary count from 1200.
constexpr int kCharset = 15;
constexpr int kCharStrings = 17;
constexpr int kRegistryOrdering = 1230;

// Thrown within this file only, when the bytes end too early or make no sense.
struct Malformed {};

class Reader {
 public:
  Reader(std::string_view bytes, std::size_t position) : bytes_(bytes), position_(position) {}

  std::size_t Position() const noexcept { return position_; }
  bool AtEnd() const noexcept { return position_ >= bytes_.size(); }

  std::uint32_t Get(unsigned size) {
    std::uint32_t value = 0;
    for (; size > 0; --size) {
      if (AtEnd()) throw Malformed();
      value = value << 8 | static_cast<unsigned char>(bytes_[position_++]);
    }
    return value;
  }

 private:
  std::string_view bytes_;
  std::size_t position_;
};

struct Index {
  std::uint32_t count = 0;
  std::size_t firstBegin = 0;  // the bytes of the first element
  std::size_t firstEnd = 0;
  std::size_t end = 0;
};

Index ReadIndex(std::string_view cff, std::size_t position) {
  Reader reader(cff, position);
  Index index;
  index.count = reader.Get(2);
  index.end = reader.Position();
  if (index.count == 0) return index;
  const unsigned offsetSize = reader.Get(1);
  if (offsetSize < 1 || offsetSize > 4) throw Malformed();
  const std::size_t offsets = reader.Position();
  // Offsets count from the byte before the data.
  const std::size_t base = offsets + (std::size_t{index.count} + 1) * offsetSize - 1;
  const auto offsetAt = [&](std::size_t i) {
    return base + Reader(cff, offsets + i * offsetSize).Get(offsetSize);
  };
  index.firstBegin = offsetAt(0);
  index.firstEnd = offsetAt(1);
  index.end = offsetAt(index.count);
  if (index.firstBegin > index.firstEnd || index.firstEnd > cff.size()) throw Malformed();
  return index;
}

void SkipReal(Reader& reader) {
  for (std::uint32_t nibbles = 0; (nibbles & 0xF) != 0xF && nibbles >> 4 != 0xF;) {
    nibbles = reader.Get(1);
  }
}

std::uint32_t ReadOperand(Reader& reader, std::uint32_t first) {
  if (first == 28) return reader.Get(2);
  if (first == 29) return reader.Get(4);
  if (first >= 247) return reader.Get(1);  // small numbers are no offsets; only their size matters
  if (first == 30) SkipReal(reader);
  return first >= 32 ? first - 139 : 0;
}

// The last operand of every operator.
std::map<int, std::uint32_t> ReadDictionary(std::string_view dictionary) {
  std::map<int, std::uint32_t> entries;
  Reader reader(dictionary, 0);
  std::uint32_t operand = 0;
  while (!reader.AtEnd()) {
    const std::uint32_t first = reader.Get(1);
    if (first > 21) {
      operand = ReadOperand(reader, first);
    } else {
      entries[static_cast<int>(first == 12 ? 1200 + reader.Get(1) : first)] = operand;
    }
  }
  return entries;
}

// Glyph 0 is character 0 and is not listed.
std::vector<std::uint32_t> ReadCharset(std::string_view cff, std::size_t offset,
                                       std::uint32_t glyphCount) {
  std::vector<std::uint32_t> characters = {0};
  Reader reader(cff, offset);
  const std::uint32_t format = reader.Get(1);
  if (format > 2) throw Malformed();
  while (characters.size() < glyphCount) {
    const std::uint32_t first = reader.Get(2);
    const std::uint32_t more = format == 0 ? 0 : reader.Get(format);
    for (std::uint32_t i = 0; i <= more && characters.size() < glyphCount; ++i) {
      characters.push_back(first + i);
    }
  }
  return characters;
}

std::vector<std::uint32_t> ReadCharacters(std::string_view cff) {
  const std::size_t headerSize = Reader(cff, 2).Get(1);
  const Index names = ReadIndex(cff, headerSize);
  const Index tops = ReadIndex(cff, names.end);
  if (tops.count == 0) throw Malformed();
  const auto top = ReadDictionary(cff.substr(tops.firstBegin, tops.firstEnd - tops.firstBegin));
  // The predefined charsets 0 to 2 are none for CID-keyed programs.
  if (!top.contains(kRegistryOrdering) || !top.contains(kCharset) || top.at(kCharset) <= 2) {
    return {};
  }
  if (!top.contains(kCharStrings)) throw Malformed();
  const std::uint32_t glyphCount = ReadIndex(cff, top.at(kCharStrings)).count;
  return ReadCharset(cff, top.at(kCharset), glyphCount);
}

}  // namespace

std::vector<std::uint32_t> CffCharacters(std::string_view cff) {
  try {
    return ReadCharacters(cff);
  } catch (const Malformed&) {
    return {};
  }
}

}  // namespace pagivo::native
