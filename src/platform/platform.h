// What the component stands on in this process: engine, windows and pictures, in one struct.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

#include "engine/print_engine.h"
#include "pagivo/export.h"
#include "pagivo/object.h"

namespace pagivo {

class SurfaceContent;
class WindowSystem;

struct Platform {
  // Shows the windows, and lives as long as it is in use.
  std::shared_ptr<WindowSystem> windows;
  // Make a new, empty engine and an exporter for a new preview window. The engine's own dialogs are
  // shown by the windows in use at that time.
  std::function<std::shared_ptr<PrintEngine>(const Platform& platform)> makeEngine;
  std::function<std::shared_ptr<PdfExporter>()> makePdfExporter;
  // Makes what draws such an engine's preview on a surface; null for an engine that draws none.
  std::function<std::shared_ptr<SurfaceContent>(const std::shared_ptr<PrintEngine>& engine)>
      makeSurfaceContent = nullptr;
  // Makes a picture object of a file; an empty path gives an empty picture. Raises Error.
  std::function<ObjectRef(const std::string& path)> loadPicture;
  // Makes one of a picture file's bytes in memory.
  std::function<ObjectRef(std::span<const std::uint8_t> bytes)> decodePicture;
  // Names the system's default printer; empty when there is none.
  std::function<std::string()> defaultPrinter;
  // Raises Error when there is no font to write with; null for an engine that needs none.
  std::function<void()> requireFonts = nullptr;
};

// The platform in use: the native one unless UsePlatform has replaced it.
PAGIVO_EXPORT const Platform& CurrentPlatform();

// Replaces the platform in use. Takes effect for what is created afterwards; an existing preview
// window keeps its engine, and has the new windows from its next showing on.
PAGIVO_EXPORT void UsePlatform(Platform platform);

// This system's platform: our own engine, its exporter and picture loader, its print server,
// and no display.
Platform NativePlatform();

}  // namespace pagivo
