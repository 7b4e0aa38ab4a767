#include "engine/native/spool/cups/http_answer.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace pagivo::native {
namespace {

constexpr std::size_t kPiece = std::size_t{16} << 10;

char Lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::string Lowered(std::string_view text) {
  std::string lowered(text);
  std::ranges::transform(lowered, lowered.begin(), Lower);
  return lowered;
}

std::string_view WithoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// All of the text, or nothing.
std::optional<std::size_t> NumberIn(std::string_view text, int base) {
  std::size_t number = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  if (failure != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

// "HTTP/1.1 200 OK"
std::optional<int> StatusIn(std::string_view line) {
  constexpr std::string_view kVersion = "HTTP/1.";
  constexpr std::size_t kStatus = kVersion.size() + 2;
  constexpr std::size_t kAfterStatus = kStatus + 3;
  if (!line.starts_with(kVersion) || line.size() < kAfterStatus) return std::nullopt;
  if (line.size() > kAfterStatus && line[kAfterStatus] != ' ') return std::nullopt;
  const auto status = NumberIn(line.substr(kStatus, 3), 10);
  if (!status || *status < 100) return std::nullopt;
  return static_cast<int>(*status);
}

}  // namespace

struct HttpReader::Head {
  int status = 0;
  std::optional<std::size_t> length;
  bool isChunked = false;
  bool closes = false;

  // False when the line is no header field that can be understood.
  bool Take(std::string_view line) {
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) return false;
    const std::string name = Lowered(line.substr(0, colon));
    const std::string value = Lowered(WithoutBlanks(line.substr(colon + 1)));
    if (name == "content-length") {
      length = NumberIn(value, 10);
      return length.has_value();
    }
    if (name == "transfer-encoding") isChunked = value == "chunked";
    if (name == "connection") closes = value == "close";
    return true;
  }

  bool HasBody() const { return status != 204 && status != 304; }
};

// Interim answers say that the server is still there, which does not give it more time.
std::optional<HttpAnswer> HttpReader::Next() {
  std::size_t left = kMostHead;
  Head head;
  do {
    head = {};
    if (!ReadHead(head, left)) return std::nullopt;
  } while (head.status < 200);
  HttpAnswer answer{.status = head.status, .body = {}, .closes = head.closes};
  if (head.HasBody() && !ReadBody(head, answer)) return std::nullopt;
  return answer;
}

bool HttpReader::ReadHead(Head& head, std::size_t& left) {
  const auto first = ReadLine(left);
  const auto status = first ? StatusIn(*first) : std::nullopt;
  if (!status) return false;
  head.status = *status;
  while (const auto line = ReadLine(left)) {
    if (line->empty()) return true;
    if (!head.Take(*line)) return false;
  }
  return false;
}

bool HttpReader::ReadBody(const Head& head, HttpAnswer& answer) {
  if (head.isChunked) return ReadChunks(answer.body);
  if (head.length) return Take(*head.length, answer.body);
  answer.closes = true;
  return ReadToEnd(answer.body);
}

// Each chunk is its length in a line, its bytes and an empty line; the last one is empty, and lines
// may follow it.
bool HttpReader::ReadChunks(std::vector<std::uint8_t>& body) {
  std::size_t left = kMostBody;
  while (const auto line = ReadLine(left)) {
    const std::string_view digits =
        WithoutBlanks(std::string_view(*line).substr(0, line->find(';')));
    const auto length = NumberIn(digits, 16);
    if (!length) return false;
    if (*length == 0) break;
    if (!Take(*length, body)) return false;
    const auto end = ReadLine(left);
    if (!end || !end->empty()) return false;
  }
  while (const auto line = ReadLine(left)) {
    if (line->empty()) return true;
  }
  return false;
}

bool HttpReader::ReadToEnd(std::vector<std::uint8_t>& body) {
  do {
    body.insert(body.end(), unread_.begin(), unread_.end());
    unread_.clear();
    if (body.size() > kMostBody) return false;
  } while (Fill());
  return true;
}

bool HttpReader::Take(std::size_t count, std::vector<std::uint8_t>& body) {
  if (count > kMostBody - body.size()) return false;
  while (unread_.size() < count) {
    if (!Fill()) return false;
  }
  const auto end = unread_.begin() + static_cast<std::ptrdiff_t>(count);
  body.insert(body.end(), unread_.begin(), end);
  unread_.erase(unread_.begin(), end);
  return true;
}

// Without its end; `left` is how much may still be read.
std::optional<std::string> HttpReader::ReadLine(std::size_t& left) {
  auto end = std::ranges::find(unread_, '\n');
  while (end == unread_.end()) {
    if (unread_.size() >= left || !Fill()) return std::nullopt;
    end = std::ranges::find(unread_, '\n');
  }
  const auto length = static_cast<std::size_t>(end - unread_.begin()) + 1;
  if (length > left) return std::nullopt;
  left -= length;
  std::string line(unread_.begin(), end);
  unread_.erase(unread_.begin(), end + 1);
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

bool HttpReader::Fill() {
  std::array<std::uint8_t, kPiece> piece{};
  const std::size_t count = source_(piece);
  unread_.insert(unread_.end(), piece.begin(), piece.begin() + count);
  return count > 0;
}

}  // namespace pagivo::native
