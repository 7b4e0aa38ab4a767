#include "engine/native/pdf/deflater.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <new>
#include <utility>

namespace pagivo::native {
namespace {

// Contents of other sizes go to libdeflate: what is shorter is not worth the codes of the page
// before, positions in what is longer would not fit, and it is worth codes of its own.
constexpr std::size_t kShortestContent = 1000;
constexpr std::size_t kLongestContent = 60000;

constexpr int kPagesForCodes = 128;

// Of RFC 1951.
constexpr std::size_t kShortestMatch = 4;  // three would be allowed, and seldom pays
constexpr std::ptrdiff_t kFarthestMatch = 32768;
constexpr unsigned kLongestCode = 15;
constexpr int kEndOfBlock = 256;
constexpr std::size_t kFirstLength = 257;
constexpr std::array<std::uint8_t, 19> kOrderOfLengthCodes = {16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                                              11, 4,  12, 3, 13, 2, 14, 1, 15};
constexpr unsigned kLongestLengthCode = 7;
constexpr int kRepeat = 16;  // of a code's length, three to six times

// Processors that number bytes the other way round give the same. Compilers do not always see that
// the loop is one load.
template <typename Number>
Number NumberAt(const char* bytes) {
  Number number = 0;
  if constexpr (std::endian::native == std::endian::little) {
    std::memcpy(&number, bytes, sizeof number);
  } else {
    for (std::size_t i = 0; i < sizeof number; ++i) {
      number |= Number{static_cast<std::uint8_t>(bytes[i])} << 8 * i;
    }
  }
  return number;
}

std::uint32_t FourBytesAt(const char* bytes) {
  return NumberAt<std::uint32_t>(bytes);
}

// How many bytes are the same, of those up to `end`, the first four of which are known to be.
std::size_t MatchLength(const char* bytes, const char* before, const char* end) {
  const char* next = bytes + kShortestMatch;
  before += kShortestMatch;
  for (; end - next >= 8; next += 8, before += 8) {
    const auto difference = NumberAt<std::uint64_t>(next) ^ NumberAt<std::uint64_t>(before);
    if (difference == 0) continue;
    return static_cast<std::size_t>(next - bytes) +
           static_cast<std::size_t>(std::countr_zero(difference)) / 8;
  }
  while (next < end && *next == *before) ++next, ++before;
  return static_cast<std::size_t>(next - bytes);
}

// A length's code number counted from kFirstLength, and how many further bits it has.
struct LengthSlot {
  std::size_t number = 0;
  unsigned extraBits = 0;
  unsigned extra = 0;
};

LengthSlot SlotOfLength(unsigned length) {
  if (length == 258) return {28, 0, 0};
  const unsigned x = length - 3;
  if (x < 8) return {x, 0, 0};
  const auto extraBits = static_cast<unsigned>(std::bit_width(x)) - 3;
  return {4 * extraBits + (x >> extraBits), extraBits, x & ((1U << extraBits) - 1)};
}

struct DistanceSlot {
  std::size_t number = 0;
  unsigned extraBits = 0;
  unsigned extra = 0;
};

DistanceSlot SlotOfDistance(unsigned distance) {
  const unsigned x = distance - 1;
  if (x < 4) return {x, 0, 0};
  const auto extraBits = static_cast<unsigned>(std::bit_width(x)) - 2;
  return {2 * extraBits + (x >> extraBits), extraBits, x & ((1U << extraBits) - 1)};
}

// The depths of a Huffman tree over the weights that are not zero, of which there are two at least.
std::vector<std::uint8_t> HuffmanDepths(std::span<const std::uint32_t> weights) {
  struct Node {
    std::uint64_t weight = 0;
    std::size_t symbol = 0;
    std::size_t parent = 0;
    std::uint8_t depth = 0;
  };
  std::vector<Node> nodes;
  for (std::size_t i = 0; i < weights.size(); ++i) {
    if (weights[i] != 0) nodes.push_back({.weight = weights[i], .symbol = i});
  }
  std::ranges::stable_sort(nodes, {}, &Node::weight);
  const std::size_t leaves = nodes.size();
  std::size_t leaf = 0;
  std::size_t inner = leaves;
  const auto takeLightest = [&] {
    const bool takesLeaf =
        leaf < leaves && (inner == nodes.size() || nodes[leaf].weight <= nodes[inner].weight);
    const std::size_t taken = takesLeaf ? leaf++ : inner++;
    nodes[taken].parent = nodes.size();
    return nodes[taken].weight;
  };
  while (nodes.size() < 2 * leaves - 1) {
    const std::uint64_t first = takeLightest();
    nodes.push_back({.weight = first + takeLightest()});
  }
  std::vector<std::uint8_t> depths(weights.size());
  for (std::size_t i = nodes.size() - 1; i-- > 0;) {
    nodes[i].depth = static_cast<std::uint8_t>(nodes[nodes[i].parent].depth + 1);
    if (i < leaves) depths[nodes[i].symbol] = nodes[i].depth;
  }
  return depths;
}

// Lengths of prefix codes. Weights are evened out until no code is too long.
std::vector<std::uint8_t> CodeLengths(std::vector<std::uint32_t> weights, unsigned longest) {
  for (;;) {
    std::vector<std::uint8_t> lengths = HuffmanDepths(weights);
    if (std::ranges::max(lengths) <= longest) return lengths;
    for (std::uint32_t& weight : weights) weight = (weight + 1) / 2;
  }
}

// Codes count upwards within a length and from shorter ones to longer ones. Their first bit is the
// highest, so it is turned to the front.
template <typename Code>
void NumberCodes(std::span<const std::uint8_t> lengths, std::span<Code> codes) {
  std::uint32_t next = 0;
  for (unsigned length = 1; length <= kLongestCode; ++length, next <<= 1) {
    for (std::size_t i = 0; i < lengths.size(); ++i) {
      if (lengths[i] != length) continue;
      codes[i] = {0, length};
      for (unsigned bit = 0; bit < length; ++bit) {
        codes[i].bits |= (next >> bit & 1) << (length - 1 - bit);
      }
      ++next;
    }
  }
}

}  // namespace

Deflater::Deflater(Effort effort)
    : compressor_(libdeflate_alloc_compressor(static_cast<int>(effort))) {
  if (!compressor_) throw std::bad_alloc();
}

std::string_view Deflater::Compress(std::string_view bytes) {
  const std::size_t bound = libdeflate_zlib_compress_bound(compressor_.get(), bytes.size());
  if (buffer_.size() < bound) buffer_.resize(bound);
  const std::size_t size = libdeflate_zlib_compress(compressor_.get(), bytes.data(), bytes.size(),
                                                    buffer_.data(), buffer_.size());
  return {buffer_.data(), size};
}

// Writes eight bytes at a time, of which those count that are full. Up to 57 bits may be put
// between two calls of Flush.
class PageDeflater::BitWriter {
 public:
  explicit BitWriter(char* next, Code begun = {})
      : next_(next), bits_(begun.bits), count_(begun.count) {}

