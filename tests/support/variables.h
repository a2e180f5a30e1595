// Environment variables of this process, and so of the programs it starts.
#pragma once

#include <map>
#include <optional>
#include <string>

// Changes variables while it lives; each is then again what it was before.
class Variables {
 public:
  Variables() = default;
  ~Variables();
  Variables(const Variables&) = delete;
  Variables& operator=(const Variables&) = delete;

  // Sets a variable, or removes it when `value` is null.
  void Set(const std::string& name, const char* value);

  // Has new temporary files made in the folder at `path`.
  void SetTemporaryFolder(const std::string& path);

 private:
  std::map<std::string, std::optional<std::string>> before_;
};
