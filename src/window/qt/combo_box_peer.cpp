#include <QComboBox>
#include <QLineEdit>
#include <QStringList>

#include "window/qt/control_peers.h"
#include "window/qt/text.h"
#include "window/qt/widget_peer.h"

namespace pagivo::qt {

namespace {

class ComboBoxPeer final : public WidgetPeer {
 public:
  ComboBoxPeer(FormWindow& window, ComboBox& box)
      : ComboBoxPeer(window, box, new QComboBox(window.ParentFor(box))) {}

 private:
  ComboBoxPeer(FormWindow& window, ComboBox& box, QComboBox* list);

  void Show() override;
  void ShowItems();
  void LetType();

  ComboBox& box_;
  QComboBox* list_;
};

ComboBoxPeer::ComboBoxPeer(FormWindow& window, ComboBox& box, QComboBox* list)
    : WidgetPeer(window, box, list), box_(box), list_(list) {
  if (box.Design().editable) LetType();
  connect(list, &QComboBox::activated, this,
          [this](int index) { Report([&] { box_.PutListIndex(index); }); });
}

// The text is what was typed, never completed to an item, nor made one.
void ComboBoxPeer::LetType() {
  list_->setEditable(true);
  list_->setInsertPolicy(QComboBox::NoInsert);
  list_->setCompleter(nullptr);
  connect(list_->lineEdit(), &QLineEdit::textEdited, this,
          [this](const QString& text) { Report([&] { box_.PutText(FromQt(text)); }); });
}

void ComboBoxPeer::Show() {
  ShowItems();
  if (list_->currentIndex() != box_.ListIndex()) list_->setCurrentIndex(box_.ListIndex());
  const QString text = ToQt(box_.Text());
  if (box_.Design().editable && list_->currentText() != text) list_->setEditText(text);
}

void ComboBoxPeer::ShowItems() {
  while (list_->count() > box_.Count()) list_->removeItem(list_->count() - 1);
  for (int i = 0; i < box_.Count(); ++i) {
    const QString item = ToQt(box_.Item(i));
    if (i >= list_->count()) {
      list_->addItem(item);
    } else if (list_->itemText(i) != item) {
      list_->setItemText(i, item);
    }
  }
}

}  // namespace

std::unique_ptr<ControlPeer> MakeComboBoxPeer(FormWindow& window, ComboBox& box) {
  return std::make_unique<ComboBoxPeer>(window, box);
}

}  // namespace pagivo::qt
