#include "support/recording_platform.h"

#include "pagivo/error.h"
#include "platform/platform.h"

namespace pagivo::testing {

void ScriptedPictureLoader::AddPicture(std::string path, ObjectRef picture) {
  pictures_.insert_or_assign(std::move(path), std::move(picture));
}

ObjectRef ScriptedPictureLoader::Load(const std::string& path) {
  log_->Record("load", {path});
  const auto found = pictures_.find(path);
  if (found == pictures_.end()) throw Error(ErrorNumber::FileAccess, "Bestand niet gevonden");
  return found->second;
}

ObjectRef ScriptedPictureLoader::Decode(std::span<const std::uint8_t>) {
  return std::make_shared<NamedObject>("decoded " + std::to_string(++decoded_));
}

RecordingPlatform::RecordingPlatform() {
  UsePlatform({
      .windows = windows_,
      .makeEngine = [this](const Platform&) { return MakeEngine(); },
      .makePdfExporter = [this] { return pdfExporter_; },
      .loadPicture = [this](const std::string& path) { return pictures_.Load(path); },
      .decodePicture =
          [this](std::span<const std::uint8_t> bytes) { return pictures_.Decode(bytes); },
      .defaultPrinter = [this] { return defaultPrinter_; },
  });
}

RecordingPlatform::~RecordingPlatform() {
  UsePlatform({});
}

std::shared_ptr<RecordingEngine> RecordingPlatform::MakeEngine() {
  if (enginesMade_ > 0) engine_ = std::make_shared<RecordingEngine>(log_);
  ++enginesMade_;
  return engine_;
}

}  // namespace pagivo::testing
