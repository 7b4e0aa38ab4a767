// A print server that does what it likes.
#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <string_view>
#include <thread>

#include "support/printing/loopback.h"

namespace pagivo {

// One connection at a time on a free loopback port.
class HostileServer {
 public:
  // What it does with whoever has asked something.
  class Guest {
   public:
    Guest(LoopbackSocket socket, const std::atomic<bool>& isEnding)
        : socket_(std::move(socket)), isEnding_(isEnding) {}

    // False when the guest has left, or the test is over.
    bool Send(std::string_view bytes) const;
    // So many times, a pause of milliseconds before each.
    bool Drip(std::string_view bytes, int pause, int times) const;
    // Until the guest leaves.
    void KeepSilent() const;

   private:
    LoopbackSocket socket_;
    const std::atomic<bool>& isEnding_;
  };
  using Answer = std::function<void(const Guest& guest)>;

  explicit HostileServer(Answer answer);
  ~HostileServer();
  HostileServer(const HostileServer&) = delete;
  HostileServer& operator=(const HostileServer&) = delete;

  std::string Address() const { return "127.0.0.1:" + std::to_string(port_); }

 private:
  void Run();

  LoopbackSocket listener_;
  int port_;
  Answer answer_;
  std::atomic<bool> isEnding_ = false;
  std::thread thread_;
};

}  // namespace pagivo
