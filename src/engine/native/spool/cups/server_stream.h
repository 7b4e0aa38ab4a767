// Bytes to and from the print server.
#pragma once

#include <gnutls/gnutls.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "engine/native/spool/cups/waiting.h"

namespace pagivo::native {

// A socket, which never blocks; all waiting is done by a Waiting.
class ServerSocket {
 public:
  ServerSocket() = default;
  explicit ServerSocket(int file) noexcept : file_(file) {}
  ~ServerSocket();
  ServerSocket(ServerSocket&& other) noexcept;
  ServerSocket& operator=(ServerSocket&& other) noexcept;

  int File() const noexcept { return file_; }

 private:
  int file_ = -1;
};

// A connection, plain or encrypted. No function raises: a connection that failed is closed.
class ServerStream {
 public:
  enum class Encryption { None, Tls };

  // To the first address of the server that answers; a host that begins with a slash is a socket in
  // the file system. Whatever certificate the server has is taken, as print servers sign their own.
  ServerStream(const std::string& host, int port, Encryption encryption, Waiting& waiting);
  ~ServerStream();
  ServerStream(const ServerStream&) = delete;
  ServerStream& operator=(const ServerStream&) = delete;

  bool IsOpen() const noexcept { return socket_.File() >= 0; }
  // To a server on this machine, which knows who asks.
  bool IsLocalSocket() const noexcept { return isLocalSocket_; }
  // The server has said something, or has closed the connection.
  bool HasInput() const noexcept;

  // All of them, or false.
  bool Write(std::span<const std::uint8_t> bytes);
  // As many as there are, one at least; 0 when there are no more.
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
  // Takes a step until it needs no more waiting; what it returned last, negative for a failure.
  template <typename Step>
  std::ptrdiff_t Try(Step step);

  Waiting& waiting_;
  ServerSocket socket_;
  bool isLocalSocket_ = false;
  Owned<gnutls_certificate_credentials_t> credentials_;
  Owned<gnutls_session_t> session_;  // null on a plain connection
};

}  // namespace pagivo::native
