// The arguments of one command and the rules they are checked by before it runs.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "batch/Failure.h"

namespace tembrel {

enum class ArgumentKind {
  Text,
  Whole,    // a whole number
  Decimal,  // a number with or without decimals, a point whatever the locale
  Choice    // one of a few words
};

struct ArgumentRule {
  std::string_view name;  // as the usage shows it; the words of a choice, separated by '|'
  ArgumentKind kind = ArgumentKind::Text;
  double least = 0;  // of numbers, both included
  double most = 0;
};

class Arguments {
 public:
  // The words behind the command's name.
  explicit Arguments(std::vector<std::string> givenWords) : words(std::move(givenWords)) {}

  // Why the argument at `index`, which must exist, breaks the rule.
  Failure Check(std::size_t index, const ArgumentRule& rule) const;

  std::size_t Count() const { return words.size(); }
  // The arguments that exist and were checked.
  const std::string& Text(std::size_t index) const { return words.at(index); }
  std::int64_t Whole(std::size_t index) const;
  double Decimal(std::size_t index) const;

 private:
  std::vector<std::string> words;
};

// Any whole number that a position in a sound may be.
inline constexpr double kAnyFrame = 1LL << 40;

}  // namespace tembrel
