// Controls that show a caption or nothing: frame, label, picture box and button.
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "window/qt/control_peers.h"
#include "window/qt/text.h"
#include "window/qt/widget_peer.h"

namespace pagivo::qt {

namespace {

class FramePeer final : public WidgetPeer {
 public:
  FramePeer(FormWindow& window, Control& frame)
      : FramePeer(window, frame, new QGroupBox(window.ParentFor(frame))) {}

 private:
  FramePeer(FormWindow& window, Control& frame, QGroupBox* box)
      : WidgetPeer(window, frame, box), frame_(frame), box_(box) {}

  void Show() override { box_->setTitle(ToQt(frame_.Caption())); }

  Control& frame_;
  QGroupBox* box_;
};

class LabelPeer final : public WidgetPeer {
 public:
  LabelPeer(FormWindow& window, Control& label)
      : LabelPeer(window, label, new QLabel(window.ParentFor(label))) {
    text_->setTextFormat(Qt::PlainText);
    text_->setWordWrap(true);
    text_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  }

 private:
  LabelPeer(FormWindow& window, Control& label, QLabel* text)
      : WidgetPeer(window, label, text), label_(label), text_(text) {}

  void Show() override { text_->setText(ToQt(label_.Caption())); }

  Control& label_;
  QLabel* text_;
};

class PictureBoxPeer final : public WidgetPeer {
 public:
  PictureBoxPeer(FormWindow& window, Control& box)
      : WidgetPeer(window, box, new QWidget(window.ParentFor(box))) {}

 private:
  void Show() override {}
};

class ButtonPeer final : public WidgetPeer {
 public:
  ButtonPeer(FormWindow& window, Control& button)
      : ButtonPeer(window, button, new QPushButton(window.ParentFor(button))) {
    widget_->setAutoDefault(false);
    widget_->setDefault(button.Design().role == ButtonRole::Default);
    connect(widget_, &QPushButton::clicked, this, [this] { Report([this] { button_.Click(); }); });
  }

 private:
  ButtonPeer(FormWindow& window, Control& button, QPushButton* widget)
      : WidgetPeer(window, button, widget), button_(button), widget_(widget) {}

  void Show() override { widget_->setText(ToQt(button_.Caption())); }

  Control& button_;
  QPushButton* widget_;
};

}  // namespace

std::unique_ptr<ControlPeer> MakeFramePeer(FormWindow& window, Control& frame) {
  return std::make_unique<FramePeer>(window, frame);
}

std::unique_ptr<ControlPeer> MakeLabelPeer(FormWindow& window, Control& label) {
  return std::make_unique<LabelPeer>(window, label);
}

std::unique_ptr<ControlPeer> MakePictureBoxPeer(FormWindow& window, Control& box) {
  return std::make_unique<PictureBoxPeer>(window, box);
}

std::unique_ptr<ControlPeer> MakeButtonPeer(FormWindow& window, Control& button) {
  return std::make_unique<ButtonPeer>(window, button);
}

}  // namespace pagivo::qt
