// The preview window: carries the print engine, the PDF exporter and the watermark pictures.
#pragma once

#include <cstdint>
#include <memory>

#include "engine/pdf_exporter.h"
#include "engine/print_engine.h"
#include "platform/platform.h"
#include "window/form.h"
#include "window/picture_box.h"
#include "window/toolbar.h"

namespace pagivo {

// The engine's document lives as long as the window is loaded: closing the window by its close box
// only hides it. Reaching any of its controls loads the window.
class frmAfdrukken : public Form, private PrintEngineEvents {
 public:
  // Takes engine, exporter and pictures from `platform`.
  explicit frmAfdrukken(Platform platform);
  ~frmAfdrukken() override;

  const std::shared_ptr<PrintEngine>& vsPrint() {
    Load();
    return vsPrint_;
  }
  PdfExporter& Exporter();
  Toolbar& tbAfdrukken();
  // Watermark picture 0, 1 or 2; raises Error outside.
  PictureBox& imageWatermerk(std::int16_t index);

 private:
  struct Controls;

  void CreateControls(WindowSystem& windows, FormPeer& peer) override;
  void DestroyControls() override;
  void OnQueryUnload(bool& cancel, UnloadMode mode) override;

  void KeyDown(std::int16_t& keyCode, std::int16_t shift) override;
  void BeforePageChange(std::int16_t& page) override;
  void AfterPageChange() override;

  Controls& Reach();

  Platform platform_;
  std::shared_ptr<PrintEngine> vsPrint_;
  std::unique_ptr<Controls> controls_;  // the others
};

}  // namespace pagivo
