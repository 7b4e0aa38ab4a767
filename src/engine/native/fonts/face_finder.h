// Where the faces installed on a machine are found. The one seam to the system's own catalogue of
// fonts: each system's folder below this one defines MakeFaceFinder.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace pagivo::native {

struct FaceQuery {
  std::string family;
  bool bold = false;
  bool italic = false;
  std::optional<char32_t> codePoint;  // when given, only faces with a glyph for it
};

struct FaceFile {
  std::string path;
  int index = 0;  // of the face in a collection
  bool bold = false;
  bool italic = false;
};

class FaceFinder {
 public:
  virtual ~FaceFinder() = default;

  // The installed face that is closest to the query at rank 0, the next one at rank 1 and so on;
  // none past the last. A metric-compatible replacement comes before a face that only looks alike,
  // a family before the style within it. Only files with TrueType or CFF outlines. The same
  // installation gives the same order in every language and every process.
  virtual std::optional<FaceFile> Find(const FaceQuery& query, std::size_t rank) = 0;

  // Gives back what was read of the installation. It is read again when a face is next looked for.
  virtual void Forget() noexcept {}
};

// The finder of the system that the component is built for.
std::unique_ptr<FaceFinder> MakeFaceFinder();

}  // namespace pagivo::native
