#include <QComboBox>
#include <QFontMetrics>
#include <QLineEdit>
#include <QStringList>

#include "window/qt/control_peers.h"
#include "window/qt/qt_conversions.h"
#include "window/qt/widget_peer.h"

namespace pagivo::qt {

namespace {

constexpr int kBesideText = 28;  // pixels of a box: its edges and its arrow

class ComboBoxPeer final : public WidgetPeer {
 public:
  ComboBoxPeer(FormWindow& window, ComboBox& box)
      : ComboBoxPeer(window, box, new QComboBox(window.ParentFor(box))) {}

 private:
  ComboBoxPeer(FormWindow& window, ComboBox& box, QComboBox* list);

  void Show() override;
  void ShowItems();
  void ShowText();
  void ShowToolTips();
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
  ShowText();
  ShowToolTips();
}

// An edited item is none any more, for which Qt takes the text away; the one who edits it goes on
// where they are.
void ComboBoxPeer::ShowText() {
  const QString text = ToQt(box_.Text());
  QLineEdit* edit = list_->lineEdit();
  const bool isEdited = edit != nullptr && edit->text() == text;
  const int insertionPoint = isEdited ? edit->cursorPosition() : 0;
  if (list_->currentIndex() != box_.ListIndex()) list_->setCurrentIndex(box_.ListIndex());
  if (edit == nullptr || edit->text() == text) return;
  list_->setEditText(text);
  if (isEdited) edit->setCursorPosition(insertionPoint);
}

// What is too long for the box is elided, and whole in the tool tip.
void ComboBoxPeer::ShowToolTips() {
  const QFontMetrics metrics(list_->font());
  const auto toolTip = [&](const QString& text) {
    return metrics.horizontalAdvance(text) > list_->width() - kBesideText ? text : QString();
  };
  list_->setToolTip(toolTip(list_->currentText()));
  for (int i = 0; i < list_->count(); ++i) {
    const QString whole = toolTip(list_->itemText(i));
    // Qt shows an item anew whose data is set.
    if (list_->itemData(i, Qt::ToolTipRole).toString() == whole) continue;
    list_->setItemData(i, whole, Qt::ToolTipRole);
  }
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
