// Sets an environment variable, or removes it, until the end of the scope.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace tembrel::test {

class EnvironmentValue {
 public:
  EnvironmentValue(const char* variable, const std::optional<std::string>& value) : name(variable) {
    if (const char* const old = std::getenv(variable)) {
      before = old;
    }
    Set(value);
  }
  ~EnvironmentValue() { Set(before); }
  EnvironmentValue(const EnvironmentValue&) = delete;
  EnvironmentValue& operator=(const EnvironmentValue&) = delete;

 private:
  void Set(const std::optional<std::string>& value) const {
    if (value) {
      setenv(name.c_str(), value->c_str(), 1);
    } else {
      unsetenv(name.c_str());
    }
  }

  std::string name;
  std::optional<std::string> before;
};

}  // namespace tembrel::test
