// What a print server may do wrong. Whatever it does, an answer has an end: in time, in size, in
// depth.
#include "support/printing/hostile_server.h"

#include <cups/cups.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "engine/native/spool/cups/cups_connection.h"
#include "engine/native/spool/cups/cups_print_server.h"
#include "pagivo/error.h"
#include "support/printing/test_print_server.h"

namespace pagivo::native {
namespace {

using namespace std::chrono_literals;
using Guest = HostileServer::Guest;

constexpr const char* kHead =
    "HTTP/1.1 200 OK\r\nContent-Type: application/ipp\r\nTransfer-Encoding: chunked\r\n\r\n";

std::string Chunk(const std::string& bytes) {
  char length[16];
  std::snprintf(length, sizeof length, "%zx\r\n", bytes.size());
  return length + bytes + "\r\n";
}

// The parts of a message.
std::string Status(int status) {
  return {'\2', '\0', static_cast<char>(status / 256), static_cast<char>(status % 256), 0, 0, 0, 1};
}
std::string Attribute(int tag, const std::string& name, const std::string& value) {
  const auto text = [](const std::string& bytes) {
    return std::string{static_cast<char>(bytes.size() / 256),
                       static_cast<char>(bytes.size() % 256)} +
           bytes;
  };
  return static_cast<char>(tag) + text(name) + text(value);
}
std::string Queue(const std::string& name) {
  return "\4" + Attribute(IPP_TAG_NAME, "printer-name", name) +
         Attribute(IPP_TAG_URI, "printer-uri-supported", "ipp://localhost/printers/" + name);
}
const std::string kEnd = "\3";

std::string Whole(const std::string& message) {
  return kHead + Chunk(message) + "0\r\n\r\n";
}

class HostileServerTest : public testing::Test {
 protected:
  ~HostileServerTest() override { UsePrintServer(""); }

  // How many printers the server has, and how long that took to find out.
  static int CountPrinters(const HostileServer& server) {
    UsePrintServer(server.Address());
    CupsPrintServer printers;
    const auto start = Clock::now();
    int count = -1;  // the server is not there
    try {
      count = static_cast<int>(printers.Printers().size());
    } catch (const Error&) {
    }
    EXPECT_LT(Clock::now() - start, 2s);
    return count;
  }

