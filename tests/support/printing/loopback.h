// Sockets of this machine, for servers that a test runs or plays.
#pragma once

#include <atomic>
#include <cstddef>
#include <string>
#include <thread>

namespace pagivo {

// A socket of the loopback network; closed when it goes.
class LoopbackSocket {
 public:
  LoopbackSocket();
  explicit LoopbackSocket(int descriptor) : descriptor_(descriptor) {}
  ~LoopbackSocket();
  LoopbackSocket(LoopbackSocket&& other) noexcept;
  LoopbackSocket& operator=(LoopbackSocket&&) = delete;

  // Takes a free port; who connects is kept waiting until Accept.
  int Listen();
  bool ConnectTo(int port);
  LoopbackSocket Accept();
  int Descriptor() const noexcept { return descriptor_; }

 private:
  int descriptor_;
};

// A port that nobody listens on.
int FreePort();
// Waits until somebody listens there; raises std::runtime_error with what stands in the file after
// ten seconds.
void AwaitListener(int port, const std::string& logFile);

// What is wrong with a relay. Either with a connection that has sent as much as it passes on; or
// with what the port answers, whose last byte comes a sixth of a second late, or never.
enum class RelayFault { Cut, Silence, Stutter, Unfinished };

// Passes bytes on between whoever connects and a port, one connection at a time and in both
// directions, until one has sent more than so many bytes to the port.
class FaultyRelay {
 public:
  FaultyRelay(int targetPort, std::size_t bytesBeforeFault, RelayFault fault);
  ~FaultyRelay();
  FaultyRelay(const FaultyRelay&) = delete;
  FaultyRelay& operator=(const FaultyRelay&) = delete;

  int Port() const noexcept { return port_; }
  int FaultCount() const noexcept { return faults_; }

 private:
  void Run();
  void Relay(const LoopbackSocket& client);
  bool PassAnswer(const LoopbackSocket& server, const LoopbackSocket& client) const;
  void AwaitLeaving(const LoopbackSocket& client) const;
  void BreakDown(const LoopbackSocket& client);

  LoopbackSocket listener_;
  int port_;
  int targetPort_;
  std::size_t bytesBeforeFault_;
  RelayFault fault_;
  std::atomic<bool> isEnding_ = false;
  std::atomic<int> faults_ = 0;
  std::thread thread_;
};

}  // namespace pagivo
