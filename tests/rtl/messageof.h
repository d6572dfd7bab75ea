// The message of the exception of type E that `call` throws; "" when none.
#pragma once

#include <string>

namespace jx::test {

template <typename E, typename Call>
std::string MessageOf(Call call) {
  try {
    call();
  } catch (const E& e) {
    return e.Message();
  }
  return "";
}

}  // namespace jx::test
