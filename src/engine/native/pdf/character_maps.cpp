#include "engine/native/pdf/character_maps.h"

#include <algorithm>

#include "engine/native/pdf/number_format.h"
#include "engine/native/pdf/text_string.h"

namespace pagivo::native {
namespace {

// The most mappings that one operator may list.
constexpr std::size_t kMappingsPerBlock = 100;

// A mapping's text may take 512 bytes.
constexpr std::size_t kLongestText = 128;

// What a code without text is mapped to: readers show U+FFFD for one that is not mapped at all.
constexpr char32_t kZeroWidthSpace = 0x200B;

std::string BeginMap(std::string_view name, int type, std::string_view ordering, int codeBytes) {
  std::string map =
      "/CIDInit/ProcSet findresource begin\n12 dict begin\nbegincmap\n"
      "/CIDSystemInfo<</Registry(Adobe)/Ordering(";
  map.append(ordering).append(")/Supplement 0>>def\n/CMapName/").append(name);
  map += " def\n/CMapType ";
  AppendInteger(map, type);
  map += " def\n1 begincodespacerange\n";
  map += codeBytes == 1 ? "<00><FF>" : "<0000><FFFF>";
  map += "\nendcodespacerange\n";
  return map;
}

constexpr std::string_view kEndMap =
    "endcmap\nCMapName currentdict/CMap defineresource pop\nend\nend\n";

void AppendCode(std::string& out, std::uint16_t code, int codeBytes) {
  out.push_back('<');
  if (codeBytes == 2) AppendHexByte(out, code >> 8);
  AppendHexByte(out, code & 0xFFU);
  out.push_back('>');
}

// Lists the mappings in blocks, each line made by `appendTarget`.
template <typename AppendTarget>
void AppendBlocks(std::string& map, std::string_view kind, int codeBytes,
                  std::span<const CodeMapping> mappings, AppendTarget appendTarget) {
  while (!mappings.empty()) {
    const std::size_t count = std::min(mappings.size(), kMappingsPerBlock);
    AppendInteger(map, static_cast<std::int64_t>(count));
    map.append(" begin").append(kind).append("\n");
    for (const CodeMapping& mapping : mappings.first(count)) {
      AppendCode(map, mapping.code, codeBytes);
      appendTarget(mapping);
      map.push_back('\n');
    }
    map.append("end").append(kind).append("\n");
    mappings = mappings.subspan(count);
  }
}

}  // namespace

std::string_view EncodingName(int codeBytes) {
  return codeBytes == 1 ? "Pagivo-OneByte" : "Pagivo-TwoByte";
}

std::string MakeEncoding(int codeBytes, std::span<const CodeMapping> mappings) {
  std::string map = BeginMap(EncodingName(codeBytes), 1, "Identity", codeBytes);
  AppendBlocks(map, "cidchar", codeBytes, mappings, [&map](const CodeMapping& mapping) {
    map.push_back(' ');
    AppendInteger(map, mapping.character);
  });
  return map.append(kEndMap);
}

std::string MakeToUnicode(int codeBytes, std::span<const CodeMapping> mappings) {
  std::string map = BeginMap("Adobe-Identity-UCS", 2, "UCS", codeBytes);
  AppendBlocks(map, "bfchar", codeBytes, mappings, [&map](const CodeMapping& mapping) {
    std::u32string text = DecodeText(mapping.text).substr(0, kLongestText);
    if (text.empty()) text.push_back(kZeroWidthSpace);
    map.push_back('<');
    AppendUtf16Hex(map, text);
    map.push_back('>');
  });
  return map.append(kEndMap);
}

}  // namespace pagivo::native
