// What a recording fake was asked to do, in order, and what it shall fail on.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "pagivo/picture.h"
#include "pagivo/variant.h"

namespace pagivo::testing {

// Kind and value in one readable form: `Integer 0`, `Double 1417.5`, `Boolean False`,
// `String " x "`, `Missing`. A floating-point value has the digits that tell it from its
// neighbours. An object shows the name of a NamedObject.
std::string Describe(const Variant& value);

// An operation with its values: `put MarginLeft Integer 0`, `call PrintDoc Boolean False, Integer
// 1, Integer 5`.
std::string Describe(std::string_view operation, std::initializer_list<Variant> values);

// An object that a log can tell from others. It passes for a picture.
class NamedObject : public Picture {
 public:
  explicit NamedObject(std::string name) : name_(std::move(name)) {}
  const std::string& Name() const noexcept { return name_; }

 private:
  std::string name_;
};

// The log that all fakes of one test share, so that the order between them shows too.
class OperationLog {
 public:
  // Logs one operation. One that shall fail is logged with " (failed)" behind it and raises
  // Error(InvalidPropertyValue, "Mislukt: " and the line).
  void Record(std::string_view operation, std::initializer_list<Variant> values = {});

  // Lets operations fail from now on whose line is `line` or begins with it and goes on with
  // another word: "put FontName" fails for every value, "get PaperSizes Long 9" for that code
  // alone. With `occurrence` only that one fails, counted from 1 from here on; 0 means all.
  void FailOn(std::string line, int occurrence = 0);
  void FailNothing() { failures_.clear(); }

  // Runs `action` during every operation that `line` stands for, as above.
  void Meanwhile(std::string line, std::function<void()> action);

  const std::vector<std::string>& Lines() const noexcept { return lines_; }
  // The lines of Lines() that begin with `beginning`, e.g. "put " or "get PageCount".
  std::vector<std::string> LinesBeginning(std::string_view beginning) const;
  void Clear() { lines_.clear(); }

 private:
  struct Failure {
    std::string line;
    int occurrence = 0;
    int seen = 0;
  };

  struct Interruption {
    std::string line;
    std::function<void()> action;
  };

  bool ShallFail(std::string_view line);

  std::vector<std::string> lines_;
  std::vector<Failure> failures_;
  std::vector<Interruption> interruptions_;
};

}  // namespace pagivo::testing
