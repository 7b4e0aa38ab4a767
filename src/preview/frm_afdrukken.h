// The preview window, which carries the print engine, the PDF exporter and the watermark pictures.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "engine/print_engine.h"
#include "platform/platform.h"
#include "state/module_state.h"
#include "window/control.h"
#include "window/form.h"
#include "window/surface.h"
#include "window/text_box.h"
#include "window/toolbar.h"

namespace pagivo {

// Answers the document's last real page: the engine's last page is empty. Raises Error on overflow.
std::int16_t LastPageOf(PrintEngine& engine);

// The engine's document lives as long as the window is loaded: closing the window by its close box
// only hides it. Reaching any of its controls loads the window. The engine's last page is empty and
// is never shown, counted or printed.
class frmAfdrukken : public Form, private PrintEngineEvents {
 public:
  // Takes engine, exporter and pictures from `platform`, and what its dialogs work on from `state`,
  // which outlives the form.
  frmAfdrukken(Platform platform, ModuleState& state);
  ~frmAfdrukken() override;

  const std::shared_ptr<PrintEngine>& vsPrint();
  PdfExporter& Exporter();
  // Where the engine draws.
  Surface& PreviewSurface();
  Toolbar& tbAfdrukken();
  // Shows the page and the page total and takes no text; a click asks for another page.
  TextBox& txtPaginanummer();
  // Watermark picture 0, 1 or 2; raises Error outside.
  PictureBox& imageWatermerk(std::int16_t index);
  // The engine's zoom at the last resize, held between 30 and 250.
  std::int16_t ZoomPercent() const noexcept { return zoomPercent_; }

  // Refreshes the page box. In the two-page view a last page without a partner returns to the
  // whole-page view.
  void ZetPaginaNummer();
  // Turns to the first page (0), the previous (1), the next (2) or the last one (3); any other
  // value turns no page. Raises Error when a page number goes beyond 16 bits.
  void BladerNaar(std::int16_t richting);
  // Asks for a page and shows it. The dialog begins with what the user has typed of it already.
  void GaNaarPagina(std::string_view typed = {});
  // Asks for range and copies and prints, a job for each copy. Errors are ignored.
  void DrukAf();

 private:
  struct Parts;

  void CreateControls() override;
  void DestroyControls() override;
  void OnResize() override;
  void OnPaint() override;
  void OnKeyDown(std::int16_t& keyCode, std::int16_t shift) override;
  // A digit begins the number of the page to go to.
  bool OnUnusedKey(std::int16_t keyCode, std::int16_t shift) override;
  void OnQueryUnload(bool& cancel, UnloadMode mode) override;

  void tbAfdrukken_ButtonClick(std::string_view key);
  void tbAfdrukken_ButtonMenuClick(std::string_view key);

  void KeyDown(std::int16_t& keyCode, std::int16_t shift) override;
  void BeforePageChange(std::int16_t& page) override;
  void AfterPageChange() override;

  Parts& Reach();
  void PlaceParts();
  void ShowTurnedPage();
  void HideWithFocusOnEngine();
  void ToggleZoom();

  Platform platform_;
  ModuleState& state_;
  std::shared_ptr<PrintEngine> vsPrint_;
  std::unique_ptr<Parts> parts_;  // all that goes with the controls but the engine
  std::int16_t zoomPercent_ = 0;
};

}  // namespace pagivo
