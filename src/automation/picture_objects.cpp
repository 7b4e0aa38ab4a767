#include "automation/picture_objects.h"

#include <ocidl.h>
#include <olectl.h>
#include <wrl/client.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "pagivo/error.h"
#include "platform/platform.h"
#include "values/hashes.h"
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

// --- The pixels of a bitmap

constexpr LONG kBytesPerPixel = 3;

BITMAPINFO LayoutOf(LONG width, LONG height) {
  BITMAPINFO layout{};
  layout.bmiHeader.biSize = sizeof layout.bmiHeader;
  layout.bmiHeader.biWidth = width;
  layout.bmiHeader.biHeight = height;
  layout.bmiHeader.biPlanes = 1;
  layout.bmiHeader.biBitCount = kBytesPerPixel * 8;
  return layout;
}

bool IsBitmapFile(const Bytes& file) {
  return file.size() > 2 && file[0] == 'B' && file[1] == 'M';
}

// The bitmap as a file. None for one whose file would be too large, which is drawn smaller then.
std::optional<Bytes> FileOfBitmap(HBITMAP bitmap) {
  constexpr std::int64_t kMostPixelBytes = 1 << 30;
  BITMAP properties{};
  if (GetObjectW(bitmap, sizeof properties, &properties) == 0) return std::nullopt;
  const LONG height = properties.bmHeight;
  BITMAPINFO layout = LayoutOf(properties.bmWidth, height);
  const std::int64_t rowBytes = (std::int64_t{properties.bmWidth} * kBytesPerPixel + 3) / 4 * 4;
  if (rowBytes * height > kMostPixelBytes) return std::nullopt;
  BITMAPFILEHEADER start{};
  start.bfType = 0x4D42;  // "BM"
  start.bfOffBits = sizeof start + sizeof layout.bmiHeader;
  start.bfSize = static_cast<DWORD>(start.bfOffBits + rowBytes * height);
  Bytes file(start.bfSize);
  const HDC dc = CreateCompatibleDC(nullptr);
  const int rows = GetDIBits(dc, bitmap, 0, static_cast<UINT>(height),
                             file.data() + start.bfOffBits, &layout, DIB_RGB_COLORS);
  DeleteDC(dc);
  if (rows != height) return std::nullopt;
  std::memcpy(file.data(), &start, sizeof start);
  std::memcpy(file.data() + sizeof start, &layout.bmiHeader, sizeof layout.bmiHeader);
  return file;
}

std::optional<Bytes> PixelsOfBitmap(IPicture& picture) {
  OLE_HANDLE handle = 0;
  if (FAILED(picture.get_Handle(&handle))) return std::nullopt;
  // Handles have 32 bits of meaning, also where they are wider.
  return FileOfBitmap(reinterpret_cast<HBITMAP>(static_cast<LONG_PTR>(static_cast<LONG>(handle))));
}

// --- A picture drawn, for those that are no pixels

// A bitmap of the system's that is drawn on, white at first.
class Canvas {
 public:
  Canvas(LONG width, LONG height) : dc_(CreateCompatibleDC(nullptr)) {
    const BITMAPINFO layout = LayoutOf(width, height);
    void* pixels = nullptr;
    bitmap_ = CreateDIBSection(dc_, &layout, DIB_RGB_COLORS, &pixels, nullptr, 0);
    if (bitmap_ == nullptr) return;
    before_ = SelectObject(dc_, bitmap_);
    PatBlt(dc_, 0, 0, width, height, WHITENESS);
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

  // What was drawn, as a file; nothing more can be drawn then.
  std::optional<Bytes> TakeFile() {
    SelectObject(dc_, before_);  // a bitmap is read while nobody draws on it
    return FileOfBitmap(bitmap_);
  }

 private:
  HDC dc_;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ before_ = nullptr;
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
  Canvas canvas(columns, rows);
  // A picture's own vertical axis points up.
  if (!canvas.IsMade() || FAILED(picture.Render(canvas.Dc(), 0, 0, columns, rows, 0, height, width,
                                                -height, nullptr))) {
    return std::nullopt;
  }
  return canvas.TakeFile();
}

// --- A picture as a file

bool IsDrawing(SHORT kind) {
  return kind == PICTYPE_METAFILE || kind == PICTYPE_ENHMETAFILE;
}

// A bitmap's own pixels are taken unless it is stored as another kind of file: storing one of 32
// bits, some systems leave out the masks that its file announces.
std::optional<Bytes> FileOf(IPicture& picture, SHORT kind) {
  std::optional<Bytes> file = IsDrawing(kind) ? std::nullopt : StoredPicture(picture);
  if (kind == PICTYPE_BITMAP && (!file || IsBitmapFile(*file))) file = PixelsOfBitmap(picture);
  return file ? file : DrawnPicture(picture);
}

// --- Pictures of equal contents

struct KnownPicture {
  std::size_t size = 0;
  std::uint64_t hash = 0;
  std::weak_ptr<Object> picture;
};

std::vector<KnownPicture>& KnownPictures() {
  return ProcessWide<std::vector<KnownPicture>>();
}

ObjectRef Decoded(const Bytes& bytes) {
  std::vector<KnownPicture>& known = KnownPictures();
  std::erase_if(known, [](const KnownPicture& entry) { return entry.picture.expired(); });
  const std::uint64_t hash = HashOfBytes(bytes);
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
  const std::optional<Bytes> file = FileOf(*picture.Get(), kind);
  try {
    return file ? Decoded(*file) : nullptr;
  } catch (const Error&) {  // of what the host has loaded in some other way
    return nullptr;
  }
}

}  // namespace pagivo::automation
