// The face that Windows itself takes for a character that a font lacks.
#pragma once

#include <dwrite_3.h>
#include <wrl/client.h>

#include <string>

#include "engine/native/fonts/face_finder.h"

namespace pagivo::native {

class SystemFallback {
 public:
  // Knows nothing on a system older than Windows 8.1.
  explicit SystemFallback(IDWriteFactory& factory);

  // Null when it knows none. `family` is the query's. The query names a code point.
  Microsoft::WRL::ComPtr<IDWriteFont> FontFor(const FaceQuery& query,
                                              const std::wstring& family) const;

 private:
  Microsoft::WRL::ComPtr<IDWriteFontFallback> fallback_;
};

}  // namespace pagivo::native
