// BMP, GIF, ICO and TIFF by the Windows Imaging Component. SVG it does not know.
#include <wincodec.h>
#include <wrl/client.h>

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

#include "engine/native/pictures/picture_loader.h"
#include "engine/native/pictures/raster_structure.h"
#include "engine/native/pictures/system_decoders.h"
#include "system/windows/com_result.h"

namespace pagivo::native {
namespace {

using Microsoft::WRL::ComPtr;

[[noreturn]] void RefuseKind() {
  throw DecodeFailure("deze soort afbeelding kan op deze computer niet worden gelezen");
}

// COM on the host's thread: as the host has set it up, else for as long as this object lives. Whose
// thread is set up for another kind of apartment has what is needed, too.
class ComOnThread {
 public:
  ComOnThread() : result_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
  ~ComOnThread() {
    if (SUCCEEDED(result_)) CoUninitialize();
  }
  ComOnThread(const ComOnThread&) = delete;
  ComOnThread& operator=(const ComOnThread&) = delete;

 private:
  HRESULT result_;
};

const GUID& ContainerOf(PictureFormat format) {
  switch (format) {
    case PictureFormat::Bmp:
      return GUID_ContainerFormatBmp;
    case PictureFormat::Gif:
      return GUID_ContainerFormatGif;
    case PictureFormat::Ico:
      return GUID_ContainerFormatIco;
    case PictureFormat::Tiff:
      return GUID_ContainerFormatTiff;
    case PictureFormat::Unknown:
    case PictureFormat::Jpeg:
    case PictureFormat::Png:
    case PictureFormat::Svg:
      break;
  }
  RefuseKind();
}

ComPtr<IWICImagingFactory> MakeFactory() {
  ComPtr<IWICImagingFactory> factory;
  if (!Succeeded(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                  IID_PPV_ARGS(&factory)))) {
    RefuseKind();
  }
  return factory;
}

// The first frame. Nothing of its pixels is decoded yet; `bytes` are read until it goes.
ComPtr<IWICBitmapFrameDecode> FirstFrame(IWICImagingFactory& factory, PictureFormat format,
                                         PictureBytes bytes) {
  ComPtr<IWICBitmapDecoder> decoder;
  if (!Succeeded(factory.CreateDecoder(ContainerOf(format), &GUID_VendorMicrosoft, &decoder))) {
    RefuseKind();
  }
  ComPtr<IWICStream> stream;
  ComPtr<IWICBitmapFrameDecode> frame;
  // The stream takes bytes to write, too, and a decoder writes none.
  if (!Succeeded(factory.CreateStream(&stream)) ||
      !Succeeded(stream->InitializeFromMemory(const_cast<std::uint8_t*>(bytes.data()),
                                              static_cast<DWORD>(bytes.size()))) ||
      !Succeeded(decoder->Initialize(stream.Get(), WICDecodeMetadataCacheOnDemand)) ||
      !Succeeded(decoder->GetFrame(0, &frame))) {
    RefuseDamaged();
  }
  return frame;
}

// With straight alpha, blue first.
ComPtr<IWICFormatConverter> Converted(IWICImagingFactory& factory, IWICBitmapFrameDecode& frame) {
  ComPtr<IWICFormatConverter> converter;
  if (!Succeeded(factory.CreateFormatConverter(&converter)) ||
      !Succeeded(converter->Initialize(&frame, GUID_WICPixelFormat32bppBGRA,
                                       WICBitmapDitherTypeNone, nullptr, 0,
                                       WICBitmapPaletteTypeCustom))) {
    RefuseKind();
  }
  return converter;
}

std::size_t Size(UINT side) {
  return side;
}

// The pixels of a converted frame, taken from above in bands, so that they do not stand in memory
// all at once.
class FrameRows {
 public:
  FrameRows(IWICFormatConverter& pixels, UINT width, UINT height)
      : pixels_(pixels), width_(width), height_(height), bandRows_(BandRows(width)) {}

