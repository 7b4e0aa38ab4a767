// One connection with the print server.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "engine/native/spool/cups/http_answer.h"
#include "engine/native/spool/cups/ipp_message.h"
#include "engine/native/spool/cups/server_libraries.h"
#include "engine/native/spool/cups/server_stream.h"
#include "engine/native/spool/print_server.h"

namespace pagivo::native {

// What a server says to a request.
struct CupsAnswer {
  // False when there is no answer that can be used: the connection broke, the server was silent, or
  // what it said is too long or no answer at all.
  bool isThere = false;
  int status = IPP_STATUS_ERROR_INTERNAL;  // the message's, whatever number it is
  IppMessage message;                      // null when the server refused without one

  bool IsSuccess() const noexcept { return message && status >= 0 && status <= kLastSuccess; }

  static constexpr int kLastSuccess = 0xFF;
};

// The server is the one that the environment or the user's or system's client.conf names. A server
// that wants a password counts as refusing. No function raises an error: a failure shows in what
// the function returns, and a connection that failed is of no further use.
class CupsConnection {
 public:
  // A server may take so long in all to be reached and to answer what is asked. That is a little
  // less than the two seconds that are promised.
  static constexpr std::chrono::milliseconds kPatience{1800};

  // Tries to reach the server. `patience` is for all that is asked with Ask.
  explicit CupsConnection(std::chrono::milliseconds patience = kPatience);
  CupsConnection(const CupsConnection&) = delete;
  CupsConnection& operator=(const CupsConnection&) = delete;

  bool IsOpen() const noexcept { return stream_ != nullptr; }
  // The server was waited for in vain, which took all the time there was.
  bool WasSilent() const noexcept { return waiting_.WasSilent(); }
  // `keepWaiting` ended the waiting.
  bool WasCancelled() const noexcept { return waiting_.WasCancelled(); }

  CupsAnswer Ask(const IppMessage& request, const std::string& resource);

  // From now on the server may take this long for each piece of data that is sent with Begin and
  // Send, and for the whole answer in Finish.
  void SetPatience(std::chrono::milliseconds patience, KeepWaiting keepWaiting);
  // Begins a request that data follow. False when the server takes no more.
  bool Begin(const IppMessage& request, const std::string& resource);
  bool Send(std::span<const std::uint8_t> bytes);
  CupsAnswer Finish();

 private:
  void Connect();
  bool WriteHead(const std::string& resource, const std::string& length);
  bool WriteChunk(std::span<const std::uint8_t> bytes);
  bool WriteText(std::string_view text);
  std::optional<HttpAnswer> Post(std::span<const std::uint8_t> request,
                                 const std::string& resource);
  // Does what the server wants of a connection: the next one is encrypted, or names the user. False
  // when the server wants nothing more that it can have.
  bool ComplyWith(int status);

  Waiting waiting_;
  std::chrono::milliseconds patience_;
  KeepWaiting keepWaiting_;
  ServerStream::Encryption encryption_;
  bool namesUser_ = false;
  std::unique_ptr<ServerStream> stream_;  // null when the server cannot be reached
  HttpReader reader_;
};

}  // namespace pagivo::native