  void Put(Code code) {
    bits_ |= std::uint64_t{code.bits} << count_;
    count_ += code.count;
  }

  void Flush() {
    for (unsigned i = 0; i < 8; ++i) next_[i] = static_cast<char>(bits_ >> 8 * i);
    next_ += count_ / 8;
    bits_ >>= count_ / 8 * 8;
    count_ %= 8;
  }

  // Where the next byte stands, and what has been begun of it.
  char* Next() const { return next_; }
  Code Begun() const { return {static_cast<std::uint32_t>(bits_), count_}; }

 private:
  char* next_;
  std::uint64_t bits_;
  std::uint32_t count_;
};

std::string_view PageDeflater::Compress(std::string_view content) {
  if (content.size() < kShortestContent || content.size() > kLongestContent) {
    return small_.Compress(content);
  }
  if (pagesLeft_-- > 0) {
    // An eighth more than the codes' own page took: they are for pages of another kind.
    const std::string_view encoded = Encode(content);
    if (encoded.size() * 8 * 1000 <= content.size() * 9 * bytesForThousand_) return encoded;
  }
  MakeCodes(content);
  const std::string_view encoded = Encode(content);
  bytesForThousand_ = encoded.size() * 1000 / content.size();
  pagesLeft_ = kPagesForCodes - 1;
  return encoded;
}

// Calls literal(byte) for a byte that stands for itself and match(length, distance) for bytes that
// stood before. Of the places with the same four bytes only the last one is looked at.
template <typename Literal, typename Match>
void PageDeflater::Parse(std::string_view content, Literal literal, Match match) {
  lastSeen_.fill(0);
  const char* const begin = content.data();
  const char* const end = begin + content.size();
  const char* const lastStart = end - kShortestMatch;
  const auto lastSeenOf = [this](std::uint32_t bytes) -> std::uint16_t& {
    return lastSeen_[bytes * 0x9E3779B1U >> (32 - kHashBits)];
  };
  const char* next = begin;
  while (next <= lastStart) {
    const std::uint32_t bytes = FourBytesAt(next);
    std::uint16_t& lastSeen = lastSeenOf(bytes);
    const char* const before = begin + lastSeen;
    lastSeen = static_cast<std::uint16_t>(next - begin);
    if (FourBytesAt(before) != bytes || next - before > kFarthestMatch || next == before) {
      literal(static_cast<std::uint8_t>(*next++));
      continue;
    }
    const std::size_t length = MatchLength(next, before, std::min(end, next + kLongestMatch));
    match(static_cast<unsigned>(length), static_cast<unsigned>(next - before));
    next += length;
    // Within the match only its end is remembered: that is where another one may go on.
    for (const char* seen = next - 2; seen < next && seen <= lastStart; ++seen) {
      lastSeenOf(FourBytesAt(seen)) = static_cast<std::uint16_t>(seen - begin);
    }
  }
  while (next < end) literal(static_cast<std::uint8_t>(*next++));
}

// What the page does not have weighs an eighth of what it has once, so that it costs the page
// little and other pages can have it.
void PageDeflater::MakeCodes(std::string_view content) {
  constexpr std::uint32_t kSeen = 8;
  std::vector<std::uint32_t> literals(kLiteralCodes, 1);
  std::vector<std::uint32_t> distances(kDistanceCodes, 1);
  const auto countLiteral = [&](std::uint8_t byte) { literals[byte] += kSeen; };
  const auto countMatch = [&](unsigned length, unsigned distance) {
    literals[kFirstLength + SlotOfLength(length).number] += kSeen;
    distances[SlotOfDistance(distance).number] += kSeen;
  };
  Parse(content, countLiteral, countMatch);
  std::vector<std::uint8_t> lengths = CodeLengths(std::move(literals), kLongestCode);
  const std::vector<std::uint8_t> more = CodeLengths(std::move(distances), kLongestCode);
  NumberCodes<Code>(lengths, literals_);
  NumberCodes<Code>(more, distances_);
  for (unsigned length = 3; length <= kLongestMatch; ++length) {
    const LengthSlot slot = SlotOfLength(length);
    const Code& code = literals_[kFirstLength + slot.number];
    lengths_[length] = {code.bits | slot.extra << code.count, code.count + slot.extraBits};
  }
  lengths.insert(lengths.end(), more.begin(), more.end());
  MakeHeader(lengths);
}

// The lengths of all codes, as a block begins with them: repeated ones are counted, and both the
// lengths and the count of repetitions have codes themselves.
void PageDeflater::MakeHeader(std::span<const std::uint8_t> lengths) {
  struct Entry {
    std::size_t symbol = 0;
    std::uint32_t repetitions = 0;
  };
  std::vector<Entry> entries;
  for (std::size_t i = 0; i < lengths.size();) {
    std::size_t same = i + 1;
    while (same < lengths.size() && lengths[same] == lengths[i]) ++same;
    entries.push_back({lengths[i], 0});
    for (++i; same - i >= 3;) {
      const std::size_t repetitions = std::min<std::size_t>(same - i, 6);
      entries.push_back({kRepeat, static_cast<std::uint32_t>(repetitions)});
      i += repetitions;
    }
    for (; i < same; ++i) entries.push_back({lengths[i], 0});
  }

  std::vector<std::uint32_t> weights(kOrderOfLengthCodes.size());
  for (const Entry& entry : entries) ++weights[entry.symbol];
  const std::vector<std::uint8_t> codeLengths = CodeLengths(std::move(weights), kLongestLengthCode);
  std::array<Code, kOrderOfLengthCodes.size()> codes{};
  NumberCodes<Code>(codeLengths, codes);

  // The last block, with codes of its own, of all lengths that there are.
  std::vector<Code> header = {{1, 1}, {2, 2}, {kLiteralCodes - 257, 5}, {kDistanceCodes - 1, 5}};
  header.push_back({static_cast<std::uint32_t>(codeLengths.size() - 4), 4});
  for (const std::uint8_t symbol : kOrderOfLengthCodes) header.push_back({codeLengths[symbol], 3});
  for (const Entry& entry : entries) {
    header.push_back(codes[entry.symbol]);
    if (entry.symbol == kRepeat) header.push_back({entry.repetitions - 3, 2});
  }
  WriteHeader(header);
}

void PageDeflater::WriteHeader(std::span<const Code> header) {
  header_.assign(2 * header.size() + 16, '\0');
  header_[0] = '\x78';  // zlib form, a window of 32 KB
  header_[1] = '\x01';
  BitWriter writer(header_.data() + 2);
  for (const Code& code : header) {
    writer.Put(code);
    writer.Flush();
  }
  header_.resize(static_cast<std::size_t>(writer.Next() - header_.data()));
  begunByHeader_ = writer.Begun();
}

std::string_view PageDeflater::Encode(std::string_view content) {
  // No byte takes more than the longest code of a literal, and a match fewer than four of them.
  const std::size_t bound = header_.size() + 2 * content.size() + 32;
  if (output_.size() < bound) output_.resize(bound);
  std::ranges::copy(header_, output_.begin());
  BitWriter writer(output_.data() + header_.size(), begunByHeader_);
  const auto putLiteral = [&](std::uint8_t byte) {
    writer.Put(literals_[byte]);
    writer.Flush();
  };
  const auto putMatch = [&](unsigned length, unsigned distance) {
    const DistanceSlot slot = SlotOfDistance(distance);
    writer.Put(lengths_[length]);
    writer.Put(distances_[slot.number]);
    writer.Put({slot.extra, slot.extraBits});
    writer.Flush();
  };
  Parse(content, putLiteral, putMatch);
  writer.Put(literals_[kEndOfBlock]);
  writer.Flush();
  char* end = writer.Next() + (writer.Begun().count == 0 ? 0 : 1);
  const std::uint32_t checksum = libdeflate_adler32(1, content.data(), content.size());
  for (int shift = 24; shift >= 0; shift -= 8) *end++ = static_cast<char>(checksum >> shift);
  return {output_.data(), end};
}

}  // namespace pagivo::native
