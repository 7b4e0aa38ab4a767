#include "engine/native/pdf/page_tree.h"

#include <cassert>

#include "engine/native/pdf/number_format.h"

namespace pagivo::native {
namespace {

constexpr std::size_t kKids = 32;

}  // namespace

// A full node is closed only when the next kid arrives, so that the last one can become the root.
PageTree::Node& PageTree::OpenNode(std::size_t level) {
  if (level == levels_.size()) levels_.push_back({file_.Reserve(), 0, {}});
  if (levels_[level].kids.size() == kKids) {
    Close(level);
    levels_[level] = {file_.Reserve(), 0, {}};
  }
  return levels_[level];
}

void PageTree::Close(std::size_t level) {
  Node& parent = OpenNode(level + 1);
  const Node& node = levels_[level];
  parent.kids.push_back(node.number);
  parent.pages += node.pages;
  Write(node, parent.number, {});
}

ObjectNumber PageTree::Add(ObjectNumber page) {
  Node& leaf = OpenNode(0);
  leaf.kids.push_back(page);
  ++leaf.pages;
  return leaf.number;
}

ObjectNumber PageTree::Finish(std::string_view inherited) {
  assert(!levels_.empty());
  for (std::size_t level = 0; level + 1 < levels_.size(); ++level) Close(level);
  Write(levels_.back(), 0, inherited);
  return levels_.back().number;
}

void PageTree::Write(const Node& node, ObjectNumber parent, std::string_view inherited) {
  std::string value = "<</Type/Pages";
  if (parent != 0) {
    value += "/Parent ";
    AppendReference(value, parent);
  }
  value += "/Count ";
  AppendInteger(value, node.pages);
  value += "/Kids[";
  for (const ObjectNumber kid : node.kids) {
    AppendReference(value, kid);
    value.push_back(' ');
  }
  value.back() = ']';
  value.append(inherited).append(">>");
  file_.WriteObject(node.number, value);
}

}  // namespace pagivo::native
