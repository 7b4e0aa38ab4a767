#include "engine/native/spool/cups/server_stream.h"

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <utility>
#include <vector>

#include "engine/native/spool/cups/server_libraries.h"

namespace pagivo::native {
namespace {

// A step that would have to wait returns what it waits for.
constexpr std::ptrdiff_t kWaitsForInput = -1;
constexpr std::ptrdiff_t kWaitsForOutput = -2;
constexpr std::ptrdiff_t kFailed = -3;

struct AddressesDeleter {
  void operator()(http_addrlist_t* addresses) const noexcept { httpAddrFreeList(addresses); }
};

// More than that many addresses of one server are not tried.
constexpr std::size_t kMostAddresses = 8;

Descriptor Knock(const http_addr_t& address) {
  const int family = httpAddrFamily(const_cast<http_addr_t*>(&address));
  Descriptor socket(::socket(family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  if (!socket) return {};
  const auto length = static_cast<socklen_t>(httpAddrLength(&address));
  const bool isUnderWay =
      connect(socket.Number(), &address.addr, length) == 0 || errno == EINPROGRESS;
  return isUnderWay ? std::move(socket) : Descriptor();
}

bool IsConnected(const Descriptor& socket) {
  int failure = 0;
  socklen_t size = sizeof failure;
  return getsockopt(socket.Number(), SOL_SOCKET, SO_ERROR, &failure, &size) == 0 && failure == 0;
}

// The first that gets through; the others are given up.
Descriptor FirstConnected(std::vector<Descriptor> sockets, Waiting& waiting) {
  while (!sockets.empty() && waiting.GoesOn()) {
    std::vector<pollfd> wanted;
    wanted.reserve(sockets.size());
    for (const Descriptor& socket : sockets) {
      wanted.push_back({.fd = socket.Number(), .events = POLLOUT, .revents = 0});
    }
    poll(wanted.data(), wanted.size(), static_cast<int>(Waiting::kSlice.count()));
    for (std::size_t i = wanted.size(); i-- > 0;) {
      if (wanted[i].revents == 0) continue;
      if (IsConnected(sockets[i])) return std::move(sockets[i]);
      sockets.erase(sockets.begin() + static_cast<std::ptrdiff_t>(i));
    }
  }
  return {};
}

std::ptrdiff_t OutcomeOf(ssize_t count, std::ptrdiff_t wait) {
  if (count >= 0) return count;
  return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR ? wait : kFailed;
}

std::ptrdiff_t OutcomeOf(ssize_t count, gnutls_session_t session) {
  if (count >= 0) return count;
  if (gnutls_error_is_fatal(static_cast<int>(count)) != 0) return kFailed;
  return gnutls_record_get_direction(session) == 0 ? kWaitsForInput : kWaitsForOutput;
}

}  // namespace

void Waiting::Begin(std::chrono::milliseconds patience, KeepWaiting keepWaiting) {
  deadline_ = Clock::now() + patience;
  keepWaiting_ = std::move(keepWaiting);
}

bool Waiting::GoesOn() {
  if (keepWaiting_ && !keepWaiting_()) wasCancelled_ = true;
  if (Clock::now() >= deadline_) wasSilent_ = true;
  return !wasCancelled_ && !wasSilent_;
}

bool Waiting::Await(int socket, short events) {
  pollfd wanted{.fd = socket, .events = events, .revents = 0};
  while (GoesOn()) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline_ - Clock::now());
    const auto slice = std::clamp(left, std::chrono::milliseconds(0), kSlice);
    if (poll(&wanted, 1, static_cast<int>(slice.count())) > 0) return true;
  }
  return false;
}

ServerStream::ServerStream(const std::string& host, int port, Encryption encryption,
                           Waiting& waiting)
    : waiting_(waiting) {
  Connect(host, port);
  if (IsOpen() && encryption == Encryption::Tls) Encrypt(host);
}

ServerStream::~ServerStream() = default;

void ServerStream::Connect(const std::string& host, int port) {
  const std::unique_ptr<http_addrlist_t, AddressesDeleter> addresses(
      httpAddrGetList(host.c_str(), AF_UNSPEC, std::to_string(port).c_str()));
  std::vector<Descriptor> sockets;
  for (const http_addrlist_t* address = addresses.get();
       address != nullptr && sockets.size() < kMostAddresses; address = address->next) {
    Descriptor socket = Knock(address->addr);
    if (socket) sockets.push_back(std::move(socket));
  }
  socket_ = FirstConnected(std::move(sockets), waiting_);
  isLocalSocket_ = host.starts_with('/');
}

void ServerStream::Encrypt(const std::string& host) {
  gnutls_certificate_credentials_t credentials = nullptr;
  gnutls_session_t session = nullptr;
  gnutls_certificate_allocate_credentials(&credentials);
  credentials_.reset(credentials);
  gnutls_init(&session, GNUTLS_CLIENT | GNUTLS_NONBLOCK | GNUTLS_NO_SIGNAL);
  session_.reset(session);
  gnutls_set_default_priority(session);
  gnutls_credentials_set(session, GNUTLS_CRD_CERTIFICATE, credentials);
  gnutls_server_name_set(session, GNUTLS_NAME_DNS, host.data(), host.size());
  gnutls_transport_set_int(session, socket_.Number());
  if (Try([session] { return OutcomeOf(gnutls_handshake(session), session); }) < 0) socket_ = {};
}

template <typename Step>
std::ptrdiff_t ServerStream::Try(Step step) {
  while (IsOpen()) {
    const std::ptrdiff_t outcome = step();
    if (outcome >= 0 || outcome == kFailed) return outcome;
    const short events = outcome == kWaitsForInput ? POLLIN : POLLOUT;
    if (!waiting_.Await(socket_.Number(), events)) return kFailed;
  }
  return kFailed;
}

bool ServerStream::HasInput() const noexcept {
  if (session_ && gnutls_record_check_pending(session_.get()) > 0) return true;
  pollfd wanted{.fd = socket_.Number(), .events = POLLIN, .revents = 0};
  return poll(&wanted, 1, 0) > 0;
}

bool ServerStream::Write(std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const std::ptrdiff_t written = Try([&]() -> std::ptrdiff_t {
      if (session_) {
        return OutcomeOf(gnutls_record_send(session_.get(), bytes.data(), bytes.size()),
                         session_.get());
      }
      return OutcomeOf(send(socket_.Number(), bytes.data(), bytes.size(), MSG_NOSIGNAL),
                       kWaitsForOutput);
    });
    if (written < 0) return false;
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
  return IsOpen();
}

// Time is looked at before each reading, for a server may always have something to say.
std::size_t ServerStream::Read(std::span<std::uint8_t> bytes) {
  if (!waiting_.GoesOn()) return 0;
  const std::ptrdiff_t count = Try([&]() -> std::ptrdiff_t {
    if (session_) {
      return OutcomeOf(gnutls_record_recv(session_.get(), bytes.data(), bytes.size()),
                       session_.get());
    }
    return OutcomeOf(recv(socket_.Number(), bytes.data(), bytes.size(), 0), kWaitsForInput);
  });
  return count < 0 ? 0 : static_cast<std::size_t>(count);
}

}  // namespace pagivo::native
