// Font files mapped into memory by names of any characters, where HarfBuzz knows those of the
// system's narrow code page alone.
#include <windows.h>

#include <limits>

#include "engine/native/fonts/font_file.h"
#include "system/windows/open_file.h"
#include "system/windows/wide_text.h"

namespace pagivo::native {
namespace {

Handle OpenForReading(const std::wstring& path) {
  return Held(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                          OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

void Unmap(void* view) {
  UnmapViewOfFile(view);
}

}  // namespace

hb_blob_t* OpenFontFile(const std::string& path) {
  const Handle file = OpenForReading(ToWide(path));
  LARGE_INTEGER size{};
  if (!file || GetFileSizeEx(file.get(), &size) == FALSE ||
      size.QuadPart > std::numeric_limits<std::int32_t>::max()) {
    return nullptr;
  }
  const Handle mapping(CreateFileMappingW(file.get(), nullptr, PAGE_READONLY, 0, 0, nullptr));
  if (!mapping) return nullptr;  // an empty file, too
  void* const view = MapViewOfFile(mapping.get(), FILE_MAP_READ, 0, 0, 0);
  if (view == nullptr) return nullptr;
  return hb_blob_create_or_fail(static_cast<const char*>(view),
                                static_cast<unsigned int>(size.QuadPart), HB_MEMORY_MODE_READONLY,
                                view, Unmap);
}

}  // namespace pagivo::native
