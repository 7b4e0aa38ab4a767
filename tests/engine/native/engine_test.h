// What the engine's tests share: an engine, what it recorded, and what it may refuse.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "engine/native/native_engine.h"
#include "pagivo/error.h"
#include "support/trace/trace_player.h"

namespace pagivo::native {

inline std::shared_ptr<PictureImage> OnePixel() {
  return std::make_shared<PictureImage>(PictureImage::Pixels{1, 1, false, {1, 2, 3}});
}

class EngineTest : public testing::Test {
 protected:
  // The page being composed, or the one of that number.
  std::string Page() { return Page(engine->GetDocument().PageCount()); }
  std::string Page(std::int32_t page) { return TracePage(engine->GetDocument(), page); }

  std::shared_ptr<NativeEngine> engine = std::make_shared<NativeEngine>();
};

// With a document open, its print position at (0, 0).
class ComposingTest : public EngineTest {
 protected:
  ComposingTest() {
    engine->PutMarginLeft(std::int16_t{0});
    engine->PutMarginTop(std::int16_t{0});
    engine->StartDoc();
  }
};

// The statement raises an Error of that number with a description.
template <typename Statement>
void ExpectError(ErrorNumber number, Statement&& statement, const std::string& hint = {}) {
  try {
    statement();
    ADD_FAILURE() << "no error " << hint;
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), number) << hint << ": " << error.what();
    EXPECT_STRNE(error.what(), "") << hint;
  }
}

template <typename Statement>
void ExpectInvalidValue(Statement&& statement, const std::string& hint = {}) {
  ExpectError(ErrorNumber::InvalidPropertyValue, statement, hint);
}

}  // namespace pagivo::native
