// Sets or clears an environment variable for one scope and puts back what was there.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace vglobal::testing {

class ScopedEnv {
 public:
  // value null: the variable is cleared for the scope.
  ScopedEnv(const char* name, const char* value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    Set(value);
  }
  ScopedEnv(const char* name, const std::string& value) : ScopedEnv(name, value.c_str()) {}
  ~ScopedEnv() { old_ ? setenv(name_.c_str(), old_->c_str(), 1) : unsetenv(name_.c_str()); }
  ScopedEnv(const ScopedEnv&) = delete;
  ScopedEnv& operator=(const ScopedEnv&) = delete;

  // Changes the variable again within the scope.
  void Set(const char* value) { value ? setenv(name_.c_str(), value, 1) : unsetenv(name_.c_str()); }

 private:
  std::string name_;
  std::optional<std::string> old_;
};

}  // namespace vglobal::testing
