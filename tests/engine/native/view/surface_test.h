// What the tests of the engine's surface share: a document on a surface, and a window that notes
// its events and never shows the document's last page.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/native/engine_test.h"
#include "engine/native/view/drawn_surface.h"
#include "engine/native/view/preview_surface.h"

namespace pagivo::native {

class SurfaceWindow final : public PrintEngineEvents {
 public:
  explicit SurfaceWindow(NativeEngine& engine) : engine_(engine) {}

  std::int16_t consumes = 0;  // the key that is not left to the engine
  std::vector<std::string> events;
  std::vector<std::int16_t> asked;  // by BeforePageChange

  void KeyDown(std::int16_t& keyCode, std::int16_t shift) override {
    events.push_back("key " + std::to_string(keyCode) + " " + std::to_string(shift));
    if (keyCode == consumes) keyCode = 0;
  }
  void BeforePageChange(std::int16_t& page) override {
    asked.push_back(page);
    if (page == engine_.GetPageCount()) --page;
  }
  void AfterPageChange() override { events.emplace_back("after"); }

 private:
  NativeEngine& engine_;
};

class SurfaceTest : public EngineTest {
 protected:
  static constexpr SurfaceColors kColors{
      .ground = 0xFF808080, .edge = 0xFF202020, .highlight = 0xFF0000FF};
  static constexpr std::uint32_t kWhite = 0xFFFFFFFF;

  SurfaceTest() {
    engine->SetEvents(&window);
    surface->WhenChanged([this] { ++changes; });
  }
  ~SurfaceTest() override { engine->SetEvents(nullptr); }

  // A document of so many pages with something on them, of 800 x 1200 pixels at 100 percent, and an
  // empty one after them.
  void Compose(int pages) {
    engine->PutPageWidth(12000);
    engine->PutPageHeight(18000);
    engine->StartDoc();
    for (int page = 1; page <= pages; ++page) {
      engine->PutText("Pagina " + std::to_string(page));
      engine->NewPage();
    }
    engine->EndDoc();
    changes = 0;
  }
  void PutArea(std::int32_t width, std::int32_t height, double scale = 1) {
    surface->PutArea({width, height, scale});
  }
  DrawnSurface Draw() {
    const SurfaceArea& area = engine->GetPreview()->Area();
    DrawnSurface drawn(area.width, area.height);
    surface->Draw(drawn.Bitmap(), kColors);
    return drawn;
  }
  // How many bitmaps a drawing needs that are not kept.
  std::size_t DrawnBitmaps() {
    const std::size_t before = surface->Bitmaps().Drawn();
    Draw();
    return surface->Bitmaps().Drawn() - before;
  }
  void ShowPage(int page) { engine->PutPreviewPage(static_cast<std::int16_t>(page)); }
  int ShownPage() { return engine->GetPreviewPage(); }
  int Top() { return surface->VerticalRange().value; }
  int Bottom() { return surface->VerticalRange().maximum; }
  int Left() { return surface->HorizontalRange().value; }

  SurfaceWindow window{*engine};
  std::shared_ptr<PreviewSurface> surface = std::make_shared<PreviewSurface>(engine->GetPreview());
  int changes = 0;  // that the surface told of
};

}  // namespace pagivo::native
