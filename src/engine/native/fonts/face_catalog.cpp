#include "engine/native/fonts/face_catalog.h"

#include <utility>

#include "pagivo/error.h"

namespace pagivo::native {

std::optional<StyledFace> FaceCatalog::Find(const FaceQuery& query) {
  for (std::size_t rank = 0;; ++rank) {
    const std::optional<FaceFile> file = finder_->Find(query, rank);
    if (!file) return std::nullopt;
    const Face* face = Open(*file);
    if (face != nullptr) {
      return StyledFace{face, query.bold && !file->bold, query.italic && !file->italic};
    }
  }
}

// A broken file is no failure as long as another face can stand in; what memory lacks for now is no
// broken file.
const Face* FaceCatalog::Open(const FaceFile& file) {
  std::pair key(file.path, file.index);
  const auto known = faces_.find(key);
  if (known != faces_.end()) return known->second.get();
  if (faces_.size() >= kMostIdleFaces) {
    std::erase_if(faces_, [](const auto& entry) { return entry.second.use_count() <= 1; });
  }
  std::shared_ptr<Face> face;
  try {
    face = std::make_shared<Face>(file.path, file.index);
  } catch (const Error& failure) {
    if (failure.Number() == ErrorNumber::OutOfMemory) throw;
  }
  return faces_.emplace(std::move(key), std::move(face)).first->second.get();
}

StyledFace FaceChoice::FaceFor(char32_t codePoint) {
  if (primary_.face->GlyphOf(codePoint) != 0) return primary_;
  const auto known = fallbacks_.find(codePoint);
  if (known != fallbacks_.end()) return known->second;
  const StyledFace found = FindFallback(codePoint);
  Hold(found);
  return fallbacks_.emplace(codePoint, found).first->second;
}

StyledFace FaceChoice::FindFallback(char32_t codePoint) const {
  FaceQuery query = query_;
  query.codePoint = codePoint;
  return catalog_.Find(query).value_or(primary_);
}

}  // namespace pagivo::native
