// The tree that leads readers to any page in a few steps.
#pragma once

#include <vector>

#include "engine/native/pdf/pdf_file.h"

namespace pagivo::native {

// Grows from its leaves: a node is written as soon as it is full, so memory holds one node a level.
class PageTree {
 public:
  explicit PageTree(PdfFile& file) : file_(file) {}

  // Adds the next page and gives the node that the page must name as its parent.
  ObjectNumber Add(ObjectNumber page);

  // Writes the nodes that are left. `inherited` are the entries that pages without their own take
  // from the root. Gives the root. There must be a page.
  ObjectNumber Finish(std::string_view inherited);

 private:
  struct Node {
    ObjectNumber number = 0;
    std::int64_t pages = 0;
    std::vector<ObjectNumber> kids;
  };

  Node& OpenNode(std::size_t level);
  void Close(std::size_t level);
  void Write(const Node& node, ObjectNumber parent, std::string_view inherited);

  PdfFile& file_;
  std::vector<Node> levels_;  // the open node of each level, leaves first
};

}  // namespace pagivo::native
