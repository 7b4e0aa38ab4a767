// Reading a server's answers by the rules of HTTP/1.1, as far as print servers need them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pagivo::native {

struct HttpAnswer {
  int status = 0;  // from 200 to 999
  std::vector<std::uint8_t> body;
  bool closes = false;  // nothing more can be asked on this connection
};

// Reads answers one after the other from bytes that come in pieces.
class HttpReader {
 public:
  // The longest body that is read, and the longest head, which counts together with the interim
  // answers before it.
  static constexpr std::size_t kMostBody = std::size_t{8} << 20;
  static constexpr std::size_t kMostHead = std::size_t{64} << 10;

  // Fills the buffer with the next bytes, as many as there are; 0 when there will be no more.
  using Source = std::function<std::size_t(std::span<std::uint8_t> buffer)>;

  explicit HttpReader(Source source) : source_(std::move(source)) {}

  // The next answer. Nothing when the source ends first, or when the answer is too long or none at
  // all.
  std::optional<HttpAnswer> Next();
  // Forgets what was read of an answer that nobody wants any more.
  void Forget() noexcept { unread_.clear(); }

 private:
  struct Head;

  bool Fill();
  std::optional<std::string> ReadLine(std::size_t& left);
  bool ReadHead(Head& head, std::size_t& left);
  bool ReadBody(const Head& head, HttpAnswer& answer);
  bool ReadChunks(std::vector<std::uint8_t>& body);
  bool ReadToEnd(std::vector<std::uint8_t>& body);
  bool Take(std::size_t count, std::vector<std::uint8_t>& body);

  Source source_;
  std::vector<std::uint8_t> unread_;
};

}  // namespace pagivo::native
