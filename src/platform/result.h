// What an operation of the system came to.
#pragma once

#include <string>
#include <utility>
#include <variant>

namespace platform {

// Why the system did not do something, in its own words.
struct SystemError {
  std::string reason;
};

// Stands for the value of an operation that has none.
struct Done {};

// The value of an operation that went well, or the reason why it did not. Everything that the
// system does for TessaraAnimate and that may fail returns one; the console program's services keep
// the forms of its contract.
template <typename Value>
class [[nodiscard]] Result {
 public:
  Result(Value value) : content_(std::move(value)) {}
  Result(SystemError error) : content_(std::move(error)) {}

  // Whether it went well.
  explicit operator bool() const { return std::holds_alternative<Value>(content_); }

  // The value; only where it went well.
  Value& operator*() { return *std::get_if<Value>(&content_); }
  const Value& operator*() const { return *std::get_if<Value>(&content_); }
  Value* operator->() { return &**this; }
  const Value* operator->() const { return &**this; }

  // The reason; only where it did not.
  const std::string& Reason() const { return std::get_if<SystemError>(&content_)->reason; }

 private:
  std::variant<Value, SystemError> content_;
};

}  // namespace platform
