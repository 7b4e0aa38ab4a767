// Controls that show a caption or nothing: frame, label, picture box, button and option button.
#include <QGroupBox>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>

#include "window/qt/control_peers.h"
#include "window/qt/qt_conversions.h"
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

// A text that does not fit into its one line is elided.
class ElidingLabel final : public QLabel {
 public:
  using QLabel::QLabel;

  bool Fits() const {
    return wordWrap() || fontMetrics().size(Flags(), text()).width() <= contentsRect().width();
  }

 protected:
  void paintEvent(QPaintEvent* event) override {
    if (Fits()) return QLabel::paintEvent(event);
    QPainter painter(this);
    const QRect place = contentsRect();
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, place.width(), Flags());
    style()->drawItemText(&painter, place, static_cast<int>(alignment()) | Flags(), palette(),
                          isEnabled(), shown, foregroundRole());
  }

 private:
  // The & of an access key is drawn only in the label of a widget.
  int Flags() const { return buddy() == nullptr ? 0 : Qt::TextShowMnemonic; }
};

class LabelPeer final : public WidgetPeer {
 public:
  LabelPeer(FormWindow& window, Control& label)
      : LabelPeer(window, label, new ElidingLabel(window.ParentFor(label))) {
    text_->setTextFormat(Qt::PlainText);
    text_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  }

 private:
  LabelPeer(FormWindow& window, Control& label, ElidingLabel* text)
      : WidgetPeer(window, label, text), label_(label), text_(text) {}

  // A label with room for several lines takes as many as its text needs.
  void Show() override {
    text_->setWordWrap(text_->height() >= 2 * text_->fontMetrics().lineSpacing());
    text_->setText(ToQt(label_.Caption()));
    text_->setToolTip(text_->Fits() ? QString() : text_->text());
  }

  Control& label_;
  ElidingLabel* text_;
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
      : ButtonPeer(window, button, new FocusMarkingButton<QPushButton>(window.ParentFor(button))) {
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

std::unique_ptr<ControlPeer> MakeOptionButtonPeer(FormWindow& window, OptionButton& option) {
  return std::make_unique<OptionButtonPeer>(window, option);
}

}  // namespace pagivo::qt
