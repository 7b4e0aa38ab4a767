#include "engine/native/spool/cups/cups_connection.h"

#include <utility>
#include <vector>

namespace pagivo::native {
namespace {

constexpr int kHttpOk = 200;
constexpr int kHttpUnauthorized = 401;
constexpr int kHttpNotFound = 404;
constexpr int kHttpUpgradeRequired = 426;
constexpr int kHttpFirstServerError = 500;

constexpr int kSecurePort = 443;

ServerStream::Encryption EncryptionAskedFor() {
  const http_encryption_t encryption = cupsEncryption();
  const bool isWanted = encryption == HTTP_ENCRYPTION_ALWAYS ||
                        encryption == HTTP_ENCRYPTION_REQUIRED || ippPort() == kSecurePort;
  return isWanted ? ServerStream::Encryption::Tls : ServerStream::Encryption::None;
}

// As the server wants to be called: a socket in the file system has no name.
std::string HostField() {
  const std::string host = cupsServer();
  if (host.starts_with('/')) return "localhost";
  const bool isNumber = host.find(':') != std::string::npos;
  return (isNumber ? "[" + host + "]" : host) + ":" + std::to_string(ippPort());
}

// A server must not write fields of its own into what it is asked.
std::string SafeResource(const std::string& resource) {
  for (const char byte : resource) {
    if (static_cast<unsigned char>(byte) <= ' ' || byte == '\x7F') return "/";
  }
  return resource.empty() ? "/" : resource;
}

std::string Hexadecimal(std::size_t number) {
  std::string digits;
  do {
    digits.insert(digits.begin(), "0123456789abcdef"[number % 16]);
    number /= 16;
  } while (number > 0);
  return digits;
}

// A server that fails is one that is not there.
CupsAnswer AnswerOf(const std::optional<HttpAnswer>& answer) {
  if (!answer || answer->status >= kHttpFirstServerError) return {};
  if (answer->status == kHttpNotFound) {
    return {.isThere = true, .status = IPP_STATUS_ERROR_NOT_FOUND, .message = {}};
  }
  if (answer->status != kHttpOk) {
    return {.isThere = true, .status = IPP_STATUS_ERROR_FORBIDDEN, .message = {}};
  }
  IppMessage message = ParseAnswer(answer->body);
  if (!message) return {};
  return {.isThere = true, .status = StatusOf(answer->body), .message = std::move(message)};
}

}  // namespace

CupsConnection::CupsConnection(std::chrono::milliseconds patience)
    : patience_(patience),
      encryption_(EncryptionAskedFor()),
      reader_([this](std::span<std::uint8_t> buffer) { return stream_->Read(buffer); }) {
  waiting_.Begin(patience_);
  Connect();
}

// What is left of an answer on the connection before is nobody's.
void CupsConnection::Connect() {
  reader_.Forget();
  stream_ = std::make_unique<ServerStream>(cupsServer(), ippPort(), encryption_, waiting_);
  if (!stream_->IsOpen()) stream_.reset();
}

void CupsConnection::SetPatience(std::chrono::milliseconds patience, KeepWaiting keepWaiting) {
  patience_ = patience;
  keepWaiting_ = std::move(keepWaiting);
}

CupsAnswer CupsConnection::Ask(const IppMessage& request, const std::string& resource) {
  const std::vector<std::uint8_t> bytes = BytesOf(request.get());
  auto answer = Post(bytes, resource);
  while (answer && ComplyWith(answer->status)) answer = Post(bytes, resource);
  return AnswerOf(answer);
}

// Once for each of the two: encryption, and who asks where the server can see that for itself.
bool CupsConnection::ComplyWith(int status) {
  if (status == kHttpUpgradeRequired && encryption_ == ServerStream::Encryption::None) {
    encryption_ = ServerStream::Encryption::Tls;
  } else if (status == kHttpUnauthorized && stream_ && stream_->IsLocalSocket() && !namesUser_) {
    namesUser_ = true;
  } else {
    return false;
  }
  stream_.reset();
  return true;
}

std::optional<HttpAnswer> CupsConnection::Post(std::span<const std::uint8_t> request,
                                               const std::string& resource) {
  if (!stream_) Connect();
  const std::string length = "Content-Length: " + std::to_string(request.size());
  const bool isSent = stream_ && WriteHead(resource, length) && stream_->Write(request);
  auto answer = isSent ? reader_.Next() : std::nullopt;
  if (!answer || answer->closes) stream_.reset();
  return answer;
}

bool CupsConnection::WriteText(std::string_view text) {
  return stream_->Write({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

bool CupsConnection::WriteHead(const std::string& resource, const std::string& length) {
  std::string head = "POST " + SafeResource(resource) + " HTTP/1.1\r\nHost: " + HostField() +
                     "\r\nUser-Agent: Pagivo IPP/2.0\r\nContent-Type: application/ipp\r\n" +
                     length + "\r\n";
  if (namesUser_) head += "Authorization: PeerCred " + std::string(cupsUser()) + "\r\n";
  return WriteText(head + "\r\n");
}

bool CupsConnection::WriteChunk(std::span<const std::uint8_t> bytes) {
  return WriteText(Hexadecimal(bytes.size()) + "\r\n") && stream_->Write(bytes) &&
         WriteText("\r\n");
}

bool CupsConnection::Begin(const IppMessage& request, const std::string& resource) {
  waiting_.Begin(patience_, keepWaiting_);
  if (!stream_) Connect();
  return stream_ && WriteHead(resource, "Transfer-Encoding: chunked") &&
         WriteChunk(BytesOf(request.get()));
}

// A server that answers before it has everything takes no more.
bool CupsConnection::Send(std::span<const std::uint8_t> bytes) {
  if (bytes.empty()) return true;
  waiting_.Begin(patience_, keepWaiting_);
  return stream_ && !stream_->HasInput() && WriteChunk(bytes);
}

CupsAnswer CupsConnection::Finish() {
  waiting_.Begin(patience_, keepWaiting_);
  if (!stream_ || !WriteText("0\r\n\r\n")) return {};
  return AnswerOf(reader_.Next());
}

}  // namespace pagivo::native
