#include "engine/native/fonts/directwrite/installed_face.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

#include "system/windows/com_result.h"
#include "system/windows/wide_text.h"

namespace pagivo::native {
namespace {

using Microsoft::WRL::ComPtr;

bool IsColored(IDWriteFont& font) {
  ComPtr<IDWriteFont2> newer;
  return Succeeded(font.QueryInterface(IID_PPV_ARGS(&newer))) && newer->IsColorFont() != FALSE;
}

bool HasOutlines(IDWriteFontFace& face) {
  const DWRITE_FONT_FACE_TYPE type = face.GetType();
  return type == DWRITE_FONT_FACE_TYPE_CFF || type == DWRITE_FONT_FACE_TYPE_TRUETYPE ||
         type == DWRITE_FONT_FACE_TYPE_TRUETYPE_COLLECTION;
}

bool IsSame(const DWRITE_FONT_AXIS_VALUE& one, const DWRITE_FONT_AXIS_VALUE& other) {
  return one.axisTag == other.axisTag && std::abs(one.value - other.value) < 0.001F;
}

// A system that does not know variable faces shows their default instance alone.
bool IsDefaultInstance(IDWriteFontFace& face) {
  ComPtr<IDWriteFontFace5> newer;
  ComPtr<IDWriteFontResource> resource;
  if (!Succeeded(face.QueryInterface(IID_PPV_ARGS(&newer))) || newer->HasVariations() == FALSE ||
      !Succeeded(newer->GetFontResource(&resource))) {
    return true;
  }
  const UINT32 count = resource->GetFontAxisCount();
  if (newer->GetFontAxisValueCount() != count) return false;
  std::vector<DWRITE_FONT_AXIS_VALUE> values(count);
  std::vector<DWRITE_FONT_AXIS_VALUE> defaults(count);
  return Succeeded(newer->GetFontAxisValues(values.data(), count)) &&
         Succeeded(resource->GetDefaultFontAxisValues(defaults.data(), count)) &&
         std::ranges::equal(values, defaults, IsSame);
}

// Empty when the face is in no file of this machine.
std::wstring PathOf(IDWriteFontFace& face) {
  UINT32 count = 0;
  if (!Succeeded(face.GetFiles(&count, nullptr)) || count != 1) return {};
  ComPtr<IDWriteFontFile> file;
  ComPtr<IDWriteFontFileLoader> loader;
  ComPtr<IDWriteLocalFontFileLoader> localLoader;
  const void* key = nullptr;
  UINT32 keySize = 0;
  UINT32 length = 0;
  if (!Succeeded(face.GetFiles(&count, &file)) || !Succeeded(file->GetLoader(&loader)) ||
      !Succeeded(loader.As(&localLoader)) || !Succeeded(file->GetReferenceKey(&key, &keySize)) ||
      !Succeeded(localLoader->GetFilePathLengthFromKey(key, keySize, &length))) {
    return {};
  }
  std::wstring path(std::size_t{length} + 1, L'\0');  // the call ends it with a null character
  if (!Succeeded(localLoader->GetFilePathFromKey(key, keySize, path.data(), length + 1))) return {};
  path.resize(length);
  return path;
}

}  // namespace

bool AreEqualInAnyCase(const std::wstring& one, const std::wstring& other) {
  return CompareStringOrdinal(one.c_str(), -1, other.c_str(), -1, TRUE) == CSTR_EQUAL;
}

std::wstring StringAt(IDWriteLocalizedStrings& names, UINT32 index) {
  UINT32 length = 0;
  if (!Succeeded(names.GetStringLength(index, &length))) return {};
  std::wstring name(std::size_t{length} + 1, L'\0');  // the call ends it with a null character
  if (!Succeeded(names.GetString(index, name.data(), length + 1))) return {};
  name.resize(length);
  return name;
}

// Up to medium is no bold, as in fontconfig's rules.
std::optional<FaceFile> FileOf(IDWriteFont& font) {
  ComPtr<IDWriteFontFace> face;
  if (font.GetSimulations() != DWRITE_FONT_SIMULATIONS_NONE || IsColored(font) ||
      !Succeeded(font.CreateFontFace(&face)) || !HasOutlines(*face.Get()) ||
      !IsDefaultInstance(*face.Get())) {
    return std::nullopt;
  }
  const std::wstring path = PathOf(*face.Get());
  if (path.empty()) return std::nullopt;
  return FaceFile{FromWide(path), static_cast<int>(face->GetIndex()),
                  font.GetWeight() > DWRITE_FONT_WEIGHT_MEDIUM,
                  font.GetStyle() != DWRITE_FONT_STYLE_NORMAL};
}

InstalledFace::Distance InstalledFace::DistanceFrom(const FaceQuery& query) const {
  const int slant = query.italic ? DWRITE_FONT_STYLE_ITALIC : DWRITE_FONT_STYLE_NORMAL;
  const int weight = query.bold ? DWRITE_FONT_WEIGHT_BOLD : DWRITE_FONT_WEIGHT_NORMAL;
  return {std::abs(font_->GetStretch() - DWRITE_FONT_STRETCH_NORMAL),
          std::abs(font_->GetStyle() - slant), std::abs(font_->GetWeight() - weight)};
}

bool InstalledFace::Has(char32_t codePoint) const {
  BOOL has = FALSE;
  return Succeeded(font_->HasCharacter(codePoint, &has)) && has != FALSE;
}

bool InstalledFace::IsOfFourStyleFamily(const std::wstring& family) const {
  ComPtr<IDWriteLocalizedStrings> names;
  BOOL exists = FALSE;
  if (!Succeeded(font_->GetInformationalStrings(DWRITE_INFORMATIONAL_STRING_WIN32_FAMILY_NAMES,
                                                &names, &exists)) ||
      exists == FALSE) {
    return false;
  }
  for (UINT32 i = 0; i < names->GetCount(); ++i) {
    if (AreEqualInAnyCase(StringAt(*names.Get(), i), family)) return true;
  }
  return false;
}

const std::optional<FaceFile>& InstalledFace::File() const {
  if (!isLookedUp_) file_ = FileOf(*font_.Get());
  isLookedUp_ = true;
  return file_;
}

}  // namespace pagivo::native
