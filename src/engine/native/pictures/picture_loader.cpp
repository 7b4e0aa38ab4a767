#include "engine/native/pictures/picture_loader.h"

#include <map>
#include <optional>
#include <utility>

#include "engine/native/pictures/jpeg_decoder.h"
#include "engine/native/pictures/picture_bytes.h"
#include "engine/native/pictures/picture_image.h"
#include "engine/native/pictures/png_codec.h"
#include "engine/native/pictures/png_structure.h"
#include "engine/native/pictures/raster_structure.h"
#include "engine/native/pictures/system_decoders.h"
#include "pagivo/error.h"
#include "system/host_files.h"
#include "values/hashes.h"
#include "values/process_wide.h"

namespace pagivo::native {
namespace {

using PictureRef = std::shared_ptr<PictureImage>;

PictureRef PictureOf(PictureImage::Pixels pixels) {
  DropUnusedAlpha(pixels);
  return std::make_shared<PictureImage>(std::move(pixels));
}

PictureRef LoadRaster(PictureFormat format, PictureBytes bytes) {
  return PictureOf(DecodeRasterFile(format, bytes));
}

PictureRef LoadBmp(PictureBytes bytes) {
  RequireWholeBmp(bytes);
  return LoadRaster(PictureFormat::Bmp, bytes);
}

PictureRef LoadPng(std::vector<std::uint8_t> file) {
  std::optional<StoredPicture> stored = TakePackedPng(file);
  if (!stored) return PictureOf(DecodePng(file));
  const std::int32_t reduction = ReductionFor(stored->width, stored->height, kMaximumKeptPixels);
  const std::int32_t width = DividedSide(stored->width, reduction);
  const std::int32_t height = DividedSide(stored->height, reduction);
  return std::make_shared<PictureImage>(std::move(*stored), width, height);
}

PictureRef LoadJpeg(std::vector<std::uint8_t> file) {
  const JpegStructure structure = ReadJpegStructure(file);
  if (!structure.suitsPdf) return PictureOf(DecodeJpeg(file));
  StoredPicture stored;
  stored.coding = StoredPicture::Coding::Jpeg;
  stored.width = structure.width;
  stored.height = structure.height;
  stored.samplesPerPixel = structure.components;
  stored.dataSize = file.size();
  stored.file = std::move(file);
  return std::make_shared<PictureImage>(std::move(stored), structure.decodedWidth,
                                        structure.decodedHeight);
}

PictureRef LoadIcon(PictureBytes bytes) {
  std::vector<std::uint8_t> icon = LargestIcon(bytes);
  return FormatOf(icon) == PictureFormat::Png ? LoadPng(std::move(icon))
                                              : LoadRaster(PictureFormat::Ico, icon);
}

PictureRef PictureOfFile(std::vector<std::uint8_t> file);

PictureImage::Pixels DecodeInSvg(PictureBytes bytes) {
  return *PictureOfFile({bytes.begin(), bytes.end()})->GetPixels();
}

PictureRef PictureOfFile(std::vector<std::uint8_t> file) {
  if (file.empty()) throw DecodeFailure("het bestand is leeg");
  switch (const PictureFormat format = FormatOf(file)) {
    case PictureFormat::Bmp:
      return LoadBmp(file);
    case PictureFormat::Gif:
      return LoadRaster(format, FirstGifFrame(file));
    case PictureFormat::Ico:
      return LoadIcon(file);
    case PictureFormat::Jpeg:
      return LoadJpeg(std::move(file));
    case PictureFormat::Png:
      return LoadPng(std::move(file));
    case PictureFormat::Tiff:
      RequireBoundedTiff(file);
      return LoadRaster(format, file);
    case PictureFormat::Svg:
      return PictureOf(DecodeSvg(file, DecodeInSvg));
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
  std::uint64_t contents = 0;  // a hash of the file's bytes, where identities may not tell
  bool showsChanges = false;   // another identity would tell of other contents
};

// By the file they were loaded from: hosts load the same picture anew for every page.
class LoadedPictures {
 public:
  PictureRef Load(const std::string& path) {
    const FileIdentity file = IdentityOf(path);
    const auto found = pictures_.find(file);
    PictureRef held = found == pictures_.end() ? nullptr : found->second.picture.lock();
    if (held && found->second.showsChanges) return held;
    const bool showsChanges = ShowsChanges(file);  // before its bytes are read
    std::vector<std::uint8_t> bytes = ReadPictureFile(path);
    const std::uint64_t contents = showsChanges && !held ? 0 : HashOfBytes(bytes);
    const bool isSame = held && found->second.contents == contents;
    PictureRef picture = isSame ? held : PictureOfFile(std::move(bytes));
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
  return Named("De afbeelding", [bytes] { return PictureOfFile({bytes.begin(), bytes.end()}); });
}

}  // namespace pagivo::native
