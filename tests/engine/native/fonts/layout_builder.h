// Font files with layout tables made for a test.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/native/fonts/face.h"

namespace pagivo::native {

// A piece of an OpenType table: 16-bit values, and offsets to further pieces, which are written
// after the values.
class Piece {
 public:
  Piece() = default;
  Piece(std::initializer_list<int> values) {
    for (const int value : values) Put(value);
  }

  Piece& Put(int value);
  Piece& PutOffset(Piece target);      // 16-bit, from this piece's beginning
  Piece& PutLongOffset(Piece target);  // 32-bit

  std::string Bytes() const;

 private:
  struct Link {
    std::size_t position;
    std::size_t width;
    std::string target;
  };

  std::string values_;
  std::vector<Link> links_;
};

// A whole GSUB or GPOS whose one feature, on for all text, applies the first of the lookups; the
// others are for it to call.
std::string LayoutTable(const char* feature, const std::vector<Piece>& lookups);

// Writes the outlines of an ordinary face together with the layout table `tag` and no other one.
void WriteFont(const std::string& path, const Face& outlines, const char* tag,
               const std::string& table);

}  // namespace pagivo::native
