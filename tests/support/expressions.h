// Regular expressions in expectations; GoogleTest's own have no brackets on Windows.
#pragma once

#include <gmock/gmock.h>

#include <regex>
#include <string>

namespace pagivo {

MATCHER_P(ContainsExpression, expression,
          std::string(negation ? "does not contain" : "contains") + " what matches " + expression) {
  return std::regex_search(std::string(arg), std::regex(expression));
}

}  // namespace pagivo
