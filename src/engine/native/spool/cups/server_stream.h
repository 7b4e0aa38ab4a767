// The connection with the print server: bytes to and from it, and the waiting for them.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <type_traits>

#include "engine/native/spool/cups/server_libraries.h"
#include "engine/native/spool/print_server.h"
#include "system/posix/descriptor.h"

namespace pagivo::native {

using Clock = std::chrono::steady_clock;

// Waits for the print server, never longer than was said: all the waiting from Begin on has one
// deadline, however often something arrives meanwhile.
class Waiting {
 public:
  // The one who waits is asked this often whether to wait on.
  static constexpr std::chrono::milliseconds kSlice{50};

  // Until the deadline `keepWaiting` is asked now and then. It may be empty.
  void Begin(std::chrono::milliseconds patience, KeepWaiting keepWaiting = {});

  // Waits until the socket is ready for these events of poll(). False when there is no time left,
  // or the one who waits has had enough.
  bool Await(int socket, short events);
  // Whether there is time left, and the one who waits has not had enough.
  bool GoesOn();

  // What ended the waiting: the server's silence, or `keepWaiting`.
  bool WasSilent() const noexcept { return wasSilent_; }
  bool WasCancelled() const noexcept { return wasCancelled_; }

 private:
  KeepWaiting keepWaiting_;
  Clock::time_point deadline_;
  bool wasSilent_ = false;
  bool wasCancelled_ = false;
};

// A connection, plain or encrypted. No function raises an error: a connection that fails is closed.
// The socket never blocks, for all waiting is done by a Waiting.
class ServerStream {
 public:
  enum class Encryption { None, Tls };

  // Connects with the first address of the server that answers. A host that begins with a slash is
  // a socket in the file system. Whatever certificate the server has is taken, for print servers
  // sign their own.
  ServerStream(const std::string& host, int port, Encryption encryption, Waiting& waiting);
  ~ServerStream();
  ServerStream(const ServerStream&) = delete;
  ServerStream& operator=(const ServerStream&) = delete;

  bool IsOpen() const noexcept { return static_cast<bool>(socket_); }
  // Whether the server is on this machine and can see for itself who asks.
  bool IsLocalSocket() const noexcept { return isLocalSocket_; }
  // Whether the server has said something, or has closed the connection.
  bool HasInput() const noexcept;

  // Writes all of them, or returns false.
  bool Write(std::span<const std::uint8_t> bytes);
  // Reads as many bytes as there are, one at least; 0 when there will be no more.
  std::size_t Read(std::span<std::uint8_t> bytes);

 private:
  struct Closer {
    void operator()(gnutls_session_t session) const noexcept { gnutls_deinit(session); }
    void operator()(gnutls_certificate_credentials_t credentials) const noexcept {
      gnutls_certificate_free_credentials(credentials);
    }
  };
  template <typename Handle>
  using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, Closer>;

  void Connect(const std::string& host, int port);
  void Encrypt(const std::string& host);
  // Repeats a step until it needs no more waiting. Returns what it returned last, which is negative
  // for a failure.
  template <typename Step>
  std::ptrdiff_t Try(Step step);

  Waiting& waiting_;
  Descriptor socket_;
  bool isLocalSocket_ = false;
  Owned<gnutls_certificate_credentials_t> credentials_;
  Owned<gnutls_session_t> session_;  // null on a plain connection
};

}  // namespace pagivo::native
