// The faces that font tests walk.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/native/fonts/face.h"
#include "engine/native/fonts/face_finder.h"

namespace pagivo::native {

// Every usable face of the machine, in the finder's own order.
inline std::vector<FaceFile> InstalledFaces() {
  const std::unique_ptr<FaceFinder> finder = MakeFaceFinder();
  std::vector<FaceFile> files;
  while (const std::optional<FaceFile> file = finder->Find(FaceQuery(), files.size())) {
    files.push_back(*file);
  }
  return files;
}

// The closest face to a family, opened for the test alone.
inline std::unique_ptr<Face> OpenFace(const std::string& family, bool bold = false) {
  const std::optional<FaceFile> file =
      MakeFaceFinder()->Find({family, bold, false, std::nullopt}, 0);
  return std::make_unique<Face>(file.value().path, file.value().index);
}

}  // namespace pagivo::native
