// Variable references in property texts: %NAME% and $(NAME). "%%" gives "%"
// and "$$(" gives "$(". A '%' or "$(" that does not open a well-formed
// reference is literal text. Values are inserted as they are, not expanded again.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace jx {

// Puts the text of variable `name` into `value`; false when no such variable exists.
using VariableResolver = std::function<bool(std::string_view name, std::string& value)>;

// A name that a reference can hold: a letter or '_', then letters, digits, '_', '.' or '-'.
bool IsVariableName(std::string_view name);

// Replaces every reference in `text`; `count` receives the number replaced.
// Throws Exception `Variable "NAME" is not defined` for an unknown name.
std::string ExpandReferences(std::string_view text, const VariableResolver& resolve, int& count);

}  // namespace jx
