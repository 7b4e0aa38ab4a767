#include <QRadioButton>

#include "window/qt/control_peers.h"
#include "window/qt/text.h"
#include "window/qt/widget_peer.h"

namespace pagivo::qt {

namespace {

class OptionButtonPeer final : public WidgetPeer {
 public:
  OptionButtonPeer(FormWindow& window, OptionButton& option)
      : OptionButtonPeer(window, option, new QRadioButton(window.ParentFor(option))) {}

 private:
  OptionButtonPeer(FormWindow& window, OptionButton& option, QRadioButton* button)
      : WidgetPeer(window, option, button), option_(option), button_(button) {
    // Which options go out when one is set is the options' own rule.
    button->setAutoExclusive(false);
    connect(button, &QRadioButton::clicked, this, [this] { Report([this] { option_.Click(); }); });
  }

  void Show() override {
    button_->setText(ToQt(option_.Caption()));
    button_->setChecked(option_.Value());
  }

  OptionButton& option_;
  QRadioButton* button_;
};

}  // namespace

std::unique_ptr<ControlPeer> MakeOptionButtonPeer(FormWindow& window, OptionButton& option) {
  return std::make_unique<OptionButtonPeer>(window, option);
}

}  // namespace pagivo::qt