  // Red first. The rows are asked for one after the other.
  PictureBytes Row(UINT y) {
    if (y % bandRows_ == 0) Fetch(y);
    return PictureBytes(band_).subspan((y % bandRows_) * RowSize(), RowSize());
  }

 private:
  static UINT BandRows(UINT width) {
    constexpr UINT kBandBytes = 1 << 20;
    return std::max<UINT>(kBandBytes / (4 * width), 1);
  }

  std::size_t RowSize() const { return 4 * Size(width_); }

  void Fetch(UINT y) {
    const UINT rows = std::min(bandRows_, height_ - y);
    band_.resize(RowSize() * rows);
    const WICRect part{0, static_cast<INT>(y), static_cast<INT>(width_), static_cast<INT>(rows)};
    if (!Succeeded(
            pixels_.CopyPixels(&part, 4 * width_, static_cast<UINT>(band_.size()), band_.data()))) {
      RefuseDamaged();
    }
    for (std::size_t at = 0; at < band_.size(); at += 4) std::swap(band_[at], band_[at + 2]);
  }

  IWICFormatConverter& pixels_;
  UINT width_;
  UINT height_;
  UINT bandRows_;
  std::vector<std::uint8_t> band_;
};

// What shows of a frame of that size: all of it, or its part of the screen that a GIF stands on.
GifPlace PlaceOf(PictureFormat format, PictureBytes bytes, UINT width, UINT height) {
  if (format == PictureFormat::Gif) return PlaceOfFirstGifFrame(bytes);
  return {static_cast<std::int32_t>(width), static_cast<std::int32_t>(height), 0, 0};
}

// What the frame does not cover is transparent.
PictureImage::Pixels Placed(FrameRows& frame, std::int32_t frameHeight, const GifPlace& place) {
  RowReducer reducer(place.screenWidth, place.screenHeight, true,
                     ReductionFor(place.screenWidth, place.screenHeight, kMaximumKeptPixels));
  std::vector<std::uint8_t> row;
  const std::size_t left = 4 * static_cast<std::size_t>(place.left);
  for (std::int32_t y = 0; y < place.screenHeight; ++y) {
    row.assign(4 * static_cast<std::size_t>(place.screenWidth), 0);
    const std::int32_t inFrame = y - place.top;
    if (inFrame >= 0 && inFrame < frameHeight && left < row.size()) {
      const PictureBytes pixels = frame.Row(static_cast<UINT>(inFrame));
      std::memcpy(&row[left], pixels.data(), std::min(pixels.size(), row.size() - left));
    }
    reducer.Take(row.data());
  }
  return reducer.TakePixels();
}

}  // namespace

PictureImage::Pixels DecodeRasterFile(PictureFormat format, PictureBytes bytes) {
  if (format == PictureFormat::Ico) RequireBoundedIcon(bytes);
  const ComOnThread com;
  const ComPtr<IWICImagingFactory> factory = MakeFactory();
  const ComPtr<IWICBitmapFrameDecode> frame = FirstFrame(*factory.Get(), format, bytes);
  UINT width = 0;
  UINT height = 0;
  if (!Succeeded(frame->GetSize(&width, &height))) RefuseDamaged();
  RequireDecodableSize(width, height);
  const GifPlace place = PlaceOf(format, bytes, width, height);
  RequireDecodableSize(place.screenWidth, place.screenHeight);
  if (IsTooLargeToDecode(format, width, height) ||
      IsTooLargeToDecode(format, place.screenWidth, place.screenHeight)) {
    RefuseTooLarge();
  }
  const ComPtr<IWICFormatConverter> pixels = Converted(*factory.Get(), *frame.Get());
  FrameRows rows(*pixels.Get(), width, height);
  return Placed(rows, static_cast<std::int32_t>(height), place);
}

PictureImage::Pixels DecodeSvg(PictureBytes /*bytes*/, const DecodeEmbedded& /*decode*/) {
  RefuseKind();
}

}  // namespace pagivo::native
