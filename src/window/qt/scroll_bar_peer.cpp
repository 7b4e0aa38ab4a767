#include <QScrollBar>

#include "window/qt/control_peers.h"
#include "window/qt/spin_arrows.h"
#include "window/qt/units.h"
#include "window/qt/widget_peer.h"

namespace pagivo::qt {

namespace {

// Pixels: a bar of less has arrows, but nothing to drag between them.
constexpr int kShortestBar = 48;

QAbstractSlider* MakeSlider(FormWindow& window, const ScrollBar& bar) {
  QWidget* parent = window.ParentFor(bar);
  if (ToPixels(bar.Height()) < kShortestBar) return new SpinArrows(parent);
  auto* slider = new QScrollBar(Qt::Vertical, parent);
  slider->setFocusPolicy(Qt::StrongFocus);
  return slider;
}

class ScrollBarPeer final : public WidgetPeer {
 public:
  ScrollBarPeer(FormWindow& window, ScrollBar& bar)
      : ScrollBarPeer(window, bar, MakeSlider(window, bar)) {}

 private:
  ScrollBarPeer(FormWindow& window, ScrollBar& bar, QAbstractSlider* slider)
      : WidgetPeer(window, bar, slider), bar_(bar), slider_(slider) {
    slider->setRange(bar.Minimum(), bar.Maximum());
    connect(slider, &QAbstractSlider::valueChanged, this, [this](int value) {
      Report([&] { bar_.PutValue(static_cast<std::int16_t>(value)); });
    });
  }

  void Show() override {
    slider_->setValue(bar_.Value());
    slider_->update();
  }

  ScrollBar& bar_;
  QAbstractSlider* slider_;
};

}  // namespace

std::unique_ptr<ControlPeer> MakeScrollBarPeer(FormWindow& window, ScrollBar& bar) {
  return std::make_unique<ScrollBarPeer>(window, bar);
}

}  // namespace pagivo::qt
