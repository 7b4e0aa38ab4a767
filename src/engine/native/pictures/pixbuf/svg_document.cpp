#include "engine/native/pictures/pixbuf/svg_document.h"

#include <algorithm>
#include <memory>
#include <unordered_set>

#include "engine/native/pictures/pixbuf/picture_libraries.h"

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

constexpr std::string_view kSvgSpace = "http://www.w3.org/2000/svg";
constexpr std::string_view kLinkSpace = "http://www.w3.org/1999/xlink";
constexpr std::string_view kXmlSpace = "http://www.w3.org/XML/1998/namespace";

std::string_view View(const xmlChar* text) {
  return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

// Builds the tree while the parser reports what it reads. It may not throw through the parser: past
// a bound it stops it.
class TreeBuilder {
 public:
  void Begin(xmlParserCtxtPtr parser, std::string_view name, std::string_view space,
             const xmlChar** attributes, int count) {
    if (skipped_ > 0 || space != kSvgSpace) {
      ++skipped_;
      return;
    }
    if (++elements_ > kMaximumSvgElements) return Stop(parser, RefuseTooLarge);
    if (open_.size() >= kMaximumSvgDepth) return Stop(parser, RefuseDamaged);
    SvgNode* node = &root_;
    if (!open_.empty()) node = &open_.back()->children.emplace_back();
    if (open_.empty() && !root_.name.empty()) return Stop(parser, RefuseDamaged);
    node->name = name;
    for (int i = 0; i < count; ++i)
      TakeAttribute(parser, *node, attributes + 5 * std::ptrdiff_t{i});
    open_.push_back(node);
  }

  void End() {
    if (skipped_ > 0) {
      --skipped_;
    } else if (!open_.empty()) {
      open_.pop_back();
    }
  }

  void TakeText(xmlParserCtxtPtr parser, std::string_view text) {
    if (!Count(parser, text.size()) || skipped_ > 0 || open_.empty()) return;
    std::vector<SvgNode>& siblings = open_.back()->children;
    if (siblings.empty() || !siblings.back().name.empty()) siblings.emplace_back();
    siblings.back().text += text;
  }

  void RefuseWhenStopped() const {
    if (refuse_ != nullptr) refuse_();
  }
  SvgNode TakeRoot() { return std::move(root_); }

 private:
  void Stop(xmlParserCtxtPtr parser, void (*refuse)()) {
    if (refuse_ == nullptr) refuse_ = refuse;
    skipped_ = 1;
    xmlStopParser(parser);
  }

  bool Count(xmlParserCtxtPtr parser, std::size_t size) {
    text_ += size;
    if (text_ > kMaximumSvgText) Stop(parser, RefuseTooLarge);
    return text_ <= kMaximumSvgText;
  }

  // The parser gives five pointers each: name, prefix, namespace, begin and end of the value.
  void TakeAttribute(xmlParserCtxtPtr parser, SvgNode& node, const xmlChar** attribute) {
    const std::string_view space = View(attribute[2]);
    std::string key(View(attribute[0]));
    const std::string_view value(reinterpret_cast<const char*>(attribute[3]),
                                 static_cast<std::size_t>(attribute[4] - attribute[3]));
    if (!Count(parser, value.size())) return;
    if (space == kXmlSpace) {
      key.insert(0, "xml:");
    } else if (key == "href" && (space.empty() || space == kLinkSpace)) {
      key = "xlink:href";
    } else if (!space.empty()) {
      return;
    }
    if (key == "id" && !ids_.emplace(value).second) return;
    node.Put(node.attributes, key, value);
  }

  SvgNode root_;
  // The last child of each is the next: their addresses hold while their children are added to.
  std::vector<SvgNode*> open_;
  std::unordered_set<std::string> ids_;
  std::size_t skipped_ = 0;  // open elements of other namespaces
  std::size_t elements_ = 0;
  std::size_t text_ = 0;
  void (*refuse_)() = nullptr;  // why the parser was stopped
};

xmlParserCtxtPtr ParserOf(void* context) {
  return static_cast<xmlParserCtxtPtr>(context);
}

TreeBuilder& BuilderOf(void* context) {
  return *static_cast<TreeBuilder*>(ParserOf(context)->_private);
}

void BeginElement(void* context, const xmlChar* name, const xmlChar*, const xmlChar* space, int,
                  const xmlChar**, int count, int, const xmlChar** attributes) {
  BuilderOf(context).Begin(ParserOf(context), View(name), View(space), attributes, count);
}

void EndElement(void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
  BuilderOf(context).End();
}

void TakeCharacters(void* context, const xmlChar* text, int size) {
  BuilderOf(context).TakeText(ParserOf(context),
                              View(text).substr(0, static_cast<std::size_t>(size)));
}

// Entities of other files stay unknown.
void DeclareEntity(void* context, const xmlChar* name, int type, const xmlChar* publicId,
                   const xmlChar* systemId, xmlChar* content) {
  if (type != XML_INTERNAL_GENERAL_ENTITY) return;
  xmlSAX2EntityDecl(context, name, type, publicId, systemId, content);
}

void IgnoreMessage(void*, const char*, ...) {}

xmlSAXHandler MakeHandler() {
  xmlSAXHandler handler{};
  handler.initialized = XML_SAX2_MAGIC;
  handler.startDocument = xmlSAX2StartDocument;
  handler.endDocument = xmlSAX2EndDocument;
  handler.internalSubset = xmlSAX2InternalSubset;
  handler.entityDecl = DeclareEntity;
  handler.getEntity = xmlSAX2GetEntity;
  handler.startElementNs = BeginElement;
  handler.endElementNs = EndElement;
  handler.characters = TakeCharacters;
  handler.cdataBlock = TakeCharacters;
  handler.ignorableWhitespace = TakeCharacters;
  handler.warning = IgnoreMessage;
  handler.error = IgnoreMessage;
  return handler;
}

struct FreeParser {
  void operator()(xmlParserCtxtPtr parser) const {
    xmlFreeDoc(parser->myDoc);
    xmlFreeParserCtxt(parser);
  }
};

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

SvgNode ParseSvg(PictureBytes bytes) {
  if (bytes.size() > kMaximumSvgBytes) RefuseTooLarge();
  xmlSAXHandler handler = MakeHandler();
  TreeBuilder builder;
  const std::unique_ptr<xmlParserCtxt, FreeParser> parser(
      xmlCreatePushParserCtxt(&handler, nullptr, nullptr, 0, nullptr));
  if (!parser) throw std::bad_alloc();
  parser->_private = &builder;
  xmlCtxtUseOptions(parser.get(),
                    XML_PARSE_NONET | XML_PARSE_NOENT | XML_PARSE_NOERROR | XML_PARSE_NOWARNING);
  xmlParseChunk(parser.get(), reinterpret_cast<const char*>(bytes.data()),
                static_cast<int>(bytes.size()), 1);
  builder.RefuseWhenStopped();
  SvgNode root = builder.TakeRoot();
  if (parser->wellFormed == 0 || root.name != "svg") RefuseDamaged();
  return root;
}

}  // namespace pagivo::native
