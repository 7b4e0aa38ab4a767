// The faces that font tests walk.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "engine/native/fonts/face.h"
#include "engine/native/fonts/face_finder.h"
#include "pagivo/error.h"

namespace pagivo::native {

inline bool CanBeOpened(const FaceFile& file) {
  try {
    const Face face(file.path, file.index);
    return true;
  } catch (const Error&) {
    return false;  // a web font, for instance
  }
}

// Every usable face of the machine, in the finder's own order.
inline std::vector<FaceFile> InstalledFaces() {
  const std::unique_ptr<FaceFinder> finder = MakeFaceFinder();
  std::vector<FaceFile> files;
  for (std::size_t rank = 0; const auto file = finder->Find(FaceQuery(), rank); ++rank) {
    if (CanBeOpened(*file)) files.push_back(*file);
  }
  return files;
}

// The closest face to a family.
inline FaceFile FileFor(const std::string& family, bool bold = false, bool italic = false) {
  static const std::unique_ptr<FaceFinder> finder = MakeFaceFinder();
  return finder->Find({family, bold, italic, std::nullopt}, 0).value();
}

// A machine that holds just these faces, the closest one first whatever is asked for.
class ListedFaces final : public FaceFinder {
 public:
  explicit ListedFaces(std::vector<FaceFile> files) : files_(std::move(files)) {}

  std::optional<FaceFile> Find(const FaceQuery& query, std::size_t rank) override {
    for (const FaceFile& file : files_) {
      if (query.codePoint && !Has(file, *query.codePoint)) continue;
      if (rank-- == 0) return file;
    }
    return std::nullopt;
  }

 private:
  static bool Has(const FaceFile& file, char32_t codePoint) {
    return CanBeOpened(file) && Face(file.path, file.index).GlyphOf(codePoint) != 0;
  }

  std::vector<FaceFile> files_;
};

}  // namespace pagivo::native
