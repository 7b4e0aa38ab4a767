#include "engine/native/pictures/picture_loader.h"

#include <functional>
#include <map>
#include <string_view>

#include "engine/native/pictures/decoded_pixels.h"
#include "engine/native/pictures/jpeg_decoder.h"
#include "engine/native/pictures/picture_bytes.h"
#include "engine/native/pictures/pixbuf_decoder.h"
#include "engine/native/pictures/png_codec.h"
#include "engine/native/pictures/svg_decoder.h"
#include "pagivo/error.h"
#include "system/host_files.h"
#include "values/process_wide.h"

namespace pagivo::native {
namespace {

using PictureRef = std::shared_ptr<PictureImage>;

PictureRef PictureOf(PictureImage::Pixels pixels, std::vector<std::uint8_t> jpeg = {}) {
  DropUnusedAlpha(pixels);
  return std::make_shared<PictureImage>(std::move(pixels), std::move(jpeg));
}

PictureRef DecodeRaster(PictureFormat format, PictureBytes bytes) {
  return PictureOf(DecodeRasterFile(format, bytes));
}

PictureRef DecodeBmp(PictureBytes bytes) {
  RequireWholeBmp(bytes);
  return DecodeRaster(PictureFormat::Bmp, bytes);
}

PictureRef DecodeIcon(PictureBytes bytes) {
  const std::vector<std::uint8_t> icon = LargestIcon(bytes);
  return FormatOf(icon) == PictureFormat::Png ? PictureOf(DecodePng(icon))
                                              : DecodeRaster(PictureFormat::Ico, icon);
}

PictureRef LoadJpeg(PictureBytes bytes) {
  const JpegStructure structure = ReadJpegStructure(bytes);
  PictureImage::Pixels pixels = DecodeJpeg(bytes);
  if (!structure.suitsPdf) return PictureOf(std::move(pixels));
  return PictureOf(std::move(pixels), {bytes.begin(), bytes.end()});
}

PictureRef Decode(PictureBytes bytes);

PictureImage::Pixels DecodeInSvg(PictureBytes bytes) {
  return Decode(bytes)->GetPixels();
}

PictureRef Decode(PictureBytes bytes) {
  if (bytes.empty()) throw DecodeFailure("het bestand is leeg");
  switch (const PictureFormat format = FormatOf(bytes)) {
    case PictureFormat::Bmp:
      return DecodeBmp(bytes);
    case PictureFormat::Gif:
      return DecodeRaster(format, FirstGifFrame(bytes));
    case PictureFormat::Ico:
      return DecodeIcon(bytes);
    case PictureFormat::Jpeg:
      return LoadJpeg(bytes);
    case PictureFormat::Png:
      return PictureOf(DecodePng(bytes));
    case PictureFormat::Tiff:
      RequireBoundedTiff(bytes);
      return DecodeRaster(format, bytes);
    case PictureFormat::Svg:
      return PictureOf(DecodeSvg(bytes, DecodeInSvg));
    case PictureFormat::Unknown:
      break;
  }
  throw DecodeFailure("de inhoud is geen bekende soort afbeelding");
}

[[noreturn]] void ThrowInvalidPicture(const std::string& picture, const std::string& reason) {
  throw Error(ErrorNumber::InvalidPicture, picture + " kan niet worden gebruikt: " + reason);
}
std::vector<std::uint8_t> ReadPictureFile(const std::string& path) {
  InputFile file(path);
  if (file.Identity().size > kMaximumPictureFileBytes) RefuseTooLarge();
  return file.Read();
}

// Runs `load`, telling its refusal as an error about `picture`.
template <typename Load>
PictureRef Named(const std::string& picture, Load load) {
  try {
    return load();
  } catch (const DecodeFailure& failure) {
    ThrowInvalidPicture(picture, failure.what());
  }
}

// A picture that somebody holds, and what it was loaded from.
struct LoadedPicture {
  std::weak_ptr<PictureImage> picture;
  std::size_t contents = 0;   // a hash of the file's bytes
  bool showsChanges = false;  // another identity would tell of other contents
};

std::size_t HashOf(PictureBytes bytes) {
  return std::hash<std::string_view>{}({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

// By the file they were loaded from: hosts load the same picture anew for every page.
class LoadedPictures {
 public:
  PictureRef Load(const std::string& path) {
    const FileIdentity file = IdentityOf(path);
    const auto found = pictures_.find(file);
    PictureRef held = found == pictures_.end() ? nullptr : found->second.picture.lock();
    if (held && found->second.showsChanges) return held;
    const bool showsChanges = ShowsChanges(file);  // before its bytes are read
    const std::vector<std::uint8_t> bytes = ReadPictureFile(path);
    const std::size_t contents = HashOf(bytes);
    const bool isSame = held && found->second.contents == contents;
    PictureRef picture = isSame ? held : Decode(bytes);
    Keep(file, {picture, contents, showsChanges});
    return picture;
  }

 private:
  void Keep(const FileIdentity& file, const LoadedPicture& picture) {
    std::erase_if(pictures_, [](const auto& entry) { return entry.second.picture.expired(); });
    pictures_[file] = picture;
  }

  std::map<FileIdentity, LoadedPicture> pictures_;
};

}  // namespace

std::shared_ptr<PictureImage> LoadPictureFile(const std::string& path) {
  if (path.empty()) return std::make_shared<PictureImage>();
  return Named("De afbeelding \"" + path + "\"",
               [&path] { return ProcessWide<LoadedPictures>().Load(path); });
}

std::shared_ptr<PictureImage> DecodePicture(std::span<const std::uint8_t> bytes) {
  return Named("De afbeelding", [bytes] { return Decode(bytes); });
}

}  // namespace pagivo::native
