// A platform of fakes: recording engine and exporter, scripted pictures, windows for trials.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>

#include "pagivo/object.h"
#include "support/operation_log.h"
#include "support/recording_engine.h"
#include "support/trial_windows.h"

namespace pagivo::testing {

// Knows the pictures that a test adds, and no files. Each loading is logged as `load String "..."`.
class ScriptedPictureLoader {
 public:
  explicit ScriptedPictureLoader(std::shared_ptr<OperationLog> log) : log_(std::move(log)) {}

  void AddPicture(std::string path, ObjectRef picture);

  // Raises ErrorNumber::FileAccess for a path that was not added.
  ObjectRef Load(const std::string& path);
  // NamedObjects "decoded 1", "decoded 2" ... in the order of the calls, whatever the bytes are.
  ObjectRef Decode(std::span<const std::uint8_t> bytes);

 private:
  std::shared_ptr<OperationLog> log_;
  std::map<std::string, ObjectRef> pictures_;
  int decoded_ = 0;
};

// In use as long as it lives; all its parts write to one log.
class RecordingPlatform {
 public:
  RecordingPlatform();
  ~RecordingPlatform();
  RecordingPlatform(const RecordingPlatform&) = delete;
  RecordingPlatform& operator=(const RecordingPlatform&) = delete;

  OperationLog& Log() noexcept { return *log_; }
  // The engine of the present preview window, or of the next one when there is none yet. Every
  // later window gets a new engine.
  RecordingEngine& Engine() noexcept { return *engine_; }
  RecordingPdfExporter& PdfExporter() noexcept { return *pdfExporter_; }
  TrialWindows& Windows() noexcept { return *windows_; }
  ScriptedPictureLoader& Pictures() noexcept { return pictures_; }

  int EnginesMade() const noexcept { return enginesMade_; }
  void PutDefaultPrinter(std::string name) { defaultPrinter_ = std::move(name); }

 private:
  std::shared_ptr<RecordingEngine> MakeEngine();

  std::shared_ptr<OperationLog> log_ = std::make_shared<OperationLog>();
  std::shared_ptr<RecordingEngine> engine_ = std::make_shared<RecordingEngine>(log_);
  std::shared_ptr<RecordingPdfExporter> pdfExporter_ = std::make_shared<RecordingPdfExporter>(log_);
  std::shared_ptr<TrialWindows> windows_ = MakeTrialWindows();
  ScriptedPictureLoader pictures_{log_};
  std::string defaultPrinter_;
  int enginesMade_ = 0;
};

}  // namespace pagivo::testing
