#include "engine/native/pictures/svg_document.h"

#include <algorithm>

namespace pagivo::native {
namespace {

std::string_view ValueIn(const SvgProperties& list, std::string_view key) {
  const auto found = std::ranges::find(list, key, &SvgProperties::value_type::first);
  return found == list.end() ? std::string_view() : std::string_view(found->second);
}

void AppendEscaped(std::string& out, std::string_view text) {
  for (const char character : text) {
    switch (character) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      case '\n':
        out += "&#10;";
        break;
      case '\r':
        out += "&#13;";
        break;
      case '\t':
        out += "&#9;";
        break;
      default:
        out.push_back(character);
    }
  }
}

void AppendAttribute(std::string& out, std::string_view key, std::string_view value) {
  out.append(" ").append(key).append("=\"");
  AppendEscaped(out, value);
  out.push_back('"');
}

void AppendNode(std::string& out, const SvgNode& node, std::string_view namespaces = {}) {
  if (node.name.empty()) return AppendEscaped(out, node.text);
  out.append("<").append(node.name).append(namespaces);
  for (const auto& [key, value] : node.attributes) AppendAttribute(out, key, value);
  std::string style;
  for (const auto& [key, value] : node.style) {
    style.append(key).append(":").append(value).append(";");
  }
  if (!style.empty()) AppendAttribute(out, "style", style);
  out.push_back('>');
  for (const SvgNode& child : node.children) AppendNode(out, child);
  out.append("</").append(node.name).append(">");
}

void CollectIds(const SvgNode& node, SvgIds& ids) {
  if (const std::string_view id = node.Attribute("id"); !id.empty()) ids.emplace(id, &node);
  for (const SvgNode& child : node.children) CollectIds(child, ids);
}

bool IsPlainId(std::string_view id) {
  return std::ranges::all_of(id, [](char c) {
    return std::string_view("%\\\"'()#<>& \t\r\n").find(c) == std::string_view::npos;
  });
}

}  // namespace

std::string_view SvgNode::Attribute(std::string_view key) const {
  return ValueIn(attributes, key);
}

std::string_view SvgNode::Property(std::string_view key) const {
  const std::string_view declared = ValueIn(style, key);
  return declared.empty() ? Attribute(key) : declared;
}

void SvgNode::Put(SvgProperties& list, std::string_view key, std::string_view value) {
  const auto found = std::ranges::find(list, key, &SvgProperties::value_type::first);
  if (found == list.end()) {
    list.emplace_back(key, value);
  } else {
    found->second = value;
  }
}

std::string WriteSvg(const SvgNode& root) {
  std::string out;
  AppendNode(out, root,
             " xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\"");
  return out;
}

SvgIds IdsOf(const SvgNode& root) {
  SvgIds ids;
  CollectIds(root, ids);
  return ids;
}

std::string_view ReferenceIn(std::string_view value) {
  const auto trim = [&value](std::string_view characters) {
    const std::size_t first = value.find_first_not_of(characters);
    value = first == value.npos ? std::string_view() : value.substr(first);
    value = value.substr(0, value.find_last_not_of(characters) + 1);
  };
  trim(" \t\r\n");
  if (value.starts_with("url(")) {
    value = value.substr(4, value.find(')') - 4);  // a second paint may follow
    trim(" \t\r\n\"'");
  }
  if (!value.starts_with("#")) return {};
  return IsPlainId(value.substr(1)) ? value.substr(1) : std::string_view();
}

}  // namespace pagivo::native
