#include "automation/picture_objects.h"

#include <ocidl.h>
#include <olectl.h>
#include <wrl/client.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "pagivo/error.h"
#include "platform/platform.h"
#include "values/process_wide.h"

namespace pagivo::automation {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Microsoft::WRL::ComPtr;

// --- The bytes of a picture file

// What the stream holds; it is read from its start.
std::optional<Bytes> ContentsOf(IStream& stream) {
  STATSTG status{};
  if (FAILED(stream.Stat(&status, STATFLAG_NONAME))) return std::nullopt;
  Bytes bytes(static_cast<std::size_t>(status.cbSize.QuadPart));
  ULONG count = 0;
  if (FAILED(stream.Seek({}, STREAM_SEEK_SET, nullptr)) ||
      FAILED(stream.Read(bytes.data(), static_cast<ULONG>(bytes.size()), &count))) {
    return std::nullopt;
  }
  bytes.resize(count);
  return bytes;
}

// The file that the picture is stored as; before it stand a signature and its size.
std::optional<Bytes> StoredPicture(IPicture& picture) {
  constexpr std::ptrdiff_t kBeforeFile = 8;
  ComPtr<IPersistStream> storage;
  ComPtr<IStream> stream;
  if (FAILED(picture.QueryInterface(IID_PPV_ARGS(&storage))) ||
      FAILED(CreateStreamOnHGlobal(nullptr, TRUE, &stream)) ||
      FAILED(storage->Save(stream.Get(), FALSE))) {
    return std::nullopt;
  }
  std::optional<Bytes> bytes = ContentsOf(*stream.Get());
  if (!bytes || std::ssize(*bytes) <= kBeforeFile) return std::nullopt;
  bytes->erase(bytes->begin(), bytes->begin() + kBeforeFile);
  return bytes;
}

// --- A picture drawn, for those that are no pixels

// A bitmap of the system's that is drawn on, white at first.
class Canvas {
 public:
  Canvas(LONG width, LONG height) : dc_(CreateCompatibleDC(nullptr)) {
    header_.biSize = sizeof header_;
    header_.biWidth = width;
    header_.biHeight = height;
    header_.biPlanes = 1;
    header_.biBitCount = kBitsPerPixel;
    const auto* info = reinterpret_cast<const BITMAPINFO*>(&header_);
    bitmap_ = CreateDIBSection(dc_, info, DIB_RGB_COLORS, &pixels_, nullptr, 0);
    if (bitmap_ == nullptr) return;
    before_ = SelectObject(dc_, bitmap_);
    std::memset(pixels_, 0xFF, PixelBytes());
  }
  ~Canvas() {
    if (bitmap_ != nullptr) {
      SelectObject(dc_, before_);
      DeleteObject(bitmap_);
    }
    DeleteDC(dc_);
  }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  bool IsMade() const { return bitmap_ != nullptr; }
  HDC Dc() const { return dc_; }

  // The bitmap as a file.
  Bytes AsFile() const {
    GdiFlush();
    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42;  // "BM"
    file.bfOffBits = sizeof file + sizeof header_;
    file.bfSize = static_cast<DWORD>(file.bfOffBits + PixelBytes());
    Bytes bytes(file.bfSize);
    std::memcpy(bytes.data(), &file, sizeof file);
    std::memcpy(bytes.data() + sizeof file, &header_, sizeof header_);
    std::memcpy(bytes.data() + file.bfOffBits, pixels_, PixelBytes());
    return bytes;
  }

 private:
  static constexpr WORD kBitsPerPixel = 32;

  std::size_t PixelBytes() const {
    return std::size_t{4} * static_cast<std::size_t>(header_.biWidth) *
           static_cast<std::size_t>(header_.biHeight);
  }

  HDC dc_;
  BITMAPINFOHEADER header_{};
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ before_ = nullptr;
  void* pixels_ = nullptr;
};

LONG PixelsOf(LONG himetric) {
  constexpr LONG kHimetricPerInch = 2540;
  constexpr LONG kMostPixels = 4096;
  return std::clamp(MulDiv(himetric, kMetafileDotsPerInch, kHimetricPerInch), 1, int{kMostPixels});
}

std::optional<Bytes> DrawnPicture(IPicture& picture) {
  OLE_XSIZE_HIMETRIC width = 0;
  OLE_YSIZE_HIMETRIC height = 0;
  if (FAILED(picture.get_Width(&width)) || FAILED(picture.get_Height(&height))) {
    return std::nullopt;
  }
  const LONG columns = PixelsOf(width);
  const LONG rows = PixelsOf(height);
  const Canvas canvas(columns, rows);
  // A picture's own vertical axis points up.
  if (!canvas.IsMade() || FAILED(picture.Render(canvas.Dc(), 0, 0, columns, rows, 0, height, width,
                                                -height, nullptr))) {
    return std::nullopt;
  }
  return canvas.AsFile();
}

// --- Pictures of equal contents

struct KnownPicture {
  std::size_t size = 0;
  std::size_t hash = 0;
  std::weak_ptr<Object> picture;
};

std::vector<KnownPicture>& KnownPictures() {
  return ProcessWide<std::vector<KnownPicture>>();
}

ObjectRef Decoded(const Bytes& bytes) {
  std::vector<KnownPicture>& known = KnownPictures();
  std::erase_if(known, [](const KnownPicture& entry) { return entry.picture.expired(); });
  const std::size_t hash =
      std::hash<std::string_view>()({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
  for (const KnownPicture& entry : known) {
    if (entry.size == bytes.size() && entry.hash == hash) return entry.picture.lock();
  }
  ObjectRef picture = CurrentPlatform().decodePicture(bytes);
  known.push_back({bytes.size(), hash, picture});
  return picture;
}

}  // namespace

ObjectRef ReadPicture(IUnknown* object) {
  ComPtr<IPicture> picture;
  if (object == nullptr || FAILED(object->QueryInterface(IID_PPV_ARGS(&picture)))) return nullptr;
  SHORT kind = PICTYPE_UNINITIALIZED;
  picture->get_Type(&kind);
  if (kind == PICTYPE_NONE) return CurrentPlatform().loadPicture("");
  const bool isDrawing = kind == PICTYPE_METAFILE || kind == PICTYPE_ENHMETAFILE;
  std::optional<Bytes> bytes = isDrawing ? std::nullopt : StoredPicture(*picture.Get());
  if (!bytes) bytes = DrawnPicture(*picture.Get());
  try {
    return bytes ? Decoded(*bytes) : nullptr;
  } catch (const Error&) {  // of what the host has loaded in some other way
    return nullptr;
  }
}

}  // namespace pagivo::automation
