// Exception types of the runtime. Every failure that an action or the host
// reports as "an error was raised" is one of these; what() is the message.
#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace jx {

class Exception : public std::exception {
 public:
  explicit Exception(std::string message) : message_(std::move(message)) {}
  const std::string& Message() const { return message_; }
  const char* what() const noexcept override { return message_.c_str(); }

 private:
  std::string message_;
};

// A text that does not convert: "'abc' is not a valid integer value".
class EConvertError : public Exception {
 public:
  using Exception::Exception;
};

// An operating-system call failed; carries the OS error code.
class EOSError : public Exception {
 public:
  EOSError(uint32_t code, std::string message) : Exception(std::move(message)), ErrorCode(code) {}
  uint32_t ErrorCode;
};

// A file could not be opened: "Cannot open file \"NAME\". <system message>".
class EFOpenError : public Exception {
 public:
  using Exception::Exception;
};

// Reading or writing an open file failed.
class EInOutError : public Exception {
 public:
  using Exception::Exception;
};

// "List index out of bounds (N)" and friends.
class EStringListError : public Exception {
 public:
  using Exception::Exception;
};

// "Could not convert variant of type (String) into type (Integer)".
class EVariantTypeCastError : public Exception {
 public:
  using Exception::Exception;
};

}  // namespace jx
