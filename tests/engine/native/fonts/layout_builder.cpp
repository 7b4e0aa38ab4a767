#include "engine/native/fonts/layout_builder.h"

#include <fstream>
#include <string_view>

namespace pagivo::native {
namespace {

void Append(std::string& bytes, std::size_t value, std::size_t width) {
  for (std::size_t i = width; i-- > 0;) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
}

hb_tag_t TagOf(const char* name) {
  return hb_tag_from_string(name, -1);
}

void PutTag(Piece& piece, const char* name) {
  const hb_tag_t tag = TagOf(name);
  piece.Put(static_cast<int>(tag >> 16)).Put(static_cast<int>(tag & 0xFFFF));
}

Piece ScriptList() {
  Piece script;
  script.PutOffset({0, 0xFFFF, 1, 0}).Put(0);  // a default language system with feature 0
  Piece list{1};
  PutTag(list, "DFLT");
  return list.PutOffset(script);
}

Piece FeatureList(const char* feature) {
  Piece list{1};
  PutTag(list, feature);
  return list.PutOffset({0, 1, 0});  // with lookup 0
}

bool IsLayout(hb_tag_t tag) {
  for (const char* name : {"GSUB", "GPOS", "GDEF", "kern"}) {
    if (tag == TagOf(name)) return true;
  }
  return false;
}

}  // namespace

Piece& Piece::Put(int value) {
  Append(values_, static_cast<std::size_t>(value), 2);
  return *this;
}

Piece& Piece::PutOffset(Piece target) {
  links_.push_back({values_.size(), 2, target.Bytes()});
  return Put(0);
}

Piece& Piece::PutLongOffset(Piece target) {
  links_.push_back({values_.size(), 4, target.Bytes()});
  return Put(0).Put(0);
}

std::string Piece::Bytes() const {
  std::string bytes = values_;
  for (const Link& link : links_) {
    std::string offset;
    Append(offset, bytes.size(), link.width);
    bytes.replace(link.position, link.width, offset);
    bytes += link.target;
  }
  return bytes;
}

std::string LayoutTable(const char* feature, const std::vector<Piece>& lookups) {
  Piece list{static_cast<int>(lookups.size())};
  for (const Piece& lookup : lookups) list.PutOffset(lookup);
  Piece table{1, 0};
  return table.PutOffset(ScriptList()).PutOffset(FeatureList(feature)).PutOffset(list).Bytes();
}

void WriteFont(const std::string& path, const Face& outlines, const char* tag,
               const std::string& table) {
  hb_face_t* builder = hb_face_builder_create();
  hb_tag_t tags[64];
  unsigned int count = 64;
  hb_face_get_table_tags(outlines.HarfBuzz(), 0, &count, tags);
  for (unsigned int i = 0; i < count; ++i) {
    if (IsLayout(tags[i])) continue;
    hb_blob_t* blob = hb_face_reference_table(outlines.HarfBuzz(), tags[i]);
    hb_face_builder_add_table(builder, tags[i], blob);
    hb_blob_destroy(blob);
  }
  hb_blob_t* layout = hb_blob_create(table.data(), static_cast<unsigned int>(table.size()),
                                     HB_MEMORY_MODE_DUPLICATE, nullptr, nullptr);
  hb_face_builder_add_table(builder, TagOf(tag), layout);
  hb_blob_t* file = hb_face_reference_blob(builder);
  unsigned int length = 0;
  const char* bytes = hb_blob_get_data(file, &length);
  std::ofstream(path, std::ios::binary).write(bytes, static_cast<std::streamsize>(length));
  hb_blob_destroy(file);
  hb_blob_destroy(layout);
  hb_face_destroy(builder);
}

}  // namespace pagivo::native