  static int CountPrintersIn(const std::string& answer) {
    const HostileServer server([&](const Guest& guest) { guest.Send(answer); });
    return CountPrinters(server);
  }
};

TEST_F(HostileServerTest, AWellBehavedAnswerIsUnderstood) {
  EXPECT_EQ(CountPrintersIn(Whole(Status(0) + Queue("Balie") + Queue("Zolder") + kEnd)), 2);
}

// --- Time -------------------------------------------------------------------------------------

TEST_F(HostileServerTest, AnAttributeEveryFourTenthsOfASecondIsNoAnswer) {
  const HostileServer server([](const Guest& guest) {
    if (guest.Send(kHead + Chunk(Status(0) + "\4"))) {
      guest.Drip(Chunk(Attribute(IPP_TAG_NAME, "printer-name", "Balie")), 400, 50);
    }
  });
  EXPECT_EQ(CountPrinters(server), -1);
}

TEST_F(HostileServerTest, AHeadThatComesByteForByteIsNoAnswer) {
  const HostileServer server([](const Guest& guest) {
    if (guest.Send("HTTP/1.1 200 OK\r\nContent-Type: ")) guest.Drip("x", 5, 2000);
  });
  EXPECT_EQ(CountPrinters(server), -1);
}

TEST_F(HostileServerTest, AHeadWithoutEndIsNoAnswer) {
  const HostileServer server([](const Guest& guest) {
    if (guest.Send("HTTP/1.1 200 OK\r\n")) guest.Drip("Field: value\r\n", 0, 10'000'000);
  });
  EXPECT_EQ(CountPrinters(server), -1);
}

TEST_F(HostileServerTest, ContinueForEverIsNoAnswer) {
  for (const int pause : {0, 10}) {
    const HostileServer server([pause](const Guest& guest) {
      guest.Drip("HTTP/1.1 100 Continue\r\n\r\n", pause, 10'000'000);
    });
    EXPECT_EQ(CountPrinters(server), -1);
  }
}

TEST_F(HostileServerTest, AttributesWithoutEndAreNoAnswer) {
  const std::string queue = Chunk(Queue("Balie"));
  const HostileServer server([&](const Guest& guest) {
    if (guest.Send(kHead + Chunk(Status(0)))) guest.Drip(queue, 0, 10'000'000);
  });
  EXPECT_EQ(CountPrinters(server), -1);
}

TEST_F(HostileServerTest, AnEncryptedServerThatSaysNothingIsNotThere) {
  const HostileServer server([](const Guest& guest) { guest.KeepSilent(); });
  cupsSetEncryption(HTTP_ENCRYPTION_ALWAYS);
  EXPECT_EQ(CountPrinters(server), -1);
  cupsSetEncryption(HTTP_ENCRYPTION_IF_REQUESTED);
}

TEST_F(HostileServerTest, TheAnswerToADocumentHasOneDeadlineForTheWholeOfIt) {
  const HostileServer server(
      [](const Guest& guest) { guest.Drip("HTTP/1.1 100 Continue\r\n\r\n", 20, 1000); });
  UsePrintServer(server.Address());
  CupsConnection connection;
  connection.SetPatience(300ms, {});
  EXPECT_TRUE(connection.Begin(NewRequest(IPP_OP_SEND_DOCUMENT, {}), "/"));
  const auto start = Clock::now();
  EXPECT_FALSE(connection.Finish().isThere);
  EXPECT_LT(Clock::now() - start, 500ms);
  EXPECT_TRUE(connection.WasSilent());
}

TEST_F(HostileServerTest, AUserWhoHasHadEnoughIsHeardWhileTheAnswerDrips) {
  const HostileServer server(
      [](const Guest& guest) { guest.Drip("HTTP/1.1 100 Continue\r\n\r\n", 5, 1000); });
  UsePrintServer(server.Address());
  CupsConnection connection;
  const auto start = Clock::now();
  connection.SetPatience(30s, [&] { return Clock::now() < start + 200ms; });
  EXPECT_TRUE(connection.Begin(NewRequest(IPP_OP_SEND_DOCUMENT, {}), "/"));
  EXPECT_FALSE(connection.Finish().isThere);
  EXPECT_LT(Clock::now() - start, 400ms);
  EXPECT_TRUE(connection.WasCancelled());
}

// --- Size, depth and numbers ------------------------------------------------------------------

TEST_F(HostileServerTest, AnAnswerOfMoreThanEightMebibytesIsNone) {
  const auto padded = [](std::size_t size) {
    std::string message = Status(0) + Queue("Balie");
    const std::string filler = Attribute(IPP_TAG_TEXT, "filler", std::string(1000, 'x'));
    while (message.size() + filler.size() + 1 < size) message += filler;
    const std::size_t rest = size - message.size() - 1 - Attribute(IPP_TAG_TEXT, "rest", "").size();
    return message + Attribute(IPP_TAG_TEXT, "rest", std::string(rest, 'x')) + kEnd;
  };
  EXPECT_EQ(CountPrintersIn(Whole(padded(HttpReader::kMostBody - 1000))), 1);
  EXPECT_EQ(CountPrintersIn(Whole(padded(HttpReader::kMostBody + 1000))), -1);
  EXPECT_EQ(CountPrintersIn("HTTP/1.1 200 OK\r\nContent-Length: 99999999999999999999\r\n\r\n"), -1);
  EXPECT_EQ(CountPrintersIn("HTTP/1.1 200 OK\r\nContent-Length: 4294967296\r\n\r\n"), -1);
}

TEST_F(HostileServerTest, ADeeplyNestedAnswerIsNone) {
  const auto nested = [](int depth) {
    std::string message = Status(0) + Queue("Balie") + Attribute(IPP_TAG_BEGIN_COLLECTION, "a", "");
    for (int level = 1; level < depth; ++level) {
      message +=
          Attribute(IPP_TAG_MEMBERNAME, "", "a") + Attribute(IPP_TAG_BEGIN_COLLECTION, "", "");
    }
    for (int level = 0; level < depth; ++level)
      message += Attribute(IPP_TAG_END_COLLECTION, "", "");
    return Whole(message + kEnd);
  };
  EXPECT_EQ(CountPrintersIn(nested(kDeepestNesting)), 1);
  EXPECT_EQ(CountPrintersIn(nested(kDeepestNesting + 1)), -1);
  EXPECT_EQ(CountPrintersIn(nested(100'000)), -1);
}

TEST_F(HostileServerTest, AStatusOfAnyNumberIsARefusal) {
  for (const int status : {0x0400, 0x1FFF, 0x7FFF, 0x8000, 0xFFFF}) {
    EXPECT_EQ(CountPrintersIn(Whole(Status(status) + Queue("Balie") + kEnd)), 0) << status;
  }
  for (const char* status : {"000", "099", "99", "abc", "-12", "2147483648"}) {
    EXPECT_EQ(CountPrintersIn("HTTP/1.1 " + std::string(status) + " OK\r\n\r\n"), -1) << status;
  }
  EXPECT_EQ(CountPrintersIn("HTTP/1.1 999 Anders\r\nContent-Length: 0\r\n\r\n"), -1);
  EXPECT_EQ(CountPrintersIn("HTTP/1.1 403 Verboden\r\nContent-Length: 0\r\n\r\n"), 0);
}

TEST_F(HostileServerTest, WhatIsNoMessageIsNoAnswer) {
  const std::string message = Status(0) + Queue("Balie") + kEnd;
  for (std::size_t length = 0; length < message.size(); ++length) {
    EXPECT_EQ(CountPrintersIn(Whole(message.substr(0, length)).c_str()), -1) << length;
  }
  EXPECT_EQ(CountPrintersIn("Goedemiddag\r\n\r\n"), -1);
  EXPECT_EQ(CountPrintersIn(kHead + std::string("zz\r\n")), -1);
}

// --- The host ---------------------------------------------------------------------------------

TEST_F(HostileServerTest, ThePasswordCallbackOfTheHostStaysAsItWas) {
  cupsSetPasswordCB2(
      [](const char*, http_t*, const char*, const char*, void*) -> const char* { return "geheim"; },
      nullptr);
  EXPECT_EQ(CountPrintersIn("HTTP/1.1 401 Wie?\r\nWWW-Authenticate: Basic realm=\"CUPS\"\r\n"
                            "Content-Length: 0\r\n\r\n"),
            0);
  EXPECT_STREQ(cupsGetPassword("?"), "geheim");
  cupsSetPasswordCB2(nullptr, nullptr);
}

}  // namespace
}  // namespace pagivo::native
