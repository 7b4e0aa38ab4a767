// A face that DirectWrite lists.
#pragma once

#include <dwrite_3.h>
#include <wrl/client.h>

#include <compare>
#include <optional>
#include <string>
#include <utility>

#include "engine/native/fonts/face_finder.h"

namespace pagivo::native {

using FontRef = Microsoft::WRL::ComPtr<IDWriteFont>;

// Where the face is stored; none for one that cannot be used: without outlines or in colour, made
// up by the system from another one, in no file of this machine, or any but the default instance of
// a variable face.
std::optional<FaceFile> FileOf(IDWriteFont& font);

bool AreEqualInAnyCase(const std::wstring& one, const std::wstring& other);
// One of the names that stand there in several languages.
std::wstring StringAt(IDWriteLocalizedStrings& names, UINT32 index);

class InstalledFace {
 public:
  explicit InstalledFace(FontRef font) : font_(std::move(font)) {}

  // How far the face is from a style; the least is the closest. The slant counts before the weight,
  // as in fontconfig's rules, and both after the width: a family here holds the narrow faces, too.
  struct Distance {
    int width = 0;
    int slant = 0;
    int weight = 0;
    friend auto operator<=>(const Distance&, const Distance&) = default;
  };
  Distance DistanceFrom(const FaceQuery& query) const;

  bool Has(char32_t codePoint) const;
  // The family that programs with four styles a family know the face by, such as "Arial Narrow" of
  // the family Arial.
  bool IsOfFourStyleFamily(const std::wstring& family) const;
  // See FileOf; looked up once.
  const std::optional<FaceFile>& File() const;

 private:
  FontRef font_;
  mutable bool isLookedUp_ = false;
  mutable std::optional<FaceFile> file_;
};

}  // namespace pagivo::native
