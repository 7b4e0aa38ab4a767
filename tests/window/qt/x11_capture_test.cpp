// Windows of other programs, on X servers of the test's own.
#include "window/qt/x11_capture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>

#include "pagivo/error.h"
#include "window/qt/x_client.h"
#include "window/qt/x_server.h"

namespace pagivo::qt {
namespace {

using testing::XClient;
using testing::XServer;

constexpr std::uint32_t kBlack = 0xFF000000;
constexpr std::uint32_t kRed = 0xFFFF0000;
constexpr std::uint32_t kGreen = 0xFF00FF00;
constexpr std::uint32_t kBlue = 0xFF0000FF;

class X11Capture : public ::testing::Test {
 protected:
  explicit X11Capture(int depth = 24) : server(depth) {}

  // By a program that is not the window's.
  WindowImage Capture(std::uint32_t window, double density = 1) {
    return CaptureX11Window(own.Connection(), window, density);
  }
  void ExpectRefusal(std::uint32_t window) {
    try {
      Capture(window);
      ADD_FAILURE() << "no error";
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::InvalidArgument);
      EXPECT_STRNE(error.what(), "");
    }
    EXPECT_EQ(xcb_connection_has_error(&own.Connection()), 0);
    EXPECT_EQ(xcb_poll_for_event(&own.Connection()), nullptr);
  }
  static std::uint32_t At(const WindowImage& image, int x, int y) {
    return image.pixels.at(static_cast<std::size_t>(y * image.width + x));
  }
  static std::ptrdiff_t Count(const WindowImage& image, std::uint32_t color) {
    return std::ranges::count(image.pixels, color);
  }

  XServer server;
  XClient other{server.Display()};
  XClient own{server.Display()};
};

TEST_F(X11Capture, TakesEveryPixelOfTheWindow) {
  const auto window = other.ShowWindow({10, 20, 31, 17});
  other.Fill(window, {0, 0, 31, 17}, 0x123456);
  other.Fill(window, {3, 2, 4, 5}, kRed);
  other.Fill(window, {30, 16, 1, 1}, kBlue);
  const WindowImage image = Capture(window);
  EXPECT_EQ(image.width, 31);
  EXPECT_EQ(image.height, 17);
  EXPECT_EQ(image.pixels.size(), 31U * 17U);
  EXPECT_EQ(At(image, 0, 0), 0xFF123456);
  EXPECT_EQ(At(image, 3, 2), kRed);
  EXPECT_EQ(At(image, 6, 6), kRed);
  EXPECT_EQ(At(image, 30, 16), kBlue);
  EXPECT_EQ(Count(image, kRed), 4 * 5);
  EXPECT_EQ(Count(image, kBlue), 1);
}

TEST_F(X11Capture, ItsSizeCountsLogicalPixels) {
  const auto window = other.ShowWindow({0, 0, 40, 20});
  EXPECT_EQ(Capture(window).size.width, 600);
  EXPECT_EQ(Capture(window).size.height, 300);
  EXPECT_EQ(Capture(window, 2).size.width, 300);
  EXPECT_EQ(Capture(window, 2).width, 40);
}

TEST_F(X11Capture, TheWindowsInItShowToo) {
  const auto window = other.ShowWindow({0, 0, 40, 20});
  const auto inner = other.ShowWindow({5, 5, 10, 10}, window);
  other.Fill(inner, {0, 0, 10, 10}, kGreen);
  EXPECT_EQ(Count(Capture(window), kGreen), 100);
  EXPECT_EQ(Count(Capture(inner), kGreen), 100);
  EXPECT_EQ(Capture(inner).width, 10);
}

TEST_F(X11Capture, PixelsWithAnAlphaChannelAreOpaque) {
  const auto window = other.ShowTranslucentWindow({0, 0, 8, 8});
  other.Fill(window, {0, 0, 8, 8}, 0x80204060);
  EXPECT_EQ(Count(Capture(window), 0xFF204060), 64);
}

TEST_F(X11Capture, WhatLiesOutsideTheScreenIsLeftOut) {
  const auto window = other.ShowWindow({-10, -5, 40, 20});
  other.Fill(window, {10, 5, 1, 1}, kRed);
  const WindowImage image = Capture(window);
  EXPECT_EQ(image.width, 30);
  EXPECT_EQ(image.height, 15);
  EXPECT_EQ(image.size.width, 450);
  EXPECT_EQ(At(image, 0, 0), kRed);
  const auto far = other.ShowWindow({630, 470, 40, 20});
  EXPECT_EQ(Capture(far).width, 10);
  EXPECT_EQ(Capture(far).height, 10);
}

TEST_F(X11Capture, WhatItsParentCutsOffIsLeftOut) {
  const auto parent = other.ShowWindow({100, 100, 50, 50});
  const auto window = other.ShowWindow({30, -10, 100, 100}, parent);
  other.Fill(window, {0, 10, 1, 1}, kGreen);
  const WindowImage image = Capture(window);
  EXPECT_EQ(image.width, 20);
  EXPECT_EQ(image.height, 50);
  EXPECT_EQ(At(image, 0, 0), kGreen);
}

TEST_F(X11Capture, WindowsThatShowNothingAreRefused) {
  ExpectRefusal(other.ShowWindow({700, 500, 10, 10}));
  ExpectRefusal(other.ShowInputWindow({0, 0, 10, 10}));
  const auto parent = other.ShowWindow({0, 0, 50, 50});
  const auto inner = other.ShowWindow({0, 0, 10, 10}, parent);
  other.Hide(parent);
  ExpectRefusal(parent);
  ExpectRefusal(inner);
}

TEST_F(X11Capture, WindowsThatAreGoneAreRefused) {
  const auto window = other.ShowWindow({0, 0, 10, 10});
  other.Destroy(window);
  ExpectRefusal(window);
}

TEST_F(X11Capture, NumbersThatAreNoWindowAreRefused) {
  for (const std::uint32_t number : {0U, 1U, 12345U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
    ExpectRefusal(number);
  }
}

TEST_F(X11Capture, AServerThatIsGoneIsAnErrorToo) {
  const auto window = other.ShowWindow({0, 0, 10, 10});
  xcb_connection_t* broken = xcb_connect(":nowhere", nullptr);
  EXPECT_THROW(CaptureX11Window(*broken, window, 1), Error);
  xcb_disconnect(broken);
}

class X11CaptureInHighColor : public X11Capture {
 protected:
  X11CaptureInHighColor() : X11Capture(16) {}
};

TEST_F(X11CaptureInHighColor, ColoursOfFewerBitsBecomeFullOnes) {
  const auto window = other.ShowWindow({0, 0, 9, 7});
  other.Fill(window, {0, 0, 3, 7}, kRed);
  other.Fill(window, {3, 0, 3, 7}, kGreen);
  other.Fill(window, {6, 0, 2, 7}, 0xFFFFFFFF);
  const WindowImage image = Capture(window);
  EXPECT_EQ(Count(image, kRed), 21);
  EXPECT_EQ(Count(image, kGreen), 21);
  EXPECT_EQ(Count(image, 0xFFFFFFFF), 14);
  EXPECT_EQ(Count(image, kBlack), 7);
}

}  // namespace
}  // namespace pagivo::qt
