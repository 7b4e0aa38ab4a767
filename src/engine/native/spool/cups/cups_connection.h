// One connection with the print server.
#pragma once

#include <cups/cups.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "engine/native/spool/cups/ipp_message.h"
#include "engine/native/spool/print_server.h"

namespace pagivo::native {

using Clock = std::chrono::steady_clock;

// What a server says to a request.
struct CupsAnswer {
  // False when there was none, because the connection broke or the server was silent.
  bool isThere = false;
  ipp_status_t status = IPP_STATUS_ERROR_INTERNAL;
  IppMessage message;  // null when the server refused without one

  bool IsSuccess() const noexcept { return message && status <= IPP_STATUS_OK_CONFLICTING; }
};

// The server is the one that the environment or the user's or system's client.conf names; where
// libcups would ask the user for a password, the server counts as refusing. No function raises: a
// failure shows in what it answers, and a connection that failed is of no further use.
class CupsConnection {
 public:
  // How long a server may take to be reached and to answer a question, in all; a little less than
  // the two seconds that are promised, as libcups looks at the clock only now and then. One that
  // falls silent within an answer is waited for at most half as long.
  static constexpr std::chrono::milliseconds kPatience{1700};

  // Tries to reach the server. `patience` is for each question.
  explicit CupsConnection(std::chrono::milliseconds patience = kPatience);
  CupsConnection(const CupsConnection&) = delete;
  CupsConnection& operator=(const CupsConnection&) = delete;

  bool IsOpen() const noexcept { return http_ != nullptr; }
  // For what libcups asks by itself; HasAnswered tells whether it was answered. Borrowed.
  http_t* Get() const noexcept { return http_.get(); }
  static bool HasAnswered() noexcept;
  // The server was waited for in vain, which took all the time there was.
  bool WasSilent() const noexcept { return wasSilent_; }
  // `keepWaiting` ended the waiting.
  bool WasCancelled() const noexcept { return wasCancelled_; }

  // From now on the server may take this long for each request and each piece of data that is sent
  // with Begin, Send and Finish.
  void SetPatience(std::chrono::milliseconds patience, KeepWaiting keepWaiting);

  CupsAnswer Ask(IppMessage request, const std::string& resource);

  // The same for a request that data follows. False when the server takes no more.
  bool Begin(const IppMessage& request, const std::string& resource);
  bool Send(std::span<const std::uint8_t> bytes);
  CupsAnswer Finish();

 private:
  struct Closer {
    void operator()(http_t* http) const noexcept { httpClose(http); }
  };

  static int WaitOn(http_t* http, void* self);
  bool MayWait();
  void StartWaiting() noexcept { deadline_ = Clock::now() + patience_; }

  std::chrono::milliseconds patience_ = kPatience;
  KeepWaiting keepWaiting_;
  Clock::time_point deadline_;
  bool wasSilent_ = false;
  bool wasCancelled_ = false;
  std::unique_ptr<http_t, Closer> http_;
};

}  // namespace pagivo::native
